// The first start: fills a new folder with the shipped sample data, and guesses the user's place from the zone of the
// machine. Nothing that exists is ever overwritten, and single missing files are never put back unasked.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

#include "orbit/Observer.h"
#include "platform/Folders.h"

namespace kestrava::store {

/// The place that stands for the machine's time zone.
struct ZonePlace {
  std::string zoneName;  ///< "America/New_York"
  double latitudeDeg = 0;
  double longitudeEastDeg = 0;
};

/// True if there is no such folder, or nothing in it.
bool IsNewFolder(const std::filesystem::path& folder);

/// Fills a new folder: a copy of the shipped one is made beside it, under a name that this start alone has, and renamed
/// into place in one step, so that a kill leaves it new or whole, and of several starts at the same moment one fills it
/// and the others take that. (An empty folder that cannot be renamed over, as the root of a stick, is filled in place,
/// groups.dat last.) Element files are given the date of their newest elements.
/// @param observer  favourites that never rise there are left out
/// @throws platform::Fault "File not found" without shipped data, or what the disk says; the folder is then new as
/// before
void SeedFolder(const std::filesystem::path& shipped, const std::filesystem::path& folder, platform::Folders& folders,
                const std::optional<orbit::Observer>& observer = {});

/// Writes the four settings of the primary location, unless one of them is already there.
void WriteFirstLocation(const ZonePlace& place);

/// All that a first start does, if it is one, after clearing away what killed ones have left beside the folder.
/// @return true if the folder was new
bool PrepareFirstStart(const std::filesystem::path& shipped, const std::filesystem::path& folder,
                       const std::optional<ZonePlace>& place, platform::Folders& folders);

/// True if a file of that name is shipped (a plain name, without regard to case).
bool IsShipped(const std::filesystem::path& shipped, std::string_view fileName);

/// Puts one shipped file into AppDir, if none of that name is there that can be used: a damaged one, or a folder of
/// that name, is moved aside first (NAME.damaged).
/// @return false if it is not shipped. @throws platform::Fault if it could not be written
bool PutBack(const std::filesystem::path& shipped, std::string_view fileName);

}  // namespace kestrava::store
