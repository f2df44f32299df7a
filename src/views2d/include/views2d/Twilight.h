// The light that the Sun leaves low in the sky, as a horizon shows it: around the Sun's azimuth, from the end of night
// on. Plain numbers; the window lays them over a scenery of a night.
#pragma once

#include "platform/Surface.h"

namespace kestrava::views2d {

/// Below this elevation of the Sun, degrees, it is night: no side glows.
inline constexpr double kNightDeg = -18;

/// How strong the glow is at an azimuth: 1 at the Sun's, 0 opposite.
double GlowAcross(double azFromSunDeg);

/// How strong it is at an elevation above the Sun's azimuth, 0 to 1. It rises higher the nearer the Sun is to the
/// horizon, and pales as the Sun climbs.
double GlowUp(double elDeg, double sunElDeg);

/// Its colour at an elevation: embers on the horizon, then rose and blue. Dark enough for labels in yellow and white.
platform::Colour GlowColour(double elDeg);

}  // namespace kestrava::views2d
