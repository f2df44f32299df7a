// Jobs through the real controls of both windows: made, run, stopped, edited, deleted.
#include <QCheckBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QProgressBar>

#include <gtest/gtest.h>

#include "platform/qt/StationWindow.h"
#include "predict/JobWindows.h"
#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"

#include "PassFixture.h"

namespace kestrava::predict::ui {
namespace {

using Strings = std::vector<std::string>;

constexpr const char* kWeekJob = "Week\r\nISS (ZARYA);\r\nNOAA 19;\r\n3\r\n0\r\n0\r\n";

class JobsTest : public PassFixture {
 protected:
  /// Fills a job in through the form.
  QWidget& FillWizard(QWidget& window, const char* name, const char* days) {
    Click(window, "PresetAdd");
    HandleEvents();
    QWidget& wizard = dynamic_cast<QWidget&>(*windows->Find(kWizardWindow));
    Type(wizard, "Tname", name);
    Type(wizard, "Tnumofdays", days);
    Choose(wizard, "COMgroup", "Space Stations");
    Choose(wizard, "COMsatname", "ISS (ZARYA)");
    Click(wizard, "BUTadd");
    return wizard;
  }
};

TEST_F(JobsTest, TheWizardShowsItsTextsAndFields) {
  QWidget& wizard = OpenWizard();
  EXPECT_EQ(wizard.windowTitle(), "Pass Prediction Job Wizard");
  EXPECT_EQ(Child<QGroupBox>(wizard, "Frame5").title(), "Pass Prediction Job Wizard Help");
  EXPECT_EQ(Child<QLabel>(wizard, "Label22").text().toStdString(), std::string(kWizardHelp));
  EXPECT_EQ(Text(wizard, "COMgroup"), "Select a Group");
  EXPECT_EQ(Text(wizard, "COMsatname"), "Select a Satellite");
  EXPECT_EQ(Child<QComboBox>(wizard, "COMgroup").count(), tables.GroupCount);
  EXPECT_EQ(Child<QCheckBox>(wizard, "CHsave").text().remove('&'), "Save Predictions to File");
  EXPECT_EQ(Child<QCheckBox>(wizard, "CHprint").text().remove('&'), "Print Predictions");
}

TEST_F(JobsTest, TheWizardOpensALittleRightOfAndBelowThePassWindow) {
  QWidget& window = Open();
  dynamic_cast<platform::qt::StationWindow&>(window).SetPlace({1500, 1200, 13500, 9000});
  Click(window, "PresetAdd");
  const auto place = dynamic_cast<platform::qt::StationWindow&>(*windows->Find(kWizardWindow)).Place();
  EXPECT_NEAR(place.left, 1600, 15);  // a pixel
  EXPECT_NEAR(place.top, 1300, 15);
}

TEST_F(JobsTest, AJobIsMadeAndListed) {
  QWidget& window = Open();
  QWidget& wizard = FillWizard(window, "Evening", "2");
  Choose(wizard, "COMsatname", "TIANGONG-2");
  Click(wizard, "BUTadd");
  Child<QCheckBox>(wizard, "CHsave").click();
  Click(wizard, "BUTSaveJob");
  EXPECT_FALSE(IsOpen(kWizardWindow));
  EXPECT_EQ(Jobs(window), Strings{"Evening"});
  EXPECT_EQ(Content("pass.dat"), "Evening\r\nISS (ZARYA);\r\nTIANGONG-2;\r\n2\r\n1\r\n0\r\n") << Content("pass.dat");
}

TEST_F(JobsTest, ReturnInTheFormSavesTheJob) {
  QWidget& window = Open();
  QWidget& wizard = FillWizard(window, "Evening", "2");
  PressKey(Child<QWidget>(wizard, "Tnumofdays"), Qt::Key_Return);
  EXPECT_EQ(Jobs(window), Strings{"Evening"});
}

TEST_F(JobsTest, TheWizardSaysWhatIsMissing) {
  QWidget& wizard = OpenWizard();
  messages.ExpectMessage("you must choose a job name");
  Click(wizard, "BUTSaveJob");
  Type(wizard, "Tname", "Evening");
  messages.ExpectMessage("You must fill in the days box");
  Click(wizard, "BUTSaveJob");
  Type(wizard, "Tnumofdays", "2");
  messages.ExpectMessage("You havn't chosen any satellites");
  Click(wizard, "BUTSaveJob");
  messages.ExpectMessage("First select a Group, then a satellite, then click the add button");
  Click(wizard, "BUTadd");
  messages.ExpectMessage("Select a satellite on the list first");
  Click(wizard, "BUTremove");
}

TEST_F(JobsTest, TheDaysTakeDigitsAloneAndMayBeEmptied) {
  QWidget& wizard = OpenWizard();
  Type(wizard, "Tnumofdays", "-1.5x 2");
  EXPECT_EQ(Child<QLineEdit>(wizard, "Tnumofdays").text(), "152");
  EXPECT_EQ(Child<QLabel>(wizard, "LABwarning").text(), "");
  Type(wizard, "Tnumofdays", "0");
  EXPECT_NE(Child<QLabel>(wizard, "LABwarning").text().indexOf("More than a year"), -1);
  for (int i = 0; i < 4; ++i) PressKey(Child<QWidget>(wizard, "Tnumofdays"), Qt::Key_Backspace);
  EXPECT_EQ(Child<QLineEdit>(wizard, "Tnumofdays").text(), "");
  EXPECT_EQ(Child<QLabel>(wizard, "LABwarning").text(), "");
}

TEST_F(JobsTest, TheTooltipsOfTheWizardSayWhatIsMissing) {
  QWidget& window = Open();
  Click(window, "PresetAdd");
  QWidget& wizard = dynamic_cast<QWidget&>(*windows->Find(kWizardWindow));
  const auto tip = [&](const char* button) { return Child<QWidget>(wizard, button).toolTip().toStdString(); };
  EXPECT_TRUE(tip("BUTSaveJob").ends_with("Still missing: the name, the number of days, a satellite"))
      << tip("BUTSaveJob");
  EXPECT_TRUE(tip("BUTadd").ends_with("Choose a group first"));
  EXPECT_TRUE(tip("BUTremove").ends_with("Select a satellite on the list first"));
  Click(wizard, "Tname");
  Type(wizard, "Tname", "Evening");
  Type(wizard, "Tnumofdays", "2");
  Choose(wizard, "COMgroup", "Space Stations");
  Choose(wizard, "COMsatname", "ISS (ZARYA)");
  Click(wizard, "BUTadd");
  EXPECT_EQ(tip("BUTSaveJob"), "Adds the job to the list of presets (Return)");
  EXPECT_EQ(tip("BUTadd"), "Adds the chosen satellite to the list");
  Select(wizard, "SatList", 0);
  EXPECT_EQ(tip("BUTremove"), "Takes the selected satellite off the list");
}

TEST_F(JobsTest, AnEditedJobIsBackWhenTheFrameOfTheWizardIsClosed) {
  Put("pass.dat", kWeekJob);
  QWidget& window = Open();
  Select(window, "ListPresets", 0);
  Click(window, "BUTeditjob");
  HandleEvents();
  CloseByUser(dynamic_cast<QWidget&>(*windows->Find(kWizardWindow)));
  EXPECT_FALSE(IsOpen(kWizardWindow));
  EXPECT_EQ(Jobs(window), Strings{"Week"});
  EXPECT_EQ(Content("pass.dat"), kWeekJob);
}

TEST_F(JobsTest, ASatelliteIsTakenOffTheList) {
  QWidget& window = Open();
  QWidget& wizard = FillWizard(window, "Evening", "2");
  Click(wizard, "BUTadd");
  EXPECT_EQ(Jobs(wizard, "SatList").size(), 2U);
  Select(wizard, "SatList", 0);
  Click(wizard, "BUTremove");
  EXPECT_EQ(Jobs(wizard, "SatList").size(), 1U);
}

TEST_F(JobsTest, CancelFrameAndEscapeAskTheSameQuestion) {
  QWidget& window = Open();
  QWidget& wizard = FillWizard(window, "Evening", "2");
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", false);
  Click(wizard, "BUTcancel");
  messages.ExpectQuestion("You will loose the information", false);
  CloseByUser(wizard);
  messages.ExpectQuestion("You will loose the information", false);
  PressKey(Child<QWidget>(wizard, "Tname"), Qt::Key_Escape);
  EXPECT_TRUE(IsOpen(kWizardWindow));
  messages.ExpectQuestion("You will loose the information", true);
  CloseByUser(wizard);
  EXPECT_FALSE(IsOpen(kWizardWindow));
  EXPECT_TRUE(Jobs(window).empty());
  EXPECT_EQ(messages.Titles().back(), "Cancel Job");
}

TEST_F(JobsTest, AJobRunsDayByDayAndEachDaySatelliteBySatellite) {
  Put("pass.dat", kWeekJob);
  QWidget& window = Open();
  PickDay(window, 2026, 11, 16);
  messages.ExpectMessage("You must select a preset first");
  Click(window, "PresetGo");
  Select(window, "ListPresets", 0);
  Click(window, "PresetGo");
  ASSERT_GT(Rows(window), 10);
  EXPECT_EQ(Cell(window, 0, kSatelliteCell), "ISS (ZARYA)");
  EXPECT_EQ(Cell(window, Rows(window) - 1, kSatelliteCell), "NOAA 19");
  EXPECT_EQ(Cell(window, Rows(window) - 1, kDateCell), "18 NOV 2026");
  EXPECT_EQ(Status(window),
            std::to_string(Rows(window)) + " passes of the job 'Week' from 16 NOV 2026 to 18 NOV 2026.");
}

TEST_F(JobsTest, TheProgressOfAJobIsSeenAndItsRowsComeIn) {
  Put("pass.dat", kWeekJob);
  QWidget& window = Open();
  Select(window, "ListPresets", 0);
  auto& bar = Child<QProgressBar>(window, "PROjob");
  int seenRows = 0;
  for (int i = 1; i <= 5; ++i) {
    eventLoop.AtYield(i, [&, i] {
      clock.AdvanceMs(60);
      EXPECT_EQ(bar.maximum(), 6);
      EXPECT_EQ(bar.value(), i - 1);
      EXPECT_TRUE(Child<QWidget>(window, "BUTstop").isEnabled());
      seenRows = Rows(window);
    });
  }
  Click(window, "PresetGo");
  EXPECT_GT(seenRows, 0) << "rows are there before the end";
  EXPECT_LT(seenRows, Rows(window));
  EXPECT_FALSE(Child<QWidget>(window, "BUTstop").isEnabled());
  EXPECT_LE(bar.value(), 0) << "the bar is empty when no job runs";
}

TEST_F(JobsTest, StopAndEscapeEndAJob) {
  Put("pass.dat", kWeekJob);
  QWidget& window = Open();
  Select(window, "ListPresets", 0);
  eventLoop.AtYield(2, [&] { Click(window, "BUTstop"); });
  Click(window, "PresetGo");
  const int stopped = Rows(window);
  EXPECT_EQ(Status(window).find("Stopped. "), 0U) << Status(window);
  eventLoop.AtYield(2, [&] { PressKey(window, Qt::Key_Escape); });
  Click(window, "PresetGo");
  EXPECT_EQ(Rows(window), 2 * stopped);
  EXPECT_FALSE(Child<QWidget>(window, "BUTstop").isEnabled());
}

TEST_F(JobsTest, GoIsOffWhileAJobRunsAndHasItsFocusBackAfterwards) {
  Put("pass.dat", kWeekJob);
  QWidget& window = Open();
  window.activateWindow();
  HandleEvents();
  Select(window, "ListPresets", 0);
  auto& go = Child<QWidget>(window, "PresetGo");
  int rowsOfOne = 0;
  eventLoop.AtYield(2, [&] {
    EXPECT_FALSE(go.isEnabled());
    EXPECT_TRUE(Child<QWidget>(window, "BUTcalc").isEnabled()) << "a calculation beside a job counts";
    EXPECT_EQ(window.focusWidget(), &Child<QWidget>(window, "ListPresets"));
    Click(window, "PresetGo");
  });
  Click(window, "PresetGo");
  rowsOfOne = Rows(window);
  EXPECT_TRUE(go.isEnabled());
  EXPECT_EQ(window.focusWidget(), &go);
  eventLoop.AtYield(2, [&] { Click(window, "BUTstop"); });
  Click(window, "PresetGo");
  EXPECT_TRUE(go.isEnabled()) << "stopped";
  Click(window, "BUTclearResults");
  Click(window, "PresetGo");
  EXPECT_EQ(Rows(window), rowsOfOne) << "the click on Go in its midst added no rows";
}

TEST_F(JobsTest, TheListMayBeClearedInTheMidstOfAJob) {
  Put("pass.dat", kWeekJob);
  QWidget& window = Open();
  Select(window, "ListPresets", 0);
  eventLoop.AtYield(4, [&] {
    Click(window, "BUTclearResults");
    EXPECT_EQ(Rows(window), 0);
  });
  Click(window, "PresetGo");
  EXPECT_GT(Rows(window), 0);
}

TEST_F(JobsTest, AWindowClosedInTheMidstOfAJobEndsIt) {
  Put("pass.dat", kWeekJob);
  for (const int yield : {1, 3, 6}) {
    QWidget& window = Open();
    Select(window, "ListPresets", 0);
    eventLoop.AtYield(yield, [&] { window.close(); });
    Click(window, "PresetGo");
    HandleEvents();
    EXPECT_FALSE(IsOpen(kPassWindow)) << yield;
  }
}

TEST_F(JobsTest, AJobThatSavesAndPrintsOpensTheSaveDialogFirst) {
  Put("pass.dat", "Both\r\nISS (ZARYA);\r\n1\r\n1\r\n1\r\n");
  QWidget& window = Open();
  Select(window, "ListPresets", 0);
  fileChooser.ExpectSave("/documents/both.txt", [&] { EXPECT_TRUE(printing.printed.empty()); });
  messages.ExpectMessage("Predictions saved as /documents/both.txt");
  printing.ExpectDialog([&] { EXPECT_TRUE(files.Exists("/documents/both.txt")); });
  Click(window, "PresetGo");
  EXPECT_EQ(printing.printed.size(), 1U);
}

TEST_F(JobsTest, AJobIsDeleted) {
  Put("pass.dat", std::string(kWeekJob) + "Other\r\nHST;\r\n1\r\n0\r\n0\r\n");
  QWidget& window = Open();
  messages.ExpectMessage("you must select a preset to delete");
  Click(window, "PresetDelete");
  Select(window, "ListPresets", 0);
  Click(window, "PresetDelete");
  EXPECT_EQ(Jobs(window), Strings{"Other"});
  EXPECT_EQ(Content("pass.dat"), "Other\r\nHST;\r\n1\r\n0\r\n0\r\n");
}

TEST_F(JobsTest, AJobIsEditedAndMovesToTheEnd) {
  Put("pass.dat", std::string(kWeekJob) + "Other\r\nHST;\r\n1\r\n0\r\n0\r\n");
  QWidget& window = Open();
  messages.ExpectMessage("you must select a preset to edit");
  Click(window, "BUTeditjob");
  Select(window, "ListPresets", 0);
  Click(window, "BUTeditjob");
  HandleEvents();
  QWidget& wizard = dynamic_cast<QWidget&>(*windows->Find(kWizardWindow));
  EXPECT_EQ(Child<QLineEdit>(wizard, "Tname").text(), "Week");
  EXPECT_EQ(Child<QLineEdit>(wizard, "Tnumofdays").text(), "3");
  EXPECT_EQ(Jobs(wizard, "SatList"), (Strings{"ISS (ZARYA)", "NOAA 19"}));
  EXPECT_EQ(Jobs(window), Strings{"Other"}) << "until it is saved it stands in the wizard alone";
  Child<QLineEdit>(wizard, "Tnumofdays").clear();
  Type(wizard, "Tnumofdays", "7");
  Click(wizard, "BUTSaveJob");
  EXPECT_EQ(Jobs(window), (Strings{"Other", "Week"}));
  EXPECT_NE(Content("pass.dat").find("NOAA 19;\r\n7\r\n"), std::string::npos);
}

TEST_F(JobsTest, AnEditThatIsCancelledLosesTheJob) {
  Put("pass.dat", kWeekJob);
  QWidget& window = Open();
  Select(window, "ListPresets", 0);
  Click(window, "BUTeditjob");
  HandleEvents();
  messages.ExpectQuestion("You will loose the information", true);
  Click(dynamic_cast<QWidget&>(*windows->Find(kWizardWindow)), "BUTcancel");
  EXPECT_TRUE(Jobs(window).empty());
  EXPECT_EQ(Content("pass.dat"), "");
}

TEST_F(JobsTest, TheEndOfTheProgramAsksOnlyForAWizardThatHoldsAJob) {
  EXPECT_TRUE(MayEndWithJobs());
  QWidget& wizard = OpenWizard();
  EXPECT_TRUE(MayEndWithJobs());
  Type(wizard, "Tname", "Evening");
  messages.ExpectQuestion("You will loose the information", false);
  EXPECT_FALSE(MayEndWithJobs());
}

TEST_F(JobsTest, APassWindowThatClosesLeavesTheWizard) {
  QWidget& window = Open();
  QWidget& wizard = FillWizard(window, "Evening", "2");
  CloseByUser(window);
  Click(wizard, "BUTSaveJob");
  EXPECT_EQ(Jobs(Open()), Strings{"Evening"});
}

}  // namespace
}  // namespace kestrava::predict::ui
