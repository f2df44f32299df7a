#include "PlaceMap.h"

#include <QAccessibleWidget>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <cmath>

#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

namespace kestrava::panels::ui {

using platform::qt::ToQt;

namespace {

constexpr const char* kPicture = ":/pictures/chart.jpg";
constexpr int kHintWidthPx = 420;
constexpr int kLeastWidthPx = 240;
constexpr int kGridDeg = 30;
constexpr int kGridAlpha = 70;
constexpr int kMiddleLineAlpha = 150;
constexpr double kMarkRadiusPx = 6;
constexpr double kHaloPx = 4;
constexpr double kLinePx = 1.8;
constexpr double kDotRadiusPx = 1.4;
constexpr QPointF kTextOffset{14, 12};
constexpr double kTextMarginPx = 5;
constexpr double kStepDeg = 1;
constexpr double kLargeStepDeg = 10;
constexpr double kSmallStepDeg = 0.1;
const QColor kSea{0x26, 0x45, 0x5e};
const QColor kMarkColour{0xff, 0xe9, 0x3b};

const QImage& WorldPicture() {
  static const QImage picture(kPicture);
  return picture;
}

QRectF Logical(const MapArea& area, double scale) {
  return {area.left / scale, area.top / scale, area.width / scale, area.height / scale};
}

double StepOf(Qt::KeyboardModifiers modifiers) {
  if (modifiers & Qt::ShiftModifier) return kLargeStepDeg;
  return modifiers & Qt::ControlModifier ? kSmallStepDeg : kStepDeg;
}

/// The map as assistive programs see it: a picture with a value.
class MapAccessible : public QAccessibleWidget {
 public:
  explicit MapAccessible(PlaceMap* map) : QAccessibleWidget(map, QAccessible::Graphic), map_(map) {}
  QString text(QAccessible::Text which) const override {
    return which == QAccessible::Value ? map_->ValueText() : QAccessibleWidget::text(which);
  }

 private:
  PlaceMap* map_;
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
  auto* map = qobject_cast<PlaceMap*>(object);
  return map == nullptr ? nullptr : new MapAccessible(map);
}

}  // namespace

PlaceMap::PlaceMap(QWidget* parent) : QWidget(parent) {
  QAccessible::installFactory(MakeAccessible);
  setFocusPolicy(Qt::StrongFocus);
  setMouseTracking(true);
  setCursor(Qt::CrossCursor);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

QSize PlaceMap::sizeHint() const {
  return {kHintWidthPx, kHintWidthPx / 2};
}

QSize PlaceMap::minimumSizeHint() const {
  return {kLeastWidthPx, kLeastWidthPx / 2};
}

MapArea PlaceMap::Area() const {
  const auto screenPixels = [this](int logical) { return static_cast<int>(std::floor(logical * devicePixelRatioF())); };
  return FitMap(screenPixels(width()), screenPixels(height()));
}

std::optional<GeoPoint> PlaceMap::PlaceAt(QPointF onWidget) const {
  constexpr double kNoise = 1e-6;  // a logical position is a pixel's number divided by the scale
  const auto pixel = [this](double logical) {
    return static_cast<int>(std::floor(logical * devicePixelRatioF() + kNoise));
  };
  return PlaceAtPixel(Area(), pixel(onWidget.x()), pixel(onWidget.y()));
}

void PlaceMap::SetMark(const std::optional<GeoPoint>& place) {
  if (mark_ == place) return;
  mark_ = place;
  update();
  QAccessibleValueChangeEvent event(this, ValueText());
  QAccessible::updateAccessibility(&event);
}

QString PlaceMap::ValueText() const {
  return mark_ ? ToQt(PointInWords(*mark_)) : tr("no place");
}

void PlaceMap::Pick(const GeoPoint& place) {
  SetMark(place);
  emit Picked(place);
}

void PlaceMap::mousePressEvent(QMouseEvent* event) {
  const auto place = event->button() == Qt::LeftButton ? PlaceAt(event->position()) : std::nullopt;
  if (place) Pick(*place);
}

void PlaceMap::mouseMoveEvent(QMouseEvent* event) {
  const auto place = PlaceAt(event->position());
  pointer_ = event->position();
  pointerText_ = place ? ToQt(PointInWords(*place)) : QString();
  update();
  if (place && event->buttons() == Qt::LeftButton) Pick(*place);
}

void PlaceMap::leaveEvent(QEvent* event) {
  pointerText_.clear();
  update();
  QWidget::leaveEvent(event);
}

void PlaceMap::keyPressEvent(QKeyEvent* event) {
  const double step = StepOf(event->modifiers());
  const GeoPoint from = mark_.value_or(GeoPoint{});
  switch (event->key()) {
    case Qt::Key_Up:
      return Pick(Moved(from, step, 0));
    case Qt::Key_Down:
      return Pick(Moved(from, -step, 0));
    case Qt::Key_Left:
      return Pick(Moved(from, 0, -step));
    case Qt::Key_Right:
      return Pick(Moved(from, 0, step));
    default:
      QWidget::keyPressEvent(event);
  }
}

void PlaceMap::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF world = Logical(Area(), devicePixelRatioF());
  if (world.isEmpty()) return;
  PaintWorld(painter, world);
  painter.setClipRect(world);
  PaintGrid(painter, world);
  PaintMark(painter, world);
  PaintPointerText(painter, world);
  painter.setClipping(false);
  painter.setBrush(Qt::NoBrush);
  if (hasFocus()) {
    const QColor ring = platform::qt::FocusColour(palette());
    painter.setPen(QPen(ring, 2));
    painter.drawRect(world.adjusted(1, 1, -1, -1));
  }
}

void PlaceMap::PaintWorld(QPainter& painter, const QRectF& world) {
  const MapArea area = Area();
  const QImage& picture = WorldPicture();
  if (picture.isNull()) return painter.fillRect(world, kSea);
  if (scaled_.size() != QSize(area.width, area.height)) {
    scaled_ = picture.scaled(area.width, area.height, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  }
  scaled_.setDevicePixelRatio(devicePixelRatioF());
  painter.drawImage(world.topLeft(), scaled_);
}

void PlaceMap::PaintGrid(QPainter& painter, const QRectF& world) const {
  const double thickness = 1 / devicePixelRatioF();
  const auto colour = [](int degrees) { return QColor(255, 255, 255, degrees == 0 ? kMiddleLineAlpha : kGridAlpha); };
  for (int east = -150; east <= 150; east += kGridDeg) {
    const double x = world.left() + (east + 180) * world.width() / 360;
    painter.fillRect(QRectF(x, world.top(), thickness, world.height()), colour(east));
  }
  for (int north = -60; north <= 60; north += kGridDeg) {
    const double y = world.top() + (90 - north) * world.height() / 180;
    painter.fillRect(QRectF(world.left(), y, world.width(), thickness), colour(north));
  }
}

void PlaceMap::PaintMark(QPainter& painter, const QRectF& world) const {
  if (!mark_) return;
  const double scale = devicePixelRatioF();
  const MapSpot spot = SpotOfPlace(Area(), *mark_);
  for (const double turn :
       {-world.width(), 0.0, world.width()}) {  // half a ring stands on either side of the date line
    const QPointF centre(spot.x / scale + turn, spot.y / scale);
    QPainterPath ring;
    ring.addEllipse(centre, kMarkRadiusPx, kMarkRadiusPx);
    painter.strokePath(ring, QPen(Qt::black, kHaloPx));
    painter.strokePath(ring, QPen(kMarkColour, kLinePx));
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.drawEllipse(centre, kDotRadiusPx + 1, kDotRadiusPx + 1);
    painter.setBrush(kMarkColour);
    painter.drawEllipse(centre, kDotRadiusPx, kDotRadiusPx);
  }
}

void PlaceMap::PaintPointerText(QPainter& painter, const QRectF& world) const {
  if (pointerText_.isEmpty()) return;
  const QSizeF size =
      QSizeF(fontMetrics().size(Qt::TextSingleLine, pointerText_)) + QSizeF(2 * kTextMarginPx, kTextMarginPx);
  QPointF corner = pointer_ + kTextOffset;
  if (corner.x() + size.width() > world.right()) corner.setX(pointer_.x() - kTextOffset.x() - size.width());
  if (corner.y() + size.height() > world.bottom()) corner.setY(pointer_.y() - kTextOffset.y() - size.height());
  corner.setX(std::max(corner.x(), world.left()));
  const QRectF box(corner, size);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor(0, 0, 0, 205));
  painter.drawRoundedRect(box, 3, 3);
  painter.setPen(Qt::white);
  painter.drawText(box, Qt::AlignCenter, pointerText_);
}

}  // namespace kestrava::panels::ui
