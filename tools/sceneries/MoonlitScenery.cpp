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

constexpr float kMoonDeg = 128;  // where the light comes from; the program draws the Moon itself
constexpr MilkyWay kWay{300, 48, 0.22F};
const QColor kBlack(6, 9, 15);

void PaintMoonlitSky(Canvas& canvas) {
  const Air air{Ramp({{0, 0x26344C}, {8, 0x203048}, {20, 0x182640}, {40, 0x101C34}, {65, 0x0A1326}, {90, 0x060C1A}}),
                Ramp({{0, 0x48586E},
                      {6, 0x425369},
                      {14, 0x36485F},
                      {28, 0x263850},
                      {46, 0x18273E},
                      {68, 0x0E182C},
                      {90, 0x060C1A}}),
                kMoonDeg, 1.4F};
  PaintAir(canvas, air);
  PaintMilkyWay(canvas, kWay);
  PaintStars(canvas, kWay, 2600, 77);
  PaintSheet(canvas, {0.33F, 1.5F, kMoonDeg, FromHex(0x1D2A3E), FromHex(0x67788C), 0.9F, 51});
}

// Snow holds on the upper slopes; mist lies in the valley before the mountains.
void PaintMountains(Canvas& canvas) {
  PaintGround(canvas, Ridge(canvas, {2.4F, 7.7F, 6, 8, 0.9F, 0, 511}), [](float azimuth, float elevation, float depth) {
    const float near = 0.45F + 0.55F * Towards(azimuth, kMoonDeg, 1);
    const float slope = SlopeLight(azimuth, depth, 61);
    const float snow = Smooth(3.2F, 5.0F, elevation + 1.2F * slope);
    const Rgb rock = Mix(FromHex(0x1B2637), FromHex(0x35455A), slope);
    const Rgb white = Mix(FromHex(0x2C3C52), FromHex(0x75869A), slope);
    const Rgb mist = Mix(FromHex(0x2C3A4E), FromHex(0x50627A), near);
    return Mix(Mix(rock, white, snow * near), mist, 0.75F * (1 - Smooth(1.2F, 4.2F, elevation)));
  });
  PaintGround(canvas, Ridge(canvas, {1.3F, 4.2F, 8, 6, 0.3F, 0.14F, 502}), [](float azimuth, float elevation, float) {
    const Rgb mist = Mix(FromHex(0x263448), FromHex(0x44566C), Towards(azimuth, kMoonDeg, 1));
    return Mix(FromHex(0x121B29), mist, 0.85F * (1 - Smooth(0.8F, 2.9F, elevation)));
  });
}

// A lake in the foreground holds the light of the sky, brightest under the Moon.
void PaintLake(Canvas& canvas) {
  const float shoreDeg = 1.05F;
  for (int y = static_cast<int>(canvas.RowOf(shoreDeg)); y < canvas.Height(); ++y) {
    const float elevation = canvas.ElevationDeg(static_cast<float>(y) + 0.5F);
    for (int x = 0; x < canvas.Width(); ++x) {
      const Vec3 d = Direction(canvas.AzimuthDeg(static_cast<float>(x)), 0);
      const float ripple = Layered({d.x * 26, d.y * 26, elevation * 9}, 4, 71);
      const float gleam = Towards(canvas.AzimuthDeg(static_cast<float>(x)), kMoonDeg, 26);
      const float calm = 0.30F + 0.45F * Smooth(-0.3F, 0.5F, ripple);
      const Rgb water = Mix(FromHex(0x121C2B), FromHex(0x46586E), calm * (0.35F + 0.65F * gleam));
      canvas.At(x, y) = water + FromHex(0x556270) * (0.9F * gleam * Smooth(0.15F, 0.55F, ripple));
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
