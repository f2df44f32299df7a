// The light low in the sky around the Sun.
#include <cmath>

#include <gtest/gtest.h>

#include "views2d/Twilight.h"

namespace kestrava::views2d {
namespace {

/// Relative luminance (WCAG 2.1).
double Luminance(platform::Colour colour) {
  const auto linear = [&](int shift) {
    const double v = (colour >> shift & 0xff) / 255.0;
    return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(0) + 0.7152 * linear(8) + 0.0722 * linear(16);
}

TEST(Twilight, IsWholeAtTheSunsAzimuthAndGoneOpposite) {
  EXPECT_EQ(GlowAcross(0), 1);
  EXPECT_EQ(GlowAcross(360), 1);
  EXPECT_NEAR(GlowAcross(180), 0, 1e-9);
  EXPECT_EQ(GlowAcross(40), GlowAcross(-40));
  EXPECT_GT(GlowAcross(40), GlowAcross(41));
}

TEST(Twilight, EndsWithTheNight) {
  EXPECT_EQ(GlowUp(0, -18), 0);
  EXPECT_EQ(GlowUp(0, -60), 0);
  EXPECT_GT(GlowUp(0, -17), 0);
}

TEST(Twilight, GrowsAsTheSunNearsTheHorizonAndPalesByDay) {
  EXPECT_LT(GlowUp(3, -15), GlowUp(3, -10));
  EXPECT_LT(GlowUp(3, -10), GlowUp(3, -5));
  EXPECT_EQ(GlowUp(0, 0), 1);
  EXPECT_LT(GlowUp(3, 50), GlowUp(3, 0) / 2);
}

TEST(Twilight, IsStrongestOnTheHorizonAndNeverReachesTheZenith) {
  for (const double sun : {-15.0, -6.0, 0.0, 30.0}) {
    for (int el = 1; el < 90; ++el) EXPECT_LE(GlowUp(el, sun), GlowUp(el - 1, sun)) << el;
    EXPECT_EQ(GlowUp(70, sun), 0);
  }
}

TEST(Twilight, LeavesYellowAndWhiteLabelsReadable) {
  constexpr platform::Colour kYellow = 0x00FFFF;
  for (int el = 0; el <= 90; ++el) {
    const double contrast = (Luminance(kYellow) + 0.05) / (Luminance(GlowColour(el)) + 0.05);
    EXPECT_GE(contrast, 5.5) << el;
  }
}

TEST(Twilight, GoesFromEmbersToBlue) {
  EXPECT_EQ(GlowColour(0), 0x2E4E8Eu);
  EXPECT_EQ(GlowColour(62), 0x36160Bu);
  EXPECT_EQ(GlowColour(90), 0x36160Bu);
  EXPECT_EQ(GlowColour(14), 0x694545u) << "between its neighbours";
}

}  // namespace
}  // namespace kestrava::views2d
