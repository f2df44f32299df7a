#include <cmath>

#include <gtest/gtest.h>

#include "panels/PlacePicking.h"

#include "support/House.h"

namespace kestrava::panels {
namespace {

using store::ShownAngle;
using PlacePicking = testing::House;

TEST_F(PlacePicking, TheMapIsTheLargestOfItsShapeInTheMiddle) {
  EXPECT_EQ(FitMap(400, 200), (MapArea{0, 0, 400, 200}));
  EXPECT_EQ(FitMap(400, 300), (MapArea{0, 50, 400, 200}));
  EXPECT_EQ(FitMap(700, 200), (MapArea{150, 0, 400, 200}));
  EXPECT_EQ(FitMap(401, 201), (MapArea{0, 0, 400, 200})) << "of an odd width a column stays free";
  EXPECT_EQ(FitMap(1, 1), (MapArea{0, 0, 0, 0}));
  EXPECT_EQ(FitMap(-5, 10), (MapArea{-2, 5, 0, 0}));
}

TEST_F(PlacePicking, APixelIsThePlaceInItsMiddle) {
  const MapArea area = FitMap(360, 180);
  EXPECT_EQ(PlaceAtPixel(area, 0, 0), (GeoPoint{89.5, -179.5}));
  EXPECT_EQ(PlaceAtPixel(area, 180, 90), (GeoPoint{-0.5, 0.5}));
  EXPECT_EQ(PlaceAtPixel(area, 359, 179), (GeoPoint{-89.5, 179.5}));
}

TEST_F(PlacePicking, BesideTheMapIsNoPlace) {
  const MapArea area = FitMap(400, 300);
  for (const auto& [column, row] : {std::pair{-1, 100}, std::pair{400, 100}, std::pair{5, 49}, std::pair{5, 250}}) {
    EXPECT_EQ(PlaceAtPixel(area, column, row), std::nullopt);
  }
  EXPECT_EQ(PlaceAtPixel(FitMap(0, 0), 0, 0), std::nullopt);
}

TEST_F(PlacePicking, EveryPixelsPlaceStandsInItsMiddleAgain) {
  const MapArea area = FitMap(647, 311);
  for (int column = 0; column < area.width; ++column) {
    for (int row = 0; row < area.height; ++row) {
      const MapSpot spot = SpotOfPlace(area, *PlaceAtPixel(area, area.left + column, area.top + row));
      ASSERT_NEAR(spot.x, area.left + column + 0.5, 1e-9);
      ASSERT_NEAR(spot.y, area.top + row + 0.5, 1e-9);
    }
  }
}

TEST_F(PlacePicking, AMoveEndsAtThePolesAndGoesOnOverTheDateLine) {
  EXPECT_EQ(Moved({89.5, 10}, 1, 0), (GeoPoint{90, 10}));
  EXPECT_EQ(Moved({-85, 10}, -10, 0), (GeoPoint{-90, 10}));
  EXPECT_EQ(Moved({0, 179.5}, 0, 1), (GeoPoint{0, -179.5}));
  EXPECT_EQ(Moved({0, -180}, 0, -1), (GeoPoint{0, 179}));
  EXPECT_EQ(Moved({0, 179}, 0, 1), (GeoPoint{0, 180}));
}

TEST_F(PlacePicking, ManySmallStepsAddUpWithoutNoise) {
  GeoPoint place{0, 0};
  for (int i = 0; i < 1000; ++i) place = Moved(place, 0.1, 0.1);
  EXPECT_EQ(place, (GeoPoint{90, 100}));
}

TEST_F(PlacePicking, TheSignBoxesBecomeSigns) {
  EXPECT_EQ(PointOf({33.5, false}, {70, true}), (GeoPoint{-33.5, -70}));
  EXPECT_EQ(PointOf({33.5, true}, {70, false}), (GeoPoint{33.5, 70}));
  EXPECT_EQ(PointOf({0, true}, {180, false}), (GeoPoint{0, 180}));
  EXPECT_EQ(PointOf({0, true}, {350, true}), (GeoPoint{0, 10})) << "some count all the way round";
  EXPECT_EQ(PointOf({0, true}, {350, false}), (GeoPoint{0, -10}));
}

TEST_F(PlacePicking, AnglesInWordsAreRoundedToTheSecond) {
  EXPECT_EQ(LatitudeInWords({51.5, true}, AngleForm::kParts), "51° 30' 00\" north");
  EXPECT_EQ(LatitudeInWords({10.3375, false}, AngleForm::kParts), "10° 20' 15\" south");
  EXPECT_EQ(LatitudeInWords({10.99999, true}, AngleForm::kParts), "11° 00' 00\" north");
  EXPECT_EQ(LongitudeInWords({0.1275, true}, AngleForm::kParts), "0° 07' 39\" west");
  EXPECT_EQ(LongitudeInWords({18.42, false}, AngleForm::kDecimals), "18.42° east");
}

TEST_F(PlacePicking, MoreThanHalfATurnIsToldTheShorterWayToo) {
  EXPECT_EQ(LongitudeInWords({180, true}, AngleForm::kParts), "180° 00' 00\" west");
  EXPECT_EQ(LongitudeInWords({350, true}, AngleForm::kParts), "350° 00' 00\" west (that is 10° 00' 00\" east)");
  EXPECT_EQ(LongitudeInWords({341.58, false}, AngleForm::kDecimals), "341.58° east (that is 18.42° west)");
}

TEST_F(PlacePicking, WordsFollowTheMachinesDecimalSign) {
  EXPECT_EQ(PointInWords({51.47, -0.12}), "51.5° north, 0.1° west");
  EXPECT_EQ(PointInWords({-33.5, 18.42}), "33.5° south, 18.4° east");
  locale.UseComma();
  EXPECT_EQ(PointInWords({-33.5, 18.42}), "33,5° south, 18,4° east");
  EXPECT_EQ(LatitudeInWords({51.5, true}, AngleForm::kDecimals), "51,5° north");
}

}  // namespace
}  // namespace kestrava::panels
