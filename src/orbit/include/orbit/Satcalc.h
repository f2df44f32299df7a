// The one door to the orbit engine for a position: every window calls Satcalc with a name and a local date and time,
// then copies what it needs from the one result block. Also the local-time wrappers of the engine's searches, and
// today's sunrise and sunset.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "orbit/Tables.h"
#include "platform/SerialDate.h"

namespace kestrava::orbit {

class OrbitEngine;

/// What a calculation works on: the shared tables and the engine with its observer.
struct Sky {
  Tables& tables;
  OrbitEngine& engine;
};

/// The global engine through which all positions, rises, sets and pass lists go; made and released by the launcher.
extern std::unique_ptr<OrbitEngine> Engine;

/// The sky of the run. @throws platform::Fault "Object variable not set" while there is no engine
Sky TheSky();

/// Computes the result block for a satellite, "sun" or "moon".
/// @param local  local date and time; every part a 16-bit field, which may lie outside its range and rolls over
/// @param extended  asks for sunlight, visibility, next rise and next set; only the selected satellite gets them
/// @return false if the engine gave no position; the block then holds leftovers. It is logged: an unknown name each
/// time, elements that give nothing for the moment once a day
bool Satcalc(const Sky& sky, std::string_view name, const platform::DateParts& local, bool extended);

/// Longitude as the system has it, degrees west positive, of one as the engine has it, radians east positive: 0 east is
/// 360.
double LonWestFromEast(double lonEastRad);

/// Whether a satellite counts as sunlit, by the Sun's elevation at the point below it: at exactly -18 it is eclipsed.
/// This one fixed depression is the whole test, the Earth's shadow has no part in it.
bool IsSunlit(double sunElevationDeg);

/// Whether a satellite can be seen by eye: neither full night nor daylight (both ends count), itself lit, and above the
/// horizon.
/// @param sunElevationDeg  at the observer
bool IsVisibleByEye(double sunElevationDeg, bool sunlit, double satelliteElevationDeg);

/// Orbit phase, revolutions [0, 1), on the scale of 0 to 255, held to two decimals.
double PhaseOn255(double fraction);
/// The same in degrees, as "0.00".
std::string PhaseInDegrees(double fraction);

/// Next rise or set from now, local time. No rise (-1.0) is not treated here: it turns into a meaningless local time.
platform::SerialDate NextAOS(const Sky& sky, std::string_view name);
platform::SerialDate NextLOS(const Sky& sky, std::string_view name);

/// The first sampled minute past sunrise (searched from today's midnight) or sunset (from noon), plus one minute,
/// local. Where the Sun does not rise or set the search goes on into the following days until it does; minutes that its
/// greatest rate rules out are passed over.
platform::SerialDate TodaySunrise(const Sky& sky);
platform::SerialDate TodaySunset(const Sky& sky);

}  // namespace kestrava::orbit
