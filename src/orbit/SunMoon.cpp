#include "orbit/SunMoon.h"

#include <array>
#include <cmath>

#include <erfa.h>

#include "orbit/Frames.h"
#include "orbit/TerrestrialTime.h"

#include "SkyFrame.h"

namespace kestrava::orbit {
namespace {

constexpr double kAuKm = 149597870.7;
constexpr double kLightKmS = 299792.458;
constexpr double kSecondsPerDay = 86400.0;
constexpr double kSerialToJulian = 2415018.5;

// A body as seen from the Earth's centre: apparent position and velocity, true equator and equinox of date.
struct Geocentric {
  Vec3 km;
  Vec3 kmS;
};

Vec3 Turned(const std::array<Vec3, 3>& rows, const Vec3& v) {
  return {Dot(rows[0], v), Dot(rows[1], v), Dot(rows[2], v)};
}

// The Sun hardly moves in the barycentric frame, so its light time is nothing and all is aberration, first order in
// v/c.
Geocentric SunFromCentre(const SkyFrame& frame) {
  const Vec3 km = -kAuKm * frame.earthFromSunAu;
  const Vec3 kmS = -kAuKm / kSecondsPerDay * frame.earthFromSunAuD;
  const double distance = Length(km);
  const Vec3 apparent = km + distance / kLightKmS * kAuKm / kSecondsPerDay * frame.earthVelocityAuD;
  return {Turned(frame.trueOfDate, distance / Length(apparent) * apparent), Turned(frame.trueOfDate, kmS)};
}

// For the Moon light time and aberration together are its own way round the Earth during the light time.
Geocentric MoonFromCentre(double utcSerial, const SkyFrame& frame) {
  const double day = std::floor(utcSerial);
  double pv[2][3];  // NOLINT(modernize-avoid-c-arrays): ERFA's form
  eraMoon98(kSerialToJulian + day, utcSerial - day + TerrestrialMinusUniversalS(utcSerial) / kSecondsPerDay, pv);
  const Vec3 km = kAuKm * Vec3{pv[0][0], pv[0][1], pv[0][2]};
  const Vec3 kmS = kAuKm / kSecondsPerDay * Vec3{pv[1][0], pv[1][1], pv[1][2]};
  return {Turned(frame.trueOfDate, km - Length(km) / kLightKmS * kmS), Turned(frame.trueOfDate, kmS)};
}

void SetSubPoint(const Geocentric& body, const Vec3& earthFixedKm, BodyPlace& place) {
  const Geodetic below = GeodeticFromEarthFixed(earthFixedKm);
  place.subLatitudeRad = below.latitudeRad;
  place.subLongitudeRad = below.longitudeRad;
  place.heightKm = below.heightKm;
  place.distanceKm = Length(earthFixedKm);
  // sign of the rate of the declination
  place.descending = body.kmS.z * Dot(body.km, body.km) < body.km.z * Dot(body.km, body.kmS);
}

void SetLook(const Observer& observer, const EarthFixedState& body, BodyPlace& place) {
  const Site site = Site::Of(observer);
  const Vec3 siteKmS = kEarthRotationRadS * Vec3{-site.positionKm.y, site.positionKm.x, 0};
  const LookAngle geometric = LookFrom(site, body);
  const Vec3 dailyAberration = geometric.rangeKm / kLightKmS * siteKmS;
  const LookAngle apparent = LookFrom(site, {body.positionKm + dailyAberration, body.velocityKmS});
  place.azimuthRad = apparent.azimuthRad;
  place.elevationRad = apparent.elevationRad;
  place.rangeKm = geometric.rangeKm;
  place.rangeRateKmS = geometric.rangeRateKmS;
}

void SetPlace(const Geocentric& body, const SkyFrame& frame, const Observer& observer, BodyPlace& place) {
  const EarthFixedState fixed = EarthFixedFromTeme(EarthTurn::At(frame.siderealRad), body.km, body.kmS);
  SetSubPoint(body, fixed.positionKm, place);
  SetLook(observer, fixed, place);
}

double EclipticLongitude(const Vec3& v, double obliquityRad) {
  return std::atan2(v.y * std::cos(obliquityRad) + v.z * std::sin(obliquityRad), v.x);
}

}  // namespace

BodyPlace PlaceOfSun(double utcSerial, const Observer& observer) {
  const SkyFrame frame = SkyFrameAt(utcSerial);
  BodyPlace place;
  SetPlace(SunFromCentre(frame), frame, observer, place);
  return place;
}

MoonPlace PlaceOfMoon(double utcSerial, const Observer& observer) {
  const SkyFrame frame = SkyFrameAt(utcSerial);
  const Geocentric moon = MoonFromCentre(utcSerial, frame);
  MoonPlace place;
  SetPlace(moon, frame, observer, place);
  const double sunLongitude = EclipticLongitude(SunFromCentre(frame).km, frame.obliquityRad);
  const double apart = EclipticLongitude(moon.km, frame.obliquityRad) - sunLongitude;
  place.phaseRad = WrapTurn(apart) - kHalfTurn;
  return place;
}

double SunElevationRateBoundDegPerMin(double latitudeDeg) {
  constexpr double kTurnDegPerMin = kEarthRotationRadS * 60 / kRadPerDeg;
  constexpr double kSunWayDegPerMin = 1.03 / 1440;  // at perihelion, with room for the parallax
  return kTurnDegPerMin * std::abs(std::cos(latitudeDeg * kRadPerDeg)) + kSunWayDegPerMin;
}

}  // namespace kestrava::orbit
