#include "HorizonWatch.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kestrava::orbit {
namespace {

constexpr double kEarthMuKm3S2 = 398600.8;        // of WGS-72, as in the model
constexpr double kModelEarthRadiusKm = 6378.135;  // the model ends below it
constexpr double kForever = std::numeric_limits<double>::infinity();

// Room for what the ellipse of one moment does not tell: periodic terms of the model, drag, Sun and Moon.
constexpr double kRadiusRoom = 0.006;        // of the radius, nearly round orbits; twice that for others
constexpr double kNeverRadiusRoom = 0.03;    // over 30 days
constexpr double kNeverAngleRoomRad = 0.02;  // over 30 days
constexpr double kPlaneRoomRad = 0.006;      // wobble of the plane within half a day
constexpr double kPrecessionRoom = 1.03;     // the node moves by at most 10 degrees a day against the Earth's 361
constexpr double kTurnRoomRadS = 4e-7;
constexpr double kRateRoom = 1.01;
constexpr double kClimbRoomKmS = 0.005;  // the model's velocity is not quite the rate of its position
constexpr double kLongestStepS = 5 * 86400.0;
constexpr double kLongestPlaneStepS = 43200.0;
constexpr double kNearSideRad = 1.31;  // 75 degrees
constexpr double kFarOffPlaneRad = 1.2;
constexpr double kLocalRadius = 0.7;    // of the radius, for bounds that hold only as long as it is not passed
constexpr double kUnseenRad = 1.75e-4;  // 0.01 degrees
constexpr double kShortestRangeKm = 300;

double SafeArcCos(double x) {
  return std::acos(std::clamp(x, -1.0, 1.0));
}

// The first time at which start + rate t + 1/2 acceleration t^2 can reach 0 from a negative start.
double UntilZero(double start, double rate, double acceleration) {
  const double root = rate * rate - 2 * acceleration * start;
  if (root < 0) return kForever;
  const double divisor = rate + std::sqrt(root);
  return divisor > 0 ? -2 * start / divisor : kForever;
}

}  // namespace

/// The ellipse of the moment, with room, and its plane.
struct HorizonWatch::Orbit {
  double radiusKm = 0;
  double momentum = 0;  // km2/s
  double apogeeKm = 0;
  double perigeeKm = 0;
  double fastestRadialKmS = 0;
  double periodS = 0;
  double cosInclination = 1;
  double sinInclination = 0;
  double zenithAngleRad = 0;  // at the Earth's centre, between satellite and zenith
  double zenithAlongNormal = 0;
  double reachRad = 0;  // the widest zenith angle at which the satellite can stand above the horizon
  Vec3 normal;
};

/// What holds while the satellite stays above some radius.
struct HorizonWatch::Limits {
  double lowestKm = 0;
  double fastestRadS = 0;  // of the satellite's direction among the stars
  double turnRadS = 0;     // of the satellite's direction seen from the turning Earth
  double gravityKmS2 = 0;
  double earthTurnKmS2 = 0;  // what the turning of the horizon adds to the acceleration
  double durationS = 0;      // how long it surely stays above it
};

HorizonWatch::HorizonWatch(const Sgp4& satellite, const Observer& observer, double startSerial, int direction)
    : satellite_(satellite),
      startMinutes_(satellite.MinutesSinceEpoch(startSerial)),
      direction_(direction),
      startSiderealRad_(GreenwichMeanSiderealTime(startSerial)),
      longitudeRad_(observer.longitudeEastDeg * kRadPerDeg) {
  const Site site = Site::Of(observer);
  sinLatitude_ = site.up.z;
  cosLatitude_ = std::hypot(site.up.x, site.up.y);
  planeKm_ = Dot(site.up, site.positionKm);
  siteOutKm_ = std::hypot(site.positionKm.x, site.positionKm.y);
  siteUpKm_ = site.positionKm.z;
}

HorizonSample HorizonWatch::At(double elapsedS) const {
  HorizonSample sample;
  sample.elapsedS = elapsedS;
  const double seconds = direction_ * elapsedS;
  const Sgp4State state = satellite_.Propagate(startMinutes_ + seconds / 60);
  sample.valid = state.error == ModelError::kNone;
  if (!sample.valid) return sample;
  const double angle = longitudeRad_ + startSiderealRad_ + kEarthRotationRadS * seconds;
  const double cosAngle = std::cos(angle);
  const double sinAngle = std::sin(angle);
  sample.positionKm = state.positionKm;
  sample.velocityKmS = direction_ * state.velocityKmS;
  sample.zenith = {cosLatitude_ * cosAngle, cosLatitude_ * sinAngle, sinLatitude_};
  const double turn = direction_ * kEarthRotationRadS;
  const Vec3 zenithRate = {-turn * sample.zenith.y, turn * sample.zenith.x, 0};
  sample.aboveKm = Dot(sample.zenith, sample.positionKm) - planeKm_;
  sample.climbKmS = Dot(sample.zenith, sample.velocityKmS) + Dot(zenithRate, sample.positionKm);
  return sample;
}

ElevationSine HorizonWatch::ElevationOf(const HorizonSample& sample) const {
  const double turn = direction_ * kEarthRotationRadS;
  const double out = cosLatitude_ > 0 ? siteOutKm_ / cosLatitude_ : 0;
  const Vec3 site = {out * sample.zenith.x, out * sample.zenith.y, siteUpKm_};
  const Vec3 line = sample.positionKm - site;
  const Vec3 lineRate = sample.velocityKmS - Vec3{-turn * site.y, turn * site.x, 0};
  const double range = Length(line);
  const double sine = sample.aboveKm / range;
  return {sine, (sample.climbKmS - sine * Dot(line, lineRate) / range) / range};
}

HorizonWatch::Orbit HorizonWatch::OrbitOf(const HorizonSample& sample) const {
  Orbit orbit;
  const Vec3 momentum = Cross(sample.positionKm, sample.velocityKmS);
  orbit.radiusKm = Length(sample.positionKm);
  orbit.momentum = Length(momentum);
  orbit.normal = momentum / orbit.momentum;
  const double energy = Dot(sample.velocityKmS, sample.velocityKmS) / 2 - kEarthMuKm3S2 / orbit.radiusKm;
  const double semiLatus = orbit.momentum * orbit.momentum / kEarthMuKm3S2;
  // An orbit that is hardly bound may be open at the moment: then there is no apogee to count on.
  const double semiMajor = energy < 0 ? -kEarthMuKm3S2 / (2 * energy) : kForever;
  const double eccentricity = energy < 0 ? std::sqrt(std::max(0.0, 1 - semiLatus / semiMajor)) : 1;
  const double room = eccentricity > 0.05 ? 2 * kRadiusRoom : kRadiusRoom;
  orbit.apogeeKm = semiMajor * (1 + eccentricity) * (1 + room);
  orbit.perigeeKm = std::max(kModelEarthRadiusKm, semiLatus / (1 + eccentricity) * (1 - room));
  orbit.fastestRadialKmS = kRateRoom * (eccentricity + room) * kEarthMuKm3S2 / orbit.momentum;
  orbit.periodS = kTurn * std::sqrt(semiMajor * semiMajor * semiMajor / kEarthMuKm3S2);
  orbit.cosInclination = orbit.normal.z;
  orbit.sinInclination = std::hypot(orbit.normal.x, orbit.normal.y);
  orbit.zenithAngleRad = SafeArcCos((sample.aboveKm + planeKm_) / orbit.radiusKm);
  orbit.reachRad = SafeArcCos(planeKm_ / orbit.apogeeKm);
  orbit.zenithAlongNormal = Dot(sample.zenith, orbit.normal);
  return orbit;
}

HorizonWatch::Limits HorizonWatch::LimitsWithin(const Orbit& orbit, double lowestKm) const {
  Limits limits;
  limits.lowestKm = lowestKm;
  const double fastest = kRateRoom * orbit.momentum / (lowestKm * lowestKm);
  const double slowest = orbit.momentum / (kRateRoom * orbit.apogeeKm * orbit.apogeeKm);
  const auto relative = [&](double turn) {
    return turn * turn + kEarthRotationRadS * kEarthRotationRadS -
           2 * turn * kEarthRotationRadS * direction_ * orbit.cosInclination;
  };
  limits.fastestRadS = fastest;
  limits.turnRadS = kRateRoom * std::sqrt(std::max(relative(fastest), relative(slowest))) + kTurnRoomRadS;
  limits.gravityKmS2 = kRateRoom * kEarthMuKm3S2 / (lowestKm * lowestKm);
  const double speed = std::sqrt(2 * kEarthMuKm3S2 / lowestKm);  // no orbit is faster there
  limits.earthTurnKmS2 =
      kEarthRotationRadS * cosLatitude_ * (2 * speed + kEarthRotationRadS * std::min(orbit.apogeeKm, 1e6));
  limits.durationS =
      lowestKm <= orbit.perigeeKm ? kForever : std::max(0.0, (orbit.radiusKm - lowestKm) / orbit.fastestRadialKmS);
  return limits;
}

double HorizonWatch::LeastStepS(const Orbit& orbit, const Limits& limits) const {
  const double rangeSquared = orbit.radiusKm * orbit.radiusKm - planeKm_ * planeKm_;
  const double rangeKm = std::sqrt(std::max(rangeSquared, kShortestRangeKm * kShortestRangeKm));
  return 2 * std::sqrt(2 * rangeKm * kUnseenRad / (limits.gravityKmS2 + limits.earthTurnKmS2));
}

double HorizonWatch::StepBelowS(const HorizonSample& sample, const Orbit& orbit, const Limits& limits) const {
  const double rate = sample.climbKmS + kClimbRoomKmS;
  const double byAngle = (orbit.zenithAngleRad - orbit.reachRad) / limits.turnRadS;
  const double byHeight = UntilZero(sample.aboveKm, rate, limits.gravityKmS2 + limits.earthTurnKmS2);
  // On the near side of the Earth gravity pulls the satellite down on the horizon: there its height is a concave
  // function of time, the tangent lies above it, and a satellite that sinks does not come back before it has left.
  const double edge = std::max(kNearSideRad, (orbit.reachRad + kTurn / 4) / 2);
  const double untilEdge = (edge - orbit.zenithAngleRad) / limits.turnRadS;
  double nearSide = 0;
  if (untilEdge > 0) {
    const double pull = kEarthMuKm3S2 * std::cos(edge) / (kRateRoom * orbit.apogeeKm * orbit.apogeeKm);
    nearSide = std::min(untilEdge, UntilZero(sample.aboveKm, rate, limits.earthTurnKmS2 - pull));
  }
  return std::max({byAngle, byHeight, nearSide});
}

double HorizonWatch::StepAboveS(const HorizonSample& sample, const Orbit& orbit, const Limits& limits) const {
  const double rate = kClimbRoomKmS - sample.climbKmS;
  const double byHeight = UntilZero(-sample.aboveKm, rate, limits.gravityKmS2 + limits.earthTurnKmS2);
  const double byAngle = (SafeArcCos(planeKm_ / limits.lowestKm) - orbit.zenithAngleRad) / limits.turnRadS;
  return std::max(byAngle, byHeight);
}

double HorizonWatch::StepWithinS(const HorizonSample& sample, const Orbit& orbit, const Limits& limits) const {
  const double step = sample.aboveKm > 0 ? StepAboveS(sample, orbit, limits) : StepBelowS(sample, orbit, limits);
  return std::min(step, limits.durationS);
}

// How long the orbit's plane stays so far from the observer's zenith that nothing on it can be seen. The zenith goes
// round the axis, so its component along the orbit's normal is a constant and a cosine of the hour.
double HorizonWatch::UntilPlaneIsNearS(const HorizonSample& sample, const Orbit& orbit) const {
  const double reach = std::sin(std::min(orbit.reachRad + kPlaneRoomRad, kTurn / 4));
  if (std::abs(orbit.zenithAlongNormal) <= reach) return 0;
  const double mean = sample.zenith.z * orbit.normal.z;
  const double swing = cosLatitude_ * orbit.sinInclination;
  const bool northOfPlane = orbit.zenithAlongNormal > 0;
  const double wanted = (northOfPlane ? reach : -reach) - mean;
  if (std::abs(wanted) >= swing) return kLongestPlaneStepS;
  const Vec3& n = orbit.normal;
  const Vec3& z = sample.zenith;
  const double hour = direction_ * std::atan2(n.x * z.y - n.y * z.x, n.x * z.x + n.y * z.y);
  const double at = std::acos(wanted / swing);
  const double ahead = northOfPlane ? at - hour : WrapTurn(-at - hour);
  if (ahead > kTurn - kPlaneRoomRad) return 0;  // rounding has put it just behind
  return std::clamp(ahead / (kPrecessionRoom * kEarthRotationRadS), 0.0, kLongestPlaneStepS);
}

// How long the satellite needs, on its way along the orbit, until it comes near the point of the orbit that lies
// closest to the observer's zenith. That point moves too, faster the farther the zenith is from the plane.
double HorizonWatch::UntilSatelliteIsNearS(const HorizonSample& sample, const Orbit& orbit,
                                           const Limits& limits) const {
  if (!(orbit.periodS < kLongestPlaneStepS)) return 0;
  const double offPlane = std::asin(std::min(1.0, std::abs(orbit.zenithAlongNormal))) +
                          kPrecessionRoom * kEarthRotationRadS * cosLatitude_ * orbit.periodS;
  if (offPlane > kFarOffPlaneRad) return 0;
  const Vec3 forwards = Cross(orbit.normal, sample.positionKm);
  const double ahead = WrapTurn(std::atan2(Dot(forwards, sample.zenith), Dot(sample.positionKm, sample.zenith)));
  const double reach = orbit.reachRad + kPlaneRoomRad;
  if (ahead < reach || ahead > kTurn - reach) return 0;
  const double tangent = std::tan(offPlane);
  const double slope = tangent * orbit.sinInclination - direction_ * orbit.cosInclination;
  const double pointRadS = kEarthRotationRadS * (slope + (kPrecessionRoom - 1) * (1 + tangent));
  return std::min(orbit.periodS,
                  (ahead - reach) / (limits.fastestRadS + std::max(pointRadS, -0.5 * limits.fastestRadS)));
}

double HorizonWatch::SafeStepS(const HorizonSample& sample) const {
  const Orbit orbit = OrbitOf(sample);
  const Limits always = LimitsWithin(orbit, orbit.perigeeKm);
  double step = StepWithinS(sample, orbit, always);
  const double lowestKm = kLocalRadius * orbit.radiusKm;
  if (lowestKm > orbit.perigeeKm) step = std::max(step, StepWithinS(sample, orbit, LimitsWithin(orbit, lowestKm)));
  if (sample.aboveKm < 0) {
    step = std::max({step, UntilPlaneIsNearS(sample, orbit), UntilSatelliteIsNearS(sample, orbit, always)});
  }
  return std::clamp(step, LeastStepS(orbit, always), kLongestStepS);
}

double HorizonWatch::TimeToTurnS(const HorizonSample& sample, double angleRad) const {
  const Vec3 momentum = Cross(sample.positionKm, sample.velocityKmS);
  return angleRad / (Length(momentum) / Dot(sample.positionKm, sample.positionKm) + kEarthRotationRadS);
}

bool HorizonWatch::NeverVisible(const HorizonSample& sample) const {
  const Orbit orbit = OrbitOf(sample);
  const double reach = SafeArcCos(planeKm_ / (orbit.apogeeKm * (1 + kNeverRadiusRoom))) + kNeverAngleRoomRad;
  const double nearest = std::abs(sinLatitude_ * orbit.normal.z) - cosLatitude_ * orbit.sinInclination;
  return reach < kTurn / 4 && nearest > std::sin(reach);
}

}  // namespace kestrava::orbit
