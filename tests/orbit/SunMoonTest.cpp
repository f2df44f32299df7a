// Sun and Moon against independently computed places and sunrises ("validation": outside truth), and the edges of the
// calendar.

#include <cmath>
#include <limits>
#include <random>
#include <string>

#include <gtest/gtest.h>

#include "orbit/Frames.h"
#include "orbit/SunMoon.h"
#include "orbit/TerrestrialTime.h"
#include "platform/Fault.h"
#include "platform/SerialDate.h"

#include "ReferenceData.h"

namespace kestrava::orbit {
namespace {

constexpr double kSunDeg = 0.003;
constexpr double kMoonDeg = 0.01;

// Angle between two directions, degrees; exact for small ones too.
double Apart(double azimuth1, double elevation1, double azimuth2, double elevation2) {
  const auto direction = [](double azimuth, double elevation) {
    return Vec3{std::cos(elevation) * std::cos(azimuth), std::cos(elevation) * std::sin(azimuth), std::sin(elevation)};
  };
  const Vec3 a = direction(azimuth1, elevation1);
  const Vec3 b = direction(azimuth2, elevation2);
  return std::atan2(Length(Cross(a, b)), Dot(a, b)) / kRadPerDeg;
}

Observer ObserverOf(const reference::Row& row) {
  return {row.Number("obs_lat_deg"), row.Number("obs_lon_deg"), row.Number("obs_h_m")};
}

void ExpectPlace(const reference::Row& row, const BodyPlace& place, double toleranceDeg) {
  EXPECT_LT(
      Apart(place.azimuthRad, place.elevationRad, row.Number("az_deg") * kRadPerDeg, row.Number("el_deg") * kRadPerDeg),
      toleranceDeg);
  EXPECT_LT(Apart(place.subLongitudeRad, place.subLatitudeRad, row.Number("sub_lon_deg") * kRadPerDeg,
                  row.Number("sub_lat_deg") * kRadPerDeg),
            toleranceDeg);
  EXPECT_NEAR(place.rangeKm / row.Number("range_km"), 1, 2e-4);
  EXPECT_NEAR(place.distanceKm / row.Number("geo_dist_km"), 1, 2e-4);
  EXPECT_NEAR(place.heightKm / row.Number("sub_h_km"), 1, 2e-4);
  EXPECT_GE(place.azimuthRad, 0);
  EXPECT_LT(place.azimuthRad, kTurn);
  EXPECT_GE(place.subLongitudeRad, 0);
  EXPECT_LT(place.subLongitudeRad, kTurn);
}

const Observer kSomewhere{47.4, 8.5, 450};

}  // namespace

TEST(SunMoon, PlacesAgreeWithTheReference) {
  const reference::Table table("reference/sunmoon.csv");
  ASSERT_EQ(table.Rows().size(), 180U);
  for (const reference::Row& row : table.Rows()) {
    SCOPED_TRACE(row.Text("utc") + " " + row.Text("body"));
    const Observer observer = ObserverOf(row);
    if (row.Text("body") == "sun") {
      ExpectPlace(row, PlaceOfSun(row.Number("serial"), observer), kSunDeg);
      continue;
    }
    const MoonPlace moon = PlaceOfMoon(row.Number("serial"), observer);
    ExpectPlace(row, moon, kMoonDeg);
    EXPECT_NEAR(std::remainder(moon.phaseRad - row.Number("phase_rad"), kTurn), 0, 0.0005);
    EXPECT_GE(moon.phaseRad, -kHalfTurn);
    EXPECT_LT(moon.phaseRad, kHalfTurn);
  }
}

TEST(SunMoon, TheSunStandsOnTheHorizonAtTheSunrisesAndSunsetsOfTheReference) {
  const reference::Table table("reference/sunrise.csv");
  int events = 0;
  for (const reference::Row& row : table.Rows()) {
    SCOPED_TRACE(row.Text("date") + " " + row.Text("event"));
    const Observer observer = ObserverOf(row);
    const std::string& date = row.Text("date");
    const auto number = [](const std::string& text, std::size_t at, std::size_t size) {
      return std::stoi(text.substr(at, size));
    };
    const double midnight = platform::MakeSerial({number(date, 0, 4), number(date, 5, 2), number(date, 8, 2), 0, 0, 0});
    if (row.IsEmpty("utc_tenths")) {
      const bool up = row.Text("event") == "always_up";
      for (int hour = 0; hour < 24; ++hour) {
        EXPECT_EQ(PlaceOfSun(midnight + hour / 24.0, observer).elevationRad > 0, up);
      }
      continue;
    }
    const std::string& utc = row.Text("utc_tenths");
    const double seconds =
        number(utc, 11, 2) * 3600 + number(utc, 14, 2) * 60 + number(utc, 17, 2) + number(utc, 20, 1) / 10.0;
    const double elevationDeg = PlaceOfSun(midnight + seconds / 86400, observer).elevationRad / kRadPerDeg;
    EXPECT_LT(std::abs(elevationDeg), std::max(0.003, row.Number("el_rate_deg_per_s")));
    ++events;
  }
  EXPECT_GT(events, 30);
}

TEST(SunMoon, NewAndFullMoonStandAtTheEndsAndTheMiddleOfThePhase) {
  // Full moon 2026-11-24 14:53, new moon 2026-12-09 00:52 (published almanac times, to the minute).
  const double full = platform::MakeSerial({2026, 11, 24, 14, 53, 0});
  const double dark = platform::MakeSerial({2026, 12, 9, 0, 52, 0});
  EXPECT_NEAR(PlaceOfMoon(full, kSomewhere).phaseRad, 0, 0.0005);
  EXPECT_LT(PlaceOfMoon(full - 3, kSomewhere).phaseRad, 0);
  EXPECT_GT(PlaceOfMoon(full + 3, kSomewhere).phaseRad, 0);
  EXPECT_NEAR(std::abs(PlaceOfMoon(dark, kSomewhere).phaseRad), kHalfTurn, 0.0005);
  EXPECT_GT(PlaceOfMoon(dark - 1, kSomewhere).phaseRad, 2.9);
  EXPECT_LT(PlaceOfMoon(dark + 1, kSomewhere).phaseRad, -2.9);
}

TEST(SunMoon, TheMoonIsShiftedByParallax) {
  const double serial = platform::MakeSerial({2026, 11, 15, 0, 0, 0});
  const BodyPlace here = PlaceOfMoon(serial, kSomewhere);
  const BodyPlace farUp = PlaceOfMoon(serial, {47.4, 8.5, -6.3e6});
  EXPECT_GT(std::abs(here.elevationRad - farUp.elevationRad) / kRadPerDeg, 0.1);
}

TEST(SunMoon, TheBodyIsInTheZenithOfItsSubPoint) {
  std::mt19937 random(20261121);
  std::uniform_real_distribution<double> serials(26300, 73000);  // 1972 to 2099
  for (int i = 0; i < 200; ++i) {
    const double serial = serials(random);
    const BodyPlace sun = PlaceOfSun(serial, kSomewhere);
    const MoonPlace moon = PlaceOfMoon(serial, kSomewhere);
    for (const BodyPlace& place : {sun, static_cast<const BodyPlace&>(moon)}) {
      const Observer below{place.subLatitudeRad / kRadPerDeg, place.subLongitudeRad / kRadPerDeg, 0};
      const bool isSun = place.distanceKm > 1e7;
      const BodyPlace there = isSun ? PlaceOfSun(serial, below) : PlaceOfMoon(serial, below);
      EXPECT_GT(there.elevationRad / kRadPerDeg, 89.999) << "seed 20261121, serial " << serial;
      EXPECT_NEAR(there.rangeKm, place.heightKm, 0.5);
    }
  }
}

TEST(SunMoon, RangeRateIsTheRateOfTheRange) {
  for (double serial = 40000; serial < 40400; serial += 17.3) {
    constexpr double kStepS = 60;
    const auto rate = [&](const auto& place) {
      return (place(serial + kStepS / 86400, kSomewhere).rangeKm - place(serial - kStepS / 86400, kSomewhere).rangeKm) /
             (2 * kStepS);
    };
    EXPECT_NEAR(PlaceOfMoon(serial, kSomewhere).rangeRateKmS, rate(PlaceOfMoon), 0.001);
    EXPECT_NEAR(PlaceOfSun(serial, kSomewhere).rangeRateKmS, rate(PlaceOfSun), 0.005);
  }
}

TEST(SunMoon, DescendingMeansTheSubPointMovesSouth) {
  for (double serial = 46000; serial < 46400; serial += 3.7) {
    const auto south = [&](const auto& place) {
      return place(serial + 0.01, kSomewhere).subLatitudeRad < place(serial - 0.01, kSomewhere).subLatitudeRad;
    };
    EXPECT_EQ(PlaceOfSun(serial, kSomewhere).descending, south(PlaceOfSun)) << serial;
    EXPECT_EQ(PlaceOfMoon(serial, kSomewhere).descending, south(PlaceOfMoon)) << serial;
  }
}

TEST(SunMoon, PlacesDoNotDependOnWhatWasAskedBefore) {
  const double serial = 46341.3;
  const BodyPlace first = PlaceOfSun(serial, kSomewhere);
  for (int day = 0; day < 40; ++day) PlaceOfSun(46300.5 + day * 3, kSomewhere);
  const BodyPlace again = PlaceOfSun(serial, kSomewhere);
  EXPECT_EQ(first.azimuthRad, again.azimuthRad);
  EXPECT_EQ(first.elevationRad, again.elevationRad);
  EXPECT_EQ(first.rangeKm, again.rangeKm);
}

TEST(SunMoon, PlacesGoOnSmoothlyOverMidnight) {
  const double midnight = 46341 - 69.184 / 86400;  // of Terrestrial Time
  const double before = PlaceOfSun(midnight - 1e-6, kSomewhere).elevationRad;
  const double at = PlaceOfSun(midnight, kSomewhere).elevationRad;
  const double after = PlaceOfSun(midnight + 1e-6, kSomewhere).elevationRad;
  EXPECT_NEAR(at - before, after - at, 1e-10);
}

TEST(SunMoon, AnEasternLongitudeOf360IsZero) {
  const BodyPlace turn = PlaceOfSun(46341.3, {51.5, 360, 10});
  const BodyPlace zero = PlaceOfSun(46341.3, {51.5, 0, 10});
  EXPECT_NEAR(turn.azimuthRad, zero.azimuthRad, 1e-12);
  EXPECT_NEAR(turn.elevationRad, zero.elevationRad, 1e-12);
}

TEST(SunMoon, AHeightAsLargeAsASatellitesIsTaken) {
  const BodyPlace ground = PlaceOfSun(46341.3, {10, 20, 0});
  const BodyPlace high = PlaceOfSun(46341.3, {10, 20, 35786});
  EXPECT_NEAR(ground.elevationRad, high.elevationRad, 1e-5);
}

TEST(SunMoon, ThePolesAreOrdinaryPlaces) {
  const BodyPlace north = PlaceOfSun(46380, {90, 0, 0});
  const BodyPlace south = PlaceOfSun(46380, {-90, 0, 0});
  EXPECT_NEAR(north.elevationRad / kRadPerDeg, north.subLatitudeRad / kRadPerDeg, 0.01);
  EXPECT_NEAR(south.elevationRad / kRadPerDeg, -south.subLatitudeRad / kRadPerDeg, 0.01);
}

TEST(SunMoon, WhatIsNoDateIsAnOverflow) {
  for (const double serial :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(), 1e300}) {
    EXPECT_THROW(PlaceOfSun(serial, kSomewhere), platform::Fault);
    EXPECT_THROW(PlaceOfMoon(serial, kSomewhere), platform::Fault);
  }
}

TEST(SunMoon, TheSunsElevationNeverChangesFasterThanItsBound) {
  for (const double latitudeDeg : {-90.0, -66.0, -35.6, 0.0, 47.4, 69.6, 89.9}) {
    const Observer observer{latitudeDeg, 8.5, 100};
    const double boundDeg = SunElevationRateBoundDegPerMin(latitudeDeg);
    double fastestDeg = 0;
    for (double day = 46341; day < 46341 + 366; day += 10.3) {
      for (int minute = 0; minute < 1440; minute += 7) {
        const double from = day + minute / 1440.0;
        const double change =
            PlaceOfSun(from + 1 / 1440.0, observer).elevationRad - PlaceOfSun(from, observer).elevationRad;
        fastestDeg = std::max(fastestDeg, std::abs(change) / kRadPerDeg);
      }
    }
    EXPECT_LE(fastestDeg, boundDeg) << latitudeDeg;
    EXPECT_GT(fastestDeg, boundDeg - 0.003) << latitudeDeg;
  }
}

TEST(TerrestrialTime, LeapSecondsBeginAndEndWithTheTable) {
  EXPECT_DOUBLE_EQ(TerrestrialMinusUniversalS(20000), 42.184);
  EXPECT_DOUBLE_EQ(TerrestrialMinusUniversalS(platform::MakeSerial({1972, 1, 1, 0, 0, 0})), 42.184);
  EXPECT_DOUBLE_EQ(TerrestrialMinusUniversalS(platform::MakeSerial({1972, 6, 30, 23, 59, 59})), 42.184);
  EXPECT_DOUBLE_EQ(TerrestrialMinusUniversalS(platform::MakeSerial({1972, 7, 1, 0, 0, 0})), 43.184);
  EXPECT_DOUBLE_EQ(TerrestrialMinusUniversalS(platform::MakeSerial({2005, 12, 31, 23, 59, 59})), 64.184);
  EXPECT_DOUBLE_EQ(TerrestrialMinusUniversalS(platform::MakeSerial({2006, 1, 1, 0, 0, 0})), 65.184);
  EXPECT_DOUBLE_EQ(TerrestrialMinusUniversalS(platform::MakeSerial({2016, 12, 31, 23, 59, 59})), 68.184);
  EXPECT_DOUBLE_EQ(TerrestrialMinusUniversalS(platform::MakeSerial({2017, 1, 1, 0, 0, 0})), 69.184);
  EXPECT_DOUBLE_EQ(TerrestrialMinusUniversalS(platform::MakeSerial({2100, 1, 1, 0, 0, 0})), 69.184);
}

}  // namespace kestrava::orbit
