#include <array>

#include "orbit/Angles.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "views2d/SatellitePlot.h"

#include "InfoPane.h"
#include "SmallCircle.h"

namespace kestrava::views2d {

namespace {

using platform::FloorText;
using platform::Format;

constexpr platform::FaultTrap trap{"Mapview CalcSunMoon"};

/// The Sun as a satellite whose footprint is almost a hemisphere; no refraction, no twilight band.
constexpr double kSunDistanceKm = 106000000;
/// A nearer body gives a circle some seven degrees inside the terminator: good places to start a fill.
constexpr double kSeedDistanceKm = 50000;
constexpr int kCircleSteps = 360;
constexpr int kSeedSteps = 15;  // the last seed repeats the first

template <class Table>
void FillCircle(Table& table, double distanceKm, int steps, double latDeg, double lonDeg) {
  double halfAngleRad = 0;
  trap([&] { halfAngleRad = HorizonHalfAngle(distanceKm); });
  const SmallCircle circle{latDeg, lonDeg, halfAngleRad};
  for (int i = 0; i <= steps; ++i) {
    StorePoint(trap, circle.PointAt(2 * orbit::kPi * i / steps), table[static_cast<std::size_t>(i)]);
  }
}

/// Azimuth and elevation of the body in the result block, whole degrees rounded down, into two lines.
void ShowDirection(const orbit::ResultBlock& result, int firstLine, MapState& map, MapHost& host) {
  trap([&] { SetRemoteStat(map, host, firstLine, {"Azimuth : ", FloorText(result.SatAz), " deg"}); });
  trap([&] { SetRemoteStat(map, host, firstLine + 1, {"Elevation : ", FloorText(result.SatEl), " deg"}); });
}

void CalcSun(const orbit::Sky& sky, MapState& map, MapHost& host) {
  orbit::Tables& tables = sky.tables;
  trap([&] { orbit::Satcalc(sky, "sun", ShownMoment(map.warp), false); });
  ShowDirection(tables.result, 11, map, host);
  MapWork& work = map.work;
  work.SunLat = tables.result.SatLat;
  work.SunLon = tables.result.SatLon;
  FillCircle(work.SunCircle, kSunDistanceKm, kCircleSteps, work.SunLat, work.SunLon);
  FillCircle(work.SunSeeds, kSeedDistanceKm, kSeedSteps, work.SunLat, work.SunLon);
}

/// What the system knows by these names is of the map that calculated last.
void CopyToTables(const MapWork& work, orbit::Tables& tables) {
  tables.SunCircle = work.SunCircle;
  tables.SunSeeds = work.SunSeeds;
  tables.SunLat = work.SunLat;
  tables.SunLon = work.SunLon;
  tables.MoonLat = work.MoonLat;
  tables.MoonLon = work.MoonLon;
}

void ShowMoonDistance(double distanceKm, MapState& map, MapHost& host) {
  if (UsesMiles()) {
    SetRemoteStat(map, host, 15, {"Distance : ", Format(orbit::KmToMiles(distanceKm), "000,000.0"), " miles"});
  } else {
    SetRemoteStat(map, host, 15, {"Distance : ", Format(distanceKm, "000,000.0"), " km"});
  }
}

}  // namespace

void CalcSunMoon(const orbit::Sky& sky, MapState& map, MapHost& host) {
  orbit::ResultBlock& result = sky.tables.result;
  CalcSun(sky, map, host);
  trap([&] { orbit::Satcalc(sky, "moon", ShownMoment(map.warp), false); });
  const char* phaseName = MoonPhaseName(result.SatPhase);
  result.SatPhase = MoonPhasePercent(result.SatPhase);
  ShowDirection(result, 13, map, host);
  trap([&] { ShowMoonDistance(result.SatHeight, map, host); });
  trap([&] { SetRemoteStat(map, host, 16, {"Phase : ", Format(result.SatPhase, "0.0"), "% (", phaseName, ")"}); });
  map.work.MoonLat = result.SatLat;
  map.work.MoonLon = result.SatLon;
  CopyToTables(map.work, sky.tables);
}

const char* MoonPhaseName(double phaseRad) {
  // Labels of eighths of the cycle, not the astronomical quarters; full moon itself falls to "3rd Quarter waxing". The
  // second bound differs from the sixth in its fourth digit and stays so.
  struct Row {
    double aboveRad;
    const char* name;
  };
  static constexpr auto rows = std::to_array<Row>({
      {-2.356194489, "1st Quarter"},
      {-1.570707963, "Half waxing"},
      {-0.785398163, "3rd Quarter waxing"},
      {0, "Full"},
      {0.785398163, "3rd Quarter waning"},
      {1.570796326, "Half waning"},
      {2.356194489, "Last Quarter"},
  });
  const char* name = "New Moon";
  for (const Row& row : rows) {
    if (phaseRad > row.aboveRad) name = row.name;
  }
  return name;
}

double MoonPhasePercent(double phaseRad) {
  const double percent = (phaseRad + orbit::kPi) / orbit::kPi * 100;
  return percent > 100 ? 200 - percent : percent;
}

}  // namespace kestrava::views2d
