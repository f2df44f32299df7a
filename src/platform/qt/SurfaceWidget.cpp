#include "platform/qt/SurfaceWidget.h"

#include <QMouseEvent>
#include <QPainter>
#include <cmath>
#include <cstring>

namespace kestrava::platform::qt {

SurfaceWidget::SurfaceWidget(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
}

bool SurfaceWidget::FitToWidget() {
  if (back_.Width() == width() && back_.Height() == height() && back_.Scale() == devicePixelRatioF()) return false;
  back_.Resize(width(), height(), devicePixelRatioF());
  return true;
}

void SurfaceWidget::Present() {
  const QImage& painted = back_.Image();
  if (front_.size() == painted.size() && front_.format() == painted.format()) {
    if (!painted.isNull())
      std::memcpy(front_.bits(), painted.constBits(), static_cast<std::size_t>(painted.sizeInBytes()));
    front_.setDevicePixelRatio(painted.devicePixelRatio());
  } else {
    front_ = painted.copy();
  }
  presented_ = true;
  update();
}

void SurfaceWidget::SetIdlePicture(const QImage& picture) {
  if (presented_) return;
  front_ = picture.convertToFormat(QImage::Format_RGB32).copy();  // the picture goes on being painted on
  update();
}

QPointF SurfaceWidget::ToSurface(QPointF onWidget) const {
  if (width() <= 0 || height() <= 0) return onWidget;
  return {onWidget.x() * back_.Width() / width(), onWidget.y() * back_.Height() / height()};
}

/// The front picture is of the widget's size, though the last device pixel may be a broken one.
bool SurfaceWidget::IsPixelForPixel() const {
  const double scale = devicePixelRatioF();
  return std::abs(front_.width() - width() * scale) < 1 && std::abs(front_.height() - height() * scale) < 1;
}

void SurfaceWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  if (front_.isNull()) {
    painter.fillRect(rect(), Qt::black);
    return;
  }
  if (front_.devicePixelRatio() == devicePixelRatioF() && IsPixelForPixel()) {
    painter.drawImage(QPoint(0, 0), front_);
    return;
  }
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.drawImage(rect(), front_);
}

void SurfaceWidget::mousePressEvent(QMouseEvent* event) {
  emit Pressed(ToSurface(event->position()), event->button(), event->globalPosition().toPoint());
}

}  // namespace kestrava::platform::qt
