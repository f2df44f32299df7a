#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "shell/GpsNames.h"

#include "support/House.h"

namespace kestrava::shell {
namespace {

using GpsNames = testing::House;
using Strings = std::vector<std::string>;

TEST(GpsNameByPrn, PutsTheNumberFirst) {
  EXPECT_EQ(GpsNameByPrn("GPS BIIR-2  (PRN 13)"), "GPS PRN 13");
}

TEST(GpsNameByPrn, TakesTheBracketOfThePrnNotAnEarlierOne) {
  EXPECT_EQ(GpsNameByPrn("GPS BIIR(M)-1 (PRN 17)   "), "GPS PRN 17");
}

TEST(GpsNameByPrn, HasNoneForAConvertedName) {
  EXPECT_EQ(GpsNameByPrn("GPS PRN 13"), std::nullopt);
}

TEST(GpsNameByPrn, ABracketThatIsNeverClosedIsAFault) {
  EXPECT_THROW(GpsNameByPrn("GPS BIIR-2  (PRN 13"), platform::Fault);
}

TEST_F(GpsNames, WithoutTheFileNothingHappens) {
  Put("gps-ops.new", "a stray");
  MAIN_FIXGPSKEPS();
  EXPECT_EQ(Content("gps-ops.new"), "a stray");
}

TEST_F(GpsNames, AFreshFileIsConvertedAndTheTemporaryOneIsGone) {
  Put("gps-ops.txt", "GPS BIIR-2  (PRN 13)\r\n1 a\r\n2 b\r\nGPS BIIF-1 (PRN 25)\r\n1 c\r\n2 d\r\n");
  MAIN_FIXGPSKEPS();
  EXPECT_EQ(Content("gps-ops.txt"), "GPS PRN 13\n1 a\n2 b\nGPS PRN 25\n1 c\n2 d\n");
  EXPECT_FALSE(files.Exists("/house/gps-ops.new"));
}

TEST_F(GpsNames, ASecondCallLeavesTheConvertedFileAloneAndRemovesAStrayNewOne) {
  Put("gps-ops.txt", "GPS BIIR-2  (PRN 13)\n1 a\n2 b\n");
  MAIN_FIXGPSKEPS();
  const std::string converted = Content("gps-ops.txt");
  Put("gps-ops.new", "a stray");
  const int changes = files.ChangeCount();
  MAIN_FIXGPSKEPS();
  EXPECT_EQ(Content("gps-ops.txt"), converted);
  EXPECT_FALSE(files.Exists("/house/gps-ops.new"));
  EXPECT_EQ(files.ChangeCount(), changes + 1);  // the stray one's removal
}

TEST_F(GpsNames, ANameWithoutAPrnAtTheTopStopsTheConversion) {
  const std::string mixed = "GPS SPECIAL\n1 a\n2 b\nGPS BIIR-2  (PRN 13)\n1 c\n2 d\n";
  Put("gps-ops.txt", mixed);
  MAIN_FIXGPSKEPS();
  EXPECT_EQ(Content("gps-ops.txt"), mixed);
  EXPECT_FALSE(files.Exists("/house/gps-ops.new"));
}

TEST_F(GpsNames, ANameWithoutAPrnFurtherDownStopsItToo) {
  const std::string mixed = "GPS BIIR-2  (PRN 13)\n1 c\n2 d\nGPS SPECIAL\n1 a\n2 b\n";
  Put("gps-ops.txt", mixed);
  MAIN_FIXGPSKEPS();
  EXPECT_EQ(Content("gps-ops.txt"), mixed);
}

TEST_F(GpsNames, LinesThatAreNoGpsNamesStayAsTheyAre) {
  Put("gps-ops.txt", "NAVSTAR 1 (PRN 3)\nGPSX (PRN 4)\nGPS A (PRN 5)\n");
  MAIN_FIXGPSKEPS();
  EXPECT_EQ(Content("gps-ops.txt"), "NAVSTAR 1 (PRN 3)\nGPSX (PRN 4)\nGPS PRN 5\n");
}

TEST_F(GpsNames, ABracketThatIsNeverClosedIsLoggedAndTheLineStays) {
  Put("gps-ops.txt", "GPS A (PRN 5\nGPS B (PRN 6)\n");
  MAIN_FIXGPSKEPS();
  EXPECT_EQ(TakeFaults(), Strings{"Invalid procedure call or argument - MAIN_FIXGPSKEPS"});
  EXPECT_EQ(Content("gps-ops.txt"), "GPS A (PRN 5\nGPS PRN 6\n");
}

TEST_F(GpsNames, TheConvertedFileKeepsTheDateOfItsElements) {
  Put("gps-ops.txt", "GPS A (PRN 5)\n");
  const auto date = platform::MakeSerial({2024, 5, 2, 3, 4, 5});
  files.SetModifiedUtc("/house/gps-ops.txt", date);
  MAIN_FIXGPSKEPS();
  EXPECT_NEAR(files.ModifiedLocal("/house/gps-ops.txt"), date, 1.0 / 86400);
}

TEST_F(GpsNames, ADiskThatBreaksLeavesTheFileWholeWhereverItBreaks) {
  const std::string fresh = "GPS BIIR-2  (PRN 13)\n1 a\n2 b\nGPS BIIF-1 (PRN 25)\n";
  const std::string converted = "GPS PRN 13\n1 a\n2 b\nGPS PRN 25\n";
  for (std::size_t bytes = 0; bytes < converted.size(); ++bytes) {
    Put("gps-ops.txt", fresh);
    files.BreakWriteAfter(bytes);
    MAIN_FIXGPSKEPS();
    files.Mend();
    EXPECT_EQ(Content("gps-ops.txt"), fresh) << "broken after " << bytes << " bytes";
    const Strings faults = TakeFaults();
    ASSERT_FALSE(faults.empty()) << bytes;
    EXPECT_EQ(faults[0], "Disk full - MAIN_FIXGPSKEPS");
  }
}

TEST_F(GpsNames, ADeviceThatCannotBeReadLeavesTheFileWhole) {
  Put("gps-ops.txt", "GPS BIIR-2  (PRN 13)\n");
  files.BreakReadAfter(5);
  MAIN_FIXGPSKEPS();
  files.Mend();
  EXPECT_EQ(Content("gps-ops.txt"), "GPS BIIR-2  (PRN 13)\n");
  EXPECT_EQ(TakeFaults(), Strings{"Device I/O error - MAIN_FIXGPSKEPS"});
}

}  // namespace
}  // namespace kestrava::shell
