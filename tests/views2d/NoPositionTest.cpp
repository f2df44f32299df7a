// A favourite whose elements give no position: a cubesat that came down long ago, its last set still in a file. What
// Satcalc leaves for it are another one's numbers and directions of 0; no view may take them for its place.
#include <algorithm>

#include "views2d/MapGeometry.h"

#include "HorizonFixture.h"
#include "PainterFixture.h"
#include "TableFixture.h"
#include "WindowFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;
using Numbers = std::vector<int>;

constexpr const char* kGone = "OSNSAT";
constexpr const char* kGoneSet =
    "OSNSAT\n"
    "1 41939U 98067KZ  26309.28402027  .11925055  12489-4  54124-3 0  9996\n"
    "2 41939 051.6147 038.9582 0001091 231.1728 128.9202 16.43639489055773\n";

/// Adds the gone satellite to a house with an engine. Its fault is what the tests want to see, and nothing of theirs.
template <class House>
class WithGoneOne : public House {
 protected:
  WithGoneOne() {
    House::Put("gone.txt", kGoneSet);
    House::engine.SetDataFolder(platform::AppDir);
  }
  ~WithGoneOne() override { House::TakeFaults(); }
};

class NowhereOnTheMap : public WithGoneOne<PlotFixture> {};

TEST_F(NowhereOnTheMap, ItsRowSaysSoUntilACalculationGivesAPlaceAgain) {
  SetFavourites({kNoaa, kGone});
  Tick();
  EXPECT_FALSE(Fave(1).hasNoPosition);
  EXPECT_TRUE(Fave(2).hasNoPosition);
  Fave(2).Name = kIss;
  Tick();
  EXPECT_FALSE(Fave(2).hasNoPosition);
}

TEST_F(NowhereOnTheMap, ItsLinesHaveDashes) {
  SetFavourites({kNoaa, kGone});
  tables.SelSat = 2;
  Tick();
  EXPECT_EQ(Line(0), "Satellite : OSNSAT");
  EXPECT_EQ(Line(1), "Latitude : --");
  EXPECT_EQ(Line(2), "Longitude : --");
  EXPECT_EQ(Line(3), "Azimuth : --");
  EXPECT_EQ(Line(4), "Elevation : --");
  EXPECT_EQ(Line(5), "Height : --");
  EXPECT_EQ(Line(6), "Range : --");
  EXPECT_EQ(Line(7), "AOS : --");
  EXPECT_EQ(Line(8), "MA : --");
  EXPECT_EQ(Line(9), "Orbit : --");
  EXPECT_EQ(Line(17), "Phase(MA) : --");
}

TEST_F(NowhereOnTheMap, IsNotSelectedByItselfThoughItsLeftoversStandHighest) {
  settings.Set("AutoSelect", "1");
  SetFavourites({kNoaa, kGone});
  SeeAt(kNoaa, -30);
  Tick();
  ASSERT_EQ(Fave(2).El, 0) << "which is higher than -30";
  EXPECT_TRUE(host.selected.empty());
}

TEST_F(NowhereOnTheMap, LosesTheSelectionToOneThatHasAPlace) {
  settings.Set("AutoSelect", "1");
  SetFavourites({kGone, kNoaa});
  SeeAt(kNoaa, -30);
  Tick();
  EXPECT_EQ(host.selected, Numbers{2});
}

TEST_F(NowhereOnTheMap, WithNoOtherFavouriteTheSelectionStays) {
  settings.Set("AutoSelect", "1");
  SetFavourites({kGone, kGone});
  tables.SelSat = 2;
  Tick();
  EXPECT_TRUE(host.selected.empty());
}

TEST_F(NowhereOnTheMap, ItsTrackHasNoDotsAndTheNextSatellitesHasThemAgain) {
  settings.Set("GroundTrackLen", "5");
  SetFavourites({kGone, kNoaa});
  CalcGroundTrack(sky, map);
  const auto& track = map.work.GroundTrack;
  EXPECT_TRUE(std::all_of(track.begin(), track.begin() + 11, [](const auto& row) { return row.hasNoPosition; }));
  tables.SelSat = 2;
  CalcGroundTrack(sky, map);
  EXPECT_TRUE(std::none_of(track.begin(), track.end(), [](const auto& row) { return row.hasNoPosition; }));
}

TEST_F(NowhereOnTheMap, IsNamedInTheLogOnceADay) {
  SetFavourites({kGone});
  for (int hour = 0; hour < 12; ++hour) {
    Tick();
    Tick();
    clock.AdvanceMs(3599e3);
  }
  EXPECT_EQ(ErrorLog(),
            Texts{"2.02 15/11/2026 - 12:00:00 - No position for \"OSNSAT\": model error 1 - Global Satcalc"});
  clock.AdvanceMs(60e3);
  Tick();
  EXPECT_EQ(ErrorLog().size(), 2U) << "a new day";
}

class NowhereOnThePicture : public PainterFixture {};

TEST_F(NowhereOnThePicture, NeitherItsSpriteNorItsNameIsDrawn) {
  AddFavourite("NOAA 15", 10, 20);
  AddFavourite(kGone, 0, 0);
  tables.FaveList[2].hasNoPosition = true;
  Paint();
  EXPECT_EQ(SpritesPainted(), Texts{"5"});
  const Texts printed = Printed();
  EXPECT_EQ(std::count(printed.begin(), printed.end(), kGone), 0);
}

TEST_F(NowhereOnThePicture, ItsFootprintAndTrackAreNotDrawn) {
  AddFavourite(kGone, 0, 0);
  tables.SelSat = 1;
  Paint();
  const std::size_t dots = log.Of("Final DrawPoint").size();
  tables.FaveList[1].hasNoPosition = true;
  for (orbit::TrackRec& row : map.work.GroundTrack) row.hasNoPosition = true;
  Paint();
  constexpr std::size_t kFootprintDots = 181;
  constexpr std::size_t kTrackDots = 5;
  constexpr std::size_t kBeforeItsName = 1;
  EXPECT_EQ(log.Of("Final DrawPoint").size(), dots - kFootprintDots - kTrackDots - kBeforeItsName);
}

class NowhereToClick : public MapWindowTest {};

TEST_F(NowhereToClick, AClickOnTheMapTakesTheNearestOfThoseThatAreDrawn) {
  MapWindow& map = Open();
  tables.FaveList[1].hasNoPosition = true;  // its leftovers lie under the pointer
  tables.FaveList[1].Lat = tables.FaveList[1].Lon = 0;
  tables.FaveList[2].Lat = 50;
  map.FinalMousedown(false, LonToX(0, view.layout.finalWidth, "worldnormal"), view.layout.finalHeight / 2.0);
  EXPECT_EQ(tables.SelSat, 2);
}

class NowhereOnTheHorizon : public WithGoneOne<HorizonPainterFixture> {};

TEST_F(NowhereOnTheHorizon, IsNeitherDrawnNorTakenByItself) {
  SetFavourites({kStation, kGone});
  StandBelow(kStation);
  Fave(1).Name = kGone;
  Fave(2).Name = kStation;
  Paint();
  EXPECT_EQ(host.taken, Numbers{2});
  const Texts printed = Printed();
  EXPECT_EQ(std::count(printed.begin(), printed.end(), kGone), 0);
  EXPECT_EQ(std::count(printed.begin(), printed.end(), kStation), 1);
}

TEST_F(NowhereOnTheHorizon, SelectedItHasDashesInTheLastLineAndKeepsTheSelection) {
  SetFavourites({kGone});
  tables.SelSat = 1;
  Paint();
  EXPECT_EQ(Printed().back(), " OSNSAT     AZ: --      EL: --");
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(NowhereOnTheHorizon, AnElevationAboveTheHorizonDoesNotShowIt) {
  orbit::FaveRec row;
  row.El = 45;
  EXPECT_TRUE(IsSatelliteShown(row));
  row.hasNoPosition = true;
  EXPECT_FALSE(IsSatelliteShown(row));
}

class NowhereInTheTable : public WithGoneOne<TableFixture> {};

TEST_F(NowhereInTheTable, ItsCellsAreDashesWithoutNumbersToSortBy) {
  SetFavourites({kNoaa, kGone});
  OpenTable();
  Second();
  EXPECT_EQ(Row(1).cells,
            (std::array<std::string, kTableColumnCount>{"OSNSAT", "--", "--", "--", "--", "--", "--", "--"}));
  for (const auto& number : Row(1).numbers) EXPECT_FALSE(number.has_value());
}

TEST_F(NowhereInTheTable, OneThatLosesItsPositionIsOutOfRangeWithoutAWord) {
  SetFavourites({kGone});
  clock.SetUtc({2026, 11, 5, 8, 0, 0});  // its last days
  SeeAt(kGone, 40);
  OpenTable();
  Second();
  ASSERT_EQ(Row(0).colour, kInRange);
  speech.said.clear();
  clock.SetUtc({2026, 11, 15, 12, 0, 0});
  Second();
  ASSERT_EQ(Row(0).cells[2], "--");
  EXPECT_EQ(Row(0).colour, kOutOfRange);
  EXPECT_TRUE(Label(TableLabel::kStatus).starts_with("0 out of 1 ")) << Label(TableLabel::kStatus);
  EXPECT_TRUE(speech.said.empty());
}

}  // namespace
}  // namespace kestrava::views2d
