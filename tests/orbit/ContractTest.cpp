// What the engine and Satcalc owe the system beyond a single right number: which names they take, what a failing call
// leaves behind and in which order it is told, and how a pass list falls on the days of every zone.

#include <cmath>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/Angles.h"
#include "orbit/OrbitEngine.h"
#include "orbit/PassSearch.h"
#include "orbit/Satcalc.h"
#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "platform/Windows.h"

#include "support/ElementText.h"
#include "support/SkyHouse.h"

namespace kestrava::orbit {
namespace {

using platform::DateParts;

constexpr DateParts kNoon{2026, 11, 15, 12, 0, 0};
constexpr double kNoonSerial = 46341.5;
constexpr const char* kStation = "ISS (ZARYA)";
constexpr const char* kNeverUp = "HIMAWARI-8";

class ShownWindow : public platform::Window {
 public:
  void Show() override { visible_ = true; }
  void Hide() override { visible_ = false; }
  bool IsVisible() const override { return visible_; }

 private:
  bool visible_ = false;
};

std::vector<std::string> TrapsOf(const std::vector<std::string>& faults) {
  std::vector<std::string> traps;
  for (const std::string& fault : faults) traps.push_back(fault.substr(fault.rfind(" - ") + 3));
  return traps;
}

class Contract : public testing::SkyHouse {
 protected:
  ResultBlock& Block() { return tables.result; }
  void Calc(const char* name, bool extended) { Satcalc(sky, name, kNoon, extended); }
  std::vector<std::string> Entries(std::string_view name, double start) {
    const std::string list = engine.CalcPassList(name, start, 1, 3, 0, 0);
    if (list.empty()) return {};
    return platform::SplitAt(platform::ReplaceAll(list, "\"", ""), ',');
  }
  int NumberOf(const char* name) const { return engine.PlaceOf(name, 46341).revolution / 10000; }
  double SunBelow(double latDeg, double lonEastDeg, double heightM) const {
    OrbitEngine other;
    other.SetObserver({latDeg, lonEastDeg, heightM});
    return RadToDeg(other.PlaceOf("sun", kNoonSerial).look.elevationRad);
  }
};

/// A set that can be told by the revolution number of its first position.
std::string Numbered(std::string_view name, int number) {
  const std::string digit = std::to_string(number);
  return testing::ElementText(name, number,
                              "  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080" + digit + "0000");
}

using NameContract = Contract;
using PassListContract = Contract;
using SatcalcContract = Contract;
using SunriseContract = Contract;

TEST_F(NameContract, ANameInOtherLettersIsFoundWhereTheExactOneIsNot) {
  const ObjectPlace place = engine.PlaceOf(kStation, kNoonSerial);
  EXPECT_EQ(engine.PlaceOf("Iss (Zarya)", kNoonSerial).look.rangeKm, place.look.rangeKm);
  EXPECT_EQ(engine.NextAOSTime("iss (zarya)", kNoonSerial), engine.NextAOSTime(kStation, kNoonSerial));
  EXPECT_EQ(engine.CalcPassList("iss (ZARYA)", kNoonSerial, 1, 3, 0, 0),
            engine.CalcPassList(kStation, kNoonSerial, 1, 3, 0, 0));
  EXPECT_TRUE(engine.Knows("iss (zarya)"));
}

TEST_F(NameContract, TheExactNameGoesBeforeOneInOtherLetters) {
  Put("amateur.txt", Numbered("Twin", 1) + Numbered("TWIN", 2) + Numbered("x", 3));
  engine.SetDataFolder(platform::AppDir);
  EXPECT_EQ(NumberOf("Twin"), 1);
  EXPECT_EQ(NumberOf("TWIN"), 2);
  EXPECT_EQ(NumberOf("twin"), 1) << "the first of the database";
  EXPECT_EQ(NumberOf("X"), 3);
  EXPECT_FALSE(engine.Knows("TWI"));
  EXPECT_NE(engine.SatelliteNames().find("\"Twin\",\"TWIN\",\"x\""), std::string::npos) << "names stand as written";
}

TEST_F(NameContract, ASatelliteCalledSunIsNotTheSun) {
  Put("amateur.txt", testing::ElementText("SUN", 1));
  engine.SetDataFolder(platform::AppDir);
  EXPECT_LT(engine.PlaceOf("SUN", kNoonSerial).look.rangeKm, 20000);
  EXPECT_LT(engine.PlaceOf("Sun", kNoonSerial).look.rangeKm, 20000);
  EXPECT_GT(engine.PlaceOf("sun", kNoonSerial).look.rangeKm, 1e8);
}

TEST_F(NameContract, ANameIsKnownWholeAndCutAtSixteenAndAtFifteen) {
  Put("amateur.txt", testing::ElementText("ABCDEFGHIJKLMNOPQRS", 1) + testing::ElementText("A NAME OF MORE THAN", 2) +
                         testing::ElementText("\u00c5ngstr\u00f6m satellite", 3));
  engine.SetDataFolder(platform::AppDir);
  for (const char* name : {"ABCDEFGHIJKLMNOPQRS", "ABCDEFGHIJKLMNOP", "ABCDEFGHIJKLMNO"})
    EXPECT_TRUE(engine.Knows(name)) << name;
  for (const char* name : {"A NAME OF MORE THAN", "A NAME OF MORE T", "A NAME OF MORE ", "A NAME OF MORE"})
    EXPECT_TRUE(engine.Knows(name)) << name;
  for (const char* name : {"\u00c5ngstr\u00f6m satellite", "\u00c5ngstr\u00f6m satelli", "\u00c5ngstr\u00f6m satell"})
    EXPECT_TRUE(engine.Knows(name)) << name;
  EXPECT_FALSE(engine.Knows("ABCDEFGHIJKLMN"));
}

TEST_F(NameContract, TheShippedNamesAreAsManyAsCountedAndEachIsKnown) {
  const std::vector<std::string> names =
      platform::SplitAt(platform::ReplaceAll(engine.SatelliteNames(), "\"", ""), ',');
  EXPECT_EQ(static_cast<int>(names.size()), engine.SatelliteCount());
  EXPECT_GT(names.size(), 100U);
  for (const std::string& name : names) {
    EXPECT_TRUE(engine.Knows(name)) << name;
    EXPECT_LE(platform::LengthInCharacters(name), 15) << name;
    EXPECT_EQ(platform::Trim(name), name);
    EXPECT_NE(name, "sun");
    EXPECT_NE(name, "moon");
  }
  EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size()) << "a name stands once";
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(NameContract, TheFixedNumbersAndWordsAreNotRead) {
  EXPECT_EQ(engine.CalcPassList(kStation, kNoonSerial, 99, 3, -1, 7),
            engine.CalcPassList(kStation, kNoonSerial, 1, 3, 0, 0));
  std::int16_t descending = 0, unused = 0;
  double azimuth = 0, elevation = 0, longitude = 0, latitude = 0, range = 0, rate = 0, height = 0, phase = 0;
  engine.CalcPosition(kStation, engine.EngineTime(kNoonSerial), 5, -6, descending, azimuth, elevation, longitude,
                      latitude, range, rate, height, phase, unused);
  EXPECT_EQ(range, engine.PlaceOf(kStation, kNoonSerial).look.rangeKm);
}

TEST_F(NameContract, TheFirstMomentOfAllIsAMomentLikeOthers) {
  const double atZero = engine.PlaceOf(kNeverUp, 0).look.azimuthRad;  // no other moment was asked before
  (void)engine.PlaceOf(kNeverUp, kNoonSerial);
  EXPECT_EQ(engine.PlaceOf(kNeverUp, 0).look.azimuthRad, atZero);
  EXPECT_NEAR(engine.PlaceOf(kNeverUp, 1e-9).look.azimuthRad, atZero, 1e-6);
}

TEST_F(NameContract, AnObserverMovedAndPutBackSeesTheSame) {
  const double range = engine.PlaceOf(kStation, kNoonSerial).look.rangeKm;
  const double rise = engine.NextAOSTime(kStation, kNoonSerial);
  engine.SetObserver({-30, 140, 408});
  EXPECT_NE(engine.PlaceOf(kStation, kNoonSerial).look.rangeKm, range);
  EXPECT_NE(engine.NextAOSTime(kStation, kNoonSerial), rise);
  engine.SetObserver({51.5, 0, 30});
  EXPECT_EQ(engine.PlaceOf(kStation, kNoonSerial).look.rangeKm, range);
  EXPECT_EQ(engine.NextAOSTime(kStation, kNoonSerial), rise);
}

TEST_F(NameContract, SunAndMoonHaveNoRisesAndNoPasses) {
  EXPECT_THROW(engine.NextAOSTime("sun", kNoonSerial), platform::Fault);
  EXPECT_THROW(engine.NextLOSTime("moon", kNoonSerial), platform::Fault);
  EXPECT_THROW(engine.CalcPassList("sun", kNoonSerial, 1, 3, 0, 0), platform::Fault);
}

TEST_F(PassListContract, HasPointsAndNoFurtherCommasOnACommaMachine) {
  const std::string onAPointMachine = engine.CalcPassList(kStation, kNoonSerial, 1, 3, 0, 0);
  ASSERT_NE(onAPointMachine.find('.'), std::string::npos);
  locale.UseComma();
  EXPECT_EQ(engine.CalcPassList(kStation, kNoonSerial, 1, 3, 0, 0), onAPointMachine);
}

TEST_F(PassListContract, BeginsWithThePassUnderWayAndItsTrueRise) {
  const double rise = engine.NextAOSTime(kStation, kNoonSerial);
  const double set = engine.NextLOSTime(kStation, rise);
  const std::vector<std::string> whole = Entries(kStation, rise - 0.001);
  const std::vector<std::string> underWay = Entries(kStation, (rise + set) / 2);
  ASSERT_FALSE(whole.empty());
  ASSERT_FALSE(underWay.empty());
  EXPECT_EQ(underWay[0], whole[0]);
}

TEST_F(PassListContract, CoversEveryPassThatStartsWithinThreeDays) {
  const double start = 46340;
  std::size_t n = 0;
  const std::vector<std::string> entries = Entries(kStation, start);
  for (double rise = engine.NextAOSTime(kStation, start); rise < start + 3; ++n) {
    ASSERT_LT(n, entries.size());
    EXPECT_EQ(entries[n].substr(0, 14), platform::Format(rise, "yyyymmddhhmmss")) << n;
    rise = engine.NextAOSTime(kStation, engine.NextLOSTime(kStation, rise));
  }
  EXPECT_EQ(entries.size(), n);
}

TEST_F(PassListContract, AnObjectThatDoesNotSetFallsOnceOnTheAskedDayInEveryZone) {
  engine.SetObserver({10, 140, 0});  // below the geostationary satellite
  const double asked = 46342;
  const std::vector<std::string> entries = Entries(kNeverUp, asked - 1);
  for (int quarter = -12 * 4; quarter <= 14 * 4; ++quarter) {
    int rows = 0;
    for (const std::string& entry : entries) {
      const auto part = [&](std::size_t at, std::size_t n) { return std::stoi(entry.substr(at, n)); };
      const double local =
          platform::MakeSerial({part(0, 4), part(4, 2), part(6, 2), part(8, 2), part(10, 2), part(12, 2)}) +
          quarter / 96.0;
      if (std::floor(local) == asked) ++rows;
    }
    EXPECT_EQ(rows, 1) << quarter / 4.0;
  }
}

TEST_F(SatcalcContract, AnUnknownSelectedNameIsWorkedOutFromWhatTheCallFound) {
  clock.SetOffsetHours(1);
  Satcalc(sky, kStation, {2026, 11, 15, 13, 0, 0}, false);
  const ResultBlock before = Block();
  Block().SatSunlit = 7;
  Block().SatVisible = 7;
  tables.SelSatName = "SPUTNIK";
  Satcalc(sky, "SPUTNIK", {2026, 11, 15, 13, 0, 0}, true);
  EXPECT_EQ(TrapsOf(TakeFaults()), (std::vector<std::string>{"Global Satcalc", "Global NextAOS", "Global NextLOS"}));
  EXPECT_EQ(Block().SatHeight, before.SatHeight);
  EXPECT_EQ(Block().SatOrbit, before.SatOrbit);
  EXPECT_EQ(Block().SatLat, 0);
  EXPECT_EQ(Block().SatLon, 360);
  EXPECT_EQ(Block().SatSunlit, SunBelow(0, 0, before.SatHeight) > -18 ? -1 : 0);
  EXPECT_EQ(Block().SatVisible, 0) << "a scratch elevation of 0 is not above the horizon";
  EXPECT_EQ(Block().SatAOS, "01:00:00") << "the search left 0, and 0 became local time";
  EXPECT_EQ(Block().SatLOS, "01:00:00");
  EXPECT_EQ(engine.ObserverLatitude(), 51.5);
  EXPECT_EQ(engine.ObserverLongitude(), 0);
  EXPECT_EQ(engine.ObserverHeight(), 30);
}

TEST_F(SatcalcContract, EachLineOfTheLogNamesTheProcedureThatFailed) {
  tables.SelSatName = "SPUTNIK";
  Calc("SPUTNIK", true);
  const std::vector<std::string> log = ErrorLog();
  ASSERT_EQ(log.size(), 3U);
  EXPECT_NE(log[0].find("Global Satcalc"), std::string::npos) << log[0];
  EXPECT_NE(log[1].find("Global NextAOS"), std::string::npos) << log[1];
  EXPECT_NE(log[2].find("Global NextLOS"), std::string::npos) << log[2];
  TakeFaults();
}

TEST_F(SatcalcContract, AfterTheExtendedBlockTheEngineAnswersForTheSunAndTheBlockForTheSatellite) {
  tables.SelSatName = kStation;
  Calc(kStation, true);
  EXPECT_EQ(engine.OrbitNumber(), 0);
  EXPECT_NE(Block().SatOrbit, "0");
  EXPECT_NE(Block().SatMA, "0.00");
  EXPECT_LT(Block().SatRange, 20000);
}

TEST_F(SatcalcContract, ASelectedSunHasNoRiseAndIsLogged) {
  tables.SelSatName = "sun";
  Calc("sun", true);
  EXPECT_EQ(TrapsOf(TakeFaults()), (std::vector<std::string>{"Global NextAOS", "Global NextLOS"}));
  EXPECT_EQ(Block().SatSunlit, -1) << "the Sun stands in its own zenith";
  EXPECT_EQ(engine.ObserverHeight(), 30);
}

TEST_F(SatcalcContract, OneThatNeverRisesHasTheTimeOfDayOfMinusOne) {
  tables.SelSatName = kNeverUp;
  Calc(kNeverUp, true);
  EXPECT_EQ(Block().SatAOS, "00:00:00");
  clock.SetOffsetHours(2);
  Calc(kNeverUp, true);
  EXPECT_EQ(Block().SatAOS, "22:00:00") << "a negative date's fraction counts by its size";
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(SatcalcContract, WhilePassesArePredictedSunlightIsWorkedOutAllTheSame) {
  windows->Register("PassPrediction", [] { return std::make_unique<ShownWindow>(); });
  windows->Show("PassPrediction");
  tables.SelSatName = kStation;
  Block().SatSunlit = Block().SatVisible = 7;
  Block().SatAOS = "earlier";
  Calc(kStation, true);
  EXPECT_NE(Block().SatSunlit, 7);
  EXPECT_NE(Block().SatVisible, 7);
  EXPECT_EQ(Block().SatAOS, "earlier");
}

TEST_F(SatcalcContract, WhereTheQuestionForThePassWindowFailsRiseAndSetKeepTheirText) {
  windows->Register("PassPrediction",
                    []() -> std::unique_ptr<platform::Window> { throw platform::Fault::ObjectNotSet(); });
  tables.SelSatName = kStation;
  Block().SatAOS = "earlier";
  Calc(kStation, true);
  EXPECT_EQ(TrapsOf(TakeFaults()), std::vector<std::string>{"Global Satcalc"});
  EXPECT_EQ(Block().SatAOS, "earlier");
}

TEST_F(SatcalcContract, TheObserversLongitudeIsPutBackAsItWasSent) {
  engine.SetObserverLongitude(360);
  tables.SelSatName = kStation;
  Calc(kStation, true);
  EXPECT_EQ(engine.ObserverLongitude(), 360);
  EXPECT_EQ(engine.ObserverLatitude(), 51.5);
  EXPECT_EQ(engine.ObserverHeight(), 30);
}

TEST_F(SatcalcContract, AnOverflowOfTheDateLeavesTheFirstMomentOfAll) {
  Satcalc(sky, "sun", {2026, 11, 15, 12, 0, 40000}, false);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Overflow - Global Satcalc"});
  const ResultBlock overflown = Block();
  Satcalc(sky, "sun", {1899, 12, 30, 0, 0, 0}, false);
  EXPECT_EQ(overflown.SatAz, Block().SatAz);
  EXPECT_EQ(overflown.SatEl, Block().SatEl);
}

TEST_F(SunriseContract, LeavesTheSunOfTheLastSampledMinuteInTheBlock) {
  const platform::SerialDate rise = TodaySunrise(sky);
  const ResultBlock found = Block();
  EXPECT_GT(found.SatEl, 0);
  Satcalc(sky, "sun", platform::SplitSerial(rise - 1 / platform::kMinutesPerDay), false);
  EXPECT_EQ(Block().SatEl, found.SatEl);
  EXPECT_EQ(Block().SatAz, found.SatAz);
  Satcalc(sky, "sun", platform::SplitSerial(rise - 2 / platform::kMinutesPerDay), false);
  EXPECT_LE(Block().SatEl, 0);
}

TEST_F(SunriseContract, TheSearchForSunsetEndsBelowTheHorizon) {
  const platform::SerialDate set = TodaySunset(sky);
  const ResultBlock found = Block();
  EXPECT_LT(found.SatEl, 0);
  Satcalc(sky, "sun", platform::SplitSerial(set - 1 / platform::kMinutesPerDay), false);
  EXPECT_EQ(Block().SatEl, found.SatEl);
  Satcalc(sky, "sun", platform::SplitSerial(set - 2 / platform::kMinutesPerDay), false);
  EXPECT_GE(Block().SatEl, 0);
}

TEST_F(SunriseContract, IsThatOfTheLocalDayFarEastAndWest) {
  for (const double offset : {-10.0, 13.0}) {  // Honolulu and Auckland, where the local date is not the Universal one
    engine.SetObserver({offset < 0 ? 21.3 : -36.8, offset < 0 ? 202.1 : 174.8, 0});
    clock.SetOffsetHours(offset);
    clock.SetUtc(DateParts{2026, 11, 15, offset < 0 ? 5 : 20, 0, 0});
    const double today = std::floor(clock.Read().local);
    EXPECT_NE(today, std::floor(clock.Read().utc));
    EXPECT_NEAR(TodaySunrise(sky), today + 6.2 / 24, 0.8 / 24) << offset;
    EXPECT_NEAR(TodaySunset(sky), today + 18.8 / 24, 1.8 / 24) << offset;
  }
}

TEST_F(SunriseContract, AZoneThatIsNotThePlacesShiftsTheDay) {
  // The Sun of London on a machine of Auckland: midnight there is 11:00 here, so it is up when the search begins.
  clock.SetOffsetHours(13);
  clock.SetUtc(DateParts{2026, 11, 15, 0, 0, 0});
  EXPECT_EQ(TodaySunrise(sky), platform::MakeSerial({2026, 11, 15, 0, 1, 0}));
  EXPECT_EQ(TodaySunset(sky), platform::MakeSerial({2026, 11, 15, 12, 1, 0}));
}

}  // namespace
}  // namespace kestrava::orbit
