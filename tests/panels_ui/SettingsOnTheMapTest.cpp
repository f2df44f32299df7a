// What is chosen in the main and the 2D settings panel shows in a map that is open, or in the next one, each at its
// time.
#include <QAbstractButton>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QSlider>

#include <gtest/gtest.h>

#include "panels/MainSettingsPanel.h"
#include "panels/Settings2DPanel.h"
#include "panels/ui/PanelWindows.h"
#include "platform/Surface.h"
#include "platform/qt/ImageSurface.h"
#include "platform/qt/LedClockWidget.h"
#include "platform/qt/Theme.h"

#include "support_qt/Shots.h"
#include "views2d_ui/MapFixture.h"

namespace kestrava::panels::ui {
namespace {

class SettingsOnTheMap : public views2d::ui::MapFixture {
 protected:
  SettingsOnTheMap() {
    settings.Set("LEDclocks", "1");
    windows->Register(kMainSettingsWindow, [] { return MakeMainSettingsWindow(); });
    windows->Register(kSettings2DWindow, [] { return MakeSettings2DWindow(); });
  }

  QWidget& Panel(std::string_view name) {
    eventLoop.RunEvent([&] { windows->Show(name); });
    HandleEvents();
    return dynamic_cast<QWidget&>(*windows->Find(name));
  }
  void Tick(std::string_view panel, const char* control) {
    Click(Child<QAbstractButton>(Panel(panel), control));
    HandleEvents();
  }
  void Slide(const char* control, int value) {
    eventLoop.RunEvent([&] { Child<QSlider>(Panel(kSettings2DWindow), control).setValue(value); });
  }

  static int PixelsOf(QWidget& map, platform::Colour colour) {
    const QImage picture = testing::Grab(Child<QWidget>(map, "Final"));
    int found = 0;
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) found += picture.pixel(x, y) == platform::qt::ToRgb(colour) ? 1 : 0;
    }
    return found;
  }
};

constexpr int kDots = 50;  // fewer of a colour are something else

TEST_F(SettingsOnTheMap, MilesShowAtTheNextTick) {
  QWidget& map = Open();
  Run(3);
  ASSERT_TRUE(Text(map, 5).startsWith("Height : ")) << Text(map, 5).toStdString();
  EXPECT_FALSE(Text(map, 5).contains("Miles"));
  Tick(kMainSettingsWindow, "CHmiles");
  Run(3);
  EXPECT_TRUE(Text(map, 5).contains("Miles")) << Text(map, 5).toStdString();
  Tick(kMainSettingsWindow, "CHmiles");
  Run(3);
  EXPECT_FALSE(Text(map, 5).contains("Miles"));
}

TEST_F(SettingsOnTheMap, AClockThatIsTurnedOnShowsAtTheNextTick) {
  settings.Set("LEDclocks", "0");
  QWidget& map = Open();
  Run(3);
  const auto& led = Child<platform::qt::LedClockWidget>(map, "LEDclock");
  EXPECT_FALSE(led.isVisible());
  Tick(kMainSettingsWindow, "OPclocks(2)");
  Run(3);
  EXPECT_TRUE(led.isVisible());
}

TEST_F(SettingsOnTheMap, FootprintsShowAndGoAtTheNextTick) {
  QWidget& map = Open();
  Run(5);
  ASSERT_GT(PixelsOf(map, platform::kOrange), kDots);
  Tick(kSettings2DWindow, "CHfootprints");
  Run(3);
  EXPECT_LT(PixelsOf(map, platform::kOrange), kDots);
  Tick(kSettings2DWindow, "CHfootprints");
  Run(3);
  EXPECT_GT(PixelsOf(map, platform::kOrange), kDots);
}

TEST_F(SettingsOnTheMap, TheGroundTrackGoesAtTheNextTick) {
  QWidget& map = Open();
  Run(5);
  Tick(kSettings2DWindow, "CHfootprints");
  Run(3);
  const QImage with = testing::Grab(Child<QWidget>(map, "Final"));
  Tick(kSettings2DWindow, "CHgroundtrack");
  Run(3);
  const QImage without = testing::Grab(Child<QWidget>(map, "Final"));
  Slide("SLMapUpdate", 2);
  int changed = 0;
  for (int y = 0; y < with.height(); ++y) {
    for (int x = 0; x < with.width(); ++x) changed += with.pixel(x, y) != without.pixel(x, y) ? 1 : 0;
  }
  EXPECT_GT(changed, 2 * kDots);
}

TEST_F(SettingsOnTheMap, ALongerTrackHasNewRowsAtItsNextRun) {
  Open();
  Run(5);
  ASSERT_EQ(tables.GroundTrack[300].colour, 0u);
  Slide("SLgroundTrackLen", 240);
  Run(300);
  EXPECT_NE(tables.GroundTrack[300].lon, 0.0) << "two rows a minute";
}

TEST_F(SettingsOnTheMap, TheUpdateIsSlowerAfterTheNextTick) {
  QWidget& map = Open();
  Run(5);
  Slide("SLMapUpdate", 60);
  Run(3);
  const QString lat = Text(map, 6);
  Run(50);
  EXPECT_EQ(Text(map, 6), lat) << "no tick in between";
  Run(20);
  EXPECT_NE(Text(map, 6), lat);
}

TEST_F(SettingsOnTheMap, TheInfoPaneFollowsWhenAMapIsOpened) {
  QWidget& map = Open();
  Run(3);
  const QWidget& line = Child<QWidget>(map, "RemoteStat(5)");
  EXPECT_TRUE(line.isVisible());
  Tick(kSettings2DWindow, "CHshowinfopane");
  Run(3);
  EXPECT_TRUE(line.isVisible());
  CloseByUser(map);
  QWidget& next = Open();
  Run(3);
  EXPECT_FALSE(Child<QWidget>(next, "RemoteStat(5)").isVisible());
}

TEST_F(SettingsOnTheMap, AnotherPictureShowsWhenAMapIsOpened) {
  QWidget& map = Open();
  Run(3);
  auto& box = Child<QComboBox>(Panel(kSettings2DWindow), "COMmap");
  const int chart = box.findText("Chart");
  ASSERT_GE(chart, 0);
  const QImage before = testing::Grab(Child<QWidget>(map, "Final"));
  eventLoop.RunEvent([&] {
    box.setCurrentIndex(chart);
    emit box.activated(chart);
  });
  CloseByUser(map);
  QWidget& next = Open();
  Run(3);
  const QImage after = testing::Grab(Child<QWidget>(next, "Final"));
  ASSERT_EQ(after.size(), before.size());
  int changed = 0;
  for (int x = 0; x < after.width(); ++x) changed += after.pixel(x, 20) != before.pixel(x, 20) ? 1 : 0;
  EXPECT_GT(changed, after.width() / 2);
}

TEST_F(SettingsOnTheMap, TheMapsMenuOpensTheControls) {
  QWidget& map = Open();
  Run(3);
  ASSERT_EQ(windows->Find(kSettings2DWindow), nullptr);
  eventLoop.RunEvent([&] { Entry(map, "mnu2Dcontrols").trigger(); });
  ASSERT_NE(windows->Find(kSettings2DWindow), nullptr);
  EXPECT_TRUE(windows->IsVisible(kSettings2DWindow));
}

TEST_F(SettingsOnTheMap, TheSkinShowsAtOnceInAnOpenMap) {
  QWidget& map = Open();
  Run(3);
  const QColor dark = map.palette().color(QPalette::Window);
  EXPECT_EQ(dark, platform::qt::Tones().window);
  Tick(kMainSettingsWindow, "CHskin");
  EXPECT_NE(map.palette().color(QPalette::Window), dark);
  Tick(kMainSettingsWindow, "CHskin");
  EXPECT_EQ(map.palette().color(QPalette::Window), dark);
}

}  // namespace
}  // namespace kestrava::panels::ui
