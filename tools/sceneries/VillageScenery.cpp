#include <QPainter>
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

constexpr MilkyWay kWay{92, 54, 0.38F};
const QColor kBlack(5, 7, 13);

void PaintVillageSky(Canvas& canvas) {
  PaintAir(canvas,
           Ramp({{0, 0x2B3354}, {6, 0x272F56}, {14, 0x1E2850}, {28, 0x142045}, {50, 0x0C1633}, {90, 0x060C20}}));
  PaintMilkyWay(canvas, kWay);
  PaintStars(canvas, kWay, 5200, 1966);
  PaintStreaks(canvas, {11, 4.2F, 0.62F, FromHex(0x1B2342), 41});
}

void PaintHills(Canvas& canvas) {
  const auto hazy = [](unsigned colour, float haze) {
    return [=](float, float, float depth) { return FromHex(colour) * (1 + haze * std::min(depth, 4.0F)); };
  };
  PaintGround(canvas, Ridge(canvas, {2.6F, 5.6F, 5, 7, 0.25F, 0, 301}), hazy(0x1E2645, 0.04F));
  PaintGround(canvas, Ridge(canvas, {1.6F, 4.1F, 8, 6, 0.1F, 0.10F, 302}), hazy(0x151B34, 0.03F));
  PaintGround(canvas, Ridge(canvas, {1.1F, 2.7F, 10, 5, 0, 0.28F, 303}), hazy(0x0E1325, 0.02F));
}

void DrawWood(QPainter& painter, const Standing& meadow, Chance& chance) {
  for (double azimuth = 12; azimuth < 92; azimuth += chance.Between(0.5, 1.5)) {
    const double middle = 1 - std::abs(azimuth - 52) / 44;
    const double height = (22 + 40 * middle) * chance.Between(0.65, 1.12);
    if (chance.Share() < 0.83) {
      DrawSpruce(painter, meadow.Foot(azimuth), height, chance);
    } else {
      DrawBroadleaf(painter, meadow.Foot(azimuth), height * 0.75, chance);
    }
  }
}

void DrawTrees(QPainter& painter, const Standing& meadow, Chance& chance) {
  DrawWood(painter, meadow, chance);
  DrawBareTree(painter, meadow.Foot(117), 74, chance);
  for (int i = 0; i < 7; ++i) DrawPoplar(painter, meadow.Foot(139 + i * 2.35), chance.Between(44, 66), chance);
  DrawBroadleaf(painter, meadow.Foot(176), 58, chance);
  DrawBroadleaf(painter, meadow.Foot(182), 44, chance);
  for (const double azimuth : {209.0, 226.5, 239.0, 251.5, 256.0}) {
    DrawBroadleaf(painter, meadow.Foot(azimuth), chance.Between(30, 44), chance);
  }
  DrawBroadleaf(painter, meadow.Foot(309), 80, chance);
  DrawBareTree(painter, meadow.Foot(322), 52, chance);
  for (const double azimuth : {331.0, 333.2, 336.4, 349.0, 351.5, 2.0, 4.2}) {
    DrawSpruce(painter, meadow.Foot(azimuth), chance.Between(30, 56), chance);
  }
  for (double azimuth = 0; azimuth < 360; azimuth += chance.Between(1.5, 6)) {
    DrawBush(painter, meadow.Foot(azimuth), chance.Between(4, 11), chance);
  }
}

void DrawVillage(QPainter& painter, const Standing& meadow, Chance& chance) {
  const Paint paint{kBlack, QColor(13, 16, 27), QColor(112, 70, 30)};
  const double rows[][2] = {{205, 34}, {212.5, 40}, {217, 34}, {221, 44}, {232, 38}, {236, 46}, {243, 36}, {247.5, 42}};
  for (const auto& house : rows) DrawHouse(painter, meadow.Foot(house[0]), house[1], 0.4, paint, chance);
  DrawChurch(painter, meadow.Foot(226), 84, paint);
  DrawHouse(painter, meadow.Foot(284.5), 48, 0.55, paint, chance);
  DrawMast(painter, meadow.Foot(291), 98, paint);
  DrawDish(painter, meadow.Foot(297), 24, paint);
}

}  // namespace

QImage VillageScenery() {
  Canvas canvas(3200, 1360);
  PaintVillageSky(canvas);
  PaintHills(canvas);
  const Standing meadow(canvas, {0.5F, 1.5F, 7, 5, 0, 0, 304});
  DrawOver(canvas, [&](QPainter& painter) {
    painter.setBrush(kBlack);
    Chance chance(404);
    DrawTrees(painter, meadow, chance);
    DrawVillage(painter, meadow, chance);
  });
  PaintGround(canvas, meadow.Line(), [](float, float, float) { return Rgb{0.020F, 0.027F, 0.050F}; });
  return canvas.Finished();
}

}  // namespace kestrava::tools
