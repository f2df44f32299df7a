#pragma once

// The constants of the model: WGS-72, as the published element sets are fitted with them. Those of WGS-84 would move
// every satellite by up to a kilometre.

namespace kestrava::orbit::sgp4 {

inline constexpr double kEarthRadiusKm = 6378.135;
inline constexpr double kMuKm3S2 = 398600.8;
/// Square root of mu, in earth radii to the power 1.5 a minute: 60 / sqrt(radius^3 / mu). Written out, because a square
/// root is not a constant expression everywhere; a test compares it.
inline constexpr double kXke = 0.07436691613317342;
inline constexpr double kJ2 = 0.001082616;
inline constexpr double kJ3 = -0.00000253881;
inline constexpr double kJ4 = -0.00000165597;
inline constexpr double kJ3OverJ2 = kJ3 / kJ2;
inline constexpr double kKmSPerEarthRadiusMin = kEarthRadiusKm * kXke / 60;
inline constexpr double kTwoThirds = 2.0 / 3.0;
/// Rotation of the Earth in the deep-space resonances, radians a minute.
inline constexpr double kEarthRotationRadMin = 4.37526908801129966e-3;

}  // namespace kestrava::orbit::sgp4
