// The quick ETA watch in its small print: which moment each step asks, what a failing step leaves, and what is said.

#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Files.h"
#include "platform/Format.h"
#include "predict/QuickEta.h"

#include "support/ElementText.h"
#include "support/RecordingList.h"
#include "support/SkyHouse.h"

namespace kestrava::predict {
namespace {

using Row = std::vector<std::string>;
using Rows = std::vector<Row>;

constexpr const char* kStation = "ISS (ZARYA)";
constexpr const char* kOscar = "OSCAR 7 (AO-7)";
constexpr const char* kNoaa = "NOAA 19";
constexpr const char* kNeverUp = "HIMAWARI-8";
const Row kHeading{"SATELLITE", "AOS", "LOS"};

class QuickEtaContract : public testing::SkyHouse {
 protected:
  double Now() { return clock.Read().utc; }
  double Rise(const char* name, double utc) { return engine.NextAOSTime(name, utc); }
  std::string HourAndMinute(double utc) { return platform::Format(utc + clock.Read().local - Now(), "hh:mm"); }
  static std::string Padded(std::string name) {
    name.resize(14, ' ');
    return name;
  }
  Row Coming(const char* name, double utc) {
    const double rise = Rise(name, utc);
    return {Padded(name), HourAndMinute(rise), HourAndMinute(engine.NextLOSTime(name, rise))};
  }
  void RiseIn(const char* name, double seconds) { clock.SetUtc(Rise(name, Now()) - seconds / 86400); }
  void SpeakUp(const char* every = "1") {
    settings.Set("Speechpack", "1");
    settings.Set("SpeechEvery", every);
  }
  void Update(bool speak = false) { UpdateQuickETA(sky, list, speak); }

  testing::RecordingList list;
};

TEST_F(QuickEtaContract, RisesAreSoughtFromTheStartOfTheRunSetsFromThePresent) {
  const double start = Now();
  const double later = start + 3.0 / 24;
  std::vector<const char*> names{kStation, kNoaa};
  std::sort(names.begin(), names.end(), [&](auto* a, auto* b) { return Rise(a, start) < Rise(b, start); });
  ASSERT_NE(Rise(names[0], start), Rise(names[0], later)) << "the hours between must matter";
  AddFavourite(kOscar, 5);
  AddFavourite(kOscar, 5);
  AddFavourite(names[0], -1);
  AddFavourite(names[1], -1);
  eventLoop.AtYield(1, [&] { clock.SetUtc(later); });
  eventLoop.AtYield(4, [&] { clock.SetUtc(start); });
  Update();
  ASSERT_EQ(list.rows.size(), 4U);
  EXPECT_EQ(list.rows[1][2], HourAndMinute(engine.NextLOSTime(kOscar, start)));
  EXPECT_EQ(list.rows[2][2], HourAndMinute(engine.NextLOSTime(kOscar, later)));
  EXPECT_EQ(list.rows[3], Coming(names[0], start));
}

TEST_F(QuickEtaContract, ARiseThatComesToPassDuringTheRunIsListedAsNow) {
  RiseIn(kStation, 30);
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  ASSERT_GT(Rise(kOscar, Now()), Rise(kStation, Now()));
  const Row coming = Coming(kStation, Now());
  const int untilTheListing = 2 + 2 * 2 * 2;
  eventLoop.AtYield(untilTheListing, [&] { clock.SetUtc(Now() + 60.0 / 86400); });
  Update();
  ASSERT_EQ(list.rows.size(), 2U);
  EXPECT_EQ(list.rows[1], (Row{Padded(kStation), "NOW", coming[2]}));
}

TEST_F(QuickEtaContract, OneThatNeverRisesEndsAtTheOffsetOfTheZone) {
  AddFavourite(kNeverUp, -30);
  AddFavourite(kStation, 5);
  clock.SetOffsetHours(5.5);
  Update();
  ASSERT_EQ(list.rows.size(), 3U);
  EXPECT_EQ(list.rows[1], (Row{Padded(kNeverUp), "NOW", "05:30"}));
  clock.SetOffsetHours(-5);
  Update();
  EXPECT_EQ(list.rows[1], (Row{Padded(kNeverUp), "NOW", "05:00"})) << "a negative date's fraction counts by its size";
}

TEST_F(QuickEtaContract, SeveralThatNeverRiseKeepTheirOrderOnTop) {
  AddFavourite(kStation, 5);
  AddFavourite(kNeverUp, -30);
  AddFavourite(kNeverUp, -31);
  Update();
  ASSERT_EQ(list.rows.size(), 4U);
  EXPECT_EQ(list.rows[1][0], Padded(kNeverUp));
  EXPECT_EQ(list.rows[2][0], Padded(kNeverUp));
  EXPECT_EQ(list.rows[3][0], Padded(kStation));
}

TEST_F(QuickEtaContract, AnUnknownSatelliteKeepsItsEmptyRowInEveryZone) {
  clock.SetOffsetHours(3);
  AddFavourite(kStation, 5);
  AddFavourite("SPUTNIK", -1);
  AddFavourite("LUNIK", 5);
  Update();
  EXPECT_EQ(TakeFaults().size(), 3U) << "rise and set of the one, set of the other";
  ASSERT_EQ(list.rows.size(), 4U);
  EXPECT_EQ(list.rows[2], (Row{Padded("SPUTNIK"), "NOW", "00:00"}));
  EXPECT_EQ(list.rows[3], (Row{Padded("LUNIK"), "NOW", "00:00"}));
}

TEST_F(QuickEtaContract, AFavouriteInOtherLettersIsWatchedUnderItsOwnSpelling) {
  const double start = Now();
  AddFavourite("Iss (Zarya)", 5);
  Update();
  EXPECT_TRUE(TakeFaults().empty());
  EXPECT_EQ(list.rows,
            (Rows{kHeading, {Padded("Iss (Zarya)"), "NOW", HourAndMinute(engine.NextLOSTime(kStation, start))}}));
}

TEST_F(QuickEtaContract, ARiseOverADayAwayIsSpokenByItsTimeOfDay) {
  // Two that drift round the sky in some ten days.
  constexpr const char* kSlow = "   0.1000   0.0000 0001000   0.0000   0.0000  1.10000000 1000";
  constexpr const char* kSlower = "   0.1000   0.0000 0001000   0.0000  30.0000  1.10000000 1000";
  Put("amateur.txt", testing::ElementText("DRIFT A", 1, kSlow) + testing::ElementText("DRIFT B", 2, kSlower));
  engine.SetDataFolder(platform::AppDir);
  std::vector<const char*> names{"DRIFT A", "DRIFT B"};
  std::sort(names.begin(), names.end(), [&](auto* a, auto* b) { return Rise(a, Now()) < Rise(b, Now()); });
  RiseIn(names[0], 86400 + 5 * 60 + 30);
  ASSERT_GT(Rise(names[0], Now()) - Now(), 1);
  ASSERT_GT(Rise(names[1], Now()), Rise(names[0], Now()));
  AddFavourite(names[1], -1);
  AddFavourite(names[0], -1);
  SpeakUp();
  Update(true);
  EXPECT_EQ(speech.said, std::vector<std::string>{Padded(names[0]) + " will be in range in 5 minutes"});
}

TEST_F(QuickEtaContract, ANameIsCutAndFilledByCharactersNotBytes) {
  AddFavourite("\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5x", 5);
  AddFavourite("\u00c5", 5);
  Update();
  TakeFaults();
  ASSERT_EQ(list.rows.size(), 3U);
  EXPECT_EQ(list.rows[1][0], "\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5\u00c5");
  EXPECT_EQ(list.rows[2][0], "\u00c5             ");
}

TEST_F(QuickEtaContract, ARhythmOfZeroFailsAlsoWhereTheStartIsFarOff) {
  SpeakUp("0");
  RiseIn(kStation, 40 * 60);
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  const char* first = Rise(kStation, Now()) < Rise(kOscar, Now()) ? kStation : kOscar;
  const Row coming = Coming(first, Now());
  Update(true);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Division by zero - Global UpdateQuickETA"});
  EXPECT_EQ(list.rows, (Rows{kHeading, coming}));
}

TEST_F(QuickEtaContract, ARhythmOfZeroIsHarmlessWithoutSpeech) {
  SpeakUp("0");
  RiseIn(kStation, 90);
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  Update(false);
  EXPECT_TRUE(TakeFaults().empty());
  EXPECT_EQ(list.rows.size(), 2U);
}

TEST_F(QuickEtaContract, ASettingThatIsNoNumberIsLoggedAndTheRowIsListed) {
  SpeakUp();
  settings.Set("SpeechStart", "soon");
  RiseIn(kStation, 90);
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  Update(true);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Type mismatch - Global UpdateQuickETA"});
  EXPECT_TRUE(speech.said.empty());
  EXPECT_EQ(list.rows.size(), 2U);
}

TEST_F(QuickEtaContract, OnlyTheGateOfSpeechDecidesWhatIsHeard) {
  RiseIn(kStation, 90);
  settings.Set("SpeechEvery", "1");
  AddFavourite(kStation, -1);
  AddFavourite(kOscar, -1);
  Update(true);
  EXPECT_TRUE(speech.said.empty()) << "Speechpack is off";
  settings.Set("Speechpack", "1");
  Update(true);
  EXPECT_EQ(speech.said, std::vector<std::string>{"The International Space station will be in range in 1 minute"});
}

TEST_F(QuickEtaContract, ACountBelowZeroIsAnEmptyList) {
  tables.FaveCount = -3;
  Update();
  EXPECT_EQ(list.rows, Rows{kHeading});
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(QuickEtaContract, TheTableStartsEmptyAtEachRun) {
  AddFavourite(kStation, 5);
  AddFavourite(kOscar, 5);
  Update();
  tables.FaveList[1].Name = " ";
  Update();
  ASSERT_EQ(list.rows.size(), 2U);
  EXPECT_EQ(list.rows[1][0], kOscar);
}

}  // namespace
}  // namespace kestrava::predict
