// The files of the station that tests work with: groups, favourites, facts and elements of tests/data/station, which
// stay as they are, and beside them what is shipped (pictures, places, help).
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace kestrava::testing {

/// The content of one of them. Fails the test if there is none of that name.
std::string StationFile(const std::string& name);

/// All of them by name, read once.
const std::map<std::string, std::string>& StationFiles();

/// A folder of the disk as a station finds it: all of them, without README.
void CopyStationFiles(const std::filesystem::path& folder);

}  // namespace kestrava::testing
