// The groups panel over a view that remembers, in a scripted house: "Amateur" of three satellites, "Mine" of two.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "panels/GroupsPanel.h"

#include "PanelDoubles.h"
#include "support/ElementText.h"
#include "support/House.h"

namespace kestrava::panels {

class RecordingGroups : public GroupsView {
 public:
  void ApplySkin() override { ++skins; }
  platform::ListBoxControl& GroupList() override { return groups; }
  TickListControl& SatelliteList() override { return satellites; }
  platform::ComboControl& COMCelestrak() override { return server; }
  void SetDetails(std::string_view text) override { details = text; }
  void ShowFavouriteCount(std::string_view text, bool tooMany) override {
    count = text;
    warning = tooMany;
  }
  std::string FilterText() const override { return filter; }
  std::optional<std::string> AskText(std::string_view prompt, std::string_view title, std::string_view defaultText,
                                     std::string_view refused) override {
    EXPECT_EQ(refused, ",");
    asked.push_back(std::string(title) + ": " + std::string(prompt) + " [" + std::string(defaultText) + "]");
    if (answers.empty()) {
      ADD_FAILURE() << "unexpected question: " << prompt;
      return std::nullopt;
    }
    const std::optional<std::string> answer = answers.front();
    answers.pop_front();
    return answer;
  }
  void StartStationAnew() override { ++starts; }

  RecordingTickList groups, satellites;
  RecordingCombo server;
  std::string details, count, filter;
  std::vector<std::string> asked;
  std::deque<std::optional<std::string>> answers;
  bool warning = false;
  int skins = 0;
  int starts = 0;
};

using Texts = std::vector<std::string>;

class GroupsPanelTest : public testing::House {
 protected:
  GroupsPanelTest() {
    view.satellites.onTick = [this](int row, bool ticked) { panel.SatelliteTicked(row, ticked); };
    Put("groups.dat", "Amateur,celestrak.org/NORAD/elements/amateur.txt,0\nMine,mine.txt,1\n");
    Put("amateur.txt", Sets({"AO-07", "AO-73", "ISS (ZARYA)"}));
    Put("mine.txt", Sets({"MY SAT", "AO-73"}));
    AddRow("Amateur", "celestrak.org/NORAD/elements/amateur.txt", "0");
    AddRow("Mine", "mine.txt", "1");
  }

  /// A catalogue number that differs from name to name.
  static int NumberOf(const std::string& name) {
    int number = 10000;
    for (const char c : name) number = (number * 31 + c) % 90000;
    return number;
  }
  static std::string Sets(const Texts& names) {
    std::string text;
    for (const std::string& name : names) text += testing::ElementText(name, NumberOf(name));
    return text;
  }
  void AddRow(const std::string& name, const std::string& address, const std::string& manual) {
    tables.GroupList[static_cast<std::size_t>(++tables.GroupCount)] = {name, address, manual};
  }
  void Favour(const Texts& names) {
    tables.FaveCount = 0;
    for (const std::string& name : names) tables.FaveList[static_cast<std::size_t>(++tables.FaveCount)].Name = name;
  }
  Texts Favourites() {
    Texts names;
    for (int i = 1; i <= tables.FaveCount; ++i) names.push_back(tables.FaveList.at(static_cast<std::size_t>(i)).Name);
    return names;
  }
  void ChooseGroup(int row) {
    view.groups.Select(row);
    panel.GroupListClicked();
  }
  /// As a mouse, or a key with its own event, does it.
  void Tick(int row, bool ticked) {
    panel.BeginUserTick();
    view.satellites.SetTicked(row, ticked);
    panel.EndUserTick();
  }
  void FillTo(int count) {
    Texts names;
    for (int i = 1; i <= count; ++i) names.push_back("S" + std::to_string(i));
    Favour(names);
  }
  void Filter(std::string_view text) {
    view.filter = text;
    panel.FilterChanged();
  }

  orbit::Tables tables;
  const orbit::OrbitEngine* engine = nullptr;
  RecordingGroups view;
  GroupsPanel panel{tables, [this] { return engine; }, view};
};

}  // namespace kestrava::panels
