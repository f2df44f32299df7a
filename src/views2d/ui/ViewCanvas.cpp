#include "ViewCanvas.h"

#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QPainter>

#include "platform/qt/Theme.h"

namespace kestrava::views2d::ui {

ViewCanvas::ViewCanvas(QWidget* parent) : SurfaceWidget(parent) {
  setFocusPolicy(Qt::StrongFocus);
}

void ViewCanvas::paintEvent(QPaintEvent* event) {
  SurfaceWidget::paintEvent(event);
  if (!ring_ || !hasFocus()) return;
  QPainter painter(this);
  painter.setPen(
      QPen(platform::qt::SkinIsOn() ? platform::qt::Tones().accent : palette().color(QPalette::Highlight), 2));
  painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void ViewCanvas::focusInEvent(QFocusEvent* event) {
  ring_ = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
  SurfaceWidget::focusInEvent(event);
}

void ViewCanvas::focusOutEvent(QFocusEvent* event) {
  ring_ = false;
  SurfaceWidget::focusOutEvent(event);
}

// The mouse's right button is told by the press; only the key's own wish is left.
void ViewCanvas::contextMenuEvent(QContextMenuEvent* event) {
  if (event->reason() == QContextMenuEvent::Keyboard) emit MenuAsked(rect().center());
}

}  // namespace kestrava::views2d::ui
