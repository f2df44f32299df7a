// What a fault that was survived means to a user of the terminal.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::cli {

/// The message of a fault with the work in which it came up, in place of the name that stands in error.log.
/// @return empty if it tells of a write: a command writes nothing
std::string PlainWords(std::string_view message, std::string_view trapName);

}  // namespace kestrava::cli
