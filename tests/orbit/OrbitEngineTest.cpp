// The engine's members as the system calls them: positions against independent values, and the cases at the edges.

#include <algorithm>
#include <cmath>
#include <map>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "orbit/PassSearch.h"
#include "platform/Fault.h"
#include "platform/SerialDate.h"
#include "platform/Text.h"

#include "ReferenceData.h"
#include "support/House.h"

namespace kestrava::orbit {
namespace {

/// What CalcPosition gives, with marks that show what a failing call left alone.
struct Results {
  std::int16_t descending = 77, unused = 78;
  double azimuth = 1001, elevation = 1002, longitude = 1003, latitude = 1004, range = 1005, rate = 1006, height = 1007,
         phase = 1008;

  bool operator==(const Results&) const = default;
};

Results Position(OrbitEngine& engine, std::string_view name, double utcSerial) {
  Results r;
  engine.CalcPosition(name, engine.EngineTime(utcSerial), 0, 0, r.descending, r.azimuth, r.elevation, r.longitude,
                      r.latitude, r.range, r.rate, r.height, r.phase, r.unused);
  return r;
}

/// Angle in the sky between two directions, degrees.
double Apart(double az1, double el1, double az2, double el2) {
  const auto way = [](double az, double el) {
    return Vec3{std::cos(el) * std::cos(az), std::cos(el) * std::sin(az), std::sin(el)};
  };
  const Vec3 a = way(az1, el1), b = way(az2, el2);
  return std::atan2(Length(Cross(a, b)), Dot(a, b)) / kRadPerDeg;
}

std::string WithoutQuotes(std::string_view text) {
  return platform::ReplaceAll(text, "\"", "");
}

class OrbitEngineTest : public testing::House {
 protected:
  OrbitEngineTest() {
    Put("reference.txt", reference::FileBytes("reference/elements.txt"));
    engine_.SetDataFolder(platform::AppDir);
    Observe(47.4, 8.5, 450);
  }

  void Observe(double north, double east, double metres) {
    engine_.SetObserverLatitude(north);
    engine_.SetObserverLongitude(east);
    engine_.SetObserverHeight(metres);
  }

  OrbitEngine engine_;
};

constexpr double kMidNovember2026 = 46341;  // the sets' epochs lie around it

TEST_F(OrbitEngineTest, GivesTheReferenceLookAngles) {
  const reference::Table table("reference/lookangles.csv");
  ASSERT_EQ(table.Rows().size(), 432U);
  for (const reference::Row& row : table.Rows()) {
    Observe(row.Number("obs_lat_deg"), row.Number("obs_lon_deg"), row.Number("obs_h_m"));
    const Results r = Position(engine_, row.Text("name"), row.Number("serial"));
    const std::string where = row.Text("name") + " at " + row.Text("utc");
    EXPECT_LT(Apart(r.azimuth, r.elevation, row.Number("az_deg") * kRadPerDeg, row.Number("el_deg") * kRadPerDeg),
              0.001)
        << where;
    EXPECT_LT(
        Apart(r.longitude, r.latitude, row.Number("sub_lon_deg") * kRadPerDeg, row.Number("sub_lat_deg") * kRadPerDeg),
        0.001)
        << where;
    EXPECT_NEAR(r.range, row.Number("range_km"), 0.001) << where;
    EXPECT_NEAR(r.rate, row.Number("range_rate_kms"), 1e-5) << where;
    EXPECT_NEAR(r.height, row.Number("sub_h_km"), 0.001) << where;
    EXPECT_GE(r.longitude, 0) << where;
    EXPECT_LT(r.longitude, kTurn) << where;
    const double fraction = engine_.OrbitPhase() - std::floor(engine_.OrbitPhase());
    EXPECT_NEAR(WrapHalfTurn((fraction - row.Number("phase_frac")) * kTurn) / kTurn, 0, 1e-5) << where;
    EXPECT_LE(std::abs(engine_.OrbitNumber() - row.Whole("orbit")), 1) << where;
    if (row.Text("name") != "HIMAWARI-8") {  // hardly moves in latitude: either is right
      EXPECT_EQ(r.descending, row.Whole("descending") != 0 ? -1 : 0) << where;
    }
    EXPECT_EQ(r.phase, 0) << where;
  }
}

TEST_F(OrbitEngineTest, GivesTheReferenceSunAndMoon) {
  const reference::Table table("reference/sunmoon.csv");
  ASSERT_EQ(table.Rows().size(), 180U);
  for (const reference::Row& row : table.Rows()) {
    Observe(row.Number("obs_lat_deg"), row.Number("obs_lon_deg"), row.Number("obs_h_m"));
    const bool isMoon = row.Text("body") == "moon";
    const Results r = Position(engine_, row.Text("body"), row.Number("serial"));
    const std::string where = row.Text("body") + " at " + row.Text("utc");
    const double tolerance = isMoon ? 0.01 : 0.003;
    EXPECT_LT(Apart(r.azimuth, r.elevation, row.Number("az_deg") * kRadPerDeg, row.Number("el_deg") * kRadPerDeg),
              tolerance)
        << where;
    EXPECT_LT(
        Apart(r.longitude, r.latitude, row.Number("sub_lon_deg") * kRadPerDeg, row.Number("sub_lat_deg") * kRadPerDeg),
        tolerance)
        << where;
    const double height = row.Number(isMoon ? "geo_dist_km" : "sub_h_km");
    EXPECT_NEAR(r.height, height, 2e-4 * height) << where;
    if (isMoon) {
      EXPECT_NEAR(WrapHalfTurn(r.phase - row.Number("phase_rad")), 0, 0.0005) << where;
    } else {
      EXPECT_EQ(r.phase, 0) << where;
    }
    EXPECT_EQ(engine_.OrbitNumber(), 0);
    EXPECT_EQ(engine_.OrbitPhase(), 0);
  }
}

TEST_F(OrbitEngineTest, RunsTheMoonsPhaseFromMinusPiToPi) {
  double latest = -10;
  int newMoons = 0, negative = 0, positive = 0;
  for (double day = 0; day < 60; day += 0.25) {
    const double phase = Position(engine_, "moon", kMidNovember2026 + day).phase;
    EXPECT_GE(phase, -kHalfTurn);
    EXPECT_LE(phase, kHalfTurn);
    if (phase < latest) ++newMoons;  // it grows but at new moon
    (phase < 0 ? negative : positive)++;
    latest = phase;
  }
  EXPECT_EQ(newMoons, 2);
  EXPECT_GT(negative, 80);
  EXPECT_GT(positive, 80);
}

TEST_F(OrbitEngineTest, NeverCountsSunAndMoonAmongTheSatellites) {
  EXPECT_EQ(engine_.SatelliteNames().find("\"sun\""), std::string::npos);
  EXPECT_EQ(engine_.SatelliteNames().find("\"moon\""), std::string::npos);
  EXPECT_THROW(Position(engine_, "Sun", kMidNovember2026), platform::Fault);  // they are lower case
  EXPECT_THROW(Position(engine_, "MOON", kMidNovember2026), platform::Fault);
}

TEST_F(OrbitEngineTest, TakesALongitudeOf360ForZero) {
  Observe(50, 0, 0);
  const Results zero = Position(engine_, "ISS (ZARYA)", kMidNovember2026);
  const Results sunAtZero = Position(engine_, "sun", kMidNovember2026);
  Observe(50, 360, 0);
  EXPECT_EQ(engine_.ObserverLongitude(), 360);
  const Results full = Position(engine_, "ISS (ZARYA)", kMidNovember2026);
  EXPECT_NEAR(zero.azimuth, full.azimuth, 1e-12);
  EXPECT_NEAR(zero.elevation, full.elevation, 1e-12);
  EXPECT_NEAR(sunAtZero.elevation, Position(engine_, "sun", kMidNovember2026).elevation, 1e-12);
}

TEST_F(OrbitEngineTest, TakesASatellitesHeightForTheObservers) {
  Observe(10, 20, 35786);  // km written where metres belong, as the sunlight test of the system does
  EXPECT_EQ(engine_.ObserverHeight(), 35786);
  const double high = Position(engine_, "sun", kMidNovember2026 + 0.3).elevation;
  Observe(10, 20, 0);
  EXPECT_NEAR(high, Position(engine_, "sun", kMidNovember2026 + 0.3).elevation, 1e-5);
}

TEST_F(OrbitEngineTest, ReadsBackTheObserverAsItWasSet) {
  Observe(-35.6, 148.9, 600);
  EXPECT_EQ(engine_.ObserverLatitude(), -35.6);
  EXPECT_EQ(engine_.ObserverLongitude(), 148.9);
  EXPECT_EQ(engine_.ObserverHeight(), 600);
}

TEST_F(OrbitEngineTest, KeepsAnObserverForEachInstance) {
  OrbitEngine other;
  other.SetDataFolder(platform::AppDir);
  other.SetObserverLatitude(-80);
  EXPECT_EQ(engine_.ObserverLatitude(), 47.4);
  const double ours = Position(engine_, "ISS (ZARYA)", kMidNovember2026).azimuth;
  EXPECT_NE(Position(other, "ISS (ZARYA)", kMidNovember2026).azimuth, ours);
  EXPECT_EQ(Position(engine_, "ISS (ZARYA)", kMidNovember2026).azimuth, ours);
}

TEST_F(OrbitEngineTest, AnswersTheOrbitPhaseTwiceTheSame) {
  Position(engine_, "ISS (ZARYA)", kMidNovember2026 + 0.123);
  const double first = engine_.OrbitPhase();
  EXPECT_EQ(engine_.OrbitPhase(), first);
  EXPECT_NE(first - std::floor(first), 0);
}

TEST_F(OrbitEngineTest, LeavesTheStateVectorOfTheLatestPosition) {
  Position(engine_, "ISS (ZARYA)", kMidNovember2026);
  const Sgp4State expected = engine_.Propagate("ISS (ZARYA)", kMidNovember2026);
  double x = 0, y = 0, z = 0, vx = 0, vy = 0, vz = 0;
  engine_.StateVector(x, y, z, vx, vy, vz);
  EXPECT_EQ((Vec3{x, y, z}), expected.positionKm);
  EXPECT_EQ((Vec3{vx, vy, vz}), expected.velocityKmS);
  Position(engine_, "sun", kMidNovember2026);
  EXPECT_EQ(engine_.OrbitNumber(), 0);
}

TEST_F(OrbitEngineTest, AnswersZerosBeforeTheFirstPosition) {
  const OrbitEngine fresh;
  double x = 1, y = 1, z = 1, vx = 1, vy = 1, vz = 1;
  fresh.StateVector(x, y, z, vx, vy, vz);
  EXPECT_EQ(x + y + z + vx + vy + vz, 0);
  EXPECT_EQ(fresh.OrbitNumber(), 0);
  EXPECT_EQ(fresh.OrbitPhase(), 0);
}

TEST_F(OrbitEngineTest, LeavesEverythingAloneForAnUnknownName) {
  Position(engine_, "ISS (ZARYA)", kMidNovember2026);
  const std::int32_t orbit = engine_.OrbitNumber();
  const double phase = engine_.OrbitPhase();
  Results r;
  EXPECT_THROW(engine_.CalcPosition("NOBODY", 9000, 0, 0, r.descending, r.azimuth, r.elevation, r.longitude, r.latitude,
                                    r.range, r.rate, r.height, r.phase, r.unused),
               platform::Fault);
  EXPECT_EQ(r, Results{});
  EXPECT_EQ(engine_.OrbitNumber(), orbit);
  EXPECT_EQ(engine_.OrbitPhase(), phase);
  EXPECT_THROW(engine_.NextAOSTime("NOBODY", kMidNovember2026), platform::Fault);
  EXPECT_THROW(engine_.NextLOSTime("NOBODY", kMidNovember2026), platform::Fault);
  EXPECT_THROW(engine_.CalcPassList("NOBODY", kMidNovember2026, 1, 3, 0, 0), platform::Fault);
}

TEST_F(OrbitEngineTest, SaysWhichNameItDoesNotKnow) {
  try {
    Position(engine_, "NOBODY", kMidNovember2026);
    FAIL();
  } catch (const platform::Fault& fault) {
    EXPECT_STREQ(fault.what(), "No element set for \"NOBODY\"");
  }
}

TEST_F(OrbitEngineTest, TakesAModelErrorForAFault) {
  Results r;
  const reference::Table table("reference/states.csv");
  int seen = 0;
  for (const reference::Row& row : table.Rows()) {
    if (row.Whole("error") == 0) continue;
    ++seen;
    EXPECT_THROW(
        engine_.CalcPosition(row.Text("name"), engine_.EngineTime(row.Number("serial")), 0, 0, r.descending, r.azimuth,
                             r.elevation, r.longitude, r.latitude, r.range, r.rate, r.height, r.phase, r.unused),
        platform::Fault);
    EXPECT_EQ(r, Results{});
    EXPECT_EQ(engine_.NextLOSTime(row.Text("name"), row.Number("serial")), -1.0) << row.Text("name");
  }
  EXPECT_EQ(seen, 2);
}

TEST_F(OrbitEngineTest, FindsANameByItsFirstFifteenCharacters) {
  const Results once = Position(engine_, "ISS (ZARYA)", kMidNovember2026);
  EXPECT_EQ(Position(engine_, "  ISS (ZARYA)  ", kMidNovember2026), once);
  EXPECT_EQ(Position(engine_, "ISS (ZARYA)             ", kMidNovember2026), once);
  EXPECT_EQ(Position(engine_, "ISS (ZARYA)    and more", kMidNovember2026), once);
}

TEST_F(OrbitEngineTest, SaysDescendingWhileTheSubPointMovesSouth) {
  for (const auto& [number, set] : reference::Sets()) {
    if (set.inclinationDeg < 5) continue;
    for (int i = 0; i < 50; ++i) {
      const double t = set.epoch.Serial() + i * 0.0137;
      const ObjectPlace now = engine_.PlaceOf(set.name, t);
      const double before = engine_.PlaceOf(set.name, t - 1e-6).subPoint.latitudeRad;
      const double after = engine_.PlaceOf(set.name, t + 1e-6).subPoint.latitudeRad;
      if (std::abs(after - before) < 1e-9) continue;  // at its turning point
      EXPECT_EQ(now.descending, after < before) << set.name << " " << i;
    }
  }
}

TEST_F(OrbitEngineTest, GivesTheRateAtWhichTheRangeChanges) {
  constexpr unsigned kSeed = 8;
  std::mt19937 dice(kSeed);
  SCOPED_TRACE("seed " + std::to_string(kSeed));
  std::uniform_real_distribution<double> day(-2, 2);
  constexpr double kSecond = 1.0 / platform::kSecondsPerDay;
  for (const auto& [number, set] : reference::Sets()) {
    const double t = set.epoch.Serial() + day(dice);
    const double change =
        engine_.LookAngle(set.name, t + kSecond).rangeKm - engine_.LookAngle(set.name, t - kSecond).rangeKm;
    EXPECT_NEAR(engine_.LookAngle(set.name, t).rangeRateKmS, change / 2, 0.02) << set.name;
  }
}

TEST_F(OrbitEngineTest, GivesTheEndOfThePassUnderWay) {
  const double rise = engine_.NextAOSTime("ISS (ZARYA)", kMidNovember2026);
  const double set = engine_.NextLOSTime("ISS (ZARYA)", rise);
  ASSERT_GT(rise, kMidNovember2026);
  EXPECT_GT(set, rise);
  EXPECT_LT(set - rise, 0.01);
  EXPECT_NEAR(engine_.NextLOSTime("ISS (ZARYA)", (rise + set) / 2), set, 1e-8);
}

TEST_F(OrbitEngineTest, AnswersMinusOneForASatelliteThatNeverRises) {
  int never = 0;
  const reference::Table table("reference/passes.csv");
  for (const reference::Row& row : table.Rows()) {
    if (row.Text("status") != "never_rises") continue;
    ++never;
    Observe(row.Number("obs_lat_deg"), row.Number("obs_lon_deg"), row.Number("obs_h_m"));
    EXPECT_EQ(engine_.NextAOSTime(row.Text("name"), kMidNovember2026), -1.0);
    EXPECT_EQ(engine_.NextLOSTime(row.Text("name"), kMidNovember2026), -1.0);
    EXPECT_EQ(engine_.CalcPassList(row.Text("name"), kMidNovember2026, 1, 3, 0, 0), "");
  }
  EXPECT_EQ(never, 3);
}

TEST_F(OrbitEngineTest, ListsPassesAsFieldsBetweenBlanks) {
  const std::vector<Pass> passes = engine_.Passes("ISS (ZARYA)", kMidNovember2026, 3);
  const std::string text = WithoutQuotes(engine_.CalcPassList("ISS (ZARYA)", kMidNovember2026, 1, 3, 0, 0));
  const std::vector<std::string> entries = platform::SplitAt(text, ',');
  ASSERT_EQ(entries.size(), passes.size());
  ASSERT_GT(entries.size(), 10U);
  for (std::size_t i = 0; i < entries.size(); ++i) {
    const std::vector<std::string> fields = platform::SplitAt(entries[i], ' ');
    ASSERT_EQ(fields.size(), 5U) << entries[i];
    for (int k = 0; k < 3; ++k) EXPECT_EQ(fields[static_cast<std::size_t>(k)].size(), 14U) << entries[i];
    EXPECT_EQ(fields[0].substr(0, 6), "202611");
    EXPECT_NEAR(reference::Numbers(fields[3]).at(0), passes[i].highestElevationRad / kRadPerDeg, 1e-4);
    EXPECT_NEAR(reference::Numbers(fields[4]).at(0), (passes[i].setSerial - passes[i].riseSerial) * 86400, 1);
    EXPECT_LE(fields[0], fields[2]);
    EXPECT_LE(fields[2], fields[1]);
  }
}

TEST_F(OrbitEngineTest, ListsAnObjectThatNeverSetsOnceADay) {
  bool seen = false;
  const reference::Table table("reference/passes.csv");
  for (const reference::Row& row : table.Rows()) {
    if (row.Text("status") != "always_up") continue;
    seen = true;
    Observe(row.Number("obs_lat_deg"), row.Number("obs_lon_deg"), row.Number("obs_h_m"));
    const std::string text = WithoutQuotes(engine_.CalcPassList(row.Text("name"), kMidNovember2026, 1, 3, 0, 0));
    const std::vector<std::string> entries = platform::SplitAt(text, ',');
    ASSERT_EQ(entries.size(), 3U) << text;
    EXPECT_EQ(entries[0].substr(0, 29), "20261115060000 20261115180000") << text;
    EXPECT_EQ(entries[2].substr(entries[2].size() - 6), " 43200") << text;
  }
  EXPECT_TRUE(seen);
}

TEST_F(OrbitEngineTest, GivesAnEmptyListForNoDays) {
  EXPECT_EQ(engine_.CalcPassList("ISS (ZARYA)", kMidNovember2026, 1, 0, 0, 0), "");
  EXPECT_EQ(engine_.CalcPassList("ISS (ZARYA)", kMidNovember2026, 1, -5, 0, 0), "");
}

TEST_F(OrbitEngineTest, SurvivesMomentsThatAreNone) {
  for (const double moment : {std::nan(""), double{INFINITY}, -double{INFINITY}, 1e300}) {
    EXPECT_THROW(Position(engine_, "ISS (ZARYA)", moment), platform::Fault) << moment;
    EXPECT_EQ(engine_.NextLOSTime("ISS (ZARYA)", moment), -1.0) << moment;
  }
}

}  // namespace
}  // namespace kestrava::orbit
