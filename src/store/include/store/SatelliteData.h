// The satellite database satellite.dat: descriptions for the info panes. Read from the top at every call; the callers
// are selections, not timers.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::store {

/// What satellite.dat says of a satellite, as a text of several lines that end with CR LF, the last one without.
/// @param name  must contain the first line of a block; hyphens and blanks count as the same
/// @return empty if no block fits; then the callers show a default of their own
/// @note faults are logged. A missing file is said in a message.
std::string SatelliteDataFunc(std::string_view name);

}  // namespace kestrava::store
