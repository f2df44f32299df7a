#include "platform/qt/LedClockWidget.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <array>

#include "platform/ClockFace.h"
#include "platform/Doors.h"
#include "platform/Format.h"
#include "platform/qt/ImageSurface.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {
namespace {

constexpr int kTickMs = 200;
constexpr double kDigitWidth = 0.58;  // of the digit's height
constexpr double kColonWidth = 0.26;
constexpr double kGap = 0.16;
constexpr double kThickness = 0.125;
constexpr double kSlant = -0.07;
constexpr double kWidthOverHeight = 6 * kDigitWidth + 2 * kColonWidth + 7 * kGap;

/// Segments lit for a digit, bit by bit: top, upper right, lower right, bottom, lower left, upper left, middle.
constexpr std::array<unsigned, 10> kSegments = {0x3f, 0x06, 0x5b, 0x4f, 0x66, 0x6d, 0x7d, 0x07, 0x7f, 0x6f};

/// A bar between two points with pointed ends.
QPainterPath Bar(QPointF a, QPointF b, double half) {
  const QPointF along = (b - a) / std::max(1e-9, std::hypot(b.x() - a.x(), b.y() - a.y()));
  const QPointF across(-along.y() * half, along.x() * half);
  const double inset = half * 0.25;
  const QPointF from = a + along * inset;
  const QPointF to = b - along * inset;
  QPainterPath path(from);
  path.lineTo(from + along * half + across);
  path.lineTo(to - along * half + across);
  path.lineTo(to);
  path.lineTo(to - along * half - across);
  path.lineTo(from + along * half - across);
  path.closeSubpath();
  return path;
}

/// One segment in a digit of height 1 whose top left is the origin.
QPainterPath Segment(int index) {
  const double h = kThickness / 2;
  const double left = h;
  const double right = kDigitWidth - h;
  const std::array<QPointF, 6> corners = {QPointF(left, h),    QPointF(right, h),    QPointF(left, 0.5),
                                          QPointF(right, 0.5), QPointF(left, 1 - h), QPointF(right, 1 - h)};
  constexpr std::array<std::array<std::size_t, 2>, 7> kEnds = {
      {{0, 1}, {1, 3}, {3, 5}, {4, 5}, {2, 4}, {0, 2}, {2, 3}}};
  const auto& ends = kEnds[static_cast<std::size_t>(index)];
  return Bar(corners[ends[0]], corners[ends[1]], h);
}

/// Lit and unlit shapes of a text of digits and colons, of height 1.
struct Shapes {
  QPainterPath lit;
  QPainterPath unlit;
};

void AddDigit(Shapes& shapes, char digit, double x) {
  const unsigned lit = digit >= '0' && digit <= '9' ? kSegments[static_cast<std::size_t>(digit - '0')] : 0u;
  for (int i = 0; i < 7; ++i) {
    ((lit >> i) & 1u ? shapes.lit : shapes.unlit).addPath(Segment(i).translated(x, 0));
  }
}

void AddColon(Shapes& shapes, double x) {
  const double radius = kThickness * 0.62;
  shapes.lit.addEllipse(QPointF(x + kColonWidth / 2, 0.32), radius, radius);
  shapes.lit.addEllipse(QPointF(x + kColonWidth / 2, 0.68), radius, radius);
}

Shapes ShapesOf(const std::string& text) {
  Shapes shapes;
  shapes.lit.setFillRule(Qt::WindingFill);
  double x = 0;
  for (const char c : text) {
    if (c == ':') {
      AddColon(shapes, x);
      x += kColonWidth + kGap;
    } else {
      AddDigit(shapes, c, x);
      x += kDigitWidth + kGap;
    }
  }
  return shapes;
}

}  // namespace

LedClockWidget::LedClockWidget(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  setAccessibleName("Clock");
  timer_ = TheEventLoop().MakeTimer(kTickMs, [this] { Refresh(); });
  timer_->SetEnabled(true);
  Refresh();
}

void LedClockWidget::SetValue(SerialDate time) {
  value_ = time;
  Refresh();
}

void LedClockWidget::ShowGivenTime(bool given) {
  given_ = given;
  Refresh();
}

void LedClockWidget::ShowUniversalTime(bool utc) {
  utc_ = utc;
  Refresh();
}

void LedClockWidget::SetClockVisible(bool visible) {
  setVisible(visible);
}

void LedClockWidget::SetDigitColour(Colour colour) {
  colour_ = colour;
  update();
}

void LedClockWidget::Refresh() {
  SerialDate time = value_;
  if (!given_) {
    const ClockReading now = TheClock().Read();
    time = CutToSecond(utc_ ? now.utc : now.local);
  }
  const std::string text = Format(time, "hh:mm:ss");
  if (text == text_) return;
  text_ = text;
  setAccessibleDescription(ToQt(text_));
  update();
}

QSize LedClockWidget::sizeHint() const {
  return {150, 40};
}

QSize LedClockWidget::minimumSizeHint() const {
  return {60, 18};
}

void LedClockWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.fillRect(rect(), Qt::black);
  painter.setRenderHint(QPainter::Antialiasing);
  const double unit = std::min(height() * 0.68, width() * 0.9 / kWidthOverHeight);
  painter.translate((width() - unit * kWidthOverHeight) / 2.0 - kSlant * unit / 2, (height() - unit) / 2.0);
  painter.shear(kSlant, 0);
  painter.scale(unit, unit);
  const Shapes shapes = ShapesOf(text_);
  QColor colour = QColor::fromRgb(ToRgb(colour_));
  QColor dim = colour;
  dim.setAlphaF(0.09);
  painter.fillPath(shapes.unlit, dim);
  for (const double width : {0.22, 0.14, 0.07}) {  // the glow: wide and faint to narrow and bright
    QColor glow = colour;
    glow.setAlphaF(0.10);
    painter.strokePath(shapes.lit, QPen(glow, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  }
  painter.fillPath(shapes.lit, colour.lighter(112));
}

}  // namespace kestrava::platform::qt
