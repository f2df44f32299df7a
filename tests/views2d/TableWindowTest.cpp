// The table's rows, labels and life.
#include <cmath>

#include <gtest/gtest.h>

#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"

#include "TableFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;

std::vector<std::string> Captions() {
  std::vector<std::string> captions;
  for (const TableColumn& column : kTableColumns) captions.emplace_back(column.caption);
  return captions;
}

class TableRows : public TableFixture {};

TEST_F(TableRows, TheColumnsBearTheirCaptionsOneOfThemMisspelt) {
  EXPECT_EQ(Captions(), (Texts{"Satellite", "Azimuth (deg)", "Elevation (deg)", "Range (km)", "Height (km)",
                               "Latitude (deg)", "Logitude (deg)", "Orbit Number"}));
}

TEST_F(TableRows, EveryFavouriteHasARowInTheirOrder) {
  SetFavourites({kNoaa, kIss, kOscar});
  OpenTable();
  EXPECT_EQ(RowTexts(), (Texts{kNoaa, kIss, kOscar}));
}

TEST_F(TableRows, ANameGivenTwiceShowsOnce) {
  SetFavourites({kIss, kNoaa, kIss, kIss});
  OpenTable();
  EXPECT_EQ(RowTexts(), (Texts{kIss, kNoaa}));
}

TEST_F(TableRows, NamesThatDifferInCapitalsAreTwo) {
  SetFavourites({"NOAA 15", "Noaa 15"});
  OpenTable();
  EXPECT_EQ(RowTexts().size(), 2u);
}

TEST_F(TableRows, RowTextsAreTrimmedSoANameWithBlanksShowsTwice) {
  SetFavourites({"  NOAA 15 ", "  NOAA 15 "});
  OpenTable();
  EXPECT_EQ(RowTexts(), (Texts{"NOAA 15", "NOAA 15"})) << "the name with its blanks is not among the trimmed texts";
}

TEST_F(TableRows, ANameWithBlanksIsNotFoundAmongTheFavouritesSoItsRowNeverFills) {
  SetFavourites({"  NOAA 15 "});
  OpenTable();
  Second();
  EXPECT_EQ(Row(0).cells[1], "");
  EXPECT_EQ(Label(TableLabel::kStatus), "0 out of 1 Satellites in range");
}

TEST_F(TableRows, SatOnMapIsTrueForExactlyTheTextOfARow) {
  SetFavourites({kIss, kNoaa});
  OpenTable();
  EXPECT_TRUE(table->SatOnMap(kNoaa));
  EXPECT_FALSE(table->SatOnMap("NOAA"));
  EXPECT_FALSE(table->SatOnMap("noaa 15"));
  EXPECT_FALSE(table->SatOnMap(kOscar));
}

TEST_F(TableRows, RefreshTableBeginsAnew) {
  SetFavourites({kIss, kNoaa});
  OpenTable();
  Second();
  SetFavourites({kOscar});
  table->RefreshTable();
  EXPECT_EQ(RowTexts(), Texts{kOscar});
  EXPECT_EQ(Row(0).cells[1], "");
  EXPECT_EQ(Row(0).colour, 0xFFFFFFu);
  EXPECT_EQ(view.order.back(), "new rows");
}

TEST_F(TableRows, MoreFavouritesThanTheTableHoldsAreAFaultOfTheLoad) {
  tables.FaveCount = 501;
  EXPECT_THROW(OpenTable(), platform::Fault);
}

TEST_F(TableRows, FillTheirColumnsInTheFormsOfTheColumns) {
  SetFavourites({kIss});
  SeeAt(kIss, 40.5);
  OpenTable();
  Second();
  const orbit::ResultBlock& result = tables.result;
  const auto twoPlaces = [](double value) {
    std::array<char, 40> text{};
    std::snprintf(text.data(), text.size(), "%.2f", value);
    return std::string(text.data());
  };
  const double values[] = {result.SatAz, result.SatEl, result.SatRange, result.SatHeight, result.SatLat, result.SatLon};
  for (std::size_t i = 0; i < 6; ++i) {
    EXPECT_EQ(Row(0).cells[i + 1], twoPlaces(values[i])) << kTableColumns[i + 1].caption;
    ASSERT_TRUE(Row(0).numbers[i + 1].has_value());
    EXPECT_EQ(*Row(0).numbers[i + 1], values[i]);
  }
  EXPECT_FALSE(Row(0).numbers[0].has_value());
  EXPECT_FALSE(Row(0).numbers[7].has_value());
}

TEST_F(TableRows, HaveNumbersOfTheMachinesLocale) {
  locale.UseComma();
  SetFavourites({kIss});
  OpenTable();
  Second();
  for (std::size_t i = 1; i <= 6; ++i) {
    const std::string& text = Row(0).cells[i];
    EXPECT_EQ(text.at(text.size() - 3), ',') << text;
    EXPECT_EQ(text.find('.'), std::string::npos) << text << ": none of these numbers has a group sign";
  }
}

TEST_F(TableRows, SayTheDirectionOfFlightUnderTheHeadOfTheOrbitNumberInItsOwnSpelling) {
  SetFavourites({kIss});
  OpenTable();
  bool seen[2] = {false, false};
  for (int minutes = 0; minutes < 100; ++minutes) {
    table->MainLoop();
    const bool descending = tables.result.SatDescending != 0;
    seen[descending ? 1 : 0] = true;
    EXPECT_EQ(Row(0).cells[7], descending ? "Decending" : "Accending");
    clock.AdvanceMs(60000);
  }
  EXPECT_TRUE(seen[0] && seen[1]) << "a revolution has both";
}

TEST_F(TableRows, AreCalculatedForThePresentTimeWithoutTheExtendedBlock) {
  SetFavourites({kIss});
  tables.SelSatName = kIss;
  tables.result.SatSunlit = 77;
  tables.result.SatAOS = "kept";
  OpenTable();
  Second();
  EXPECT_EQ(tables.result.SatSunlit, 77);
  EXPECT_EQ(tables.result.SatAOS, "kept");
  EXPECT_EQ(tables.SelSatName, kIss);
  EXPECT_NEAR(*Row(0).numbers[2], ElevationDeg(kIss), 1e-9);
}

TEST_F(TableRows, AreRedAboveTheHorizonAndWhiteBelow) {
  SetFavourites({kIss, kNoaa});
  SeeWithout(kNoaa, kIss, 30);
  OpenTable();
  EXPECT_EQ(Row(0).colour, 0xFFFFFFu) << "white before the first tick";
  Second();
  EXPECT_EQ(Row(0).colour, 0x0030FFu);
  EXPECT_EQ(Row(1).colour, 0xFFFFFFu);
  WaitUntil(kIss, false);
  Second();
  EXPECT_EQ(Row(0).colour, 0xFFFFFFu);
}

TEST_F(TableRows, AnElevationOfExactlyZeroCountsAsOutOfRange) {
  EXPECT_FALSE(IsInRange(0));
  EXPECT_TRUE(IsInRange(0.001));
}

TEST_F(TableRows, OneThatTheEngineDoesNotKnowIsOutOfRange) {
  SetFavourites({"NOBODY"});
  OpenTable();
  Second();
  EXPECT_EQ(Row(0).cells[2], "--");
  EXPECT_EQ(Row(0).colour, 0xFFFFFFu);
  EXPECT_EQ(Label(TableLabel::kStatus), "0 out of 1 Satellites in range");
  EXPECT_TRUE(speech.said.empty());
  EXPECT_FALSE(TakeFaults().empty()) << "the calculation logs what it does not know";
}

TEST_F(TableRows, WhoIsNotKnownAnyMoreTurnsWhite) {
  SetFavourites({kIss});
  SeeAt(kIss, 30);
  OpenTable();
  Second();
  ASSERT_EQ(Row(0).colour, 0x0030FFu);
  Put("sets.txt", "");
  engine.SetDataFolder(platform::AppDir);
  Second();
  ASSERT_EQ(tables.result.SatEl, 0);
  EXPECT_EQ(Row(0).colour, 0xFFFFFFu);
  TakeFaults();
}

TEST_F(TableRows, ARowThatIsNoFavouriteAnyMoreStaysAsItIsAndDoesNotCount) {
  SetFavourites({kIss, kNoaa});
  SeeWithout(kNoaa, kIss, 30);
  OpenTable();
  Second();
  const TableRow before = Row(0);
  SetFavourites({kNoaa});
  WaitUntil(kIss, false);
  Second();
  EXPECT_EQ(Row(0).cells, before.cells) << "it simply stops changing";
  EXPECT_EQ(Row(0).colour, 0x0030FFu);
  EXPECT_EQ(Label(TableLabel::kStatus).substr(1), " out of 2 Satellites in range");
  EXPECT_EQ(Label(TableLabel::kStatus)[0], ElevationDeg(kNoaa) > 0 ? '1' : '0');
}

TEST_F(TableRows, StayTheSameWhenTheFavouritesChangeUntilTheWindowIsOpenedAnew) {
  SetFavourites({kIss, kNoaa});
  OpenTable();
  Second();
  SetFavourites({kIss, kNoaa, kMeteor});
  Second();
  EXPECT_EQ(RowTexts(), (Texts{kIss, kNoaa}));
  table->Unload();
  OpenTable();
  EXPECT_EQ(RowTexts(), (Texts{kIss, kNoaa, kMeteor}));
}

TEST_F(TableRows, AreToldToTheWindowOnceATick) {
  SetFavourites({kIss, kNoaa, kMeteor});
  OpenTable();
  Second();
  Second();
  EXPECT_EQ(view.order, (Texts{"skin", "new rows", "changed rows", "changed rows"}));
}

class TableLabels : public TableFixture {};

TEST_F(TableLabels, TellWhereTheStationStands) {
  engine.SetObserverLatitude(51.4779);
  engine.SetObserverLongitude(360 - 12.3456);
  OpenTable();
  Second();
  EXPECT_EQ(Label(TableLabel::kLat), "051.478");
  EXPECT_EQ(Label(TableLabel::kLong), "012.346 W");
  EXPECT_EQ(Label(TableLabel::kLocation), "Home");
  EXPECT_EQ(Label(TableLabel::kHeight), "450 mtrs ") << "with its blank at the end";
}

TEST_F(TableLabels, TheLongitudeTurnsEastAtOneHundredAndEighty) {
  engine.SetObserverLatitude(-5);
  engine.SetObserverLongitude(180);
  OpenTable();
  Second();
  EXPECT_EQ(Label(TableLabel::kLong), "180.000 E");
  EXPECT_EQ(Label(TableLabel::kLat), "-005.000");
  engine.SetObserverLongitude(10);
  Second();
  EXPECT_EQ(Label(TableLabel::kLong), "010.000 E");
}

TEST_F(TableLabels, WithoutASettingTheHeightIsZeroAndThatIsStored) {
  settings.Set("HASL", "");
  OpenTable();
  Second();
  EXPECT_EQ(Label(TableLabel::kHeight), "0 mtrs ");
  EXPECT_EQ(settings.Get("HASL"), "0");
}

TEST_F(TableLabels, TheHeightStandsAsItIsStored) {
  settings.Set("HASL", "12,5 or so");
  OpenTable();
  Second();
  EXPECT_EQ(Label(TableLabel::kHeight), "12,5 or so mtrs ");
}

TEST_F(TableLabels, ATickLateInASecondShowsThatSecond) {
  clock.SetUtc(platform::MakeSerial({2026, 11, 15, 23, 59, 58}) + 0.9 / platform::kSecondsPerDay);
  OpenTable();
  Second();
  EXPECT_EQ(Label(TableLabel::kGmt), "23:59:59") << "not the next day yet";
  EXPECT_EQ(Label(TableLabel::kLocalTime), "23:59:59");
}

TEST_F(TableLabels, FollowTheTwoClocks) {
  clock.SetUtc({2026, 11, 15, 23, 59, 58});
  clock.SetOffsetHours(5.5);
  OpenTable();
  Second();
  EXPECT_EQ(Label(TableLabel::kLocalTime), "05:29:59");
  EXPECT_EQ(Label(TableLabel::kGmt), "23:59:59");
  Second();
  EXPECT_EQ(Label(TableLabel::kLocalTime), "05:30:00");
  EXPECT_EQ(Label(TableLabel::kGmt), "00:00:00");
}

TEST_F(TableLabels, AreEmptyUntilTheFirstTick) {
  OpenTable();
  EXPECT_TRUE(view.labels.empty());
}

TEST_F(TableLabels, WithoutFavouritesNoneIsOutOfNone) {
  SetFavourites({});
  OpenTable();
  Second();
  EXPECT_TRUE(table->Rows().empty());
  EXPECT_EQ(Label(TableLabel::kStatus), "0 out of 0 Satellites in range");
}

TEST_F(TableLabels, CountTheSatellitesInRange) {
  SetFavourites({kIss, kNoaa, kMeteor, kOscar});
  SeeAt(kIss, 30);
  OpenTable();
  Second();
  int up = 0;
  for (const char* name : {kIss, kNoaa, kMeteor, kOscar}) up += ElevationDeg(name) > 0 ? 1 : 0;
  ASSERT_GE(up, 1);
  EXPECT_EQ(Label(TableLabel::kStatus), std::to_string(up) + " out of 4 Satellites in range");
}

class TableLife : public TableFixture {};

TEST_F(TableLife, TheTimerIsOffUntilTheLoadAndTicksEverySecond) {
  table = std::make_unique<TableWindow>(sky, view);
  EXPECT_FALSE(table->Timer1().Enabled());
  EXPECT_EQ(table->Timer1().IntervalMs(), 1000);
  table->Load();
  EXPECT_TRUE(table->Timer1().Enabled());
  EXPECT_EQ(view.order, (Texts{"skin", "new rows"}));
  eventLoop.Advance(3.5);
  EXPECT_EQ(view.order.size(), 5u);
}

TEST_F(TableLife, TheExitButtonStopsTheTimerAndClosesTheWindow) {
  OpenTable().ExitClicked();
  EXPECT_FALSE(table->Timer1().Enabled());
  EXPECT_EQ(view.order.back(), "closed");
  EXPECT_EQ(eventLoop.RunningTimers(), 0);
}

TEST_F(TableLife, TheMinimiseButtonMinimisesAndTheTableGoesOn) {
  OpenTable().MinimiseClicked();
  EXPECT_EQ(view.order.back(), "minimised");
  EXPECT_TRUE(table->Timer1().Enabled());
}

TEST_F(TableLife, ClosingStopsEverything) {
  OpenTable();
  table->Unload();
  eventLoop.Advance(5);
  EXPECT_EQ(view.order, (Texts{"skin", "new rows"}));
}

/// A damaged count: the search for a name that is not there leaves the table of the favourites.
class TableFaults : public TableFixture {
 protected:
  TableFaults() {
    SetFavourites({kIss, kNoaa, kMeteor});
    OpenTable();
    Fave(2).Name = "ANOTHER";
    tables.FaveCount = 501;
  }
  void Mend() { SetFavourites({kIss, kNoaa, kMeteor}); }
};

TEST_F(TableFaults, EndTheTickAndAreToldOnceNotLogged) {
  messages.ExpectMessage("The update of the table could not be done: Subscript out of range (fault 9).");
  eventLoop.Advance(5);
  EXPECT_EQ(messages.Texts().size(), 1u);
  EXPECT_TRUE(ErrorLog().empty());
  EXPECT_TRUE(TakeFaults().empty());
  EXPECT_TRUE(table->Timer1().Enabled());
}

TEST_F(TableFaults, LeaveWhatStoodBehindThemUndoneAndWhatStoodBeforeDone) {
  messages.ExpectMessage("Subscript out of range");
  Second();
  EXPECT_NE(Row(0).cells[1], "");
  EXPECT_EQ(Row(1).cells[1], "");
  EXPECT_EQ(Row(2).cells[1], "");
  EXPECT_EQ(view.order.back(), "changed rows") << "the rows are shown as they are then";
  EXPECT_TRUE(view.labels.empty());
  Mend();
  Second();
  EXPECT_NE(Row(2).cells[1], "");
  EXPECT_NE(Label(TableLabel::kStatus), "");
}

TEST_F(TableFaults, OfTheShowingItselfAreToldLikeAnyOther) {
  view.inShowing = [] { throw platform::Fault::InvalidPicture(); };
  messages.ExpectMessage("Invalid picture (fault 481)");
  Second();
  Mend();
  Second();
  EXPECT_EQ(messages.Texts().size(), 1u) << "a tick tells each fault once";
  EXPECT_TRUE(table->Timer1().Enabled());
}

TEST(RowsAsText, OneLineARowWithTabsBetweenTheCells) {
  std::vector<TableRow> rows(3);
  for (std::size_t i = 0; i < rows.size(); ++i)
    rows[i].cells = {"S" + std::to_string(i), "1", "2", "3", "", "5", "6", "7"};
  const int which[] = {2, 0};
  EXPECT_EQ(RowsAsText(rows, which, false), "S2\t1\t2\t3\t\t5\t6\t7\nS0\t1\t2\t3\t\t5\t6\t7");
  EXPECT_EQ(RowsAsText(rows, {}, true),
            "Satellite\tAzimuth (deg)\tElevation (deg)\tRange (km)\tHeight (km)\tLatitude (deg)\tLogitude (deg)\t"
            "Orbit Number");
  EXPECT_EQ(RowsAsText(rows, {}, false), "");
  const int beyond[] = {3};
  EXPECT_THROW(RowsAsText(rows, beyond, false), platform::Fault);
}

}  // namespace
}  // namespace kestrava::views2d
