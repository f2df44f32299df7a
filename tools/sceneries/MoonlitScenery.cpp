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

constexpr float kMoonDeg = 128;  // the side from which the clouds' edges are lit; elsewhere its light is even
constexpr MilkyWay kWay{300, 48, 0.22F};
const QColor kBlack(6, 9, 15);

void PaintMoonlitSky(Canvas& canvas) {
  PaintAir(canvas,
           Ramp({{0, 0x37465D}, {8, 0x2F4058}, {18, 0x22324B}, {34, 0x172640}, {65, 0x0A1326}, {90, 0x060C1A}}));
  PaintMilkyWay(canvas, kWay);
  PaintStars(canvas, kWay, 2600, 77);
  PaintSheet(canvas, {0.33F, 1.5F, kMoonDeg, FromHex(0x1D2A3E), FromHex(0x67788C), 0.9F, 51});
}

// Snow holds on the upper slopes; mist lies in the valley before the mountains.
void PaintMountains(Canvas& canvas) {
  PaintGround(canvas, Ridge(canvas, {2.4F, 7.7F, 6, 8, 0.9F, 0, 511}), [](float azimuth, float elevation, float depth) {
    const float slope = SlopeLight(azimuth, depth, 61);
    const float snow = Smooth(3.2F, 5.0F, elevation + 1.2F * slope);
    const Rgb rock = Mix(FromHex(0x1B2637), FromHex(0x35455A), slope);
    const Rgb white = Mix(FromHex(0x2C3C52), FromHex(0x75869A), slope);
    const Rgb mist = Mix(FromHex(0x2C3A4E), FromHex(0x50627A), 0.72F);
    return Mix(Mix(rock, white, 0.72F * snow), mist, 0.75F * (1 - Smooth(1.2F, 4.2F, elevation)));
  });
  PaintGround(canvas, Ridge(canvas, {1.3F, 4.2F, 8, 6, 0.3F, 0.14F, 502}), [](float, float elevation, float) {
    const Rgb mist = Mix(FromHex(0x263448), FromHex(0x44566C), 0.5F);
    return Mix(FromHex(0x121B29), mist, 0.85F * (1 - Smooth(0.8F, 2.9F, elevation)));
  });
}

// A lake in the foreground holds the light of the sky.
void PaintLake(Canvas& canvas) {
  const float shoreDeg = 1.05F;
  for (int y = static_cast<int>(canvas.RowOf(shoreDeg)); y < canvas.Height(); ++y) {
    const float elevation = canvas.ElevationDeg(static_cast<float>(y) + 0.5F);
    for (int x = 0; x < canvas.Width(); ++x) {
      const Vec3 d = Direction(canvas.AzimuthDeg(static_cast<float>(x)), 0);
      const float ripple = Layered({d.x * 26, d.y * 26, elevation * 9}, 4, 71);
      const float calm = 0.30F + 0.45F * Smooth(-0.3F, 0.5F, ripple);
      canvas.At(x, y) = Mix(FromHex(0x121C2B), FromHex(0x46586E), calm * 0.5F);
    }
  }
}

void DrawForest(QPainter& painter, const Standing& shore, Chance& chance) {
  const auto wood = [&](double from, double to, double tall, double gap) {
    for (double azimuth = from; azimuth < to; azimuth += gap * chance.Between(0.4, 1.3)) {
      const double rise = std::min({1.0, (azimuth - from) / 8 + 0.3, (to - azimuth) / 8 + 0.3});
      DrawSpruce(painter, shore.Foot(azimuth), tall * rise * chance.Between(0.55, 1.15), chance);
    }
  };
  wood(-22, 28, 78, 1.0);
  wood(44, 82, 50, 0.9);
  wood(182, 204, 44, 1.1);
  wood(214, 262, 84, 1.0);
  wood(282, 306, 48, 1.2);
  DrawPine(painter, shore.Foot(96), 64, chance);
  DrawSpruce(painter, shore.Foot(166), 72, chance);
  DrawSpruce(painter, shore.Foot(169.5), 52, chance);
  DrawBareTree(painter, shore.Foot(316), 58, chance);
  for (double azimuth = 0; azimuth < 360; azimuth += chance.Between(1, 5)) {
    DrawBush(painter, shore.Foot(azimuth), chance.Between(3, 8), chance);
  }
}

}  // namespace

QImage MoonlitScenery() {
  Canvas canvas(3200, 1360);
  PaintMoonlitSky(canvas);
  PaintMountains(canvas);
  PaintLake(canvas);
  const Standing shore(canvas, {-0.9F, 1.4F, 5, 5, 0, 0, 503});
  DrawOver(canvas, [&](QPainter& painter) {
    painter.setBrush(kBlack);
    Chance chance(505);
    DrawForest(painter, shore, chance);
    const Paint paint{kBlack, QColor(34, 44, 58), QColor(112, 72, 32)};
    DrawHouse(painter, shore.Foot(209), 42, 0.7, paint, chance);
    DrawHouse(painter, shore.Foot(271), 54, 0.5, paint, chance);
    DrawMast(painter, shore.Foot(277), 88, paint);
  });
  PaintGround(canvas, shore.Line(), [](float, float, float) { return Rgb{0.024F, 0.035F, 0.060F}; });
  return canvas.Finished();
}

}  // namespace kestrava::tools
