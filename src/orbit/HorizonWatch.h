// The geometry behind the searches for rises and sets: where a satellite stands relative to an observer's horizon at a
// moment, and for how long it surely stays on that side of it. Time runs forwards or, for the rise of a pass under way,
// backwards; then all velocities are turned round and the same bounds hold.
#pragma once

#include "orbit/Frames.h"
#include "orbit/Sgp4.h"

namespace kestrava::orbit {

/// The satellite at one moment, in TEME axes, relative to the plane of the horizon.
struct HorizonSample {
  double elapsedS = 0;  ///< from the start of the search, in its direction
  double aboveKm = 0;   ///< height over the plane of the horizon: 0 at elevation 0
  double climbKmS = 0;  ///< its rate
  Vec3 zenith;          ///< of the observer, unit vector
  Vec3 positionKm;
  Vec3 velocityKmS;
  bool valid = false;  ///< false where the model gives no state
};

/// Sine of the elevation and its rate a second.
struct ElevationSine {
  double value = 0;
  double ratePerS = 0;
};

class HorizonWatch {
 public:
  /// @param direction  1 to search forwards, -1 backwards
  HorizonWatch(const Sgp4& satellite, const Observer& observer, double startSerial, int direction);

  HorizonSample At(double elapsedS) const;

  ElevationSine ElevationOf(const HorizonSample& sample) const;

  /// A time during which the satellite surely stays on its side of the horizon, seconds. Near a crossing a least step
  /// is given instead, within which it could climb over the horizon and sink again, or dip below it, by no more than
  /// 0.01 degrees.
  double SafeStepS(const HorizonSample& sample) const;

  /// A time in which the direction to the satellite, seen from the Earth's centre, turns by about an angle; seconds.
  double TimeToTurnS(const HorizonSample& sample, double angleRad) const;

  /// Whether the satellite can never come above the horizon, whatever the hour: its orbit does not reach far enough
  /// towards the observer's latitude.
  bool NeverVisible(const HorizonSample& sample) const;

 private:
  struct Orbit;
  struct Limits;
  Orbit OrbitOf(const HorizonSample& sample) const;
  double LeastStepS(const Orbit& orbit, const Limits& limits) const;
  double StepWithinS(const HorizonSample& sample, const Orbit& orbit, const Limits& limits) const;
  Limits LimitsWithin(const Orbit& orbit, double lowestKm) const;
  double StepBelowS(const HorizonSample& sample, const Orbit& orbit, const Limits& limits) const;
  double StepAboveS(const HorizonSample& sample, const Orbit& orbit, const Limits& limits) const;
  double UntilPlaneIsNearS(const HorizonSample& sample, const Orbit& orbit) const;
  double UntilSatelliteIsNearS(const HorizonSample& sample, const Orbit& orbit, const Limits& limits) const;

  const Sgp4& satellite_;
  double startMinutes_ = 0;
  double direction_ = 1;
  double startSiderealRad_ = 0;
  double longitudeRad_ = 0;
  double cosLatitude_ = 1;  // of the zenith, geodetic
  double sinLatitude_ = 0;
  double planeKm_ = 0;    // distance of the horizon plane from the Earth's centre
  double siteOutKm_ = 0;  // the observer's distance from the axis
  double siteUpKm_ = 0;   // and from the equator
};

}  // namespace kestrava::orbit
