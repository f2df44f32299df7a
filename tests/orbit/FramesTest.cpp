// Times, frames and look angles: outside values, and geometry against itself.

#include <cmath>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "orbit/Frames.h"

namespace kestrava::orbit {
namespace {

TEST(Frames, ConvertsSerialDatesToJulianOnes) {
  const JulianDate noon2000 = JulianFromSerial(36526.5);
  EXPECT_EQ(noon2000.midnight, 2451544.5);
  EXPECT_EQ(noon2000.dayFraction, 0.5);
  EXPECT_EQ(SerialFromJulian(noon2000), 36526.5);
  const JulianDate before1899 = JulianFromSerial(-0.25);
  EXPECT_EQ(before1899.midnight, 2415017.5);
  EXPECT_EQ(before1899.dayFraction, 0.75);
}

TEST(Frames, GivesTheSiderealTimeOfThePublishedExample) {
  // Vallado 2013, example 3-5: 1992 August 20, 12:14 UT1, 152.578787886 degrees
  const double serial = 33836 + (12 + 14.0 / 60) / 24;
  EXPECT_NEAR(GreenwichMeanSiderealTime(serial) / kRadPerDeg, 152.578787886, 1e-7);
}

TEST(Frames, TurnsTheEarthOnceInASiderealDay) {
  const JulianDate start{2461000.5, 0.25};
  const double siderealDay = kTurn / kEarthRotationRadS / 86400;
  const double moved =
      GreenwichMeanSiderealTime({start.midnight, start.dayFraction + siderealDay}) - GreenwichMeanSiderealTime(start);
  EXPECT_NEAR(WrapHalfTurn(moved), 0, 1e-9);
}

TEST(Frames, WrapsAngles) {
  EXPECT_EQ(WrapTurn(0), 0);
  EXPECT_EQ(WrapTurn(kTurn), 0);
  EXPECT_NEAR(WrapTurn(-0.5), kTurn - 0.5, 1e-15);
  EXPECT_LT(WrapTurn(-1e-30), kTurn);
  EXPECT_NEAR(WrapTurn(1000 * kTurn + 1), 1, 1e-11);
  EXPECT_EQ(WrapHalfTurn(kHalfTurn), -kHalfTurn);
  EXPECT_NEAR(WrapHalfTurn(kTurn - 0.5), -0.5, 1e-15);
}

TEST(Frames, FindsAPointOverTheEllipsoidAgain) {
  for (double lat = -90; lat <= 90; lat += 7.5) {
    for (const double heightKm : {-5.0, 0.0, 0.4, 400.0, 1500.0, 20200.0, 35786.0, 384400.0}) {
      const Geodetic given{lat * kRadPerDeg, 1.25, heightKm};
      const Geodetic found = GeodeticFromEarthFixed(EarthFixedFromGeodetic(given));
      EXPECT_NEAR(found.latitudeRad, given.latitudeRad, 2e-12) << lat << " " << heightKm;
      EXPECT_NEAR(found.heightKm, heightKm, 1e-9 * (1 + heightKm / 1000)) << lat << " " << heightKm;
      if (std::abs(lat) == 90) continue;
      EXPECT_NEAR(found.longitudeRad, 1.25, 1e-12);
    }
  }
}

TEST(Frames, PutsLongitudesIntoAWholeTurn) {
  for (double lon = -360; lon <= 720; lon += 30) {
    const Geodetic found = GeodeticFromEarthFixed(EarthFixedFromGeodetic({0.3, lon * kRadPerDeg, 100}));
    EXPECT_GE(found.longitudeRad, 0);
    EXPECT_LT(found.longitudeRad, kTurn);
    EXPECT_NEAR(WrapHalfTurn(found.longitudeRad - lon * kRadPerDeg), 0, 1e-12);
  }
}

TEST(Frames, SurvivesTheEarthsCentre) {
  const Geodetic centre = GeodeticFromEarthFixed({0, 0, 0});
  EXPECT_TRUE(std::isfinite(centre.latitudeRad));
  EXPECT_TRUE(std::isfinite(centre.heightKm));
}

TEST(Frames, TakesAnEasternLongitudeOf360ForZero) {
  const EarthFixedState body{{7000, 1000, 2000}, {1, 2, 3}};
  const LookAngle zero = LookFrom(Observer{50, 0, 100}, body), full = LookFrom(Observer{50, 360, 100}, body);
  EXPECT_NEAR(zero.azimuthRad, full.azimuthRad, 1e-12);
  EXPECT_NEAR(zero.elevationRad, full.elevationRad, 1e-12);
  EXPECT_NEAR(zero.rangeKm, full.rangeKm, 1e-9);
}

TEST(Frames, LooksNorthEastAndUp) {
  const Observer home{47.4, 8.5, 450};
  const Site site = Site::Of(home);
  const auto look = [&](const Vec3& way) { return LookFrom(home, {site.positionKm + 100 * way, {}}); };
  EXPECT_NEAR(look(site.up).elevationRad, kHalfTurn / 2, 1e-7);
  EXPECT_NEAR(look(site.north).elevationRad, 0, 1e-12);
  EXPECT_NEAR(WrapHalfTurn(look(site.north).azimuthRad), 0, 1e-12);
  EXPECT_NEAR(look(site.east).azimuthRad, kHalfTurn / 2, 1e-12);
  EXPECT_NEAR(look(-1.0 * site.east).azimuthRad, 1.5 * kHalfTurn, 1e-12);
  EXPECT_NEAR(look(site.north).rangeKm, 100, 1e-9);
  EXPECT_NEAR(look(-1.0 * site.up).elevationRad, -kHalfTurn / 2, 1e-7);
}

TEST(Frames, LooksAsVectorGeometryHasIt) {
  constexpr unsigned kSeed = 99;
  std::mt19937 random(kSeed);
  SCOPED_TRACE("seed " + std::to_string(kSeed));
  std::uniform_real_distribution<double> unit(-1, 1);
  for (int i = 0; i < 1000; ++i) {
    const Observer observer{89 * unit(random), 180 + 180 * unit(random), 3000 * unit(random)};
    const EarthFixedState body{{30000 * unit(random), 30000 * unit(random), 30000 * unit(random)},
                               {7 * unit(random), 7 * unit(random), 7 * unit(random)}};
    const LookAngle look = LookFrom(observer, body);
    // the zenith is the gradient of the ellipsoid, found without latitude
    const Vec3 place = Site::Of({observer.latitudeDeg, observer.longitudeEastDeg, 0}).positionKm;
    const double squeeze = (1 - kWgs84Flattening) * (1 - kWgs84Flattening);
    const Vec3 zenith{place.x, place.y, place.z / squeeze};
    const Vec3 way = body.positionKm - Site::Of(observer).positionKm;
    EXPECT_NEAR(look.rangeKm, Length(way), 1e-9);
    EXPECT_NEAR(std::sin(look.elevationRad), Dot(way, zenith) / Length(way) / Length(zenith), 1e-12);
    const Vec3 later = way + 1e-3 * body.velocityKmS, earlier = way - 1e-3 * body.velocityKmS;
    EXPECT_NEAR(look.rangeRateKmS, (Length(later) - Length(earlier)) / 2e-3, 1e-6);
    EXPECT_NEAR(SineOfElevation(Site::Of(observer), body.positionKm), std::sin(look.elevationRad), 1e-12);
  }
}

TEST(Frames, SeesVelocitiesFromTheTurningGround) {
  // a point that stands still over the ground moves in TEME
  const Vec3 ground = EarthFixedFromGeodetic({0.5, 1.0, 35786});
  const double theta = 2.0;
  const Vec3 position{ground.x * std::cos(theta) - ground.y * std::sin(theta),
                      ground.x * std::sin(theta) + ground.y * std::cos(theta), ground.z};
  const Vec3 velocity{-kEarthRotationRadS * position.y, kEarthRotationRadS * position.x, 0};
  const EarthFixedState state = EarthFixedFromTeme(EarthTurn::At(theta), position, velocity);
  EXPECT_LT(Length(state.positionKm - ground), 1e-9);
  EXPECT_LT(Length(state.velocityKmS), 1e-12);
}

}  // namespace
}  // namespace kestrava::orbit
