// A table that runs for days takes no more memory. KESTRAVA_SOAK_TICKS gives the number of ticks with a full list of
// favourites; it is small unless told, and the figures are printed.
#include <algorithm>
#include <iostream>

#include <gtest/gtest.h>

#include "TableFixture.h"
#include "support/ResidentMemory.h"

namespace kestrava::views2d::ui {
namespace {

constexpr int kUsualTicks = 120;
constexpr double kMayGrowMb = 2;

using TableSoak = TableFixture;

/// After a tenth of the ticks, in which caches grow to their size, nothing more is taken.
TEST_F(TableSoak, AFullListOfFavouritesSortedAndSpoken) {
  settings.Set("Speechpack", "1");
  FillFavourites(499);
  ASSERT_EQ(tables.FaveCount, 499);
  QWidget& table = OpenTable();
  ClickHead(table, kEl);
  const int asked = qEnvironmentVariableIntValue("KESTRAVA_SOAK_TICKS");
  const int ticks = asked > 0 ? asked : kUsualTicks;
  double earlyMb = 0;
  double mostMb = 0;
  for (int tick = 1; tick <= ticks; ++tick) {
    Run(1);
    settings.ForgetAccesses();
    speech.said.clear();
    speech.kinds.clear();
    if (tick == ticks / 10) earlyMb = testing::ResidentMb();
    if (tick > ticks / 10) mostMb = std::max(mostMb, testing::ResidentMb());
  }
  std::cout << ticks << " ticks: " << earlyMb << " MB after the first tenth, " << mostMb << " MB at most from there\n";
  if (!testing::kMemoryTells) return;
  EXPECT_LT(mostMb - earlyMb, kMayGrowMb);
}

}  // namespace
}  // namespace kestrava::views2d::ui
