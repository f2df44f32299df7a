#include "orbit/Satcalc.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "orbit/Angles.h"
#include "orbit/OrbitEngine.h"
#include "orbit/SunMoon.h"
#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"

namespace kestrava::orbit {

using platform::DateParts;
using platform::SerialDate;

std::unique_ptr<OrbitEngine> Engine;

Sky TheSky() {
  if (!Engine) throw platform::Fault::ObjectNotSet();
  return {TheTables(), *Engine};
}

namespace {

constexpr platform::FaultTrap kTrap{"Global Satcalc"};

constexpr std::int16_t AsBoolean(bool value) {
  return value ? -1 : 0;
}

/// The date fields are 16 bits wide.
DateParts In16Bits(const DateParts& parts) {
  return {platform::ToInt16(parts.year), platform::ToInt16(parts.month),  platform::ToInt16(parts.day),
          platform::ToInt16(parts.hour), platform::ToInt16(parts.minute), platform::ToInt16(parts.second)};
}

/// The Sun's elevation, degrees, at the engine's present observer. All else that the call gives is dropped.
double SunElevationDeg(OrbitEngine& engine, double engineTime) {
  double elevationRad = 0;
  kTrap([&] {
    double azimuthRad = 0, lonRad = 0, latRad = 0, rangeKm = 0, rateKmS = 0, heightKm = 0, phaseRad = 0;
    std::int16_t descending = 0, unused = 0;
    engine.CalcPosition("sun", engineTime, 0, 0, descending, azimuthRad, elevationRad, lonRad, latRad, rangeKm, rateKmS,
                        heightKm, phaseRad, unused);
  });
  return RadToDeg(elevationRad);
}

/// The engine's observer is shared by all windows: whatever happens, it is put back.
class ObserverElsewhere {
 public:
  ObserverElsewhere(OrbitEngine& engine, const ResultBlock& at)
      : engine_(engine),
        longitude_(engine.ObserverLongitude()),
        latitude_(engine.ObserverLatitude()),
        height_(engine.ObserverHeight()) {
    engine_.SetObserverLatitude(at.SatLat);
    engine_.SetObserverLongitude(360 - at.SatLon);
    engine_.SetObserverHeight(at.SatHeight);  // the number in km as it stands
  }
  ~ObserverElsewhere() {
    engine_.SetObserverLatitude(latitude_);
    engine_.SetObserverLongitude(longitude_);
    engine_.SetObserverHeight(height_);
  }
  ObserverElsewhere(const ObserverElsewhere&) = delete;
  ObserverElsewhere& operator=(const ObserverElsewhere&) = delete;

 private:
  OrbitEngine& engine_;
  double longitude_;
  double latitude_;
  double height_;
};

void CalcPlace(OrbitEngine& engine, std::string_view name, double engineTime, ResultBlock& result) {
  double azimuthRad = 0, elevationRad = 0, lonRad = 0, latRad = 0;
  kTrap([&] {
    std::int16_t unused = 0;
    engine.CalcPosition(name, engineTime, 0, 0, result.SatDescending, azimuthRad, elevationRad, lonRad, latRad,
                        result.SatRange, result.SatRangeRate, result.SatHeight, result.SatPhase, unused);
  });
  double fraction = 0;
  kTrap([&] {
    const double firstReading = engine.OrbitPhase();
    fraction = engine.OrbitPhase() - std::floor(firstReading);
  });
  kTrap([&] {
    double velocityX = 0, velocityY = 0, velocityZ = 0;
    engine.StateVector(result.SatX, result.SatY, result.SatZ, velocityX, velocityY, velocityZ);
  });
  result.SatAz = RadToDeg(azimuthRad);
  result.SatEl = RadToDeg(elevationRad);
  result.SatLon = LonWestFromEast(lonRad);
  result.SatLat = RadToDeg(latRad);
  kTrap([&] { result.SatPhaseMA = PhaseOn255(fraction); });
  kTrap([&] { result.SatOrbit = std::to_string(engine.OrbitNumber()); });
  kTrap([&] { result.SatMA = PhaseInDegrees(fraction); });
}

/// What only the selected satellite gets.
void CalcExtended(const Sky& sky, std::string_view name, double engineTime) {
  ResultBlock& result = sky.tables.result;
  {
    const ObserverElsewhere belowSatellite(sky.engine, result);
    const double sunBelowSatelliteDeg = SunElevationDeg(sky.engine, engineTime);
    result.SatSunlit = AsBoolean(IsSunlit(sunBelowSatelliteDeg));
  }
  const double sunDeg = SunElevationDeg(sky.engine, engineTime);
  result.SatVisible = AsBoolean(IsVisibleByEye(sunDeg, result.SatSunlit != 0, result.SatEl));
  bool predicting = false;
  kTrap([&] { predicting = platform::TheWindows().IsVisible("PassPrediction"); });
  if (predicting) return;
  kTrap([&] { result.SatAOS = platform::Format(NextAOS(sky, name), "hh:mm:ss"); });
  kTrap([&] { result.SatLOS = platform::Format(NextLOS(sky, name), "hh:mm:ss"); });
}

}  // namespace

double LonWestFromEast(double lonEastRad) {
  return 360 - RadToDeg(lonEastRad);
}

bool IsSunlit(double sunElevationDeg) {
  return sunElevationDeg > -18;
}

bool IsVisibleByEye(double sunElevationDeg, bool sunlit, double satelliteElevationDeg) {
  return sunElevationDeg >= -18 && sunElevationDeg <= -6 && sunlit && satelliteElevationDeg > 0;
}

double PhaseOn255(double fraction) {
  return platform::ParseNumber(platform::Format(fraction * 255, "0.00"));
}

std::string PhaseInDegrees(double fraction) {
  return platform::Format(fraction * 360, "0.00");
}

void Satcalc(const Sky& sky, std::string_view name, const DateParts& local, bool extended) {
  SerialDate date = 0;
  SerialDate utc = 0;
  double engineTime = 0;
  kTrap([&] { date = platform::MakeSerial(In16Bits(local)); });
  kTrap([&] { utc = LocalToUTC(date); });
  kTrap([&] { engineTime = sky.engine.EngineTime(utc); });
  CalcPlace(sky.engine, name, engineTime, sky.tables.result);
  if (extended && name == sky.tables.SelSatName) CalcExtended(sky, name, engineTime);
}

SerialDate NextAOS(const Sky& sky, std::string_view name) {
  const platform::FaultTrap trap{"Global NextAOS"};
  SerialDate utc = 0, rise = 0, local = 0;
  trap([&] { utc = LocalToUTC(NowLocal()); });
  trap([&] { rise = sky.engine.NextAOSTime(name, utc); });
  trap([&] { local = UTCToLocal(rise); });
  return local;
}

SerialDate NextLOS(const Sky& sky, std::string_view name) {
  const platform::FaultTrap trap{"Global NextLOS"};
  SerialDate utc = 0, set = 0, local = 0;
  trap([&] { utc = LocalToUTC(NowLocal()); });
  trap([&] { set = sky.engine.NextLOSTime(name, utc); });
  trap([&] { local = UTCToLocal(set); });
  return local;
}

namespace {

constexpr double kMinutesPerDay = platform::kMinutesPerDay;
/// Every place on the Earth has sunrises and sunsets within a year: only damaged numbers get here.
constexpr int kMostMinutes = 400 * 1440;
constexpr double kDeclinationBoundDegPerDay = 0.41;  // the Sun's own way north or south, at the equinoxes
constexpr double kCulminationMarginDeg = 0.02;       // parallax, and what the Sun moves within half a day

/// Minutes that pass at the least until the Sun, now at the result block's place, can stand at elevation 0.
/// @param direction  1: it is below and a rise is looked for; -1: it is above and a set is looked for
int MinutesRuledOut(const Sky& sky, int direction) {
  const double awayDeg = -direction * sky.tables.result.SatEl;
  if (std::isnan(awayDeg)) return kMostMinutes;
  if (awayDeg <= 0) return 0;
  const double latDeg = sky.engine.ObserverLatitude();
  const double byTurnMin = awayDeg / SunElevationRateBoundDegPerMin(latDeg);
  // Where the Sun does not even reach the horizon at its highest or lowest, only its way north or south counts.
  const double highestOrLowestDeg = 90 - std::abs(latDeg - direction * sky.tables.result.SatLat);
  const double byYearMin = (-highestOrLowestDeg - kCulminationMarginDeg) / kDeclinationBoundDegPerDay * kMinutesPerDay;
  return static_cast<int>(std::floor(std::clamp(std::max(byTurnMin, byYearMin), 0.0, double{kMostMinutes})));
}

/// Steps the Sun minute by minute until it stands above (direction 1) or below (-1) the horizon, passing over minutes
/// in which it cannot.
/// @return the minute after the first such one
SerialDate StepSun(const Sky& sky, int startHour, int direction) {
  const DateParts today = NowLocalParts();
  const auto local = [&](int minute) {
    return platform::MakeSerial({today.year, today.month, today.day, startHour, minute, 0});
  };
  for (int minute = 0;; minute += 1 + MinutesRuledOut(sky, direction)) {
    Satcalc(sky, "sun", platform::SplitSerial(local(minute)), false);
    if (direction * sky.tables.result.SatEl > 0 || minute >= kMostMinutes) return local(minute + 1);
  }
}

}  // namespace

SerialDate TodaySunrise(const Sky& sky) {
  return StepSun(sky, 0, 1);
}

SerialDate TodaySunset(const Sky& sky) {
  return StepSun(sky, 12, -1);
}

}  // namespace kestrava::orbit
