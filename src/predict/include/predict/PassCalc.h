// The passes of a satellite over the engine's observer. CalcResults makes the rows of the pass window and its jobs, for
// one local day, by the system's own rules; FindPasses gives the same passes to the command line as numbers, in full
// precision and Universal Time.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/Satcalc.h"
#include "platform/SerialDate.h"
#include "predict/PassTable.h"

namespace kestrava::predict {

/// What a user would wonder about, counted while rows are built. Tallies of several calculations add up.
struct PassTally {
  int listed = 0;            ///< rows added
  int belowMinimum = 0;      ///< passes of the day that the setting WxEL left out
  int notVisible = 0;        ///< passes that "visible only" left out
  int unknown = 0;           ///< calculations for a name that the engine does not know
  bool otherOffset = false;  ///< the day has another UTC offset than today, whose offset the rows carry

  PassTally& operator+=(const PassTally& more);
};

/// What a tally is about.
struct PassSubject {
  std::string name;                   ///< a satellite's, or "the job 'Week'"
  platform::SerialDate firstDay = 0;  ///< local midnight
  int days = 1;
};

/// One or two sentences for the status line below the list: "8 passes of ISS (ZARYA) on 21 NOV 2026, 15 rows in the
/// list."
/// @param rowsInList  after the calculation; not told where the list holds nothing else
std::string StatusText(const PassTally& tally, const PassSubject& subject, int rowsInList);

/// Appends a row for each pass over the observer that ends on a local day (only the day of the month is compared) and
/// reaches the minimum elevation (setting WxEL). Rows that are there already stay. SelSatName and the result block
/// follow the last pass, and are not put back. While rows are built the pass window counts as visible for Satcalc, so
/// that no row costs a search for the next rise.
/// @param visibleOnly  leaves out rows whose last cell is "No "
/// @note does not yield. Faults are logged under "PassPred-CalcResults" and cost their statement only: what it should
///   have set keeps the value of the entry before.
PassTally CalcResults(const orbit::Sky& sky, PassTable& table, std::string_view SatName, std::int16_t Day,
                      std::int16_t Month, std::int16_t Year, bool visibleOnly);

/// The same from the text of a pass list, for tests and the fuzzer: whatever it holds, some rows come out of it.
PassTally RowsFromPassList(const orbit::Sky& sky, PassTable& table, std::string_view SatName, std::int16_t Day,
                           std::string_view passList, bool visibleOnly);

/// Whether a duration counts as "up all day": the hour of its time of day, 0 to 23, is above 10.
bool IsAllDay(platform::SerialDate duration);

/// Whether the sky is dark enough, and not too dark: the Sun from -18.0 to -6.0 degrees, both ends included.
bool IsTwilight(double sunElevationDeg);

/// The whole degrees of a highest elevation, as every list of passes shows and compares them: rounded to the four
/// decimals of the engine's pass list, then down.
double WholeDegrees(double elevationDeg);

/// A pass in numbers. Moments are Universal Time; azimuths and elevations degrees.
struct PassFacts {
  std::string satellite;  ///< as asked for
  int catalogueNumber = 0;
  int revolution = 0;  ///< orbit number at the highest point
  platform::SerialDate riseUtc = 0;
  platform::SerialDate highestUtc = 0;
  platform::SerialDate setUtc = 0;
  double highestElevationDeg = 0;
  double riseAzimuthDeg = 0;
  double highestAzimuthDeg = 0;
  double setAzimuthDeg = 0;
  bool allDay = false;  ///< by its length: shown as up all day, whether or not it rises and sets
  bool sunlit = false;  ///< at the start or the end
  bool visible = false;
};

/// The passes that are under way at a moment or start within some days after it, in order of time, by the same rules
/// for sunlight and visibility as the rows.
/// @param minimumElevationDeg  passes whose whole degrees are below it are left out; one exactly at it stays
/// @throws platform::Fault  no such satellite
/// @note the observer of the engine is moved and put back; no tables are touched
std::vector<PassFacts> FindPasses(orbit::OrbitEngine& engine, std::string_view satellite, platform::SerialDate fromUtc,
                                  double days, double minimumElevationDeg);

}  // namespace kestrava::predict
