// The machine's way of writing numbers and dates.
#pragma once

#include <string>

#include "platform/SerialDate.h"

namespace kestrava::platform {

class MachineLocale {
 public:
  virtual ~MachineLocale() = default;
  virtual std::string DecimalSign() const = 0;
  virtual std::string GroupSign() const = 0;
  /// Date and time as the machine's short forms have them, for error.log.
  virtual std::string DateText(SerialDate local) const = 0;
  virtual std::string TimeText(SerialDate local) const = 0;
};

}  // namespace kestrava::platform
