#include <gtest/gtest.h>

#include "shell/FirstMapPlace.h"

#include "support/House.h"

namespace kestrava::shell {
namespace {

constexpr int kPixel = 15;
constexpr int kTitle = 30 * kPixel;

TwipsArea InPixels(int left, int top, int width, int height) {
  return {left * kPixel, top * kPixel, width * kPixel, height * kPixel};
}

int Right(const TwipsArea& area) {
  return area.left + area.width;
}

TEST(FirstMapPlace, IsAGoodPartOfTheScreenBesideTheLauncher) {
  const TwipsArea screen = InPixels(0, 27, 1920, 1053);
  const TwipsArea launcher = InPixels(0, 27, 161, 572);
  const TwipsArea place = FirstMapPlace(screen, launcher, kTitle);
  EXPECT_GE(place.left, Right(launcher));
  EXPECT_LE(Right(place), Right(screen));
  EXPECT_GE(place.top, screen.top + kTitle);
  EXPECT_LE(place.top + place.height, screen.top + screen.height);
  EXPECT_GE(place.width, screen.width * 8 / 10);
  EXPECT_GE(place.height, screen.height * 7 / 10);
}

TEST(FirstMapPlace, IsOnTheSideWithMoreRoom) {
  const TwipsArea screen = InPixels(100, 0, 1500, 900);
  const TwipsArea place = FirstMapPlace(screen, InPixels(1400, 100, 161, 572), kTitle);
  EXPECT_GE(place.left, screen.left);
  EXPECT_LE(Right(place), 1400 * kPixel);
}

TEST(FirstMapPlace, StaysOnASmallScreen) {
  for (const TwipsArea& screen : {InPixels(0, 0, 1024, 600), InPixels(0, 0, 640, 480), InPixels(0, 0, 400, 800)}) {
    const TwipsArea place = FirstMapPlace(screen, InPixels(0, 0, 161, 572), kTitle);
    EXPECT_GE(place.left, screen.left) << screen.width;
    EXPECT_LE(Right(place), Right(screen)) << screen.width;
    EXPECT_LE(place.top + place.height, screen.top + screen.height) << screen.width;
    EXPECT_GE(place.width, 300 * kPixel) << screen.width;
    EXPECT_GE(place.height, 400 * kPixel) << screen.width;
  }
}

using StoringTheFirstMapPlace = testing::House;

TEST_F(StoringTheFirstMapPlace, WritesTheFourSettings) {
  StoreFirstMapPlace({2700, 900, 21000, 9000});
  EXPECT_EQ(settings.Get("WinPosX"), "2700");
  EXPECT_EQ(settings.Get("WinPosY"), "900");
  EXPECT_EQ(settings.Get("WinPosW"), "21000");
  EXPECT_EQ(settings.Get("WinPosH"), "9000");
}

TEST_F(StoringTheFirstMapPlace, KeepsWhatTheUserHas) {
  settings.Set("WinPosW", "12000");
  StoreFirstMapPlace({2700, 900, 21000, 9000});
  EXPECT_EQ(settings.Get("WinPosX"), "");
  EXPECT_EQ(settings.Get("WinPosW"), "12000");
}

}  // namespace
}  // namespace kestrava::shell
