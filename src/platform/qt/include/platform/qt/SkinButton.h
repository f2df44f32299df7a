// The button of the skinned windows: flat, its back colour can be set, and it shows by it which of two modes holds.
#pragma once

#include <QAbstractButton>

#include "platform/Surface.h"

namespace kestrava::platform::qt {

/// Back colours of a pair of mode buttons: of the one that holds and of the other.
inline constexpr Colour kChosenBack = 0xFFFFC0;
inline constexpr Colour kOtherBack = 0xC0C000;

class SkinButton : public QAbstractButton {
  Q_OBJECT

 public:
  explicit SkinButton(const QString& text, QWidget* parent = nullptr);

  /// Text turns dark or light, whichever reads better on it.
  void SetBackColour(Colour colour);
  Colour BackColour() const;
  /// Back to the theme's own colour.
  void ResetBackColour();
  /// A narrow button that is as tall as its window shows a chevron instead of a text: to the left or to the right.
  enum class Chevron { kNone, kLeft, kRight };
  void SetChevron(Chevron chevron);

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QColor Face() const;

  bool ownColour_ = false;
  Colour back_ = 0;
  Chevron chevron_ = Chevron::kNone;
};

}  // namespace kestrava::platform::qt
