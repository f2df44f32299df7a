// The step from Universal Time to the even time scale of the Sun and Moon theories, by the table of leap seconds.
// Called by the Sun and Moon places; nothing else on this floor needs it (satellites are propagated in UTC).
#pragma once

namespace kestrava::orbit {

/// Terrestrial minus Universal Time in seconds: 32.184 plus the leap seconds of the given serial date (UTC).
/// Before 1972, when the leap seconds began, the first value holds; after the last entry the last one holds.
/// Source: IERS Bulletin C; the last leap second so far is that of the end of 2016.
double TerrestrialMinusUniversalS(double utcSerial);

}  // namespace kestrava::orbit
