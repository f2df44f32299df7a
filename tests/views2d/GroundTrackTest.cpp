#include "orbit/Angles.h"

#include "PlotFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;

class GroundTrackOfTheMap : public PlotFixture {
 protected:
  GroundTrackOfTheMap() { SetFavourites({kIss, kNoaa}); }
  void ExpectRowAt(int row, const std::string& satellite, const platform::DateParts& utc) {
    const auto place = engine.PlaceOf(satellite, platform::MakeSerial(utc));
    const orbit::TrackRec& point = tables.GroundTrack[static_cast<std::size_t>(row)];
    EXPECT_NEAR(point.lat, orbit::RadToDeg(place.subPoint.latitudeRad), 1e-6) << row;
    EXPECT_NEAR(point.lon, 360 - orbit::RadToDeg(place.subPoint.longitudeRad), 1e-6) << row;
    EXPECT_EQ(point.colour, place.look.elevationRad > 0 ? 0xFFFFFFU : 0x0000FFU) << row;
  }
};

TEST_F(GroundTrackOfTheMap, HasAPointEveryThirtySecondsFromNowOn) {
  CalcGroundTrack(sky, map);
  for (const int row : {0, 1, 2, 77, 180}) ExpectRowAt(row, kIss, {2026, 11, 15, 12, 0, row * 30});
  EXPECT_EQ(settings.Get("GroundTrackLen"), "90");
  EXPECT_EQ(tables.GroundTrack[181].colour, 0U);
}

TEST_F(GroundTrackOfTheMap, BelongsToTheSelectedRowAndNotToTheSelectedName) {
  tables.SelSat = 2;
  tables.SelSatName = kIss;
  CalcGroundTrack(sky, map);
  ExpectRowAt(9, kNoaa, {2026, 11, 15, 12, 4, 30});
}

TEST_F(GroundTrackOfTheMap, IsWhiteWhereItLiesAboveTheObserversHorizonAndRedElsewhere) {
  SeeAt(kIss, 5);
  CalcGroundTrack(sky, map);
  EXPECT_EQ(tables.GroundTrack[0].colour, 0xFFFFFFU);
  EXPECT_EQ(tables.GroundTrack[60].colour, 0x0000FFU);
  for (int row = 0; row <= 180; ++row) ExpectRowAt(row, kIss, {2026, 11, 15, 12, 0, row * 30});
}

TEST_F(GroundTrackOfTheMap, StartsAtTheWarpClock) {
  StartWarp({2026, 11, 17, 3, 4, 5}, 1);
  CalcGroundTrack(sky, map);
  ExpectRowAt(0, kIss, {2026, 11, 17, 3, 4, 5});
  ExpectRowAt(2, kIss, {2026, 11, 17, 3, 5, 5});
}

TEST_F(GroundTrackOfTheMap, PassesTheEndOfTheYearByADayThatNeverRollsIntoTheMonth) {
  clock.SetUtc({2026, 12, 31, 23, 59, 40});
  CalcGroundTrack(sky, map);
  ExpectRowAt(1, kIss, {2027, 1, 1, 0, 0, 10});
  ExpectRowAt(180, kIss, {2027, 1, 1, 1, 29, 40});
}

TEST_F(GroundTrackOfTheMap, WritesAsManyRowsAsItsLengthInHalfMinutes) {
  settings.Set("GroundTrackLen", "5");
  CalcGroundTrack(sky, map);
  EXPECT_NE(tables.GroundTrack[10].colour, 0U);
  EXPECT_EQ(tables.GroundTrack[11].colour, 0U);
}

TEST_F(GroundTrackOfTheMap, LeavesTheExtendedBlockAndTheEventLoopAlone) {
  tables.SelSatName = kIss;
  tables.result.SatAOS = "before";
  const int yields = eventLoop.YieldCount();
  CalcGroundTrack(sky, map);
  EXPECT_EQ(tables.result.SatAOS, "before");
  EXPECT_EQ(eventLoop.YieldCount(), yields);
}

TEST_F(GroundTrackOfTheMap, TheLongestOfThePanelFillsTheTable) {
  settings.Set("GroundTrackLen", "1440");
  CalcGroundTrack(sky, map);
  ExpectRowAt(2880, kIss, {2026, 11, 16, 12, 0, 0});
}

TEST_F(GroundTrackOfTheMap, ALengthBeyondTheTableIsLoggedOnceAndEndsThere) {
  settings.Set("GroundTrackLen", "16000");
  CalcGroundTrack(sky, map);
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - Mapview CalcGroundTrack"});
  EXPECT_NE(tables.GroundTrack[2880].colour, 0U);
}

TEST_F(GroundTrackOfTheMap, AnUnreadableLengthIsLoggedAndNothingIsCalculated) {
  settings.Set("GroundTrackLen", "long");
  CalcGroundTrack(sky, map);
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch - Mapview CalcGroundTrack"});
  ASSERT_EQ(ErrorLog().size(), 1U);
  EXPECT_NE(ErrorLog()[0].find(" - Type mismatch - Mapview CalcGroundTrack"), std::string::npos) << ErrorLog()[0];
  EXPECT_EQ(tables.GroundTrack[0].colour, 0U);
}

TEST_F(GroundTrackOfTheMap, ASelectionBeyondTheTableIsLoggedAtEachStep) {
  settings.Set("GroundTrackLen", "1");
  tables.SelSat = -1;
  CalcGroundTrack(sky, map);
  EXPECT_EQ(TakeFaults(), Texts(3, "Subscript out of range - Mapview CalcGroundTrack"));
}

TEST_F(GroundTrackOfTheMap, AFavouriteThatIsNoneAnyMoreLeavesTheTrackAlone) {
  tables.SelSat = 3;
  tables.FaveList[3].Name.clear();
  tables.GroundTrack[7].lat = 12;
  CalcGroundTrack(sky, map);
  EXPECT_EQ(tables.GroundTrack[7].lat, 12);
  EXPECT_TRUE(TakeFaults().empty()) << "not one line for each step";
}

}  // namespace
}  // namespace kestrava::views2d
