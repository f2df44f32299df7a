#include <QAction>
#include <QComboBox>
#include <QListWidget>
#include <QMenu>
#include <functional>

#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"
#include "predict/ui/PassWindows.h"
#include "views2d/ui/WorldView.h"

#include "FilledWizard.h"
#include "ShellWindows.h"

namespace kestrava::shell::ui {
namespace {

using LauncherEnd = ShellWindows;

TEST_F(LauncherEnd, ClosingEndsTheRunInOrder) {
  RegisterStub("Horizon");
  LauncherWindow& launcher = Open();
  Click(Button(launcher, 8));
  eventLoop.RunEvent([&] { launcher.close(); });
  Settle();
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(orbit::Engine, nullptr);
  EXPECT_EQ(eventLoop.ExitCode(), 0);
  EXPECT_EQ(processEnds, 0);
}

TEST_F(LauncherEnd, NoOtherWindowsClosingEndsTheRun) {
  Open();
  eventLoop.RunEvent([&] { windows->Show(kAboutName); });
  auto& about = dynamic_cast<AboutWindow&>(*windows->Find(kAboutName));
  eventLoop.RunEvent([&] { about.close(); });
  Settle();
  EXPECT_EQ(eventLoop.ExitCode(), std::nullopt);
  EXPECT_EQ(LoadedNames(), Strings{"frmLAUNCHER"});
}

TEST_F(LauncherEnd, AJobInTheWizardIsAskedForAndNoKeepsTheRun) {
  windows->Register(predict::kWizardWindow, [] { return std::make_unique<FilledWizard>(); });
  LauncherWindow& launcher = Open();
  eventLoop.RunEvent([&] { windows->Show(predict::kWizardWindow); });
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", false);
  eventLoop.RunEvent([&] { launcher.close(); });
  Settle();
  EXPECT_EQ(LoadedNames(), (Strings{"frmLAUNCHER", "PassWizard"}));
  EXPECT_EQ(eventLoop.ExitCode(), std::nullopt);
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", true);
  eventLoop.RunEvent([&] { launcher.close(); });
  Settle();
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(eventLoop.ExitCode(), 0);
}

TEST_F(LauncherEnd, ASecondCloseWhileTheFirstYieldsIsHarmless) {
  RegisterStub("Horizon");
  LauncherWindow& launcher = Open();
  Click(Button(launcher, 8));
  eventLoop.AtYield(1, [&] { launcher.close(); });
  eventLoop.RunEvent([&] { launcher.close(); });
  Settle();
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(eventLoop.ExitCode(), 0);
}

TEST_F(LauncherEnd, ClosingInMidTickOfTheMapEndsTheRunInOrder) {
  Put("stations.txt",
      "ISS (ZARYA)\n"
      "1 25544U 98067A   24153.50000000  .00016717  00000-0  10270-3 0  9007\n"
      "2 25544  51.6416 247.4627 0006703 130.5360 325.0288 15.50000000 10001\n");
  Put("groups.dat", "Amateur,amateur.txt,0\nStations,stations.txt,0\n");
  Put("faves.dat", "ISS (ZARYA)\n");
  Put("satellite.dat", "");
  PutPicture("Default.jpg");
  windows->Register(views2d::ui::kWorldViewName, views2d::ui::MakeWorldView);
  LauncherWindow& launcher = Open();
  eventLoop.RunEvent([&] { windows->Show("WorldView", "worldnormal"); });
  Settle();
  eventLoop.AtYield(2, [&] { launcher.close(); });
  eventLoop.Advance(5);
  Settle();
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(orbit::Engine, nullptr);
  EXPECT_EQ(eventLoop.ExitCode(), 0);
  EXPECT_TRUE(TakeFaults().empty());
}

/// The launcher and the pass window, with a job of six calculations and a group of three satellites.
class LauncherEndWithPasses : public ShellWindows {
 protected:
  LauncherEndWithPasses() {
    const std::string station =
        "ISS (ZARYA)\n"
        "1 25544U 98067A   24153.50000000  .00016717  00000-0  10270-3 0  9007\n"
        "2 25544  51.6416 247.4627 0006703 130.5360 325.0288 15.50000000 10001\n";
    Put("stations.txt", station + station + station);
    Put("groups.dat", "Amateur,amateur.txt,0\nStations,stations.txt,0\n");
    Put("pass.dat", "Week\r\nISS (ZARYA);\r\nISS (ZARYA);\r\n3\r\n1\r\n1\r\n");
    windows->Register(predict::kPassWindow, predict::ui::MakePassPredictionWindow);
  }

  QWidget& OpenPasses() {
    launcher_ = &Open();
    eventLoop.RunEvent([&] { windows->Show(predict::kPassWindow); });
    Settle();
    return dynamic_cast<QWidget&>(*windows->Find(predict::kPassWindow));
  }
  /// Does `deed`, which yields, and closes the launcher at one of its yields: then nothing is left, and nothing faulty.
  void CloseAt(int yield, QWidget& passes, const std::function<void()>& deed) {
    bool wasWorking = false;
    eventLoop.AtYield(yield, [&] {
      wasWorking = In<QWidget>(passes, "BUTstop").isEnabled();
      launcher_->close();
    });
    eventLoop.RunEvent(deed);
    Settle();
    EXPECT_TRUE(wasWorking) << "the launcher closed when nothing ran any more";
    EXPECT_TRUE(windows->Loaded().empty());
    EXPECT_EQ(orbit::Engine, nullptr);
    EXPECT_EQ(eventLoop.ExitCode(), 0);
    EXPECT_EQ(processEnds, 0);
    EXPECT_TRUE(TakeFaults().empty());
  }

 private:
  LauncherWindow* launcher_ = nullptr;
};

TEST_F(LauncherEndWithPasses, ClosingInTheMidstOfAJobEndsTheRunInOrderAndSavesNothing) {
  for (const int yield : {1, 3, 6}) {
    SCOPED_TRACE(yield);
    QWidget& passes = OpenPasses();
    In<QListWidget>(passes, "ListPresets").setCurrentRow(0);
    CloseAt(yield, passes, [&] { In<QAbstractButton>(passes, "PresetGo").click(); });
  }
}

TEST_F(LauncherEndWithPasses, ClosingInTheMidstOfAGroupsReadingEndsTheRunInOrder) {
  for (const int yield : {1, 2, 3}) {
    SCOPED_TRACE(yield);
    QWidget& passes = OpenPasses();
    auto& group = In<QComboBox>(passes, "Groupname");
    CloseAt(yield, passes, [&] {
      group.setCurrentIndex(group.findText("Stations"));
      emit group.activated(group.currentIndex());
    });
  }
}

TEST_F(LauncherEnd, AMissingGroupsFileIsToldAndTheWindowNeverStands) {
  files.Remove("/house/groups.dat");
  messages.ExpectMessage("Problem finding 'groups.dat'");
  eventLoop.RunEvent([&] { windows->Show("frmLAUNCHER"); });
  Settle();
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(eventLoop.ExitCode(), 1);
  TakeFaults();
}

TEST_F(LauncherEnd, AMissingElementFileEndsTheRunWithOneMessageThatOffersIt) {
  files.Remove("/house/amateur.txt");
  messages.ExpectQuestion("File not found.\n\nThe element file of the first group cannot be found: /house/amateur.txt",
                          true);
  eventLoop.RunEvent([&] { windows->Show("frmLAUNCHER"); });
  Settle();
  eventLoop.Advance(1);
  Settle();
  EXPECT_EQ(shipped.putBack, Strings{"amateur.txt"});
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(eventLoop.ExitCode(), 1);
}

TEST_F(LauncherEnd, AFileThatVanishesWhileTheStationRunsEndsItTheSameWay) {
  LauncherWindow& launcher = Open();
  EXPECT_EQ(eventLoop.ExitCode(), std::nullopt);
  files.Remove("/house/amateur.txt");
  messages.ExpectQuestion("Shall the amateur.txt that came with Kestrava be put back?", false);
  eventLoop.RunEvent([&] {
    QEvent away(QEvent::WindowDeactivate), back(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&launcher, &away);
    QCoreApplication::sendEvent(&launcher, &back);
  });
  Settle();
  EXPECT_TRUE(shipped.putBack.empty());
  EXPECT_EQ(eventLoop.ExitCode(), 1);
}

TEST_F(LauncherEnd, APlaceThatIsNoNumberNamesTheSettingAndTheFile) {
  settings.Set("Latitude", "north");
  messages.ExpectMessage("The setting Latitude holds \"north\", which is no number.");
  eventLoop.RunEvent([&] { windows->Show("frmLAUNCHER"); });
  Settle();
  EXPECT_EQ(eventLoop.ExitCode(), 1);
  EXPECT_EQ(TakeFaults(), Strings{"Type mismatch - LauncherLoadAllSettings"});
}

}  // namespace
}  // namespace kestrava::shell::ui
