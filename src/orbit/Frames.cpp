#include "orbit/Frames.h"

#include <cmath>

#include "platform/SerialDate.h"

namespace kestrava::orbit {
namespace {

constexpr double kJulianOfSerialZero = 2415018.5;
constexpr double kJulianOf2000 = 2451545;
constexpr double kEccentricitySquared = kWgs84Flattening * (2 - kWgs84Flattening);
constexpr double kPolarRadiusKm = kWgs84RadiusKm * (1 - kWgs84Flattening);

}  // namespace

JulianDate JulianFromSerial(double utcSerial) {
  const double whole = std::floor(utcSerial);
  return {whole + kJulianOfSerialZero, utcSerial - whole};
}

double SerialFromJulian(const JulianDate& utc) {
  return (utc.midnight - kJulianOfSerialZero) + utc.dayFraction;
}

double WrapTurn(double angleRad) {
  const double wrapped = angleRad - kTurn * std::floor(angleRad / kTurn);
  return wrapped < kTurn ? (wrapped >= 0 ? wrapped : 0) : 0;
}

double WrapHalfTurn(double angleRad) {
  return angleRad - kTurn * std::floor(angleRad / kTurn + 0.5);
}

double GreenwichMeanSiderealTime(const JulianDate& ut1) {
  const double midnightDays = ut1.midnight - kJulianOf2000;  // ends in .5
  const double c = (midnightDays + ut1.dayFraction) / 36525;
  const double seconds = 67310.54841 + (8640184.812866 + (0.093104 - 6.2e-6 * c) * c) * c;
  // the series' large term, 876600 hours a century, is one turn a day: its whole turns drop out
  const double turns = (midnightDays - std::floor(midnightDays)) + ut1.dayFraction + seconds / platform::kSecondsPerDay;
  return (turns - std::floor(turns)) * kTurn;
}

double GreenwichMeanSiderealTime(double utcSerial) {
  return GreenwichMeanSiderealTime(JulianFromSerial(utcSerial));
}

EarthTurn EarthTurn::At(double siderealTimeRad) {
  return {std::sin(siderealTimeRad), std::cos(siderealTimeRad)};
}

Vec3 EarthFixedFromTeme(const EarthTurn& turn, const Vec3& teme) {
  return {turn.cosine * teme.x + turn.sine * teme.y, turn.cosine * teme.y - turn.sine * teme.x, teme.z};
}

EarthFixedState EarthFixedFromTeme(const EarthTurn& turn, const Vec3& positionTemeKm, const Vec3& velocityTemeKmS) {
  const Vec3 r = EarthFixedFromTeme(turn, positionTemeKm);
  const Vec3 v = EarthFixedFromTeme(turn, velocityTemeKmS);
  return {r, {v.x + kEarthRotationRadS * r.y, v.y - kEarthRotationRadS * r.x, v.z}};
}

Geodetic GeodeticFromEarthFixed(const Vec3& r) {
  const double p = std::sqrt(r.x * r.x + r.y * r.y);
  // tangent of the parametric latitude, improved twice; sine and cosine of it from one square root each
  double sinLat = 0, cosLat = 1;
  double top = r.z * kWgs84RadiusKm, bottom = p * kPolarRadiusKm;
  for (int i = 0; i < 3; ++i) {
    const double size = std::sqrt(top * top + bottom * bottom);
    const double s = size > 0 ? top / size : 0, c = size > 0 ? bottom / size : 1;
    sinLat = r.z + kEccentricitySquared / (1 - kEccentricitySquared) * kPolarRadiusKm * s * s * s;
    cosLat = p - kEccentricitySquared * kWgs84RadiusKm * c * c * c;
    top = (1 - kWgs84Flattening) * sinLat;
    bottom = cosLat;
  }
  const double size = std::sqrt(sinLat * sinLat + cosLat * cosLat);
  if (!(size > 0)) return {};
  const double latitude = std::atan2(sinLat, cosLat);
  sinLat /= size;
  cosLat /= size;
  const double curvature = std::sqrt(1 - kEccentricitySquared * sinLat * sinLat);
  double longitude = std::atan2(r.y, r.x);
  if (longitude < 0) longitude += kTurn;
  return {latitude, longitude < kTurn ? longitude : 0, p * cosLat + r.z * sinLat - kWgs84RadiusKm * curvature};
}

Vec3 EarthFixedFromGeodetic(const Geodetic& place) {
  const double sinLat = std::sin(place.latitudeRad), cosLat = std::cos(place.latitudeRad);
  const double n = kWgs84RadiusKm / std::sqrt(1 - kEccentricitySquared * sinLat * sinLat);
  const double outwards = (n + place.heightKm) * cosLat;
  return {outwards * std::cos(place.longitudeRad), outwards * std::sin(place.longitudeRad),
          (n * (1 - kEccentricitySquared) + place.heightKm) * sinLat};
}

Site Site::Of(const Observer& observer) {
  const double lat = observer.latitudeDeg * kRadPerDeg, lon = observer.longitudeEastDeg * kRadPerDeg;
  const double sinLat = std::sin(lat), cosLat = std::cos(lat), sinLon = std::sin(lon), cosLon = std::cos(lon);
  constexpr double kMetresPerKm = 1000;
  return {EarthFixedFromGeodetic({lat, lon, observer.heightM / kMetresPerKm}),
          {-sinLon, cosLon, 0},
          {-sinLat * cosLon, -sinLat * sinLon, cosLat},
          {cosLat * cosLon, cosLat * sinLon, sinLat}};
}

LookAngle LookFrom(const Site& site, const EarthFixedState& body) {
  const Vec3 d = body.positionKm - site.positionKm;
  const double rangeKm = Length(d);
  const double east = Dot(d, site.east), north = Dot(d, site.north), up = Dot(d, site.up);
  double azimuth = std::atan2(east, north);
  if (azimuth < 0) azimuth += kTurn;
  return {azimuth < kTurn ? azimuth : 0, std::atan2(up, std::sqrt(east * east + north * north)), rangeKm,
          rangeKm > 0 ? Dot(d, body.velocityKmS) / rangeKm : 0};
}

LookAngle LookFrom(const Observer& observer, const EarthFixedState& body) {
  return LookFrom(Site::Of(observer), body);
}

double SineOfElevation(const Site& site, const Vec3& earthFixedKm) {
  const Vec3 d = earthFixedKm - site.positionKm;
  return Dot(d, site.up) / Length(d);
}

}  // namespace kestrava::orbit
