// The rows of the pass list: which entries of the engine's list become one, and what stands in their cells.

#include <cmath>
#include <cstdio>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "orbit/Frames.h"
#include "orbit/PassList.h"
#include "orbit/TimeHelpers.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "predict/PassCalc.h"

#include "support/SkyHouse.h"

namespace kestrava::predict {
namespace {

constexpr const char* kStation = "ISS (ZARYA)";

class PassRows : public testing::SkyHouse {
 protected:
  PassTally Rows(std::string_view list, int day = 15, bool visibleOnly = false) {
    return RowsFromPassList(sky, table, kStation, static_cast<std::int16_t>(day), list, visibleOnly);
  }
  /// An entry of the pass list, Universal Time.
  static std::string Entry(const std::string& start, const std::string& elevation, const std::string& duration) {
    return start + " x y " + elevation + " " + duration;
  }
  const PassRow& Row(int i = 0) { return platform::At(table.Rows(), i); }
  double AzimuthAt(platform::SerialDate utc) {
    return engine.LookAngle(kStation, utc).azimuthRad * 180 / 3.14159265358979;
  }
  bool SunlitAt(platform::SerialDate utc) {
    orbit::Tables own;
    own.SelSatName = kStation;
    orbit::Satcalc({own, engine}, kStation, platform::SplitSerial(utc), true);
    return own.result.SatSunlit != 0;
  }
  static std::string Digits(platform::SerialDate utc) {
    const platform::DateParts p = platform::SplitSerial(utc);
    char text[16];
    std::snprintf(text, sizeof text, "%04d%02d%02d%02d%02d%02d", p.year, p.month, p.day, p.hour, p.minute, p.second);
    return text;
  }

  PassTable table;
};

TEST_F(PassRows, ARowHoldsNineTextsOfThePass) {
  const platform::SerialDate start = platform::MakeSerial({2026, 11, 15, 9, 5, 7});
  Rows(Entry("20261115090507", "47.83", "601"));
  ASSERT_EQ(table.RowCount(), 1);
  const auto azimuth = [&](double utc) { return std::lround(AzimuthAt(utc)); };
  EXPECT_EQ(Row()[kSatelliteCell], kStation);
  EXPECT_EQ(Row()[kDateCell], "15 NOV 2026");
  EXPECT_EQ(Row()[kTimeCell], "09:05:07");
  EXPECT_EQ(std::stol(Row()[kStartAzimuthCell]), azimuth(start));
  EXPECT_EQ(Row()[kStartAzimuthCell].size(), 3U);
  EXPECT_EQ(Row()[kMaxElevationCell].substr(0, 7), "47 (AZ ");
  // half of 601 s rounds to a whole second of the middle
  EXPECT_NEAR(std::stol(Row()[kMaxElevationCell].substr(7, 3)), AzimuthAt(start + 300.5 / 86400), 1.0);
  EXPECT_EQ(Row()[kMaxElevationCell].back(), ')');
  EXPECT_EQ(Row()[kDurationCell], "00:10:01");
  EXPECT_EQ(std::stol(Row()[kEndAzimuthCell]), azimuth(start + 601.0 / 86400));
}

TEST_F(PassRows, AStartIsShownInLocalTimeByTodaysOffset) {
  clock.SetOffsetHours(2);
  Rows(Entry("20261115223000", "47.83", "600"), 16);
  ASSERT_EQ(table.RowCount(), 1);
  EXPECT_EQ(Row()[kDateCell], "16 NOV 2026");
  EXPECT_EQ(Row()[kTimeCell], "00:30:00");
}

TEST_F(PassRows, TheWholeDegreesOfARowAreThoseOfEveryOtherList) {
  for (const double degrees :
       {0.00004, 9.99994, 9.99996, 9.9999, 10.0, 10.00004, 47.83, 89.99994999, 89.99995001, 90.0}) {
    const platform::SerialDate rise = platform::MakeSerial({2026, 11, 15, 9, 5, 7});
    const orbit::Pass pass{rise, rise + 601.0 / 86400, rise + 300.0 / 86400, degrees * orbit::kRadPerDeg};
    table.Clear();
    Rows(platform::ReplaceAll(orbit::PassListText({&pass, 1}), "\"", ""));
    ASSERT_EQ(table.RowCount(), 1) << degrees;
    EXPECT_EQ(std::stod(Row()[kMaxElevationCell].substr(0, 2)), WholeDegrees(degrees)) << degrees;
  }
  EXPECT_EQ(WholeDegrees(9.99996), 10) << "ten by the list's four decimals";
  EXPECT_EQ(WholeDegrees(9.99994), 9);
}

TEST_F(PassRows, TheMinimumElevationIsComparedWithWholeDegrees) {
  settings.Set("WxEL", "10");
  const PassTally tally = Rows(Entry("20261115090000", "9.99", "300") + "," + Entry("20261115110000", "10.4", "300") +
                               "," + Entry("20261115130000", "10", "300"));
  ASSERT_EQ(table.RowCount(), 2);
  EXPECT_EQ(Row(0)[kMaxElevationCell].substr(0, 3), "10 ");
  EXPECT_EQ(Row(1)[kMaxElevationCell].substr(0, 3), "10 ");
  EXPECT_EQ(tally.listed, 2);
  EXPECT_EQ(tally.belowMinimum, 1);
}

TEST_F(PassRows, OnlyPassesOfTheDayCountAsLeftOutByTheMinimum) {
  settings.Set("WxEL", "10");
  EXPECT_EQ(Rows(Entry("20261114090000", "5", "300") + "," + Entry("20261115090000", "5", "bad")).belowMinimum, 0);
  EXPECT_TRUE(TakeFaults().empty()) << "what is left out is not read further";
}

TEST_F(PassRows, AFractionOfAMinimumLeavesOutItsWholeDegree) {
  settings.Set("WxEL", "9.5");
  Rows(Entry("20261115090000", "9.99", "300"));
  EXPECT_EQ(table.RowCount(), 0);
}

TEST_F(PassRows, AMinimumThatIsNoNumberLeavesNothingOut) {
  settings.Set("WxEL", "high");
  Rows(Entry("20261115090000", "1", "300"));
  EXPECT_EQ(table.RowCount(), 1);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Type mismatch - PassPred-CalcResults"});
}

TEST_F(PassRows, APassOverMidnightBelongsToTheDayOnWhichItEnds) {
  const std::string list = Entry("20261114235800", "45", "540");
  Rows(list, 14);
  EXPECT_EQ(table.RowCount(), 0);
  Rows(list, 15);
  ASSERT_EQ(table.RowCount(), 1);
  EXPECT_EQ(Row()[kDateCell], "14 NOV 2026");
  EXPECT_EQ(Row()[kTimeCell], "23:58:00");
}

TEST_F(PassRows, OnTheFirstOfAMonthOnlyTheDayNumberCounts) {
  Rows(Entry("20261101000100", "45", "300") + "," + Entry("20261130235900", "45", "300") + "," +
           Entry("20261201235900", "45", "300"),
       1);
  ASSERT_EQ(table.RowCount(), 2);
  EXPECT_EQ(Row(0)[kDateCell], "01 NOV 2026");
  EXPECT_EQ(Row(1)[kDateCell], "30 NOV 2026");
}

TEST_F(PassRows, MoreThanTenHoursAreAllDay) {
  Rows(Entry("20261115060000", "33.1", "43200"));
  Rows(Entry("20261115060000", "33.1", "36000"));
  Rows(Entry("20261115060000", "33.1", "39600"));
  ASSERT_EQ(table.RowCount(), 3);
  EXPECT_EQ(Row(0)[kDateCell], "15 NOV 2026");
  EXPECT_EQ(Row(0)[kTimeCell], "00:00:00");
  EXPECT_EQ(Row(0)[kDurationCell], "24 Hours");
  EXPECT_EQ(Row(1)[kTimeCell], "06:00:00");
  EXPECT_EQ(Row(1)[kDurationCell], "10:00:00") << "exactly ten hours do not count";
  EXPECT_EQ(Row(2)[kDurationCell], "24 Hours");
}

TEST_F(PassRows, ADurationOfWholeDaysWrapsRound) {
  Rows(Entry("20261115060000", "33.1", "86400"), 16);
  ASSERT_EQ(table.RowCount(), 1);
  EXPECT_EQ(Row()[kTimeCell], "06:00:00");
  EXPECT_EQ(Row()[kDurationCell], "00:00:00");
}

TEST_F(PassRows, ADurationKeepsEachOfItsSeconds) {
  Rows(Entry("20261115060000", "33.1", "3599") + "," + Entry("20261115080000", "33.1", "89"));
  ASSERT_EQ(table.RowCount(), 2);
  EXPECT_EQ(Row(0)[kDurationCell], "00:59:59");
  EXPECT_EQ(Row(1)[kDurationCell], "00:01:29");
}

TEST_F(PassRows, ATextWithoutACommaIsOneEntryAndAnEmptyOneIsNone) {
  Rows("");
  EXPECT_EQ(table.RowCount(), 0);
  Rows("\"" + Entry("20261115090000", "45", "300") + "\"");
  EXPECT_EQ(table.RowCount(), 1);
}

TEST_F(PassRows, ReadingEndsAtTheFirstEmptyEntry) {
  Rows(Entry("20261115090000", "45", "300") + ",\"\"," + Entry("20261115110000", "45", "300"));
  EXPECT_EQ(table.RowCount(), 1);
}

TEST_F(PassRows, WhatAnEntryDoesNotTellIsThatOfTheEntryBefore) {
  Rows(Entry("20261115090000", "45.5", "300") + "," + Entry("2026111x110000", "46", "400") + "," +
       Entry("20261115130000", "high", "500") + "," + Entry("20261115150000", "47", "long"));
  ASSERT_EQ(table.RowCount(), 4);
  EXPECT_EQ(Row(1)[kTimeCell], "09:00:00");
  EXPECT_EQ(Row(1)[kDurationCell], "00:06:40");
  EXPECT_EQ(Row(2)[kTimeCell], "13:00:00");
  EXPECT_EQ(Row(2)[kMaxElevationCell].substr(0, 3), "46 ");
  EXPECT_EQ(Row(3)[kMaxElevationCell].substr(0, 3), "47 ");
  EXPECT_EQ(Row(3)[kDurationCell], "00:08:20");
  EXPECT_EQ(TakeFaults(), std::vector<std::string>(3, "Type mismatch - PassPred-CalcResults"));
}

TEST_F(PassRows, ShortDigitsAreNoDate) {
  Rows(Entry("202611150900", "45", "300"), 30);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Type mismatch - PassPred-CalcResults"});
  ASSERT_EQ(table.RowCount(), 1) << "day zero of the calendar is a 30th";
  EXPECT_EQ(Row()[kDateCell], "30 DEC 1899");
  TakeFaults();
}

TEST_F(PassRows, TheNumbersOfTheListHaveAPointOnEveryMachine) {
  locale.UseComma();
  Rows(Entry("20261115090000", "45.5", "300"));
  ASSERT_EQ(table.RowCount(), 1);
  EXPECT_EQ(Row()[kMaxElevationCell].substr(0, 3), "45 ");
}

TEST_F(PassRows, SunlightAtEitherEndCounts) {
  // Ten minutes in which the station comes out of the shade, or goes into it; and ones at whose ends it is the same.
  const platform::SerialDate noon = platform::MakeSerial({2026, 11, 15, 12, 0, 0});
  bool seen[2][2] = {};
  for (int minute = 0; minute < 100; ++minute) {
    const platform::SerialDate start = noon + minute / 1440.0;
    const bool first = SunlitAt(start);
    const bool last = SunlitAt(start + 600.0 / 86400);
    if (seen[first][last]) continue;
    seen[first][last] = true;
    table.Clear();
    Rows(Entry(Digits(start), "45", "600"));
    ASSERT_EQ(table.RowCount(), 1);
    EXPECT_EQ(Row()[kSunlitCell], first || last ? "Yes" : "No ") << minute;
  }
  EXPECT_TRUE(seen[0][0] && seen[0][1] && seen[1][0] && seen[1][1]);
}

TEST_F(PassRows, VisibleMeansSunlitAndTwilightAtTheStart) {
  int yes = 0;
  for (int minute = 0; minute < 1440; minute += 5) {
    const platform::SerialDate start = platform::MakeSerial({2026, 11, 15, 0, minute, 0});
    if (platform::SplitSerial(start + 600.0 / 86400).day != 15) continue;
    table.Clear();
    Rows(Entry(Digits(start), "45", "600"));
    ASSERT_EQ(table.RowCount(), 1);
    orbit::Tables own;
    orbit::Satcalc({own, engine}, "sun", platform::SplitSerial(start), false);
    const bool expected = Row()[kSunlitCell] == "Yes" && own.result.SatEl >= -18 && own.result.SatEl <= -6;
    EXPECT_EQ(Row()[kVisibleCell], expected ? "Yes" : "No ") << minute;
    yes += expected;
  }
  EXPECT_GT(yes, 5) << "the day has a dawn and a dusk";
}

TEST_F(PassRows, SunlitOnlyAtTheEndIsJudgedByTheSunOfTheStart) {
  const platform::SerialDate day = platform::MakeSerial({2026, 11, 15, 0, 0, 0});
  constexpr double kLengthS = 3000;
  const auto twilightAt = [&](platform::SerialDate utc) {
    orbit::Tables own;
    orbit::Satcalc({own, engine}, "sun", platform::SplitSerial(utc), false);
    return IsTwilight(own.result.SatEl);
  };
  bool seen[2] = {};  // by what the start says; the end says the contrary
  for (int minute = 0; minute < 1380; ++minute) {
    const platform::SerialDate start = day + minute / 1440.0;
    const platform::SerialDate end = start + kLengthS / 86400;
    if (SunlitAt(start) || !SunlitAt(end) || twilightAt(start) == twilightAt(end)) continue;
    table.Clear();
    Rows(Entry(Digits(start), "45", "3000"));
    ASSERT_EQ(table.RowCount(), 1);
    EXPECT_EQ(Row()[kSunlitCell], "Yes") << minute;
    EXPECT_EQ(Row()[kVisibleCell], twilightAt(start) ? "Yes" : "No ") << minute;
    seen[twilightAt(start)] = true;
  }
  EXPECT_TRUE(seen[false] && seen[true]);
}

TEST(Twilight, HoldsBothItsEnds) {
  EXPECT_TRUE(IsTwilight(-6.0));
  EXPECT_TRUE(IsTwilight(-18.0));
  EXPECT_FALSE(IsTwilight(-5.99));
  EXPECT_FALSE(IsTwilight(-18.01));
}

TEST_F(PassRows, VisibleOnlyFiltersNewRowsAlone) {
  const std::string noon = Entry("20261115120000", "45", "600");
  Rows(noon);
  ASSERT_EQ(Row()[kVisibleCell], "No ");
  const PassTally tally = Rows(noon, 15, true);
  EXPECT_EQ(table.RowCount(), 1) << "the row that was there stays, the new one is not kept";
  EXPECT_EQ(tally.notVisible, 1);
  EXPECT_EQ(tally.listed, 0);
}

TEST_F(PassRows, TheSelectedSatelliteFollowsTheLastPrediction) {
  tables.SelSatName = "NOAA 19";
  Rows(Entry("20261114120000", "45", "600"));
  EXPECT_EQ(tables.SelSatName, "NOAA 19") << "no pass on the day, nothing asked";
  Rows(Entry("20261115120000", "45", "600"));
  EXPECT_EQ(tables.SelSatName, kStation);
}

TEST_F(PassRows, NoRowCostsASearchForTheNextRise) {
  windows->Register("PassPrediction", []() -> std::unique_ptr<platform::Window> {
    ADD_FAILURE() << "the pass window was made by the question";
    return nullptr;
  });
  tables.result.SatAOS = "before";
  Rows(Entry("20261115120000", "45", "600"));
  EXPECT_EQ(tables.result.SatAOS, "before");
  EXPECT_EQ(&platform::TheWindows(), windows.get()) << "the real registry is back";
}

TEST_F(PassRows, AWholeDayOfTheEngineComesOut) {
  const PassTally tally = CalcResults(sky, table, kStation, 16, 11, 2026, false);
  ASSERT_GT(table.RowCount(), 3);
  EXPECT_EQ(tally.listed, table.RowCount());
  const std::vector<PassFacts> facts =
      FindPasses(engine, kStation, platform::MakeSerial({2026, 11, 15, 0, 0, 0}), 3, 0);
  int onTheDay = 0;
  for (const PassFacts& pass : facts) onTheDay += platform::SplitSerial(pass.setUtc).day == 16;
  EXPECT_EQ(table.RowCount(), onTheDay);
}

TEST_F(PassRows, CalculationsPileUp) {
  CalcResults(sky, table, kStation, 16, 11, 2026, false);
  const int first = table.RowCount();
  CalcResults(sky, table, kStation, 16, 11, 2026, false);
  EXPECT_EQ(table.RowCount(), 2 * first);
}

TEST_F(PassRows, AnUnknownSatelliteHasNoRows) {
  const PassTally tally = CalcResults(sky, table, "Select a Satellite", 16, 11, 2026, false);
  EXPECT_EQ(table.RowCount(), 0);
  EXPECT_EQ(tally.unknown, 1);
  EXPECT_EQ(TakeFaults().size(), 1U);
}

TEST_F(PassRows, AGeostationaryObjectHasOneRowADayInEveryZone) {
  for (const double offset : {-11.0, 0.0, 5.5, 13.0}) {
    clock.SetOffsetHours(offset);
    table.Clear();
    engine.SetObserver({0, 140, 0});
    CalcResults(sky, table, "HIMAWARI-8", 16, 11, 2026, false);
    ASSERT_EQ(table.RowCount(), 1) << offset;
    EXPECT_EQ(Row()[kDurationCell], "24 Hours");
    EXPECT_EQ(Row()[kTimeCell], "00:00:00");
    const bool startsTheDayBefore = offset < -6 || offset > 6;  // the date is that of the reported start
    EXPECT_EQ(Row()[kDateCell], startsTheDayBefore ? "15 NOV 2026" : "16 NOV 2026") << offset;
  }
}

TEST_F(PassRows, ADayWithAnotherOffsetIsTold) {
  clock.SetOffsetHours(1);
  clock.SetOffsetHoursAt([](platform::SerialDate utc) {
    return utc > platform::MakeSerial({2026, 11, 20, 0, 0, 0}) ? 2.0 : 1.0;
  });
  EXPECT_FALSE(CalcResults(sky, table, kStation, 19, 11, 2026, false).otherOffset);
  EXPECT_TRUE(CalcResults(sky, table, kStation, 20, 11, 2026, false).otherOffset);
}

TEST(PassStatus, SaysWhatAUserWouldWonderAbout) {
  const PassSubject iss{"ISS", platform::MakeSerial({2026, 11, 21, 0, 0, 0})};
  PassTally tally;
  EXPECT_EQ(StatusText(tally, iss, 0), "No passes of ISS on 21 NOV 2026.");
  EXPECT_EQ(StatusText(tally, iss, 1), "No passes of ISS on 21 NOV 2026, 1 row in the list.");
  tally.listed = 1;
  EXPECT_EQ(StatusText(tally, iss, 1), "1 pass of ISS on 21 NOV 2026.");
  EXPECT_EQ(StatusText({8}, {"the job 'Week'", iss.firstDay, 10}, 15),
            "8 passes of the job 'Week' from 21 NOV 2026 to 30 NOV 2026, 15 rows in the list.");
  EXPECT_EQ(StatusText({}, {"the job 'None'", iss.firstDay, 0}, 0),
            "No passes of the job 'None', which asks for no day.");
  tally += {2, 4, 0, 0, true};
  EXPECT_EQ(StatusText(tally, iss, 3),
            "3 passes of ISS on 21 NOV 2026; times use today's UTC offset, not that of the day; 4 passes below the "
            "minimum elevation of the "
            "main settings left out.");
  EXPECT_EQ(StatusText({0, 0, 1, 1, false}, iss, 0),
            "No passes of ISS on 21 NOV 2026; 1 pass that cannot be seen by eye left out; the database has no "
            "satellite of that name.");
  EXPECT_EQ(StatusText({0, 0, 0, 3, false}, iss, 0),
            "No passes of ISS on 21 NOV 2026; 3 times the satellite is not in the database.");
}

}  // namespace
}  // namespace kestrava::predict
