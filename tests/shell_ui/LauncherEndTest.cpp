#include <QAction>
#include <QMenu>

#include "predict/PassWizard.h"
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
