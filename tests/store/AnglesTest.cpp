#include <cmath>
#include <string>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/Format.h"
#include "store/Angles.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

using Angles = testing::House;

std::string FaultOf(std::string_view typed) {
  try {
    ParseTyped(typed);
  } catch (const platform::Fault& fault) {
    return fault.what();
  }
  return "none";
}

TEST_F(Angles, WholePartsOfAHalfDegree) {
  EXPECT_EQ(DegToDMS(51.5), (DegreeParts{51, 30, 0}));
  EXPECT_EQ(DegToDMS(0), (DegreeParts{0, 0, 0}));
  EXPECT_EQ(DegToDMS(180), (DegreeParts{180, 0, 0}));
}

TEST_F(Angles, SecondsAreCutOffNotRounded) {
  EXPECT_EQ(DegToDMS(10.9999), (DegreeParts{10, 59, 59})) << "59.64 seconds";
  EXPECT_EQ(DegToDMS(51.3), (DegreeParts{51, 17, 59})) << "51.3 lies just below itself in binary";
}

TEST_F(Angles, ANegativeAngleIsRoundedDownIntoItsParts) {
  EXPECT_EQ(DegToDMS(-33.5), (DegreeParts{-34, 30, 0}));
}

TEST_F(Angles, PartsBecomeDegrees) {
  EXPECT_EQ(DMSToDeg({51, 30, 0}), 51.5);
  EXPECT_EQ(DMSToDeg({0, 0, 36}), 0.01);
  EXPECT_EQ(DMSToDeg({90, 0, 0}), 90);
}

TEST_F(Angles, DegreesFromPartsAreKeptToNineDecimals) {
  EXPECT_EQ(DMSToDeg({10, 0, 1}), 10.000277778);
  EXPECT_EQ(platform::NumberText(DMSToDeg({10, 20, 0})), "10.333333333");
}

TEST_F(Angles, TheSignOfTheDegreesDoesNotReachTheMinutes) {
  EXPECT_EQ(DMSToDeg({-33, 30, 0}), -32.5);
}

TEST_F(Angles, PartsBecomeDegreesOnACommaMachineToo) {
  locale.UseComma();
  EXPECT_EQ(DMSToDeg({51, 30, 0}), 51.5);
}

TEST_F(Angles, ToThePartsAndBackLosesLessThanASecond) {
  for (int i = 0; i <= 18000; ++i) {
    const double degrees = i / 100.0;
    const double back = DMSToDeg(DegToDMS(degrees));
    ASSERT_LE(back, degrees + 5e-10) << degrees;
    ASSERT_GT(back, degrees - 1.0 / 3600 - 5e-10) << degrees;
  }
}

TEST_F(Angles, EastOneIsStoredAs359AndShownAsEastOne) {
  EXPECT_EQ(StoredLongitude({1, false}), 359);
  EXPECT_EQ(ShownLongitude(359), (ShownAngle{1, false}));
}

TEST_F(Angles, WestIsStoredAsItIsShown) {
  EXPECT_EQ(StoredLongitude({75.25, true}), 75.25);
  EXPECT_EQ(ShownLongitude(75.25), (ShownAngle{75.25, true}));
}

TEST_F(Angles, Longitude180IsEast180) {
  EXPECT_EQ(ShownLongitude(180), (ShownAngle{180, false}));
  EXPECT_EQ(ShownLongitude(179.999), (ShownAngle{179.999, true}));
  EXPECT_EQ(StoredLongitude({180, false}), 180);
}

TEST_F(Angles, ANegativeLongitudeIsShownAsTheOne360Further) {
  EXPECT_EQ(ShownLongitude(-5), (ShownAngle{5, false}));
  EXPECT_EQ(ShownLongitude(-179.9), (ShownAngle{179.9, false}));
  EXPECT_EQ(ShownLongitude(-200.3), (ShownAngle{159.7, true}));
  EXPECT_EQ(ShownLongitude(-365), (ShownAngle{5, false}));
  EXPECT_EQ(ShownLongitude(-360), (ShownAngle{0, false}));
}

TEST_F(Angles, EastNoughtIsStoredAs360AndShownAsEastNought) {
  EXPECT_EQ(StoredLongitude({0, false}), 360);
  EXPECT_EQ(ShownLongitude(360), (ShownAngle{0, false}));
  EXPECT_EQ(ShownLongitude(0), (ShownAngle{0, true}));
}

TEST_F(Angles, AnEastLongitudeIsShownAsItWasTypedForEveryHundredthOfADegree) {
  for (int i = 0; i <= 18000; ++i) {
    const std::string typed = platform::NumberText(i / 100.0);
    const std::string stored = platform::NumberText(StoredLongitude({ParseTyped(typed), false}));
    ASSERT_EQ(platform::NumberText(ShownLongitude(ParseStoredDegrees(stored)).degrees), typed) << stored;
  }
}

TEST_F(Angles, AStoredEastLongitudeComesBackDigitForDigit) {
  for (const std::string stored : {"359", "358.9", "341.58", "180", "359.999999999999", "187.123456789012"}) {
    EXPECT_EQ(platform::NumberText(StoredLongitude(ShownLongitude(ParseStoredDegrees(stored)))), stored);
  }
}

TEST_F(Angles, SouthIsNegative) {
  EXPECT_EQ(platform::NumberText(StoredLatitude({33.5, false})), "-33.5");
  EXPECT_EQ(StoredLatitude({33.5, true}), 33.5);
  EXPECT_EQ(ShownLatitude(-33.5), (ShownAngle{33.5, false}));
  EXPECT_EQ(ShownLatitude(33.5), (ShownAngle{33.5, true}));
}

TEST_F(Angles, SouthNoughtIsStoredAsNoughtAndShownAsNorth) {
  EXPECT_EQ(platform::NumberText(StoredLatitude({0, false})), "0");
  EXPECT_EQ(ShownLatitude(0), (ShownAngle{0, true}));
}

TEST_F(Angles, AStoredPointIsReadOnACommaMachine) {
  locale.UseComma();
  EXPECT_EQ(ParseStoredDegrees("51.25"), 51.25);
  EXPECT_EQ(ParseStoredDegrees("51,25"), 51.25);
}

TEST_F(Angles, AStoredCommaIsReadOnAPointMachine) {
  EXPECT_EQ(ParseStoredDegrees("51,25"), 51.25);
}

TEST_F(Angles, AStoredTextThatIsNoNumberIsAFault) {
  EXPECT_THROW(ParseStoredDegrees("north"), platform::Fault);
}

TEST_F(Angles, TypedNumbersTakeOneDecimalSignOfEitherKindOnBothMachines) {
  for (const bool comma : {false, true}) {
    comma ? locale.UseComma() : locale.UsePoint();
    EXPECT_EQ(ParseTyped("51.25"), 51.25);
    EXPECT_EQ(ParseTyped("51,25"), 51.25);
    EXPECT_EQ(ParseTyped("1,234"), 1.234) << "never a group sign";
    EXPECT_EQ(ParseTyped("1.234"), 1.234) << "never a group sign";
    EXPECT_EQ(ParseTyped(" -7 "), -7);
    EXPECT_EQ(ParseTyped("+7"), 7);
    EXPECT_EQ(ParseTyped(".5"), 0.5);
  }
}

TEST_F(Angles, TypedTextsThatAreNoPlainNumberAreRefused) {
  for (const char* typed :
       {"", " ", "-", ".", "1,234.5", "1.2.3", "1 234", "1e2", "12x", "0x10", "--1", "nan", "inf", "5\xC2\xB0"}) {
    EXPECT_EQ(FaultOf(typed), "Type mismatch") << "'" << typed << "'";
  }
}

TEST_F(Angles, TypedNumbersKnowNoGroupSignWhateverTheMachineWrites) {
  locale.groupSign = " ";
  EXPECT_EQ(FaultOf("1 234"), "Type mismatch");
  locale.groupSign = "'";
  EXPECT_EQ(FaultOf("1'234"), "Type mismatch");
}

}  // namespace
}  // namespace kestrava::store
