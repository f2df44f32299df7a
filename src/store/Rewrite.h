// Writing a file of the user anew without losing what he had.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Fault.h"

namespace kestrava::store {

using Lines = std::vector<std::string>;

/// The lines of a file in AppDir as it stands; none if there is no such file. @throws platform::Fault
Lines LinesOnDisk(std::string_view fileName);

/// No file of that name in AppDir, nor a folder.
bool IsMissing(std::string_view fileName);

bool IsBlank(std::string_view line);

/// The lines of `before` that are not blank and do not stand in `after`.
Lines LinesMissing(const Lines& before, const Lines& after);

/// The lines that another copy, or the user's editor, can have written as rows: those that are not blank and hold no
/// control characters. A damaged file holds none.
Lines PlainLines(const Lines& lines);

/// Keeps a file in AppDir as a backup if one of these lines stands in it, and names them in error.log: it is about to
/// be replaced without them. @throws platform::Fault
void KeepWhatIsLost(std::string_view fileName, const Lines& lost, std::string_view trapName);

/// Replaces a file in AppDir in one step. A file that was Latin-1 stays so, unless a new line does not fit into it.
/// @throws platform::Fault; the old file is then whole
void ReplaceLines(std::string_view fileName, const Lines& lines);

/// The fault of a save whose table could not be read whole.
platform::Fault NotReadWhole(std::string_view fileName);

/// "A, B and 7 more".
std::string NamesOf(const Lines& names);

}  // namespace kestrava::store
