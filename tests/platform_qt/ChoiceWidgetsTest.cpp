#include <gtest/gtest.h>

#include "platform/qt/ChoiceWidgets.h"

namespace kestrava::platform::qt {
namespace {

class Choices : public ::testing::Test {
 protected:
  void SetUp() override {
    QObject::connect(&combo, &QComboBox::activated, &combo, [this] { ++clicks; });
  }
  ComboList combo;
  ListBox list;
  int clicks = 0;
};

TEST_F(Choices, APromptStandsThoughThereAreEntries) {
  combo.SetText("Select a Group");
  combo.Add("Weather");
  combo.Add("Stations");
  EXPECT_EQ(combo.Text(), "Select a Group");
  EXPECT_EQ(combo.count(), 2);
  EXPECT_EQ(combo.currentIndex(), -1);
}

TEST_F(Choices, WithoutAPromptTheFirstEntryDoesNotChooseItself) {
  combo.Add("Weather");
  EXPECT_EQ(combo.Text(), "");
}

TEST_F(Choices, AChosenEntryIsTheTextUntilAPromptIsSet) {
  combo.Add("Weather");
  combo.setCurrentIndex(0);
  EXPECT_EQ(combo.Text(), "Weather");
  combo.SetText("Select a Group");
  EXPECT_EQ(combo.Text(), "Select a Group");
}

TEST_F(Choices, ClearLeavesTheText) {
  combo.Add("Weather");
  combo.setCurrentIndex(0);
  combo.Clear();
  EXPECT_EQ(combo.count(), 0);
  EXPECT_EQ(combo.Text(), "Weather");
  combo.Add("Stations");
  EXPECT_EQ(combo.Text(), "Weather");
}

TEST_F(Choices, ATextThatStoodThroughARefillIsChosenAmongTheNewEntries) {
  combo.Add("Weather");
  combo.SetText("Weather");
  combo.Clear();
  combo.Add("Stations");
  combo.Add("Weather");
  combo.SetText("Weather");
  EXPECT_EQ(combo.Index(), 1);
}

TEST_F(Choices, SettingTheTextOfAnEntryChoosesIt) {
  combo.Add("Weather");
  combo.Add("Stations");
  combo.SetText("Stations");
  EXPECT_EQ(combo.currentIndex(), 1);
  combo.SetText("stations");
  EXPECT_EQ(combo.currentIndex(), -1) << "another text";
}

TEST_F(Choices, NothingButTheUserClicks) {
  combo.Add("Weather");
  combo.SetText("Weather");
  combo.SetText("Select a Group");
  combo.Clear();
  EXPECT_EQ(clicks, 0);
}

TEST_F(Choices, NothingIsSelectedInAListUntilTheUserDoes) {
  list.Add("one");
  list.Add("two");
  EXPECT_EQ(list.Selected(), -1);
  list.setCurrentRow(1);
  EXPECT_EQ(list.Selected(), 1);
  EXPECT_EQ(list.Row(1), "two");
  EXPECT_EQ(list.Row(2), "");
}

TEST_F(Choices, ARemovedRowLeavesNothingSelected) {
  for (const char* row : {"one", "two", "three"}) list.Add(row);
  list.setCurrentRow(1);
  list.Remove(1);
  EXPECT_EQ(list.Selected(), -1);
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(list.Row(1), "three");
}

}  // namespace
}  // namespace kestrava::platform::qt
