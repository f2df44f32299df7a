#pragma once
// Skies by night and dusk: the light of the air, stars, the Milky Way, clouds. All of it is a function of the
// direction, so that the two edges of the picture meet.
#include <cstdint>

#include "Canvas.h"
#include "Noise.h"

namespace kestrava::tools {

/// Unit vector to a direction: x north, y east, z up.
Vec3 Direction(float azimuthDeg, float elevationDeg);

/// How near an azimuth is to another: 1 at it, 0 opposite; `narrow` above 1 draws the light together.
float Towards(float azimuthDeg, float lightDeg, float narrow);

struct Air {
  Ramp away;   ///< by elevation, opposite the light
  Ramp light;  ///< by elevation, where the light is
  float lightDeg = 270;
  float narrow = 1.5F;
};
void PaintAir(Canvas& canvas, const Air& air);

/// The band of the Milky Way: an arch that stands highest at `archDeg`.
struct MilkyWay {
  float archDeg = 90;
  float highestDeg = 52;
  float strength = 1;
};
void PaintMilkyWay(Canvas& canvas, const MilkyWay& way);

/// Stars, denser along the Milky Way, fainter towards the horizon and where the air is bright.
void PaintStars(Canvas& canvas, const MilkyWay& way, int count, std::uint32_t seed);

/// Thin banks of cloud low over the horizon, their lower edges lit.
struct Streaks {
  float middleDeg = 9;
  float reachDeg = 5;
  float cover = 0.5F;  ///< 0 none, 1 closed
  float lightDeg = 270;
  Rgb dark, darkAway, lit;
  std::uint32_t seed = 1;
};
void PaintStreaks(Canvas& canvas, const Streaks& streaks);

/// A broken sheet of cloud in true perspective, lit by a Moon that stands outside the picture.
struct Sheet {
  float cover = 0.5F;
  float scale = 1.6F;
  float lightDeg = 200;
  Rgb shade, lit;
  float strength = 1;
  std::uint32_t seed = 1;
};
void PaintSheet(Canvas& canvas, const Sheet& sheet);

}  // namespace kestrava::tools
