// The regional modes of the map: a factor-2 zoom into a quarter of the world. Used by the mappings and by the base
// layer, so that both always show the same quarter.
#pragma once

#include <array>
#include <string_view>

namespace kestrava::views2d {

struct RegionalMode {
  std::string_view name;
  double westShiftDeg;   ///< degrees of longitude by which the doubled map is moved left
  double northShiftDeg;  ///< degrees of latitude by which it is moved up
  std::string_view title;
};

inline constexpr std::array<RegionalMode, 6> kRegionalModes{{
    {"NWQ", 0, 0, "North West"},
    {"NCQ", 180, 0, "North Central"},
    {"NEQ", 360, 0, "North East"},
    {"SWQ", 0, 180, "South West"},
    {"SCQ", 180, 180, "South Central"},
    {"SEQ", 360, 180, "South East"},
}};

inline constexpr std::string_view kSwappedHalves = "worldalt";

/// The regional mode of that name, or null: the two world modes and any unknown text.
constexpr const RegionalMode* FindRegionalMode(std::string_view mapMode) {
  for (const RegionalMode& mode : kRegionalModes) {
    if (mode.name == mapMode) return &mode;
  }
  return nullptr;
}

}  // namespace kestrava::views2d
