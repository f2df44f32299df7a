// How old elements are: a pass is as good as the elements that it was worked out from. Asked by the command line, which
// notes old ones, and by the pass window, which prints the age.
#pragma once

#include <string>
#include <vector>

#include "platform/SerialDate.h"

namespace kestrava::orbit {
class OrbitEngine;
}

namespace kestrava::predict {

struct ElementAge {
  std::string satellite;
  double days = 0;  ///< negative: the elements are of later
};

/// The age at a moment of the elements of these satellites, in their order; those without elements are left out.
std::vector<ElementAge> ElementAges(const orbit::OrbitEngine& engine, const std::vector<std::string>& satellites,
                                    platform::SerialDate utc);

}  // namespace kestrava::predict
