#include "views2d/Twilight.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "orbit/Angles.h"

namespace kestrava::views2d {

namespace {

constexpr double kWholeDeg = -5;   ///< from here on the glow is whole
constexpr double kPalesDeg = 5;    ///< up to here it stays so
constexpr double kPalestDeg = 35;  ///< from here on the day outshines it
constexpr double kByDay = 0.35;

double Smooth(double from, double to, double t) {
  const double s = std::clamp((t - from) / (to - from), 0.0, 1.0);
  return s * s * (3 - 2 * s);
}

double Strength(double sunElDeg) {
  return Smooth(kNightDeg, kWholeDeg, sunElDeg) * (1 - (1 - kByDay) * Smooth(kPalesDeg, kPalestDeg, sunElDeg));
}

struct Knot {
  double elDeg;
  int red, green, blue;
};

constexpr auto kKnots = std::to_array<Knot>({{0, 0x8E, 0x4E, 0x2E},
                                             {3.5, 0x84, 0x4C, 0x36},
                                             {7, 0x6E, 0x47, 0x48},
                                             {11, 0x52, 0x45, 0x62},
                                             {17, 0x38, 0x44, 0x70},
                                             {27, 0x24, 0x36, 0x6A},
                                             {42, 0x14, 0x24, 0x50},
                                             {62, 0x0B, 0x16, 0x36}});

}  // namespace

double GlowAcross(double azFromSunDeg) {
  constexpr double kNarrow = 2.3;
  return std::pow(0.5 + 0.5 * std::cos(orbit::DegToRad(azFromSunDeg)), kNarrow);
}

double GlowUp(double elDeg, double sunElDeg) {
  const double strength = Strength(sunElDeg);
  const double topDeg = 12 + 50 * strength;
  return strength * (1 - Smooth(0.15 * topDeg, topDeg, elDeg));
}

platform::Colour GlowColour(double elDeg) {
  const auto above =
      std::find_if(kKnots.begin() + 1, kKnots.end() - 1, [&](const Knot& k) { return elDeg <= k.elDeg; });
  const Knot& high = *above;
  const Knot& low = *(above - 1);
  const double t = std::clamp((elDeg - low.elDeg) / (high.elDeg - low.elDeg), 0.0, 1.0);
  const auto mixed = [&](int a, int b) { return static_cast<platform::Colour>(std::lround(a + (b - a) * t)); };
  return mixed(low.red, high.red) | mixed(low.green, high.green) << 8 | mixed(low.blue, high.blue) << 16;
}

}  // namespace kestrava::views2d
