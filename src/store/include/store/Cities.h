// The list of world cities that the program carries in itself, and the search in it: whoever knows his town need not
// know its longitude. Read and asked by the locations panel; the shipped text is the resource ":/places/cities.txt",
// whose form is told in data/README.md.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrava::store {

/// One city of the list.
struct City {
  std::string name;
  std::string country;
  std::string region;  ///< state or province; may be empty
  double latitudeDeg = 0;
  double longitudeEastDeg = 0;  ///< -180 to 180; west of Greenwich is negative, other than in Locations.dat
  std::optional<int> heightM;   ///< above the sea; empty where the list has none
  int population = 0;
  bool sharesItsName = false;  ///< another one of this country is called alike: its text needs the region
  std::string nameKey;         ///< what the search looks at: all its names folded, a line each
  std::string placeKey;        ///< region and country likewise
};

/// The cities of a list's text. Empty lines and those that begin with "#" are passed over; lines that hold no city are
/// left out, and error.log says once how many. Never fails; an empty text is an empty list.
std::vector<City> ReadCities(std::string_view text);

/// The cities that a typed text may mean, best first, at most `most` of them. Letters count the same in capitals or
/// small and with or without accents. A whole name (the city's own, then another one) stands before the beginning of
/// one, that before the beginning of a later word, that before letters inside; of equals the larger city comes first.
/// Behind a comma stands a country or region ("london, united states"); without one ("london kentucky", "iceland") they
/// are found behind all names.
/// @return pointers into `cities`; none for a text without letters or digits
std::vector<const City*> FindCities(const std::vector<City>& cities, std::string_view text, int most);

/// "Zürich, Switzerland"; with the region between them where that country has two of the name.
std::string CityText(const City& city);

}  // namespace kestrava::store
