// The table of observing places and the primary place in the settings, changed row by row. Nothing here writes
// Locations.dat: the caller saves when a change is whole. Called by the locations panel.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "orbit/Tables.h"

namespace kestrava::store {

/// A place whose numbers have been read and checked.
struct Place {
  std::string name;
  double latitudeDeg = 0;
  double longitudeDegWest = 0;  ///< 0 to 360
  std::int16_t heightM = 0;
};

/// What no place's name may hold: it parts the fields of a line of Locations.dat.
inline constexpr std::string_view kNotInPlaceNames = ";";

/// The primary place as the settings hold it, texts as they stand.
struct PrimaryPlace {
  std::string name;
  std::string latitude;
  std::string longitude;
  std::string heightM;
};
PrimaryPlace ReadPrimaryPlace();
void WritePrimaryPlace(const PrimaryPlace& place);

/// The settings' texts for a place, numbers in the machine's locale.
PrimaryPlace AsPrimary(const Place& place);

/// Rows up to the first without a name.
int PlaceCount(const orbit::Tables& tables);

/// Writes a place into row `row`, drawn on the map.
/// @throws platform::Fault "Subscript out of range"
void OverwritePlace(orbit::Tables& tables, int row, const Place& place);

/// Writes a place into the first row without a name. @return the row
/// @throws platform::Fault "Subscript out of range" when all 100 rows are in use; nothing is touched then
int AddPlace(orbit::Tables& tables, const Place& place);

/// Takes a row out and moves the ones above it down by one.
/// @throws platform::Fault "Subscript out of range"
void RemovePlace(orbit::Tables& tables, int row);

/// @throws platform::Fault "Subscript out of range"
void SetPlaceOnMap(orbit::Tables& tables, int row, bool onMap);

/// A place and the primary one change roles: the settings get the values of `place`, the row gets what the settings
/// held, and keeps its tick.
/// @throws platform::Fault for a row that is none or a stored height that is no number; nothing is touched then
void SwapWithPrimary(orbit::Tables& tables, int row, const Place& place);

}  // namespace kestrava::store
