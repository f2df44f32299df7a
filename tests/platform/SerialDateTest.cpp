#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/SerialDate.h"

namespace kestrava::platform {
namespace {

TEST(SerialDates, KnownDays) {
  EXPECT_EQ(MakeSerial({1899, 12, 30, 0, 0, 0}), 0);
  EXPECT_EQ(MakeSerial({1900, 1, 1, 0, 0, 0}), 2);
  EXPECT_EQ(MakeSerial({1970, 1, 1, 0, 0, 0}), 25569);
  EXPECT_EQ(MakeSerial({2000, 1, 1, 12, 0, 0}), 36526.5);
  EXPECT_EQ(MakeSerial({2024, 2, 29, 0, 0, 0}), 45351);
  EXPECT_EQ(MakeSerial({100, 1, 1, 0, 0, 0}), -657434);
  EXPECT_EQ(MakeSerial({9999, 12, 31, 0, 0, 0}), 2958465);
}

TEST(SerialDates, ABeforeDayZeroHasTheSizeOfItsFractionAsTimeOfDay) {
  EXPECT_EQ(MakeSerial({1899, 12, 29, 6, 0, 0}), -1.25);
  EXPECT_EQ(SplitSerial(-1.25), (DateParts{1899, 12, 29, 6, 0, 0}));
  EXPECT_EQ(SplitSerial(-0.25), (DateParts{1899, 12, 30, 6, 0, 0}));
  EXPECT_EQ(HourOf(-1.75), 18);
}

TEST(SerialDates, EveryPartRollsOver) {
  const auto rolled = [](const DateParts& parts) { return SplitSerial(MakeSerial(parts)); };
  EXPECT_EQ(rolled({2023, 14, 1, 0, 0, 0}), (DateParts{2024, 2, 1, 0, 0, 0}));
  EXPECT_EQ(rolled({2024, 1, 32, 0, 0, 0}), (DateParts{2024, 2, 1, 0, 0, 0}));
  EXPECT_EQ(rolled({2024, 3, 0, 0, 0, 0}), (DateParts{2024, 2, 29, 0, 0, 0}));
  EXPECT_EQ(rolled({2024, 0, 1, 0, 0, 0}), (DateParts{2023, 12, 1, 0, 0, 0}));
  EXPECT_EQ(rolled({2024, -11, 1, 0, 0, 0}), (DateParts{2023, 1, 1, 0, 0, 0}));
  EXPECT_EQ(rolled({2024, 1, 1, 0, 0, 75}), (DateParts{2024, 1, 1, 0, 1, 15}));
  EXPECT_EQ(rolled({2024, 1, 1, 0, 0, -1}), (DateParts{2023, 12, 31, 23, 59, 59}));
  EXPECT_EQ(rolled({2024, 1, 1, 25, 61, 0}), (DateParts{2024, 1, 2, 2, 1, 0}));
  EXPECT_EQ(rolled({1899, 12, 30, -1, 0, 0}), (DateParts{1899, 12, 29, 23, 0, 0}));
}

TEST(SerialDates, SecondsAreThoseOfTheNearestSecond) {
  const double day = 45000;
  EXPECT_EQ(SecondOf(day + 59.499 / 86400), 59);
  EXPECT_EQ(SecondOf(day + 59.501 / 86400), 0);
  EXPECT_EQ(MinuteOf(day + 59.501 / 86400), 1);
  EXPECT_EQ(SplitSerial(day + 86399.6 / 86400), SplitSerial(day + 1)) << "the last half second belongs to the next day";
  EXPECT_EQ(SplitSerial(-2 - 86399.6 / 86400), SplitSerial(-1));
}

TEST(SerialDates, OutsideTheYears100To9999IsAFault) {
  EXPECT_THROW(MakeSerial({99, 12, 31, 0, 0, 0}), Fault);
  EXPECT_THROW(MakeSerial({10000, 1, 1, 0, 0, 0}), Fault);
  EXPECT_THROW(MakeSerial({9999, 12, 31, 24, 0, 0}), Fault);
  EXPECT_THROW(MakeSerial({2147483647, 2147483647, 2147483647, 0, 0, 0}), Fault);
  EXPECT_THROW(SplitSerial(2958466), Fault);
  EXPECT_THROW(SplitSerial(2958465 + 86399.6 / 86400), Fault);
  EXPECT_THROW(SplitSerial(-657435), Fault);
  EXPECT_THROW(SplitSerial(std::nan("")), Fault);
  EXPECT_THROW(SecondOf(1e300), Fault);
  EXPECT_EQ(SplitSerial(-657434.5), (DateParts{100, 1, 1, 12, 0, 0}));
}

TEST(SerialDates, TakingApartUndoesBuilding) {
  const unsigned seed = 20240601;
  std::mt19937 random(seed);
  std::uniform_int_distribution<int> year(100, 9998);
  std::uniform_int_distribution<int> month(1, 12);
  std::uniform_int_distribution<int> day(1, 28);
  std::uniform_int_distribution<int> second(0, 86399);
  for (int i = 0; i < 20000; ++i) {
    const int s = second(random);
    const DateParts parts{year(random), month(random), day(random), s / 3600, s / 60 % 60, s % 60};
    const SerialDate serial = MakeSerial(parts);
    ASSERT_EQ(SplitSerial(serial), parts) << "seed " << seed << ", serial " << serial;
    ASSERT_EQ(HourOf(serial), parts.hour);
    ASSERT_EQ(MinuteOf(serial), parts.minute);
    ASSERT_EQ(SecondOf(serial), parts.second);
  }
}

}  // namespace
}  // namespace kestrava::platform
