#include "orbit/Angles.h"

#include <cmath>

#include "platform/Fault.h"
#include "platform/Format.h"

namespace kestrava::orbit {

namespace {

/// What arcsine and arccosine divide by: 0 at 1 and -1, no number beyond.
double CosineOfArcSin(double x) {
  const double square = 1 - x * x;
  if (!(square >= 0)) throw platform::Fault::InvalidCall();
  return std::sqrt(square);
}

double SignOf(double x) {
  return x > 0 ? 1 : x < 0 ? -1 : 0;
}

}  // namespace

double ArcTan2(double y, double x) {
  double angle = x != 0 ? std::atan(y / x) : SignOf(y) * kPi / 2;
  if (x < 0) angle += kPi;
  if (angle < 0) angle += kTwoPi;
  return angle;
}

double DegToRad(double degrees) {
  return degrees * kPi / 180;
}

double RadToDeg(double radians) {
  return radians * 180 / kPi;
}

double ArcSin(double x) {
  return std::atan(platform::Divide(x, CosineOfArcSin(x)));
}

double ArcCos(double x) {
  return std::atan(platform::Divide(-x, CosineOfArcSin(x))) + 2 * std::atan(1.0);
}

std::string LonText(double lonDegWest) {
  if (lonDegWest < 180) return platform::Format(lonDegWest, "000.000") + " W";
  return platform::Format(360 - lonDegWest, "000.000") + " E";
}

double KmToMiles(double km) {
  return km * 0.6214;
}

}  // namespace kestrava::orbit
