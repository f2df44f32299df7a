// The list of favourite satellites in faves.dat: one name a line, the first is the primary favourite. Read once at
// start-up, written whole when the group window closes; the table in memory is the system's working data.
#pragma once

#include <string_view>

#include "orbit/Tables.h"

namespace kestrava::orbit {
class OrbitEngine;
}

namespace kestrava::store {

/// Reads faves.dat, keeps the satellites that the engine knows, and writes the file anew at once.
/// @param satelliteNames  all names that the engine knows; a line counts as known if it occurs anywhere in this text,
///   without regard to case, so that a line of a single letter passes
/// @throws platform::Fault "File not found"; "Subscript out of range" past row 500, with the count and the file as they
///   were
/// @note lines that drop out are kept: the old file stays as faves.dat.bak, error.log names them, and a file beside it
///   remembers their places (store/WaitingFavourites.h). From there they come back as soon as the engine knows them
void LoadFaves(orbit::Tables& tables, std::string_view satelliteNames);
void LoadFaves(orbit::Tables& tables, const orbit::OrbitEngine& engine);

/// Writes the names of rows 1 to 499, each cut to 15 characters, and between them what other copies have added
/// meanwhile; what they took out stays out. Row 500 is never written: it is remembered with those that wait. The table
/// keeps its gaps, so that the count can then be below the highest row in use. A table that could not be read whole is
/// never written over its file.
/// @throws platform::Fault, also for such a table that was changed since; the old file is then whole
void SaveFaves(orbit::Tables& tables);

}  // namespace kestrava::store
