#include <cmath>
#include <limits>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/Angles.h"
#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Windows.h"

#include "support/SkyHouse.h"

namespace kestrava::orbit {
namespace {

using platform::DateParts;

constexpr DateParts kNoon{2026, 11, 15, 12, 0, 0};
constexpr const char* kStation = "ISS (ZARYA)";
constexpr const char* kNeverUp = "HIMAWARI-8";

class Satcalc : public testing::SkyHouse {
 protected:
  ResultBlock& Block() { return tables.result; }
  void Select(const char* name) { tables.SelSatName = name; }
  void ExpectObserverInLondon() {
    EXPECT_EQ(engine.ObserverLatitude(), 51.5);
    EXPECT_EQ(engine.ObserverLongitude(), 0);
    EXPECT_EQ(engine.ObserverHeight(), 30);
  }
  double SunElevationDeg(const Observer& observer, double utcSerial) const {
    OrbitEngine other;
    other.SetObserver(observer);
    return RadToDeg(other.PlaceOf("sun", utcSerial).look.elevationRad);
  }
};

TEST_F(Satcalc, GivesThePlaceInTheSystemsUnits) {
  orbit::Satcalc(sky, kStation, kNoon, false);
  const ObjectPlace place = engine.PlaceOf(kStation, platform::MakeSerial(kNoon));
  EXPECT_DOUBLE_EQ(Block().SatLat, RadToDeg(place.subPoint.latitudeRad));
  EXPECT_DOUBLE_EQ(Block().SatLon, 360 - RadToDeg(place.subPoint.longitudeRad));
  EXPECT_DOUBLE_EQ(Block().SatAz, RadToDeg(place.look.azimuthRad));
  EXPECT_DOUBLE_EQ(Block().SatEl, RadToDeg(place.look.elevationRad));
  EXPECT_DOUBLE_EQ(Block().SatRange, place.look.rangeKm);
  EXPECT_DOUBLE_EQ(Block().SatRangeRate, place.look.rangeRateKmS);
  EXPECT_DOUBLE_EQ(Block().SatHeight, place.subPoint.heightKm);
  EXPECT_EQ(Block().SatDescending, place.descending ? -1 : 0);
  EXPECT_EQ(Block().SatOrbit, std::to_string(place.revolution));
  EXPECT_DOUBLE_EQ(Block().SatX, place.positionTemeKm.x);
  EXPECT_DOUBLE_EQ(Block().SatY, place.positionTemeKm.y);
  EXPECT_DOUBLE_EQ(Block().SatZ, place.positionTemeKm.z);
}

TEST_F(Satcalc, GivesTheOrbitPhaseInBothScales) {
  orbit::Satcalc(sky, kStation, kNoon, false);
  const double fraction = engine.PlaceOf(kStation, platform::MakeSerial(kNoon)).meanAnomalyRad / (2 * M_PI);
  EXPECT_EQ(Block().SatMA, platform::Format(fraction * 360, "0.00"));
  EXPECT_NEAR(Block().SatPhaseMA, fraction * 255, 0.0051);
  EXPECT_DOUBLE_EQ(Block().SatPhaseMA, std::round(fraction * 25500) / 100);
}

TEST_F(Satcalc, TakesLocalTime) {
  orbit::Satcalc(sky, kStation, kNoon, false);
  const ResultBlock atNoon = Block();
  clock.SetOffsetHours(-5);
  orbit::Satcalc(sky, kStation, {2026, 11, 15, 7, 0, 0}, false);
  EXPECT_NEAR(Block().SatLat, atNoon.SatLat, 1e-7);
  EXPECT_NEAR(Block().SatLon, atNoon.SatLon, 1e-7);
}

TEST_F(Satcalc, DatePartsOutsideTheirRangeRollOver) {
  orbit::Satcalc(sky, kStation, kNoon, false);
  const ResultBlock atNoon = Block();
  orbit::Satcalc(sky, kStation, {2025, 22, 46, 11, 59, 60}, false);
  EXPECT_EQ(Block().SatLat, atNoon.SatLat);
  EXPECT_EQ(Block().SatMA, atNoon.SatMA);
}

TEST_F(Satcalc, ADatePartBeyondSixteenBitsIsAnOverflow) {
  orbit::Satcalc(sky, "sun", {2026, 11, 15, 12, 0, 40000}, false);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Overflow - Global Satcalc"});
}

TEST_F(Satcalc, LongitudeIsCountedWestFromThreeHundredAndSixty) {
  EXPECT_EQ(LonWestFromEast(0), 360);
  EXPECT_DOUBLE_EQ(LonWestFromEast(DegToRad(1)), 359);
  EXPECT_NEAR(LonWestFromEast(DegToRad(359)), 1, 1e-12);
}

TEST_F(Satcalc, PhaseTexts) {
  EXPECT_EQ(PhaseInDegrees(0), "0.00");
  EXPECT_EQ(PhaseInDegrees(0.5), "180.00");
  EXPECT_EQ(PhaseOn255(0.5), 127.5);
  EXPECT_EQ(PhaseOn255(0), 0);
}

TEST_F(Satcalc, ThePhaseIsRightOnACommaMachineToo) {
  locale.UseComma();
  EXPECT_EQ(PhaseInDegrees(0.5), "180,00");
  EXPECT_EQ(PhaseOn255(0.123456), 31.48);
}

TEST_F(Satcalc, EveryPhaseIsTheNumberReadBackFromItsText) {
  for (int i = 0; i < 200000; ++i) {
    const double fraction = i / 200000.0;
    ASSERT_EQ(PhaseOn255(fraction), platform::ParseNumber(platform::Format(fraction * 255, "0.00"))) << i;
    ASSERT_EQ(PhaseInDegrees(fraction), platform::Format(fraction * 360, "0.00")) << i;
  }
}

TEST_F(Satcalc, SunlitEndsAtEighteenDegreesBelowTheHorizon) {
  EXPECT_FALSE(IsSunlit(-18));
  EXPECT_TRUE(IsSunlit(std::nextafter(-18, 0)));
  EXPECT_FALSE(IsSunlit(-40));
}

TEST_F(Satcalc, VisibleFromEighteenToSixDegreesBelowTheHorizonWithBothEnds) {
  EXPECT_TRUE(IsVisibleByEye(-18, true, 10));
  EXPECT_TRUE(IsVisibleByEye(-6, true, 10));
  EXPECT_FALSE(IsVisibleByEye(std::nextafter(-18, -90), true, 10));
  EXPECT_FALSE(IsVisibleByEye(std::nextafter(-6, 90), true, 10));
  EXPECT_FALSE(IsVisibleByEye(-10, false, 10));
}

TEST_F(Satcalc, OnTheHorizonExactlyIsNotVisible) {
  EXPECT_FALSE(IsVisibleByEye(-10, true, 0));
  EXPECT_TRUE(IsVisibleByEye(-10, true, std::numeric_limits<double>::min()));
}

TEST_F(Satcalc, TheSelectedSatelliteGetsSunlightAndVisibility) {
  Select(kStation);
  int lit = 0;
  int visible = 0;
  for (int minute = 0; minute < 1440; minute += 2) {
    const DateParts local{2026, 11, 15, 0, minute, 0};
    orbit::Satcalc(sky, kStation, local, true);
    const double utc = platform::MakeSerial(local);
    const double below = SunElevationDeg({Block().SatLat, 360 - Block().SatLon, Block().SatHeight}, utc);
    const double here = SunElevationDeg({51.5, 0, 30}, utc);
    ASSERT_EQ(Block().SatSunlit, below > -18 ? -1 : 0) << minute;
    ASSERT_EQ(Block().SatVisible, here >= -18 && here <= -6 && below > -18 && Block().SatEl > 0 ? -1 : 0) << minute;
    lit += Block().SatSunlit != 0;
    visible += Block().SatVisible != 0;
  }
  EXPECT_GT(lit, 300);
  EXPECT_LT(lit, 720) << "the station must have been eclipsed too";
  EXPECT_GT(visible, 0);
  ExpectObserverInLondon();
}

TEST_F(Satcalc, TheSelectedSatelliteGetsItsNextRiseAndSetInLocalTime) {
  clock.SetOffsetHours(1);
  Select(kStation);
  orbit::Satcalc(sky, kStation, {2026, 11, 15, 13, 0, 0}, true);
  const double utcNow = platform::MakeSerial(kNoon);
  const double hour = 1.0 / 24;
  EXPECT_EQ(Block().SatAOS, platform::Format(engine.NextAOSTime(kStation, utcNow) + hour, "hh:mm:ss"));
  EXPECT_EQ(Block().SatLOS, platform::Format(engine.NextLOSTime(kStation, utcNow) + hour, "hh:mm:ss"));
}

TEST_F(Satcalc, RiseAndSetCountFromThePresentNotFromTheGivenMoment) {
  Select(kStation);
  orbit::Satcalc(sky, kStation, kNoon, true);
  const std::string rise = Block().SatAOS;
  orbit::Satcalc(sky, kStation, {2026, 11, 16, 3, 0, 0}, true);
  EXPECT_EQ(Block().SatAOS, rise);
}

TEST_F(Satcalc, AnotherThanTheSelectedKeepsTheEarlierExtendedValues) {
  Select("NOAA 19");
  Block().SatSunlit = 7;
  Block().SatVisible = 8;
  Block().SatAOS = "earlier";
  orbit::Satcalc(sky, kStation, kNoon, true);
  EXPECT_EQ(Block().SatSunlit, 7);
  EXPECT_EQ(Block().SatVisible, 8);
  EXPECT_EQ(Block().SatAOS, "earlier");
}

TEST_F(Satcalc, TheSelectedNameIsComparedExactly) {
  Select("iss (zarya)");
  Block().SatSunlit = 7;
  orbit::Satcalc(sky, kStation, kNoon, true);
  EXPECT_EQ(Block().SatSunlit, 7);
}

TEST_F(Satcalc, WithoutTheFlagTheSelectedKeepsTheEarlierExtendedValues) {
  Select(kStation);
  Block().SatSunlit = 7;
  orbit::Satcalc(sky, kStation, kNoon, false);
  EXPECT_EQ(Block().SatSunlit, 7);
}

class PassWindow : public platform::Window {
 public:
  void Show() override { visible_ = true; }
  void Hide() override { visible_ = false; }
  bool IsVisible() const override { return visible_; }

 private:
  bool visible_ = false;
};

TEST_F(Satcalc, WhilePassesArePredictedRiseAndSetKeepTheirEarlierText) {
  windows->Register("PassPrediction", [] { return std::make_unique<PassWindow>(); });
  windows->Show("PassPrediction");
  Select(kStation);
  Block().SatAOS = "earlier";
  Block().SatLOS = "later";
  orbit::Satcalc(sky, kStation, kNoon, true);
  EXPECT_EQ(Block().SatAOS, "earlier");
  EXPECT_EQ(Block().SatLOS, "later");
  EXPECT_NE(Block().SatSunlit, 7);
  windows->Find("PassPrediction")->Hide();
  orbit::Satcalc(sky, kStation, kNoon, true);
  EXPECT_NE(Block().SatAOS, "earlier");
}

TEST_F(Satcalc, AskingWhetherPassesArePredictedMakesTheWindowHidden) {
  windows->Register("PassPrediction", [] { return std::make_unique<PassWindow>(); });
  Select(kStation);
  orbit::Satcalc(sky, kStation, kNoon, true);
  ASSERT_NE(windows->Find("PassPrediction"), nullptr);
  EXPECT_FALSE(windows->Find("PassPrediction")->IsVisible());
}

TEST_F(Satcalc, TheSunWithoutTheFlagNeverTouchesTheObserver) {
  Select("sun");
  orbit::Satcalc(sky, "sun", kNoon, false);
  ExpectObserverInLondon();
  EXPECT_NEAR(Block().SatEl, SunElevationDeg({51.5, 0, 30}, platform::MakeSerial(kNoon)), 1e-9);
}

TEST_F(Satcalc, TheMoonHasItsDistanceAndPhase) {
  orbit::Satcalc(sky, "moon", kNoon, false);
  EXPECT_GT(Block().SatHeight, 350000);
  EXPECT_LT(Block().SatHeight, 410000);
  EXPECT_LT(Block().SatPhase, 0) << "it waxes on that day";
}

TEST_F(Satcalc, AnUnknownNameKeepsThePreviousPlaceAndIsLogged) {
  orbit::Satcalc(sky, kStation, kNoon, false);
  const ResultBlock before = Block();
  orbit::Satcalc(sky, "SPUTNIK", kNoon, false);
  const std::vector<std::string> faults = TakeFaults();
  ASSERT_EQ(faults.size(), 1U);
  EXPECT_TRUE(faults[0].ends_with(" - Global Satcalc")) << faults[0];
  EXPECT_NE(ErrorLog().at(0).find("Global Satcalc"), std::string::npos);
  EXPECT_EQ(Block().SatRange, before.SatRange);
  EXPECT_EQ(Block().SatHeight, before.SatHeight);
  EXPECT_EQ(Block().SatOrbit, before.SatOrbit);
  EXPECT_EQ(Block().SatMA, before.SatMA);
  EXPECT_EQ(Block().SatAz, 0) << "directions come from the scratch values of the call";
  EXPECT_EQ(Block().SatLon, 360);
}

TEST_F(Satcalc, AnUnknownSelectedNameAddsALineForEachCallThatFails) {
  Select("SPUTNIK");
  orbit::Satcalc(sky, "SPUTNIK", kNoon, true);
  std::vector<std::string> traps;
  for (const std::string& fault : TakeFaults()) traps.push_back(fault.substr(fault.rfind(" - ") + 3));
  EXPECT_EQ(traps, (std::vector<std::string>{"Global Satcalc", "Global NextAOS", "Global NextLOS"}));
  ExpectObserverInLondon();
}

TEST_F(Satcalc, NextAosOfOneThatNeverRisesIsTheMeaninglessTimeOfMinusOne) {
  clock.SetOffsetHours(2);
  EXPECT_EQ(NextAOS(sky, kNeverUp), UTCToLocal(-1.0));
}

TEST_F(Satcalc, NextAosAndNextLosLogUnderTheirOwnNames) {
  NextAOS(sky, "SPUTNIK");
  NextLOS(sky, "SPUTNIK");
  const std::vector<std::string> faults = TakeFaults();
  ASSERT_EQ(faults.size(), 2U);
  EXPECT_TRUE(faults[0].ends_with(" - Global NextAOS")) << faults[0];
  EXPECT_TRUE(faults[1].ends_with(" - Global NextLOS")) << faults[1];
}

TEST_F(Satcalc, WithoutAnEngineThereIsNoSky) {
  Engine.reset();
  EXPECT_THROW(TheSky(), platform::Fault);
  Engine = std::make_unique<OrbitEngine>();
  EXPECT_EQ(&TheSky().engine, Engine.get());
  EXPECT_EQ(&TheSky().tables, &TheTables());
  Engine.reset();
}

}  // namespace
}  // namespace kestrava::orbit
