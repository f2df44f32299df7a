// The fault of elements that are there and give nothing for a moment, as those of a satellite that has come down long
// ago. It lasts: every later moment fails as well, so it is not told anew at each tick.
#pragma once

#include <string>
#include <string_view>

#include "orbit/Sgp4.h"
#include "platform/Fault.h"

namespace kestrava::orbit {

class NoPosition : public platform::Fault {
 public:
  NoPosition(std::string_view satellite, ModelError error)
      : Fault(platform::Fault::Overflow().Number(), "No position for \"" + std::string(satellite) + "\": model error " +
                                                        std::to_string(static_cast<int>(error))) {}
};

}  // namespace kestrava::orbit
