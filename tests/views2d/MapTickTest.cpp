// One tick of the map: the warp clock, the favourites' places, the info pane, the NORAD time.
#include <cmath>

#include "orbit/Angles.h"
#include "platform/Format.h"

#include "PlotFixture.h"

namespace kestrava::views2d {
namespace {

using platform::Format;
using Texts = std::vector<std::string>;
using Numbers = std::vector<int>;

class WarpClockOfTheMap : public PlotFixture {};
class MapTick : public PlotFixture {};
class InfoPaneOfTheMap : public PlotFixture {};
class NoradTime : public PlotFixture {};

TEST_F(WarpClockOfTheMap, EachTickAddsTheSpeed) {
  StartWarp({2026, 11, 15, 10, 20, 30}, 5);
  Tick();
  EXPECT_EQ(map.warp.Parts(), (platform::DateParts{2026, 11, 15, 10, 20, 35}));
  ASSERT_EQ(host.warpTimes.size(), 1U);
  EXPECT_EQ(platform::SplitSerial(host.warpTimes[0]), (platform::DateParts{2026, 11, 15, 10, 20, 35}));
}

TEST_F(WarpClockOfTheMap, StandsWhileTheMapShowsTheSystemClock) {
  StartWarp({2026, 11, 15, 10, 20, 30}, 0);
  Tick();
  EXPECT_EQ(map.warp.Parts(), (platform::DateParts{2026, 11, 15, 10, 20, 30}));
  EXPECT_TRUE(host.warpTimes.empty());
}

TEST_F(WarpClockOfTheMap, SecondsCarryIntoMinutesAndMinutesIntoHours) {
  StartWarp({2026, 11, 15, 10, 59, 59}, 60);
  Tick();
  EXPECT_EQ(map.warp.Parts(), (platform::DateParts{2026, 11, 15, 11, 0, 59}));
}

TEST_F(WarpClockOfTheMap, OneCarryIsAllSoASpeedBeyondTheSlidersLeavesSecondsOver) {
  StartWarp({2026, 11, 15, 10, 0, 59}, 120);
  Tick();
  EXPECT_EQ(map.warp.Parts(), (platform::DateParts{2026, 11, 15, 10, 1, 119}));
}

TEST_F(WarpClockOfTheMap, TheDayNeverRollsIntoTheMonth) {
  StartWarp({2026, 12, 31, 23, 59, 58}, 2);
  Tick();
  EXPECT_EQ(map.warp.Parts(), (platform::DateParts{2026, 12, 32, 0, 0, 0}));
}

TEST_F(WarpClockOfTheMap, ANegativeSpeedShowsTheWarpClockButDoesNotMoveIt) {
  SetFavourites({kIss});
  StartWarp({2026, 11, 15, 10, 20, 30}, -1);
  Tick();
  EXPECT_EQ(map.warp.WarpSecond, 30);
  EXPECT_TRUE(host.warpTimes.empty());
  const auto place = engine.PlaceOf(kIss, platform::MakeSerial({2026, 11, 15, 10, 20, 30}));
  EXPECT_NEAR(Fave(1).Lat, orbit::RadToDeg(place.subPoint.latitudeRad), 1e-6);
}

TEST_F(WarpClockOfTheMap, AnOverflowOfItsSixteenBitsIsLoggedAndTheFieldStays) {
  StartWarp({2026, 11, 15, 10, 20, 30}, 32767);
  Tick();
  EXPECT_EQ(TakeFaults(), Texts{"Overflow - Mapview Gsatroutine"});
  EXPECT_EQ(map.warp.WarpSecond, 30);
  ASSERT_EQ(ErrorLog().size(), 1U);
  EXPECT_NE(ErrorLog()[0].find(" - Overflow - Mapview Gsatroutine"), std::string::npos) << ErrorLog()[0];
}

TEST_F(WarpClockOfTheMap, AnOverflowOfTheDayStillTakesTheHoursBack) {
  StartWarp({2026, 11, 32767, 23, 59, 59}, 1);
  Tick();
  EXPECT_EQ(TakeFaults(), Texts{"Overflow - Mapview Gsatroutine"});
  EXPECT_EQ(map.warp.WarpDay, 32767);
  EXPECT_EQ(map.warp.WarpHour, 0);
}

TEST_F(WarpClockOfTheMap, TwoMapsHaveTheirOwn) {
  StartWarp({2026, 11, 15, 10, 20, 30}, 5);
  MapState other;
  Gsatroutine(sky, other, host);
  EXPECT_EQ(map.warp.WarpSecond, 30);
  EXPECT_EQ(other.warp.WarpSpeed, 0);
}

TEST_F(MapTick, WithoutFavouritesOnlyTheSelectedNameIsTakenOver) {
  tables.SelSat = 3;
  Fave(3).Name = "left over";
  tables.SelSatName = "ISS";
  settings.Set("AutoSelect", "0");
  const int yields = eventLoop.YieldCount();
  Tick();
  EXPECT_EQ(tables.SelSatName, "left over");
  EXPECT_EQ(eventLoop.YieldCount(), yields);
  EXPECT_EQ(host.changedLines, Numbers{10});
  EXPECT_TRUE(host.selected.empty());
  EXPECT_EQ(tables.FootPrint[0].lat, 0);
}

TEST_F(MapTick, ASelectionBeyondTheTableIsLoggedAndTheNameStays) {
  tables.SelSat = 501;
  tables.SelSatName = "ISS";
  Tick();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - Mapview Gsatroutine"});
  EXPECT_EQ(tables.SelSatName, "ISS");
}

TEST_F(MapTick, EveryFavouriteGetsItsPlace) {
  SetFavourites({kIss, kNoaa, kOscar});
  Tick();
  for (int i = 1; i <= 3; ++i) {
    const auto place = engine.PlaceOf(Fave(i).Name, NowUtc());
    EXPECT_NEAR(Fave(i).Lat, orbit::RadToDeg(place.subPoint.latitudeRad), 1e-6) << i;
    EXPECT_NEAR(Fave(i).Lon, 360 - orbit::RadToDeg(place.subPoint.longitudeRad), 1e-6) << i;
    EXPECT_NEAR(Fave(i).Az, orbit::RadToDeg(place.look.azimuthRad), 1e-6) << i;
    EXPECT_NEAR(Fave(i).El, orbit::RadToDeg(place.look.elevationRad), 1e-6) << i;
    EXPECT_EQ(Fave(i).Height, 0) << i;  // the three-dimensional view's
  }
}

TEST_F(MapTick, ItsMomentsAreLocalTime) {
  SetFavourites({kIss});
  Tick();
  const double latDeg = Fave(1).Lat;
  clock.SetOffsetHours(-7);
  Tick();
  EXPECT_NEAR(Fave(1).Lat, latDeg, 1e-6);
}

TEST_F(MapTick, ALongWarpAsksForADayPastTheEndOfTheMonth) {
  SetFavourites({kIss});
  StartWarp({2026, 11, 30, 23, 59, 59}, 1);
  Tick();
  EXPECT_EQ(map.warp.WarpDay, 31);
  const auto place = engine.PlaceOf(kIss, platform::MakeSerial({2026, 12, 1, 0, 0, 0}));
  EXPECT_NEAR(Fave(1).Lat, orbit::RadToDeg(place.subPoint.latitudeRad), 1e-6);
}

TEST_F(MapTick, OneYieldFollowsEachSatellite) {
  SetFavourites({kIss, kNoaa, kOscar});
  eventLoop.AtYield(1, [&] {
    EXPECT_NE(Fave(1).Lat, 0);
    EXPECT_EQ(Fave(2).Lat, 0);
  });
  const int yields = eventLoop.YieldCount();
  Tick();
  EXPECT_EQ(eventLoop.YieldCount() - yields, 3);
}

TEST_F(MapTick, AWindowThatClosesInAYieldEndsTheTickThere) {
  SetFavourites({kIss, kNoaa, kOscar});
  settings.Set("AutoSelect", "1");
  eventLoop.AtYield(2, [&] { host.open = false; });
  Tick();
  EXPECT_NE(Fave(2).Lat, 0);
  EXPECT_EQ(Fave(3).Lat, 0);
  EXPECT_TRUE(host.selected.empty());
  EXPECT_EQ(Line(10), "");
}

TEST_F(MapTick, ASelectionMadeInAYieldTakesEffectAtOnce) {
  SetFavourites({kIss, kNoaa});
  eventLoop.AtYield(1, [&] { tables.SelSat = 2; });
  Tick();
  EXPECT_EQ(Line(0), "Satellite : NOAA 15");
}

TEST_F(MapTick, TheFootprintFollowsTheSelectedSatelliteOnEveryTick) {
  SetFavourites({kIss, kNoaa});
  tables.SelSat = 2;
  Tick();
  const double firstLatDeg = tables.FootPrint[0].lat;
  const double radiusDeg = DegreesApart(Fave(2).Lat, Fave(2).Lon, tables.FootPrint[90].lat, tables.FootPrint[90].lon);
  EXPECT_NEAR(DegreesApart(Fave(2).Lat, Fave(2).Lon, tables.FootPrint[0].lat, tables.FootPrint[0].lon), radiusDeg,
              1e-6);
  EXPECT_GT(radiusDeg, 25);  // NOAA 15 at some 810 km, not the station
  clock.AdvanceMs(60000);
  Tick();
  EXPECT_NE(tables.FootPrint[0].lat, firstLatDeg);
}

TEST_F(MapTick, AnEmptyNameIsNotGuardedAndItsFailureIsLogged) {
  SetFavourites({"", kIss});
  tables.SelSat = 2;
  Tick();
  const Texts faults = TakeFaults();
  ASSERT_FALSE(faults.empty());
  for (const std::string& fault : faults) EXPECT_NE(fault.find(" - Global Satcalc"), std::string::npos) << fault;
  EXPECT_NE(Fave(2).Lat, 0);
}

TEST_F(MapTick, ACountBeyondTheTableIsLoggedAndTheTickGoesOn) {
  tables.FaveCount = 501;
  for (int i = 1; i <= 500; ++i) Fave(i).Name = kIss;
  Tick();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - Mapview Gsatroutine"});
  EXPECT_NE(Line(10), "");
}

TEST_F(MapTick, OneFailingLineOfThePaneCostsOnlyThatLine) {
  SetFavourites({kIss});
  host.onChange = [](int index) {
    if (index == 3) throw platform::Fault::ObjectNotSet();
  };
  Tick();
  EXPECT_EQ(TakeFaults(), Texts{"Object variable not set - Mapview Gsatroutine"});
  EXPECT_EQ(host.changedLines, (Numbers{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 17, 10}));
}

TEST_F(InfoPaneOfTheMap, LinesHoldTheResultBlockOfTheSelectedSatellite) {
  SetFavourites({kIss});
  SeeAt(kIss, -20);
  Tick();
  const orbit::ResultBlock& result = tables.result;
  EXPECT_EQ(Line(0), "Satellite : ISS (ZARYA)");
  EXPECT_EQ(Line(1), "Latitude : " + Format(result.SatLat, "0.00") + " Deg");
  EXPECT_EQ(Line(2), "Longitude : " + orbit::LonText(result.SatLon) + " Deg");
  EXPECT_EQ(Line(3), "Azimuth : " + Format(result.SatAz, "0.0") + " Deg");
  EXPECT_EQ(Line(4), "Elevation : -20.0 Deg");
  EXPECT_EQ(Line(5), "Height : " + Format(result.SatHeight, "0.0") + " Km");
  EXPECT_EQ(Line(7), "AOS : " + result.SatAOS);
  EXPECT_EQ(Line(8), "MA : " + result.SatMA + " deg");
  EXPECT_EQ(Line(17), "Phase(MA) : " + platform::NumberText(result.SatPhaseMA));
  EXPECT_EQ(result.SatAOS.size(), 8U);
}

TEST_F(InfoPaneOfTheMap, RangeAndOrbitHaveTheirOwnForms) {
  SetFavourites({kIss});
  Tick();
  const std::string state = tables.result.SatSunlit != 0 ? "SUNLIT" : "ECLIPSED";
  const std::string wholeKm = std::to_string(static_cast<int>(std::floor(tables.result.SatRange)));
  EXPECT_EQ(Line(6), "Range : " + wholeKm + " Km  [" + state + "]");
  ASSERT_GE(tables.result.SatOrbit.size(), 4U);
  std::string grouped = tables.result.SatOrbit;
  grouped.insert(grouped.size() - 3, ",");
  EXPECT_EQ(Line(9), "Orbit : " + grouped + " revs");
}

TEST_F(InfoPaneOfTheMap, AnyMilesSettingButZeroGivesMiles) {
  SetFavourites({kIss});
  for (const char* miles : {"1", "yes", "-1"}) {
    settings.Set("Miles", miles);
    Tick();
    const double heightMiles = tables.result.SatHeight * 0.6214;
    const std::string wholeMiles = std::to_string(static_cast<int>(std::floor(tables.result.SatRange * 0.6214)));
    EXPECT_EQ(Line(5), "Height : " + Format(heightMiles, "0.0") + " Miles") << miles;
    EXPECT_EQ(Line(6).substr(0, Line(6).find('[')), "Range : " + wholeMiles + " Miles ") << miles;
  }
}

TEST_F(InfoPaneOfTheMap, OverTheNightTheSatelliteIsEclipsedAndOverTheDaySunlit) {
  SetFavourites({kIss});
  bool seenSunlit = false;
  bool seenEclipsed = false;
  for (int minute = 0; minute < 95; minute += 5) {
    Tick();
    seenSunlit = seenSunlit || Line(6).find("[SUNLIT]") != std::string::npos;
    seenEclipsed = seenEclipsed || Line(6).find("[ECLIPSED]") != std::string::npos;
    EXPECT_EQ(Line(6).find("[SUNLIT]") != std::string::npos, tables.result.SatSunlit != 0);
    clock.AdvanceMs(300000);
  }
  EXPECT_TRUE(seenSunlit);
  EXPECT_TRUE(seenEclipsed);
}

TEST_F(InfoPaneOfTheMap, AboveTheHorizonItIsInRangeNow) {
  SetFavourites({kIss});
  SeeAt(kIss, 0.001);
  Tick();
  EXPECT_EQ(Line(7), "AOS : In Range Now");
}

TEST_F(InfoPaneOfTheMap, AtElevationZeroTheNextRiseIsStillTold) {
  SetFavourites({kIss});
  SeeAt(kIss, 10);
  host.onChange = [&](int line) {
    if (line == 6) tables.result.SatEl = 0;
  };
  Tick();
  ASSERT_EQ(tables.result.SatEl, 0);
  EXPECT_EQ(Line(7), "AOS : " + tables.result.SatAOS);
  EXPECT_EQ(tables.result.SatAOS.size(), 8U);
}

TEST_F(InfoPaneOfTheMap, LinesThatDidNotChangeAreNotToldAgain) {
  SetFavourites({kIss});
  Tick();
  EXPECT_EQ(host.changedLines.size(), 12U);
  host.changedLines.clear();
  Tick();
  EXPECT_EQ(host.changedLines, Numbers{});
}

TEST_F(InfoPaneOfTheMap, NumbersFollowTheMachinesLocale) {
  locale.UseComma();
  SetFavourites({kIss});
  SeeAt(kIss, -20);
  Tick();
  EXPECT_EQ(Line(4), "Elevation : -20,0 Deg");
}

TEST_F(NoradTime, IsTheDayOfTheYearWithItsFraction) {
  Tick();
  EXPECT_EQ(Line(10), "NORAD Time : 319.5000000000");
}

TEST_F(NoradTime, CountsTheSystemsLocalDayWithTheUniversalTimeOfDay) {
  clock.SetUtc({2026, 11, 15, 23, 30, 0});
  clock.SetOffsetHours(1);
  Tick();
  EXPECT_EQ(Line(10), "NORAD Time : 320.9791666667");
}

TEST_F(NoradTime, InWarpOnlyHourAndMinuteFollowTheWarpClock) {
  clock.SetUtc({2026, 11, 15, 12, 0, 27});
  clock.SetOffsetHours(1);
  StartWarp({2026, 12, 24, 18, 30, 44}, 1);
  Tick();
  EXPECT_EQ(Line(10), "NORAD Time : " + Format(319 + 17.5 / 24 + 27.0 / 86400, "000.0000000000"));
}

TEST_F(NoradTime, HasThreeDigitsForTheDayInJanuary) {
  clock.SetUtc({2026, 1, 2, 6, 0, 0});
  Tick();
  EXPECT_EQ(Line(10), "NORAD Time : 002.2500000000");
}

}  // namespace
}  // namespace kestrava::views2d
