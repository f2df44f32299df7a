// The horizon window through its real controls.
#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QFontMetricsF>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <set>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/Doors.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/SurfaceWidget.h"

#include "HorizonFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::views2d::ui {
namespace {

using platform::qt::SurfaceWidget;

class HorizonControls : public HorizonFixture {
 protected:
  HorizonControls() { settings.Set("Speechpack", "1"); }
};

TEST_F(HorizonControls, CaptionsMenusAndMarksAreThoseOfAFreshWindow) {
  QWidget& horizon = OpenHorizon();
  EXPECT_EQ(horizon.windowTitle(), "Kestrava - Panoramic Horizon View");
  const auto texts = [&](const char* menu) {
    QStringList all{Child<QMenu>(horizon, menu).title()};
    for (const QAction* entry : Child<QMenu>(horizon, menu).actions())
      all << (entry->isSeparator() ? "-" : entry->objectName() + " " + entry->text());
    return all;
  };
  EXPECT_EQ(texts("M1"), QStringList({"&Options", "Mposannounce Position Announcer"}));
  EXPECT_EQ(texts("M2"), QStringList({"&Controls", "Msouth Centered on South", "Mnorth Centered on North", "-",
                                      "mnuSpeechAnnouncment Speech Announcment"}));
  EXPECT_TRUE(Entry(horizon, "Mposannounce").isChecked());
  EXPECT_TRUE(Entry(horizon, "Msouth").isChecked());
  EXPECT_FALSE(Entry(horizon, "Mnorth").isChecked());
  EXPECT_FALSE(Entry(horizon, "mnuSpeechAnnouncment").isCheckable());
  EXPECT_EQ(Child<QPlainTextEdit>(horizon, "txtSatInfo").toPlainText(), "No Information available\n");
}

TEST_F(HorizonControls, NoTwoEntriesShareAKey) {
  QWidget& horizon = OpenHorizon();
  std::set<QString> keys;
  for (const char* name : {"Mposannounce", "Msouth", "Mnorth", "mnuSpeechAnnouncment"})
    EXPECT_TRUE(keys.insert(Entry(horizon, name).shortcut().toString()).second) << name;
}

TEST_F(HorizonControls, BeforeTheFirstTickTheSceneryStandsThereAndAfterASecondThePainting) {
  QWidget& horizon = OpenHorizon();
  auto& canvas = Child<SurfaceWidget>(horizon, "Final");
  EXPECT_FALSE(canvas.HasPresented());
  const QImage idle = testing::Grab(canvas);
  EXPECT_NE(idle.pixel(idle.width() / 2, idle.height() / 2), qRgb(0, 0, 0));
  Run(1);
  EXPECT_TRUE(canvas.HasPresented());
  EXPECT_NE(testing::Grab(canvas), idle);
}

TEST_F(HorizonControls, StandsWhereTheMapStoodAndStoresNoPlace) {
  settings.Set("WinPosX", "1500");
  settings.Set("WinPosY", "900");
  settings.Set("WinPosW", "12000");
  settings.Set("WinPosH", "7500");
  QWidget& horizon = OpenHorizon();
  EXPECT_EQ(horizon.geometry(), QRect(100, 60, 800, 500));
  settings.ForgetAccesses();
  horizon.move(300, 200);
  Run(3);
  for (const auto& [key, value] : settings.Writes()) EXPECT_NE(key.substr(0, 6), "WinPos");
}

TEST_F(HorizonControls, AClickOfAnyButtonSelectsTheNearestOneAndIsSaid) {
  QWidget& horizon = OpenHorizon();
  Run(1);
  auto& canvas = Child<QWidget>(horizon, "Final");
  const int up = FirstUp();
  ASSERT_GT(up, 0);
  for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
    tables.SelSat = 0;
    speech.said.clear();
    ClickAt(canvas, SpotOf(horizon, up), button);
    EXPECT_EQ(tables.SelSat, up);
    ASSERT_EQ(speech.said.size(), 1u);
    EXPECT_EQ(speech.said[0].substr(0, 19), "Selected Satellite ");
  }
}

TEST_F(HorizonControls, TheDataOfTheSelectedOneStandsInTheBox) {
  QWidget& horizon = OpenHorizon();
  Run(1);
  int hubble = 0;
  for (int i = 1; i <= tables.FaveCount; ++i)
    if (tables.FaveList[static_cast<std::size_t>(i)].Name == "HST") hubble = i;
  ASSERT_GT(hubble, 0);
  ClickAt(Child<QWidget>(horizon, "Final"), SpotOf(horizon, hubble));
  EXPECT_TRUE(Child<QPlainTextEdit>(horizon, "txtSatInfo").toPlainText().startsWith("Data for HST"));
}

TEST_F(HorizonControls, TheExpandButtonBringsTheBoxInAndOut) {
  QWidget& horizon = OpenHorizon();
  auto& box = Child<QWidget>(horizon, "txtSatInfo");
  auto& button = Child<QWidget>(horizon, "BUTexpand");
  const int inner = Child<QWidget>(horizon, "Final").width();
  EXPECT_EQ(box.x(), inner);
  EXPECT_FALSE(box.isVisible());
  EXPECT_EQ(button.x(), inner - button.width());
  Click(button);
  EXPECT_EQ(box.x(), inner - box.width());
  EXPECT_TRUE(box.isVisible());
  EXPECT_EQ(button.x(), box.x() - button.width());
  Click(button);
  EXPECT_EQ(box.x(), inner);
}

TEST_F(HorizonControls, AResizeKeepsTheBoxAtTheRightEdgeAndThePictureFillsTheInside) {
  QWidget& horizon = OpenHorizon();
  Click(Child<QWidget>(horizon, "BUTexpand"));
  for (const QSize size : {QSize(400, 300), QSize(1600, 900), QSize(800, 509), QSize(120, 200)}) {
    Resize(horizon, size.width(), size.height());
    auto& canvas = Child<QWidget>(horizon, "Final");
    auto& box = Child<QWidget>(horizon, "txtSatInfo");
    EXPECT_EQ(canvas.geometry(), canvas.parentWidget()->rect());
    EXPECT_EQ(box.x() + box.width(), canvas.width());
    EXPECT_GE(Child<QWidget>(horizon, "BUTexpand").x(), 0) << "its button stays within reach";
    Run(1);
    EXPECT_EQ(Child<SurfaceWidget>(horizon, "Final").Back().Width(), canvas.width());
  }
}

TEST_F(HorizonControls, TheMenuTurnsTheViewAndRepeatedClicksMakeTheMarksDisagreeWithIt) {
  QWidget& horizon = OpenHorizon();
  Run(1);
  Entry(horizon, "Mnorth").trigger();
  EXPECT_TRUE(Entry(horizon, "Mnorth").isChecked());
  EXPECT_FALSE(Entry(horizon, "Msouth").isChecked());
  Run(1);
  const int up = FirstUp();
  tables.SelSat = 0;
  ClickAt(Child<QWidget>(horizon, "Final"), SpotOf(horizon, up, true));
  EXPECT_EQ(tables.SelSat, up);
  Entry(horizon, "Mnorth").trigger();
  EXPECT_FALSE(Entry(horizon, "Mnorth").isChecked());
  EXPECT_TRUE(Entry(horizon, "Msouth").isChecked()) << "and north still stands in the centre";
}

TEST_F(HorizonControls, ThePositionAnnouncerFlipsItsMarkOnceForEachClick) {
  QWidget& horizon = OpenHorizon();
  Entry(horizon, "Mposannounce").trigger();
  EXPECT_FALSE(Entry(horizon, "Mposannounce").isChecked());
  Run(20);
  for (const auto& text : speech.said) EXPECT_NE(text.substr(0, 7), "Heading");
  PressKey(horizon, Qt::Key_P, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_TRUE(Entry(horizon, "Mposannounce").isChecked());
}

TEST_F(HorizonControls, TheSpeechAnnouncementTellsWhoIsUp) {
  QWidget& horizon = OpenHorizon();
  Run(1);
  speech.said.clear();
  int up = 0;
  for (int i = 1; i <= tables.FaveCount; ++i) up += tables.FaveList[static_cast<std::size_t>(i)].El > 0;
  ASSERT_GT(up, 0);
  eventLoop.RunEvent([&] { Entry(horizon, "mnuSpeechAnnouncment").trigger(); });
  EXPECT_EQ(speech.said.size(), static_cast<std::size_t>(up));
  EXPECT_EQ(speech.announcements, 1);
}

TEST_F(HorizonControls, EscapeStopsSpeaking) {
  QWidget& horizon = OpenHorizon();
  PressKey(horizon, Qt::Key_Escape);
  EXPECT_EQ(speech.stops, 1);
  EXPECT_TRUE(horizon.isVisible());
}

TEST_F(HorizonControls, ATooltipNamesWhatLiesUnderThePointer) {
  QWidget& horizon = OpenHorizon();
  Run(1);
  const int up = FirstUp();
  ASSERT_GT(up, 0);
  const QString name = QString::fromStdString(tables.FaveList[static_cast<std::size_t>(up)].Name);
  EXPECT_TRUE(TipAt(horizon, SpotOf(horizon, up)).contains(name + ": azimuth ")) << name.toStdString();
}

TEST_F(HorizonControls, TheLastCompassLabelFitsTheFortyPixelsThatItIsGiven) {
  QWidget& horizon = OpenHorizon();
  const auto& back = Child<SurfaceWidget>(horizon, "Final").Back();
  EXPECT_LE(back.TextWidth("NORTH"), 40);
  EXPECT_LE(back.TextWidth("SOUTH"), 40);
  EXPECT_LE(3 * back.LineHeight(), 40) << "the texts of Sun and Moon stand above the compass";
  EXPECT_LE(back.LineHeight(), 15) << "the last line stands whole above the bottom edge";
}

TEST_F(HorizonControls, EveryControlHasANameForAssistivePrograms) {
  QWidget& horizon = OpenHorizon();
  for (const char* name : {"Final", "BUTexpand", "txtSatInfo"}) {
    QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&Child<QWidget>(horizon, name));
    ASSERT_NE(spoken, nullptr) << name;
    EXPECT_FALSE(spoken->text(QAccessible::Name).isEmpty()) << name;
  }
}

TEST_F(HorizonControls, TheTabKeyReachesWhatIsInView) {
  QWidget& horizon = OpenHorizon();
  const auto round = [&] {
    std::set<QString> reached;
    for (int i = 0; i < 8; ++i) {
      PressKey(horizon, Qt::Key_Tab);
      if (horizon.focusWidget()) reached.insert(horizon.focusWidget()->objectName());
    }
    return reached;
  };
  EXPECT_EQ(round(), (std::set<QString>{"Final", "BUTexpand"}));
  Click(Child<QWidget>(horizon, "BUTexpand"));
  EXPECT_EQ(round(), (std::set<QString>{"Final", "BUTexpand", "txtSatInfo"}));
}

TEST_F(HorizonControls, ADamagedSceneryIsLoggedAndTheViewIsThere) {
  Put("hdefault.jpg", "no picture");
  QWidget& horizon = OpenHorizon();
  Run(1);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Invalid picture - Horizon - FormLoad"});
  EXPECT_TRUE(Child<SurfaceWidget>(horizon, "Final").HasPresented());
}

TEST_F(HorizonControls, WithoutASceneryTheViewIsBlackAndNothingIsLogged) {
  settings.Set("HorizonFile", "none");
  QWidget& horizon = OpenHorizon();
  Run(1);
  const auto& canvas = Child<SurfaceWidget>(horizon, "Final");
  EXPECT_TRUE(canvas.HasPresented());
  EXPECT_EQ(canvas.Back().Image().pixel(canvas.width() / 2, 120), qRgb(0, 0, 0));
  EXPECT_TRUE(ErrorLog().empty());
}

TEST_F(HorizonControls, ClosedByTheUserItIsGoneWithItsTimers) {
  QPointer<QWidget> horizon = &OpenHorizon();
  Run(2);
  CloseByUser(*horizon);
  EXPECT_TRUE(horizon.isNull());
  EXPECT_TRUE(windows->Loaded().empty());
  EXPECT_EQ(eventLoop.RunningTimers(), 0);
  Run(20);
  EXPECT_TRUE(OpenHorizon().isVisible()) << "and may be opened again";
}

TEST_F(HorizonControls, ClosedInTheMidstOfAPaintItEndsInOrder) {
  files.Remove(platform::InAppDir("satellite.dat"));
  QPointer<QWidget> horizon = &OpenHorizon();
  messages.ExpectMessage("Satellite.dat file is missing", [&] { horizon->close(); });
  Run(2);
  TakeFaults();
  EXPECT_TRUE(horizon.isNull());
  EXPECT_EQ(eventLoop.RunningTimers(), 0);
}

TEST_F(HorizonControls, ClosedInTheYieldsOfAnAnnouncementItEndsInOrder) {
  for (const int yield : {1, 2}) {
    QPointer<QWidget> horizon = &OpenHorizon();
    eventLoop.AtYield(yield, [&] { horizon->close(); });
    eventLoop.RunEvent([&] { Entry(*horizon, "mnuSpeechAnnouncment").trigger(); });
    HandleEvents();
    EXPECT_TRUE(horizon.isNull()) << yield;
    EXPECT_EQ(eventLoop.RunningTimers(), 0);
  }
}

TEST_F(HorizonControls, TheMapsWarpClockHasNoEffectHereAndTheMapLivesWithASelectionThatWasDropped) {
  QWidget& map = Open();
  Click(Child<QWidget>(map, "BUTtime(1)"));
  QWidget& horizon = OpenHorizon();
  tables.SelSat = 0;
  for (int i = 1; i <= 200; ++i) {
    Run(1);
    if (i % 20 == 0) tables.SelSat = static_cast<std::int16_t>(1 + i / 20 % tables.FaveCount);
  }
  EXPECT_TRUE(Child<SurfaceWidget>(horizon, "Final").HasPresented());
}

}  // namespace
}  // namespace kestrava::views2d::ui
