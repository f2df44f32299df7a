#pragma once

// Numbers in the fixed columns of element lines. Written by hand because the files have forms that no library reads
// (an implied decimal point, an exponent without its letter) and never follow the machine's locale.

#include <optional>
#include <string_view>

namespace kestrava::orbit {

/// Blanks taken off both ends.
std::string_view TrimBlanks(std::string_view field);

/// Digits with one point at most and a sign in front: "318.89808844", "-.00002182". Up to 15 digits the result is the
/// nearest double.
/// @return nothing for any other form, a blank field among them
std::optional<double> DecimalField(std::string_view field);

/// Digits behind an implied decimal point, "0003646" for 0.0003646; a point that stands there counts.
std::optional<double> FractionField(std::string_view field);

/// Digits behind an implied point and a power of ten, " 38550-4" for 0.38550e-4; blank is 0.
std::optional<double> PowerField(std::string_view field);

/// Digits alone; blank is 0.
std::optional<int> CountField(std::string_view field);

}  // namespace kestrava::orbit
