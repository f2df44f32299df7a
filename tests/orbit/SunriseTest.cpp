// Today's sunrise and sunset: against published times, and against the plain search that skips nothing.

#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/SerialDate.h"

#include "ReferenceData.h"
#include "support/SkyHouse.h"

namespace kestrava::orbit {
namespace {

using platform::DateParts;
using platform::SerialDate;

class Sunrise : public testing::SkyHouse {
 protected:
  void At(double latDeg, double lonDegEast, const DateParts& utc, double offsetHours = 0) {
    engine.SetObserver({latDeg, lonDegEast, 0});
    clock.SetUtc(utc);
    clock.SetOffsetHours(offsetHours);
  }
  /// The search as it is told: every minute from the start on.
  SerialDate PlainSearch(int startHour, int direction) {
    const DateParts today = platform::SplitSerial(clock.Read().local);
    const auto local = [&](int minute) {
      return platform::MakeSerial({today.year, today.month, today.day, startHour, minute, 0});
    };
    for (int minute = 0;; ++minute) {
      Satcalc(sky, "sun", platform::SplitSerial(local(minute)), false);
      if (direction * tables.result.SatEl > 0) return local(minute + 1);
    }
  }
  void ExpectAsPlain(const std::string& what) {
    EXPECT_EQ(TodaySunrise(sky), PlainSearch(0, 1)) << what;
    EXPECT_EQ(TodaySunset(sky), PlainSearch(12, -1)) << what;
  }
};

TEST_F(Sunrise, IsTheFirstWholeMinutePastTheEventPlusOne) {
  const reference::Table table("reference/sunrise.csv");
  int compared = 0;
  for (const reference::Row& row : table.Rows()) {
    const bool rise = row.Text("event") == "rise";
    if (!rise && row.Text("event") != "set") continue;
    const std::string utc = row.Text("utc_tenths");
    const auto part = [&](std::size_t at, std::size_t n) { return std::stoi(utc.substr(at, n)); };
    const double second = part(17, 2) + part(20, 1) / 10.0;
    if (second < 1 || second > 59) continue;  // the event may fall into either minute
    const DateParts minuteBefore{part(0, 4), part(5, 2), part(8, 2), part(11, 2), part(14, 2), 0};
    // The zone of the place, so that midnight (before rises) and noon (before sets) are there what they are called.
    const double offsetHours = std::round(row.Number("obs_lon_deg") / 15);
    At(row.Number("obs_lat_deg"), row.Number("obs_lon_deg"), minuteBefore, offsetHours);
    engine.SetObserverHeight(row.Number("obs_h_m"));
    const SerialDate expected = platform::MakeSerial(minuteBefore) + 2 / platform::kMinutesPerDay + offsetHours / 24;
    EXPECT_NEAR(rise ? TodaySunrise(sky) : TodaySunset(sky), expected, 0.1 / platform::kSecondsPerDay) << utc;
    ++compared;
  }
  EXPECT_GT(compared, 30);
}

TEST_F(Sunrise, SkippingGivesTheSameMinutesAllOverTheEarth) {
  for (const double latDeg : {-66.0, -45.0, -23.4, 0.0, 30.0, 51.5, 60.0, 65.0}) {
    for (const int month : {1, 3, 4, 6, 9, 12}) {
      At(latDeg, 0, {2026, month, 21, 12, 0, 0});
      ExpectAsPlain("latitude " + std::to_string(latDeg) + " month " + std::to_string(month));
    }
  }
}

TEST_F(Sunrise, SkippingGivesTheSameMinutesInEveryZone) {
  for (const double offset : {-11.0, -3.5, 5.75, 13.0}) {
    At(40, 100, {2026, 5, 5, 20, 0, 0}, offset);
    ExpectAsPlain("offset " + std::to_string(offset));
  }
}

TEST_F(Sunrise, GoesOnThroughWeeksOfPolarDayToTheSameMinute) {
  At(69.65, 18.96, {2026, 7, 14, 10, 0, 0}, 2);
  EXPECT_GT(TodaySunset(sky), platform::MakeSerial({2026, 7, 20, 0, 0, 0}));
  ExpectAsPlain("Tromso in July");
  At(66.2, 25.7, {2026, 6, 18, 10, 0, 0}, 3);
  ExpectAsPlain("near the polar circle at midsummer");
  At(-75, 0, {2026, 1, 30, 10, 0, 0});
  ExpectAsPlain("Antarctica in January");
}

TEST_F(Sunrise, GoesOnThroughWeeksOfPolarNightToTheSameMinute) {
  At(69.65, 18.96, {2026, 12, 30, 10, 0, 0}, 1);
  EXPECT_GT(TodaySunrise(sky), platform::MakeSerial({2027, 1, 5, 0, 0, 0}));
  ExpectAsPlain("Tromso after Christmas");
  At(67.5, 25, {2026, 12, 10, 10, 0, 0}, 2);
  ExpectAsPlain("just beyond the polar circle in December");
}

TEST_F(Sunrise, AtThePoleItIsFoundWithinTheYear) {
  At(90, 0, {2026, 6, 21, 12, 0, 0});
  const SerialDate set = TodaySunset(sky);
  EXPECT_GT(set, platform::MakeSerial({2026, 9, 22, 0, 0, 0}));
  EXPECT_LT(set, platform::MakeSerial({2026, 9, 25, 0, 0, 0}));
  At(-90, 0, {2026, 6, 21, 12, 0, 0});
  const SerialDate rise = TodaySunrise(sky);
  EXPECT_GT(rise, platform::MakeSerial({2026, 9, 21, 0, 0, 0}));
  EXPECT_LT(rise, platform::MakeSerial({2026, 9, 24, 0, 0, 0}));
}

TEST_F(Sunrise, ASunThatIsUpAtMidnightRisesJustAfterMidnight) {
  At(78, 15, {2026, 6, 21, 12, 0, 0}, 2);
  EXPECT_EQ(TodaySunrise(sky), platform::MakeSerial({2026, 6, 21, 0, 1, 0}));
}

TEST_F(Sunrise, ASunThatIsDownAtNoonSetsJustAfterNoon) {
  At(78, 15, {2026, 12, 21, 12, 0, 0}, 1);
  EXPECT_EQ(TodaySunset(sky), platform::MakeSerial({2026, 12, 21, 12, 1, 0}));
}

TEST_F(Sunrise, AnObserverOfDamagedNumbersEndsTheSearch) {
  At(std::nan(""), 0, {2026, 6, 21, 12, 0, 0});
  EXPECT_GT(TodaySunrise(sky), platform::MakeSerial({2027, 6, 21, 0, 0, 0}));
  TakeFaults();
}

}  // namespace
}  // namespace kestrava::orbit
