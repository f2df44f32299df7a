// Draws a window's skin: background and frame picture behind its controls, strongest at the window's edges.
#pragma once

#include <QPixmap>
#include <QWidget>

#include "platform/Skin.h"

namespace kestrava::platform::qt {

class QtSkin : public SkinObject {
 public:
  /// @param window  outlives the skin
  explicit QtSkin(QWidget& window) : window_(window) {}

  void SetFirstFlag(bool on) override { firstFlag_ = on; }
  void SetColour(Colour colour) override { text_ = colour; }
  void SetColours(Colour first, Colour second, Colour third) override;
  void SetSecondFlag(bool on) override { secondFlag_ = on; }
  void SetFontsFromWindow() override;
  void Apply(const SkinLayout& layout) override;
  Colour BackgroundColour() const override;

  bool Applied() const { return applied_; }
  /// Paints the frame over the window's whole background; nothing before Apply.
  void Paint(QPainter& painter, const QRect& area) const;

 private:
  void PaintPicture(QPainter& painter, const QRect& area) const;
  void PaintPlainFrame(QPainter& painter, const QRect& area) const;

  QWidget& window_;
  bool firstFlag_ = false;
  bool secondFlag_ = false;
  Colour text_ = 0xDDDDDD;
  Colour accent_ = 0x00CFD6;
  Colour light_ = 0xFFFFFF;
  Colour shade_ = 0x808080;
  SkinLayout layout_;
  QPixmap picture_;
  bool applied_ = false;
};

}  // namespace kestrava::platform::qt
