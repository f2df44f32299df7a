// The elements that come with the program are for trying it out: their orbits are real in shape, the places are not.
// Told by the content of a file, so that neither its date nor its name can mislead.
#pragma once

#include <filesystem>
#include <string_view>

namespace kestrava::store {

/// True as long as all element lines of the shipped file of that name stand in the user's one, whatever he has added.
/// False if there is no such file on either side. @throws platform::Fault what the disk says
bool HoldsShippedElements(const std::filesystem::path& shipped, std::string_view fileName);

}  // namespace kestrava::store
