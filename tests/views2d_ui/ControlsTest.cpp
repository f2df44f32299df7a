// The map window through its real controls.
#include <QAbstractButton>
#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QSlider>
#include <set>

#include <gtest/gtest.h>

#include "platform/Doors.h"
#include "platform/qt/LedClockWidget.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/Widgets.h"

#include "MapFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::views2d::ui {
namespace {

using platform::qt::LedClockWidget;
using platform::qt::ListWidget;
using platform::qt::SkinButton;
using platform::qt::SurfaceWidget;

class MapControls : public MapFixture {
 protected:
  /// Every favourite is hit where the mode has it.
  void ExpectMode(QWidget& map, const char* mode) {
    for (int i = 1; i <= tables.FaveCount; ++i) {
      ClickAt(Child<QWidget>(map, "Final"), PlaceOf(map, i, mode));
      EXPECT_EQ(tables.SelSat, i) << mode;
    }
  }
  /// Ctrl and the digit of a region's key.
  void PressControl(QWidget& map, int key) { PressKey(map, key, Qt::ControlModifier); }
};

TEST_F(MapControls, AMenuEntrySelectsItsSatellite) {
  QWidget& map = Open();
  EXPECT_EQ(Entry(map, "MFaveList(2)").text(), "HST");
  Entry(map, "MFaveList(2)").trigger();
  EXPECT_EQ(tables.SelSatName, "HST");
  EXPECT_TRUE(Child<QPlainTextEdit>(map, "IPtext").toPlainText().startsWith("Data for HST"));
  Run(1);
  EXPECT_EQ(Text(map, 0), "Satellite : HST");
  Entry(map, "MFaveList(0)").trigger();
  EXPECT_EQ(tables.SelSat, 2);
}

TEST_F(MapControls, EveryFavouriteHasOneEntryAndComingBackAddsNone) {
  QWidget& map = Open();
  EXPECT_EQ(Child<QMenu>(map, "M1").actions().size(), tables.FaveCount + 1);
  windows->Show(kWorldViewName);
  HandleEvents();
  EXPECT_EQ(Child<QMenu>(map, "M1").actions().size(), tables.FaveCount + 1);
}

TEST_F(MapControls, ThePointerSelectsInEveryModeAndTheMenuChangesIt) {
  QWidget& map = Open();
  Run(1);
  ExpectMode(map, "worldnormal");
  const std::pair<const char*, const char*> modes[] = {{"Mnwq", "NWQ"}, {"Mncq", "NCQ"}, {"Mneq", "NEQ"},
                                                       {"Mswq", "SWQ"}, {"Mscq", "SCQ"}, {"Mseq", "SEQ"}};
  for (const auto& [entry, mode] : modes) {
    Entry(map, entry).trigger();
    ExpectMode(map, mode);
  }
  settings.Set("Altworld", "1");
  Entry(map, "Mworld").trigger();
  ExpectMode(map, "worldalt");
}

TEST_F(MapControls, TheKeyboardChangesTheModeAndTheSelection) {
  QWidget& map = Open();
  Run(1);
  const char* modes[] = {"worldnormal", "NWQ", "NCQ", "NEQ", "SWQ", "SCQ", "SEQ"};
  for (int i = 6; i >= 0; --i) {
    PressControl(map, Qt::Key_0 + i);
    ExpectMode(map, modes[i]);
  }
  Entry(map, "MFaveList(12)").trigger();
  PressControl(map, Qt::Key_Right);
  EXPECT_EQ(tables.SelSat, 1);
  PressControl(map, Qt::Key_Left);
  EXPECT_EQ(tables.SelSat, 12);
}

TEST_F(MapControls, TheRightButtonAndTheMenuKeyPopTheSatellitesUp) {
  QWidget& map = Open();
  auto& menu = Child<QMenu>(map, "M1");
  ClickAt(Child<QWidget>(map, "Final"), {50, 60}, Qt::RightButton);
  EXPECT_TRUE(menu.isVisible());
  EXPECT_EQ(tables.SelSat, 1);
  menu.close();
  QContextMenuEvent key(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
  QCoreApplication::sendEvent(&Child<QWidget>(map, "Final"), &key);
  EXPECT_TRUE(menu.isVisible());
  menu.close();
}

TEST_F(MapControls, TheExpandButtonClosesAndOpensThePaneAndPaintsAtOnce) {
  QWidget& map = Open();
  Run(1);
  auto& canvas = Child<SurfaceWidget>(map, "Final");
  auto& button = Child<QWidget>(map, "BUTexpand");
  const int inner = map.width();
  EXPECT_EQ(canvas.width(), inner - 200);
  EXPECT_EQ(button.geometry(), QRect(inner - 200, 0, 14, canvas.height()));
  Click(button);
  EXPECT_EQ(canvas.width(), inner - 14);
  EXPECT_EQ(canvas.Back().Width(), inner - 14) << "painted straight away";
  EXPECT_EQ(button.x(), inner - 14);
  PressKey(map, Qt::Key_Tab);
  Click(button);
  EXPECT_EQ(canvas.width(), inner - 200);
  EXPECT_EQ(canvas.Back().Width(), inner - 200);
}

TEST_F(MapControls, AllOfThePaneStandsRightBesideTheExpandButton) {
  QWidget& map = Open();
  Resize(map, 900, 600);
  const QWidget& button = Child<QWidget>(map, "BUTexpand");
  const int left = button.mapTo(&map, QPoint(14, 0)).x();
  QStringList names{"IPtext", "lstQuickETA", "SliderWarp", "BUTtime(0)", "BUTimode(0)"};
  for (int i = 0; i < 18; ++i) names << QString("RemoteStat(%1)").arg(i);
  for (int i = 0; i < 4; ++i) names << QString("InfoPaneLabels(%1)").arg(i);
  for (const QString& name : names)
    EXPECT_EQ(Child<QWidget>(map, name).mapTo(&map, QPoint(0, 0)).x(), left) << name.toStdString();
  for (const char* pair : {"BUTtime", "BUTimode"}) {
    const QRect first = Child<QWidget>(map, platform::qt::ArrayName(pair, 0)).geometry();
    EXPECT_EQ(Child<QWidget>(map, platform::qt::ArrayName(pair, 1)).x(), first.x() + first.width()) << pair;
  }
  const int inner = Child<QWidget>(map, "Final").height();
  EXPECT_EQ(Child<QWidget>(map, "IPtext").height(), inner - 320);
  EXPECT_EQ(Child<QWidget>(map, "lstQuickETA").geometry(), Child<QWidget>(map, "IPtext").geometry());
  EXPECT_LE(Child<QWidget>(map, "IPtext").geometry().bottom(), inner - 1);
}

TEST_F(MapControls, TheLongestLinesOfThePaneAreNotCutOff) {
  QWidget& map = Open();
  const std::pair<int, const char*> longest[] = {
      {6, "Range : 12345 Km  [ECLIPSED]"}, {6, "Range : 12345 Miles [ECLIPSED]"},
      {10, "NORAD Time : 325.1234567890"}, {16, "Phase : 50.0% (3rd Quarter waxing)"},
      {15, "Distance : 384,400.0 km"},     {7, "AOS : In Range Now"},
      {0, "Satellite : SAUDISAT 1C (SO"}};
  for (const auto& [index, text] : longest) {
    QWidget& line = Child<QWidget>(map, platform::qt::ArrayName("RemoteStat", index));
    EXPECT_LE(line.fontMetrics().horizontalAdvance(text) + 3, line.width()) << text;
  }
}

TEST_F(MapControls, TimeWarpRunsItsClockByTheSliderAndRealtimeEndsIt) {
  QWidget& map = Open();
  Run(1);
  const auto& led = Child<LedClockWidget>(map, "LEDclock");
  Click(Child<QWidget>(map, "BUTtime(1)"));
  EXPECT_EQ(Child<SkinButton>(map, "BUTtime(1)").BackColour(), 0xFFFFC0u);
  EXPECT_EQ(Child<SkinButton>(map, "BUTtime(0)").BackColour(), 0xC0C000u);
  EXPECT_EQ(led.Text(), "18:20:01");
  Run(1);
  EXPECT_EQ(led.Text(), "18:20:03");
  Child<QSlider>(map, "SliderWarp").setValue(60);
  Run(2);
  EXPECT_EQ(led.Text(), "18:21:03");
  Click(Child<QWidget>(map, "BUTtime(0)"));
  EXPECT_EQ(led.Text(), "18:20:04");
  EXPECT_EQ(Child<SkinButton>(map, "BUTtime(0)").BackColour(), 0xFFFFC0u);
}

TEST_F(MapControls, AnInfoLineThatNeedsItIsExplainedBehindItsText) {
  QWidget& map = Open();
  Run(2);
  const auto& norad = Child<QLabel>(map, "RemoteStat(10)");
  EXPECT_TRUE(norad.toolTip().startsWith(norad.text())) << norad.toolTip().toStdString();
  EXPECT_TRUE(norad.toolTip().contains("day of the year in Universal Time")) << norad.toolTip().toStdString();
  EXPECT_TRUE(Child<QLabel>(map, "RemoteStat(17)").toolTip().contains("0 to 255"));
  const auto& latitude = Child<QLabel>(map, "RemoteStat(1)");
  EXPECT_EQ(latitude.toolTip(), latitude.text());
}

TEST_F(MapControls, TheSliderGoesFromOneToSixtyByKeys) {
  QWidget& map = Open();
  auto& slider = Child<QSlider>(map, "SliderWarp");
  slider.setFocus();
  EXPECT_EQ(slider.value(), 2);
  PressKey(map, Qt::Key_Right);
  EXPECT_EQ(slider.value(), 3);
  PressKey(map, Qt::Key_PageUp);
  EXPECT_EQ(slider.value(), 8);
  PressKey(map, Qt::Key_End);
  EXPECT_EQ(slider.value(), 60);
  EXPECT_TRUE(slider.toolTip().contains("60"));
  PressKey(map, Qt::Key_Home);
  EXPECT_EQ(slider.value(), 1);
}

TEST_F(MapControls, TheEtaListComesWithItsModeAndSelectsByClickAndByKey) {
  QWidget& map = Open();
  auto& list = Child<ListWidget>(map, "lstQuickETA");
  EXPECT_FALSE(list.isVisible());
  Run(1);
  EXPECT_EQ(list.RowCount(), 0);
  Click(Child<QWidget>(map, "BUTimode(1)"));
  Run(2);
  ASSERT_GT(list.RowCount(), 5);
  EXPECT_EQ(list.Text(0, 1), "SATELLITE");
  const auto rows = list.findItems("NOAA 19", Qt::MatchStartsWith, 1);
  ASSERT_EQ(rows.size(), 1);
  ClickAt(*list.viewport(), list.visualItemRect(rows.first()).center());
  EXPECT_EQ(tables.SelSatName, "NOAA 19");
  list.setFocus();
  PressKey(map, Qt::Key_Down);
  const std::string next = platform::qt::FromQt(list.currentItem()->text(1).trimmed());
  PressKey(map, Qt::Key_Return);
  EXPECT_EQ(tables.SelSatName, next);
  Click(Child<QWidget>(map, "BUTimode(0)"));
  EXPECT_FALSE(list.isVisible());
}

TEST_F(MapControls, AWholeNameStandsInTheEtaList) {
  QWidget& map = Open();
  Click(Child<QWidget>(map, "BUTimode(1)"));
  Run(2);
  const auto& list = Child<ListWidget>(map, "lstQuickETA");
  EXPECT_LE(list.fontMetrics().horizontalAdvance("SAUDISAT 1C (S") + 6, list.columnWidth(1));
  for (const int column : {2, 3})
    EXPECT_LE(list.fontMetrics().horizontalAdvance("00:00") + 6, list.columnWidth(column));
}

TEST_F(MapControls, CheckMarksFlipOnceForEachClick) {
  settings.Set("Speechpack", "1");
  windows->Register("Record", [] { return MakeWorldView(); });
  QWidget& map = Open();
  const std::pair<const char*, const char*> marks[] = {
      {"mnuAutoSelect", "AutoSelect"}, {"MrecordONoff", "RecWxsat"}, {"MrecordONoffP", "RecPrimary"}};
  for (const auto& [entry, key] : marks) {
    Entry(map, entry).trigger();
    EXPECT_TRUE(Entry(map, entry).isChecked()) << entry;
    EXPECT_EQ(settings.Get(key), "1");
    Entry(map, entry).trigger();
    EXPECT_FALSE(Entry(map, entry).isChecked()) << entry;
    EXPECT_EQ(settings.Get(key), "0");
  }
  EXPECT_TRUE(Entry(map, "MspeechONoff").isChecked());
  PressKey(map, Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_FALSE(Entry(map, "MspeechONoff").isChecked());
  EXPECT_EQ(settings.Get("Speech"), "0");
}

TEST_F(MapControls, TheControlPanelsEntryIsDisabledUntilThereIsOne) {
  EXPECT_FALSE(Entry(Open(), "mnu2Dcontrols").isEnabled());
  windows->Register("frmCON2D", [] { return MakeWorldView(); });
  EXPECT_TRUE(Entry(OpenAnother("NEQ"), "mnu2Dcontrols").isEnabled());
}

TEST_F(MapControls, RecordingIsGreyedUntilThereIsARecorderAndSaysWhy) {
  for (const char* name : {"MrecordONoff", "MrecordONoffP"}) {
    QAction& entry = Entry(Open(), name);
    EXPECT_FALSE(entry.isEnabled()) << name;
    EXPECT_EQ(entry.toolTip(), "comes with a later version") << name;
  }
  EXPECT_TRUE(Child<QMenu>(Open(), "M2").toolTipsVisible());
  windows->Register("Record", [] { return MakeWorldView(); });
  for (const char* name : {"MrecordONoff", "MrecordONoffP"})
    EXPECT_TRUE(Entry(OpenAnother("NEQ"), name).isEnabled()) << name;
}

TEST_F(MapControls, NoTwoEntriesShareAKeyAndNoTwoOfAMenuALetter) {
  QWidget& map = Open();
  std::set<QString> keys;
  for (const char* name : {"M2", "M3"}) {
    for (const QAction* entry : Child<QMenu>(map, name).actions()) {
      if (entry->isSeparator()) continue;
      ASSERT_FALSE(entry->shortcut().isEmpty()) << entry->text().toStdString();
      EXPECT_TRUE(keys.insert(entry->shortcut().toString()).second) << entry->text().toStdString();
    }
  }
}

TEST_F(MapControls, EveryEntryLeadsSomewhere) {
  settings.Set("Speechpack", "1");
  QWidget& map = Open("NCQ");
  Run(1);
  const auto state = [&] {
    for (int i = 0; i < 2; ++i) Click(Child<QWidget>(map, "BUTexpand"));  // paints without a step of the time
    return std::tuple(tables.SelSat, tables.SpeechOn, settings.Writes().size(), speech.said.size(),
                      testing::Grab(Child<QWidget>(map, "Final")));
  };
  Entry(map, "MspeechONoff").trigger();  // both of its positions are written once
  for (const char* name : {"M1", "M2", "M3"}) {
    for (QAction* entry : Child<QMenu>(map, name).actions()) {
      const bool isHeading = entry->objectName() == "MFaveList(0)" || entry->isSeparator();
      if (isHeading || !entry->isEnabled() || entry->objectName() == "MFaveList(1)") continue;
      if (entry->objectName() == "Mncq") Entry(map, "Mseq").trigger();
      const auto before = state();
      entry->trigger();
      EXPECT_TRUE(before != state()) << entry->objectName().toStdString();
    }
  }
}

TEST_F(MapControls, AFaultInAClickIsToldOnceAndTheWindowStays) {
  QWidget& map = Open();
  Run(1);
  settings.FailWrites(platform::Fault::DiskFull());
  messages.ExpectMessage("Auto Select Satellite in range could not be done", [&] {
    Entry(map, "mnuAutoSelect").trigger();  // once more while the message stands
  });
  Entry(map, "mnuAutoSelect").trigger();
  settings.Mend();
  EXPECT_EQ(messages.Texts().size(), 1u);
  EXPECT_TRUE(map.isVisible());
  Run(2);
  EXPECT_TRUE(Child<SurfaceWidget>(map, "Final").HasPresented());
}

}  // namespace
}  // namespace kestrava::views2d::ui
