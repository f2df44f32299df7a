// The lists of the user under kill -9: each save is killed at every one of its system calls.
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "store/Favourites.h"
#include "store/Groups.h"
#include "store/Locations.h"

#include "support/KilledSaves.h"

namespace kestrava::store {
namespace {

using KilledSaves = testing::KilledSaves;

constexpr const char* kKnown = "\"ISS (ZARYA)\",\"NOAA 15\",\"NOAA 19\"";

TEST_F(KilledSaves, FavouritesAreWhole) {
  ExpectWholeAfterEveryKill("faves.dat", "ISS (ZARYA)\nNOAA 15\n", [] {
    auto tables = std::make_unique<orbit::Tables>();
    LoadFaves(*tables, kKnown);
    platform::At(tables->FaveList, 1).Name = "NOAA 19";
    platform::At(tables->FaveList, 3).Name = "ISS (ZARYA)";
    SaveFaves(*tables);
  });
}

TEST_F(KilledSaves, FavouritesThatAreNoLongerKnownAreNeverLost) {
  ExpectWholeAfterEveryKill(
      "faves.dat", "ISS (ZARYA)\r\nGONE 7\r\nNOAA 15\r\n",
      [] {
        auto tables = std::make_unique<orbit::Tables>();
        LoadFaves(*tables, kKnown);
      },
      true);
}

TEST_F(KilledSaves, GroupsAreWhole) {
  ExpectWholeAfterEveryKill("groups.dat", "Amateur,celestrak.org/amateur.txt,0\r\nMine,mine.txt,1\r\n", [] {
    auto tables = std::make_unique<orbit::Tables>();
    LoadGroups(*tables);
    platform::At(tables->GroupList, 2).Name = "Ours";
    SaveGroups(*tables);
  });
}

TEST_F(KilledSaves, GroupsBehindABlankLineAreNeverLost) {
  ExpectWholeAfterEveryKill(
      "groups.dat", "Amateur,amateur.txt,0\r\n\r\nMine,mine.txt,1\r\n",
      [] {
        auto tables = std::make_unique<orbit::Tables>();
        LoadGroups(*tables);
        SaveGroups(*tables);
      },
      true);
}

TEST_F(KilledSaves, LocationsAreWhole) {
  ExpectWholeAfterEveryKill("Locations.dat", "1London;0.1;51.5;30\r\n0Berlin;346.6;52.5;34\r\n", [] {
    auto tables = std::make_unique<orbit::Tables>();
    LoadLocations(*tables);
    platform::At(tables->LocationList, 2).Name = "Potsdam";
    SaveLocations(*tables);
  });
}

TEST(KilledWork, FindsAWriteThatIsNotOneStep) {
  const testing::TempFolder folder;
  const std::filesystem::path file = folder / "a.dat";
  const auto write = [&](const std::string& text) { std::ofstream(file) << text; };
  int broken = 0;
  for (int call = 1;; ++call) {
    write("old");
    const testing::WorkEnd end = testing::RunKilledAt(call, [&] { write("new"); });
    if (end == testing::WorkEnd::kRefused) GTEST_SKIP() << "this machine lets nobody trace a process";
    std::string left;
    std::ifstream(file) >> left;
    if (left != "old" && left != "new") ++broken;
    if (end == testing::WorkEnd::kDone) break;
  }
  EXPECT_GT(broken, 0);
}

}  // namespace
}  // namespace kestrava::store
