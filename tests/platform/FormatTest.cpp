#include <cmath>
#include <limits>
#include <string>

#include "platform/Fault.h"
#include "platform/Format.h"

#include "support/House.h"

namespace kestrava::platform {
namespace {

using FormatTest = testing::House;
using ParseNumberTest = testing::House;
using ValTest = testing::House;
using NumberTextTest = testing::House;
using CommaRule = testing::House;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
const double kNoNumber = std::nan("");

struct Case {
  double value;
  const char* pattern;
  const char* text;
};

void Check(std::initializer_list<Case> cases) {
  for (const Case& c : cases) EXPECT_EQ(Format(c.value, c.pattern), c.text) << c.value << " by " << c.pattern;
}

TEST_F(FormatTest, ZeroIsADigitOrAZero) {
  Check({{5, "0", "5"},
         {0, "0", "0"},
         {5, "00", "05"},
         {123, "00", "123"},
         {51.5, "000.000", "051.500"},
         {1.2, "0.0", "1.2"},
         {420.25, "00000.0", "00420.3"},
         {7, "00000", "00007"},
         {47.1234567, "0.000000", "47.123457"},
         {12.582499999, "000.000000000", "012.582499999"},
         {-3.5, "000.00", "-003.50"}});
}

TEST_F(FormatTest, HashIsADigitOrNothing) {
  Check({{0.5, "#.0", ".5"},
         {0, "#.0", ".0"},
         {-0.5, "#.0", "-.5"},
         {12.34, "#.0", "12.3"},
         {5, "###", "5"},
         {0, "#", ""},
         {1234, "#,###", "1,234"},
         {0, "#,###", ""},
         {12, "#,###", "12"},
         {123456789, "#,###", "123,456,789"},
         {1234.5, "#,##0.0", "1,234.5"},
         {0, "#,##0.0", "0.0"},
         {5, "0#", "05"},
         {1.5, "0.0##", "1.5"},
         {1.25, "0.0##", "1.25"},
         {1.2345, "0.0##", "1.235"},
         {5, "0.#", "5."}});
}

TEST_F(FormatTest, OtherCharactersStandAsTheyAre) {
  Check({{12.5, "0.0 km", "12.5 km"},
         {7, "(0)", "(7)"},
         {-7, "(0)", "-(7)"},
         {1234, "00-00", "12-34"},
         {12345, "00-00", "123-45"},
         {5, "0,", "5,"},
         {5, ",0", ",5"},
         {12.5, ".00", "12.50"},
         {0.25, ".0", ".3"}});
}

TEST_F(FormatTest, HalvesRoundAwayFromZero) {
  Check({{0.5, "0", "1"},
         {1.5, "0", "2"},
         {2.5, "0", "3"},
         {-0.5, "0", "-1"},
         {-2.5, "0", "-3"},
         {0.125, "0.00", "0.13"},
         {-0.125, "0.00", "-0.13"},
         {0.05, "0.0", "0.1"},
         {0.15, "0.0", "0.2"},
         {0.25, "0.0", "0.3"},
         {0.35, "0.0", "0.4"},
         {1.005, "0.00", "1.01"},
         {2.675, "0.00", "2.68"},
         {0.49999, "0", "0"},
         {9.995, "0.00", "10.00"},
         {99.95, "0.0", "100.0"},
         {999.5, "#,##0", "1,000"},
         {0.0004999, "0.000", "0.000"},
         {0.0005, "0.000", "0.001"},
         {0.006, "0", "0"}});
}

TEST_F(FormatTest, WhatRoundsToZeroLosesItsSign) {
  Check({{-0.0, "0.0", "0.0"},
         {-0.04, "0.0", "0.0"},
         {-0.0004, "000.000", "000.000"},
         {-0.4, "#", ""},
         {-0.05, "0.0", "-0.1"}});
}

TEST_F(FormatTest, LargeAndSmallNumbersKeepFifteenDigits) {
  Check({{1e15, "0", "1000000000000000"},
         {123456789012345678.0, "0", "123456789012346000"},
         {1e20, "#,##0", "100,000,000,000,000,000,000"},
         {1e-12, "0.00", "0.00"},
         {1.0 / 3.0, "0.00000000000000000", "0.33333333333333300"}});
}

TEST_F(FormatTest, ACommaMachineWritesItsOwnSigns) {
  locale.UseComma();
  Check({{1234.5, "#,##0.0", "1.234,5"}, {1.2, "0.0", "1,2"}, {0.5, "#.0", ",5"}});
  locale.groupSign = "\u202F";  // the narrow blank of the French
  Check({{1234567, "#,##0", "1\u202F234\u202F567"}});
}

TEST_F(FormatTest, TimesAreTakenAfterRoundingToTheNearestSecond) {
  Check({{0.5, "hh:mm:ss", "12:00:00"},
         {0.0, "hh:mm:ss", "00:00:00"},
         {45000.25, "hh:mm", "06:00"},
         {45000 + 3599.6 / 86400, "hh:mm:ss", "01:00:00"},
         {45000 + 3599.4 / 86400, "hh:mm:ss", "00:59:59"},
         {45000 + 86399.7 / 86400, "hh:mm:ss", "00:00:00"},
         {0.5, "HH:MM:SS", "12:00:00"},
         {0.5, "hh mm", "12 00"},
         {0.0631944444, "h:m", "1:31"},
         {-1.25, "hh:mm:ss", "06:00:00"}});
}

TEST_F(FormatTest, MonthAndMinuteAreToldApartByTheHourBeforeThem) {
  const SerialDate moment = MakeSerial({2024, 3, 9, 7, 5, 4});
  EXPECT_EQ(Format(moment, "yyyy-mm-dd hh:mm:ss"), "2024-03-09 07:05:04");
  EXPECT_EQ(Format(moment, "dd/mm/yy"), "09/03/24");
  EXPECT_EQ(Format(moment, "d.m.yyyy"), "9.3.2024");
  EXPECT_EQ(Format(moment, "hh:nn"), "07:05");
}

TEST_F(FormatTest, WhatIsNoNumberIsAFault) {
  EXPECT_THROW(Format(kInfinity, "0.0"), Fault);
  EXPECT_THROW(Format(kNoNumber, "0.0"), Fault);
  EXPECT_THROW(Format(kNoNumber, "hh:mm"), Fault);
  EXPECT_THROW(Format(3e6, "hh:mm"), Fault);
}

void CheckNumber(std::string_view text, double value) {
  try {
    EXPECT_EQ(ParseNumber(text), value) << "of \"" << text << '"';
  } catch (const Fault& fault) {
    ADD_FAILURE() << '"' << text << "\": " << fault.what();
  }
}

void CheckNoNumber(std::string_view text) {
  try {
    ADD_FAILURE() << '"' << text << "\" was taken as " << ParseNumber(text);
  } catch (const Fault& fault) {
    EXPECT_STREQ(fault.what(), "Type mismatch") << '"' << text << '"';
  }
}

TEST_F(ParseNumberTest, PointMachine) {
  CheckNumber("51.5", 51.5);
  CheckNumber("  -0.25 ", -0.25);
  CheckNumber("+7", 7);
  CheckNumber(".5", 0.5);
  CheckNumber("5.", 5);
  CheckNumber("1e3", 1000);
  CheckNumber("1.5E-2", 0.015);
  CheckNumber("1,234.5", 1234.5);
  CheckNumber("1,234,567", 1234567);
  CheckNumber("007", 7);
}

TEST_F(ParseNumberTest, TheOtherSignAloneIsADecimalSign) {
  CheckNumber("51,5", 51.5);
  CheckNumber("-0,125", -0.125);
  CheckNumber("1,234", 1.234);
  CheckNumber(",5", 0.5);
  locale.UseComma();
  CheckNumber("51.5", 51.5);
  CheckNumber("1.234", 1.234);
}

TEST_F(ParseNumberTest, CommaMachine) {
  locale.UseComma();
  CheckNumber("51,5", 51.5);
  CheckNumber("1.234,5", 1234.5);
  CheckNumber("1.234.567", 1234567);
  CheckNoNumber("1,234.5");
  locale.groupSign = "\u202F";
  CheckNumber("1\u202F234,5", 1234.5);
  CheckNumber("51.5", 51.5);
  CheckNoNumber("1.234,5");
}

TEST_F(ParseNumberTest, BothSignsInTheOtherOrderAreNoNumber) {
  CheckNoNumber("1.234,5");
  CheckNoNumber("1.5.2");
  CheckNoNumber("1,,5");
  CheckNoNumber(",1,5");
}

TEST_F(ParseNumberTest, AnythingElseIsAMismatch) {
  for (const char* text : {"",   "   ", "abc", "12a", "1 2",  "-",        "+",    ".",    ",",     "--5", "+-5",
                           "1e", "e5",  "inf", "nan", "-inf", "infinity", "0x10", "5 km", "1.e.5", "\xFF"}) {
    CheckNoNumber(text);
  }
}

TEST_F(ParseNumberTest, TooLargeIsAnOverflowAndTooSmallIsZero) {
  try {
    ParseNumber("1e999");
    ADD_FAILURE() << "no fault";
  } catch (const Fault& fault) {
    EXPECT_STREQ(fault.what(), "Overflow");
  }
  CheckNumber("1e-999", 0);
  CheckNumber("1e308", 1e308);
}

TEST_F(ValTest, TakesTheLeadingNumberWithAPoint) {
  EXPECT_EQ(Val("145.825 MHz"), 145.825);
  EXPECT_EQ(Val("  12"), 12);
  EXPECT_EQ(Val("-3.5abc"), -3.5);
  EXPECT_EQ(Val("+4"), 4);
  EXPECT_EQ(Val(".25"), 0.25);
  EXPECT_EQ(Val("1e3x"), 1000);
  EXPECT_EQ(Val("7e"), 7);
  EXPECT_EQ(Val("7 E"), 7);
}

TEST_F(ValTest, PassesOverBlanksWithinTheNumberToo) {
  EXPECT_EQ(Val("1 234"), 1234);
  EXPECT_EQ(Val("- 5"), -5);
  EXPECT_EQ(Val("1\t2\n3"), 123);
}

TEST_F(ValTest, NeverFailsAndNeverLooksAtTheLocale) {
  locale.UseComma();
  EXPECT_EQ(Val("51,5"), 51);
  EXPECT_EQ(Val("51.5"), 51.5);
  for (const char* text : {"", "abc", "-", ".", "inf", "nan", "e5", "-.x"}) EXPECT_EQ(Val(text), 0) << text;
  EXPECT_EQ(Val("1e999"), std::numeric_limits<double>::max());
  EXPECT_EQ(Val("-1e999"), std::numeric_limits<double>::lowest());
  EXPECT_EQ(Val("1e-999"), 0);
  EXPECT_EQ(Val(std::string("1") + std::string(400, '0')), std::numeric_limits<double>::max());
  EXPECT_EQ(Val("0." + std::string(400, '0') + "1"), 0);
}

TEST_F(NumberTextTest, IsTheShortestOfFifteenDigits) {
  const std::pair<double, const char*> cases[] = {{0, "0"},
                                                  {-0.0, "0"},
                                                  {1, "1"},
                                                  {-12, "-12"},
                                                  {51.5, "51.5"},
                                                  {0.1 + 0.2, "0.3"},
                                                  {1.0 / 3, "0.333333333333333"},
                                                  {100, "100"},
                                                  {12195, "12195"},
                                                  {123456789012345.0, "123456789012345"},
                                                  {1e15, "1E+15"},
                                                  {1.5e300, "1.5E+300"},
                                                  {0.00001, "0.00001"},
                                                  {-2.5e-20, "-2.5E-20"}};
  for (const auto& [value, text] : cases) EXPECT_EQ(NumberText(value), text);
  EXPECT_THROW(NumberText(kInfinity), Fault);
}

TEST_F(NumberTextTest, FollowsTheLocaleAndPointTextDoesNot) {
  locale.UseComma();
  EXPECT_EQ(NumberText(51.5), "51,5");
  EXPECT_EQ(PointText(51.5), "51.5");
}

TEST_F(NumberTextTest, WhatIsWrittenIsReadBack) {
  for (const char* sign : {".", ","}) {
    locale.decimalSign = sign;
    locale.groupSign = *sign == '.' ? "," : ".";
    for (const double value : {0.0, 1.25, -73.987, 1e-7, 12345678.875, 3e20}) {
      EXPECT_EQ(ParseNumber(NumberText(value)), value);
      EXPECT_EQ(Val(PointText(value)), value);
    }
  }
}

TEST_F(NumberTextTest, WholeDegreesAreRoundedDown) {
  EXPECT_EQ(FloorText(12.99), "12");
  EXPECT_EQ(FloorText(-0.5), "-1");
  EXPECT_EQ(FloorText(0.5), "0");
  EXPECT_EQ(FloorText(360), "360");
}

TEST_F(CommaRule, TurnsPointsIntoCommasOnACommaMachineOnly) {
  EXPECT_FALSE(UsesDecimalComma());
  EXPECT_EQ(ApplyCommaRule("51.5"), "51.5");
  EXPECT_EQ(ApplyCommaRule("51,5"), "51,5");
  locale.UseComma();
  EXPECT_TRUE(UsesDecimalComma());
  EXPECT_EQ(ApplyCommaRule("51.5"), "51,5");
  EXPECT_EQ(ApplyCommaRule("51,5"), "51,5") << "a text with a comma goes through unchanged";
}

}  // namespace
}  // namespace kestrava::platform
