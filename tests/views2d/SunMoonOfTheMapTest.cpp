#include <cmath>

#include "orbit/Angles.h"
#include "platform/Format.h"

#include "PlotFixture.h"

namespace kestrava::views2d {
namespace {

using platform::Format;
using Texts = std::vector<std::string>;

class SunMoonOfTheMap : public PlotFixture {};

std::string WholeDegrees(double radians) {
  return std::to_string(static_cast<int>(std::floor(orbit::RadToDeg(radians))));
}

TEST_F(SunMoonOfTheMap, SubPointsAreKept) {
  CalcSunMoon(sky, map, host);
  const auto sun = engine.PlaceOf("sun", NowUtc());
  const auto moon = engine.PlaceOf("moon", NowUtc());
  EXPECT_NEAR(tables.SunLat, orbit::RadToDeg(sun.subPoint.latitudeRad), 1e-6);
  EXPECT_NEAR(tables.SunLon, 360 - orbit::RadToDeg(sun.subPoint.longitudeRad), 1e-6);
  EXPECT_NEAR(tables.MoonLat, orbit::RadToDeg(moon.subPoint.latitudeRad), 1e-6);
  EXPECT_NEAR(tables.MoonLon, 360 - orbit::RadToDeg(moon.subPoint.longitudeRad), 1e-6);
}

TEST_F(SunMoonOfTheMap, DirectionsAreWholeDegreesRoundedDown) {
  CalcSunMoon(sky, map, host);
  const auto sun = engine.PlaceOf("sun", NowUtc()).look;
  const auto moon = engine.PlaceOf("moon", NowUtc()).look;
  EXPECT_EQ(Line(11), "Azimuth : " + WholeDegrees(sun.azimuthRad) + " deg");
  EXPECT_EQ(Line(12), "Elevation : " + WholeDegrees(sun.elevationRad) + " deg");
  EXPECT_EQ(Line(13), "Azimuth : " + WholeDegrees(moon.azimuthRad) + " deg");
  EXPECT_EQ(Line(14), "Elevation : " + WholeDegrees(moon.elevationRad) + " deg");
  clock.SetUtc({2026, 11, 15, 0, 0, 0});  // the Sun is below the horizon: down is away from zero
  CalcSunMoon(sky, map, host);
  const auto night = engine.PlaceOf("sun", NowUtc()).look;
  ASSERT_LT(night.elevationRad, 0);
  EXPECT_EQ(Line(12), "Elevation : " + WholeDegrees(night.elevationRad) + " deg");
}

TEST_F(SunMoonOfTheMap, TheDistanceHasSixDigitsInKmOrMiles) {
  CalcSunMoon(sky, map, host);
  const double distanceKm = tables.result.SatHeight;
  EXPECT_GT(distanceKm, 356000);
  EXPECT_EQ(Line(15), "Distance : " + Format(distanceKm, "000,000.0") + " km");
  EXPECT_EQ(Line(15).size(), std::string("Distance : 384,400.0 km").size());
  for (const char* miles : {"1", "yes"}) {
    settings.Set("Miles", miles);
    CalcSunMoon(sky, map, host);
    EXPECT_EQ(Line(15), "Distance : " + Format(distanceKm * 0.6214, "000,000.0") + " miles") << miles;
  }
}

TEST_F(SunMoonOfTheMap, ThePhaseIsOverwrittenByItsPercentage) {
  CalcSunMoon(sky, map, host);
  const double phaseRad = engine.PlaceOf("moon", NowUtc()).phaseAngleRad;
  EXPECT_NEAR(tables.result.SatPhase, MoonPhasePercent(phaseRad), 1e-6);
  EXPECT_EQ(Line(16), "Phase : " + Format(tables.result.SatPhase, "0.0") + "% (" + MoonPhaseName(phaseRad) + ")");
}

TEST_F(SunMoonOfTheMap, AtTheFullMoonOf24November2026ThePercentageIsNearHundred) {
  clock.SetUtc({2026, 11, 24, 14, 53, 0});
  CalcSunMoon(sky, map, host);
  EXPECT_GT(tables.result.SatPhase, 96);  // the Moon passes the point opposite the Sun at up to 5 degrees
  clock.SetUtc({2026, 11, 9, 7, 2, 0});
  CalcSunMoon(sky, map, host);
  EXPECT_LT(tables.result.SatPhase, 4);
}

TEST_F(SunMoonOfTheMap, TheTerminatorStandsAlmostAQuarterCircleFromTheSun) {
  for (int month = 1; month <= 12; ++month) {
    clock.SetUtc({2026, month, 21, month * 2 - 1, 0, 0});
    CalcSunMoon(sky, map, host);
    for (const orbit::PointRec& row : tables.SunCircle) {
      EXPECT_NEAR(DegreesApart(tables.SunLat, tables.SunLon, row.lat, row.lon), 89.99655, 1e-5) << month;
    }
  }
}

TEST_F(SunMoonOfTheMap, FifteenSeedsStandSevenDegreesInsideTheDayAndTheLastRepeatsTheFirst) {
  CalcSunMoon(sky, map, host);
  for (std::size_t i = 0; i < 16; ++i) {
    const orbit::PointRec& seed = tables.SunSeeds[i];
    EXPECT_NEAR(DegreesApart(tables.SunLat, tables.SunLon, seed.lat, seed.lon), 82.67122, 1e-5) << i;
  }
  EXPECT_NEAR(tables.SunSeeds[15].lat, tables.SunSeeds[0].lat, 1e-9);
  EXPECT_NEAR(tables.SunSeeds[15].lon, tables.SunSeeds[0].lon, 1e-9);
  EXPECT_EQ(tables.SunSeeds[16].lat, 0);
  EXPECT_EQ(tables.SunSeeds[16].lon, 0);
}

TEST_F(SunMoonOfTheMap, InWarpTheyFollowTheWarpClock) {
  StartWarp({2026, 6, 21, 3, 0, 0}, 1);
  CalcSunMoon(sky, map, host);
  const auto sun = engine.PlaceOf("sun", platform::MakeSerial({2026, 6, 21, 3, 0, 0}));
  EXPECT_NEAR(tables.SunLat, orbit::RadToDeg(sun.subPoint.latitudeRad), 1e-6);
  EXPECT_NEAR(tables.SunLat, 23.43, 0.02);
  EXPECT_NEAR(tables.SunLon, 360 - orbit::RadToDeg(sun.subPoint.longitudeRad), 1e-6);
}

TEST_F(SunMoonOfTheMap, NothingYieldsAndTheExtendedBlockStays) {
  tables.result.SatAOS = "before";
  const int yields = eventLoop.YieldCount();
  CalcSunMoon(sky, map, host);
  EXPECT_EQ(eventLoop.YieldCount(), yields);
  EXPECT_EQ(tables.result.SatAOS, "before");
}

TEST_F(SunMoonOfTheMap, OnlyTheirOwnLinesAreWritten) {
  CalcSunMoon(sky, map, host);
  EXPECT_EQ(host.changedLines, (std::vector<int>{11, 12, 13, 14, 15, 16}));
  host.changedLines.clear();
  CalcSunMoon(sky, map, host);
  EXPECT_TRUE(host.changedLines.empty());
}

TEST_F(SunMoonOfTheMap, AFailingLineIsLoggedAndTheRestRuns) {
  host.onChange = [](int index) {
    if (index == 12) throw platform::Fault::ObjectNotSet();
  };
  CalcSunMoon(sky, map, host);
  EXPECT_EQ(TakeFaults(), Texts{"Object variable not set - Mapview CalcSunMoon"});
  ASSERT_EQ(ErrorLog().size(), 1U);
  EXPECT_NE(ErrorLog()[0].find(" - Object variable not set - Mapview CalcSunMoon"), std::string::npos) << ErrorLog()[0];
  EXPECT_NE(Line(16), "");
  EXPECT_NE(tables.SunCircle[100].lat, 0);
}

}  // namespace
}  // namespace kestrava::views2d
