// The place of the user as the settings hold it. He may have written it there by hand.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::shell {

struct StoredAngle {
  double degrees = 0;     ///< as the engine can work with it
  std::string complaint;  ///< a sentence about a number that lies nowhere on the Earth, else empty
};

/// The setting `Latitude` or `Longitude` under the comma rule. A latitude beyond a pole is taken as the pole, a
/// longitude beyond a turn as what is left of it. @throws platform::Fault for a text that is no number
StoredAngle ReadStoredAngle(std::string_view key);

}  // namespace kestrava::shell
