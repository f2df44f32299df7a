#include <gtest/gtest.h>

#include "views2d/SatellitePlot.h"

namespace kestrava::views2d {
namespace {

constexpr double kSystemPi = 3.14159265358979;

TEST(MoonPhase, FullMoonItselfIsStillTheThirdQuarterWaxing) {
  EXPECT_STREQ(MoonPhaseName(0), "3rd Quarter waxing");
  EXPECT_DOUBLE_EQ(MoonPhasePercent(0), 100);
}

TEST(MoonPhase, TheStartOfTheCycleIsNewMoon) {
  EXPECT_STREQ(MoonPhaseName(-kSystemPi), "New Moon");
  EXPECT_DOUBLE_EQ(MoonPhasePercent(-kSystemPi), 0);
}

TEST(MoonPhase, TheEndOfTheCycleIsTheLastQuarterAtNothing) {
  EXPECT_STREQ(MoonPhaseName(kSystemPi), "Last Quarter");
  EXPECT_DOUBLE_EQ(MoonPhasePercent(kSystemPi), 0);
}

TEST(MoonPhase, BetweenTheOddBoundAndTheTrueQuarterItIsHalfWaxing) {
  EXPECT_STREQ(MoonPhaseName(-1.5707), "Half waxing");
  EXPECT_STREQ(MoonPhaseName(-1.57075), "1st Quarter");  // a bound of -1.570796 would say otherwise
}

TEST(MoonPhase, EveryEighthHasItsOwnName) {
  EXPECT_STREQ(MoonPhaseName(-2.5), "New Moon");
  EXPECT_STREQ(MoonPhaseName(-2.0), "1st Quarter");
  EXPECT_STREQ(MoonPhaseName(-1.0), "Half waxing");
  EXPECT_STREQ(MoonPhaseName(-0.5), "3rd Quarter waxing");
  EXPECT_STREQ(MoonPhaseName(0.5), "Full");
  EXPECT_STREQ(MoonPhaseName(1.0), "3rd Quarter waning");
  EXPECT_STREQ(MoonPhaseName(2.0), "Half waning");
  EXPECT_STREQ(MoonPhaseName(2.5), "Last Quarter");
}

TEST(MoonPhase, ABoundBelongsToTheEighthBeforeIt) {
  EXPECT_STREQ(MoonPhaseName(-2.356194489), "New Moon");
  EXPECT_STREQ(MoonPhaseName(-1.570707963), "1st Quarter");
  EXPECT_STREQ(MoonPhaseName(-0.785398163), "Half waxing");
  EXPECT_STREQ(MoonPhaseName(0.785398163), "Full");
  EXPECT_STREQ(MoonPhaseName(1.570796326), "3rd Quarter waning");
  EXPECT_STREQ(MoonPhaseName(2.356194489), "Half waning");
}

TEST(MoonPhase, ThePercentageIsLinearInTheAngleAndNotTheLitFraction) {
  EXPECT_DOUBLE_EQ(MoonPhasePercent(-kSystemPi / 2), 50);
  EXPECT_DOUBLE_EQ(MoonPhasePercent(kSystemPi / 2), 50);
  EXPECT_DOUBLE_EQ(MoonPhasePercent(-kSystemPi / 4), 75);
  EXPECT_DOUBLE_EQ(MoonPhasePercent(kSystemPi / 4), 75);
}

}  // namespace
}  // namespace kestrava::views2d
