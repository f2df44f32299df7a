// Rises, sets and passes against independently computed ones ("validation": outside truth), against a plain stepping
// search, and by what must hold for every pass.

#include <algorithm>
#include <cmath>
#include <iostream>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/Frames.h"
#include "orbit/PassSearch.h"

#include "ReferenceData.h"

namespace kestrava::orbit {
namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr double kToleranceS = 0.05;
constexpr double kStartSerial = 46341;  // 2026-11-15 0h, where the reference begins
constexpr double kSpanDays = 3;
constexpr unsigned kSeed = 20261121;

const std::map<int, Sgp4>& Satellites() {
  static const std::map<int, Sgp4> satellites = [] {
    std::map<int, Sgp4> made;
    for (const auto& [number, set] : reference::Sets()) made.emplace(number, Sgp4(set));
    return made;
  }();
  return satellites;
}

Observer ObserverOf(const reference::Row& row) {
  return {row.Number("obs_lat_deg"), row.Number("obs_lon_deg"), row.Number("obs_h_m")};
}

// Elevation by the plain way: state, turn, look angle. Nothing where the model fails.
std::optional<double> ElevationDeg(const Sgp4& satellite, const Observer& observer, double serial) {
  const Sgp4State state = satellite.Propagate(satellite.MinutesSinceEpoch(serial));
  if (state.error != ModelError::kNone) return std::nullopt;
  const EarthTurn turn = EarthTurn::At(GreenwichMeanSiderealTime(serial));
  return LookFrom(observer, EarthFixedFromTeme(turn, state.positionKm, state.velocityKmS)).elevationRad / kRadPerDeg;
}

// A stay above the horizon as plain stepping sees it.
struct Seen {
  double firstSerial = 0;  // moments known above
  double lastSerial = 0;
  double highestDeg = -90;
};

std::vector<Seen> StaysByStepping(const Sgp4& satellite, const Observer& observer, double stepS, double days) {
  std::vector<Seen> stays;
  bool wasAbove = false;
  for (double serial = kStartSerial; serial < kStartSerial + days; serial += stepS / kSecondsPerDay) {
    const std::optional<double> elevation = ElevationDeg(satellite, observer, serial);
    if (!elevation) break;
    const bool above = *elevation > 0;
    if (above && !wasAbove) stays.push_back({serial, serial, *elevation});
    if (above) {
      stays.back().lastSerial = serial;
      stays.back().highestDeg = std::max(stays.back().highestDeg, *elevation);
    }
    wasAbove = above;
  }
  return stays;
}

ElementSet RoundOrbit(double revolutionsPerDay, double inclinationDeg, double eccentricity = 0.0005) {
  ElementSet set;
  set.name = "TEST";
  set.catalogueNumber = 99999;
  set.epoch = {kStartSerial, 0};
  set.meanMotionRevPerDay = revolutionsPerDay;
  set.inclinationDeg = inclinationDeg;
  set.eccentricity = eccentricity;
  return set;
}

constexpr double kSynchronous = 1.00273790935;

Observer AnyObserver(std::mt19937& random) {
  std::uniform_real_distribution<double> sine(-1, 1);
  std::uniform_real_distribution<double> longitude(0, 360);
  std::uniform_real_distribution<double> height(-400, 5000);
  const double latitudeDeg = std::asin(sine(random)) / kRadPerDeg;
  return {latitudeDeg, longitude(random), height(random)};
}

bool IsGivenByDay(const Pass& pass) {
  return pass.riseSerial == std::floor(pass.riseSerial) + 0.25 && pass.setSerial == pass.riseSerial + 0.5;
}

void ExpectPassHolds(const Sgp4& satellite, const Observer& observer, const Pass& pass) {
  if (!IsGivenByDay(pass)) {
    EXPECT_LT(pass.riseSerial, pass.highestSerial);
    EXPECT_LT(pass.highestSerial, pass.setSerial);
    EXPECT_NEAR(*ElevationDeg(satellite, observer, pass.riseSerial), 0, 1e-4);
    EXPECT_NEAR(*ElevationDeg(satellite, observer, pass.setSerial), 0, 1e-4);
  }
  const double highestDeg = pass.highestElevationRad / kRadPerDeg;
  EXPECT_NEAR(*ElevationDeg(satellite, observer, pass.highestSerial), highestDeg, 1e-3);
  for (int i = 1; i < 40; ++i) {
    const double serial = pass.riseSerial + (pass.setSerial - pass.riseSerial) * i / 40;
    const double elevationDeg = *ElevationDeg(satellite, observer, serial);
    EXPECT_GT(elevationDeg, 0);
    EXPECT_LE(elevationDeg, highestDeg + 1e-4);
  }
}

// No stay that stepping sees and that climbs above 0.05 degrees is missing, and every pass is one by the plain way.
void ExpectSameAsStepping(const Sgp4& satellite, const Observer& observer, double stepS, double days) {
  const std::vector<Pass> passes = Passes(satellite, observer, kStartSerial, days);
  for (const Seen& stay : StaysByStepping(satellite, observer, stepS, days)) {
    const bool found = std::any_of(passes.begin(), passes.end(), [&](const Pass& pass) {
      return pass.riseSerial <= stay.firstSerial && pass.setSerial >= stay.lastSerial;
    });
    const bool doesNotSet = NextSet(satellite, observer, stay.firstSerial) == kNoSuchMoment;
    EXPECT_TRUE(found || doesNotSet || stay.highestDeg < 0.05)
        << "missed: from " << stay.firstSerial << " to " << stay.lastSerial << ", " << stay.highestDeg << " degrees";
  }
  for (const Pass& pass : passes) ExpectPassHolds(satellite, observer, pass);
}

}  // namespace

TEST(PassSearch, PassesAgreeWithTheReference) {
  std::map<std::tuple<int, double, double>, std::vector<const reference::Row*>> pairs;
  const reference::Table table("reference/passes.csv");
  for (const reference::Row& row : table.Rows()) {
    pairs[{row.Whole("satnum"), row.Number("obs_lat_deg"), row.Number("obs_lon_deg")}].push_back(&row);
  }
  int compared = 0;
  for (const auto& [key, rows] : pairs) {
    SCOPED_TRACE(rows.front()->Text("name") + " from " + rows.front()->Text("obs_lat_deg"));
    const auto passes = Passes(Satellites().at(std::get<0>(key)), ObserverOf(*rows.front()), kStartSerial, kSpanDays);
    const std::string& status = rows.front()->Text("status");
    if (status == "never_rises") {
      EXPECT_TRUE(passes.empty());
    }
    if (status != "pass") continue;
    ASSERT_EQ(passes.size(), rows.size());
    for (std::size_t i = 0; i < passes.size(); ++i, ++compared) {
      const reference::Row& row = *rows[i];
      EXPECT_NEAR((passes[i].riseSerial - row.Number("aos_serial")) * kSecondsPerDay, 0, kToleranceS);
      EXPECT_NEAR((passes[i].setSerial - row.Number("los_serial")) * kSecondsPerDay, 0, kToleranceS);
      EXPECT_NEAR(passes[i].highestElevationRad / kRadPerDeg, row.Number("max_el_deg"), 0.001);
    }
  }
  EXPECT_EQ(compared, 302);
}

TEST(PassSearch, NearMissesOfTheReferenceAreNoPasses) {
  const reference::Table table("reference/near_misses.csv");
  ASSERT_EQ(table.Rows().size(), 6U);
  for (const reference::Row& row : table.Rows()) {
    const double serial = row.Number("serial");
    for (const Pass& pass : Passes(Satellites().at(row.Whole("satnum")), ObserverOf(row), serial - 0.01, 0.02)) {
      EXPECT_TRUE(pass.setSerial < serial || pass.riseSerial > serial) << row.Text("name");
    }
  }
}

TEST(PassSearch, NextRiseAndNextSetAgreeWithTheReference) {
  const reference::Table table("reference/next.csv");
  ASSERT_EQ(table.Rows().size(), 115U);
  for (const reference::Row& row : table.Rows()) {
    SCOPED_TRACE(row.Text("name") + " after " + row.Text("query_utc"));
    const Sgp4& satellite = Satellites().at(row.Whole("satnum"));
    const double rise = NextRise(satellite, ObserverOf(row), row.Number("query_serial"));
    const double set = NextSet(satellite, ObserverOf(row), row.Number("query_serial"));
    if (row.Number("next_aos_serial") < 0) {
      EXPECT_EQ(rise, -1.0);
    } else {
      EXPECT_NEAR((rise - row.Number("next_aos_serial")) * kSecondsPerDay, 0, kToleranceS);
    }
    if (row.IsEmpty("next_los_serial")) {
      EXPECT_EQ(set, -1.0);
    } else {
      EXPECT_NEAR((set - row.Number("next_los_serial")) * kSecondsPerDay, 0, kToleranceS);
    }
  }
}

TEST(PassSearch, NextSetOfARiseIsTheEndOfThatPass) {
  const Observer observer{47.4, 8.5, 450};
  for (const auto& [number, satellite] : Satellites()) {
    for (const Pass& pass : Passes(satellite, observer, kStartSerial, kSpanDays)) {
      if (NextSet(satellite, observer, kStartSerial) == kNoSuchMoment) continue;  // given by day
      const double rise = NextRise(satellite, observer, pass.riseSerial - 1e-4);
      EXPECT_NEAR((rise - pass.riseSerial) * kSecondsPerDay, 0, 0.001) << number;
      EXPECT_NEAR((NextSet(satellite, observer, rise) - pass.setSerial) * kSecondsPerDay, 0, 0.001) << number;
    }
  }
}

TEST(PassSearch, ASearchFromAnAnswerGoesOn) {
  const Sgp4& station = Satellites().at(42725);
  const Observer observer{47.4, 8.5, 450};
  const auto passes = Passes(station, observer, kStartSerial, kSpanDays);
  double serial = kStartSerial;
  for (const Pass& pass : passes) {
    serial = NextRise(station, observer, serial);
    EXPECT_NEAR((serial - pass.riseSerial) * kSecondsPerDay, 0, 0.001);
  }
  serial = kStartSerial;
  for (const Pass& pass : passes) {
    serial = NextSet(station, observer, serial);
    EXPECT_NEAR((serial - pass.setSerial) * kSecondsPerDay, 0, 0.001);
  }
}

TEST(PassSearch, TheRiseAfterASatelliteInViewIsThatOfTheNextPass) {
  const Sgp4& station = Satellites().at(42725);
  const Observer observer{47.4, 8.5, 450};
  const auto passes = Passes(station, observer, kStartSerial, kSpanDays);
  const double inView = (passes[1].riseSerial + passes[1].setSerial) / 2;
  EXPECT_NEAR((NextRise(station, observer, inView) - passes[2].riseSerial) * kSecondsPerDay, 0, 0.001);
  EXPECT_NEAR((NextSet(station, observer, inView) - passes[1].setSerial) * kSecondsPerDay, 0, 0.001);
}

TEST(PassSearch, AGeostationarySatelliteOnTheFarSideNeverRises) {
  ElementSet set = RoundOrbit(kSynchronous, 0.02);
  for (int meanAnomalyDeg = 0; meanAnomalyDeg < 360; meanAnomalyDeg += 10) {
    set.meanAnomalyDeg = meanAnomalyDeg;
    const Sgp4 satellite(set);
    const Observer observer{47.4, 8.5, 450};
    const double elevationDeg = *ElevationDeg(satellite, observer, kStartSerial);
    if (std::abs(elevationDeg) < 3) continue;  // may drift over the horizon
    EXPECT_EQ(NextRise(satellite, observer, kStartSerial), -1.0) << meanAnomalyDeg;
    EXPECT_EQ(NextSet(satellite, observer, kStartSerial), -1.0) << meanAnomalyDeg;
  }
}

TEST(PassSearch, AnOrbitThatDoesNotReachTheLatitudeNeverRises) {
  const Sgp4 low(RoundOrbit(15.5, 10));
  for (const double latitudeDeg : {-90.0, -60.0, 45.0, 90.0}) {
    EXPECT_EQ(NextRise(low, {latitudeDeg, 100, 0}, kStartSerial), -1.0);
    EXPECT_EQ(NextSet(low, {latitudeDeg, 100, 0}, kStartSerial), -1.0);
    EXPECT_TRUE(Passes(low, {latitudeDeg, 100, 0}, kStartSerial, 3).empty());
  }
  EXPECT_GT(NextRise(low, {25, 100, 0}, kStartSerial), kStartSerial);
}

TEST(PassSearch, ARareRiseIsFoundWithin30Days) {
  // A satellite that drifts slowly along the equator comes over the horizon only after weeks.
  ElementSet set = RoundOrbit(kSynchronous - 0.01, 0.05);  // 3.6 degrees a day, westwards
  const Observer observer{0, 0, 0};
  int late = 0;
  for (int meanAnomalyDeg = 0; meanAnomalyDeg < 360; meanAnomalyDeg += 15) {
    set.meanAnomalyDeg = meanAnomalyDeg;
    const Sgp4 satellite(set);
    if (*ElevationDeg(satellite, observer, kStartSerial) > -1) continue;
    double expected = -1;
    for (double serial = kStartSerial; serial < kStartSerial + 30 && expected < 0; serial += 0.02) {
      if (*ElevationDeg(satellite, observer, serial) > 0) expected = serial;
    }
    const double rise = NextRise(satellite, observer, kStartSerial);
    if (expected < 0) continue;
    EXPECT_NEAR(rise, expected, 0.02) << meanAnomalyDeg;
    late += rise > kStartSerial + 20;
  }
  EXPECT_GT(late, 0);
}

TEST(PassSearch, ASearchThatMeetsAModelErrorAnswersMinusOne) {
  const Observer observer{47.4, 8.5, 450};
  int failing = 0;
  for (const auto& [number, satellite] : Satellites()) {
    const double last = satellite.Epoch().Serial() + 400;
    if (satellite.Propagate(satellite.MinutesSinceEpoch(last)).error == ModelError::kNone) continue;
    ++failing;
    EXPECT_EQ(NextRise(satellite, observer, last), -1.0) << number;
    EXPECT_EQ(NextSet(satellite, observer, last), -1.0) << number;
    EXPECT_TRUE(Passes(satellite, observer, last, 3).empty()) << number;
    double serial = satellite.Epoch().Serial();
    for (int guard = 0; guard < 100000; ++guard) {  // to the last rise before the end
      const double next = NextRise(satellite, observer, serial);
      if (next == kNoSuchMoment) break;
      EXPECT_GT(next, serial);
      serial = next;
    }
    EXPECT_LT(serial, last);
  }
  EXPECT_GE(failing, 2);
}

TEST(PassSearch, WhatIsNoMomentHasNoRise) {
  const Observer observer{47.4, 8.5, 450};
  for (const int number : {42725, 28874, 28912}) {
    for (const double serial : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, -1e300}) {
      EXPECT_EQ(NextRise(Satellites().at(number), observer, serial), -1.0);
      EXPECT_EQ(NextSet(Satellites().at(number), observer, serial), -1.0);
      EXPECT_TRUE(Passes(Satellites().at(number), observer, serial, 3).empty());
    }
  }
}

TEST(PassSearch, APassUnderWayStandsWithItsTrueRise) {
  const Sgp4& station = Satellites().at(42725);
  const Observer observer{47.4, 8.5, 450};
  const Pass whole = Passes(station, observer, kStartSerial, kSpanDays).front();
  const double within = whole.riseSerial + 0.7 * (whole.setSerial - whole.riseSerial);
  const Pass cut = Passes(station, observer, within, 1).front();
  EXPECT_NEAR((cut.riseSerial - whole.riseSerial) * kSecondsPerDay, 0, 0.001);
  EXPECT_NEAR((cut.setSerial - whole.setSerial) * kSecondsPerDay, 0, 0.001);
  EXPECT_NEAR((cut.highestSerial - whole.highestSerial) * kSecondsPerDay, 0, 0.01);
}

TEST(PassSearch, PassesThatStartInTheSpanAreAllThereIs) {
  const Sgp4& station = Satellites().at(42725);
  const Observer observer{47.4, 8.5, 450};
  const auto all = Passes(station, observer, kStartSerial, 6);
  const auto some = Passes(station, observer, kStartSerial, kSpanDays);
  ASSERT_LT(some.size(), all.size());
  EXPECT_LT(some.back().riseSerial, kStartSerial + kSpanDays);
  EXPECT_GE(all[some.size()].riseSerial, kStartSerial + kSpanDays);
}

TEST(PassSearch, AnObjectThatDoesNotSetIsGivenByDay) {
  const Sgp4& weather = Satellites().at(28912);
  const auto passes = Passes(weather, {47.4, 8.5, 450}, kStartSerial, kSpanDays);
  ASSERT_EQ(passes.size(), 3U);
  for (int day = 0; day < 3; ++day) {
    const Pass& pass = passes[static_cast<std::size_t>(day)];
    EXPECT_DOUBLE_EQ(pass.riseSerial, kStartSerial + day + 0.25);
    EXPECT_DOUBLE_EQ(pass.setSerial, kStartSerial + day + 0.75);
    EXPECT_NEAR(pass.highestElevationRad / kRadPerDeg, 6.5, 2.3);
    EXPECT_GE(pass.highestSerial, pass.riseSerial);
    EXPECT_LE(pass.highestSerial, pass.setSerial);
  }
}

TEST(PassSearch, OnlyDaysWhollyAboveTheHorizonAreGiven) {
  // A satellite that creeps eastwards along the equator, half a degree a day: it rises within the span and then stays
  // for months.
  ElementSet set = RoundOrbit(kSynchronous + 0.0014, 0.05);
  const Observer observer{0, 0, 0};
  bool met = false;
  for (double meanAnomalyDeg = 0; meanAnomalyDeg < 360 && !met; meanAnomalyDeg += 0.5) {
    set.meanAnomalyDeg = meanAnomalyDeg;
    const Sgp4 satellite(set);
    const double rise = NextRise(satellite, observer, kStartSerial);
    if (rise < 0 || rise > kStartSerial + 1 || NextSet(satellite, observer, rise) > 0) continue;
    if (*ElevationDeg(satellite, observer, kStartSerial) > 0) continue;
    met = true;
    const auto passes = Passes(satellite, observer, kStartSerial, kSpanDays);
    ASSERT_EQ(passes.size(), 2U);
    EXPECT_DOUBLE_EQ(passes[0].riseSerial, kStartSerial + 1.25);
    EXPECT_DOUBLE_EQ(passes[1].riseSerial, kStartSerial + 2.25);
  }
  EXPECT_TRUE(met);
}

TEST(PassSearch, FindsWhatSteppingFindsOnRealOrbits) {
  std::cout << "seed " << kSeed << "\n";
  std::mt19937 random(kSeed);
  for (const auto& [number, satellite] : Satellites()) {
    for (int i = 0; i < 3; ++i) {
      const Observer observer = AnyObserver(random);
      SCOPED_TRACE(std::to_string(number) + " from " + std::to_string(observer.latitudeDeg) + " " +
                   std::to_string(observer.longitudeEastDeg));
      ExpectSameAsStepping(satellite, observer, satellite.IsDeepSpace() ? 60 : 15, 1.5);
    }
  }
}

TEST(PassSearch, FindsWhatSteppingFindsAtThePolesAndOnAPeak) {
  for (const Observer& observer : {Observer{90, 0, 0}, Observer{-90, 123, 2835}, Observer{27.99, 86.93, 8849}}) {
    SCOPED_TRACE("latitude " + std::to_string(observer.latitudeDeg));
    for (const auto& [number, satellite] : Satellites()) {
      SCOPED_TRACE(number);
      ExpectSameAsStepping(satellite, observer, satellite.IsDeepSpace() ? 60 : 15, 1);
    }
  }
}

TEST(PassSearch, FindsWhatSteppingFindsOnOrbitsOfAllShapes) {
  std::cout << "seed " << kSeed << "\n";
  std::mt19937 random(kSeed);
  std::uniform_real_distribution<double> unit(0, 1);
  int tried = 0;
  for (int i = 0; i < 150; ++i) {
    ElementSet set = RoundOrbit(0.2 + 16.0 * std::pow(unit(random), 2), 180 * unit(random));
    const double semiMajorKm = 42241.1 / std::pow(set.meanMotionRevPerDay, 2.0 / 3);
    set.eccentricity = std::max(0.0, 1 - 6600 / semiMajorKm) * std::min(0.97, unit(random));
    set.ascendingNodeDeg = 360 * unit(random);
    set.argumentOfPerigeeDeg = 360 * unit(random);
    set.meanAnomalyDeg = 360 * unit(random);
    set.dragTermPerEarthRadius = 1e-4 * unit(random);
    const Sgp4 satellite(set);
    const Observer observer = AnyObserver(random);
    if (!ElevationDeg(satellite, observer, kStartSerial)) continue;
    ++tried;
    SCOPED_TRACE("orbit " + std::to_string(i) + ", revolutions a day " + std::to_string(set.meanMotionRevPerDay) +
                 ", eccentricity " + std::to_string(set.eccentricity));
    ExpectSameAsStepping(satellite, observer, 20, 1);
  }
  EXPECT_GT(tried, 100);
}

}  // namespace kestrava::orbit
