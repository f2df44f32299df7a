#include "store/FavouriteTable.h"

#include <cstdint>
#include <utility>

#include "orbit/OrbitEngine.h"
#include "platform/Fault.h"
#include "platform/Text.h"

namespace kestrava::store {

using platform::At;

namespace {

std::int16_t CountNames(const orbit::Tables& tables) {
  std::int16_t count = 0;
  for (int i = 1; i <= kMostFavouritesSaved; ++i) {
    if (!At(tables.FaveList, i).Name.empty()) ++count;
  }
  return count;
}

void Add(orbit::Tables& tables, std::string_view name) {
  int row = 1;
  while (!At(tables.FaveList, row).Name.empty()) ++row;
  At(tables.FaveList, row).Name = name;
  tables.FaveCount = static_cast<std::int16_t>(row);
}

void Remove(orbit::Tables& tables, std::string_view name) {
  int row = 1;
  while (row <= kMostFavouritesSaved && platform::Trim(At(tables.FaveList, row).Name) != platform::Trim(name)) {
    ++row;
  }
  if (row > kMostFavouritesSaved) return;
  for (; row <= kMostFavouritesSaved; ++row) {
    At(tables.FaveList, row).Name = std::exchange(At(tables.FaveList, row + 1).Name, {});
  }
  tables.FaveCount = CountNames(tables);
}

}  // namespace

bool InFaves(const orbit::Tables& tables, std::string_view name) {
  const platform::FaultTrap trap{"GroupsCON - InFaves"};
  bool found = false;
  trap([&] {
    for (int i = 1; i <= orbit::kFaveRows && !found; ++i) {
      const std::string& row = At(tables.FaveList, i).Name;
      if (row.empty()) break;
      found = row == name;
    }
  });
  return found;
}

void SetFave(orbit::Tables& tables, std::string_view name, bool favourite) {
  if (favourite) {
    Add(tables, name);
  } else {
    Remove(tables, name);
  }
}

std::string MakePrimaryFavourite(orbit::Tables& tables, std::string_view name) {
  int row = 0;
  for (int i = 1; i <= tables.FaveCount && row == 0; ++i) {
    if (At(tables.FaveList, i).Name == name) row = i;
  }
  std::string old = At(tables.FaveList, 1).Name;
  At(tables.FaveList, 1).Name = name;
  At(tables.FaveList, row).Name = old;
  if (tables.FaveCount == 0) tables.FaveCount = 1;  // the first of all
  return old;
}

std::string FavouriteCountText(const orbit::Tables& tables) {
  return std::to_string(tables.FaveCount) + " of " + std::to_string(kMostFavouritesSaved) + " favourites";
}

std::vector<std::string> FavouritesUnknownTo(const orbit::Tables& tables, std::string_view satelliteNames) {
  const std::string known = platform::ToCapitals(satelliteNames);
  std::vector<std::string> unknown;
  for (int i = 1; i <= kMostFavouritesSaved; ++i) {
    const std::string& name = At(tables.FaveList, i).Name;
    if (!platform::Trim(name).empty() && !platform::Contains(known, platform::ToCapitals(name))) {
      unknown.push_back(name);
    }
  }
  return unknown;
}

std::vector<std::string> FavouritesUnknownTo(const orbit::Tables& tables, const orbit::OrbitEngine& engine) {
  return FavouritesUnknownTo(tables, engine.SatelliteNames());
}

}  // namespace kestrava::store
