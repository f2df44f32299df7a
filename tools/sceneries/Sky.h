#pragma once
// Skies by night: the light of the air, stars, the Milky Way, clouds. All of it is a function of the direction, so that
// the two edges of the picture meet. No side is lighter than another: the Sun and the Moon wander, and the program lays
// the Sun's glow over the picture where it stands.
#include <cstdint>

#include "Canvas.h"
#include "Noise.h"

namespace kestrava::tools {

/// Unit vector to a direction: x north, y east, z up.
Vec3 Direction(float azimuthDeg, float elevationDeg);

/// The light of the air, by elevation.
void PaintAir(Canvas& canvas, const Ramp& air);

/// The band of the Milky Way: an arch that stands highest at `archDeg`.
struct MilkyWay {
  float archDeg = 90;
  float highestDeg = 52;
  float strength = 1;
};
void PaintMilkyWay(Canvas& canvas, const MilkyWay& way);

/// Stars, denser along the Milky Way, fainter towards the horizon and where the air is bright.
void PaintStars(Canvas& canvas, const MilkyWay& way, int count, std::uint32_t seed);

/// Thin banks of cloud low over the horizon.
struct Streaks {
  float middleDeg = 9;
  float reachDeg = 5;
  float cover = 0.5F;  ///< 0 none, 1 closed
  Rgb colour;
  std::uint32_t seed = 1;
};
void PaintStreaks(Canvas& canvas, const Streaks& streaks);

/// A broken sheet of cloud in true perspective, its edges lit from one side.
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
