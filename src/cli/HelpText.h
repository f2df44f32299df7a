// The help as a terminal of 80 columns shows it.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::cli {

/// Breaks lines at blanks where they are longer than 80 characters. What goes on stands below the explanation that it
/// belongs to, or at the line's own beginning.
std::string WrappedHelp(std::string_view help);

}  // namespace kestrava::cli
