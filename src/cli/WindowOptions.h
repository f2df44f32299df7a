// The options that open windows: our own two, and the toolkit's. Looked at before the toolkit starts, which ends a
// process that finds no display, whatever else is wrong with its arguments.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrava::cli {

/// The first word that is neither an option nor an option's value; empty if there is none.
std::string_view FirstWord(const std::vector<std::string>& arguments);

/// What is wrong with arguments that hold no word: an option that nobody knows, or one of ours without its folder.
/// @return a sentence for the user; empty if windows may open with them
std::string WrongWindowOption(const std::vector<std::string>& arguments);

}  // namespace kestrava::cli
