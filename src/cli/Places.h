// The place that an answer holds for: given on the command line, stored in the settings, or guessed.
#pragma once

#include <string>
#include <string_view>

#include "orbit/Observer.h"

namespace kestrava::cli {

struct Place {
  std::string name;  ///< empty if the place was given by its numbers
  orbit::Observer observer;
  double longitudeEastDeg = 0;  ///< above -180 to 180, to the digit as it was given
};

/// @param longitudeEastDeg  -180 to 720
Place MakePlace(std::string name, double latitudeDeg, double longitudeEastDeg, double heightM);

/// What stands behind --at: "LAT,LON", "LAT,LON,HEIGHT", or a Maidenhead locator of 4, 6 or 8 characters, which means
/// the middle of its field; at sea level where no height is given. @throws WrongUse
Place ParsePlace(std::string_view text);

/// "London, 51.5 N, 0.1 W, 20 m", numbers as the machine's locale writes them.
std::string PlaceText(const Place& place);

/// Degrees east, above -180 to 180, of any longitude. One that lies there is left as it is.
double EastDeg(double longitudeDeg);

}  // namespace kestrava::cli
