// What logic needs of the controls that it fills: the operations that the system names, and nothing of a toolkit.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/SerialDate.h"

namespace kestrava::platform {

/// A list of rows with texts in columns, as the quick ETA list and the pass lists are.
class ListControl {
 public:
  virtual ~ListControl() = default;
  virtual void Clear() = 0;
  /// @param subItems  texts of columns 1, 2, 3 ...; column 0 stays empty
  virtual void AddRow(const std::vector<std::string>& subItems) = 0;
  virtual int RowCount() const = 0;
};

/// The clock with seven-segment digits. It runs by itself unless it is told to show a given time.
class LedClock {
 public:
  virtual ~LedClock() = default;
  virtual void SetValue(SerialDate time) = 0;
  virtual void ShowGivenTime(bool given) = 0;
  virtual void ShowUniversalTime(bool utc) = 0;
  virtual void SetClockVisible(bool visible) = 0;
  virtual bool IsClockVisible() const = 0;
};

}  // namespace kestrava::platform
