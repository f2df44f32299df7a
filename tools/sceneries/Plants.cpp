#include "Plants.h"

#include <cmath>
#include <numbers>

namespace kestrava::tools {
namespace {

constexpr double kPi = std::numbers::pi;

void Line(QPainter& painter, QPointF from, QPointF to, double width) {
  QPen pen(painter.brush().color(), width, Qt::SolidLine, Qt::RoundCap);
  painter.save();
  painter.setPen(pen);
  painter.drawLine(from, to);
  painter.restore();
}

// Leaves: clumps that fill an oval unevenly, and single tufts round them.
void DrawCrown(QPainter& painter, QPointF middle, double wide, double high, int clumps, Chance& chance) {
  painter.save();
  painter.setPen(Qt::NoPen);
  for (int i = 0; i < clumps; ++i) {
    const double angle = chance.Between(0, 2 * kPi), out = std::sqrt(chance.Share());
    const double size = (0.13 + 0.10 * chance.Share()) * (1.15 - 0.4 * out);
    const QPointF at(middle.x() + wide * out * std::cos(angle) * 0.88,
                     middle.y() - high * out * std::sin(angle) * 0.88);
    painter.drawEllipse(at, wide * size * 1.25, high * size * 1.1);
  }
  for (int i = 0; i < clumps * 5; ++i) {
    const double angle = chance.Between(0, 2 * kPi), out = 0.78 + 0.30 * chance.Share() * chance.Share();
    const double lump = 1 + 0.10 * std::sin(angle * 5 + middle.x()) + 0.06 * std::sin(angle * 9 + 1.7 * middle.x());
    const QPointF at(middle.x() + wide * out * lump * std::cos(angle),
                     middle.y() - high * out * lump * std::sin(angle));
    const double size = chance.Between(0.5, 1.5);
    painter.drawEllipse(at, size * 1.2, size);
  }
  painter.restore();
}

void DrawTwigs(QPainter& painter, QPointF from, double angle, double length, double width, int depth, Chance& chance) {
  const double bend = chance.Between(-0.12, 0.12);
  const QPointF middle = from + QPointF(std::cos(angle) * length / 2, -std::sin(angle) * length / 2);
  const QPointF end = middle + QPointF(std::cos(angle + bend) * length / 2, -std::sin(angle + bend) * length / 2);
  Line(painter, from, middle, width);
  Line(painter, middle, end, width * 0.85);
  if (depth == 0) return;
  const int shoots = 3;  // the third carries the stem on
  for (int i = 0; i < shoots; ++i) {
    const double side = i == 2 ? chance.Between(-0.15, 0.15) : (i == 0 ? 1 : -1) * chance.Between(0.20, 0.58);
    const double upward = (kPi / 2 - angle) * 0.22;
    DrawTwigs(painter, i == 1 ? middle + (end - middle) * chance.Between(0.4, 1) : end, angle + side + upward,
              length * (i == 2 ? chance.Between(0.78, 0.92) : chance.Between(0.50, 0.74)),
              std::max(0.5, width * (i == 2 ? 0.74 : 0.56)), depth - 1, chance);
  }
}

}  // namespace

void DrawSpruce(QPainter& painter, QPointF foot, double height, Chance& chance) {
  const double half = height * chance.Between(0.17, 0.24);
  const int tiers = std::max(5, static_cast<int>(height / 4.2));
  QPolygonF outline;
  outline << QPointF(foot.x(), foot.y() - height);
  QPolygonF back;
  for (int i = 1; i <= tiers; ++i) {
    const double share = static_cast<double>(i) / tiers;
    const double y = foot.y() - height * (1 - share * 0.94);
    const double reach = half * std::pow(share, 0.85);
    const double droop = height * 0.022;
    outline << QPointF(foot.x() + reach * chance.Between(0.75, 1.1), y + droop * chance.Between(0.3, 1.2))
            << QPointF(foot.x() + reach * chance.Between(0.42, 0.6), y - droop * 0.5);
    back << QPointF(foot.x() - reach * chance.Between(0.75, 1.1), y + droop * chance.Between(0.3, 1.2))
         << QPointF(foot.x() - reach * chance.Between(0.42, 0.6), y - droop * 0.5);
  }
  for (auto point = back.crbegin(); point != back.crend(); ++point) outline << *point;
  painter.drawPolygon(outline);
  Line(painter, foot, foot - QPointF(0, height * 0.3), std::max(1.0, height * 0.03));
}

void DrawBroadleaf(QPainter& painter, QPointF foot, double height, Chance& chance) {
  const double wide = height * chance.Between(0.36, 0.46), trunk = height * 0.055;
  const QPointF fork = foot - QPointF(chance.Between(-0.02, 0.02) * height, height * 0.30);
  Line(painter, foot, fork, trunk);
  for (int i = -1; i <= 1; ++i) {
    Line(painter, fork, fork - QPointF(-i * wide * 0.5, height * chance.Between(0.25, 0.4)), trunk * 0.55);
  }
  const QPointF middle = foot - QPointF(0, height * 0.63);
  DrawCrown(painter, middle, wide, height * 0.36, 46, chance);
  DrawCrown(painter, middle + QPointF(wide * chance.Between(0.25, 0.5), height * 0.10), wide * 0.6, height * 0.20, 20,
            chance);
  DrawCrown(painter, middle + QPointF(-wide * chance.Between(0.25, 0.5), height * 0.08), wide * 0.6, height * 0.20, 20,
            chance);
}

void DrawPoplar(QPainter& painter, QPointF foot, double height, Chance& chance) {
  Line(painter, foot, foot - QPointF(0, height * 0.5), std::max(1.2, height * 0.035));
  for (int i = 0; i < 15; ++i) {
    const double share = 0.14 + 0.80 * i / 14.0;
    const double wide = height * 0.115 * std::sin(kPi * std::pow(share, 0.72)) + 1;
    DrawCrown(painter, foot - QPointF(chance.Between(-0.008, 0.008) * height, height * share), wide, height * 0.085, 16,
              chance);
  }
}

void DrawBareTree(QPainter& painter, QPointF foot, double height, Chance& chance) {
  DrawTwigs(painter, foot, kPi / 2 + chance.Between(-0.06, 0.06), height * 0.235, height * 0.05, 5, chance);
}

void DrawPine(QPainter& painter, QPointF foot, double height, Chance& chance) {
  const double lean = height * chance.Between(0.10, 0.22);
  const QPointF knee = foot + QPointF(lean * 0.3, -height * 0.45), top = foot + QPointF(lean, -height * 0.84);
  Line(painter, foot, knee, height * 0.045);
  Line(painter, knee, top, height * 0.032);
  for (int i = 0; i < 5; ++i) {
    const double share = i / 4.0;
    const QPointF at = knee + (top - knee) * (0.35 + 0.65 * share);
    const double side = (i % 2 == 0 ? 1 : -1) * height * chance.Between(0.06, 0.22) * (1.2 - share);
    Line(painter, at, at + QPointF(side, -height * 0.05), height * 0.014);
    DrawCrown(painter, at + QPointF(side, -height * 0.07), height * chance.Between(0.15, 0.22), height * 0.05, 14,
              chance);
  }
  DrawCrown(painter, top - QPointF(-height * 0.03, height * 0.06), height * 0.20, height * 0.075, 20, chance);
}

void DrawBush(QPainter& painter, QPointF foot, double height, Chance& chance) {
  DrawCrown(painter, foot - QPointF(0, height * 0.38), height * chance.Between(0.6, 1.0), height * 0.5, 16, chance);
}

void DrawGrass(QPainter& painter, QPointF foot, double height, Chance& chance) {
  for (int i = 0; i < 9; ++i) {
    const double lean = chance.Between(-0.25, 0.65) * height, tall = height * chance.Between(0.5, 1);
    const QPointF from = foot + QPointF(chance.Between(-0.2, 0.2) * height, 0);
    const QPointF middle = from + QPointF(lean * 0.3, -tall * 0.6);
    Line(painter, from, middle, 1.3);
    Line(painter, middle, from + QPointF(lean, -tall), 0.8);
  }
}

}  // namespace kestrava::tools
