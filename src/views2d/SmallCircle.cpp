#include "SmallCircle.h"

#include <cmath>

#include "orbit/Angles.h"

namespace kestrava::views2d {

SmallCircle::SmallCircle(double latDeg, double lonDeg, double halfAngleRad)
    : sinLat_(std::sin(orbit::DegToRad(latDeg))),
      cosLat_(std::cos(orbit::DegToRad(latDeg))),
      sinLon_(std::sin(orbit::DegToRad(lonDeg))),
      cosLon_(std::cos(orbit::DegToRad(lonDeg))),
      sinB_(std::sin(halfAngleRad)),
      cosB_(std::cos(halfAngleRad)) {}

orbit::Vec3 SmallCircle::PointAt(double angleRad) const {
  const double cosA = std::cos(angleRad);
  const double x1 = cosB_ * cosLat_ - sinB_ * cosA * sinLat_;
  const double z = cosB_ * sinLat_ + sinB_ * cosA * cosLat_;
  const double y2 = sinB_ * std::sin(angleRad);
  return {x1 * cosLon_ - y2 * sinLon_, x1 * sinLon_ + y2 * cosLon_, z};
}

double HorizonHalfAngle(double distanceKm) {
  return orbit::ArcCos(platform::Divide(orbit::kEarthRadiusKm, distanceKm));
}

void StorePoint(const platform::FaultTrap& trap, const orbit::Vec3& point, orbit::PointRec& row) {
  trap([&] { row.lon = orbit::RadToDeg(orbit::ArcTan2(point.y, point.x)); });
  trap([&] { row.lat = orbit::RadToDeg(orbit::ArcSin(point.z)); });
}

}  // namespace kestrava::views2d
