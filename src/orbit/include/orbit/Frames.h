#pragma once

// Times, frames and the observer: from serial dates to sidereal time, from the model's frame to the Earth's, to the
// point below the satellite and to the look direction from a place. UT1 is taken as UTC, there is no polar motion, no
// light time and no refraction. Called by the engine, the searches, and the Sun and Moon.

#include <numbers>

#include "orbit/Observer.h"
#include "orbit/Vec3.h"

namespace kestrava::orbit {

inline constexpr double kHalfTurn = std::numbers::pi;  ///< radians
inline constexpr double kTurn = 2 * std::numbers::pi;  ///< radians
inline constexpr double kRadPerDeg = kHalfTurn / 180;

/// Equatorial radius (km) and flattening of the ellipsoid of WGS-84.
inline constexpr double kWgs84RadiusKm = 6378.137;
inline constexpr double kWgs84Flattening = 1 / 298.257223563;

/// Rate of the mean sidereal time of 1982, radians a second.
inline constexpr double kEarthRotationRadS = 7.292115855306589e-5;

/// Julian date in two parts, so that the second one keeps its full resolution.
struct JulianDate {
  double midnight = 0;     ///< Julian date of 0h, ends in .5
  double dayFraction = 0;  ///< [0, 1)
};

/// Julian date of a serial date (days since 1899-12-30 0h), both UTC.
JulianDate JulianFromSerial(double utcSerial);

/// Serial date of a Julian date, to 0.6 microseconds.
double SerialFromJulian(const JulianDate& utc);

/// Angle reduced to [0, 2 pi).
double WrapTurn(double angleRad);

/// Angle reduced to [-pi, pi).
double WrapHalfTurn(double angleRad);

/// Greenwich mean sidereal time, radians in [0, 2 pi).
/// @param ut1  universal time; UTC is good enough here
/// Source: IAU 1982 (Aoki et al., 1982).
double GreenwichMeanSiderealTime(const JulianDate& ut1);

/// The same for a serial date.
double GreenwichMeanSiderealTime(double utcSerial);

/// A turn about the Earth's axis, kept as sine and cosine because many points are turned by one angle.
struct EarthTurn {
  double sine = 0;
  double cosine = 1;

  static EarthTurn At(double siderealTimeRad);
};

/// Position and velocity in a frame that turns with the Earth; the velocity is the one seen from the ground.
struct EarthFixedState {
  Vec3 positionKm;
  Vec3 velocityKmS;
};

/// From TEME to the Earth-fixed frame, by the one turn through sidereal time.
Vec3 EarthFixedFromTeme(const EarthTurn& turn, const Vec3& teme);
EarthFixedState EarthFixedFromTeme(const EarthTurn& turn, const Vec3& positionTemeKm, const Vec3& velocityTemeKmS);

/// A point over the ellipsoid of WGS-84.
struct Geodetic {
  double latitudeRad = 0;   ///< geodetic, north positive
  double longitudeRad = 0;  ///< east positive, [0, 2 pi)
  double heightKm = 0;
};

/// Latitude, longitude and height of a point.
/// @param earthFixedKm  not the Earth's centre; within some 40 km of it the result means little
/// @note the error is below 1e-11 rad from the ground to the Moon; Bowring 1976, 1985
Geodetic GeodeticFromEarthFixed(const Vec3& earthFixedKm);

/// Earth-fixed position, km.
Vec3 EarthFixedFromGeodetic(const Geodetic& place);

/// An observer made ready for many look angles: his place and the three directions of his horizon.
struct Site {
  Vec3 positionKm;  ///< Earth-fixed
  Vec3 east;        ///< unit vectors, Earth-fixed
  Vec3 north;
  Vec3 up;

  static Site Of(const Observer& observer);
};

/// Where a body stands as seen from a place.
struct LookAngle {
  double azimuthRad = 0;    ///< from north through east, [0, 2 pi)
  double elevationRad = 0;  ///< no refraction, negative below the horizon
  double rangeKm = 0;       ///< slant range
  double rangeRateKmS = 0;  ///< positive when receding
};

/// Look direction from a place. Topocentric frame, Vallado 2013, sec. 4.4.
/// @param body  Earth-fixed; the velocity counts for the range rate only
LookAngle LookFrom(const Site& site, const EarthFixedState& body);
LookAngle LookFrom(const Observer& observer, const EarthFixedState& body);

/// Sine of the elevation alone, for searches.
double SineOfElevation(const Site& site, const Vec3& earthFixedKm);

}  // namespace kestrava::orbit
