// A long combo list is searched by typing.
#include <QApplication>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QListView>
#include <QTest>
#include <iostream>

#include <gtest/gtest.h>

#include "platform/qt/ChoiceWidgets.h"
#include "platform/qt/Theme.h"

#include "support_qt/Shots.h"

namespace kestrava::platform::qt {
namespace {

class ComboSearching : public ::testing::Test {
 protected:
  void Fill(int count) {
    combo.SetText("Select Favourite");
    for (int i = 1; i <= count; ++i) combo.Add("NOAA " + std::to_string(i));
    combo.Add("ISS (ZARYA)");
    combo.resize(220, combo.sizeHint().height());
    combo.show();
    QObject::connect(&combo, &QComboBox::activated, &combo, [this](int row) { chosen.push_back(row); });
    testing::HandleEvents();
  }
  void TearDown() override { combo.hidePopup(); }
  QLineEdit* Line() { return combo.findChild<QLineEdit*>("ComboSearch"); }
  void Open() {
    combo.showPopup();
    testing::HandleEvents();
  }
  std::vector<std::string> Shown() {
    const auto* list = qobject_cast<QListView*>(combo.view());
    std::vector<std::string> entries;
    for (int row = 0; row < combo.count(); ++row) {
      if (!list->isRowHidden(row)) entries.push_back(combo.itemText(row).toStdString());
    }
    return entries;
  }

  ComboList combo;
  std::vector<int> chosen;
};

using Entries = std::vector<std::string>;

TEST_F(ComboSearching, TypingLeavesTheEntriesThatHoldItAndReturnTakesTheFirst) {
  Fill(100);
  Open();
  ASSERT_TRUE(Line());
  QTest::keyClicks(Line(), "zary");
  EXPECT_EQ(Shown(), Entries{"ISS (ZARYA)"});
  EXPECT_EQ(combo.Text(), "Select Favourite") << "nothing is chosen by a search";
  EXPECT_TRUE(chosen.empty());
  QTest::keyClick(Line(), Qt::Key_Return);
  EXPECT_EQ(combo.Text(), "ISS (ZARYA)");
  EXPECT_EQ(chosen, std::vector<int>{100});
  EXPECT_FALSE(combo.view()->isVisible());
}

TEST_F(ComboSearching, DownGoesThroughTheEntriesInSight) {
  Fill(100);
  Open();
  QTest::keyClicks(Line(), "9");
  QTest::keyClick(Line(), Qt::Key_Down);
  QTest::keyClick(Line(), Qt::Key_Return);
  EXPECT_EQ(combo.Text(), "NOAA 19") << "after NOAA 9";
}

TEST_F(ComboSearching, AClickTakesAnEntryThatWasFound) {
  Fill(100);
  Open();
  QTest::keyClicks(Line(), "iss");
  testing::HandleEvents();
  auto* list = qobject_cast<QListView*>(combo.view());
  const QPoint at = list->visualRect(list->model()->index(100, 0)).center();
  QTest::mouseMove(list->viewport(), at);
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, at);
  EXPECT_EQ(combo.Text(), "ISS (ZARYA)");
  EXPECT_EQ(chosen, std::vector<int>{100});
}

TEST_F(ComboSearching, WithoutAMatchReturnTakesNothing) {
  Fill(100);
  Open();
  QTest::keyClicks(Line(), "zzz");
  EXPECT_TRUE(Shown().empty());
  QTest::keyClick(Line(), Qt::Key_Return);
  EXPECT_EQ(combo.Text(), "Select Favourite");
  EXPECT_TRUE(chosen.empty());
}

TEST_F(ComboSearching, EscapeClearsTheSearchAndThenClosesTheList) {
  Fill(100);
  Open();
  QTest::keyClicks(Line(), "iss");
  QTest::keyClick(Line(), Qt::Key_Escape);
  EXPECT_EQ(Shown().size(), 101u);
  EXPECT_TRUE(combo.view()->isVisible());
  QTest::keyClick(Line(), Qt::Key_Escape);
  EXPECT_FALSE(combo.view()->isVisible());
  EXPECT_TRUE(chosen.empty());
}

TEST_F(ComboSearching, TheNextTimeAllEntriesAreThereAgain) {
  Fill(100);
  Open();
  QTest::keyClicks(Line(), "iss");
  combo.hidePopup();
  testing::HandleEvents();
  Open();
  EXPECT_EQ(Shown().size(), 101u);
  EXPECT_EQ(Line()->text(), "");
}

TEST_F(ComboSearching, ALetterInTheClosedListBeginsTheSearch) {
  Fill(100);
  QTest::keyClick(&combo, Qt::Key_I);
  ASSERT_TRUE(Line());
  EXPECT_EQ(Line()->text(), "i");
  EXPECT_TRUE(chosen.empty()) << "a letter alone calculates nothing";
  QTest::keyClick(Line(), Qt::Key_Return);
  EXPECT_EQ(combo.Text(), "ISS (ZARYA)");
}

TEST_F(ComboSearching, AShortListIsAsItWas) {
  Fill(5);
  Open();
  EXPECT_FALSE(Line());
  combo.hidePopup();
  QTest::keyClick(&combo, Qt::Key_I);
  EXPECT_EQ(combo.Text(), "ISS (ZARYA)");
}

TEST_F(ComboSearching, AListThatHasBecomeShortShowsNoSearchLine) {
  Fill(100);
  Open();
  combo.hidePopup();
  combo.Clear();
  combo.Add("one");
  Open();
  EXPECT_FALSE(Line()->isVisible());
}

TEST_F(ComboSearching, TheListStaysOnTheScreenAndBesideTheCombo) {
  Fill(100);
  const QRect screen = combo.screen()->availableGeometry();
  for (const QPoint at : {QPoint(100, 50), QPoint(100, screen.bottom() - 40), QPoint(100, screen.center().y()),
                          QPoint(screen.right() - 100, 50)}) {
    combo.move(at);
    testing::HandleEvents();
    Open();
    const QRect popup = combo.view()->window()->frameGeometry();
    EXPECT_TRUE(screen.contains(popup)) << popup.x() << " " << popup.y() << " " << popup.width() << " "
                                        << popup.height();
    EXPECT_FALSE(popup.intersects(combo.geometry()));
    EXPECT_GT(popup.height(), 200);
    combo.hidePopup();
  }
}

TEST_F(ComboSearching, TheSearchLineIsSeenInBothLooks) {
  for (const bool skin : {true, false}) {
    ApplyTheme(skin);
    if (combo.count() == 0) Fill(100);
    Open();
    QTest::keyClicks(Line(), "9");
    testing::HandleEvents();
    EXPECT_TRUE(Line()->isVisible());
    testing::SaveShot(*combo.view()->window(), skin ? "combo-search-skin" : "combo-search-plain");
    combo.hidePopup();
  }
  ApplyTheme(false);
}

TEST_F(ComboSearching, TwoThousandEntries) {
  Fill(2000);
  Open();
  QElapsedTimer timer;
  double slowestMs = 0;
  for (const char* key : {"1", "9", "9", "9"}) {
    timer.start();
    QTest::keyClicks(Line(), key);
    testing::HandleEvents();
    slowestMs = std::max(slowestMs, static_cast<double>(timer.nsecsElapsed()) / 1e6);
  }
  std::cout << "[ search   ] slowest keystroke " << slowestMs << " ms\n";
  EXPECT_EQ(Shown(), Entries{"NOAA 1999"});
}

}  // namespace
}  // namespace kestrava::platform::qt
