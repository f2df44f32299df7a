// Natural Earth's table of populated places, read from its shapefile: the fields that the list of cities needs, as
// they stand there but for their encoding.
#pragma once

#include <string>
#include <vector>

namespace kestrava::tools {

struct PlacesRow {
  std::string name;
  std::string inParentheses;  // another name; for stations in the Antarctic the country that keeps them
  std::string alternatives;   // parted by "|"
  std::string urbanAreaName;
  std::string country;
  std::string region;
  double latitudeDeg = 0;  // of the drawn point: the table's own columns are wrong for some places
  double longitudeEastDeg = 0;
  int population = 0;
};

/// @param shapefile  path without ending; .shp, .shx and .dbf stand beside each other
/// @throws std::runtime_error
std::vector<PlacesRow> ReadPlacesTable(const std::string& shapefile);

}  // namespace kestrava::tools
