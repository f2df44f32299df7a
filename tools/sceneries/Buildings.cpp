#include "Buildings.h"

#include <cmath>
#include <numbers>

namespace kestrava::tools {
namespace {

void Shape(QPainter& painter, const QColor& colour, const QPolygonF& polygon) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawPolygon(polygon);
}

void Box(QPainter& painter, const QColor& colour, const QRectF& box) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  painter.drawRect(box);
}

void Line(QPainter& painter, const QColor& colour, QPointF from, QPointF to, double width) {
  painter.setPen(QPen(colour, width, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(from, to);
}

void DrawWindow(QPainter& painter, const QColor& colour, QPointF at) {
  Box(painter, colour, {at.x() - 2, at.y() - 2.7, 4, 5.4});
  Line(painter, QColor(10, 9, 12), at - QPointF(0, 2.7), at + QPointF(0, 2.7), 0.6);
}

// A long boom with crossed elements, tilted upward; drawn from its middle.
void DrawCrossedYagi(QPainter& painter, const QColor& colour, QPointF middle, double length, double longest,
                     int elements) {
  painter.save();
  painter.translate(middle);
  painter.rotate(-32);
  Line(painter, colour, {-length / 2, 0}, {length / 2, 0}, 1.5);
  for (int i = 0; i < elements; ++i) {
    const double along = -length / 2 + length * i / (elements - 1);
    const double half = longest / 2 * (1 - 0.30 * i / (elements - 1));
    Line(painter, colour, {along - half * 0.20, -half}, {along + half * 0.20, half}, 1.0);
    Line(painter, colour, {along + half * 0.30, -half * 0.55}, {along - half * 0.30, half * 0.55}, 0.8);
  }
  painter.restore();
}

}  // namespace

void DrawHouse(QPainter& painter, QPointF foot, double width, double lamps, const Paint& paint, Chance& chance) {
  const double wall = width * chance.Between(0.28, 0.36), roof = width * chance.Between(0.32, 0.42);
  const double left = foot.x() - width / 2, eaves = foot.y() - wall;
  const bool gabled = chance.Share() < 0.45;  // gable to the viewer, else the long side
  const double chimney = foot.x() + width * (chance.Share() < 0.5 ? -0.2 : 0.22);
  Box(painter, paint.wall, {chimney - width * 0.035, eaves - roof * 1.12, width * 0.07, roof});
  Box(painter, paint.wall, {left, eaves, width, wall + width * 0.22});
  const double ridge = gabled ? 0 : width * 0.36;
  const double over = width * 0.05;
  const QPolygonF slope{{left - over, eaves + 1},
                        {foot.x() - ridge, eaves - roof * (gabled ? 1.1 : 0.9)},
                        {foot.x() + ridge, eaves - roof * (gabled ? 1.1 : 0.9)},
                        {left + width + over, eaves + 1}};
  Shape(painter, gabled ? paint.wall : paint.roof, slope);
  const int windows = std::max(2, static_cast<int>(width / 11));
  for (int i = 0; i < windows; ++i) {
    const QPointF at(left + width * (i + 0.7) / (windows + 0.4), eaves + wall * 0.45);
    if (chance.Share() < lamps) DrawWindow(painter, paint.window, at);
  }
  if (gabled && chance.Share() < lamps) DrawWindow(painter, paint.window, {foot.x(), eaves - roof * 0.35});
}

void DrawChurch(QPainter& painter, QPointF foot, double height, const Paint& paint) {
  const double tower = height * 0.15, nave = height * 0.62, eaves = foot.y() - height * 0.24;
  const double x = foot.x();
  Box(painter, paint.wall, {x, eaves, nave, height});
  Shape(painter, paint.roof,
        {{x, eaves + 1},
         {x + 2, eaves - height * 0.20},
         {x + nave * 0.94, eaves - height * 0.20},
         {x + nave + 2, eaves + 1}});
  Box(painter, paint.wall, {x + nave - 1, eaves + height * 0.05, height * 0.13, height});  // the choir
  Shape(painter, paint.roof,
        {{x + nave, eaves + height * 0.06},
         {x + nave + 1, eaves - height * 0.08},
         {x + nave + height * 0.15, eaves + height * 0.06}});
  const double head = foot.y() - height * 0.52;
  Box(painter, paint.wall, {x - tower, head, tower * 1.3, height});
  const double mid = x - tower + tower * 0.65;
  Shape(painter, paint.wall,
        {{x - tower - 1.2, head + 1},
         {mid - tower * 0.30, head - height * 0.09},
         {mid, foot.y() - height * 0.95},
         {mid + tower * 0.30, head - height * 0.09},
         {x + tower * 0.3 + 1.2, head + 1}});
  Line(painter, paint.wall, {mid, foot.y() - height * 0.93}, {mid, foot.y() - height * 1.03}, 1.1);
  Line(painter, paint.wall, {mid - 2, foot.y() - height}, {mid + 2, foot.y() - height}, 1.0);
  for (int i = 0; i < 3; ++i) {
    Box(painter, QColor(62, 42, 22), {x + nave * (0.22 + 0.26 * i), eaves + height * 0.05, 2.6, height * 0.11});
  }
  Box(painter, QColor(34, 30, 36), {mid - 1.6, head + height * 0.05, 3.2, height * 0.07});  // the bells' opening
}

void DrawMast(QPainter& painter, QPointF foot, double height, const Paint& paint) {
  const double bottom = height * 0.052, top = height * 0.032, shaft = height * 0.80;
  const auto leg = [&](int side, double share) {
    return QPointF(foot.x() + side * (bottom + (top - bottom) * share), foot.y() - shaft * share);
  };
  const int bays = 13;
  for (int i = 0; i < bays; ++i) {
    const double low = static_cast<double>(i) / bays, high = static_cast<double>(i + 1) / bays;
    Line(painter, paint.wall, leg(-1, low), leg(1, high), 0.9);
    Line(painter, paint.wall, leg(1, low), leg(-1, high), 0.9);
    Line(painter, paint.wall, leg(-1, high), leg(1, high), 0.9);
  }
  Line(painter, paint.wall, leg(-1, 0), leg(-1, 1), 1.7);
  Line(painter, paint.wall, leg(1, 0), leg(1, 1), 1.7);
  for (const int side : {-1, 1}) {  // guy ropes
    Line(painter, paint.wall, leg(side, 0.97), foot + QPointF(side * height * 0.62, 0), 0.6);
    Line(painter, paint.wall, leg(side, 0.60), foot + QPointF(side * height * 0.46, 0), 0.6);
  }
  const QPointF head = foot - QPointF(0, shaft);
  Box(painter, paint.wall, {head.x() - 4, head.y() - 6, 8, 9});  // the rotor
  const QPointF bar = head - QPointF(0, height * 0.09);
  Line(painter, paint.wall, head, bar - QPointF(0, 2), 2.4);
  Line(painter, paint.wall, bar - QPointF(height * 0.20, -2), bar + QPointF(height * 0.20, -2), 1.8);
  DrawCrossedYagi(painter, paint.wall, bar - QPointF(height * 0.20, -2), height * 0.40, height * 0.17, 7);
  DrawCrossedYagi(painter, paint.wall, bar + QPointF(height * 0.20, -2), height * 0.34, height * 0.10, 11);
}

void DrawDish(QPainter& painter, QPointF foot, double height, const Paint& paint) {
  Line(painter, paint.wall, foot, foot - QPointF(0, height * 0.55), 3);
  painter.save();
  painter.translate(foot - QPointF(0, height * 0.6));
  painter.rotate(-40);
  painter.setPen(Qt::NoPen);
  painter.setBrush(paint.roof);
  painter.drawChord(QRectF(-height * 0.16, -height * 0.40, height * 0.32, height * 0.80), 90 * 16, 180 * 16);
  Line(painter, paint.wall, {0, -height * 0.38}, {height * 0.34, 0}, 0.8);
  Line(painter, paint.wall, {0, height * 0.38}, {height * 0.34, 0}, 0.8);
  Box(painter, paint.wall, {height * 0.31, -1.6, 3.6, 3.2});
  painter.restore();
}

void DrawLighthouse(QPainter& painter, QPointF foot, double height, const Paint& paint) {
  const double low = height * 0.095, high = height * 0.062, gallery = foot.y() - height * 0.76, x = foot.x();
  Shape(painter, paint.wall,
        {{x - low, foot.y() + height * 0.04},
         {x - high, gallery},
         {x + high, gallery},
         {x + low, foot.y() + height * 0.04}});
  Shape(painter, paint.roof,
        {{x + low * 0.2, foot.y() + height * 0.04},
         {x + high * 0.2, gallery},
         {x + high, gallery},
         {x + low, foot.y() + height * 0.04}});
  Box(painter, paint.wall, {x - high * 1.7, gallery - height * 0.025, high * 3.4, height * 0.04});
  Box(painter, paint.window, {x - high * 0.75, gallery - height * 0.13, high * 1.5, height * 0.11});
  for (const double side : {-0.75, 0.0, 0.75}) {
    Line(painter, paint.wall, {x + side * high, gallery}, {x + side * high, gallery - height * 0.14}, 1.0);
  }
  Shape(painter, paint.wall,
        {{x - high * 1.1, gallery - height * 0.13},
         {x, gallery - height * 0.22},
         {x + high * 1.1, gallery - height * 0.13}});
  Line(painter, paint.wall, {x, gallery - height * 0.2}, {x, gallery - height * 0.26}, 1.0);
}

void DrawSailingBoat(QPainter& painter, QPointF foot, double height, const Paint& paint) {
  const double half = height * 0.34, x = foot.x(), y = foot.y();
  Shape(painter, paint.wall,
        {{x - half * 1.05, y - height * 0.085},
         {x + half * 1.15, y - height * 0.11},
         {x + half * 0.85, y},
         {x - half * 0.8, y}});
  Line(painter, paint.wall, {x + half * 0.1, y}, {x + half * 0.1, y - height}, 1.3);
  Shape(painter, paint.roof,
        {{x + half * 0.02, y - height * 0.95},
         {x + half * 0.02, y - height * 0.16},
         {x - half * 0.95, y - height * 0.15}});
  Shape(painter, paint.roof,
        {{x + half * 0.20, y - height * 0.80},
         {x + half * 0.20, y - height * 0.16},
         {x + half * 1.0, y - height * 0.14}});
}

}  // namespace kestrava::tools
