#include <gtest/gtest.h>

#include "shell/KepAge.h"

namespace kestrava::shell {
namespace {

using platform::MakeSerial;

TEST(KepAge, IsTodayOnTheDayOfTheFile) {
  const auto file = MakeSerial({2026, 11, 21, 9, 0, 0});
  EXPECT_EQ(ElementAgeDays(MakeSerial({2026, 11, 21, 10, 0, 0}), file), 0);
  EXPECT_EQ(KepAgeText(0), "Keplerian Elements Were Updated Today");
}

TEST(KepAge, OneDaySaysYesterday) {
  const auto file = MakeSerial({2026, 11, 20, 9, 0, 0});
  EXPECT_EQ(ElementAgeDays(MakeSerial({2026, 11, 21, 10, 0, 0}), file), 1);
  EXPECT_EQ(KepAgeText(1), "Keplerian Elements Were Updated Yesterday");
}

TEST(KepAge, TwoDaysSaysTheNumber) {
  EXPECT_EQ(KepAgeText(2), "Keplerian Elements Last Updated 2 Days Ago");
  EXPECT_EQ(KepAgeText(365), "Keplerian Elements Last Updated 365 Days Ago");
}

TEST(KepAge, CountsWholeDaysOfTwentyFourHours) {
  const auto file = MakeSerial({2026, 11, 19, 12, 0, 0});
  EXPECT_EQ(ElementAgeDays(MakeSerial({2026, 11, 21, 11, 59, 0}), file), 1);
  EXPECT_EQ(ElementAgeDays(MakeSerial({2026, 11, 21, 12, 0, 0}), file), 2);
}

TEST(KepAge, AFileDateAheadIsTakenForAMixUpOfDayAndMonth) {
  // 11 March read as the 3rd of November: the swap brings it back to noon of 11 March.
  const auto now = MakeSerial({2026, 3, 14, 13, 0, 0});
  EXPECT_EQ(ElementAgeDays(now, MakeSerial({2026, 11, 3, 8, 0, 0})), 3);
}

TEST(KepAge, AFileDateAnHourAheadIsSwappedToo) {
  const auto now = MakeSerial({2026, 11, 3, 10, 0, 0});
  EXPECT_EQ(ElementAgeDays(now, MakeSerial({2026, 11, 3, 11, 0, 0})), 236);  // since noon of 11 March
}

TEST(KepAge, ASwappedMonthBeyondTwelveRollsOverIntoTheNextYear) {
  // The 25th of November becomes month 25 of 2026: 11 January 2028.
  const auto now = MakeSerial({2026, 11, 24, 12, 0, 0});
  EXPECT_EQ(ElementAgeDays(now, MakeSerial({2026, 11, 25, 13, 0, 0})), -413);
}

TEST(KepAge, ASwapThatLiesAheadStillHasNoText) {
  const auto now = MakeSerial({2026, 1, 2, 12, 0, 0});
  const int days = ElementAgeDays(now, MakeSerial({2026, 12, 12, 12, 0, 0}));
  EXPECT_LT(days, 0);
  EXPECT_EQ(KepAgeText(days), std::nullopt);
}

}  // namespace
}  // namespace kestrava::shell
