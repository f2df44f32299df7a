#include <QPainter>
#include <algorithm>
#include <cmath>

#include "Buildings.h"
#include "Canvas.h"
#include "Land.h"
#include "Plants.h"
#include "Sceneries.h"
#include "Sky.h"
#include "Standing.h"

namespace kestrava::tools {
namespace {

constexpr MilkyWay kWay{62, 50, 0.36F};
constexpr float kSeaDeg = 2.6F;  // the picture's bottom is the horizon of what is drawn over it: the sea lies in front
const QColor kBlack(5, 9, 14);

void PaintSeaSky(Canvas& canvas) {
  PaintAir(canvas,
           Ramp({{0, 0x20384E}, {7, 0x1C344E}, {16, 0x162C48}, {32, 0x0F213C}, {55, 0x09162C}, {90, 0x050C1C}}));
  PaintMilkyWay(canvas, kWay);
  PaintStars(canvas, kWay, 4600, 1492);
  PaintStreaks(canvas, {7.5F, 3.0F, 0.72F, FromHex(0x152638), 91});
  PaintStreaks(canvas, {17, 3.5F, 0.40F, FromHex(0x142840), 92});
}

// Swell drawn together by distance: fine under the sea's horizon, broad at the viewer's feet.
void PaintSea(Canvas& canvas) {
  for (int y = static_cast<int>(canvas.RowOf(kSeaDeg)); y < canvas.Height(); ++y) {
    const float elevation = canvas.ElevationDeg(static_cast<float>(y) + 0.5F);
    const float below = std::max(0.02F, (kSeaDeg - elevation) / kSeaDeg);
    const float fine = 1 / (0.16F + below);
    for (int x = 0; x < canvas.Width(); ++x) {
      const float azimuth = canvas.AzimuthDeg(static_cast<float>(x));
      const Vec3 d = Direction(azimuth, 0);
      const float swell = Layered({d.x * 16 * fine, d.y * 16 * fine, 14 * std::log(0.16F + below)}, 4, 95);
      const Rgb water = Mix(FromHex(0x14293C), FromHex(0x0A1624), below);
      const float crest = Smooth(-0.15F, 0.45F, swell) * Smooth(0.02F, 0.14F, below);  // too far off to be seen
      canvas.At(x, y) = water + FromHex(0x1A2A38) * (0.35F * crest);
    }
  }
}

// Land in part of the turn only: it sinks into the sea towards the given bounds.
std::vector<float> Headland(const Canvas& canvas, const RidgeForm& form, float fromDeg, float toDeg, float slopeDeg) {
  std::vector<float> ridge = Ridge(canvas, form);
  for (int x = 0; x < canvas.Width(); ++x) {
    float azimuth = canvas.AzimuthDeg(static_cast<float>(x));
    if (azimuth > toDeg + slopeDeg && fromDeg < 0) azimuth -= 360;
    const float share = Smooth(fromDeg, fromDeg + slopeDeg, azimuth) * (1 - Smooth(toDeg - slopeDeg, toDeg, azimuth));
    float& high = ridge[static_cast<std::size_t>(x)];
    high = share <= 0 ? -1 : kSeaDeg - 0.25F + (high - kSeaDeg + 0.25F) * share;
  }
  return ridge;
}

// Land stands on the water: below its foot the sea goes on.
void PaintIsland(Canvas& canvas, const std::vector<float>& ridge, unsigned colour) {
  const Canvas sea = canvas;
  PaintGround(canvas, ridge, [&](float azimuth, float elevation, float) {
    const int x = std::clamp(static_cast<int>(canvas.ColumnOf(azimuth)), 0, canvas.Width() - 1);
    const int y = std::clamp(static_cast<int>(canvas.RowOf(elevation)), 0, canvas.Height() - 1);
    const Rgb rock = FromHex(colour);
    const float wet = Smooth(0, 0.5F, kSeaDeg - 0.2F - elevation);  // and mirrors the land close by
    const float mirrored = 0.55F * (1 - Smooth(0.2F, 1.2F, kSeaDeg - elevation));
    return Mix(rock, Mix(sea.At(x, y), rock, mirrored), wet);
  });
}

QPointF OnLand(const Canvas& canvas, const std::vector<float>& ridge, double azimuthDeg) {
  const float x = canvas.ColumnOf(static_cast<float>(azimuthDeg));
  return {x, canvas.RowOf(ridge[static_cast<std::size_t>(x)]) + 2};
}

void DrawCoast(QPainter& painter, const Canvas& canvas, const std::vector<float>& cape, Chance& chance) {
  const Paint far{QColor(10, 17, 26), QColor(20, 28, 38), QColor(112, 78, 36)};
  painter.setBrush(far.wall);
  DrawLighthouse(painter, OnLand(canvas, cape, 200), 62, far);
  DrawHouse(painter, OnLand(canvas, cape, 195.5), 26, 0.6, far, chance);
  painter.setBrush(far.wall);
  for (const double azimuth : {172.0, 176.0, 178.5, 183.0, 187.0}) {
    DrawBroadleaf(painter, OnLand(canvas, cape, azimuth), chance.Between(15, 25), chance);
  }
  DrawSailingBoat(painter, {canvas.ColumnOf(247), canvas.RowOf(1.75F)}, 52, far);
  DrawSailingBoat(painter, {canvas.ColumnOf(262), canvas.RowOf(2.35F)}, 22, far);
  DrawSailingBoat(painter, {canvas.ColumnOf(96), canvas.RowOf(2.2F)}, 28, far);
}

// A landing stage with posts; its lamp is dim.
void DrawStage(QPainter& painter, const Canvas& canvas) {
  const double left = canvas.ColumnOf(284), right = canvas.ColumnOf(306), deck = canvas.RowOf(0.95F);
  painter.setPen(Qt::NoPen);
  painter.setBrush(kBlack);
  painter.drawRect(QRectF(left, deck, right - left, 3.4));
  for (double x = left + 3; x < right; x += 17) painter.drawRect(QRectF(x, deck - 5, 2.6, 30));
  painter.drawRect(QRectF(left + 2, deck - 38, 1.8, 40));
  painter.drawRect(QRectF(left - 5, deck - 38, 8, 1.8));
  painter.setBrush(QColor(112, 84, 44));
  painter.drawEllipse(QPointF(left - 4, deck - 34), 2.4, 2.8);
}

void DrawDunes(QPainter& painter, const Standing& dunes, Chance& chance) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(kBlack);
  for (double azimuth = -34; azimuth < 82; azimuth += chance.Between(0.3, 1.6)) {
    DrawGrass(painter, dunes.Foot(azimuth), chance.Between(7, 20), chance);
  }
  DrawPine(painter, dunes.Foot(338), 84, chance);
  DrawPine(painter, dunes.Foot(345), 56, chance);
  DrawPine(painter, dunes.Foot(28), 70, chance);
  const Paint paint{kBlack, QColor(14, 22, 31), QColor(112, 72, 32)};
  DrawHouse(painter, dunes.Foot(0), 54, 0.6, paint, chance);
  DrawMast(painter, dunes.Foot(8), 86, paint);
}

}  // namespace

QImage SeaScenery() {
  Canvas canvas(3200, 1360);
  PaintSeaSky(canvas);
  PaintSea(canvas);
  PaintIsland(canvas, Headland(canvas, {3.0F, 5.4F, 9, 7, 0.4F, 0, 601}, 262, 352, 34), 0x172A3C);
  const std::vector<float> cape = Headland(canvas, {3.0F, 4.4F, 9, 7, 0.2F, 0.06F, 604}, 112, 214, 14);
  PaintIsland(canvas, cape, 0x0C1824);
  const Standing dunes(canvas, {-0.8F, 1.9F, 4, 5, 0, 0, 603});
  DrawOver(canvas, [&](QPainter& painter) {
    Chance chance(605);
    DrawCoast(painter, canvas, cape, chance);
    DrawStage(painter, canvas);
    DrawDunes(painter, dunes, chance);
  });
  PaintGround(canvas, dunes.Line(), [](float, float, float) { return Rgb{0.020F, 0.033F, 0.052F}; });
  return canvas.Finished();
}

}  // namespace kestrava::tools
