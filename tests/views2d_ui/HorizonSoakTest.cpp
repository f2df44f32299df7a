// A horizon that runs for weeks takes no more memory. KESTRAVA_SOAK_TICKS gives the number of ticks with a full list of
// favourites; it is small unless told, and the figures are printed.
#include <QtGlobal>
#include <iostream>

#include <gtest/gtest.h>

#include "HorizonFixture.h"
#include "support/ResidentMemory.h"

namespace kestrava::views2d::ui {
namespace {

constexpr double kMayGrowMb = 2;
constexpr int kUsualTicks = 60;

class HorizonSoak : public HorizonFixture {};

TEST_F(HorizonSoak, AFullListOfFavouritesWithTracksReportsAndSelections) {
  FillFavourites(499);
  ASSERT_EQ(tables.FaveCount, 499);
  settings.Set("Speechpack", "1");
  QWidget& horizon = OpenHorizon();
  Resize(horizon, 1000, 700);
  const int asked = qEnvironmentVariableIntValue("KESTRAVA_SOAK_TICKS");
  const int ticks = asked > 0 ? asked : kUsualTicks;
  double earlyMb = 0;
  double mostMb = 0;
  for (int tick = 0; tick < ticks; ++tick) {
    Run(1);
    settings.ForgetAccesses();
    speech.said.clear();
    speech.kinds.clear();
    if (tick % 50 == 49) ClickAt(Child<QWidget>(horizon, "Final"), {tick * 37 % 1000, tick * 13 % 600});
    (tick < ticks / 10 ? earlyMb : mostMb) = std::max(tick < ticks / 10 ? earlyMb : mostMb, testing::ResidentMb());
  }
  std::cout << ticks << " ticks: " << earlyMb << " MB at most in the first tenth, " << mostMb << " MB afterwards\n";
  if (testing::kMemoryTells && ticks >= 1000) {
    EXPECT_LT(mostMb - earlyMb, kMayGrowMb);
  }
}

}  // namespace
}  // namespace kestrava::views2d::ui
