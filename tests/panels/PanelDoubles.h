// Controls of the settings panels that remember what they were told. A test acts as the user by setting a state and
// calling the panel's event.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "panels/PanelControls.h"
#include "platform/Fault.h"

#include "support/RecordingChoices.h"

namespace kestrava::panels {

using kestrava::testing::RecordingCombo;

/// A list box with tick boxes. A tick that changes runs `onTick`, whoever made it.
class RecordingTickList : public TickListControl {
 public:
  struct Row_ {
    std::string text;
    bool ticked = false;
    bool shown = true;
    bool marked = false;
  };

  void Clear() override { rows.clear(), selected = -1; }
  void Add(std::string_view row) override { rows.push_back({std::string(row)}); }
  void Remove(int row) override {
    platform::At(rows, row);
    rows.erase(rows.begin() + row);
    selected = -1;
  }
  int Count() const override { return static_cast<int>(rows.size()); }
  std::string Row(int row) const override { return platform::At(rows, row).text; }
  int Selected() const override { return selected; }
  void Select(int row) override { selected = row; }
  bool IsTicked(int row) const override { return platform::At(rows, row).ticked; }
  void SetTicked(int row, bool ticked) override {
    if (platform::At(rows, row).ticked == ticked) return;
    platform::At(rows, row).ticked = ticked;
    if (onTick) onTick(row, ticked);
  }
  bool IsShown(int row) const override { return platform::At(rows, row).shown; }
  void SetShown(int row, bool shown) override { platform::At(rows, row).shown = shown; }

  void SetMarked(int row, bool marked) override { platform::At(rows, row).marked = marked; }

  /// The texts of the rows that bear a star.
  std::vector<std::string> Marked() const {
    std::vector<std::string> texts;
    for (const Row_& row : rows) {
      if (row.marked) texts.push_back(row.text);
    }
    return texts;
  }
  std::vector<std::string> Texts() const {
    std::vector<std::string> texts;
    for (const Row_& row : rows) texts.push_back(row.text);
    return texts;
  }
  /// The texts of the rows that are ticked.
  std::vector<std::string> Ticked() const {
    std::vector<std::string> texts;
    for (const Row_& row : rows) {
      if (row.ticked) texts.push_back(row.text);
    }
    return texts;
  }

  std::vector<Row_> rows;
  int selected = -1;
  std::function<void(int, bool)> onTick;
};

class RecordingCheck : public CheckControl {
 public:
  bool IsChecked() const override { return checked; }
  void SetChecked(bool isChecked) override {
    checked = isChecked;
    if (onChange) onChange();
  }

  bool checked = false;
  std::function<void()> onChange;  ///< a toolkit that tells of changes by code, too
};

class RecordingSlider : public SliderControl {
 public:
  int Value() const override { return value; }
  void SetValue(int shown) override {
    value = shown;
    if (onChange) onChange();
  }
  void SetLabel(std::string_view text) override { label = text; }

  int value = 0;
  std::string label;
  std::function<void()> onChange;
};

}  // namespace kestrava::panels
