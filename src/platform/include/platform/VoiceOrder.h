// In which order voices are offered. The sentences of the station are English, so whoever takes the first voice of the
// list should understand them. Called by the speech engine of the system.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrava::platform {

struct VoiceFact {
  std::string name;        ///< as the user reads it: "English (Great Britain)"
  std::string language;    ///< code in lower case: "en-gb"
  std::string identifier;  ///< by which the synthesiser finds it
  int priority = 0;        ///< of the synthesiser among the voices of a language, the lowest first
};

/// English voices of the region first, then the other English ones, both by priority and code; then all others by name.
/// Voices of an add-on that is not there (names beginning "mb-") are left out.
/// @param region  two letters in lower case; empty if unknown
std::vector<VoiceFact> InListOrder(std::vector<VoiceFact> voices, std::string_view region);

/// The region of a locale's name, in lower case: "gb" of "en_GB.UTF-8"; empty if it names none.
std::string RegionOfLocale(std::string_view locale);

}  // namespace kestrava::platform
