#include <cmath>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "views2d/MapGeometry.h"

namespace kestrava::views2d {
namespace {

constexpr double kWidth = 1400;
constexpr double kHeight = 704;
constexpr const char* kRegions[] = {"NWQ", "NCQ", "NEQ", "SWQ", "SCQ", "SEQ"};

TEST(MapGeometry, Longitude180StandsOnTheLeftEdge) {
  EXPECT_DOUBLE_EQ(LonToX(180, kWidth, "worldnormal"), 0);
}

TEST(MapGeometry, JustAbove180StandsJustInsideTheRightEdge) {
  const double x = LonToX(180.001, kWidth, "worldnormal");
  EXPECT_LT(x, kWidth);
  EXPECT_NEAR(x, kWidth, 0.01);
}

TEST(MapGeometry, Longitudes0And360BothStandInTheMiddle) {
  EXPECT_DOUBLE_EQ(LonToX(0, kWidth, "worldnormal"), kWidth / 2);
  EXPECT_DOUBLE_EQ(LonToX(360, kWidth, "worldnormal"), kWidth / 2);
}

TEST(MapGeometry, LongitudesAreWestPositive) {
  EXPECT_DOUBLE_EQ(LonToX(90, kWidth, "worldnormal"), kWidth / 4);
  EXPECT_DOUBLE_EQ(LonToX(270, kWidth, "worldnormal"), kWidth * 3 / 4);
}

TEST(MapGeometry, ANegativeLongitudeCountsAsEastAndLandsRightOfTheMiddle) {
  EXPECT_DOUBLE_EQ(LonToX(-90, kWidth, "worldnormal"), kWidth * 3 / 4);
}

TEST(MapGeometry, NorthIsUp) {
  EXPECT_DOUBLE_EQ(LatToY(90, kHeight, "worldnormal"), 0);
  EXPECT_DOUBLE_EQ(LatToY(0, kHeight, "worldnormal"), kHeight / 2);
  EXPECT_DOUBLE_EQ(LatToY(-90, kHeight, "worldnormal"), kHeight);
}

TEST(MapGeometry, WithSwappedHalvesGreenwichStandsOnTheLeftEdge) {
  EXPECT_DOUBLE_EQ(LonToX(0, kWidth, "worldalt"), 0);
}

TEST(MapGeometry, WithSwappedHalvesAThousandthWestOfGreenwichStandsJustInsideTheRightEdge) {
  const double x = LonToX(0.001, kWidth, "worldalt");
  EXPECT_LT(x, kWidth);
  EXPECT_NEAR(x, kWidth, 0.01);
}

TEST(MapGeometry, WithSwappedHalvesTheDateLineStandsInTheMiddle) {
  EXPECT_DOUBLE_EQ(LonToX(180, kWidth, "worldalt"), kWidth / 2);
  EXPECT_DOUBLE_EQ(LatToY(45, kHeight, "worldalt"), LatToY(45, kHeight, "worldnormal"));
}

TEST(MapGeometry, AnUnknownModeMapsAsTheWorld) {
  for (const char* mode : {"", "nwq", "WORLDALT", "NWQ ", "globe"}) {
    EXPECT_DOUBLE_EQ(LonToX(200, kWidth, mode), LonToX(200, kWidth, "worldnormal")) << mode;
    EXPECT_DOUBLE_EQ(LatToY(20, kHeight, mode), LatToY(20, kHeight, "worldnormal")) << mode;
  }
}

struct Quarter {
  const char* mode;
  double leftLonDeg, middleLonDeg;
  double topLatDeg;
};

TEST(MapGeometry, EachRegionFillsTheWholeSurface) {
  for (const Quarter& quarter : {Quarter{"NWQ", 180, 90, 90}, Quarter{"NCQ", 90, 0, 90}, Quarter{"NEQ", 360, 270, 90},
                                 Quarter{"SWQ", 180, 90, 0}, Quarter{"SCQ", 90, 0, 0}, Quarter{"SEQ", 360, 270, 0}}) {
    EXPECT_NEAR(LonToX(quarter.leftLonDeg, kWidth, quarter.mode), 0, 1e-9) << quarter.mode;
    EXPECT_NEAR(LonToX(quarter.middleLonDeg, kWidth, quarter.mode), kWidth / 2, 1e-9) << quarter.mode;
    EXPECT_NEAR(LatToY(quarter.topLatDeg, kHeight, quarter.mode), 0, 1e-9) << quarter.mode;
    EXPECT_NEAR(LatToY(quarter.topLatDeg - 90, kHeight, quarter.mode), kHeight, 1e-9) << quarter.mode;
  }
}

TEST(MapGeometry, NothingIsClippedOutsideARegion) {
  EXPECT_NEAR(LonToX(270, kWidth, "NWQ"), kWidth * 1.5, 1e-9);
  EXPECT_NEAR(LonToX(90, kWidth, "NEQ"), -kWidth / 2, 1e-9);
  EXPECT_NEAR(LatToY(-45, kHeight, "NCQ"), kHeight * 1.5, 1e-9);
  EXPECT_NEAR(LatToY(45, kHeight, "SCQ"), -kHeight / 2, 1e-9);
}

/// The inverse of the mapping, by the meaning of the modes and not by their arithmetic.
double LonOfX(double x, double width, const std::string& mode) {
  double leftEdgeLonDeg = 180;
  double spanDeg = 360;
  if (mode == "worldalt") leftEdgeLonDeg = 360;
  if (mode.size() == 3) spanDeg = 180;
  if (mode == "NCQ" || mode == "SCQ") leftEdgeLonDeg = 90;
  if (mode == "NEQ" || mode == "SEQ") leftEdgeLonDeg = 0;
  return std::fmod(leftEdgeLonDeg - x / width * spanDeg + 720, 360);
}

double LatOfY(double y, double height, const std::string& mode) {
  const double topDeg = mode.size() == 3 && mode[0] == 'S' ? 0 : 90;
  return topDeg - y / height * (mode.size() == 3 ? 90 : 180);
}

TEST(MapGeometry, EveryModeGoesThereAndBack) {
  const unsigned seed = std::random_device{}();
  RecordProperty("seed", std::to_string(seed));
  std::mt19937 random{seed};
  std::uniform_real_distribution<double> lon{0, 360};
  std::uniform_real_distribution<double> lat{-90, 90};
  std::uniform_real_distribution<double> size{50, 4000};
  for (const char* mode : {"worldnormal", "worldalt", "NWQ", "NCQ", "NEQ", "SWQ", "SCQ", "SEQ"}) {
    for (int i = 0; i < 500; ++i) {
      const double lonDeg = lon(random);
      const double latDeg = lat(random);
      const double width = size(random);
      const double height = size(random);
      const double backLonDeg = LonOfX(LonToX(lonDeg, width, mode), width, mode);
      const double lonError = std::remainder(backLonDeg - lonDeg, 360);
      EXPECT_NEAR(lonError, 0, 1e-9) << mode << " lon " << lonDeg << " width " << width << " seed " << seed;
      EXPECT_NEAR(LatOfY(LatToY(latDeg, height, mode), height, mode), latDeg, 1e-9)
          << mode << " height " << height << " seed " << seed;
    }
  }
}

TEST(MapGeometry, ARegionIsTheWorldDoubledAndMoved) {
  for (const char* mode : kRegions) {
    const double movedX = 2 * LonToX(33, kWidth, "worldnormal") - LonToX(33, kWidth, mode);
    const double movedY = 2 * LatToY(12, kHeight, "worldnormal") - LatToY(12, kHeight, mode);
    EXPECT_NEAR(std::remainder(movedX, kWidth / 2), 0, 1e-9) << mode;
    EXPECT_NEAR(std::remainder(movedY, kHeight), 0, 1e-9) << mode;
  }
}

}  // namespace
}  // namespace kestrava::views2d
