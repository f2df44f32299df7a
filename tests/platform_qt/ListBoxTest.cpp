#include <QSignalSpy>
#include <QTest>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/qt/ChoiceWidgets.h"

namespace kestrava::platform::qt {
namespace {

class ListBoxClicks : public ::testing::Test {
 protected:
  void SetUp() override {
    for (const char* row : {"one", "two", "three"}) list.Add(row);
    list.resize(200, 200);
    list.show();
  }
  void Click(int row) { QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, Middle(row)); }
  QPoint Middle(int row) const { return list.visualItemRect(list.item(row)).center(); }
  void Down(int row) { QTest::mousePress(list.viewport(), Qt::LeftButton, {}, Middle(row)); }
  void Up(int row) { QTest::mouseRelease(list.viewport(), Qt::LeftButton, {}, Middle(row)); }

  ListBox list;
  QSignalSpy chosen{&list, &ListBox::Chosen};
};

TEST_F(ListBoxClicks, AClickOnARowIsToldOnce) {
  Click(1);
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen.first().first().toInt(), 1);
  EXPECT_EQ(list.Selected(), 1);
}

TEST_F(ListBoxClicks, AClickOnTheSelectedRowIsToldToo) {
  Click(1);
  Click(1);
  EXPECT_EQ(chosen.count(), 2);
}

TEST_F(ListBoxClicks, WhatTheMouseChoosesIsToldWhenItIsReleased) {
  Down(1);
  EXPECT_EQ(list.Selected(), 1);
  EXPECT_EQ(chosen.count(), 0);
  Up(1);
  EXPECT_EQ(chosen.count(), 1);
}

TEST_F(ListBoxClicks, AMouseThatComesBackToTheSelectedRowTellsItOnce) {
  list.Select(1);
  Down(1);
  for (const int row : {2, 1}) QTest::mouseMove(list.viewport(), Middle(row));
  Up(1);
  EXPECT_EQ(chosen.count(), 1);
}

TEST_F(ListBoxClicks, ARowThatGoesUnderTheMouseIsNotTold) {
  Down(1);
  list.Clear();
  Up(1);
  EXPECT_EQ(chosen.count(), 0);
}

TEST_F(ListBoxClicks, WhatCodeSelectsUnderTheMouseIsNotTold) {
  Down(1);
  list.Select(2);
  Up(0);
  EXPECT_EQ(chosen.count(), 0);
}

TEST_F(ListBoxClicks, KeysChooseAtOnceAfterAReleaseThatWasNeverHeardOf) {
  Down(0);
  QTest::keyClick(&list, Qt::Key_Down);
  EXPECT_EQ(chosen.count(), 1);
}

TEST_F(ListBoxClicks, KeysChooseAsTheMouseDoes) {
  list.Select(0);
  QTest::keyClick(&list, Qt::Key_Down);
  ASSERT_EQ(chosen.count(), 1);
  EXPECT_EQ(chosen.first().first().toInt(), 1);
}

TEST_F(ListBoxClicks, CodeIsNoClick) {
  list.Select(2);
  EXPECT_EQ(list.Selected(), 2);
  list.Select(-1);
  EXPECT_EQ(list.Selected(), -1);
  list.Select(0);
  list.Remove(0);
  list.Clear();
  EXPECT_EQ(chosen.count(), 0);
}

TEST(ComboIndex, AnEntryThatIsNotThereIsAFault) {
  ComboList combo;
  combo.Add("one");
  EXPECT_THROW(combo.SetIndex(1), Fault);
  EXPECT_THROW(combo.SetIndex(-1), Fault);
  combo.SetIndex(0);
  EXPECT_EQ(combo.Text(), "one");
}

TEST(ComboTyping, AnEditableComboTellsWhatWasTyped) {
  ComboList combo;
  combo.setEditable(true);
  combo.Add("1");
  combo.SetText("15");
  EXPECT_EQ(combo.Text(), "15");
  combo.setEditText("7 or so");
  EXPECT_EQ(combo.Text(), "7 or so");
}

}  // namespace
}  // namespace kestrava::platform::qt
