// A list control that remembers its rows.
#pragma once

#include <string>
#include <vector>

#include "platform/Controls.h"

namespace kestrava::testing {

class RecordingList : public platform::ListControl {
 public:
  void Clear() override {
    rows.clear();
    ++clears;
  }
  void AddRow(const std::vector<std::string>& subItems) override { rows.push_back(subItems); }
  int RowCount() const override { return static_cast<int>(rows.size()); }

  std::vector<std::vector<std::string>> rows;
  int clears = 0;
};

}  // namespace kestrava::testing
