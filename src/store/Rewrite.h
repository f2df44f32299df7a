// Writing a file of the user anew without losing what he had.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrava::store {

using Lines = std::vector<std::string>;

/// The lines of a file in AppDir as it stands; none if there is no such file. @throws platform::Fault
Lines LinesOnDisk(std::string_view fileName);

bool IsBlank(std::string_view line);

/// The lines of `before` that are not blank and do not stand in `after`.
Lines LinesMissing(const Lines& before, const Lines& after);

/// Replaces a file in AppDir in one step. A file that was Latin-1 stays so, unless a new line does not fit into it.
/// @param leftOut  lines that the user had and that the new file does not hold: if there are any, the old file is kept
///   as NAME.bak first, and error.log names them
/// @throws platform::Fault; the old file is then whole
void RewriteFile(std::string_view fileName, const Lines& lines, const Lines& leftOut, std::string_view trapName);

}  // namespace kestrava::store
