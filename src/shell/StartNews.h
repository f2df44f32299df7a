// What a start left out of the user's lists, told once when the launcher stands.
#pragma once

#include <string>
#include <string_view>

#include "orbit/Tables.h"

namespace kestrava::shell {

/// Favourites that had to be left out, with the reason; lists that could not be read whole, or not be written.
/// @param satelliteNames  all that the engine knows
/// @return empty where there is nothing to tell
std::string StartNews(const orbit::Tables& tables, std::string_view satelliteNames);

}  // namespace kestrava::shell
