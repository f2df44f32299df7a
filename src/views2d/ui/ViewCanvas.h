// A painted view as a control: takes the focus, shows it when the keyboard brought it, and asks for its menu by the
// menu key.
#pragma once

#include "platform/qt/SurfaceWidget.h"

namespace kestrava::views2d::ui {

class ViewCanvas : public platform::qt::SurfaceWidget {
  Q_OBJECT

 public:
  explicit ViewCanvas(QWidget* parent);

 signals:
  /// @param at  where the menu belongs, on this control
  void MenuAsked(QPoint at);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;

 private:
  bool ring_ = false;
};

}  // namespace kestrava::views2d::ui
