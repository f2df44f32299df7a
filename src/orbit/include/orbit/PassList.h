// The text form of a list of passes, as the engine hands it to the pass windows.
#pragma once

#include <span>
#include <string>

#include "orbit/PassSearch.h"

namespace kestrava::orbit {

/// One entry for each pass, in double quotes, split by commas; an empty text for no pass. An entry has five fields,
/// split by single blanks: start, end and moment of the highest point (14 digits YYYYMMDDhhmmss, Universal Time, to the
/// nearest second), highest elevation (degrees, up to four decimals), duration (whole seconds). The decimal sign is a
/// point on every machine.
std::string PassListText(std::span<const Pass> passes);

}  // namespace kestrava::orbit
