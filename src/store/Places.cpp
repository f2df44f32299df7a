#include "store/Places.h"

#include <utility>

#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Settings.h"
#include "platform/Text.h"

namespace kestrava::store {

using platform::At;

namespace {

/// A row that a place can stand in: row 0 stays empty.
orbit::LocationRec& PlaceRow(orbit::Tables& tables, int row) {
  if (row < 1) throw platform::Fault::SubscriptOutOfRange();
  return At(tables.LocationList, row);
}

}  // namespace

PrimaryPlace ReadPrimaryPlace() {
  return {platform::ReadSetting("Location Name", "Default"), platform::ReadSetting("Latitude", "0"),
          platform::ReadSetting("Longitude", "0"), platform::ReadSetting("HASL", "0")};
}

void WritePrimaryPlace(const PrimaryPlace& place) {
  platform::WriteSetting("Latitude", place.latitude);
  platform::WriteSetting("Longitude", place.longitude);
  platform::WriteSetting("Location Name", place.name);
  platform::WriteSetting("HASL", place.heightM);
}

PrimaryPlace AsPrimary(const Place& place) {
  return {place.name, platform::NumberText(place.latitudeDeg), platform::NumberText(place.longitudeDegWest),
          std::to_string(place.heightM)};
}

int PlaceCount(const orbit::Tables& tables) {
  int count = 0;
  while (count < orbit::kLocationRows && !tables.LocationList[static_cast<std::size_t>(count) + 1].Name.empty()) {
    ++count;
  }
  return count;
}

void OverwritePlace(orbit::Tables& tables, int row, const Place& place) {
  orbit::LocationRec& target = PlaceRow(tables, row);
  target = {place.name, platform::NumberText(place.latitudeDeg), platform::NumberText(place.longitudeDegWest),
            place.heightM, "1"};
}

int AddPlace(orbit::Tables& tables, const Place& place) {
  const int row = PlaceCount(tables) + 1;
  OverwritePlace(tables, row, place);
  return row;
}

void RemovePlace(orbit::Tables& tables, int row) {
  PlaceRow(tables, row) = {};
  for (int i = row; i < orbit::kLocationRows; ++i) {
    At(tables.LocationList, i) = std::exchange(At(tables.LocationList, i + 1), {});
  }
}

void SetPlaceOnMap(orbit::Tables& tables, int row, bool onMap) {
  PlaceRow(tables, row).OnMap = std::string(1, onMap ? '1' : '0');
}

void SwapWithPrimary(orbit::Tables& tables, int row, const Place& place) {
  orbit::LocationRec& target = PlaceRow(tables, row);
  const PrimaryPlace kept = ReadPrimaryPlace();
  const std::int16_t keptHeightM = platform::ToInt16(platform::ParseNumber(kept.heightM));
  WritePrimaryPlace(AsPrimary(place));
  target = {kept.name, kept.latitude, kept.longitude, keptHeightM, target.OnMap};
}

}  // namespace kestrava::store
