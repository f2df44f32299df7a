#include "predict/PassCalc.h"

#include <cmath>

#include "orbit/Frames.h"
#include "orbit/OrbitEngine.h"
#include "orbit/PassSearch.h"
#include "orbit/TextHelpers.h"
#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Settings.h"
#include "platform/Text.h"

#include "BuildingRows.h"

namespace kestrava::predict {

using platform::Format;
using platform::ParseNumber;
using platform::SerialDate;
using platform::ToInt16;

namespace {

constexpr platform::FaultTrap kTrap{"PassPred-CalcResults"};

/// One moment of a pass, local time. The fields always come from breaking down `When`.
struct PassTimeRec {
  std::int16_t Year = 0;
  std::int16_t Month = 0;
  std::int16_t Day = 0;
  std::int16_t Hour = 0;
  std::int16_t Minute = 0;
  std::int16_t Second = 0;
  SerialDate When = 0;

  platform::DateParts Parts() const { return {Year, Month, Day, Hour, Minute, Second}; }
  void BreakDown() {
    const platform::DateParts parts = platform::SplitSerial(When);
    Year = ToInt16(parts.year);
    Month = ToInt16(parts.month);
    Day = ToInt16(parts.day);
    Hour = ToInt16(parts.hour);
    Minute = ToInt16(parts.minute);
    Second = ToInt16(parts.second);
  }
};

std::string Field(std::string_view entry, int number) {
  return orbit::GetDelimitedWord(entry, number, " ");
}

/// Fields 1, 4 and 5 of an entry of the pass list. @throws platform::Fault "Type mismatch", "Overflow", ...
SerialDate StartOf(std::string_view entry) {
  const std::string digits = Field(entry, 1);
  const auto part = [&](int from, int count) { return ToInt16(ParseNumber(platform::Mid(digits, from, count))); };
  return orbit::UTCToLocal(
      platform::MakeSerial({part(1, 4), part(5, 2), part(7, 2), part(9, 2), part(11, 2), part(13, 2)}));
}

std::int16_t MaxElevationOf(std::string_view entry) {
  return ToInt16(WholeDegrees(ParseNumber(Field(entry, 4))));
}

SerialDate DurationOf(std::string_view entry) {
  return platform::ToInt32(ParseNumber(Field(entry, 5))) / platform::kSecondsPerDay;
}

/// Builds the rows of one list. What a failing statement should have set keeps the value of the entry before, so the
/// variables live as long as the list.
class RowBuilder {
 public:
  RowBuilder(const orbit::Sky& sky, PassTable& table, std::string_view name, std::int16_t day, bool visibleOnly)
      : sky_(sky), table_(table), name_(name), day_(day), visibleOnly_(visibleOnly) {}

  void TakeEntry(std::string_view entry) {
    kTrap([&] { start_.When = StartOf(entry); });
    kTrap([&] { start_.BreakDown(); });
    kTrap([&] { maxElevation_ = MaxElevationOf(entry); });
    bool below = false;
    kTrap([&] { below = platform::ReadNumberSetting("WxEL", "0") > maxElevation_; });
    if (below) {
      CountBelowMinimum(entry);
      return;
    }
    kTrap([&] { duration_ = DurationOf(entry); });
    middle_.When = start_.When + duration_ / 2;
    end_.When = start_.When + duration_;
    kTrap([&] { end_.BreakDown(); });
    kTrap([&] { middle_.BreakDown(); });
    if (end_.Day != day_) return;  // the day of the month alone, and that of the end
    AskForTheEnds();
    AddRow();
  }

  const PassTally& Tally() const { return tally_; }

 private:
  /// For the status line only: an entry that is left out changes none of the variables.
  void CountBelowMinimum(std::string_view entry) {
    try {
      PassTimeRec end;
      end.When = start_.When + DurationOf(entry);
      end.BreakDown();
      if (end.Day == day_) ++tally_.belowMinimum;
    } catch (const platform::Fault&) {
      return;
    }
  }

  double AzimuthAt(const PassTimeRec& moment, bool extended) {
    sky_.tables.SelSatName = name_;
    orbit::Satcalc(sky_, name_, moment.Parts(), extended);
    return sky_.tables.result.SatAz;
  }

  /// The highest point is taken to be the middle in time, which is not looked at for sunlight.
  void AskForTheEnds() {
    kTrap([&] { startAzimuth_ = ToInt16(AzimuthAt(start_, true)); });
    sunlit_ = sky_.tables.result.SatSunlit != 0;
    kTrap([&] { endAzimuth_ = ToInt16(AzimuthAt(end_, true)); });
    sunlit_ = sunlit_ || sky_.tables.result.SatSunlit != 0;
    kTrap([&] { middleAzimuth_ = ToInt16(AzimuthAt(middle_, false)); });
  }

  /// The observer is in twilight when the pass starts.
  bool IsVisible() {
    if (!sunlit_) return false;
    orbit::Satcalc(sky_, "sun", start_.Parts(), false);
    return IsTwilight(sky_.tables.result.SatEl);
  }

  void AddRow() {
    PassRow row;
    row[kSatelliteCell] = name_;
    row[kDateCell] = orbit::DateText(start_.Day, start_.Month, start_.Year);
    row[kTimeCell] = orbit::ClockText(start_.Hour, start_.Minute, start_.Second);
    row[kStartAzimuthCell] = Format(startAzimuth_, "000");
    row[kMaxElevationCell] = Format(maxElevation_, "00") + " (AZ " + Format(middleAzimuth_, "000") + ")";
    kTrap([&] { row[kDurationCell] = Format(duration_, "hh:mm:ss"); });
    row[kEndAzimuthCell] = Format(endAzimuth_, "000");
    kTrap([&] {
      if (!IsAllDay(duration_)) return;
      row[kDurationCell] = "24 Hours";
      row[kTimeCell] = "00:00:00";
    });
    row[kSunlitCell] = YesNoCell(sunlit_);
    const bool visible = IsVisible();
    row[kVisibleCell] = YesNoCell(visible);
    if (visibleOnly_ && !visible) {
      ++tally_.notVisible;
      return;
    }
    table_.Add(std::move(row));
    ++tally_.listed;
  }

  const orbit::Sky& sky_;
  PassTable& table_;
  const std::string name_;
  const std::int16_t day_;
  const bool visibleOnly_;
  PassTally tally_;

  PassTimeRec start_;
  PassTimeRec end_;
  PassTimeRec middle_;
  SerialDate duration_ = 0;
  std::int16_t maxElevation_ = 0;
  std::int16_t startAzimuth_ = 0;
  std::int16_t endAzimuth_ = 0;
  std::int16_t middleAzimuth_ = 0;
  bool sunlit_ = false;
};

/// Whether noon of a local day has another UTC offset than the present moment, with which the rows are made.
bool HasOtherOffset(SerialDate localMidnight) {
  constexpr double kHalfMinute = 0.5 / platform::kMinutesPerDay;
  const platform::ClockReading now = platform::TheClock().Read();
  const SerialDate noonUtc = localMidnight + 0.5 - (now.local - now.utc);
  return std::abs((platform::TheClock().LocalAt(noonUtc) - noonUtc) - (now.local - now.utc)) > kHalfMinute;
}

std::string Passes(int count) {
  return std::to_string(count) + (count == 1 ? " pass" : " passes");
}

std::string DayText(SerialDate day) {
  const platform::DateParts parts = platform::SplitSerial(day);
  return orbit::DateText(static_cast<std::int16_t>(parts.day), static_cast<std::int16_t>(parts.month),
                         static_cast<std::int16_t>(parts.year));
}

std::string WhenOf(const PassSubject& subject) {
  if (subject.days < 1) return ", which asks for no day";
  if (subject.days == 1) return " on " + DayText(subject.firstDay);
  return " from " + DayText(subject.firstDay) + " to " + DayText(subject.firstDay + subject.days - 1);
}

/// Puts the engine's observer elsewhere, and back whatever happens.
class MovedObserver {
 public:
  MovedObserver(orbit::OrbitEngine& engine, const orbit::Observer& to)
      : engine_(engine), home_(engine.CurrentObserver()) {
    engine_.SetObserver(to);
  }
  ~MovedObserver() { engine_.SetObserver(home_); }
  MovedObserver(const MovedObserver&) = delete;
  MovedObserver& operator=(const MovedObserver&) = delete;

 private:
  orbit::OrbitEngine& engine_;
  const orbit::Observer home_;
};

double DegreesOf(double radians) {
  return radians / orbit::kRadPerDeg;
}

bool IsSunlitAt(orbit::OrbitEngine& engine, const orbit::ObjectPlace& satellite, SerialDate utc) {
  const orbit::Geodetic& below = satellite.subPoint;
  // The height in km as it stands, as Satcalc has it.
  const MovedObserver moved(engine, {DegreesOf(below.latitudeRad), DegreesOf(below.longitudeRad), below.heightKm});
  return orbit::IsSunlit(DegreesOf(engine.LookAngle("sun", utc).elevationRad));
}

PassFacts FactsOf(orbit::OrbitEngine& engine, std::string_view satellite, const orbit::Pass& pass) {
  const orbit::ObjectPlace rise = engine.PlaceOf(satellite, pass.riseSerial);
  const orbit::ObjectPlace highest = engine.PlaceOf(satellite, pass.highestSerial);
  const orbit::ObjectPlace set = engine.PlaceOf(satellite, pass.setSerial);
  PassFacts facts;
  facts.satellite = satellite;
  facts.catalogueNumber = engine.CatalogueNumber(satellite);
  facts.revolution = highest.revolution;
  facts.riseUtc = pass.riseSerial;
  facts.highestUtc = pass.highestSerial;
  facts.setUtc = pass.setSerial;
  facts.highestElevationDeg = DegreesOf(pass.highestElevationRad);
  facts.riseAzimuthDeg = DegreesOf(rise.look.azimuthRad);
  facts.highestAzimuthDeg = DegreesOf(highest.look.azimuthRad);
  facts.setAzimuthDeg = DegreesOf(set.look.azimuthRad);
  facts.allDay = IsAllDay(pass.setSerial - pass.riseSerial);
  facts.sunlit = IsSunlitAt(engine, rise, pass.riseSerial) || IsSunlitAt(engine, set, pass.setSerial);
  const double sunDeg = DegreesOf(engine.LookAngle("sun", pass.riseSerial).elevationRad);
  facts.visible = facts.sunlit && IsTwilight(sunDeg);
  return facts;
}

}  // namespace

PassTally& PassTally::operator+=(const PassTally& more) {
  listed += more.listed;
  belowMinimum += more.belowMinimum;
  notVisible += more.notVisible;
  unknown += more.unknown;
  otherOffset = otherOffset || more.otherOffset;
  return *this;
}

std::string StatusText(const PassTally& tally, const PassSubject& subject, int rowsInList) {
  std::string text = (tally.listed == 0 ? "No passes" : Passes(tally.listed)) + " of " + subject.name + WhenOf(subject);
  if (rowsInList != tally.listed) {
    text += ", " + std::to_string(rowsInList) + (rowsInList == 1 ? " row" : " rows") + " in the list";
  }
  if (tally.otherOffset) text += "; times use today's UTC offset, not that of the day";
  if (tally.belowMinimum > 0) {
    text += "; " + Passes(tally.belowMinimum) + " below the minimum elevation of the main settings left out";
  }
  if (tally.notVisible > 0) text += "; " + Passes(tally.notVisible) + " that cannot be seen by eye left out";
  if (tally.unknown == 1) text += "; the database has no satellite of that name";
  if (tally.unknown > 1) text += "; " + std::to_string(tally.unknown) + " times the satellite is not in the database";
  return text + ".";
}

bool IsAllDay(SerialDate duration) {
  constexpr int kMostHours = 10;
  return platform::HourOf(duration) > kMostHours;
}

double WholeDegrees(double elevationDeg) {
  constexpr double kListDecimals = 1e4;
  return std::floor(std::round(elevationDeg * kListDecimals) / kListDecimals);
}

bool IsTwilight(double sunElevationDeg) {
  return sunElevationDeg >= -18 && sunElevationDeg <= -6;
}

PassTally RowsFromPassList(const orbit::Sky& sky, PassTable& table, std::string_view SatName, std::int16_t Day,
                           std::string_view passList, bool visibleOnly) {
  const BuildingRows building;
  RowBuilder builder(sky, table, SatName, Day, visibleOnly);
  for (const std::string& entry : platform::SplitAt(platform::ReplaceAll(passList, "\"", ""), ',')) {
    if (entry.empty()) break;
    builder.TakeEntry(entry);
  }
  return builder.Tally();
}

PassTally CalcResults(const orbit::Sky& sky, PassTable& table, std::string_view SatName, std::int16_t Day,
                      std::int16_t Month, std::int16_t Year, bool visibleOnly) {
  SerialDate midnight = 0;
  kTrap([&] { midnight = platform::MakeSerial({Year, Month, Day, 0, 0, 0}); });
  std::string passList;
  kTrap([&] { passList = sky.engine.CalcPassList(SatName, midnight - 1, 1, 3, 0, 0); });
  PassTally tally = RowsFromPassList(sky, table, SatName, Day, passList, visibleOnly);
  if (!sky.engine.Knows(SatName)) tally.unknown = 1;
  kTrap([&] { tally.otherOffset = HasOtherOffset(midnight); });
  return tally;
}

std::vector<PassFacts> FindPasses(orbit::OrbitEngine& engine, std::string_view satellite, SerialDate fromUtc,
                                  double days, double minimumElevationDeg) {
  std::vector<PassFacts> found;
  for (const orbit::Pass& pass : engine.Passes(satellite, fromUtc, days)) {
    if (WholeDegrees(DegreesOf(pass.highestElevationRad)) < minimumElevationDeg) continue;
    found.push_back(FactsOf(engine, satellite, pass));
  }
  return found;
}

}  // namespace kestrava::predict
