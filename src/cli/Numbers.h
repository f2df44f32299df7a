// Numbers as they are written on the command line: with a point, whatever the machine's locale.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::cli {

/// @param option  how a message about a wrong one begins. @throws WrongUse  no number, or not between the two
double NumberBetween(std::string_view text, double least, double most, const std::string& option);

}  // namespace kestrava::cli
