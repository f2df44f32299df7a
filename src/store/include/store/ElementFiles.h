// What the system itself reads of element files: only names, for the windows that list the satellites of a group. The
// engine has a reader of its own for the elements.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/Tables.h"

namespace kestrava::store {

/// The element file of a group: the text of its address behind the last "/", relative to AppDir.
std::string ElementFileOf(const orbit::GroupRec& group);

/// Whether a file is one of elements: there is a set in its first 401 lines. Does not yield.
/// @param file  relative to AppDir. @throws platform::Fault "File not found", ...
bool HoldsSets(std::string_view file);

/// Whether the engine finds a set in a file: a line alone that looks like one is not enough.
/// @param file  relative to AppDir. @throws platform::Fault "File not found", ...
bool HoldsUsableSet(std::string_view file);

/// What is wrong with an element file, as it is said behind its name: "is not there", "cannot be read (...)", "holds no
/// elements", "holds 3 damaged sets". Empty where nothing is.
/// @param file  relative to AppDir
std::string TroubleWith(std::string_view file);

/// How many lines stand in front of the first set: a reader that drops lines 0 up to the result, inclusive, stands in
/// front of its name line.
/// @param file  relative to AppDir
/// @return -1 for a file without a header, and for one that is missing; 0 if there is no set in the first 401 lines
/// @note yields once for each line read; faults are logged with the file's name
std::int16_t FindFirstKepLine(std::string_view file);

/// The satellites of an element file, in file order: names of 15 characters, trimmed. Sets with an epoch of 0 are left
/// out; a blank name line ends the list.
/// @param file  relative to AppDir. @throws platform::Fault "File not found"
/// @param trapName  of the caller, for a set that breaks off at the end of the file; stays alive as a literal
std::vector<std::string> ListSatellites(std::string_view file, std::string_view trapName);

}  // namespace kestrava::store
