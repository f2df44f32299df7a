#include "Sprites.h"

#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <utility>
#include <vector>

namespace kestrava::tools {
namespace {

// All drawing is in units of a pixel at 100 %. The map puts a satellite's place on (14, 14) of its 32 x 32 square and
// prints the name over the rows above the place; so the sprites stand round that point and keep low where the name is
// printed close.
const QColor kEdge(6, 9, 16);
const QColor kBody(232, 234, 238);
const QColor kBodyShade(150, 158, 172);
const QColor kFoil(246, 196, 84);
const QColor kFoilShade(176, 112, 30);
const QColor kPanel(255, 214, 92);
const QColor kPanelShade(206, 140, 36);
const QColor kBluePanel(150, 200, 255);
const QColor kBluePanelShade(58, 108, 210);

QLinearGradient Lit(const QRectF& area, const QColor& light, const QColor& shade) {
  QLinearGradient gradient(area.topLeft(), area.bottomRight());
  gradient.setColorAt(0, light);
  gradient.setColorAt(1, shade);
  return gradient;
}

void Box(QPainter& p, const QRectF& area, const QColor& light, const QColor& shade, double round = 0.6) {
  p.setPen(Qt::NoPen);
  p.setBrush(Lit(area, light, shade));
  p.drawRoundedRect(area, round, round);
}

// A solar panel with its cells.
void Panel(QPainter& p, const QRectF& area, int columns, int rows, bool blue = false) {
  Box(p, area, blue ? kBluePanel : kPanel, blue ? kBluePanelShade : kPanelShade, 0.3);
  p.setPen(QPen(blue ? QColor(20, 44, 110, 140) : QColor(120, 70, 10, 130), 0.55));
  for (int i = 1; i < columns; ++i) {
    const double x = area.left() + area.width() * i / columns;
    p.drawLine(QPointF(x, area.top()), QPointF(x, area.bottom()));
  }
  for (int i = 1; i < rows; ++i) {
    const double y = area.top() + area.height() * i / rows;
    p.drawLine(QPointF(area.left(), y), QPointF(area.right(), y));
  }
}

void Strut(QPainter& p, const QPointF& from, const QPointF& to, double width = 1.1) {
  p.setPen(QPen(QColor(214, 218, 226), width, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(from, to);
}

// A small dish seen from the side and below, opening towards the Earth.
void Dish(QPainter& p, const QPointF& at, double size) {
  QPainterPath path;
  path.moveTo(at + QPointF(-size, 0));
  path.quadTo(at + QPointF(0, -size * 1.5), at + QPointF(size, 0));
  path.quadTo(at + QPointF(0, size * 0.5), at + QPointF(-size, 0));
  p.setPen(Qt::NoPen);
  p.setBrush(Lit(path.boundingRect(), QColor(250, 250, 252), QColor(168, 176, 190)));
  p.drawPath(path);
  Strut(p, at, at + QPointF(0, size * 0.9), 0.8);
}

void Tilted(QPainter& p, double degrees, const std::function<void()>& draw) {
  p.save();
  p.translate(14, 15);
  p.rotate(degrees);
  p.translate(-14, -15);
  draw();
  p.restore();
}

void GenericSatellite(QPainter& p) {
  Tilted(p, -12, [&] {
    Strut(p, {5, 15}, {23, 15});
    Panel(p, {2.5, 12, 7.6, 6}, 3, 2);
    Panel(p, {17.9, 12, 7.6, 6}, 3, 2);
    Box(p, {11.2, 11.6, 5.6, 6.6}, kBody, kBodyShade);
    Strut(p, {14, 18}, {14, 20.6}, 1.0);
  });
}

// Truss along the length, four pairs of wings, modules across.
void Station(QPainter& p) {
  Tilted(p, -16, [&] {
    p.translate(1.4, 1.45);  // nine tenths about the place, so that the turned wings stay inside
    p.scale(0.9, 0.9);
    Strut(p, {2, 14.2}, {26, 14.2}, 1.6);
    for (const double x : {0.8, 4.9, 19.9, 24.0}) {
      Panel(p, {x, 5.2, 3.3, 8.2}, 1, 4);
      Panel(p, {x, 15.2, 3.3, 8.2}, 1, 4);
    }
    Box(p, {9.3, 15.2, 2.6, 5.4}, QColor(246, 246, 248), QColor(190, 196, 206), 0.3);
    Box(p, {16.1, 15.2, 2.6, 5.4}, QColor(246, 246, 248), QColor(190, 196, 206), 0.3);
    Box(p, {12.4, 7.4, 3.2, 15.6}, kBody, kBodyShade, 1.2);
    Box(p, {10.4, 10.2, 7.2, 2.6}, kBody, kBodyShade, 1.0);
    Panel(p, {9.0, 21.0, 3.2, 1.8}, 2, 1, true);
    Panel(p, {15.8, 21.0, 3.2, 1.8}, 2, 1, true);
  });
}

// A small cube with whip aerials.
void CubeSatellite(QPainter& p) {
  Strut(p, {14, 14}, {6, 9}, 0.9);
  Strut(p, {14, 14}, {22, 9}, 0.9);
  Strut(p, {14, 16}, {7, 22}, 0.9);
  Strut(p, {14, 16}, {21, 22}, 0.9);
  QPainterPath top;
  top.addPolygon(QPolygonF{QPointF(14, 9.5), QPointF(19.4, 12), QPointF(14, 14.6), QPointF(8.6, 12)});
  QPainterPath left;
  left.addPolygon(QPolygonF{QPointF(8.6, 12), QPointF(14, 14.6), QPointF(14, 21), QPointF(8.6, 18.2)});
  QPainterPath right;
  right.addPolygon(QPolygonF{QPointF(19.4, 12), QPointF(14, 14.6), QPointF(14, 21), QPointF(19.4, 18.2)});
  p.setPen(Qt::NoPen);
  p.fillPath(top, QColor(250, 232, 170));
  p.fillPath(left, kPanel);
  p.fillPath(right, kPanelShade);
}

void ShuttleWings(QPainter& p) {
  QPainterPath wing;
  wing.addPolygon(QPolygonF{QPointF(14, 8), QPointF(16.6, 14.5), QPointF(23.6, 21.4), QPointF(23.6, 24),
                            QPointF(16, 24.6), QPointF(12, 24.6), QPointF(4.4, 24), QPointF(4.4, 21.4),
                            QPointF(11.4, 14.5)});
  p.setPen(Qt::NoPen);
  p.setBrush(Lit({4, 8, 20, 17}, QColor(252, 252, 252), QColor(168, 174, 186)));
  p.drawPath(wing);
  p.setPen(QPen(QColor(44, 50, 62), 1.3, Qt::SolidLine, Qt::FlatCap));
  p.drawLine(QPointF(11.0, 15.4), QPointF(4.6, 22.0));
  p.drawLine(QPointF(17.0, 15.4), QPointF(23.4, 22.0));
}

void Shuttle(QPainter& p) {
  Tilted(p, 38, [&] {
    ShuttleWings(p);
    QPainterPath body;
    body.moveTo(14, 1.6);
    body.quadTo(17.4, 4.4, 17.2, 9);
    body.lineTo(16.8, 25.6);
    body.lineTo(11.2, 25.6);
    body.lineTo(10.8, 9);
    body.quadTo(10.6, 4.4, 14, 1.6);
    p.setPen(Qt::NoPen);
    p.setBrush(Lit(body.boundingRect(), QColor(255, 255, 255), QColor(186, 192, 204)));
    p.drawPath(body);
    Box(p, {12.4, 5.0, 3.2, 1.9}, QColor(40, 46, 58), QColor(24, 28, 38), 0.8);
    Box(p, {12.2, 9.6, 3.6, 10.4}, QColor(250, 214, 120), QColor(190, 138, 52), 0.5);
    Box(p, {11.4, 24.8, 2.2, 2.6}, QColor(70, 76, 90), QColor(40, 44, 56), 0.8);
    Box(p, {14.4, 24.8, 2.2, 2.6}, QColor(70, 76, 90), QColor(40, 44, 56), 0.8);
    Strut(p, {14, 20.8}, {14, 24.8}, 1.0);
  });
}

// A broad relay satellite: six-sided body, long wings, a dish to the Earth.
void CommsSatellite(QPainter& p) {
  Strut(p, {4, 15}, {24, 15}, 1.2);
  Panel(p, {0.8, 11.4, 8.4, 7.2}, 4, 2, true);
  Panel(p, {18.8, 11.4, 8.4, 7.2}, 4, 2, true);
  QPainterPath body;
  body.addPolygon(QPolygonF{QPointF(14, 9), QPointF(18.4, 11.4), QPointF(18.4, 17.6), QPointF(14, 20),
                            QPointF(9.6, 17.6), QPointF(9.6, 11.4)});
  p.setPen(Qt::NoPen);
  p.setBrush(Lit({9, 9, 10, 11}, kFoil.lighter(112), kFoilShade));
  p.drawPath(body);
  Box(p, {11.7, 11.6, 4.6, 4.6}, QColor(255, 236, 170), QColor(222, 158, 60), 0.5);
  Dish(p, {14, 21.6}, 4.2);
}

// A weather satellite of the polar kind: long foil body, one big wing to the side, instruments below.
void WeatherSatellite(QPainter& p) {
  Tilted(p, -28, [&] {
    Strut(p, {14, 14.6}, {20, 14.6}, 1.2);
    Panel(p, {17.6, 8.0, 9.2, 13.2}, 3, 4);
    Box(p, {1.6, 11.4, 13.4, 6.4}, kFoil.lighter(108), kFoilShade, 1.0);
    Box(p, {1.2, 11.8, 3.2, 5.6}, kBody, kBodyShade, 0.8);
    Box(p, {8.2, 11.0, 1.2, 7.2}, QColor(252, 236, 190), QColor(212, 160, 80), 0.2);
    Strut(p, {6.2, 17.6}, {5.2, 21.2}, 0.9);
    Strut(p, {11, 17.6}, {11, 21.4}, 0.9);
    Box(p, {9.8, 20.2, 2.4, 2.6}, kBody, kBodyShade, 0.6);
  });
}

void DrawSun(QPainter& p) {
  const QPointF centre(15, 15);
  QPainterPath rays;
  constexpr int kRays = 12;
  QPolygonF star;
  for (int i = 0; i < 2 * kRays; ++i) {
    const double angle = std::numbers::pi * i / kRays;
    const double reach = i % 2 != 0 ? 9.6 : (i % 4 == 0 ? 13.8 : 12.0);
    star << centre + QPointF(std::sin(angle) * reach, -std::cos(angle) * reach);
  }
  rays.addPolygon(star);
  p.fillPath(rays, QColor(255, 172, 28));
  QRadialGradient disc(centre - QPointF(2, 2), 10);
  disc.setColorAt(0, QColor(255, 252, 226));
  disc.setColorAt(0.55, QColor(255, 228, 104));
  disc.setColorAt(1, QColor(255, 190, 40));
  p.setPen(QPen(QColor(206, 112, 10), 0.8));
  p.setBrush(disc);
  p.drawEllipse(centre, 8.2, 8.2);
}

void DrawMoon(QPainter& p) {
  const QPointF centre(10, 10);
  QPainterPath face;
  face.addEllipse(centre, 8.4, 8.4);
  QRadialGradient light(centre - QPointF(2.4, 2.4), 12);
  light.setColorAt(0, QColor(252, 251, 244));
  light.setColorAt(0.7, QColor(208, 210, 212));
  light.setColorAt(1, QColor(150, 156, 168));
  p.fillPath(face, light);
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(146, 150, 158, 150));
  for (const QRectF& sea : {QRectF(4.2, 5.2, 5.2, 4.2), QRectF(9.6, 4.2, 4.2, 3.6), QRectF(11.4, 8.2, 4.0, 3.4),
                            QRectF(5.0, 10.2, 4.4, 3.4)}) {
    p.drawEllipse(sea);
  }
  p.setBrush(QColor(250, 250, 248, 200));
  p.drawEllipse(QPointF(10.4, 14.6), 1.1, 1.0);
}

// Drawn eight times as large and brought down smoothly, so that edges are even at every scale.
QImage Drawn(int side, double scale, const std::function<void(QPainter&)>& draw) {
  const int pixels = static_cast<int>(std::lround(side * scale));
  constexpr int kOversample = 8;
  QImage large(pixels * kOversample, pixels * kOversample, QImage::Format_ARGB32_Premultiplied);
  large.fill(Qt::transparent);
  QPainter painter(&large);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(static_cast<double>(large.width()) / side, static_cast<double>(large.width()) / side);
  draw(painter);
  painter.end();
  return large.scaled(pixels, pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

// The largest alpha within the edge's width: the sprite grows a dark edge that sets it off from any map.
int AlphaNear(const QImage& sprite, int x, int y, double reach) {
  int best = 0;
  const int steps = static_cast<int>(std::ceil(reach));
  for (int dy = -steps; dy <= steps; ++dy) {
    for (int dx = -steps; dx <= steps; ++dx) {
      if (dx * dx + dy * dy > reach * reach + 0.01 || !sprite.valid(x + dx, y + dy)) continue;
      best = std::max(best, qAlpha(sprite.pixel(x + dx, y + dy)));
    }
  }
  return best;
}

void SavePair(const QString& base, const QString& suffix, const QImage& sprite, double edge) {
  QImage mask(sprite.size(), QImage::Format_RGB32);
  QImage image(sprite.size(), QImage::Format_RGB32);
  for (int y = 0; y < sprite.height(); ++y) {
    for (int x = 0; x < sprite.width(); ++x) {
      const bool shows = AlphaNear(sprite, x, y, edge) >= 128;
      const QRgb p = sprite.pixel(x, y);  // pixel() gives plain colours
      const double a = qAlpha(p) / 255.0;
      const auto over = [&](int c, int under) { return static_cast<int>(std::lround(c * a + under * (1 - a))); };
      mask.setPixel(x, y, shows ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
      image.setPixel(
          x, y,
          shows ? qRgb(over(qRed(p), kEdge.red()), over(qGreen(p), kEdge.green()), over(qBlue(p), kEdge.blue()))
                : qRgb(0, 0, 0));
    }
  }
  if (!mask.save(base + "-mask" + suffix + ".png") || !image.save(base + "-image" + suffix + ".png")) {
    qFatal("cannot write %s", qPrintable(base));
  }
}

struct Sprite {
  const char* name;
  int side;
  std::function<void(QPainter&)> draw;
};

}  // namespace

void DrawSatellite(QPainter& painter, int kind) {
  static const std::array<void (*)(QPainter&), 6> kinds{GenericSatellite, Station,        CubeSatellite,
                                                        Shuttle,          CommsSatellite, WeatherSatellite};
  kinds.at(kind)(painter);
}

void SaveSprites(const QString& folder) {
  std::vector<Sprite> sprites{{"sun", 30, DrawSun}, {"moon", 20, DrawMoon}};
  static const std::array<const char*, 6> names{"sat0", "sat1", "sat2", "sat3", "sat4", "sat5"};
  for (int kind = 0; kind < 6; ++kind) {
    sprites.push_back({names.at(kind), 32, [kind](QPainter& p) { DrawSatellite(p, kind); }});
  }
  for (const Sprite& sprite : sprites) {
    for (const auto& [scale, suffix] : {std::pair{1.0, ""}, std::pair{1.5, "@15"}, std::pair{2.0, "@2"}}) {
      SavePair(folder + sprite.name, suffix, Drawn(sprite.side, scale, sprite.draw), scale);
    }
  }
}

}  // namespace kestrava::tools
