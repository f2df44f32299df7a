// The pass window: selection, calculation, sort, clear, save, print, and the end of whatever runs.

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "predict/JobFixture.h"
#include "predict/PassCredit.h"
#include "predict/PassPrediction.h"
#include "predict/PassText.h"

namespace kestrava::predict {
namespace {

using Names = std::vector<std::string>;

class PassWindow : public JobFixture {
 protected:
  void ExpectPrompts() {
    EXPECT_EQ(view.group.text, "Select Satellite Group");
    EXPECT_EQ(view.satellite.text, "Select a Satellite");
    EXPECT_EQ(view.favourite.text, "Select a Favourite");
  }
  void Calc(const std::string& favourite = "NOAA 19") {
    view.favourite.text = favourite;
    Passes().CalcClicked();
  }
};

TEST_F(PassWindow, TheLoadFillsEverySelection) {
  Put("pass.dat", "A\nX;\n1\n0\n0\n");
  Open();
  EXPECT_EQ(view.skins, 1);
  EXPECT_EQ(view.day.day, 15);
  EXPECT_EQ(view.day.month, 11);
  EXPECT_EQ(view.day.year, 2026);
  EXPECT_EQ(view.group.entries, (Names{"Space stations", "Weather"}));
  EXPECT_EQ(view.favourite.entries, (Names{"NOAA 19", "OSCAR 7 (AO-7)"}));
  EXPECT_EQ(view.presets.rows, Names{"A"});
  EXPECT_EQ(view.group.text, "Select Satellite Group");
  EXPECT_EQ(view.satellite.text, "Select Satellite");
  EXPECT_EQ(view.favourite.text, "Select Favourite");
  EXPECT_EQ(view.rowsChanged, 0);
}

TEST_F(PassWindow, AGroupFillsTheSatellites) {
  Open();
  view.satellite.entries = {"old"};
  view.group.text = "Space stations";
  Passes().GroupnameClicked();
  ASSERT_FALSE(view.satellite.entries.empty());
  EXPECT_EQ(view.satellite.entries[0], "ISS (ZARYA)");
  for (const std::string& name : view.satellite.entries) EXPECT_TRUE(engine.Knows(name)) << name;
}

TEST_F(PassWindow, NamesOfAGroupAreCutToSixteenCharacters) {
  const std::string lines = "\n1 25544U 98067A   26318.89808844\n2 25544\n";
  Put("weather.txt", "ABCDEFGHIJKLMNOPQRST" + lines + "0 ISS, \"BIG\"" + lines + "  SHORT  " + lines + "\n");
  Open();
  view.group.text = "Weather";
  Passes().GroupnameClicked();
  EXPECT_EQ(view.satellite.entries, (Names{"ABCDEFGHIJKLMNOP", "ISS   BIG", "SHORT"}));
}

TEST_F(PassWindow, TheFirstOfEachThreeLinesIsASatelliteWhateverTheOthersHold) {
  const std::string lines = "\n1 25544U 98067A   26318.89808844\n2 25544\n";
  Put("weather.txt",
      "ONE" + lines + "NO EPOCH\n1 25544U 98067A   00000.00000000\n2 25544\n\n\n\nTWO" + lines + "BROKEN OFF");
  Open();
  view.group.text = "Weather";
  Passes().GroupnameClicked();
  EXPECT_EQ(view.satellite.entries, (Names{"ONE", "NO EPOCH", "TWO", "BROKEN OFF"}));
}

TEST_F(PassWindow, AMissingElementFileIsSaid) {
  files.Remove("/house/weather.txt");
  Open();
  view.satellite.entries = {"old"};
  view.group.text = "Weather";
  messages.ExpectMessage("weather.txt satellite group keps are not updated yet, the keplerian file doesn't exist");
  Passes().GroupnameClicked();
  EXPECT_TRUE(view.satellite.entries.empty());
}

TEST_F(PassWindow, AnUnknownGroupHasAnEmptyFileName) {
  Open();
  view.group.text = "no such group";
  messages.ExpectMessage(" satellite group keps are not updated yet");
  Passes().GroupnameClicked();
  EXPECT_EQ(messages.Texts().back().front(), ' ');
}

TEST_F(PassWindow, OfTwoGroupsOfOneNameTheLastCounts) {
  tables.GroupList[2].Name = "Space stations";
  EXPECT_EQ(Open().Table().RowCount(), 0);
  view.group.text = "Space stations";
  Passes().GroupnameClicked();
  EXPECT_NE(view.satellite.entries[0], "ISS (ZARYA)");
}

TEST_F(PassWindow, AFileThatCannotBeReadIsSaid) {
  Open();
  files.BreakFile("/house/weather.txt", platform::Fault::DeviceError());
  view.group.text = "Weather";
  messages.ExpectMessage("The listing of satellites could not be done");
  Passes().GroupnameClicked();
  TakeFaults();
}

TEST_F(PassWindow, AnotherGroupEndsTheReadingOfTheFirst) {
  Open();
  view.group.text = "Weather";
  eventLoop.AtYield(6, [&] {
    view.group.text = "Space stations";
    Passes().GroupnameClicked();
  });
  Passes().GroupnameClicked();
  const Names both = view.satellite.entries;
  Passes().GroupnameClicked();
  EXPECT_EQ(both, view.satellite.entries);
}

TEST_F(PassWindow, StopEndsTheReadingOfAFile) {
  PassPrediction& passes = Open();
  view.group.text = "Weather";
  eventLoop.AtYield(6, [&] {
    EXPECT_TRUE(passes.IsWorking());
    passes.StopClicked();
  });
  passes.GroupnameClicked();
  EXPECT_FALSE(passes.IsWorking());
  const std::size_t some = view.satellite.entries.size();
  passes.GroupnameClicked();
  EXPECT_LT(some, view.satellite.entries.size());
}

TEST_F(PassWindow, PicksGiveTheFocusToTheCalculation) {
  Open().SatelliteNameClicked();
  Passes().CalendarPicked();
  EXPECT_EQ(view.focused, 2);
  EXPECT_EQ(Passes().Table().RowCount(), 0) << "no calculation starts by itself";
}

TEST_F(PassWindow, WithoutAChoiceThereIsNoCalculation) {
  Open();
  messages.ExpectMessage("You must select either one of the " + std::to_string(engine.SatelliteCount()) +
                         " Satellites in the database, or one of your favourites");
  Passes().CalcClicked();
  EXPECT_EQ(view.group.text, "Select Satellite Group");
}

TEST_F(PassWindow, AFavouriteIsCalculated) {
  Open();
  Calc();
  ASSERT_GT(Passes().Table().RowCount(), 2);
  EXPECT_EQ(Passes().Table().Rows()[0][kSatelliteCell], "NOAA 19");
  EXPECT_EQ(view.rowsChanged, 1);
  EXPECT_EQ(view.status, std::to_string(Passes().Table().RowCount()) + " passes of NOAA 19 on 15 NOV 2026.");
  ExpectPrompts();
}

TEST_F(PassWindow, AChosenGroupCountsBeforeAFavourite) {
  Open();
  view.group.text = "Space stations";
  view.satellite.text = "ISS (ZARYA)";
  Calc();
  EXPECT_EQ(Passes().Table().Rows()[0][kSatelliteCell], "ISS (ZARYA)");
}

TEST_F(PassWindow, APromptOfAChosenGroupHasNoPasses) {
  Open();
  view.group.text = "Space stations";
  Passes().CalcClicked();
  EXPECT_EQ(Passes().Table().RowCount(), 0);
  EXPECT_EQ(TakeFaults().size(), 1U);
  EXPECT_EQ(view.status, "No passes of Select Satellite on 15 NOV 2026; the database has no satellite of that name.");
  ExpectPrompts();
}

TEST_F(PassWindow, TheStatusNamesWhatWasWorkedOutAndTheRowsOfTheList) {
  Open();
  Calc();
  const int first = Passes().Table().RowCount();
  Calc("OSCAR 7 (AO-7)");
  const int all = Passes().Table().RowCount();
  EXPECT_EQ(view.status, std::to_string(all - first) + " passes of OSCAR 7 (AO-7) on 15 NOV 2026, " +
                             std::to_string(all) + " rows in the list.");
  EXPECT_EQ(view.rowsShown, (std::vector<int>{0, first})) << "what came in is brought into sight";
}

TEST_F(PassWindow, NoPassesAreToldWithTheirSubject) {
  settings.Set("WxEL", "95");
  Open();
  Calc();
  EXPECT_EQ(view.status.find("No passes of NOAA 19 on 15 NOV 2026; "), 0U) << view.status;
  EXPECT_TRUE(view.rowsShown.empty());
}

TEST_F(PassWindow, AgainTakesTheLastSatelliteForTheDayThatIsChosenNow) {
  Open();
  Passes().AgainClicked();
  EXPECT_EQ(Passes().Table().RowCount(), 0) << "there is no last one yet";
  Calc();
  const int first = Passes().Table().RowCount();
  EXPECT_EQ(Passes().LastSatellite(), "NOAA 19");
  view.day = {17, 11, 2026};
  Passes().AgainClicked();
  ASSERT_GT(Passes().Table().RowCount(), first);
  EXPECT_EQ(Passes().Table().Rows().back()[kSatelliteCell], "NOAA 19");
  EXPECT_EQ(Passes().Table().Rows().back()[kDateCell], "17 NOV 2026");
}

TEST_F(PassWindow, APromptIsNoLastSatellite) {
  Open();
  view.group.text = "Space stations";
  Passes().CalcClicked();
  TakeFaults();
  EXPECT_EQ(Passes().LastSatellite(), "");
}

TEST_F(PassWindow, TheOldBarOfASortIsCleared) {
  Open();
  Calc();
  Passes().SortChronClicked();
  const int before = view.sortingCleared;
  Passes().SortChronClicked();
  EXPECT_EQ(view.sortingCleared, before) << "a sort leaves its bar at the end";
  Calc();
  EXPECT_EQ(view.sortingCleared, before + 1);
  Passes().ClearResultsClicked();
  EXPECT_EQ(view.sortingCleared, before + 2);
}

TEST_F(PassWindow, TheCreditLineTellsPlaceZoneAndAgeOfTheElements) {
  settings.Set("Location Name", "London");
  engine.SetObserver({51.5, 359.8721, 30});
  clock.SetOffsetHours(-3.5);
  Open();
  EXPECT_EQ(CreditFacts(engine, Passes().Table()), "for London, 51.50 N 0.13 W, UTC-03:30");
  Calc();
  EXPECT_EQ(CreditFacts(engine, Passes().Table()),
            "for London, 51.50 N 0.13 W, UTC-03:30, elements 1 day old on 15 NOV 2026");
  EXPECT_EQ(PrintCredit("for X"),
            "Satellite Pass Predictions Generated by Kestrava (the Kestrava Makers, https://kestrava.example) "
            "for X");
}

TEST_F(PassWindow, TheSecondPromptsArePromptsToo) {
  Open();
  Calc();
  messages.ExpectMessage("You must select either one of the");
  Passes().CalcClicked();
}

TEST_F(PassWindow, TheMinimumElevationIsCountedInTheStatus) {
  settings.Set("WxEL", "95");
  Open();
  Calc();
  EXPECT_EQ(Passes().Table().RowCount(), 0);
  EXPECT_NE(view.status.find("below the minimum elevation of the main settings left out"), std::string::npos);
}

TEST_F(PassWindow, AWindowClosedInTheCalculationIsNotTouched) {
  Open();
  view.favourite.text = "NOAA 19";
  eventLoop.AtYield(1, [&] { windows->Unload(*windows->Find(kPassWindow)); });
  eventLoop.RunEvent([&] { Passes().CalcClicked(); });
  EXPECT_EQ(view.favourite.text, "NOAA 19");
  EXPECT_EQ(view.status, "");
}

TEST_F(PassWindow, TheSortHidesTheListAndShowsProgress) {
  Open();
  Calc();
  Calc("OSCAR 7 (AO-7)");
  const int rows = Passes().Table().RowCount();
  Passes().SortChronClicked();
  EXPECT_EQ(view.listShown, (std::vector<bool>{false, true}));
  EXPECT_EQ(view.sorting.front(), std::make_pair(0, rows));
  EXPECT_EQ(view.sorting.back(), std::make_pair(rows, rows));
  for (int i = 1; i < rows; ++i) {
    const auto start = [&](int row) {
      const PassRow& cells = Passes().Table().Rows()[static_cast<std::size_t>(row)];
      return ParseDateCell(cells[kDateCell]) + ParseTimeCell(cells[kTimeCell]);
    };
    EXPECT_LE(start(i - 1), start(i));
  }
}

TEST_F(PassWindow, FewerThanTwoRowsAreNotSorted) {
  Open().SortChronClicked();
  EXPECT_TRUE(view.sorting.empty());
  EXPECT_TRUE(view.listShown.empty());
}

TEST_F(PassWindow, AWindowClosedInTheSortIsNotTouched) {
  Open();
  Calc();
  eventLoop.AtYield(1, [&] { windows->Unload(*windows->Find(kPassWindow)); });
  eventLoop.RunEvent([&] { Passes().SortChronClicked(); });
  EXPECT_EQ(view.listShown, std::vector<bool>{false});
}

TEST_F(PassWindow, ClearTakesAllRowsWithoutAQuestion) {
  Open();
  Calc();
  Passes().ClearResultsClicked();
  EXPECT_EQ(Passes().Table().RowCount(), 0);
  EXPECT_EQ(view.rowsChanged, 2);
}

TEST_F(PassWindow, SaveWritesTheText) {
  Open();
  Calc();
  view.chosen = "/documents/mine.txt";
  messages.ExpectMessage("Predictions saved as /documents/mine.txt");
  Passes().SaveResultsClicked();
  EXPECT_EQ(view.saveDialogs, Names{"Save Predicted results to file|Kestrava.txt"});
  PrintedText expected;
  AssemblePasses(expected, SaveCredit(CreditFacts(engine, Passes().Table())), Passes().Table());
  EXPECT_EQ(files.Content("/documents/mine.txt"), expected.PlainText() + "\r\n");
}

TEST_F(PassWindow, TheSavedTextOfASortedJobIsAsItWas) {
  Put("pass.dat", "Week\nISS (ZARYA);\nNOAA 19;\nHIMAWARI-8;\nOSCAR 7 (AO-7);\n2\n1\n0\n");
  engine.SetObserver({-35.6, 148.9, 600});
  clock.SetOffsetHours(11);
  Open();
  view.presets.selected = 0;
  view.chosen = "/documents/mine.txt";
  messages.ExpectMessage("Predictions saved as");
  messages.ExpectMessage("Predictions saved as");
  Passes().PresetGoClicked();
  Passes().SortChronClicked();
  Passes().SaveResultsClicked();
  std::ifstream golden(KESTRAVA_TEST_DATA "golden/passes/week.txt", std::ios::binary);
  ASSERT_TRUE(golden);
  EXPECT_EQ(files.Content("/documents/mine.txt"), std::string(std::istreambuf_iterator<char>(golden), {}));
}

TEST_F(PassWindow, AnEmptyListIsSavedAsCreditAndHeading) {
  Open();
  view.chosen = "/documents/mine.txt";
  files.Put("/documents/mine.txt", "something else");
  messages.ExpectMessage("Predictions saved as");
  Passes().SaveResultsClicked();
  EXPECT_EQ(files.Content("/documents/mine.txt"),
            SaveCredit(CreditFacts(engine, Passes().Table())) + "\r\n\r\n" + std::string(kPassHeading) + "\r\n\r\n");
}

TEST_F(PassWindow, ACancelledSaveWritesItsDefaultName) {
  Open();
  messages.ExpectMessage("Predictions saved as /documents/Kestrava.txt");
  Passes().SaveResultsClicked();
  EXPECT_TRUE(files.Exists("/documents/Kestrava.txt"));
}

TEST_F(PassWindow, ACancelledSaveKeepsWhatStoodThereUnderANameOfItsOwn) {
  Open();
  files.Put("/documents/Kestrava.txt", "mine");
  files.Put("/documents/Kestrava (1).txt", "older");
  messages.ExpectMessage("Predictions saved as /documents/Kestrava.txt");
  Passes().SaveResultsClicked();
  EXPECT_EQ(files.Content("/documents/Kestrava (1).txt"), "older");
  EXPECT_EQ(files.Content("/documents/Kestrava (2).txt"), "mine");
  EXPECT_EQ(files.Content("/documents/Kestrava.txt").find("Created by Kestrava"), 0U);
  EXPECT_NE(view.status.find("kept beside it as Kestrava (2).txt"), std::string::npos) << view.status;
}

TEST_F(PassWindow, ACancelledSaveOnAFullDiskLeavesTheOldFileInItsPlace) {
  Open();
  Calc();
  files.Put("/documents/Kestrava.txt", "mine");
  files.BreakWriteAfter(20);
  messages.ExpectMessage("Disk full");
  Passes().SaveResultsClicked();
  EXPECT_EQ(files.Content("/documents/Kestrava.txt"), "mine");
  EXPECT_FALSE(files.Exists("/documents/Kestrava (1).txt"));
}

TEST_F(PassWindow, ASaveReplacesAnOlderFileOfThatName) {
  Open();
  Calc();
  files.Put("/documents/mine.txt", std::string(100000, 'x'));
  view.chosen = "/documents/mine.txt";
  messages.ExpectMessage("Predictions saved as /documents/mine.txt");
  Passes().SaveResultsClicked();
  PrintedText expected;
  AssemblePasses(expected, SaveCredit(CreditFacts(engine, Passes().Table())), Passes().Table());
  EXPECT_EQ(files.Content("/documents/mine.txt"), expected.PlainText() + "\r\n");
}

TEST_F(PassWindow, AFolderThatCannotBeWrittenIsSaidAndHoldsNoHalfFile) {
  Open();
  Calc();
  view.chosen = "/nowhere/mine.txt";
  messages.ExpectMessage("The predictions could not be saved as /nowhere/mine.txt: Path not found");
  Passes().SaveResultsClicked();
  EXPECT_FALSE(files.Exists("/nowhere/mine.txt"));
  EXPECT_GT(Passes().Table().RowCount(), 0);
}

TEST_F(PassWindow, ADiskThatFillsUpLeavesTheOldFile) {
  Open();
  Calc();
  files.Put("/documents/mine.txt", "old");
  view.chosen = "/documents/mine.txt";
  files.BreakWriteAfter(100);
  messages.ExpectMessage("Disk full");
  Passes().SaveResultsClicked();
  EXPECT_EQ(files.Content("/documents/mine.txt"), "old");
}

TEST_F(PassWindow, PrintHandsOverOneDocument) {
  Open();
  Calc();
  Passes().PrintClicked();
  EXPECT_EQ(view.happened, (Names{"printer dialog", "print"}));
  EXPECT_EQ(view.printFont, "Lucida Console");
  PrintedText expected;
  AssemblePasses(expected, PrintCredit(CreditFacts(engine, Passes().Table())), Passes().Table());
  EXPECT_EQ(view.printed, expected.PlainText());
}

TEST_F(PassWindow, ACancelledPrinterDialogIsToldWithWhatCameOfIt) {
  Open();
  view.printerChosen = false;
  Passes().PrintClicked();
  EXPECT_EQ(view.status, "The printer dialog was cancelled: the list went to the default printer.");
  view.hasPrinter = false;
  Passes().PrintClicked();
  EXPECT_EQ(
      view.status.find("The printer dialog was cancelled and there is no default printer, so nothing was printed."),
      0U);
}

TEST_F(PassWindow, PrintIgnoresEveryFault) {
  Open();
  view.printerFault = platform::Fault::DeviceError();
  Passes().PrintClicked();
  EXPECT_EQ(view.happened, (Names{"printer dialog", "print"})) << "each statement runs whatever the one before did";
}

TEST_F(PassWindow, AWindowClosedInItsDialogWritesAndPrintsNothing) {
  Open();
  view.chosen = "/documents/mine.txt";
  view.inDialog = [&] {
    if (IsOpen(kPassWindow)) windows->Unload(*windows->Find(kPassWindow));
  };
  eventLoop.RunEvent([&] { Passes().SaveResultsClicked(); });
  EXPECT_FALSE(files.Exists("/documents/mine.txt"));
  Open();
  eventLoop.RunEvent([&] { Passes().PrintClicked(); });
  EXPECT_EQ(view.printed, "");
}

TEST_F(PassWindow, MinAndExitDoAsTheySay) {
  Open().MinClicked();
  EXPECT_EQ(view.minimised, 1);
  eventLoop.RunEvent([&] { Passes().ExitClicked(); });
  EXPECT_FALSE(IsOpen(kPassWindow));
}

}  // namespace
}  // namespace kestrava::predict
