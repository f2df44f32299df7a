#include "PictureLink.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>
#include <QStyleOptionFocusRect>

#include "platform/qt/Theme.h"

namespace kestrava::shell::ui {

namespace {

constexpr double kCornerRadius = 4;

/// The picture's size within the room that there is, its proportions kept.
QSize Fitted(const QPixmap& picture, const QSize& room) {
  const QSize whole = picture.deviceIndependentSize().toSize();
  if (whole.width() <= room.width() && whole.height() <= room.height()) return whole;
  return whole.scaled(room, Qt::KeepAspectRatio);
}

}  // namespace

PictureLink::PictureLink(QWidget* parent) : QAbstractButton(parent) {
  setCursor(Qt::PointingHandCursor);
  setFocusPolicy(Qt::StrongFocus);
}

void PictureLink::SetPicture(const QPixmap& picture) {
  picture_ = picture;
  updateGeometry();
  update();
}

QSize PictureLink::sizeHint() const {
  return picture_.isNull() ? QSize(153, 60) : picture_.deviceIndependentSize().toSize();
}

void PictureLink::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHints(QPainter::SmoothPixmapTransform | QPainter::Antialiasing);
  if (!picture_.isNull()) {
    QRect target({}, Fitted(picture_, size()));
    target.moveCenter(rect().center());
    QPainterPath rounded;
    rounded.addRoundedRect(target, kCornerRadius, kCornerRadius);
    painter.setClipPath(rounded);
    painter.drawPixmap(target, picture_);
    painter.setClipping(false);
  }
  if (hasFocus()) {
    painter.setPen(QPen(platform::qt::FocusColour(palette()), 2));
    painter.drawRoundedRect(QRectF(rect()).adjusted(1, 1, -1, -1), kCornerRadius, kCornerRadius);
  }
}

void PictureLink::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    click();
  } else {
    QAbstractButton::keyPressEvent(event);
  }
}

}  // namespace kestrava::shell::ui
