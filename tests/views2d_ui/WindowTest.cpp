// The map as a window: its place, its end in the midst of things, several at once, names and focus for everyone.
#include <QAccessible>
#include <QAction>
#include <QPointer>
#include <QScreen>
#include <QSlider>
#include <set>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/qt/LedClockWidget.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/Widgets.h"

#include "LookCompare.h"
#include "MapFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::views2d::ui {
namespace {

using platform::qt::LedClockWidget;
using platform::qt::SurfaceWidget;

class MapAsAWindow : public MapFixture {
 protected:
  /// The map closes in the n-th yield of a tick; its object goes when the tick is over, and nothing of it is left.
  void ExpectCloseAtYield(int n, bool withEtaList) {
    QPointer<QWidget> map = &Open();
    if (withEtaList) Click(Child<QWidget>(*map, "BUTimode(1)"));
    bool closed = false;
    eventLoop.AtYield(n, [&] {
      map->close();
      closed = true;
      EXPECT_FALSE(map->isVisible()) << "off the screen at once";
      EXPECT_TRUE(windows->Loaded().empty());
      EXPECT_FALSE(map.isNull()) << "its tick is still under way";
    });
    Run(1.5);
    EXPECT_TRUE(closed) << n;
    EXPECT_TRUE(map.isNull()) << n;
    EXPECT_EQ(eventLoop.RunningTimers(), 0) << n;
  }
};

TEST_F(MapAsAWindow, ClosesInAnyYieldOfItsTick) {
  for (int n = 1; n <= tables.FaveCount; ++n) ExpectCloseAtYield(n, false);
}

TEST_F(MapAsAWindow, ClosesInBothYieldsOfItsPaint) {
  ExpectCloseAtYield(tables.FaveCount + 1, false);
  ExpectCloseAtYield(tables.FaveCount + 2, false);
}

TEST_F(MapAsAWindow, ClosesInTheMidstOfTheEtaList) {
  for (const int into : {1, 5, 40}) ExpectCloseAtYield(tables.FaveCount + 2 + into, true);
}

TEST_F(MapAsAWindow, MayBeOpenedAgainAfterwards) {
  CloseByUser(Open("NEQ"));
  QWidget& map = Open();
  Run(1);
  EXPECT_TRUE(Child<SurfaceWidget>(map, "Final").HasPresented());
}

TEST_F(MapAsAWindow, APaintAskedForInAPaintsYieldIsDoneWhole) {
  QWidget& map = Open();
  auto& canvas = Child<SurfaceWidget>(map, "Final");
  eventLoop.AtYield(tables.FaveCount + 1, [&] { Click(Child<QWidget>(map, "BUTexpand")); });
  Run(1);
  EXPECT_EQ(canvas.width(), map.width() - 14);
  EXPECT_EQ(canvas.Back().Width(), canvas.width());
  const QImage shown = testing::Grab(canvas);
  EXPECT_EQ(shown, canvas.Back().Image().convertToFormat(QImage::Format_RGB32));
}

TEST_F(MapAsAWindow, AResizeInAPaintsYieldLeavesThatPaintItsSize) {
  QWidget& map = Open();
  auto& canvas = Child<SurfaceWidget>(map, "Final");
  Run(1);
  const int before = canvas.Back().Width();
  eventLoop.AtYield(tables.FaveCount + 1, [&] { Resize(map, 1000, 700); });
  Run(2);
  EXPECT_EQ(canvas.width(), 800);
  EXPECT_EQ(canvas.Back().Width(), before);
  Run(2);
  EXPECT_EQ(canvas.Back().Width(), 800);
}

TEST_F(MapAsAWindow, StandsWhereItStoodBefore) {
  QWidget& map = Open();
  map.setGeometry(131, 77, 901, 603);
  Run(1);
  EXPECT_EQ(settings.Get("WinPosX"), "1965");
  EXPECT_EQ(settings.Get("WinPosY"), "1155");
  EXPECT_EQ(settings.Get("WinPosW"), "13515");
  EXPECT_EQ(settings.Get("WinPosH"), "9045");
  CloseByUser(map);
  EXPECT_EQ(Open().geometry(), QRect(131, 77, 901, 603));
}

TEST_F(MapAsAWindow, MinimisedItNeitherLaysOutNorStoresItsPlace) {
  QWidget& map = Open();
  Run(1);
  QWidget& canvas = Child<QWidget>(map, "Final");
  const QSize size = canvas.size();
  map.showMinimized();
  HandleEvents();
  settings.ForgetAccesses();
  canvas.parentWidget()->resize(300, 200);
  Run(4);
  EXPECT_EQ(canvas.size(), size);
  for (const auto& [key, value] : settings.Writes()) EXPECT_FALSE(QString::fromStdString(key).startsWith("WinPos"));
}

TEST_F(MapAsAWindow, TwoMapsKeepTheirOwnModeWarpAndPane) {
  QWidget& world = Open();
  QWidget& east = OpenAnother("NEQ");
  Click(Child<QWidget>(east, "BUTtime(1)"));
  Click(Child<QWidget>(east, "BUTexpand"));
  Child<QSlider>(east, "SliderWarp").setValue(60);
  Run(20);
  EXPECT_EQ(Child<LedClockWidget>(world, "LEDclock").Text(), "18:20:20");
  EXPECT_GT(Child<LedClockWidget>(east, "LEDclock").Text(), "18:25:00");
  EXPECT_TRUE(Child<QWidget>(world, "IPtext").isVisible());
  EXPECT_FALSE(Child<QWidget>(east, "IPtext").isVisible());
  EXPECT_NE(testing::Grab(Child<QWidget>(world, "Final")), testing::Grab(Child<QWidget>(east, "Final")));
  Entry(world, "MFaveList(5)").trigger();
  Run(2);
  EXPECT_EQ(Text(world, 0), Text(east, 0));
  CloseByUser(east);
  const QImage before = testing::Grab(Child<QWidget>(world, "Final"));
  Run(30);
  EXPECT_NE(testing::Grab(Child<QWidget>(world, "Final")), before) << "the other one goes on";
}

TEST_F(MapAsAWindow, FromTheSecondOnEachOpensOffsetFromTheOneBeforeWithItsRegionInTheTitle) {
  settings.Set("WinPosW", "6000");
  settings.Set("WinPosH", "4500");
  QWidget& world = Open();
  world.move(90, 60);
  QWidget& east = OpenAnother("NEQ");
  QWidget& south = OpenAnother("SCQ");
  EXPECT_EQ(east.geometry(), QRect(122, 92, 400, 300));
  EXPECT_EQ(south.geometry(), QRect(154, 124, 400, 300));
  EXPECT_EQ(world.windowTitle(), "Kestrava - Map View");
  EXPECT_EQ(east.windowTitle(), "Kestrava - Map View - North East");
  EXPECT_EQ(south.windowTitle(), "Kestrava - Map View - South Central");
  Entry(south, "Mworld").trigger();
  EXPECT_EQ(south.windowTitle(), "Kestrava - Map View - World");
  const QRect screen = south.screen()->availableGeometry();
  for (int i = 0; i < 20; ++i) EXPECT_TRUE(screen.contains(OpenAnother("NWQ").geometry())) << i;
}

TEST_F(MapAsAWindow, TwoMapsAtDifferentPlacesLeaveTheSettingsAlone) {
  QWidget& world = Open();
  OpenAnother("NEQ");
  Run(4);
  settings.ForgetAccesses();
  Run(20);
  EXPECT_TRUE(settings.Writes().empty()) << settings.Writes().front().first;
  world.move(77, 88);
  Run(2);
  EXPECT_EQ(settings.Get("WinPosX"), std::to_string(77 * 15));
}

TEST_F(MapAsAWindow, ClosedBesideAnotherItTakesNothingOfTheOthersPicture) {
  QWidget& world = Open();
  QWidget& east = OpenAnother("NEQ");
  Run(3);
  CloseByUser(east);
  EXPECT_NE(tables.GroundTrack[10].lat, 0);
  auto& canvas = Child<SurfaceWidget>(world, "Final");
  const QImage before = canvas.Back().Image().copy();
  for (int i = 0; i < 2; ++i) Click(Child<QWidget>(world, "BUTexpand"));  // paints without a step of the time
  EXPECT_EQ(canvas.Back().Image(), before);
  CloseByUser(world);
  EXPECT_EQ(tables.GroundTrack[10].lat, 0);
}

TEST_F(MapAsAWindow, AMapOfARegionShowsItBeforeItsFirstTick) {
  Open();
  QWidget& east = OpenAnother("NEQ");
  const auto& canvas = Child<SurfaceWidget>(east, "Final");
  ASSERT_FALSE(canvas.HasPresented());
  const QImage shown = testing::Grab(Child<QWidget>(east, "Final"));
  const QImage world(KESTRAVA_SOURCE_DIR "data/sample/Default.jpg");
  const QRect quarter(world.width() / 2, 0, world.width() / 2, world.height() / 2);
  const QImage wanted = world.copy(quarter).scaled(shown.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  EXPECT_LT(ShareOfDiffering(shown, wanted), 0.1);
  EXPECT_GT(ShareOfDiffering(shown, world.scaled(shown.size())), 0.3);
  Shot(east, "map", "idle-region");
}

TEST_F(MapAsAWindow, AFaultInAPaintsYieldCostsThatPaintAlone) {
  QWidget& map = Open();
  eventLoop.AtYield(tables.FaveCount + 1, [] { throw platform::Fault::ObjectNotSet(); });
  Run(1);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Object variable not set - map - Timer1"});
  EXPECT_FALSE(Child<SurfaceWidget>(map, "Final").HasPresented());
  Run(2);
  EXPECT_TRUE(Child<SurfaceWidget>(map, "Final").HasPresented());
}

TEST_F(MapAsAWindow, NarrowerThanItsPaneItStillPaints) {
  QWidget& map = Open();
  Resize(map, 150, 300);
  Run(2);
  EXPECT_EQ(Child<QWidget>(map, "Final").width(), 50);
  EXPECT_EQ(Child<QWidget>(map, "IPtext").height(), 320 - Child<QWidget>(map, "Final").height());
}

TEST_F(MapAsAWindow, EveryControlHasANameForAssistivePrograms) {
  QWidget& map = Open();
  QStringList names{"Final",      "BUTexpand",   "BUTtime(0)", "BUTtime(1)", "BUTimode(0)", "BUTimode(1)",
                    "SliderWarp", "lstQuickETA", "IPtext",     "LEDclock",   "AZ",          "EL"};
  for (int i = 0; i < 4; ++i) names << QString("InfoPaneLabels(%1)").arg(i);
  Run(1);
  for (int i = 0; i < 18; ++i) names << QString("RemoteStat(%1)").arg(i);
  for (const QString& name : names) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&Child<QWidget>(map, name));
    ASSERT_NE(spoken, nullptr) << name.toStdString();
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << name.toStdString();
  }
}

TEST_F(MapAsAWindow, TheTabKeyReachesEveryControlThatIsThere) {
  QWidget& map = Open();
  const auto round = [&] {
    std::set<std::string> reached;
    for (int i = 0; i < 30; ++i) {
      PressKey(map, Qt::Key_Tab);
      if (map.focusWidget()) reached.insert(platform::qt::FromQt(map.focusWidget()->objectName()));
    }
    return reached;
  };
  const std::set<std::string> all{"Final",       "BUTexpand",   "BUTtime(0)", "BUTtime(1)",
                                  "BUTimode(0)", "BUTimode(1)", "SliderWarp", "IPtext"};
  EXPECT_EQ(round(), all);
  Click(Child<QWidget>(map, "BUTimode(1)"));
  EXPECT_EQ(round().count("lstQuickETA"), 1u);
  Click(Child<QWidget>(map, "BUTexpand"));
  EXPECT_EQ(round(), (std::set<std::string>{"Final", "BUTexpand"})) << "nothing out of sight takes the focus";
}

TEST_F(MapAsAWindow, TheFocusOfTheKeyboardCanBeSeenOnEveryControl) {
  QWidget& map = Open();
  Run(1);
  Click(Child<QWidget>(map, "BUTimode(1)"));
  for (int i = 0; i < 10; ++i) {
    PressKey(map, Qt::Key_Tab);
    HandleEvents();
    QWidget* control = map.focusWidget();
    const QImage with = testing::Grab(*control);
    control->clearFocus();
    HandleEvents();
    EXPECT_NE(testing::Grab(*control), with) << control->objectName().toStdString();
    control->setFocus(Qt::TabFocusReason);
  }
}

}  // namespace
}  // namespace kestrava::views2d::ui
