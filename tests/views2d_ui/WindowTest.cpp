// The map as a window: its place, its end in the midst of things, several at once, names and focus for everyone.
#include <QAccessible>
#include <QAction>
#include <QPointer>
#include <QSlider>
#include <set>

#include <gtest/gtest.h>

#include "platform/qt/LedClockWidget.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/Widgets.h"

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
