#include "DeepSpace.h"

#include <cmath>

#include "orbit/Frames.h"

#include "Sgp4Constants.h"

namespace kestrava::orbit {
namespace {

/// One body as seen from the Earth: how its orbit lies towards the satellite's node, and how strongly it pulls.
struct BodyOrbit {
  double cosg, sing;  ///< of its argument of perigee
  double cosi, sini;  ///< of its inclination
  double cosh, sinh;  ///< of the satellite's node, counted from its own
  double strength;
  double meanAnomalyAtEpoch, meanMotion, eccentricity;
};

/// Sine and cosine of the satellite's angles, and what else all terms need.
struct SatelliteOrbit {
  double sinNode, cosNode, sinPerigee, cosPerigee, sinInclination, cosInclination;
  double inclination, eccentricity, eccentricitySquared, meanMotion;
};

SatelliteOrbit SatelliteOrbitOf(const MeanElements& at) {
  return {std::sin(at.node),    std::cos(at.node),        std::sin(at.perigee),
          std::cos(at.perigee), std::sin(at.inclination), std::cos(at.inclination),
          at.inclination,       at.eccentricity,          at.eccentricity * at.eccentricity,
          at.meanMotion};
}

constexpr double kSunMeanMotion = 1.19459e-5, kSunEccentricity = 0.01675, kSunStrength = 2.9864797e-6;
constexpr double kMoonMeanMotion = 1.5835218e-4, kMoonEccentricity = 0.05490, kMoonStrength = 4.7968065e-7;

BodyOrbit SunOrbit(const SatelliteOrbit& sat, double day) {
  return {0.1945905,      -0.98088458,     0.91744867,   0.39785416,
          sat.cosNode,    sat.sinNode,     kSunStrength, std::fmod(6.2565837 + 0.017201977 * day, kTurn),
          kSunMeanMotion, kSunEccentricity};
}

BodyOrbit MoonOrbit(const SatelliteOrbit& sat, double day) {
  const double node = std::fmod(4.5236020 - 9.2422029e-4 * day, kTurn);  // on the ecliptic
  const double sinNode = std::sin(node), cosNode = std::cos(node);
  const double cosi = 0.91375164 - 0.03568096 * cosNode;
  const double sini = std::sqrt(1 - cosi * cosi);
  const double sinh = 0.089683511 * sinNode / sini;
  const double cosh = std::sqrt(1 - sinh * sinh);
  const double longitude = 5.8351514 + 0.0019443680 * day;
  const double fromEquator = std::atan2(0.39785416 * sinNode / sini, cosh * cosNode + 0.91744867 * sinh * sinNode);
  const double perigee = longitude + fromEquator - node;
  return {std::cos(perigee),
          std::sin(perigee),
          cosi,
          sini,
          cosh * sat.cosNode + sinh * sat.sinNode,
          sat.sinNode * cosh - sat.cosNode * sinh,
          kMoonStrength,
          std::fmod(4.7199672 + 0.22997150 * day - longitude, kTurn),
          kMoonMeanMotion,
          kMoonEccentricity};
}

/// Below three degrees (and above 177) the node's rate is left out, as published.
bool NodeRateMatters(double inclination) {
  constexpr double kThreeDegrees = 5.2359877e-2;
  return inclination >= kThreeDegrees && inclination <= kHalfTurn - kThreeDegrees;
}

/// The terms of one body: the coefficients of its periodics are returned, its rates are added to `rates`. One piece, as
/// published: a reader compares it with the paper line by line.
// NOLINTNEXTLINE(readability-function-size)
BodyPeriodics TermsOf(const BodyOrbit& b, const SatelliteOrbit& sat, LunisolarRates& rates) {
  const double e = sat.eccentricity, ee = sat.eccentricitySquared;
  const double a1 = b.cosg * b.cosh + b.sing * b.cosi * b.sinh;
  const double a3 = -b.sing * b.cosh + b.cosg * b.cosi * b.sinh;
  const double a7 = -b.cosg * b.sinh + b.sing * b.cosi * b.cosh;
  const double a8 = b.sing * b.sini;
  const double a9 = b.sing * b.sinh + b.cosg * b.cosi * b.cosh;
  const double a10 = b.cosg * b.sini;
  const double a2 = sat.cosInclination * a7 + sat.sinInclination * a8;
  const double a4 = sat.cosInclination * a9 + sat.sinInclination * a10;
  const double a5 = -sat.sinInclination * a7 + sat.cosInclination * a8;
  const double a6 = -sat.sinInclination * a9 + sat.cosInclination * a10;

  const double x1 = a1 * sat.cosPerigee + a2 * sat.sinPerigee;
  const double x2 = a3 * sat.cosPerigee + a4 * sat.sinPerigee;
  const double x3 = -a1 * sat.sinPerigee + a2 * sat.cosPerigee;
  const double x4 = -a3 * sat.sinPerigee + a4 * sat.cosPerigee;
  const double x5 = a5 * sat.sinPerigee, x6 = a6 * sat.sinPerigee;
  const double x7 = a5 * sat.cosPerigee, x8 = a6 * sat.cosPerigee;

  const double z31 = 12 * x1 * x1 - 3 * x3 * x3;
  const double z32 = 24 * x1 * x2 - 6 * x3 * x4;
  const double z33 = 12 * x2 * x2 - 3 * x4 * x4;
  const double z11 = -6 * a1 * a5 + ee * (-24 * x1 * x7 - 6 * x3 * x5);
  const double z12 = -6 * (a1 * a6 + a3 * a5) + ee * (-24 * (x2 * x7 + x1 * x8) - 6 * (x3 * x6 + x4 * x5));
  const double z13 = -6 * a3 * a6 + ee * (-24 * x2 * x8 - 6 * x4 * x6);
  const double z21 = 6 * a2 * a5 + ee * (24 * x1 * x5 - 6 * x3 * x7);
  const double z22 = 6 * (a4 * a5 + a2 * a6) + ee * (24 * (x2 * x5 + x1 * x6) - 6 * (x4 * x7 + x3 * x8));
  const double z23 = 6 * a4 * a6 + ee * (24 * x2 * x6 - 6 * x4 * x8);
  const double rest = 1 - ee;
  const double z1 = 2 * (3 * (a1 * a1 + a2 * a2) + z31 * ee) + rest * z31;
  const double z2 = 2 * (6 * (a1 * a3 + a2 * a4) + z32 * ee) + rest * z32;
  const double z3 = 2 * (3 * (a3 * a3 + a4 * a4) + z33 * ee) + rest * z33;

  const double s3 = b.strength / sat.meanMotion;
  const double s2 = -0.5 * s3 / std::sqrt(rest);
  const double s4 = s3 * std::sqrt(rest);
  const double s1 = -15 * e * s4;
  const double s5 = x1 * x3 + x2 * x4;
  const double s6 = x2 * x3 + x1 * x4;
  const double s7 = x2 * x4 - x1 * x3;

  rates.eccentricity += s1 * b.meanMotion * s5;
  rates.inclination += s2 * b.meanMotion * (z11 + z13);
  rates.meanAnomaly -= b.meanMotion * s3 * (z1 + z3 - 14 - 6 * ee);
  rates.perigee += s4 * b.meanMotion * (z31 + z33 - 6);
  if (NodeRateMatters(sat.inclination)) {
    const double nodeRate = -b.meanMotion * s2 * (z21 + z23) / sat.sinInclination;
    rates.node += nodeRate;
    rates.perigee -= sat.cosInclination * nodeRate;
  }
  BodyPeriodics p{};
  p.e2 = 2 * s1 * s6;
  p.e3 = 2 * s1 * s7;
  p.i2 = 2 * s2 * z12;
  p.i3 = 2 * s2 * (z13 - z11);
  p.l2 = -2 * s3 * z2;
  p.l3 = -2 * s3 * (z3 - z1);
  p.l4 = -2 * s3 * (-21 - 9 * ee) * b.eccentricity;
  p.gh2 = 2 * s4 * z32;
  p.gh3 = 2 * s4 * (z33 - z31);
  p.gh4 = -18 * s4 * b.eccentricity;
  p.h2 = -2 * s2 * z22;
  p.h3 = -2 * s2 * (z23 - z21);
  p.meanAnomalyAtEpoch = b.meanAnomalyAtEpoch;
  p.meanMotion = b.meanMotion;
  p.eccentricity = b.eccentricity;
  return p;
}

/// The periodic terms of a moment, both bodies together.
struct PeriodicSum {
  double e = 0, i = 0, l = 0, gh = 0, h = 0;

  void Add(const BodyPeriodics& p, double minutes) {
    const double meanAnomaly = p.meanAnomalyAtEpoch + p.meanMotion * minutes;
    const double f = meanAnomaly + 2 * p.eccentricity * std::sin(meanAnomaly);
    const double sinf = std::sin(f), cosf = std::cos(f);
    const double f2 = 0.5 * sinf * sinf - 0.25, f3 = -0.5 * sinf * cosf;
    e += p.e2 * f2 + p.e3 * f3;
    i += p.i2 * f2 + p.i3 * f3;
    l += p.l2 * f2 + p.l3 * f3 + p.l4 * sinf;
    gh += p.gh2 * f2 + p.gh3 * f3 + p.gh4 * sinf;
    h += p.h2 * f2 + p.h3 * f3;
  }
};

/// Low inclinations: the node is not a good variable there, its sine and cosine times that of the inclination are
/// (Lyddane 1963).
void ApplyLyddane(const PeriodicSum& sum, double sini, double cosi, MeanElements& mean) {
  const double sinNode = std::sin(mean.node), cosNode = std::cos(mean.node);
  const double alpha = sini * sinNode + sum.h * cosNode + sum.i * cosi * sinNode;
  const double beta = sini * cosNode - sum.h * sinNode + sum.i * cosi * cosNode;
  const double nodeBefore = std::fmod(mean.node, kTurn);
  const double longitude =
      mean.meanAnomaly + mean.perigee + cosi * nodeBefore + (sum.l + sum.gh - sum.i * nodeBefore * sini);
  double node = std::atan2(alpha, beta);
  if (std::abs(nodeBefore - node) > kHalfTurn) node += node < nodeBefore ? kTurn : -kTurn;
  mean.node = node;
  mean.meanAnomaly += sum.l;
  mean.perigee = longitude - mean.meanAnomaly - cosi * node;
}

}  // namespace

DeepSpace::DeepSpace(const MeanElements& atEpoch, const SecularRates& rates, double epochDays1950, double siderealTime)
    : siderealTimeAtEpoch_(siderealTime) {
  const SatelliteOrbit sat = SatelliteOrbitOf(atEpoch);
  const double day = epochDays1950 + 18261.5;  // since 1900 January 0.5
  bodies_ = {TermsOf(SunOrbit(sat, day), sat, rates_), TermsOf(MoonOrbit(sat, day), sat, rates_)};
  resonance_ = Resonance(atEpoch, rates, rates_, siderealTime);
}

void DeepSpace::ApplySecular(double minutes, MeanElements& mean) const {
  mean.eccentricity += rates_.eccentricity * minutes;
  mean.inclination += rates_.inclination * minutes;
  mean.perigee += rates_.perigee * minutes;
  mean.node += rates_.node * minutes;
  mean.meanAnomaly += rates_.meanAnomaly * minutes;
  if (!resonance_.Exists()) return;
  resonance_.Apply(minutes, std::fmod(siderealTimeAtEpoch_ + minutes * sgp4::kEarthRotationRadMin, kTurn), mean);
}

void DeepSpace::ApplyPeriodics(double minutes, MeanElements& mean) const {
  constexpr double kLyddaneBelow = 0.2;  // radians, of the inclination with its periodics
  PeriodicSum sum;
  for (const BodyPeriodics& body : bodies_) sum.Add(body, minutes);
  mean.inclination += sum.i;
  mean.eccentricity += sum.e;
  const double sini = std::sin(mean.inclination), cosi = std::cos(mean.inclination);
  if (mean.inclination >= kLyddaneBelow) {
    const double node = sum.h / sini;
    mean.perigee += sum.gh - cosi * node;
    mean.node += node;
    mean.meanAnomaly += sum.l;
  } else {
    ApplyLyddane(sum, sini, cosi, mean);
  }
}

}  // namespace kestrava::orbit
