// Angle arithmetic in the forms that the whole system uses, quirks included.
#pragma once

#include <string>

namespace kestrava::orbit {

inline constexpr double kPi = 3.14159265358979;  ///< the system's own value, 15 digits
inline constexpr double kTwoPi = 6.28318530717958;
inline constexpr double kEarthRadiusKm = 6378.14;  ///< of footprints and of the terminator

/// Radians, 0 up to 2 pi.
double ArcTan2(double y, double x);
double DegToRad(double degrees);
double RadToDeg(double radians);
/// Radians. @throws platform::Fault "Division by zero" at 1 and -1, "Invalid procedure call or argument" beyond
double ArcSin(double x);
double ArcCos(double x);
/// West-positive longitude as "012.345 W" or "012.345 E".
std::string LonText(double lonDegWest);
/// Factor 0.6214.
double KmToMiles(double km);

}  // namespace kestrava::orbit
