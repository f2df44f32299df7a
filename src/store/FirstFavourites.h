// The favourites of a first start: the shipped ones but those that never rise at the user's place. A satellite that
// cannot come up would stand first in every list, waiting for ever.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "orbit/Observer.h"
#include "store/FirstStart.h"

namespace kestrava::store {

inline constexpr std::string_view kFavouritesFile = "faves.dat";

/// The place that is stored already, from an earlier folder, else the guess.
std::optional<orbit::Observer> FirstObserver(const std::optional<ZonePlace>& guess);

/// The shipped faves.dat without the lines of satellites that, by the shipped elements, neither stand above the
/// horizon at their epoch nor rise in the thirty days after it. All of it where none would be left.
/// @throws platform::Fault what the disk says
std::string FavouritesThatRise(const std::filesystem::path& shipped, const orbit::Observer& observer);

}  // namespace kestrava::store
