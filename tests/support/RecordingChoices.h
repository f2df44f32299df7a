// Combo lists and list boxes that remember their entries; a test sets the text, or selects a row, as a user would.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/ChoiceControls.h"
#include "platform/Fault.h"

namespace kestrava::testing {

class RecordingCombo : public platform::ComboControl {
 public:
  void Clear() override { entries.clear(), index = -1; }
  void Add(std::string_view entry) override { entries.emplace_back(entry); }
  std::string Text() const override { return text; }
  void SetText(std::string_view shown) override { text = shown; }
  int Index() const override { return index; }
  void SetIndex(int chosen) override {
    text = platform::At(entries, chosen);
    index = chosen;
  }

  std::vector<std::string> entries;
  std::string text;
  int index = -1;
};

class RecordingListBox : public platform::ListBoxControl {
 public:
  void Clear() override { rows.clear(), selected = -1; }
  void Add(std::string_view row) override { rows.emplace_back(row); }
  void Remove(int row) override {
    platform::At(rows, row);
    rows.erase(rows.begin() + row);
    selected = -1;
  }
  int Count() const override { return static_cast<int>(rows.size()); }
  std::string Row(int row) const override { return platform::At(rows, row); }
  int Selected() const override { return selected; }
  void Select(int row) override { selected = row; }

  std::vector<std::string> rows;
  int selected = -1;
};

}  // namespace kestrava::testing
