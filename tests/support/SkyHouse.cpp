#include "support/SkyHouse.h"

#include <fstream>
#include <iterator>

#include "platform/Fault.h"
#include "platform/Files.h"

namespace kestrava::testing {

namespace {

std::string Shipped(const std::string& name) {
  std::ifstream file(KESTRAVA_SOURCE_DIR "data/sample/" + name, std::ios::binary);
  EXPECT_TRUE(file) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace

SkyHouse::SkyHouse() {
  for (const auto* name : {"amateur.txt", "stations.txt", "geo.txt", "weather.txt"}) Put(name, Shipped(name));
  engine.SetDataFolder(platform::AppDir);
  engine.SetObserver({51.5, 0, 30});
  clock.SetUtc(platform::DateParts{2026, 11, 15, 12, 0, 0});
}

orbit::FaveRec& SkyHouse::AddFavourite(std::string_view name, double elevationDeg) {
  orbit::FaveRec& row = platform::At(tables.FaveList, ++tables.FaveCount);
  row.Name = name;
  row.El = elevationDeg;
  return row;
}

}  // namespace kestrava::testing
