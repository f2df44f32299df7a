// What other windows ask of the launcher: to follow a new place and new settings, and to start anew.
#include <QTableView>
#include <map>

#include "orbit/TimeHelpers.h"
#include "platform/Format.h"
#include "platform/qt/LedClockWidget.h"
#include "predict/PassWizard.h"
#include "shell/Shutdown.h"
#include "station/Hub.h"
#include "views2d/ui/HorizonView.h"
#include "views2d/ui/TableView.h"
#include "views2d/ui/WorldView.h"

#include "FilledWizard.h"
#include "ShellWindows.h"
#include "support_qt/Shots.h"

namespace kestrava::shell::ui {
namespace {

using platform::qt::LedClockWidget;

/// Counts what a window is told when it is brought before the user.
class Promotions : public QObject {
 public:
  explicit Promotions(QObject& window) { window.installEventFilter(this); }
  int count = 0;

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    for (const QEvent::Type type : {QEvent::WindowActivate, QEvent::ZOrderChange, QEvent::Show})
      if (event->type() == type) ++count;
    return false;
  }
};

class LauncherHub : public ShellWindows {
 protected:
  void RunActivation() {
    eventLoop.RunEvent([] { station::TheHub().RunActivation(); });
    Settle();
  }
  void Refresh() {
    eventLoop.RunEvent([] { station::TheHub().Refresh(); });
    Settle();
  }
  void StartAnew() {
    eventLoop.RunEvent([] { station::TheHub().StartAnew(); });
    Settle();
  }
  void MoveTo(std::string_view name, std::string_view latitudeDeg, std::string_view longitudeWestDeg) {
    settings.Set("Location Name", name);
    settings.Set("Latitude", latitudeDeg);
    settings.Set("Longitude", longitudeWestDeg);
    settings.Set("HASL", "41");
  }
  /// A second window of the toolkit's, which has the focus.
  AboutWindow& OpenAbout() {
    eventLoop.RunEvent([this] { windows->Show(kAboutName); });
    Settle();
    return dynamic_cast<AboutWindow&>(*windows->Find(kAboutName));
  }
};

TEST_F(LauncherHub, WithoutALauncherNobodyAnswers) {
  RunActivation();
  Refresh();
  StartAnew();
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(eventLoop.ExitCode(), std::nullopt);
}

TEST_F(LauncherHub, ANewPlaceReachesTheEngineTheNameAndTheLabels) {
  LauncherWindow& launcher = Open();
  const std::string sunriseBefore = LabelText(launcher, "lblSunrise");
  const std::string sunshineBefore = LabelText(launcher, "lblSunshine");
  MoveTo("Hilltop", "52", "350");
  files.SetModifiedUtc("/house/amateur.txt", platform::MakeSerial({2024, 5, 31, 11, 0, 0}));
  RunActivation();
  EXPECT_EQ(orbit::Engine->ObserverLatitude(), 52);
  EXPECT_EQ(orbit::Engine->ObserverLongitude(), 10);
  EXPECT_EQ(orbit::Engine->ObserverHeight(), 41);
  EXPECT_EQ(orbit::TheTables().LocationName, "Hilltop");
  EXPECT_NE(LabelText(launcher, "lblSunrise"), sunriseBefore);
  EXPECT_NE(LabelText(launcher, "lblSunshine"), sunshineBefore);
  EXPECT_EQ(LabelText(launcher, "lblKepAge"), "Keplerian Elements Were Updated Yesterday");
}

TEST_F(LauncherHub, TheClockFollowsToo) {
  LauncherWindow& launcher = Open();
  settings.Set("LEDclocks", "2");
  RunActivation();
  EXPECT_EQ(LabelText(launcher, "lblClock"), "UTC Time");
}

TEST_F(LauncherHub, TheLaunchersWindowIsNeitherRaisedNorActivated) {
  LauncherWindow& launcher = Open();
  AboutWindow& about = OpenAbout();
  ASSERT_EQ(QApplication::activeWindow(), &about);
  const Promotions promotions(launcher);
  MoveTo("Hilltop", "-33.5", "209");
  RunActivation();
  Refresh();
  eventLoop.Advance(2);
  Settle();
  EXPECT_EQ(orbit::Engine->ObserverLatitude(), -33.5);
  EXPECT_EQ(QApplication::activeWindow(), &about);
  EXPECT_EQ(promotions.count, 0);
  eventLoop.RunEvent([&] { launcher.Show(); });
  Settle();
  EXPECT_GT(promotions.count, 0);  // what would have been counted
}

TEST_F(LauncherHub, AMinimisedLauncherStaysSo) {
  LauncherWindow& launcher = Open();
  launcher.showMinimized();
  Settle();
  MoveTo("Hilltop", "-33.5", "209");
  RunActivation();
  EXPECT_EQ(orbit::Engine->ObserverLatitude(), -33.5);
  EXPECT_TRUE(launcher.isMinimized());
}

TEST_F(LauncherHub, BeforeTheFirstActivationTheSplashStaysAndThatOneReadsAll) {
  eventLoop.RunEvent([this] {
    windows->Show(kSplashName);
    windows->Show("frmLAUNCHER");
    MoveTo("Hilltop", "-33.5", "209");
    station::TheHub().RunActivation();
    EXPECT_NE(windows->Find(kSplashName), nullptr);
    EXPECT_EQ(orbit::Engine->ObserverLatitude(), 0);
  });
  Settle();
  EXPECT_EQ(windows->Find(kSplashName), nullptr);
  EXPECT_EQ(orbit::Engine->ObserverLatitude(), -33.5);
}

/// Asks as the panel of the locations does when it is unloaded.
class Asking : public TaggedStub {
 public:
  explicit Asking(double& latitudeDeg) : latitudeDeg_(latitudeDeg) {}
  void OnUnload() override {
    station::TheHub().RunActivation();
    station::TheHub().Refresh();
    station::TheHub().StartAnew();
    latitudeDeg_ = orbit::Engine->ObserverLatitude();
  }

 private:
  double& latitudeDeg_;
};

TEST_F(LauncherHub, WhileTheRunEndsNothingIsDone) {
  double latitudeDeg = 99;
  windows->Register("Horizon", [&] { return std::make_unique<Asking>(latitudeDeg); });
  LauncherWindow& launcher = Open();
  Click(Button(launcher, 8));
  MoveTo("Hilltop", "-33.5", "209");
  files.Remove("/house/amateur.txt");  // an activation would end with a message
  eventLoop.RunEvent([&] { launcher.close(); });
  Settle();
  EXPECT_EQ(latitudeDeg, 0);
  EXPECT_EQ(eventLoop.ExitCode(), 0);
}

TEST_F(LauncherHub, AFaultOfTheActivationEndsTheRunAsInOneByTheUser) {
  Open();
  RegisterStub("Tabular");
  eventLoop.RunEvent([this] { windows->Show("Tabular"); });
  files.Remove("/house/amateur.txt");
  messages.ExpectQuestion("Shall the amateur.txt that came with Kestrava be put back?", true);
  RunActivation();
  EXPECT_EQ(shipped.putBack, Strings{"amateur.txt"});
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(eventLoop.ExitCode(), 1);
}

TEST_F(LauncherHub, AfterItsEndTheLauncherIsAskedNoMore) {
  LauncherWindow& launcher = Open();
  const station::Hub* during = &station::TheHub();
  eventLoop.RunEvent([&] { launcher.close(); });
  Settle();
  EXPECT_NE(&station::TheHub(), during);
  RunActivation();
}

/// A station with one satellite and the views that show it. Every second, or every other one, a view works out its
/// positions anew, for the place that the engine has then.
class LauncherHubWithViews : public LauncherHub {
 protected:
  LauncherHubWithViews() {
    Put("stations.txt",
        "ISS (ZARYA)\n"
        "1 25544U 98067A   24153.50000000  .00016717  00000-0  10270-3 0  9007\n"
        "2 25544  51.6416 247.4627 0006703 130.5360 325.0288 15.50000000 10001\n");
    Put("groups.dat", "Amateur,amateur.txt,0\nStations,stations.txt,0\n");
    Put("faves.dat", "ISS (ZARYA)\n");
    Put("satellite.dat", "");
    PutPicture("Default.jpg");
    windows->Register(views2d::ui::kWorldViewName, views2d::ui::MakeWorldView);
    windows->Register(views2d::ui::kHorizonName, views2d::ui::MakeHorizonView);
    windows->Register(views2d::ui::kTableViewName, views2d::ui::MakeTableView);
  }
};

class RunningView : public LauncherHubWithViews, public ::testing::WithParamInterface<const char*> {
 protected:
  /// Where the satellite stands now, worked out apart from all windows.
  static orbit::ResultBlock SubPoint() {
    orbit::Tables tables;
    orbit::OrbitEngine engine;
    engine.SetDataFolder("/house/");
    const orbit::Sky sky{tables, engine};
    EXPECT_TRUE(orbit::Satcalc(sky, "ISS (ZARYA)", platform::SplitSerial(orbit::NowLocal()), false));
    return tables.result;
  }
  /// What the view shows of it: the table in its list, the others in their row of the favourites.
  double ElevationDeg() {
    auto* view = dynamic_cast<QWidget*>(windows->Find(GetParam()));
    const auto* list = view == nullptr ? nullptr : view->findChild<QTableView*>("TabList");
    if (list == nullptr) return orbit::TheTables().FaveList[1].El;
    return list->model()->index(0, 2).data().toString().toDouble();
  }
};

TEST_P(RunningView, FollowsANewPlaceAtItsNextTick) {
  Open();
  eventLoop.RunEvent([] { platform::TheWindows().Show(GetParam()); });
  eventLoop.Advance(3);
  Settle();
  ASSERT_NE(ElevationDeg(), 0);
  ASSERT_LT(ElevationDeg(), 45);
  const orbit::ResultBlock below = SubPoint();
  MoveTo("Below it", platform::Format(below.SatLat, "0.0000"), platform::Format(below.SatLon, "0.0000"));
  RunActivation();
  eventLoop.Advance(3);
  Settle();
  EXPECT_GT(ElevationDeg(), 80);  // it has gone on by some twenty kilometres, 420 above
}

INSTANTIATE_TEST_SUITE_P(Views, RunningView, ::testing::Values("WorldView", "Horizon", "Tabular"),
                         [](const auto& view) { return std::string(view.param); });

TEST_F(LauncherHubWithViews, TheTableTellsTheNewPlace) {
  Open();
  eventLoop.RunEvent([] { platform::TheWindows().Show("Tabular"); });
  eventLoop.Advance(2);
  MoveTo("Hilltop", "-33.5", "209");
  RunActivation();
  eventLoop.Advance(2);
  auto& table = dynamic_cast<QWidget&>(*windows->Find("Tabular"));
  EXPECT_EQ(LabelText(table, "Slocation"), "Hilltop");
  EXPECT_EQ(LabelText(table, "Slat"), "-033.500");
}

TEST_F(LauncherHub, ARefreshShowsTheClockAndTheButtonsWithoutTheActivation) {
  LauncherWindow& launcher = Open();
  settings.Set("LEDclocks", "2");
  RegisterStub("Horizon");
  MoveTo("Hilltop", "-33.5", "209");
  files.Remove("/house/amateur.txt");  // an activation would end with a message
  Refresh();
  EXPECT_EQ(LabelText(launcher, "lblClock"), "UTC Time");
  EXPECT_TRUE(Button(launcher, 8).isEnabled());
  EXPECT_EQ(orbit::Engine->ObserverLatitude(), 0);
  settings.Set("LEDclocks", "0");
  Refresh();
  EXPECT_EQ(LabelText(launcher, "lblClock"), "Clocks Off");
  EXPECT_FALSE(In<LedClockWidget>(launcher, "LEDclockLocal").IsClockVisible());
}

/// Fonts of all texts, by the names of window and label.
std::map<QString, QFont> FontsOfLabels(const std::vector<QWidget*>& windows) {
  std::map<QString, QFont> fonts;
  for (const QWidget* window : windows) {
    for (const QLabel* label : window->findChildren<QLabel*>())
      fonts[window->objectName() + "." + label->objectName()] = label->font();
  }
  return fonts;
}

TEST_F(LauncherHub, ARefreshBringsEveryOpenWindowIntoTheLookThatTheSettingWants) {
  LauncherWindow& launcher = Open();
  AboutWindow& about = OpenAbout();
  const std::vector<QWidget*> both{&launcher, &about};
  const std::map<QString, QFont> fonts = FontsOfLabels(both);
  for (const bool skin : {false, true, false}) {
    settings.Set("Skin", skin ? "1" : "0");
    Refresh();
    EXPECT_EQ(platform::qt::SkinIsOn(), skin);
    for (const auto& [name, font] : FontsOfLabels(both))
      EXPECT_EQ(font.toString().toStdString(), fonts.at(name).toString().toStdString()) << name.toStdString();
    for (const QWidget* window : both) {
      const QColor ground = window->palette().color(QPalette::Window);
      EXPECT_EQ(ground == platform::qt::Tones().window, skin) << window->objectName().toStdString();
      EXPECT_GE(platform::qt::ContrastRatio(window->palette().color(QPalette::WindowText), ground), 4.5)
          << window->objectName().toStdString() << ", skin " << skin;
    }
    testing::SaveShot(launcher, skin ? "refreshed-skin" : "refreshed-plain");
  }
}

TEST_F(LauncherHub, StartingAnewEndsTheRunInOrderWhenTheEventIsOver) {
  RegisterStub("Horizon");
  LauncherWindow& launcher = Open();
  Click(Button(launcher, 8));
  eventLoop.RunEvent([&] {
    station::TheHub().StartAnew();
    EXPECT_EQ(LoadedNames(), (Strings{"frmLAUNCHER", "Horizon"}));
  });
  Settle();
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(orbit::Engine, nullptr);
  EXPECT_EQ(eventLoop.ExitCode(), kStartAnewCode);
  EXPECT_EQ(processEnds, 0);
}

TEST_F(LauncherHub, AJobThatIsKeptKeepsTheRunAndALaterCloseStartsNothing) {
  windows->Register(predict::kWizardWindow, [] { return std::make_unique<FilledWizard>(); });
  LauncherWindow& launcher = Open();
  eventLoop.RunEvent([&] { windows->Show(predict::kWizardWindow); });
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", false);
  StartAnew();
  EXPECT_EQ(LoadedNames(), (Strings{"frmLAUNCHER", "PassWizard"}));
  EXPECT_EQ(eventLoop.ExitCode(), std::nullopt);
  MoveTo("Hilltop", "-33.5", "209");
  RunActivation();
  EXPECT_EQ(orbit::Engine->ObserverLatitude(), -33.5);  // the run goes on as before
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", true);
  eventLoop.RunEvent([&] { launcher.close(); });
  Settle();
  EXPECT_EQ(eventLoop.ExitCode(), 0);
}

TEST_F(LauncherHub, AJobThatIsGivenUpLetsTheRunStartAnew) {
  windows->Register(predict::kWizardWindow, [] { return std::make_unique<FilledWizard>(); });
  Open();
  eventLoop.RunEvent([&] { windows->Show(predict::kWizardWindow); });
  messages.ExpectQuestion("You will loose the information for this job, Are you sure ?", true);
  StartAnew();
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(eventLoop.ExitCode(), kStartAnewCode);
}

TEST_F(LauncherHub, AskedTwiceItEndsOnce) {
  Open();
  eventLoop.RunEvent([] {
    station::TheHub().StartAnew();
    station::TheHub().StartAnew();
  });
  Settle();
  EXPECT_EQ(eventLoop.ExitCode(), kStartAnewCode);
}

TEST_F(LauncherHub, ACloseInTheSameEventGoesBeforeANewStart) {
  LauncherWindow& launcher = Open();
  eventLoop.RunEvent([&] {
    station::TheHub().StartAnew();
    launcher.close();
  });
  Settle();
  EXPECT_EQ(eventLoop.ExitCode(), 0);
}

}  // namespace
}  // namespace kestrava::shell::ui
