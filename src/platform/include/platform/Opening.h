// Opening an address or a file for the user with the desktop's own program: what could not be opened is said.
#pragma once

#include <string_view>

namespace kestrava::platform {

/// @return false if nothing was opened, which has been said
bool OpenOrSay(std::string_view target);

}  // namespace kestrava::platform
