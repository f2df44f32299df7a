#include "support/SkyHouse.h"

#include "platform/Fault.h"
#include "platform/Files.h"

#include "support/StationFiles.h"

namespace kestrava::testing {

SkyHouse::SkyHouse() {
  for (const auto* name : {"amateur.txt", "stations.txt", "geo.txt", "weather.txt"}) Put(name, StationFile(name));
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
