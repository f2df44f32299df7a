#include "SkyFrame.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include <erfa.h>

#include "orbit/TerrestrialTime.h"
#include "platform/Fault.h"

namespace kestrava::orbit {
namespace {

constexpr double kSerialToJulian = 2415018.5;
constexpr double kSecondsPerDay = 86400.0;
constexpr double kFarthestSerial = 4e6;  // beyond the years that serial dates can hold

// What the series give for one midnight of Terrestrial Time.
struct Node {
  int64_t day = INT64_MIN;
  std::array<Vec3, 3> trueOfDate;
  double equinoxesRad = 0;  // apparent minus mean sidereal time
  double obliquityRad = 0;
  Vec3 fromSunAu;
  Vec3 fromSunAuD;
  Vec3 velocityAuD;
};

// NOLINTBEGIN(modernize-avoid-c-arrays): the form in which ERFA takes and gives vectors
Vec3 VectorOf(const double (&v)[3]) {
  return {v[0], v[1], v[2]};
}

void FillAxes(double julian, Node& node) {
  double dpsi = 0;
  double deps = 0;
  double meanObliquity = 0;
  double bias[3][3];
  double precession[3][3];
  double biasPrecession[3][3];
  double nutation[3][3];
  double all[3][3];
  eraPn00b(julian, 0, &dpsi, &deps, &meanObliquity, bias, precession, biasPrecession, nutation, all);
  node.trueOfDate = {VectorOf(all[0]), VectorOf(all[1]), VectorOf(all[2])};
  node.equinoxesRad = eraEe00(julian, 0, meanObliquity, dpsi);
  node.obliquityRad = meanObliquity + deps;
}

void FillOrbit(double julian, Node& node) {
  double heliocentric[2][3];
  double barycentric[2][3];
  eraEpv00(julian, 0, heliocentric, barycentric);
  node.fromSunAu = VectorOf(heliocentric[0]);
  node.fromSunAuD = VectorOf(heliocentric[1]);
  node.velocityAuD = VectorOf(barycentric[1]);
}
// NOLINTEND(modernize-avoid-c-arrays)

// Searches ask for many moments of few days; a handful of nodes is kept. A node depends on its day alone.
const Node& NodeOf(int64_t day) {
  thread_local std::array<Node, 8> kept;
  Node& node = kept[static_cast<std::size_t>(day & 7)];
  if (node.day != day) {
    const double julian = kSerialToJulian + static_cast<double>(day);
    FillAxes(julian, node);
    FillOrbit(julian, node);
    node.day = day;
  }
  return node;
}

double Between(double a, double b, double part) {
  return a + (b - a) * part;
}

// Cubic Hermite through two positions and velocities, a day apart.
Vec3 EarthFromSun(const Node& a, const Node& b, double s) {
  const double t = 1 - s;
  return t * t * (1 + 2 * s) * a.fromSunAu + s * s * (3 - 2 * s) * b.fromSunAu + s * t * t * a.fromSunAuD -
         t * s * s * b.fromSunAuD;
}

}  // namespace

SkyFrame SkyFrameAt(double utcSerial) {
  const double terrestrial = utcSerial + TerrestrialMinusUniversalS(utcSerial) / kSecondsPerDay;
  if (!(std::abs(terrestrial) < kFarthestSerial)) throw platform::Fault::Overflow();
  const double midnight = std::floor(terrestrial);
  const double part = terrestrial - midnight;
  const auto day = static_cast<int64_t>(midnight);
  const Node& a = NodeOf(day);
  const Node& b = NodeOf(day + 1);
  SkyFrame frame;
  for (std::size_t i = 0; i < frame.trueOfDate.size(); ++i) {
    frame.trueOfDate[i] = (1 - part) * a.trueOfDate[i] + part * b.trueOfDate[i];
  }
  frame.earthFromSunAu = EarthFromSun(a, b, part);
  frame.earthFromSunAuD = (1 - part) * a.fromSunAuD + part * b.fromSunAuD;
  frame.earthVelocityAuD = (1 - part) * a.velocityAuD + part * b.velocityAuD;
  const double universalDay = std::floor(utcSerial);
  const double mean = eraGmst00(kSerialToJulian + universalDay, utcSerial - universalDay, kSerialToJulian, terrestrial);
  frame.siderealRad = mean + Between(a.equinoxesRad, b.equinoxesRad, part);
  frame.obliquityRad = Between(a.obliquityRad, b.obliquityRad, part);
  return frame;
}

}  // namespace kestrava::orbit
