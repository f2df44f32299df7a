// A circle on the ground around a sub-point: the footprint of a satellite, and the terminator as the footprint of a
// very high Sun. On a spherical Earth; the points are independent of one another, so a circle across the date line or
// around a pole needs no special case.
#pragma once

#include "orbit/Tables.h"
#include "orbit/Vec3.h"
#include "platform/Fault.h"

namespace kestrava::views2d {

class SmallCircle {
 public:
  /// @param lonDeg        west positive; the points come out in the same sense
  /// @param halfAngleRad  as seen from the centre of the Earth
  SmallCircle(double latDeg, double lonDeg, double halfAngleRad);

  /// The point at an angle around the circle, 0 towards the north; on the unit sphere.
  orbit::Vec3 PointAt(double angleRad) const;

 private:
  double sinLat_, cosLat_, sinLon_, cosLon_, sinB_, cosB_;
};

/// The angle from the centre of the Earth over which a body is above the horizon.
/// @param distanceKm  of the body from the centre
/// @throws platform::Fault  for a distance of the Earth's radius or less
double HorizonHalfAngle(double distanceKm);

/// Writes a point of the unit sphere into a row, in degrees. What cannot be computed (the latitude of a point exactly
/// on a pole) is logged, and keeps the value it had.
void StorePoint(const platform::FaultTrap& trap, const orbit::Vec3& point, orbit::PointRec& row);

}  // namespace kestrava::views2d
