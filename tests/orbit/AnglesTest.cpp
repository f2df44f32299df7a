#include <cmath>
#include <functional>

#include <gtest/gtest.h>

#include "orbit/Angles.h"
#include "platform/Fault.h"

#include "support/House.h"

namespace kestrava::orbit {
namespace {

using Angles = testing::House;

std::string FaultOf(const std::function<void()>& call) {
  try {
    call();
  } catch (const platform::Fault& fault) {
    return fault.what();
  }
  return "none";
}

TEST_F(Angles, ArcTan2OnTheAxes) {
  EXPECT_EQ(ArcTan2(0, 0), 0);
  EXPECT_DOUBLE_EQ(ArcTan2(1, 0), kPi / 2);
  EXPECT_DOUBLE_EQ(ArcTan2(-1, 0), kTwoPi - kPi / 2);
  EXPECT_DOUBLE_EQ(ArcTan2(0, -1), kPi);
  EXPECT_EQ(ArcTan2(0, 1), 0);
}

TEST_F(Angles, ArcTan2GoesRoundTheWholeCircle) {
  for (int degrees = 0; degrees < 360; ++degrees) {
    const double angle = DegToRad(degrees);
    EXPECT_NEAR(ArcTan2(std::sin(angle), std::cos(angle)), angle, 1e-12) << degrees;
  }
}

TEST_F(Angles, DegreesAndRadiansUseTheSystemsPi) {
  EXPECT_EQ(DegToRad(180), 3.14159265358979);
  EXPECT_EQ(RadToDeg(3.14159265358979), 180);
  EXPECT_NE(DegToRad(180), M_PI);
}

TEST_F(Angles, ArcSinAndArcCos) {
  for (int i = -99; i <= 99; ++i) {
    EXPECT_NEAR(ArcSin(i / 100.0), std::asin(i / 100.0), 1e-14) << i;
    EXPECT_NEAR(ArcCos(i / 100.0), std::acos(i / 100.0), 1e-14) << i;
  }
}

TEST_F(Angles, ArcSinAndArcCosDivideByZeroAtOneAndMinusOne) {
  for (const double x : {1.0, -1.0}) {
    EXPECT_EQ(FaultOf([&] { ArcSin(x); }), "Division by zero") << x;
    EXPECT_EQ(FaultOf([&] { ArcCos(x); }), "Division by zero") << x;
  }
}

TEST_F(Angles, ArcSinAndArcCosBeyondOneAreInvalid) {
  for (const double x : {1.0000001, -2.0, std::nan("")}) {
    EXPECT_EQ(FaultOf([&] { ArcSin(x); }), "Invalid procedure call or argument") << x;
    EXPECT_EQ(FaultOf([&] { ArcCos(x); }), "Invalid procedure call or argument") << x;
  }
}

TEST_F(Angles, LonTextChangesSidesAtOneHundredAndEighty) {
  EXPECT_EQ(LonText(179.9), "179.900 W");
  EXPECT_EQ(LonText(180), "180.000 E");
  EXPECT_EQ(LonText(0), "000.000 W");
  EXPECT_EQ(LonText(359.5), "000.500 E");
  EXPECT_EQ(LonText(12.3456), "012.346 W");
}

TEST_F(Angles, LonTextFollowsTheMachinesDecimalSign) {
  locale.UseComma();
  EXPECT_EQ(LonText(12.5), "012,500 W");
}

TEST_F(Angles, KmToMilesHasFourDigits) {
  EXPECT_DOUBLE_EQ(KmToMiles(1000), 621.4);
}

}  // namespace
}  // namespace kestrava::orbit
