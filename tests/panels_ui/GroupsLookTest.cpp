// The looks of the groups window. Whole pictures for the eye are saved where KESTRAVA_SHOTS names a folder; what can be
// checked by rule is: nothing is cut off at any size, every control is named and reached by keys, texts stand out.
#include <QDialog>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>
#include <iostream>
#include <set>

#include <gtest/gtest.h>

#include "platform/qt/Theme.h"

#include "GroupsFixture.h"
#include "LongWords.h"
#include "support_qt/Shots.h"

namespace kestrava::panels::ui {
namespace {

constexpr double kLegible = 4.5;
constexpr int kEdges = 8;  // what a button leaves free beside its caption
constexpr int kManySatellites = 2000;
constexpr const char* kInTheOrderOfTheEye[] = {"GroupList",       "BUTaddgroup",  "BUTdeletegroup", "COMCelestrak",
                                               "BUTaddCelestrak", "FilterBox",    "SatelliteList",  "BUTsel",
                                               "BUTdesel",        "BUTmakeprime", "Details",        "BUTfindInfo"};

class GroupsLook : public GroupsFixture {
 protected:
  GroupsLook() {
    tables = {};
    AddRow("Amateur Radio", "celestrak.org/NORAD/elements/amateur.txt", "0");
    AddRow("Space Stations", "mine.txt", "1");
    AddRow("Weather", "celestrak.org/NORAD/elements/weather.txt", "0");
    Put("amateur.txt", Sets({"AO-07",      "UO-11", "LO-19", "AO-27", "FO-29", "GO-32",     "ISS (ZARYA)",
                             "NO-44",      "SO-50", "CO-55", "CO-57", "AO-73", "CUBEBUG-2", "FUNCUBE-1",
                             "LILACSAT-2", "XW-2A", "XW-2B", "XW-2C", "EO-88", "AO-91",     "AO-92"}));
    Favour({"AO-07", "ISS (ZARYA)", "SO-50", "AO-91"});
  }
  static void Shot(QWidget& window, const std::string& name) {
    HandleEvents();
    const std::string scale = qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toStdString();
    testing::SaveShot(window, ("groups-" + name + "-x" + scale).c_str());
  }
  QWidget& OpenIn(bool skin) {
    settings.Set("Skin", skin ? "1" : "0");
    platform::qt::ApplyTheme(skin);
    return Open();
  }
  /// Every button shows its whole caption, and the area that scrolls brings each control into sight.
  void ExpectNothingCutOff(QWidget& window) {
    auto* area = window.findChild<QScrollArea*>();
    ASSERT_TRUE(area);
    for (const char* name : kInTheOrderOfTheEye) {
      auto& control = Child<QWidget>(name);
      area->ensureWidgetVisible(&control, 0, 0);
      const QRect place(control.mapTo(area->viewport(), QPoint()), control.size());
      EXPECT_TRUE(area->viewport()->rect().intersects(place)) << name;
      const auto* button = qobject_cast<QAbstractButton*>(&control);
      if (!button) continue;
      EXPECT_GE(button->width(), button->fontMetrics().horizontalAdvance(button->text().remove('&')) + kEdges) << name;
    }
    for (const auto* label : window.findChildren<QLabel*>()) {
      if (!label->isVisible()) continue;
      const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
      EXPECT_GE(label->height(), needed) << label->text().toStdString();
      EXPECT_TRUE(label->wordWrap() || label->width() >= label->sizeHint().width()) << label->text().toStdString();
    }
    area->ensureVisible(0, 0);
  }
};

TEST_F(GroupsLook, BothLooksInThreeSizes) {
  for (const bool skin : {true, false}) {
    QWidget& window = OpenIn(skin);
    ClickRow("SatelliteList", 6);
    const std::string look = skin ? "skin" : "plain";
    for (const QSize size : {QSize(880, 560), QSize(1600, 1000), QSize(640, 400)}) {
      window.resize(size);
      HandleEvents();
      EXPECT_EQ(window.size(), size);
      ExpectNothingCutOff(window);
      Shot(window, look + "-" + std::to_string(size.width()));
    }
    CloseByUser();
  }
}

TEST_F(GroupsLook, AtASmallSizeNothingNeedsToScroll) {
  for (const bool skin : {true, false}) {
    QWidget& window = OpenIn(skin);
    window.resize(640, 400);
    HandleEvents();
    auto* area = window.findChild<QScrollArea*>();
    EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << skin;
    EXPECT_EQ(area->verticalScrollBar()->maximum(), 0) << skin;
    EXPECT_GE(Child<QWidget>("SatelliteList").height(), 100);
    CloseByUser();
  }
}

TEST_F(GroupsLook, TextsOfHalfAgainTheLengthAreNotCutOff) {
  const LongWords longWords;
  for (const bool skin : {true, false}) {
    QWidget& window = OpenIn(skin);
    for (const QSize size : {QSize(880, 560), QSize(640, 400)}) {
      window.resize(size);
      HandleEvents();
      ExpectNothingCutOff(window);
      Shot(window, std::string("long-") + (skin ? "skin-" : "plain-") + std::to_string(size.width()));
    }
    CloseByUser();
  }
}

TEST_F(GroupsLook, MadeSmallerStillItScrolls) {
  QWidget& window = Open();
  window.resize(300, 200);
  HandleEvents();
  EXPECT_EQ(window.size(), QSize(300, 200));
  ExpectNothingCutOff(window);
  Shot(window, "tiny");
}

TEST_F(GroupsLook, MadeLargerTheListsGrow) {
  QWidget& window = Open();
  const int before = Child<QWidget>("SatelliteList").height();
  window.resize(1200, 900);
  HandleEvents();
  EXPECT_GT(Child<QWidget>("SatelliteList").height(), before + 300);
  EXPECT_GT(Child<QWidget>("GroupList").height(), before);
}

TEST_F(GroupsLook, EmptyStatesSayWhatBelongsThere) {
  QWidget& window = Open();
  Type("FilterBox", "zzz");
  Shot(window, "no-match");
  CloseByUser();
  tables.GroupCount = 0;
  Open();
  Shot(*Child<QWidget>("GroupList").window(), "no-groups");
  messages.ExpectQuestion("There is no group on your list.", false);
  CloseByUser();
  AddRow("Weather", "celestrak.org/NORAD/elements/weather.txt", "0");
  messages.ExpectMessage("Weather satellite group keps are not updated yet");
  Shot(Open(), "missing-file");
}

TEST_F(GroupsLook, AFilterWithoutAMatchIsSeenInTheList) {
  Open();
  auto& list = Child<QListWidget>("SatelliteList");
  for (int row = 0; row < list.count(); ++row) list.item(row)->setHidden(true);
  HandleEvents();
  const QImage byCode = testing::Grab(list);
  Press("FilterBox", Qt::Key_Escape);
  QImage blank(byCode);
  blank.fill(list.palette().color(QPalette::Base));
  EXPECT_NE(byCode.copy(10, 10, list.width() - 20, list.height() - 20),
            blank.copy(10, 10, list.width() - 20, list.height() - 20));
}

TEST_F(GroupsLook, TheInputBoxAndTheListOfTheServerInBothLooks) {
  for (const bool skin : {true, false}) {
    QWidget& window = OpenIn(skin);
    const std::string look = skin ? "skin" : "plain";
    auto& server = Child<QComboBox>("COMCelestrak");
    server.showPopup();
    HandleEvents();
    Shot(*server.view()->window(), look + "-server");
    EXPECT_GE(server.view()->width(), server.view()->sizeHintForColumn(0)) << "no entry is cut off";
    server.hidePopup();
    messages.ExpectQuestion("Internet", true);
    AnswerBox("Net");
    InTheBox([&](QDialog& box) {
      QTest::keyClicks(box.findChild<QLineEdit*>("InputText"), "a,");
      auto* why = box.findChild<QLabel*>("InputWhy");
      EXPECT_GE(platform::qt::ContrastRatio(why->palette().color(QPalette::WindowText),
                                            box.palette().color(QPalette::Window)),
                kLegible);
      Shot(box, look + "-input");
      box.reject();
    });
    Click("BUTaddgroup");
    CloseByUser();
    (void)window;
  }
}

TEST_F(GroupsLook, TheWarningStandsOutInBothLooks) {
  for (const bool skin : {true, false}) {
    FillFavourites(500);
    QWidget& window = OpenIn(skin);
    auto& count = Child<QLabel>("FavouriteCount");
    const QColor ink = count.palette().color(QPalette::WindowText);
    EXPECT_GE(platform::qt::ContrastRatio(ink, window.palette().color(QPalette::Window)), kLegible);
    EXPECT_NE(ink, window.palette().color(QPalette::WindowText));
    Shot(window, std::string("warning-") + (skin ? "skin" : "plain"));
    platform::qt::ApplyTheme(!skin);
    HandleEvents();
    EXPECT_NE(count.palette().color(QPalette::WindowText), ink) << "it follows the look that comes while it stands";
    CloseByUser();
    TakeFaults();  // the log tells of the one that the file leaves out
  }
}

TEST_F(GroupsLook, TheLinkOfTheDetailsStandsOutInBothLooks) {
  for (const bool skin : {true, false}) {
    OpenIn(skin);
    ClickRow("SatelliteList", 6);
    auto& details = Child<QPlainTextEdit>("Details");
    ASSERT_EQ(details.extraSelections().size(), 1);
    EXPECT_EQ(details.extraSelections().front().cursor.selectedText(), "CLICK HERE");
    EXPECT_GE(platform::qt::ContrastRatio(details.extraSelections().front().format.foreground().color(),
                                          details.palette().color(QPalette::Base)),
              kLegible);
    CloseByUser();
  }
}

TEST_F(GroupsLook, TheTabKeyFollowsTheEye) {
  Open();
  Child<QWidget>("GroupList").setFocus();
  std::vector<std::string> visited;
  const QWidget* start = QApplication::focusWidget();
  do {
    visited.push_back(QApplication::focusWidget()->objectName().toStdString());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  } while (QApplication::focusWidget() != start && visited.size() < 40);
  EXPECT_EQ(visited, std::vector<std::string>(std::begin(kInTheOrderOfTheEye), std::end(kInTheOrderOfTheEye)));
}

TEST_F(GroupsLook, MnemonicsAreAllDifferentAndEveryControlHasAName) {
  QWidget& window = Open();
  std::set<QChar> letters;
  const auto take = [&](const QString& text) {
    const qsizetype at = text.indexOf('&');
    if (at < 0) return;
    EXPECT_TRUE(letters.insert(text.at(at + 1).toLower()).second) << text.toStdString();
  };
  for (const auto* button : window.findChildren<QAbstractButton*>()) take(button->text());
  for (const auto* label : window.findChildren<QLabel*>()) take(label->text());
  EXPECT_EQ(letters.size(), std::size(kInTheOrderOfTheEye)) << "each control has one";
  for (const char* name : kInTheOrderOfTheEye) EXPECT_FALSE(Child<QWidget>(name).accessibleName().isEmpty()) << name;
}

TEST_F(GroupsLook, TwoThousandSatellitesAreSearchedByTyping) {
  Put("amateur.txt", ManySets(kManySatellites));
  FillFavourites(400);
  Open();
  ASSERT_EQ(Rows("SatelliteList").size(), static_cast<std::size_t>(kManySatellites));
  QElapsedTimer timer;
  double slowestMs = 0;
  for (const char* key : {"2", "5", "0", "0"}) {
    timer.start();
    Type("FilterBox", key);
    slowestMs = std::max(slowestMs, static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  timer.start();
  Press("FilterBox", Qt::Key_Escape);
  const double allMs = static_cast<double>(timer.nsecsElapsed()) / 1e6;
  std::cout << "[ search   ] slowest keystroke " << slowestMs << " ms, all shown again in " << allMs << " ms\n";
  EXPECT_EQ(Shown().size(), static_cast<std::size_t>(kManySatellites));
  Type("FilterBox", "2500");
  EXPECT_EQ(Shown(), Strings{"CLUSTER-2500"});
}

}  // namespace
}  // namespace kestrava::panels::ui
