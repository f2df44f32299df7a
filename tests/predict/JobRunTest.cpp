// Jobs in the pass window: run, stopped, edited, deleted; and the wizard that makes them.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "predict/JobFixture.h"
#include "predict/JobWindows.h"
#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"

namespace kestrava::predict {
namespace {

using Names = std::vector<std::string>;

constexpr const char* kTwo = "Two\r\nNOAA 19;\r\nOSCAR 7 (AO-7);\r\n2\r\n0\r\n0\r\n";

class JobRun : public JobFixture {
 protected:
  void OpenWith(const std::string& file, const std::string& job) {
    Put("pass.dat", file);
    Open();
    Select(job);
  }
  void Go() { Passes().PresetGoClicked(); }
  Names SatellitesOfRows() {
    Names names;
    for (const PassRow& row : Passes().Table().Rows()) {
      if (names.empty() || names.back() != row[kSatelliteCell]) names.push_back(row[kSatelliteCell]);
    }
    return names;
  }
};

TEST_F(JobRun, NeedsASelection) {
  OpenWith(kTwo, "");
  for (const auto* text :
       {"You must select a preset first", "you must select a preset to delete", "you must select a preset to edit"}) {
    messages.ExpectMessage(text);
  }
  Go();
  Passes().PresetDeleteClicked();
  Passes().EditJobClicked();
}

TEST_F(JobRun, GoesDayByDayEachDaySatelliteBySatellite) {
  OpenWith(kTwo, "Two");
  Go();
  EXPECT_EQ(SatellitesOfRows(), (Names{"NOAA 19", "OSCAR 7 (AO-7)", "NOAA 19", "OSCAR 7 (AO-7)"}));
  EXPECT_EQ(view.work.front(), std::make_pair(0, 4));
  EXPECT_EQ(view.work.back(), std::make_pair(0, 0)) << "the bar is put away";
  EXPECT_EQ(view.status,
            std::to_string(Passes().Table().RowCount()) + " passes of the job 'Two' from 15 NOV 2026 to 16 NOV 2026.");
  EXPECT_EQ(view.group.text, "Select Satellite Group");
}

TEST_F(JobRun, OfOneDayIsTheDayOfTheCalendarAlone) {
  OpenWith("One\nNOAA 19;\n1\n0\n0\n", "One");
  view.day = {30, 11, 2026};
  Go();
  ASSERT_GT(Passes().Table().RowCount(), 0);
  for (const PassRow& row : Passes().Table().Rows()) EXPECT_EQ(row[kDateCell], "30 NOV 2026");
}

TEST_F(JobRun, GoesOverTheEndOfAMonth) {
  OpenWith("One\nNOAA 19;\n2\n0\n0\n", "One");
  view.day = {30, 11, 2026};
  Go();
  EXPECT_EQ(Passes().Table().Rows().back()[kDateCell], "01 DEC 2026");
}

TEST_F(JobRun, OfNoDaysSavesAndPrintsWhatTheListHolds) {
  OpenWith("None\nNOAA 19;\n0\n1\n1\n", "None");
  messages.ExpectMessage("Predictions saved as");
  Go();
  EXPECT_EQ(Passes().Table().RowCount(), 0);
  EXPECT_EQ(view.happened, (Names{"save dialog", "printer dialog", "print"})) << "save comes first";
}

TEST_F(JobRun, RowsOfBeforeStay) {
  OpenWith(kTwo, "Two");
  Go();
  const int first = Passes().Table().RowCount();
  Go();
  EXPECT_EQ(Passes().Table().RowCount(), 2 * first);
}

TEST_F(JobRun, OfTheSecondOfOneNameRunsTheFirstOfTheFile) {
  OpenWith("A\nNOAA 19;\n1\n0\n0\nA\nOSCAR 7 (AO-7);\n1\n0\n0\n", "");
  view.presets.selected = 1;
  Go();
  EXPECT_EQ(SatellitesOfRows(), Names{"NOAA 19"});
}

TEST_F(JobRun, ThatIsGoneFromTheFileIsSaid) {
  OpenWith(kTwo, "Two");
  Put("pass.dat", "Other\nX;\n1\n0\n0\n");
  messages.ExpectMessage("There was a problem finding that Job");
  Go();
}

TEST_F(JobRun, LeavesOutASatelliteBeyondTheFiftieth) {
  std::string text = "Many\n";
  for (int i = 1; i <= 50; ++i) text += "HIMAWARI-8;\n";
  OpenWith(text + "NOAA 19;\n2\n0\n0\n", "Many");
  Go();
  EXPECT_EQ(TakeFaults(), Names(3, "Subscript out of range - PassPred-PresetGo")) << "once read, twice run";
  EXPECT_TRUE(SatellitesOfRows().empty());
}

TEST_F(JobRun, SaysThatOnlyTheFirstFiftyWereUsed) {
  std::string text = "Many\n";
  for (int i = 1; i <= 80; ++i) text += "HIMAWARI-8;\n";
  OpenWith(text + "1\n0\n0\n", "Many");
  Go();
  TakeFaults();
  EXPECT_NE(view.status.find("Mind that the job names 80 satellites, of which the first 50 are used."),
            std::string::npos)
      << view.status;
}

TEST_F(JobRun, ShowsItsFirstRowOnceAndClearsTheOldBar) {
  OpenWith(kTwo, "Two");
  Go();
  const int rows = Passes().Table().RowCount();
  EXPECT_EQ(view.rowsShown, std::vector<int>{0});
  EXPECT_EQ(view.sortingCleared, 1);
  Go();
  EXPECT_EQ(view.rowsShown, (std::vector<int>{0, rows})) << "the first row of this one, and not at each satellite";
}

TEST_F(JobRun, ASatelliteThatIsNoLongerKnownHasNoRows) {
  OpenWith("One\nSPUTNIK;\nNOAA 19;\n1\n0\n0\n", "One");
  Go();
  EXPECT_EQ(SatellitesOfRows(), Names{"NOAA 19"});
  EXPECT_EQ(TakeFaults().size(), 1U);
}

TEST_F(JobRun, StopEndsItAtTheNextYieldWithoutSaving) {
  OpenWith("Two\nNOAA 19;\nOSCAR 7 (AO-7);\n2\n1\n1\n", "Two");
  eventLoop.AtYield(2, [&] {
    EXPECT_TRUE(Passes().IsWorking());
    Passes().StopClicked();
  });
  Go();
  EXPECT_EQ(SatellitesOfRows(), (Names{"NOAA 19", "OSCAR 7 (AO-7)"}));
  EXPECT_TRUE(view.happened.empty());
  EXPECT_EQ(view.status.substr(0, 9), "Stopped. ");
  EXPECT_FALSE(Passes().IsWorking());
}

TEST_F(JobRun, ExitEndsItAtTheNextYield) {
  OpenWith("Two\nNOAA 19;\nOSCAR 7 (AO-7);\n20\n1\n1\n", "Two");
  eventLoop.AtYield(1, [&] { Passes().ExitClicked(); });
  const int before = eventLoop.YieldCount();
  eventLoop.RunEvent([&] { Go(); });
  EXPECT_EQ(eventLoop.YieldCount(), before + 1);
  EXPECT_FALSE(IsOpen(kPassWindow));
  EXPECT_TRUE(view.happened.empty());
}

TEST_F(JobRun, ASecondGoWhileOneRunsIsPassedOver) {
  OpenWith(kTwo, "Two");
  eventLoop.AtYield(1, [&] { Go(); });
  Go();
  const int once = Passes().Table().RowCount();
  Passes().ClearResultsClicked();
  Go();
  EXPECT_EQ(Passes().Table().RowCount(), once);
}

TEST_F(JobRun, ClearingMeanwhileKeepsWhatComesAfter) {
  OpenWith(kTwo, "Two");
  eventLoop.AtYield(3, [&] { Passes().ClearResultsClicked(); });
  Go();
  EXPECT_EQ(SatellitesOfRows(), Names{"OSCAR 7 (AO-7)"});
}

TEST_F(JobRun, OnlyVisiblePassesWhereTheBoxIsTicked) {
  OpenWith(kTwo, "Two");
  view.visibleOnly = true;
  Go();
  for (const PassRow& row : Passes().Table().Rows()) EXPECT_EQ(row[kVisibleCell], "Yes");
}

TEST_F(JobRun, DeleteTakesTheJobFromFileAndList) {
  OpenWith(std::string(kTwo) + "Other\r\nX;\r\n1\r\n0\r\n0\r\n", "Two");
  Passes().PresetDeleteClicked();
  EXPECT_EQ(Content("pass.dat"), "Other\r\nX;\r\n1\r\n0\r\n0\r\n");
  EXPECT_EQ(view.presets.rows, Names{"Other"});
}

TEST_F(JobRun, DeleteOfTheSecondOfOneNameTakesTheFirstFromTheFile) {
  OpenWith("A\nX;\n1\n0\n0\nA\nY;\n2\n0\n0\n", "");
  view.presets.selected = 1;
  Passes().PresetDeleteClicked();
  EXPECT_EQ(Content("pass.dat"), "A\r\nY;\r\n2\r\n0\r\n0\r\n");
  EXPECT_EQ(view.presets.Count(), 1);
}

TEST_F(JobRun, DeleteWithoutAnExactMatchNamesJobAndFile) {
  OpenWith(" A \nX;\n1\n0\n0\n", "A");
  messages.ExpectMessage("The job 'A' could not be deleted: no line of pass.dat is exactly its name.");
  Passes().PresetDeleteClicked();
  EXPECT_EQ(Content("pass.dat"), " A \nX;\n1\n0\n0\n");
  EXPECT_EQ(view.presets.rows, Names{"A"});
}

TEST_F(JobRun, DeleteOnAFullDiskChangesNothing) {
  OpenWith(std::string(kTwo) + "Other\r\nX;\r\n1\r\n0\r\n0\r\n", "Two");
  files.BreakWriteAfter(5);
  messages.ExpectMessage("The job 'Two' could not be deleted from pass.dat: Disk full.");
  Passes().PresetDeleteClicked();
  EXPECT_EQ(view.presets.Count(), 2);
}

TEST_F(JobRun, EditMovesTheJobIntoTheWizard) {
  OpenWith("Two\nNOAA 19;\nOSCAR 7;x;\n 2 \n1\n0\n", "Two");
  Passes().EditJobClicked();
  EXPECT_EQ(wizardView.name, "Two");
  EXPECT_EQ(wizardView.list.rows, (Names{"NOAA 19", "OSCAR 7x"}));
  EXPECT_EQ(wizardView.days, "2");
  EXPECT_TRUE(wizardView.save);
  EXPECT_FALSE(wizardView.print);
  EXPECT_EQ(Content("pass.dat"), "");
  EXPECT_TRUE(view.presets.rows.empty());
}

TEST_F(JobRun, EditThenCancelLosesTheJob) {
  OpenWith(kTwo, "Two");
  Passes().EditJobClicked();
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", true);
  eventLoop.RunEvent([&] { Wizard().CancelClicked(); });
  EXPECT_EQ(messages.Titles().back(), "Cancel Job");
  EXPECT_FALSE(IsOpen(kWizardWindow));
  EXPECT_EQ(Content("pass.dat"), "");
  EXPECT_FALSE(files.Exists("/house/pass.edit")) << "Yes loses it";
}

TEST_F(JobRun, AnEditedJobIsBackAsItWasWhenTheWizardEndsByItsFrame) {
  OpenWith("Two\nNOAA 19;\nOSCAR 7;x;\n 2 \n1\n0\n", "Two");
  Passes().EditJobClicked();
  EXPECT_EQ(Content("pass.edit"), "Two\r\nNOAA 19;\r\nOSCAR 7;x;\r\n 2 \r\n1\r\n0\r\n");
  ASSERT_TRUE(Wizard().MayClose()) << "nothing was changed: there is nothing to ask";
  windows->Unload(*windows->Find(kWizardWindow));
  EXPECT_EQ(Content("pass.dat"), "Two\r\nNOAA 19;\r\nOSCAR 7;x;\r\n 2 \r\n1\r\n0\r\n");
  EXPECT_EQ(view.presets.rows, Names{"Two"});
  EXPECT_FALSE(files.Exists("/house/pass.edit"));
}

TEST_F(JobRun, TheFrameAsksWhetherChangesOfAnEditedJobMayBeLost) {
  OpenWith(kTwo, "Two");
  Passes().EditJobClicked();
  wizardView.days = "9";
  messages.ExpectQuestion("The job 'Two' goes back to the list as it was before, without your changes.", false);
  EXPECT_FALSE(Wizard().MayClose());
  messages.ExpectQuestion("The job 'Two' goes back", true);
  EXPECT_TRUE(Wizard().MayClose());
  windows->Unload(*windows->Find(kWizardWindow));
  EXPECT_EQ(Content("pass.dat"), kTwo);
}

TEST_F(JobRun, AnEditedJobIsBackAfterAKill) {
  OpenWith(kTwo, "Two");
  Passes().EditJobClicked();
  const std::string file = Content("pass.dat");
  const std::string copy = Content("pass.edit");
  windows->Unload(*windows->Find(kWizardWindow));
  windows->Unload(*windows->Find(kPassWindow));
  eventLoop.RunEvent([] {});
  Put("pass.dat", file);  // as the kill left them
  Put("pass.edit", copy);
  view.presets.rows.clear();
  Open();
  EXPECT_EQ(view.presets.rows, Names{"Two"});
  EXPECT_EQ(Content("pass.dat"), kTwo);
  EXPECT_FALSE(files.Exists("/house/pass.edit"));
}

TEST_F(JobRun, APassWindowThatOpensBesideTheWizardLeavesItsJobThere) {
  OpenWith(kTwo, "Two");
  Passes().EditJobClicked();
  windows->Unload(*windows->Find(kPassWindow));
  eventLoop.RunEvent([] {});
  view.presets.rows.clear();
  Open();
  EXPECT_TRUE(view.presets.rows.empty());
  EXPECT_TRUE(files.Exists("/house/pass.edit"));
}

TEST_F(JobRun, AnotherJobInTheSameWizardPutsTheFirstBack) {
  const std::string other = "Other\r\nX;\r\n1\r\n0\r\n0\r\n";
  OpenWith(kTwo + other, "Two");
  Passes().EditJobClicked();
  Select("Other");
  Passes().EditJobClicked();
  EXPECT_EQ(Content("pass.dat"), kTwo);
  EXPECT_EQ(view.presets.rows, Names{"Two"});
  EXPECT_EQ(Content("pass.edit"), other);
}

TEST_F(JobRun, ACopyThatCannotBeKeptLeavesTheJobInTheFile) {
  OpenWith(kTwo, "Two");
  files.BreakWriteAfter(3);
  messages.ExpectMessage("There was a problem starting the editor. The Error was 'Disk full'");
  Passes().EditJobClicked();
  files.Mend();
  EXPECT_EQ(Content("pass.dat"), kTwo);
  EXPECT_EQ(view.presets.rows, Names{"Two"});
}

TEST_F(JobRun, EditThenSavePutsTheJobAtTheEnd) {
  OpenWith(std::string(kTwo) + "Other\r\nX;\r\n1\r\n0\r\n0\r\n", "Two");
  Passes().EditJobClicked();
  eventLoop.RunEvent([&] { Wizard().SaveJobClicked(); });
  EXPECT_FALSE(files.Exists("/house/pass.edit"));
  EXPECT_EQ(Content("pass.dat"), "Other\r\nX;\r\n1\r\n0\r\n0\r\n" + std::string(kTwo));
  EXPECT_EQ(view.presets.rows, (Names{"Other", "Two"}));
}

TEST_F(JobRun, EditInAnOpenWizardAddsToItsList) {
  OpenWith(kTwo, "Two");
  Passes().PresetAddClicked();
  wizardView.list.rows = {"ISS (ZARYA)"};
  wizardView.print = true;
  Passes().EditJobClicked();
  EXPECT_EQ(wizardView.list.rows, (Names{"ISS (ZARYA)", "NOAA 19", "OSCAR 7 (AO-7)"}));
  EXPECT_TRUE(wizardView.print) << "boxes are ticked, never unticked";
}

TEST_F(JobRun, EditWithoutAFileIsSaid) {
  OpenWith(kTwo, "Two");
  files.Remove("/house/pass.dat");
  messages.ExpectMessage("Can't file PASS.DAT in your Kestrava folder");
  Passes().EditJobClicked();
  EXPECT_TRUE(IsOpen(kWizardWindow));
}

TEST_F(JobRun, EditOfAJobThatIsNotThereIsSaid) {
  OpenWith(" A \nX;\n1\n0\n0\n", "A");
  messages.ExpectMessage("There is a possible problem with your PASS.DAT file");
  Passes().EditJobClicked();
}

TEST_F(JobRun, EditOfDaysThatAreNoNumberIsSaidAndKeepsTheJob) {
  OpenWith("A\nX;\nseven\n1\n0\n", "A");
  messages.ExpectMessage("There was a problem starting the editor. The Error was 'Type mismatch'");
  Passes().EditJobClicked();
  EXPECT_EQ(Content("pass.dat"), "A\nX;\nseven\n1\n0\n");
  EXPECT_EQ(view.presets.rows, Names{"A"});
}

class JobWizard : public JobFixture {
 protected:
  JobWizard() {
    Open();
    Passes().PresetAddClicked();
  }
  void FillIn() {
    wizardView.name = " Week ";
    wizardView.days = " 7 ";
    wizardView.list.rows = {"ISS (ZARYA)", "NOAA 19"};
    wizardView.print = true;
  }
  void Save() {
    eventLoop.RunEvent([&] { Wizard().SaveJobClicked(); });
  }
};

TEST_F(JobWizard, OpensEmptyBesideThePassWindow) {
  EXPECT_EQ(wizardView.offset, 100);
  EXPECT_EQ(wizardView.skins, 1);
  EXPECT_EQ(wizardView.group.entries, (Names{"Space stations", "Weather"}));
  EXPECT_EQ(wizardView.group.text, "Select a Group");
  EXPECT_EQ(wizardView.satellite.text, "Select a Satellite");
  EXPECT_FALSE(Wizard().HoldsAJob());
}

TEST_F(JobWizard, AGroupFillsItsSatellites) {
  wizardView.group.text = "Space stations";
  wizardView.satellite.text = "old";
  Wizard().GroupClicked();
  EXPECT_EQ(wizardView.satellite.entries[0], "ISS (ZARYA)");
  EXPECT_EQ(wizardView.satellite.text, "Select a Satellite");
}

TEST_F(JobWizard, AGroupWithoutAFileIsSaidAndTheListIsEmpty) {
  files.Remove("/house/weather.txt");
  wizardView.group.text = "Weather";
  wizardView.satellite.entries = {"old"};
  messages.ExpectMessage("weather.txt satellite group keps are not updated yet, the keplerian file doesn't exist");
  Wizard().GroupClicked();
  EXPECT_TRUE(wizardView.satellite.entries.empty());
  EXPECT_EQ(wizardView.satellite.text, "Select a Satellite");
}

TEST_F(JobWizard, ClosedWhileReadingItIsNotTouched) {
  wizardView.group.text = "Weather";
  wizardView.satellite.text = "before";
  eventLoop.AtYield(6, [&] { windows->Unload(*windows->Find(kWizardWindow)); });
  eventLoop.RunEvent([&] { Wizard().GroupClicked(); });
  EXPECT_EQ(wizardView.satellite.text, "before");
}

TEST_F(JobWizard, AddWantsAGroupFirst) {
  messages.ExpectMessage("First select a Group, then a satellite, then click the add button");
  Wizard().AddClicked();
  EXPECT_TRUE(wizardView.list.rows.empty());
}

TEST_F(JobWizard, AddRefusesNeitherPromptsNorDuplicates) {
  wizardView.group.text = "Weather";
  Wizard().AddClicked();
  Wizard().AddClicked();
  EXPECT_EQ(wizardView.list.rows, (Names{"Select a Satellite", "Select a Satellite"}));
}

TEST_F(JobWizard, RemoveTakesTheSelectedRow) {
  wizardView.list.rows = {"A", "B"};
  messages.ExpectMessage("Select a satellite on the list first");
  Wizard().RemoveClicked();
  wizardView.list.selected = 0;
  Wizard().RemoveClicked();
  EXPECT_EQ(wizardView.list.rows, Names{"B"});
}

TEST_F(JobWizard, SaveAppendsListsAndEnds) {
  FillIn();
  Save();
  EXPECT_EQ(Content("pass.dat"), "Week\r\nISS (ZARYA);\r\nNOAA 19;\r\n7\r\n0\r\n1\r\n");
  EXPECT_EQ(view.presets.rows, Names{"Week"});
  EXPECT_FALSE(IsOpen(kWizardWindow));
}

TEST_F(JobWizard, SaveAsksForWhatIsMissing) {
  FillIn();
  wizardView.name = "  ";
  messages.ExpectMessage("you must choose a job name");
  Save();
  FillIn();
  wizardView.days = " ";
  messages.ExpectMessage("You must fill in the days box");
  Save();
  FillIn();
  wizardView.list.rows.clear();
  messages.ExpectMessage("You havn't chosen any satellites");
  Save();
  EXPECT_FALSE(files.Exists("/house/pass.dat"));
  EXPECT_TRUE(IsOpen(kWizardWindow));
}

TEST_F(JobWizard, SaveOnAFullDiskIsSaidAndTheFormStays) {
  FillIn();
  files.BreakWriteAfter(10);
  messages.ExpectMessage("There was an error when trying to save this job, the error was 'Disk full'");
  Save();
  EXPECT_TRUE(IsOpen(kWizardWindow));
  EXPECT_TRUE(view.presets.rows.empty());
  EXPECT_FALSE(files.Exists("/house/pass.dat"));
}

TEST_F(JobWizard, SaveWithoutThePassWindowWritesTheFile) {
  eventLoop.RunEvent([&] { Passes().ExitClicked(); });
  FillIn();
  Save();
  EXPECT_EQ(ListJobs(), Names{"Week"});
}

TEST_F(JobWizard, MoreThanAYearIsWarnedOfAndTaken) {
  FillIn();
  wizardView.days = "365";
  Wizard().FormChanged();
  EXPECT_EQ(wizardView.warning, "");
  wizardView.days = "366";
  Wizard().FormChanged();
  EXPECT_EQ(wizardView.warning.find("More than a year"), 0U);
  wizardView.days = "32768";
  Wizard().FormChanged();
  EXPECT_EQ(wizardView.warning, "A job of more than 32767 days lists nothing.");
  wizardView.days = "400";
  Save();
  EXPECT_NE(Content("pass.dat").find("\r\n400\r\n"), std::string::npos);
}

TEST_F(JobWizard, TheFiftyFirstSatelliteIsWarnedOf) {
  wizardView.group.text = "Weather";
  wizardView.list.rows = Names(50, "NOAA 19");
  Wizard().FormChanged();
  EXPECT_EQ(wizardView.warning, "");
  Wizard().AddClicked();
  EXPECT_EQ(wizardView.warning, "A job runs its first 50 satellites. ");
  wizardView.list.selected = 0;
  Wizard().RemoveClicked();
  EXPECT_EQ(wizardView.warning, "");
}

TEST_F(JobWizard, CancelStaysOnNo) {
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", false);
  Wizard().CancelClicked();
  EXPECT_TRUE(IsOpen(kWizardWindow));
}

TEST_F(JobWizard, TheProgramsEndAsksOnlyAWizardThatHoldsAJob) {
  EXPECT_TRUE(MayEndWithJobs());
  FillIn();
  messages.ExpectQuestion("You will loose the information", false);
  EXPECT_FALSE(MayEndWithJobs());
  messages.ExpectQuestion("You will loose the information", true);
  EXPECT_TRUE(MayEndWithJobs());
}

TEST_F(JobWizard, TheHelpIsTheWholeText) {
  EXPECT_EQ(kWizardHelp.size(), 821U);
  EXPECT_EQ(kWizardHelp.substr(0, 48), "To create a new job, just fill in this form. Fir");
}

}  // namespace
}  // namespace kestrava::predict
