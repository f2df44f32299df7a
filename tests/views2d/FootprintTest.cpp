#include <cmath>

#include "PlotFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;

class Footprint : public PlotFixture {
 protected:
  const orbit::PointRec& Row(int row) const { return tables.FootPrint[static_cast<std::size_t>(row)]; }
};

constexpr double kDeg = 3.14159265358979323846 / 180;

TEST_F(Footprint, EveryPointStandsOneHorizonsDistanceFromTheSubPoint) {
  for (const double heightKm : {200.0, 420.0, 20200.0, 35786.0}) {
    for (const double latDeg : {-89.0, -51.6, 0.0, 33.0, 80.0}) {
      for (const double lonDeg : {0.0, 10.0, 179.0, 181.0, 359.0}) {
        CalcFootprint(tables, map, heightKm, latDeg, lonDeg);
        const double radiusDeg = std::acos(6378.14 / (6378.14 + heightKm)) / kDeg;
        for (int row = 0; row <= 360; row += 2) {
          EXPECT_NEAR(DegreesApart(latDeg, lonDeg, Row(row).lat, Row(row).lon), radiusDeg, 1e-6)
              << heightKm << " " << latDeg << " " << lonDeg << " row " << row;
        }
      }
    }
  }
}

TEST_F(Footprint, TheFirstPointLiesNorthAndAQuarterOnItLiesWest) {
  CalcFootprint(tables, map, 6378.14, 0, 100);  // a half-angle of 60 degrees
  EXPECT_NEAR(Row(0).lat, 60, 1e-9);
  EXPECT_NEAR(Row(0).lon, 100, 1e-9);
  EXPECT_NEAR(Row(90).lat, 0, 1e-9);
  EXPECT_NEAR(Row(90).lon, 160, 1e-9);
  EXPECT_NEAR(Row(180).lat, -60, 1e-9);
  EXPECT_NEAR(Row(270).lon, 40, 1e-9);
}

TEST_F(Footprint, EachOddRowCopiesTheEvenOneBelowIt) {
  CalcFootprint(tables, map, 420, 30, 200);
  for (int row = 0; row <= 360; row += 2) {
    EXPECT_EQ(Row(row).lat, Row(row + 1).lat);
    EXPECT_EQ(Row(row).lon, Row(row + 1).lon);
  }
  EXPECT_NE(Row(2).lat, Row(0).lat);
}

TEST_F(Footprint, LongitudesAreZeroTo360AlsoAcrossTheMeridians) {
  for (const double lonDeg : {1.0, 180.0, 359.0}) {
    CalcFootprint(tables, map, 800, 60, lonDeg);
    for (const orbit::PointRec& row : tables.FootPrint) {
      EXPECT_GE(row.lon, 0);
      EXPECT_LE(row.lon, 360);
    }
  }
}

TEST_F(Footprint, AroundAPoleTheDotsRunAlongAllLongitudes) {
  CalcFootprint(tables, map, 800, 85, 30);
  bool seen[12] = {};
  for (const orbit::PointRec& row : tables.FootPrint) seen[static_cast<int>(row.lon / 30) % 12] = true;
  for (int i = 0; i < 12; ++i) EXPECT_TRUE(seen[i]) << i * 30;
}

TEST_F(Footprint, AtAHeightOfZeroTheHalfAngleIsLoggedAndAllRowsHoldTheSubPoint) {
  CalcFootprint(tables, map, 0, 33, 222);
  EXPECT_EQ(TakeFaults(), Texts{"Division by zero - MapView CalcFootprint"});
  ASSERT_EQ(ErrorLog().size(), 1U);
  EXPECT_NE(ErrorLog()[0].find(" - Division by zero - MapView CalcFootprint"), std::string::npos) << ErrorLog()[0];
  for (const orbit::PointRec& row : tables.FootPrint) {
    EXPECT_NEAR(row.lat, 33, 1e-9);
    EXPECT_NEAR(row.lon, 222, 1e-9);
  }
}

TEST_F(Footprint, APointExactlyOnThePoleIsLoggedAndItsRowKeepsTheLastLatitude) {
  map.work.FootPrint.fill({12.5, 1});
  CalcFootprint(tables, map, 0, 90, 100);
  const Texts faults = TakeFaults();
  EXPECT_EQ(faults, Texts(182, "Division by zero - MapView CalcFootprint"));  // the half-angle's and 181 points'
  for (const orbit::PointRec& row : tables.FootPrint) {
    EXPECT_EQ(row.lat, 12.5);
    EXPECT_NE(row.lon, 1);
  }
}

TEST_F(Footprint, BelowTheGroundTheHalfAngleIsLoggedAndLeftAtZero) {
  CalcFootprint(tables, map, -100, 10, 20);
  EXPECT_EQ(TakeFaults(), Texts{"Invalid procedure call or argument - MapView CalcFootprint"});
  EXPECT_NEAR(Row(180).lat, 10, 1e-9);
  CalcFootprint(tables, map, -6378.14, 10, 20);
  EXPECT_EQ(TakeFaults(), Texts{"Division by zero - MapView CalcFootprint"});
}

}  // namespace
}  // namespace kestrava::views2d
