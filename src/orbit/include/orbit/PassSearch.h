// Rises, sets and passes of a satellite over a place. Called by the engine for its searches and its pass list.
//
// The horizon is elevation 0, without refraction. A search leaps from moment to moment by bounds on how soon the
// satellite can reach the horizon, so it is fast and yet misses no pass that climbs above 0.05 degrees; it answers only
// moments where the model itself crosses the horizon, so it invents none. Times are good to 1e-4 s.
#pragma once

#include <vector>

#include "orbit/Observer.h"
#include "orbit/Sgp4.h"

namespace kestrava::orbit {

inline constexpr double kNoSuchMoment = -1.0;   ///< what a search answers when there is no such rise or set
inline constexpr double kSearchAheadDays = 30;  ///< how far a search looks before it says so

/// A stay above the horizon. All moments are serial dates, Universal Time.
struct Pass {
  double riseSerial = 0;
  double setSerial = 0;
  double highestSerial = 0;        ///< where it stands highest
  double highestElevationRad = 0;  ///< there
};

/// The next rise after a moment; of a satellite in view that is the rise after its next set.
/// @return serial date, UTC, just above the horizon; kNoSuchMoment if there is none in 30 days, or if the model gives
///   no state before one is found
double NextRise(const Sgp4& satellite, const Observer& observer, double utcSerial);

/// The next set after a moment: the end of the pass under way, or else of the next one.
/// @return serial date, UTC, just below the horizon; kNoSuchMoment as above
double NextSet(const Sgp4& satellite, const Observer& observer, double utcSerial);

/// The passes that are under way at a moment or start within some days after it, in order of time. A pass under way
/// stands with its true rise. A stay whose rise or set does not come within 30 days (a geostationary satellite, or one
/// whose elements end) is given by day: each UTC day that begins in the span and lies wholly above the horizon counts
/// as a pass from 06:00 to 18:00, which falls on exactly one day in every time zone.
std::vector<Pass> Passes(const Sgp4& satellite, const Observer& observer, double fromSerial, double days);

}  // namespace kestrava::orbit
