#include "platform/qt/SkinButton.h"

#include <QEnterEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPainterPath>

#include "platform/qt/ImageSurface.h"
#include "platform/qt/Theme.h"

namespace kestrava::platform::qt {
namespace {

constexpr double kCorner = 4;

QPainterPath ChevronPath(const QRectF& box, bool toTheRight) {
  const double reach = std::min(box.width(), box.height()) * 0.22;
  const double tip = toTheRight ? reach : -reach;
  QPainterPath path(box.center() + QPointF(-tip, -2 * reach));
  path.lineTo(box.center() + QPointF(tip, 0));
  path.lineTo(box.center() + QPointF(-tip, 2 * reach));
  return path;
}

}  // namespace

SkinButton::SkinButton(const QString& text, QWidget* parent) : QAbstractButton(parent) {
  setText(text);
  setAccessibleName(text);
  setFocusPolicy(Qt::StrongFocus);
  setAttribute(Qt::WA_Hover);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void SkinButton::SetBackColour(Colour colour) {
  if (ownColour_ && back_ == colour) return;
  ownColour_ = true;
  back_ = colour;
  update();
}

Colour SkinButton::BackColour() const {
  return ownColour_ ? back_ : FromRgb(palette().color(QPalette::Button).rgb());
}

void SkinButton::ResetBackColour() {
  ownColour_ = false;
  update();
}

void SkinButton::SetChevron(Chevron chevron) {
  chevron_ = chevron;
  update();
}

QSize SkinButton::sizeHint() const {
  return {fontMetrics().horizontalAdvance(text()) + 24, fontMetrics().height() + 8};
}

QColor SkinButton::Face() const {
  QColor face = QColor::fromRgb(ToRgb(BackColour()));
  if (!isEnabled()) return ownColour_ ? face.darker(150) : face.darker(112);
  if (isDown()) return face.darker(118);
  return underMouse() ? face.lighter(112) : face;
}

void SkinButton::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF box = QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  const QColor face = Face();
  QLinearGradient shade(box.topLeft(), box.bottomLeft());
  shade.setColorAt(0, isDown() ? face.darker(106) : face.lighter(107));
  shade.setColorAt(1, isDown() ? face : face.darker(106));
  painter.setBrush(shade);
  painter.setPen(QPen(ownColour_ ? face.darker(140) : palette().color(QPalette::Mid), 1));
  painter.drawRoundedRect(box, kCorner, kCorner);
  if (hasFocus()) {
    const QColor ring = SkinIsOn() ? Tones().accent : palette().color(QPalette::Highlight);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(ReadableOn(face) == Qt::black ? ring.darker(250) : ring, 2));
    painter.drawRoundedRect(box.adjusted(1.5, 1.5, -1.5, -1.5), kCorner - 1, kCorner - 1);
  }
  const QColor ink = !ownColour_
                         ? palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::ButtonText)
                         : ReadableOn(face);
  painter.setPen(QPen(ink, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  if (chevron_ != Chevron::kNone) {
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(ChevronPath(box, chevron_ == Chevron::kRight));
    return;
  }
  const QRect area = rect().adjusted(4, isDown() ? 1 : 0, -4, isDown() ? 1 : 0);
  painter.drawText(area, Qt::AlignCenter | Qt::TextShowMnemonic,
                   fontMetrics().elidedText(text(), Qt::ElideRight, area.width(), Qt::TextShowMnemonic));
}

void SkinButton::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter) return QAbstractButton::keyPressEvent(event);
  if (!event->isAutoRepeat()) click();
}

void SkinButton::enterEvent(QEnterEvent* event) {
  QAbstractButton::enterEvent(event);
  update();
}

void SkinButton::leaveEvent(QEvent* event) {
  QAbstractButton::leaveEvent(event);
  update();
}

}  // namespace kestrava::platform::qt
