#include <gtest/gtest.h>

#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"

#include "support/House.h"

namespace kestrava::orbit {
namespace {

using platform::DateParts;
using platform::MakeSerial;
using platform::SplitSerial;

using TimeHelpers = testing::House;

constexpr DateParts kSummer{2024, 7, 3, 12, 0, 0};

TEST_F(TimeHelpers, OneHourAheadLocalToUtcSubtractsSixtyMinutes) {
  clock.SetOffsetHours(1);
  EXPECT_EQ(SplitSerial(LocalToUTC(MakeSerial(kSummer))), (DateParts{2024, 7, 3, 11, 0, 0}));
  EXPECT_EQ(SplitSerial(UTCToLocal(MakeSerial(kSummer))), (DateParts{2024, 7, 3, 13, 0, 0}));
}

TEST_F(TimeHelpers, FiveHoursBehindLocalToUtcAddsThreeHundredMinutes) {
  clock.SetOffsetHours(-5);
  EXPECT_EQ(SplitSerial(LocalToUTC(MakeSerial(kSummer))), (DateParts{2024, 7, 3, 17, 0, 0}));
  EXPECT_EQ(SplitSerial(UTCToLocal(MakeSerial(kSummer))), (DateParts{2024, 7, 3, 7, 0, 0}));
}

TEST_F(TimeHelpers, EveryZoneComesBackAtEveryTimeOfDay) {
  for (int quarter = -12 * 4; quarter <= 14 * 4; ++quarter) {
    clock.SetOffsetHours(quarter / 4.0);
    for (int second = 0; second < 86400; second += 3571) {
      const platform::SerialDate utc = MakeSerial({2024, 3, 9, 0, 0, second});
      clock.SetUtc(utc);
      const platform::SerialDate local = UTCToLocal(utc);
      ASSERT_EQ(SplitSerial(local), SplitSerial(MakeSerial({2024, 3, 9, 0, quarter * 15, second}))) << quarter;
      ASSERT_EQ(SplitSerial(LocalToUTC(local)), SplitSerial(utc)) << quarter;
    }
  }
}

TEST_F(TimeHelpers, ASecondIsShownUntilTheNextOneBegins) {
  clock.SetOffsetHours(5.75);
  const platform::SerialDate lastSecond = MakeSerial({2024, 12, 31, 23, 59, 59});
  for (const double fraction : {0.0, 0.4, 0.5, 0.6, 0.9, 0.999}) {
    clock.SetUtc(lastSecond + fraction / platform::kSecondsPerDay);
    EXPECT_EQ(SplitSerial(NowUTC()), (DateParts{2024, 12, 31, 23, 59, 59})) << fraction;
    EXPECT_EQ(NowUTC(), lastSecond) << "whole seconds";
    EXPECT_EQ(NowLocalParts(), (DateParts{2025, 1, 1, 5, 44, 59})) << fraction;
    EXPECT_EQ(NowLocal(), MakeSerial({2025, 1, 1, 5, 44, 59})) << fraction;
  }
}

TEST_F(TimeHelpers, AWholeSecondIsItselfOnEveryDayAndInEveryZone) {
  for (int day = 0; day < 40; ++day) {
    clock.SetOffsetHours(day % 27 - 12);
    for (int second = 0; second < 86400; second += 61) {
      const DateParts asked{2026, 10, day, 0, 0, second};
      clock.SetUtc(asked);
      ASSERT_EQ(NowUTC(), MakeSerial(asked)) << day << " " << second;
      ASSERT_EQ(NowLocal(), MakeSerial({2026, 10, day, day % 27 - 12, 0, second})) << day << " " << second;
    }
  }
}

TEST_F(TimeHelpers, TheOffsetIsThatOfThePresentMomentForEverySeason) {
  clock.SetOffsetHours(2);
  EXPECT_EQ(SplitSerial(LocalToUTC(MakeSerial({2024, 1, 3, 12, 0, 0}))), (DateParts{2024, 1, 3, 10, 0, 0}));
}

TEST_F(TimeHelpers, TheOffsetHoldsWholeMinutesOnly) {
  clock.SetOffsetHours(1 + 30.0 / 3600);
  EXPECT_EQ(SplitSerial(LocalToUTC(MakeSerial(kSummer))), (DateParts{2024, 7, 3, 11, 0, 0}));
}

TEST_F(TimeHelpers, TheOffsetHoldsAtEveryFractionOfASecond) {
  clock.SetOffsetHours(2);
  const platform::SerialDate noon = MakeSerial(kSummer);
  for (int microsecond = 499000; microsecond < 501000; ++microsecond) {
    clock.SetUtc(noon + microsecond * 1e-6 / platform::kSecondsPerDay);
    ASSERT_EQ(LocalToUTC(noon), noon - 2.0 / 24) << microsecond;
  }
}

TEST_F(TimeHelpers, BothClocksGiveWholeSeconds) {
  clock.SetOffsetHours(-3.5);
  clock.SetUtc(MakeSerial({2024, 6, 1, 1, 2, 3}) + 0.3 / platform::kSecondsPerDay);
  EXPECT_EQ(NowUTC(), MakeSerial({2024, 6, 1, 1, 2, 3}));
  EXPECT_EQ(NowLocal(), MakeSerial({2024, 5, 31, 21, 32, 3}));
  EXPECT_EQ(NowLocalParts(), (DateParts{2024, 5, 31, 21, 32, 3}));
}

TEST_F(TimeHelpers, DateTextHasTwoDigitsCapitalsAndPlainYear) {
  EXPECT_EQ(DateText(3, 7, 2004), "03 JUL 2004");
  EXPECT_EQ(DateText(31, 12, 99), "31 DEC 99");
  EXPECT_EQ(DateText(1, 1, 2026), "01 JAN 2026");
}

TEST_F(TimeHelpers, AMonthThatIsNoneLeavesBothBlanks) {
  EXPECT_EQ(DateText(3, 0, 2004), "03  2004");
  EXPECT_EQ(DateText(3, 13, 2004), "03  2004");
}

TEST_F(TimeHelpers, ClockTextHasTwoDigitsEach) {
  EXPECT_EQ(ClockText(1, 2, 3), "01:02:03");
  EXPECT_EQ(ClockText(23, 59, 59), "23:59:59");
  EXPECT_EQ(ClockText(0, 0, 0), "00:00:00");
}

TEST_F(TimeHelpers, ATimeThatIsNoneStaysAsItWasPutTogether) {
  EXPECT_EQ(ClockText(24, 0, 0), "24:0:0");
  EXPECT_EQ(ClockText(1, 75, 3), "1:75:3");
  EXPECT_EQ(ClockText(-1, 2, 3), "-1:2:3");
}

TEST_F(TimeHelpers, DayNumberCountsFromTheFirstOfJanuary) {
  EXPECT_EQ(DayNumber("01-01-2023"), 1);
  EXPECT_EQ(DayNumber("02/28/2023"), 59);
  EXPECT_EQ(DayNumber("03-01-2023"), 60);
  EXPECT_EQ(DayNumber("12-31-2023"), 365);
}

TEST_F(TimeHelpers, DayNumberKnowsOnlyTheRuleOfFour) {
  EXPECT_EQ(DayNumber("02-29-2024"), 60);
  EXPECT_EQ(DayNumber("03-01-2024"), 61);
  EXPECT_EQ(DayNumber("12-31-2024"), 366);
  EXPECT_EQ(DayNumber("03-01-2100"), 61) << "2100 has no 29 February, but divides by four";
}

TEST_F(TimeHelpers, DayNumberOfNoDateIsAFaultOfTheCaller) {
  EXPECT_THROW(DayNumber("no date at all"), platform::Fault);
}

TEST_F(TimeHelpers, TheRunTimesDateHasTheMonthFirst) {
  clock.SetUtc(DateParts{2024, 3, 9, 23, 0, 0});
  clock.SetOffsetHours(2);
  EXPECT_EQ(RunTimeDateText(), "03-10-2024");
  EXPECT_EQ(DayNumber(RunTimeDateText()), 70);
}

}  // namespace
}  // namespace kestrava::orbit
