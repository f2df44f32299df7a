// Changes of the favourites' table while the station runs. Only names move: the numbers of a row belong to whatever
// name stands in it at the next tick of the map. Nothing here writes faves.dat. Called by the groups panel.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "orbit/Tables.h"

namespace kestrava::orbit {
class OrbitEngine;
}

namespace kestrava::store {

/// So many favourites are saved; the table holds one more.
inline constexpr int kMostFavouritesSaved = orbit::kFaveRows - 1;

/// Whether a row up to the first empty one is exactly this name.
/// @note faults are logged with "GroupsCON - InFaves"
bool InFaves(const orbit::Tables& tables, std::string_view name);

/// Adds a name in the first empty row, whether it stands in another or not; or takes it out, compared without blanks
/// at the ends, among rows 1 to 499, closes the gap and counts anew. A name that is not there is left so.
/// @throws platform::Fault "Subscript out of range" for a 501st name; nothing is touched then
void SetFave(orbit::Tables& tables, std::string_view name, bool favourite);

/// Puts a name into row 1, and the one that stood there where it came from. A name that is no favourite is put there
/// all the same, and the old first one goes to row 0, out of the list.
/// @return the old first name
std::string MakePrimaryFavourite(orbit::Tables& tables, std::string_view name);

/// "12 of 499 favourites".
std::string FavouriteCountText(const orbit::Tables& tables);

/// Favourites that the running engine has no elements of, by the test with which faves.dat is read.
std::vector<std::string> FavouritesUnknownTo(const orbit::Tables& tables, std::string_view satelliteNames);
std::vector<std::string> FavouritesUnknownTo(const orbit::Tables& tables, const orbit::OrbitEngine& engine);

}  // namespace kestrava::store
