#include <array>
#include <limits>

#include "platform/Fault.h"
#include "platform/FaultLog.h"
#include "platform/Version.h"

#include "support/House.h"

namespace kestrava::platform {
namespace {

using Lines = std::vector<std::string>;
using FaultLines = testing::House;
using Traps = testing::House;

TEST_F(FaultLines, ALineHasVersionDateTimeMessageAndTrapName) {
  clock.SetUtc(DateParts{2024, 7, 9, 8, 5, 4});
  clock.SetOffsetHours(2);
  EXPECT_EQ(ErrorLogLine("Overflow", "map  - Form_activate"),
            "2.02 09/07/2024 - 10:05:04 - Overflow - map  - Form_activate");
  ErrorTrap("Division by zero", "Global Satcalc");
  EXPECT_EQ(files.Content("/house/error.log"), "2.02 09/07/2024 - 10:05:04 - Division by zero - Global Satcalc\n");
  EXPECT_EQ(TakeFaults(), Lines{"Division by zero - Global Satcalc"});
}

TEST_F(FaultLines, AMessageOfSeveralLinesStaysOneLine) {
  ErrorTrap("first\r\nsecond", "Main Form Load");
  EXPECT_EQ(ErrorLog().size(), 1U);
  TakeFaults();
}

TEST_F(FaultLines, WhatADamagedFileHoldsComesInAsText) {
  using namespace std::string_literals;
  ErrorTrap("a\0b\tc\x1b[2Jd"s, "Global SaveFaves");
  EXPECT_EQ(ErrorLog(), Lines{"2.02 01/06/2024 - 12:00:00 - a b c [2Jd - Global SaveFaves"});
  TakeFaults();
}

TEST_F(FaultLines, StandsUpToItsBoundAndIsDeletedWhenALineCrossesIt) {
  const std::string line = ErrorLogLine("Overflow", "x") + "\n";
  Put("error.log", std::string(kErrorLogBoundBytes - line.size(), 'a'));
  ErrorTrap("Overflow", "x");
  EXPECT_EQ(Content("error.log").size(), kErrorLogBoundBytes) << "exactly the bound is not above it";
  clock.AdvanceMs(60e3);
  Put("error.log", std::string(kErrorLogBoundBytes - line.size() + 1, 'a'));
  ErrorTrap("Overflow", "x");
  EXPECT_FALSE(FileExists(InAppDir("error.log")));
  ErrorTrap("Overflow", "x");
  EXPECT_EQ(Content("error.log"), ErrorLogLine("Overflow", "x") + "\n") << "the next fault makes a new one";
  TakeFaults();
}

TEST_F(FaultLines, BearTheSecondThatHasBegun) {
  clock.SetUtc(MakeSerial({2024, 6, 1, 23, 59, 59}) + 0.9 / kSecondsPerDay);
  EXPECT_EQ(ErrorLogLine("Overflow", "x"), "2.02 01/06/2024 - 23:59:59 - Overflow - x");
}

TEST_F(FaultLines, FaultsBeforeTheFolderIsKnownAreHeldAndWrittenWhenItIs) {
  AppDir.clear();
  ErrorTrap("File not found", "Main Form Load");
  ErrorTrap("Overflow", "Main Form Load");
  AppDir = "/house/";
  EXPECT_FALSE(FileExists(InAppDir("error.log")));
  clock.AdvanceMs(60000);
  FlushHeldFaults();
  EXPECT_EQ(ErrorLog(), (Lines{"2.02 01/06/2024 - 12:00:00 - File not found - Main Form Load",
                               "2.02 01/06/2024 - 12:00:00 - Overflow - Main Form Load"}))
      << "with the moments at which they happened";
  FlushHeldFaults();
  EXPECT_EQ(ErrorLog().size(), 2U);
  TakeFaults();
}

TEST_F(FaultLines, ALogThatCannotBeWrittenEndsAfterTheFirstAttempt) {
  files.BreakFile("/house/error.log", Fault::PathFileAccess());
  const FaultTrap trap{"Global Satcalc"};
  EXPECT_FALSE(trap([] { throw Fault::Overflow(); }));
  EXPECT_EQ(TakeFaults(), Lines{"Overflow - Global Satcalc"}) << "the log's own fault is none of them";
}

TEST_F(FaultLines, IsNotHarmedByADeviceThatBreaksAtAnyByte) {
  const std::size_t length = ErrorLogLine("Overflow", "x").size() + 1;
  for (std::size_t offset = 0; offset < length; ++offset) {
    Put("error.log", "earlier\n");
    files.BreakWriteAfter(offset);
    clock.AdvanceMs(60e3);  // a first one each time
    ErrorTrap("Overflow", "x");
    files.Mend();
    EXPECT_EQ(Content("error.log").substr(0, 8), "earlier\n") << offset;
  }
  TakeFaults();
}

TEST_F(FaultLines, RepeatsOfAMinuteEndInOneLineWithTheirNumberWhenALaterMinuteHasAFault) {
  for (int i = 0; i < 41; ++i) {
    ErrorTrap("Overflow", "map - Timer1");
    clock.AdvanceMs(1000);
  }
  EXPECT_EQ(ErrorLog(), Lines{"2.02 01/06/2024 - 12:00:00 - Overflow - map - Timer1"});
  clock.AdvanceMs(60e3);
  ErrorTrap("File not found", "Global LoadFaves");
  EXPECT_EQ(ErrorLog(), (Lines{"2.02 01/06/2024 - 12:00:00 - Overflow - map - Timer1",
                               "2.02 01/06/2024 - 12:00:40 - Overflow (40 times) - map - Timer1",
                               "2.02 01/06/2024 - 12:01:41 - File not found - Global LoadFaves"}));
  TakeFaults();
}

TEST_F(FaultLines, EveryMinuteBeginsWithAWholeLine) {
  clock.AdvanceMs(58e3);
  for (int i = 0; i < 4; ++i) {
    ErrorTrap("Overflow", "x");
    clock.AdvanceMs(1000);
  }
  EndFaultLog();
  EXPECT_EQ(ErrorLog(),
            (Lines{"2.02 01/06/2024 - 12:00:58 - Overflow - x", "2.02 01/06/2024 - 12:00:59 - Overflow - x",
                   "2.02 01/06/2024 - 12:01:00 - Overflow - x", "2.02 01/06/2024 - 12:01:01 - Overflow - x"}))
      << "a single repeat is a line like any other";
  TakeFaults();
}

TEST_F(FaultLines, TheEndOfTheRunWritesWhatIsStillToBeTold) {
  for (int i = 0; i < 121; ++i) ErrorTrap("Overflow", "x");
  ErrorTrap("Overflow", "y");
  EndFaultLog();
  EXPECT_EQ(ErrorLog(), (Lines{"2.02 01/06/2024 - 12:00:00 - Overflow - x", "2.02 01/06/2024 - 12:00:00 - Overflow - y",
                               "2.02 01/06/2024 - 12:00:00 - Overflow (120 times) - x"}));
  EndFaultLog();
  EXPECT_EQ(ErrorLog().size(), 3U) << "it is told once";
  ErrorTrap("Overflow", "x");
  EXPECT_EQ(ErrorLog().size(), 4U) << "the next run's first one";
  TakeFaults();
}

TEST_F(FaultLines, RepeatsStandInTheOrderOfTheirLastMoments) {
  for (const char* name : {"b", "a", "a", "b"}) {
    ErrorTrap("Overflow", name);
    clock.AdvanceMs(1000);
  }
  EndFaultLog();
  EXPECT_EQ(ErrorLog(),
            (Lines{"2.02 01/06/2024 - 12:00:00 - Overflow - b", "2.02 01/06/2024 - 12:00:01 - Overflow - a",
                   "2.02 01/06/2024 - 12:00:02 - Overflow - a", "2.02 01/06/2024 - 12:00:03 - Overflow - b"}));
  TakeFaults();
}

TEST_F(FaultLines, OneThatLastsIsWrittenOnceADayForEachSubject) {
  clock.SetUtc(DateParts{2024, 6, 1, 20, 0, 0});
  clock.SetOffsetHours(2);
  for (int i = 0; i < 119; ++i) {
    ErrorTrapOnceADay("No position: " + std::to_string(i), "Global Satcalc", "OSNSAT");
    clock.AdvanceMs(60e3);
  }
  EXPECT_EQ(ErrorLog(), Lines{"2.02 01/06/2024 - 22:00:00 - No position: 0 - Global Satcalc"});
  ErrorTrapOnceADay("No position", "Global Satcalc", "IRIDIUM 6");
  EXPECT_EQ(ErrorLog().size(), 2U);
  clock.AdvanceMs(60e3);  // local midnight
  ErrorTrapOnceADay("No position", "Global Satcalc", "OSNSAT");
  EXPECT_EQ(ErrorLog().back(), "2.02 02/06/2024 - 00:00:00 - No position - Global Satcalc");
  EndFaultLog();
  EXPECT_EQ(ErrorLog().size(), 3U) << "it is never counted";
  TakeFaults();
}

TEST_F(FaultLines, ALogThatIsDeletedBeginsAnewWithWhatLastsAndWithWhatRepeats) {
  ErrorTrapOnceADay("No position", "Global Satcalc", "OSNSAT");
  ErrorTrap("Overflow", "x");
  ErrorTrap("Overflow", "x");
  Put("error.log", std::string(kErrorLogBoundBytes, 'a'));
  ErrorTrap("File not found", "y");
  ASSERT_FALSE(FileExists(InAppDir("error.log")));
  ErrorTrap("Overflow", "x");
  ErrorTrapOnceADay("No position", "Global Satcalc", "OSNSAT");
  EndFaultLog();
  EXPECT_EQ(ErrorLog(), (Lines{"2.02 01/06/2024 - 12:00:00 - Overflow - x",
                               "2.02 01/06/2024 - 12:00:00 - No position - Global Satcalc"}));
  TakeFaults();
}

TEST_F(Traps, GoOnWithTheNextStatement) {
  const FaultTrap trap{"MapView CalcFootprint"};
  double value = 1;
  EXPECT_FALSE(trap([&] {
    Divide(1, 0);
    value = 2;
  }));
  EXPECT_TRUE(trap([&] { value += 10; }));
  EXPECT_EQ(value, 11);
  EXPECT_EQ(TakeFaults(), Lines{"Division by zero - MapView CalcFootprint"});
}

TEST_F(Traps, LetThroughWhatIsNoFault) {
  const FaultTrap trap{"x"};
  EXPECT_THROW(trap([] { throw std::logic_error("a mistake of ours"); }), std::logic_error);
}

std::string TextOf(const std::function<void()>& body) {
  try {
    body();
  } catch (const Fault& fault) {
    return fault.what();
  }
  return "";
}

TEST(CheckedHelpers, ThrowWhereTheRunTimeDid) {
  const std::array<int, 3> table{1, 2, 3};
  EXPECT_EQ(At(table, 2), 3);
  EXPECT_EQ(TextOf([&] { At(table, 3); }), "Subscript out of range");
  EXPECT_EQ(TextOf([&] { At(table, -1); }), "Subscript out of range");
  EXPECT_EQ(TextOf([] { Divide(1, 0); }), "Division by zero");
  EXPECT_EQ(TextOf([] { Divide(0, 0); }), "Overflow");
  EXPECT_EQ(TextOf([] { Modulo(5, 0); }), "Division by zero");
  EXPECT_EQ(Modulo(-7, 3), -1);
  EXPECT_EQ(Modulo(std::numeric_limits<long>::min(), -1), 0);
}

TEST(CheckedHelpers, ConversionsRoundHalvesToEven) {
  EXPECT_EQ(ToInt16(0.5), 0);
  EXPECT_EQ(ToInt16(1.5), 2);
  EXPECT_EQ(ToInt16(2.5), 2);
  EXPECT_EQ(ToInt16(-2.5), -2);
  EXPECT_EQ(ToInt16(32767.49), 32767);
  EXPECT_EQ(ToInt16(-32768.5), -32768);
  EXPECT_EQ(TextOf([] { ToInt16(32767.5); }), "Overflow");
  EXPECT_EQ(TextOf([] { ToInt16(-32768.6); }), "Overflow");
  EXPECT_EQ(TextOf([] { ToInt16(std::numeric_limits<double>::quiet_NaN()); }), "Overflow");
  EXPECT_EQ(ToInt32(2147483647.25), 2147483647);
  EXPECT_EQ(TextOf([] { ToInt32(2147483648.0); }), "Overflow");
}

TEST(Versions, HaveNoPointBeforeTheRevisionInCaptionsAndTheLog) {
  EXPECT_EQ(ShortVersion(), "2.02");
  EXPECT_EQ(LongVersion(), "2.0.2");
}

}  // namespace
}  // namespace kestrava::platform
