#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Format.h"
#include "predict/QuickEta.h"

#include "support/RecordingList.h"
#include "support/SkyHouse.h"

namespace kestrava::predict {
namespace {

using Rows = std::vector<std::vector<std::string>>;

constexpr const char* kStation = "ISS (ZARYA)";
constexpr const char* kOscar = "OSCAR 7 (AO-7)";
constexpr const char* kNoaa = "NOAA 19";
constexpr const char* kNeverUp = "HIMAWARI-8";
const std::vector<std::string> kHeading{"SATELLITE", "AOS", "LOS"};

class QuickEta : public testing::SkyHouse {
 protected:
  double Now() { return clock.Read().utc; }
  double Rise(const char* name) { return engine.NextAOSTime(name, Now()); }
  std::string HourAndMinute(double utc) { return platform::Format(utc + clock.Read().local - Now(), "hh:mm"); }
  /// The row of a satellite that is below the horizon.
  std::vector<std::string> Coming(const char* name) {
    return {Padded(name), HourAndMinute(Rise(name)), HourAndMinute(engine.NextLOSTime(name, Rise(name)))};
  }
  std::vector<std::string> Up(const char* name) {
    return {Padded(name), "NOW", HourAndMinute(engine.NextLOSTime(name, Now()))};
  }
  static std::string Padded(std::string name) {
    name.resize(14, ' ');
    return name;
  }
  /// Puts the clock so that the satellite rises in so many seconds.
  void RiseIn(const char* name, double seconds) { clock.SetUtc(Rise(name) - seconds / 86400); }
  void SpeakUp() { settings.Set("Speechpack", "1"); }
  void Update(bool speak = false) { UpdateQuickETA(sky, list, speak); }
  Rows Listed() const { return list.rows; }
  /// Those of the three that are below now, the earliest rise first.
  std::vector<const char*> InOrderOfRise() {
    std::vector<const char*> names{kStation, kOscar, kNoaa};
    std::sort(names.begin(), names.end(), [&](const char* a, const char* b) { return Rise(a) < Rise(b); });
    return names;
  }

  testing::RecordingList list;
};

TEST_F(QuickEta, NoFavouritesGiveTheHeadingAlone) {
  Update();
  EXPECT_EQ(Listed(), Rows{kHeading});
  EXPECT_EQ(list.clears, 1);
  EXPECT_FALSE(QuickEtaBusy());
}

TEST_F(QuickEta, AllUpShowNowInTheirOrderAndNoneIsLost) {
  for (const char* name : {kNoaa, kStation, kOscar}) AddFavourite(name, 10);
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, Up(kNoaa), Up(kStation), Up(kOscar)}));
}

TEST_F(QuickEta, OnTheHorizonCountsAsUp) {
  AddFavourite(kStation, 0);
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, Up(kStation)}));
}

TEST_F(QuickEta, LatestRiseOfAllIsNotListed) {
  const std::vector<const char*> names = InOrderOfRise();
  AddFavourite(names[1], -1);
  AddFavourite(names[0], -1);
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, Coming(names[0])}));
}

TEST_F(QuickEta, OneBelowTheHorizonLeavesTheHeadingAlone) {
  AddFavourite(kStation, -1);
  Update();
  EXPECT_EQ(Listed(), Rows{kHeading});
}

TEST_F(QuickEta, ThoseThatAreUpStandBeforeThoseThatCome) {
  const std::vector<const char*> names = InOrderOfRise();
  AddFavourite(names[2], -1);
  AddFavourite(names[1], -1);
  AddFavourite(names[0], 5);
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, Up(names[0]), Coming(names[1])}));
}

TEST_F(QuickEta, OneThatNeverRisesStandsAboveThoseThatAreUpAsNow) {
  AddFavourite(kStation, 5);
  AddFavourite(kNeverUp, -30);
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, {Padded(kNeverUp), "NOW", "00:00"}, Up(kStation)}));
}

TEST_F(QuickEta, TimesAreLocal) {
  clock.SetOffsetHours(5.5);
  const std::vector<const char*> names = InOrderOfRise();
  AddFavourite(names[0], -1);
  AddFavourite(names[2], -1);
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, Coming(names[0])}));
}

TEST_F(QuickEta, NamesHaveFourteenCharacters) {
  AddFavourite("ABCDEFGHIJKLMNO", 5);
  Update();
  TakeFaults();
  ASSERT_EQ(list.rows.size(), 2U);
  EXPECT_EQ(list.rows[1][0], "ABCDEFGHIJKLMN");
}

TEST_F(QuickEta, RowsWithoutANameAreSkipped) {
  AddFavourite(" ", 5);
  AddFavourite(kStation, 5);
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, Up(kStation)}));
}

TEST_F(QuickEta, YieldsOncePerSatelliteTwicePerComparisonAndTwoHundredTimesPerRow) {
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, 5);
  AddFavourite(" ", 5);
  AddFavourite(kNoaa, -1);
  const int before = eventLoop.YieldCount();
  Update();
  EXPECT_EQ(eventLoop.YieldCount() - before, 3 + 2 * 4 * 4 + 200 * 4);
}

TEST_F(QuickEta, SpeaksWhenTheMinutesAreThoseOfTheStart) {
  SpeakUp();
  RiseIn(kStation, 10 * 60 + 30);
  AddFavourite(kStation, -1);
  AddFavourite(kNeverUp, -30);  // so that the one row that falls out is not the station's
  AddFavourite(kOscar, -1);
  Update(true);
  ASSERT_EQ(speech.said.size(), 1U);
  EXPECT_EQ(speech.said[0], "The International Space station will be in range in 10 minutes");
}

TEST_F(QuickEta, OneMinuteMoreIsSilent) {
  SpeakUp();
  settings.Set("SpeechEvery", "1");
  RiseIn(kStation, 11 * 60 + 30);
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  Update(true);
  EXPECT_TRUE(speech.said.empty());
}

TEST_F(QuickEta, SpeaksInTheRhythmOfTheSetting) {
  SpeakUp();
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  RiseIn(kStation, 9 * 60 + 30);
  Update(true);
  EXPECT_TRUE(speech.said.empty()) << "nine minutes are not a multiple of two";
  settings.Set("SpeechEvery", "3");
  Update(true);
  EXPECT_EQ(speech.said.size(), 1U);
}

TEST_F(QuickEta, ARiseWithinAMinuteIsAMultipleOfEveryRhythm) {
  SpeakUp();
  settings.Set("SpeechEvery", "7");
  RiseIn(kStation, 40);
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  Update(true);
  ASSERT_EQ(speech.said.size(), 1U);
  EXPECT_EQ(speech.said[0], "The International Space station will be in range in Less than a minute");
}

TEST_F(QuickEta, SpokenNamesHaveFourteenCharactersToo) {
  SpeakUp();
  RiseIn(kOscar, 90);
  settings.Set("SpeechEvery", "1");
  AddFavourite(kOscar, -1);
  AddFavourite(kStation, -1);
  Update(true);
  ASSERT_FALSE(speech.said.empty());
  EXPECT_EQ(speech.said[0], "OSCAR 7 (AO 7) will be in range in 1 minute");
}

TEST_F(QuickEta, WithoutSpeechNoSettingIsRead) {
  RiseIn(kStation, 90);
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  settings.ForgetAccesses();
  Update(false);
  EXPECT_TRUE(settings.Reads().empty());
  EXPECT_FALSE(settings.Has("SpeechStart"));
  EXPECT_FALSE(settings.Has("SpeechEvery"));
  EXPECT_EQ(list.rows.size(), 2U);
}

TEST_F(QuickEta, WithSpeechBothSettingsAreCreatedWhateverTheFirstSays) {
  clock.SetUtc(Rise(kStation) - 40 / 1440.0);
  AddFavourite(kStation, -1);
  AddFavourite(kNoaa, -1);
  Update(true);
  EXPECT_EQ(settings.Get("SpeechStart"), "10");
  EXPECT_EQ(settings.Get("SpeechEvery"), "2");
}

TEST_F(QuickEta, ARhythmOfZeroIsLoggedAndTheRowIsListed) {
  SpeakUp();
  settings.Set("SpeechEvery", "0");
  RiseIn(kStation, 90);
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  const std::vector<std::string> station = Coming(kStation);
  Update(true);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Division by zero - Global UpdateQuickETA"});
  EXPECT_NE(ErrorLog().at(0).find("Division by zero"), std::string::npos);
  EXPECT_TRUE(speech.said.empty());
  EXPECT_EQ(Listed(), (Rows{kHeading, station}));
}

TEST_F(QuickEta, AnUnknownSatelliteIsLoggedAndKeepsWhatStoodInItsRow) {
  AddFavourite(kStation, 5);
  AddFavourite("SPUTNIK", -1);
  Update();
  const std::vector<std::string> faults = TakeFaults();
  EXPECT_EQ(faults.size(), 2U) << "the rise and the set";
  for (const std::string& fault : faults) EXPECT_TRUE(fault.ends_with(" - Global UpdateQuickETA")) << fault;
  EXPECT_EQ(Listed(), (Rows{kHeading, Up(kStation), {Padded("SPUTNIK"), "NOW", "00:00"}}));
  EXPECT_FALSE(QuickEtaBusy());
}

TEST_F(QuickEta, AFullTableFailsAtTheRowBehindItAndIsListedAllTheSame) {
  for (int i = 1; i <= orbit::kFaveRows; ++i) AddFavourite(kStation, 5);
  Update();
  const std::vector<std::string> faults = TakeFaults();
  ASSERT_EQ(faults.size(), 500U) << "one for each pass of the sort";
  EXPECT_EQ(faults[0], "Subscript out of range - Global UpdateQuickETA");
  EXPECT_EQ(list.rows.size(), 501U);
}

TEST_F(QuickEta, ASecondCallDuringARunReturnsAtOnce) {
  AddFavourite(kStation, 5);
  testing::RecordingList other;
  eventLoop.AtYield(1, [&] {
    EXPECT_TRUE(QuickEtaBusy());
    UpdateQuickETA(sky, other, false);
  });
  Update();
  EXPECT_EQ(other.clears, 0);
  EXPECT_EQ(Listed(), (Rows{kHeading, Up(kStation)}));
  EXPECT_FALSE(QuickEtaBusy());
}

TEST_F(QuickEta, FavouritesThatChangeDuringARunAreReadAtTheirTurn) {
  AddFavourite(kStation, 5);
  AddFavourite(kOscar, 5);
  eventLoop.AtYield(1, [&] { tables.FaveList[2].Name = kNoaa; });
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, Up(kStation), Up(kNoaa)}));
}

TEST_F(QuickEta, ARunThatIsForgottenInAnyYieldTouchesNothingAnyMore) {
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, 5);
  const int yields = 2 + 2 * 2 * 2 + 200 * 2;
  for (int n = 1; n <= yields; n += n < 12 ? 1 : 97) {
    auto window = std::make_unique<testing::RecordingList>();
    auto ownEngine = std::make_unique<orbit::OrbitEngine>();
    ownEngine->SetDataFolder(engine.DataFolder());
    eventLoop.AtYield(n, [&] {
      ForgetQuickEta(*window);
      EXPECT_FALSE(QuickEtaBusy());
      window.reset();
      ownEngine.reset();
    });
    UpdateQuickETA({tables, *ownEngine}, *window, false);
    EXPECT_EQ(window, nullptr) << n;
    EXPECT_FALSE(QuickEtaBusy()) << n;
  }
}

TEST_F(QuickEta, ForgettingAnotherWindowsListLeavesTheRunAlone) {
  AddFavourite(kStation, 5);
  testing::RecordingList other;
  eventLoop.AtYield(1, [&] { ForgetQuickEta(other); });
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, Up(kStation)}));
}

TEST_F(QuickEta, ANewRunMayStartInsideOneThatWasForgotten) {
  AddFavourite(kStation, 5);
  testing::RecordingList second;
  eventLoop.AtYield(2, [&] {
    ForgetQuickEta();
    UpdateQuickETA(sky, second, false);
    EXPECT_FALSE(QuickEtaBusy());
  });
  Update();
  EXPECT_EQ(list.clears, 0);
  EXPECT_EQ(second.rows, (Rows{kHeading, Up(kStation)}));
  Update();
  EXPECT_EQ(Listed(), (Rows{kHeading, Up(kStation)}));
}

TEST_F(QuickEta, ARunThatWasForgottenDoesNotClearTheFlagOfALaterOne) {
  AddFavourite(kStation, 5);
  testing::RecordingList second;
  bool busyInside = false;
  eventLoop.AtYield(1, [&] {
    ForgetQuickEta();
    eventLoop.AtYield(1, [&] { busyInside = QuickEtaBusy(); });
    UpdateQuickETA(sky, second, false);
  });
  Update();
  EXPECT_TRUE(busyInside);
  EXPECT_FALSE(QuickEtaBusy());
}

TEST(EtaTexts, OfMinutes) {
  EXPECT_EQ(EtaText(0), "Less than a minute");
  EXPECT_EQ(EtaText(1), "1 minute");
  EXPECT_EQ(EtaText(2), "2 minutes");
  EXPECT_EQ(EtaText(59), "59 minutes");
  EXPECT_EQ(EtaText(-1), "");
}

}  // namespace
}  // namespace kestrava::predict
