#include <cmath>
#include <map>

#include "orbit/Angles.h"
#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"
#include "platform/Format.h"

#include "HorizonFixture.h"

namespace kestrava::views2d {
namespace {

using Texts = std::vector<std::string>;
using platform::FloorText;
using platform::Format;

constexpr const char* kNoSuch = "NO SUCH BIRD";
constexpr const char* kStationLines =
    "1 25544U 98067A   26318.89808844  .00002078  00000-0  38550-4 0  9991\n"
    "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614\n";
constexpr const char* kTwilightText =
    "The Sun is slightly below the horizon, Astronomical Twilight Time, Ideal for visual satellite observations";
constexpr const char* kTooLowText = "The Sun is too far below the horizon for visual observations";

TEST(HorizonProjection, AzimuthRunsAcrossFromNorthToNorth) {
  EXPECT_EQ(AzToX(0, 720, false), 0);
  EXPECT_EQ(AzToX(90, 720, false), 180);
  EXPECT_EQ(AzToX(359.5, 720, false), 719);
  EXPECT_EQ(AzToX(360, 720, false), 720);
}

TEST(HorizonProjection, WithNorthInTheCentreItRunsFromSouthToSouth) {
  EXPECT_EQ(AzToX(0, 720, true), 360);
  EXPECT_EQ(AzToX(270, 720, true), 180);
}

TEST(HorizonProjection, Azimuth180WithNorthInTheCentreStandsAtTheRightEdge) {
  EXPECT_EQ(AzToX(180, 720, true), 720);
}

TEST(HorizonProjection, Azimuth181WithNorthInTheCentreStandsBesideTheLeftEdge) {
  EXPECT_EQ(AzToX(181, 720, true), 2);
}

TEST(HorizonProjection, ElevationRunsFromTheBottomEdgeToTheTopAndBelowOffThePicture) {
  EXPECT_EQ(ElToY(0, 450), 450);
  EXPECT_EQ(ElToY(90, 450), 0);
  EXPECT_EQ(ElToY(30, 450), 300);
  EXPECT_EQ(ElToY(-10, 450), 500);
}

TEST(HorizonDecisions, TheSunAtExactlyMinusSixAndMinusEighteenIsInTwilight) {
  EXPECT_EQ(SunAt(std::nextafter(-6, 0)), SunInSky::kUp);
  EXPECT_EQ(SunAt(-6), SunInSky::kTwilight);
  EXPECT_EQ(SunAt(-18), SunInSky::kTwilight);
  EXPECT_EQ(SunAt(std::nextafter(-18, -90)), SunInSky::kTooLow);
}

TEST(HorizonDecisions, TheMoonIsShownFromOneDegreeOn) {
  EXPECT_TRUE(IsMoonShown(1));
  EXPECT_FALSE(IsMoonShown(std::nextafter(1, 0)));
}

TEST(HorizonDecisions, AnElevationOfExactlyZeroShowsNoSatelliteAndEndsNoTrack) {
  orbit::FaveRec row;
  row.El = 0;
  EXPECT_FALSE(IsSatelliteShown(row));
  row.El = 0.001;
  EXPECT_TRUE(IsSatelliteShown(row));
  EXPECT_FALSE(HasSet(0));
  EXPECT_TRUE(HasSet(-0.001));
}

TEST(HorizonTrackSteps, CarryWhereASecondMinuteOrHourIsReachedExactly) {
  platform::DateParts moment{2026, 11, 30, 23, 59, 58};
  StepTrack(moment);
  EXPECT_EQ(moment, (platform::DateParts{2026, 11, 31, 0, 0, 0})) << "the day never rolls into the month";
}

TEST(HorizonTrackSteps, ACarryThatIsPassedOverNeverHappensBecauseItTestsForEquality) {
  platform::DateParts odd{2026, 11, 15, 12, 30, 59};
  StepTrack(odd);
  EXPECT_EQ(odd, (platform::DateParts{2026, 11, 15, 12, 30, 61}));
  platform::DateParts late{2026, 11, 15, 12, 30, 60};
  StepTrack(late);
  EXPECT_EQ(late, (platform::DateParts{2026, 11, 15, 12, 30, 62}));
}

class HorizonPainterTest : public HorizonPainterFixture {
 protected:
  /// The dots of a track as they should stand: where the engine has the satellite from 10 seconds ahead of now on.
  Texts ExpectedDots(const std::string& satellite) {
    Texts dots;
    for (int step = 0; step <= 800; ++step) {
      const platform::SerialDate utc =
          platform::MakeSerial(platform::SplitSerial(NowUtc() + (10 + 2 * step) / platform::kSecondsPerDay));
      const orbit::LookAngle look = engine.PlaceOf(satellite, utc).look;
      if (look.elevationRad < 0) break;
      dots.push_back("Final DrawPoint " + AtPoint(AzToX(orbit::RadToDeg(look.azimuthRad), 800, false),
                                                  ElToY(orbit::RadToDeg(look.elevationRad), 450)));
    }
    return dots;
  }
};

TEST_F(HorizonPainterTest, BeginsWithTheWholeSceneryOverTheWholePicture) {
  Paint();
  EXPECT_EQ(log.Between(0, 2),
            (Texts{"Final Clear #000000", "Final StretchBlt 0,0 800x450 from BackDrop 0,0 794x509 copy"}));
}

TEST_F(HorizonPainterTest, AMissingSceneryIsNoFault) {
  set.final.stretchResult = 0;
  Paint();
  EXPECT_FALSE(Printed().empty());
}

TEST_F(HorizonPainterTest, WestStandsALittleShortOf270DegreesBecauseItsDivisorIsMeantToBe135Hundredths) {
  Paint();
  const int start = log.IndexOf("Final SetPen #000000");
  EXPECT_EQ(
      log.Between(start, start + 20),
      (Texts{"Final SetPen #000000", "Final DrawPoint (0,40)",       "Final SetPen #00ffff", "Final Print \"NORTH\"",
             "Final SetPen #000000", "Final DrawPoint (200,40)",     "Final SetPen #00ffff", "Final Print \"EAST\"",
             "Final SetPen #000000", "Final DrawPoint (400,40)",     "Final SetPen #00ffff", "Final Print \"SOUTH\"",
             "Final SetPen #000000", "Final DrawPoint (592.593,40)", "Final SetPen #00ffff", "Final Print \"WEST\"",
             "Final SetPen #000000", "Final DrawPoint (760,40)",     "Final SetPen #00ffff", "Final Print \"NORTH\""}));
}

TEST_F(HorizonPainterTest, WithNorthInTheCentreTheCompassIsTurned) {
  state.CentreNorth = true;
  Paint();
  const Texts texts = Printed();
  ASSERT_GE(texts.size(), 5u);
  EXPECT_EQ(Texts(texts.begin(), texts.begin() + 5), (Texts{"SOUTH", "WEST", "NORTH", "EAST", "SOUTH"}));
}

TEST_F(HorizonPainterTest, TheTextsOfSunAndMoonRunDownTheTopLeftCornerInYellow) {
  SeeAt("sun", -30);
  Paint();
  const int at = log.IndexOf("Final DrawPoint (0,0)");
  ASSERT_GT(at, 0);
  EXPECT_EQ(log.Between(at - 1, at + 3), (Texts{"Final SetPen #000000", "Final DrawPoint (0,0)", "Final SetPen #00ffff",
                                                "Final Print \"" + std::string(kTooLowText) + "\""}));
}

TEST_F(HorizonPainterTest, TheSunThatIsUpIsToldAndStandsUncentredAtItsPlace) {
  SeeAt("sun", 25);
  Paint();
  const double az = AzimuthDeg("sun");
  const double el = ElevationDeg("sun");
  EXPECT_EQ(Printed().at(5), "The Sun is " + Format(el, "#.0") + " degrees above the horizon, at " + Format(az, "#.0") +
                                 " degrees heading");
  const std::string place =
      std::to_string(platform::ToInt32(az * 800 / 360)) + "," + std::to_string(platform::ToInt32(5 * (90 - el)));
  const int at = log.IndexOf("Final BitBlt");
  EXPECT_EQ(log.Between(at, at + 2), (Texts{"Final BitBlt " + place + " 30x30 from SunMask 0,0 and",
                                            "Final BitBlt " + place + " 30x30 from SunPic 0,0 paint"}));
  EXPECT_TRUE(state.sun.drawn);
}

TEST_F(HorizonPainterTest, ASunSlightlyBelowCountsAsUpWithANegativeElevationAndASpriteUnderTheEdge) {
  SeeAt("sun", -5.5);
  Paint();
  EXPECT_EQ(Printed().at(5).substr(0, 41), "The Sun is -5.5 degrees above the horizon");
  EXPECT_NE(log.Of("Final BitBlt").at(0).find(",478 30x30 from SunMask"), std::string::npos) << log.GoldenText();
}

TEST_F(HorizonPainterTest, InTwilightTheSunHasATextAndNoSprite) {
  for (const double elDeg : {-6.01, -12.0, -17.99}) {
    SeeAt("sun", elDeg);
    Paint();
    EXPECT_EQ(Printed().at(5), kTwilightText) << elDeg;
    EXPECT_EQ(log.GoldenText().find("SunMask"), std::string::npos) << elDeg;
    EXPECT_FALSE(state.sun.drawn);
  }
}

TEST_F(HorizonPainterTest, BelowEighteenDegreesTheSunIsTooFarDown) {
  SeeAt("sun", -18.01);
  Paint();
  EXPECT_EQ(Printed().at(5), kTooLowText);
}

TEST_F(HorizonPainterTest, TheMoonIsToldOnTheNextLineAndDrawnThirtyPixelsWide) {
  SeeAt("moon", 40);
  Paint();
  const double az = AzimuthDeg("moon");
  const double el = ElevationDeg("moon");
  EXPECT_EQ(Printed().at(6), "The Moon is " + Format(el, "#.0") + " degrees above the horizon, at " +
                                 Format(az, "#.0") + " degrees heading");
  const std::string place =
      std::to_string(platform::ToInt32(az * 800 / 360)) + "," + std::to_string(platform::ToInt32(5 * (90 - el)));
  EXPECT_GE(log.IndexOf("Final BitBlt " + place + " 30x30 from MoonMask 0,0 and"), 0);
  EXPECT_GE(log.IndexOf("Final BitBlt " + place + " 30x30 from MoonPic 0,0 paint"), 0);
}

TEST_F(HorizonPainterTest, AMoonBelowOneDegreeIsBelowTheHorizon) {
  SeeAt("moon", 0.9);
  Paint();
  EXPECT_EQ(Printed().at(6), "The Moon is below the horizon.");
  EXPECT_EQ(log.GoldenText().find("MoonMask"), std::string::npos);
  EXPECT_FALSE(state.moon.drawn);
}

TEST_F(HorizonPainterTest, ASatelliteThatIsUpIsDrawnWithItsNameLeftOfItNotAboveIt) {
  SetFavourites({kStation});
  GoPastRise(kStation, 120);
  tables.SelSat = 1;
  Paint();
  const double x = AzimuthDeg(kStation) * 800 / 360;
  const double y = 5 * (90 - ElevationDeg(kStation));
  EXPECT_NEAR(Fave(1).Az, AzimuthDeg(kStation), 1e-9);
  EXPECT_NEAR(Fave(1).El, ElevationDeg(kStation), 1e-9);
  const std::string place = std::to_string(platform::ToInt32(x - 16)) + "," + std::to_string(platform::ToInt32(y - 20));
  const int at = log.IndexOf("Final BitBlt " + place + " 32x32 from SatMask(1)");
  ASSERT_GE(at, 0) << log.GoldenText();
  EXPECT_EQ(log.Between(at, at + 7),
            (Texts{"Final BitBlt " + place + " 32x32 from SatMask(1) 0,0 and",
                   "Final BitBlt " + place + " 32x32 from SatPic(1) 0,0 paint", "Final SetDrawMode no operation",
                   "Final DrawPoint " + AtPoint(x - 24, y - 20), "Final SetDrawMode copy", "Final SetPen #ffffff",
                   "Final Print \"ISS (ZARYA)\""}));
}

TEST_F(HorizonPainterTest, ANameChoosesItsSpriteAndItsRiseAsOnTheMapButForMirWhichIsKnownHereByItsWholeName) {
  const std::map<std::string, std::pair<int, int>> expected{
      {"AO-07", {0, 14}},   {"ISS (X)", {1, 24}}, {"XISS", {0, 14}},      {"MIR", {2, 24}},
      {"MIR DEB", {0, 14}}, {"STS-135", {3, 24}}, {"PHASE P3D", {4, 16}}, {"X AO-40", {4, 16}},
      {"ISS P3D", {4, 16}}, {"NOAA 15", {5, 21}}, {"iss", {0, 14}},       {"NOAA AO-40", {5, 21}}};
  Texts names;
  std::string sets;
  for (const auto& [name, look] : expected) {
    names.push_back(name);
    sets += name + "\n" + kStationLines;
  }
  Put("groups.dat", "Test,birds.txt,1\r\n");
  Put("birds.txt", sets);
  engine.SetDataFolder("/house/");
  SetFavourites(names);
  GoPastRise(names[0], 120);
  Paint();
  for (const auto& [name, look] : expected) {
    const int at = log.IndexOf("Final Print \"" + name + "\"");
    ASSERT_GE(at, 6) << name;
    const double x = AzToX(AzimuthDeg(name), 800, false);
    const double top = ElToY(ElevationDeg(name), 450) - 20;
    EXPECT_EQ(log.Between(at - 3, at - 2), Texts{"Final DrawPoint " + AtPoint(x - look.second, top)}) << name;
    EXPECT_NE(log.Between(at - 5, at - 4)[0].find("SatPic(" + std::to_string(look.first) + ")"), std::string::npos)
        << name;
  }
}

TEST_F(HorizonPainterTest, ASatelliteThatIsDownIsNotDrawnAndItsRowIsWritten) {
  SetFavourites({kStation});
  GoPastSet(kStation, 60);
  Paint();
  EXPECT_LT(Fave(1).El, 0);
  EXPECT_EQ(log.GoldenText().find("SatMask"), std::string::npos);
}

TEST_F(HorizonPainterTest, AnElevationOfExactlyZeroDrawsNothing) {
  SetFavourites({kNoSuch});
  Paint();
  EXPECT_EQ(Fave(1).El, 0);
  EXPECT_EQ(log.GoldenText().find("SatMask"), std::string::npos);
  EXPECT_EQ(TakeFaults().size(), 1u) << "one line for the name that the engine does not know";
}

TEST_F(HorizonPainterTest, WithNothingSelectedTheFirstOneInTheListThatIsUpIsTaken) {
  SetFavourites({"NOAA 19", kStation, "MOLNIYA 1-S"});
  GoPastRise(kStation, 120);
  ASSERT_LT(ElevationDeg("NOAA 19"), 0);
  Paint();
  EXPECT_EQ(tables.SelSat, 2);
  EXPECT_EQ(host.taken, std::vector<int>{2});
  Paint();
  EXPECT_EQ(host.taken, std::vector<int>{2}) << "once";
}

TEST_F(HorizonPainterTest, WithNothingSelectedAndNothingUpTheLastLineSaysSoAndNoTrackIsDrawn) {
  SetFavourites({kStation});
  GoPastSet(kStation, 60);
  Paint();
  EXPECT_EQ(Printed().back(), " No Satellite Selected");
  EXPECT_EQ(log.IndexOf("Final SetPen #00ff00"), -1);
  EXPECT_TRUE(host.taken.empty());
}

TEST_F(HorizonPainterTest, ASelectedOneThatHasJustSetIsDroppedAndAtTheNextPaintTheFirstOneUpTakesOver) {
  SetFavourites({kStation, "MOLNIYA 1-S"});
  StandBelow("MOLNIYA 1-S");  // it keeps its place in the sky for hours
  GoPastSet(kStation, 2);
  tables.SelSat = 1;
  Paint();
  EXPECT_EQ(tables.SelSat, 0);
  EXPECT_EQ(Printed().back(), " No Satellite Selected");
  EXPECT_TRUE(host.taken.empty());
  clock.AdvanceMs(1000);
  Paint();
  EXPECT_EQ(tables.SelSat, 2);
  EXPECT_EQ(host.taken, std::vector<int>{2});
}

TEST_F(HorizonPainterTest, ASelectedOneThatSetsWithinTheNextTenSecondsIsDroppedAlready) {
  SetFavourites({kStation});
  GoPastSet(kStation, -5);
  tables.SelSat = 1;
  Paint();
  EXPECT_GT(Fave(1).El, 0);
  EXPECT_EQ(tables.SelSat, 0) << "its track starts ahead of now";
}

TEST_F(HorizonPainterTest, ASelectedOneThatIsNoFavouriteAnyMoreHasNoTrack) {
  SetFavourites({kStation});
  tables.SelSat = 2;
  Paint();
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(HorizonPainterTest, TheLastLineTellsTheSelectedOneInWholeDegreesRoundedDown) {
  SetFavourites({kStation});
  GoPastRise(kStation, 200);
  tables.SelSat = 1;
  Paint();
  EXPECT_EQ(Printed().back(), " ISS (ZARYA)     AZ: " + FloorText(std::floor(AzimuthDeg(kStation))) +
                                  "      EL: " + FloorText(std::floor(ElevationDeg(kStation))));
  EXPECT_EQ(log.Of("Final DrawPoint").back(), "Final DrawPoint (-1,435)");
}

TEST_F(HorizonPainterTest, TheSelectedNameOfTheMapAndItsWarpClockAreNotTouched) {
  SetFavourites({kStation});
  tables.SelSatName = "HST";
  GoPastRise(kStation, 100);
  Paint();
  EXPECT_EQ(tables.SelSatName, "HST");
}

TEST_F(HorizonPainterTest, TheTrackIsARowOfGreenDotsFromTenSecondsAheadToTheSet) {
  SetFavourites({kStation});
  GoPastRise(kStation, 30);
  Track(kStation);
  const Texts expected = ExpectedDots(kStation);
  EXPECT_GT(expected.size(), 60u);
  EXPECT_EQ(log.Of("Final DrawPoint"), expected);
  EXPECT_EQ(log.Of("Final SetPen"), Texts(expected.size(), "Final SetPen #00ff00"));
}

TEST_F(HorizonPainterTest, ACarryThatIsPassedOverStillFollowsTheSatelliteAsDatesRollOver) {
  SetFavourites({kStation});
  GoPastRise(kStation, 30);
  const platform::DateParts now = orbit::NowLocalParts();
  for (const int second : {1, 50, 55, 59}) {
    clock.SetUtc(platform::DateParts{now.year, now.month, now.day, now.hour, now.minute, second});
    Track(kStation);
    EXPECT_EQ(log.Of("Final DrawPoint"), ExpectedDots(kStation)) << second;
  }
}

TEST_F(HorizonPainterTest, ATrackAcrossMidnightAtTheEndOfAMonthGoesOn) {
  clock.SetUtc(platform::DateParts{2026, 11, 30, 23, 0, 0});
  SetFavourites({"MOLNIYA 1-S"});
  StandBelow("MOLNIYA 1-S");
  clock.SetUtc(platform::DateParts{2026, 11, 30, 23, 59, 48});
  Track("MOLNIYA 1-S");
  EXPECT_EQ(log.Of("Final DrawPoint"), ExpectedDots("MOLNIYA 1-S"));
}

TEST_F(HorizonPainterTest, ATrackThatNeverSetsEndsAfterEightHundredAndOneDots) {
  StandBelow("MOLNIYA 1-S");
  Track("MOLNIYA 1-S");
  EXPECT_EQ(log.Of("Final DrawPoint").size(), 801u);
}

TEST_F(HorizonPainterTest, ATrackOfOneThatIsDownHasNoDotAndDropsTheSelection) {
  GoPastSet(kStation, 60);
  tables.SelSat = 7;
  Track(kStation);
  EXPECT_TRUE(log.operations.empty());
  EXPECT_EQ(tables.SelSat, 0);
}

TEST_F(HorizonPainterTest, ATrackThatReachesItsSetLeavesTheSelection) {
  GoPastRise(kStation, 30);
  tables.SelSat = 7;
  Track(kStation);
  EXPECT_EQ(tables.SelSat, 7);
}

TEST_F(HorizonPainterTest, ATrackWithoutPositionsEndsAtItsFirstFault) {
  SetFavourites({kNoSuch});
  tables.SelSat = 1;
  Track(kNoSuch);
  EXPECT_EQ(TakeFaults().size(), 1u) << "one line, not 801 on every second";
  EXPECT_EQ(tables.SelSat, 1);
}

TEST_F(HorizonPainterTest, TheSystemsClockCountsWhateverTheZone) {
  SetFavourites({kStation});
  GoPastRise(kStation, 120);
  clock.SetOffsetHours(-5);
  Paint();
  EXPECT_NEAR(Fave(1).El, ElevationDeg(kStation), 1e-9);
}

TEST_F(HorizonPainterTest, AFaultInOneStatementIsLoggedAndTheRestIsPainted) {
  SetFavourites({kStation, "NOAA 15"});
  GoPastRise(kStation, 120);
  bool failed = false;
  set.final.fail = [&](std::string_view operation) {
    if (operation != "BitBlt" || failed) return;
    failed = true;
    throw platform::Fault::DeviceError();
  };
  Paint();
  EXPECT_EQ(TakeFaults(), Texts{"Device I/O error - Horizon - PaintScreen"});
  EXPECT_EQ(Printed().front(), "NORTH");
  EXPECT_EQ(Printed().back().substr(0, 12), " ISS (ZARYA)");
}

TEST_F(HorizonPainterTest, AFaultInTheTrackIsLoggedWithItsOwnNameAndTheNextDotIsDrawn) {
  GoPastRise(kStation, 30);
  int dots = 0;
  set.final.fail = [&](std::string_view operation) {
    if (operation == "DrawPoint" && ++dots == 2) throw platform::Fault::Overflow();
  };
  Track(kStation);
  EXPECT_EQ(TakeFaults(), Texts{"Overflow - Horizon - DrawSkyTrack"});
  EXPECT_EQ(log.Of("Final DrawPoint").size() + 1, ExpectedDots(kStation).size());
}

TEST_F(HorizonPainterTest, ARowBeyondTheTableIsLoggedForEachRow) {
  tables.FaveCount = 502;
  tables.SelSat = 600;
  for (int i = 1; i <= 500; ++i) Fave(i).Name = kStation;
  Paint();
  EXPECT_EQ(TakeFaults(), Texts(4, "Subscript out of range - Horizon - PaintScreen"))
      << "two rows, the track and the last line";
}

TEST_F(HorizonPainterTest, EndsWhereTheWindowClosesInTheMessageOfTheSatelliteTaken) {
  SetFavourites({kStation, kStation, kStation});
  GoPastRise(kStation, 120);
  host.whenTaken = [&] { host.open = false; };
  Paint();
  EXPECT_EQ(log.GoldenText().find("SatMask"), std::string::npos);
  EXPECT_EQ(Fave(2).El, 0) << "no further row is calculated";
}

}  // namespace
}  // namespace kestrava::views2d
