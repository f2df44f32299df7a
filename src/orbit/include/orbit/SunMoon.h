// Where the Sun and the Moon stand: apparent topocentric places for one observer and moment, without refraction.
// Called by the engine for the names "sun" and "moon", and by searches that step the Sun through a day.
//
// Models: Earth's orbit VSOP2000 (Moisson and Bretagnon 2001), Moon ELP2000-82 abridged (Meeus 1998, ch. 47),
// precession and nutation IAU 2000B, sidereal time IAU 2000, all as ERFA has them. Universal Time stands for UT1, polar
// motion is left out. Precession, nutation, light time, aberration and parallax are applied. Good for 1972 to 2100 to
// 0.0005 degrees for the Sun and 0.004 for the Moon; the difference of UT1 from UTC, at most 0.9 s, would add 0.004.
#pragma once

#include "orbit/Observer.h"

namespace kestrava::orbit {

/// What is common to Sun and Moon. Angles in radians: azimuth from north through east in [0, 2 pi), elevation negative
/// below the horizon. The sub-point is where the body stands in the zenith: geodetic latitude north positive and east
/// longitude in [0, 2 pi), on the WGS-84 ellipsoid.
struct BodyPlace {
  double azimuthRad = 0;
  double elevationRad = 0;
  double rangeKm = 0;       ///< from the observer
  double rangeRateKmS = 0;  ///< of the above, positive when receding
  double subLatitudeRad = 0;
  double subLongitudeRad = 0;
  double heightKm = 0;      ///< above the ellipsoid at the sub-point
  double distanceKm = 0;    ///< from the Earth's centre
  bool descending = false;  ///< the sub-point moves south
};

/// The Moon has a phase angle too: apparent ecliptic longitude of the Moon minus that of the Sun, taken into
/// [0, 2 pi), minus pi. So -pi at new moon, 0 at full moon, negative while waxing.
struct MoonPlace : BodyPlace {
  double phaseRad = 0;
};

/// @param utcSerial  serial date, Universal Time
/// @throws platform::Fault "Overflow" where it is no date
MoonPlace PlaceOfMoon(double utcSerial, const Observer& observer);

/// @param utcSerial  serial date, Universal Time
/// @throws platform::Fault "Overflow" where it is no date
BodyPlace PlaceOfSun(double utcSerial, const Observer& observer);

/// The most that the Sun's elevation can change in a minute at a latitude, degrees: the turn of the observer's
/// vertical, 0.2507 times the cosine of the latitude, and the Sun's own way among the stars. A search may skip
/// |elevation| divided by this without passing a sunrise or sunset.
double SunElevationRateBoundDegPerMin(double latitudeDeg);

}  // namespace kestrava::orbit
