#include "orbit/Satcalc.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>

#include "orbit/Angles.h"
#include "orbit/OrbitEngine.h"
#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/FaultLog.h"
#include "platform/Format.h"

#include "NoPosition.h"

namespace kestrava::orbit {

using platform::DateParts;
using platform::SerialDate;

std::unique_ptr<OrbitEngine> Engine;

Sky TheSky() {
  if (!Engine) throw platform::Fault::ObjectNotSet();
  return {TheTables(), *Engine};
}

namespace {

constexpr std::string_view kTrapName = "Global Satcalc";
constexpr platform::FaultTrap kTrap{kTrapName};

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

/// The trap of the one statement that fails at every tick of every window where a satellite's elements give nothing.
template <class Statement>
bool TryPosition(std::string_view name, Statement&& statement) {
  bool found = false;
  const bool known = kTrap([&] {
    try {
      statement();
      found = true;
    } catch (const NoPosition& fault) {
      platform::ErrorTrapOnceADay(fault.what(), kTrapName, name);
    }
  });
  return known && found;
}

/// @return false if the engine gave no position
bool CalcPlace(OrbitEngine& engine, std::string_view name, double engineTime, ResultBlock& result) {
  double azimuthRad = 0, elevationRad = 0, lonRad = 0, latRad = 0;
  const bool found = TryPosition(name, [&] {
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
  return found;
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
  bool search = false;  // and stays so where the question itself fails
  kTrap([&] { search = !platform::TheWindows().IsVisible("PassPrediction"); });
  if (!search) return;
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
  const double hundredths = fraction * 25500;
  // Far from a half, rounding is rounding; near one the digits of the text decide.
  if (std::abs(hundredths - std::floor(hundredths) - 0.5) > 1e-6) return std::round(hundredths) / 100;
  return platform::ParseNumber(platform::Format(fraction * 255, "0.00"));
}

std::string PhaseInDegrees(double fraction) {
  return platform::Format(fraction * 360, "0.00");
}

bool Satcalc(const Sky& sky, std::string_view name, const DateParts& local, bool extended) {
  SerialDate date = 0;
  SerialDate utc = 0;
  double engineTime = 0;
  kTrap([&] { date = platform::MakeSerial(In16Bits(local)); });
  kTrap([&] { utc = LocalToUTC(date); });
  kTrap([&] { engineTime = sky.engine.EngineTime(utc); });
  const bool found = CalcPlace(sky.engine, name, engineTime, sky.tables.result);
  if (extended && name == sky.tables.SelSatName) CalcExtended(sky, name, engineTime);
  return found;
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

constexpr int kMinutesPerDay = 1440;
/// Every place on the Earth has sunrises and sunsets within a year: only damaged numbers get here.
constexpr int kMostMinutes = 400 * kMinutesPerDay;

// How far the Sun can be from where it is foretold. Its own way north or south is at most 0.41 degrees a day (at the
// equinoxes), the equation of time changes by at most half a minute a day, and parallax, below 0.003 degrees, is nearly
// the same all day.
constexpr double kDeclinationBoundDegPerDay = 0.41;
constexpr double kForetoldErrorDegPerDay = kDeclinationBoundDegPerDay + 0.13;
constexpr double kForetoldErrorDeg = 0.002;
constexpr double kTurnDegPerMinute = 0.25;

/// The Sun as the result block has it, seen from the engine's observer: what foretells its elevation.
class ForetoldSun {
 public:
  explicit ForetoldSun(const Sky& sky)
      : latDeg_(sky.engine.ObserverLatitude()),
        declinationDeg_(sky.tables.result.SatLat),  // the latitude at which it stands in the zenith
        hourAngleDeg_(sky.engine.ObserverLongitude() - (360 - sky.tables.result.SatLon)),
        sines_(std::sin(DegToRad(latDeg_)) * std::sin(DegToRad(declinationDeg_))),
        cosines_(std::cos(DegToRad(latDeg_)) * std::cos(DegToRad(declinationDeg_))),
        parallaxSine_(std::sin(DegToRad(sky.tables.result.SatEl)) - SineAfter(0)) {}

  /// Degrees by which the Sun, at its highest (direction 1) or lowest (-1), stays on the wrong side of the horizon.
  double DegreesShort(int direction) const { return std::abs(latDeg_ - direction * declinationDeg_) - 90; }

  /// Minutes, up to a day, for which it must stay on the wrong side of the horizon. The sine of the elevation never
  /// changes faster than the Earth turns, so whole stretches are taken at once.
  int MinutesShort(int direction) const {
    int minutes = 1;
    while (minutes <= kMinutesPerDay) {
      const double errorDeg = kForetoldErrorDeg + kForetoldErrorDegPerDay * minutes / kMinutesPerDay;
      const double marginDeg = RadToDeg(-direction * (SineAfter(minutes) + parallaxSine_)) - errorDeg;
      if (marginDeg < 0) break;
      minutes += 1 + static_cast<int>(marginDeg / (kTurnDegPerMinute + kForetoldErrorDegPerDay / kMinutesPerDay));
    }
    return std::min(minutes - 1, kMinutesPerDay);
  }

 private:
  /// Sine of the elevation, declination held, parallax left out.
  double SineAfter(int minutes) const {
    return sines_ + cosines_ * std::cos(DegToRad(hourAngleDeg_ + kTurnDegPerMinute * minutes));
  }

  double latDeg_;
  double declinationDeg_;
  double hourAngleDeg_;
  double sines_;
  double cosines_;
  double parallaxSine_;
};

/// Minutes for which the Sun cannot come to stand above (direction 1) or below (-1) the horizon.
int MinutesRuledOut(const Sky& sky, int direction) {
  if (std::isnan(sky.tables.result.SatEl)) return kMostMinutes;
  const ForetoldSun sun(sky);
  // Where it does not reach the horizon for days on end, only its way north or south counts.
  const double days = (sun.DegreesShort(direction) - 5 * kForetoldErrorDeg) / kDeclinationBoundDegPerDay;
  if (days < 1) return sun.MinutesShort(direction);
  return static_cast<int>(std::min(days * kMinutesPerDay, double{kMostMinutes}));
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
