// A newcomer's first hour by the keyboard alone, on a machine with a decimal comma and on one with a point: what he
// sees and hears on the way, what the files hold afterwards (by the rules, and byte for byte), and that a second start
// shows it all as he left it.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include <gtest/gtest.h>

#include "first_hour/HourRules.h"

namespace kestrava::first_hour {
namespace {

constexpr User kUsers[] = {{"de_DE", ','}, {"en_US", '.'}};
constexpr double kSecondOfArcDeg = 1.0 / 3600;

/// Each user's hour is lived through once.
const HourRecord& HourOf(const User& user) {
  static std::map<char, HourRecord> hours;
  auto hour = hours.find(user.decimalSign);
  if (hour == hours.end()) {
    hour = hours.emplace(user.decimalSign, LiveThrough(user)).first;
    std::cout << "[ hour     ] " << user.locale << ": " << hour->second.keysPressed << " keys\n";
  }
  return hour->second;
}

class FirstHour : public ::testing::TestWithParam<User> {
 protected:
  void SetUp() override { ASSERT_EQ(hour.failure, ""); }
  std::string Number(const char* number) const { return first_hour::Number(user, number); }

  const User user = GetParam();
  const HourRecord& hour = HourOf(user);
};

std::string At(const Shown& shown, const std::string& control) {
  const auto found = shown.find(control);
  return found == shown.end() ? "there is no " + control : found->second;
}

/// Files that hold typed or computed numbers are written with the machine's own decimal sign.
std::string GoldenName(const User& user, const std::string& name, bool holdsNumbers) {
  const std::string kind = !holdsNumbers ? "" : user.decimalSign == ',' ? "comma." : "point.";
  return KESTRAVA_TEST_DATA "golden/first_hour/" + kind + name;
}

void ExpectGolden(const std::string& file, const std::string& bytes) {
  if (std::getenv("KESTRAVA_WRITE_GOLDEN")) {
    std::filesystem::create_directories(std::filesystem::path(file).parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
  }
  std::ostringstream golden;
  golden << std::ifstream(file, std::ios::binary).rdbuf();
  EXPECT_FALSE(golden.str().empty()) << file;
  EXPECT_EQ(bytes, golden.str()) << file;
}

TEST_P(FirstHour, PassesWithoutAFaultAndWithNoBoxButThoseHeExpected) {
  Lines faults = hour.faults;
  // An open map to which he comes back with more favourites takes them into its menu; the entries of the twelve that it
  // has are logged. That is meant.
  EXPECT_EQ(std::erase(faults, "Object already loaded - map - Form_activate"), 12U);
  EXPECT_EQ(faults, Lines());
  EXPECT_EQ(hour.boxes.size(), 4U);
}

TEST_P(FirstHour, PlaceInPartsIsToldInWordsBeforeItIsStored) {
  EXPECT_EQ(At(hour.placeTyped, "LAplace"), "47° 22' 40\" north, 8° 32' 30\" east");
}

TEST_P(FirstHour, PlaceInPartsIsSeenOnTheMapAtOnce) {
  const SeenPlace& seen = hour.firstPlace;
  EXPECT_TRUE(seen.marked);
  EXPECT_FALSE(seen.oldMarked) << "the place of the first start is still there";
  EXPECT_EQ(seen.name, kFirstPlaceName);
  EXPECT_NEAR(seen.latitudeDeg, 47 + 22 / 60.0 + 40 / 3600.0, 1e-6);
  EXPECT_NEAR(seen.longitudeDegEast, 8 + 32 / 60.0 + 30 / 3600.0, 1e-6);
  EXPECT_EQ(seen.heightM, 408);
}

TEST_P(FirstHour, OpenMapFollowsANewPrimaryLocationAtOnce) {
  const SeenPlace& seen = hour.primaryPlace;
  EXPECT_TRUE(seen.marked);
  EXPECT_EQ(seen.name, "London");
  EXPECT_NEAR(seen.latitudeDeg, 51.5, 1e-6);
  EXPECT_NEAR(seen.longitudeDegEast, 360 - 0.1278, 1e-6);
  EXPECT_EQ(seen.heightM, 11);
}

TEST_P(FirstHour, CityFillsTheFieldsWithItsSigns) {
  EXPECT_EQ(At(hour.cityPicked, "Tlocation"), "Quito");
  EXPECT_EQ(At(hour.cityPicked, "tLAT2"), Number("0.213"));
  EXPECT_EQ(At(hour.cityPicked, "TLON2"), Number("78.502"));
  for (const char* page : {"0", "2"}) {
    EXPECT_EQ(At(hour.cityPicked, std::string("CHns(") + page + ")"), "0") << "it lies south";
    EXPECT_EQ(At(hour.cityPicked, std::string("CHew(") + page + ")"), "1") << "it lies west";
  }
}

TEST_P(FirstHour, TenFavouritesAreTicked) {
  EXPECT_EQ(hour.ticked, TenTicked());
  EXPECT_EQ(hour.ticked.size(), 10U);
}

TEST_P(FirstHour, GroupOfOnesOwnListsTheSatellitesOfItsFile) {
  EXPECT_EQ(hour.ownGroupLists, std::string("0 ") + kHandMadeSatellite + "\n");
}

TEST_P(FirstHour, VoiceAndSpeedAreHeardAtOnce) {
  const auto& heard = hour.voice.heard;
  ASSERT_EQ(heard.size(), hour.heardBeforeSpeechOn + 2) << "the two choices of a voice, and nothing else";
  const Heard& first = heard[heard.size() - 2];
  EXPECT_EQ(first.text, "Changed Voice to Deutsch");
  EXPECT_EQ(first.voice, "Deutsch");
  EXPECT_EQ(first.wordsPerMinute, 180);
  const Heard& second = heard.back();
  EXPECT_EQ(second.text, "Changed Voice to Scottish");
  EXPECT_EQ(second.voice, "Scottish");
  EXPECT_EQ(second.wordsPerMinute, 201);
}

TEST_P(FirstHour, ClocksAndLookFollowAtOnce) {
  EXPECT_EQ(At(hour.launcherAtFirst, "lblClock"), "Local Time");
  EXPECT_EQ(At(hour.launcherChanged, "lblClock"), "UTC Time");
  EXPECT_FALSE(hour.skinChanged);
}

TEST_P(FirstHour, NextStartWelcomesHimWithTheVoiceAndTheSpeedThatHeChose) {
  ASSERT_FALSE(hour.voiceAgain.heard.empty());
  const Heard& welcome = hour.voiceAgain.heard.front();
  EXPECT_EQ(welcome.text.rfind("Welcome to Kes Trava.", 0), 0U) << welcome.text;
  EXPECT_EQ(welcome.voice, "Scottish");
  EXPECT_EQ(welcome.wordsPerMinute, 201);
}

TEST_P(FirstHour, FavouritesAreStoredByTheRules) {
  EXPECT_EQ(LinesOf(hour.left.faves), ExpectedFaves());
  ExpectGolden(GoldenName(user, "faves.dat", false), hour.left.faves);
}

TEST_P(FirstHour, GroupsAreStoredByTheRules) {
  EXPECT_EQ(LinesOf(hour.left.groups), ExpectedGroups());
  ExpectGolden(GoldenName(user, "groups.dat", false), hour.left.groups);
}

TEST_P(FirstHour, PlacesAreStoredByTheRules) {
  EXPECT_EQ(LinesOf(hour.left.locations), ExpectedLocations(user));
  ExpectGolden(GoldenName(user, "Locations.dat", true), hour.left.locations);
}

TEST_P(FirstHour, SettingsAreStoredByTheRules) {
  std::map<std::string, std::string> stored;
  for (const std::string& line : LinesOf(hour.left.settings)) {
    const std::size_t equals = line.find('=');
    stored[line.substr(0, equals)] = line.substr(equals + 1);
  }
  EXPECT_EQ(stored, ExpectedSettings(user));
  ExpectGolden(GoldenName(user, "settings.conf", true), hour.left.settings);
}

TEST_P(FirstHour, LookingAtEverythingAfterANewStartChangesNoByte) {
  EXPECT_EQ(hour.found.faves, hour.left.faves);
  EXPECT_EQ(hour.found.groups, hour.left.groups);
  EXPECT_EQ(hour.found.locations, hour.left.locations);
  EXPECT_EQ(hour.found.settings, hour.left.settings);
}

TEST_P(FirstHour, MainSettingsStandAsHeLeftThem) {
  const Shown& shown = hour.mainSettings;
  const std::map<std::string, std::string> expected{{"CHspeechpack", "1"},    {"VoiceSelect", "Scottish"},
                                                    {"SLspeechspeed", "201"}, {"LAspeechspeed", "201 WPM"},
                                                    {"CBOevery", "5"},        {"CBOstart", "20"},
                                                    {"OPclocks(0)", "0"},     {"OPclocks(1)", "0"},
                                                    {"OPclocks(2)", "1"},     {"CHmiles", "1"},
                                                    {"CHskin", "0"},          {"CHdde", "0"},
                                                    {"CHautoSelect", "0"},    {"CHrecwxsat", "0"},
                                                    {"CHrecPrimary", "0"},    {"SLminEl", "0"},
                                                    {"LAminEl", "0 Degrees"}, {"LAWxWavDir", "/house/"}};
  for (const auto& [control, content] : expected) EXPECT_EQ(At(shown, control), content) << control;
}

TEST_P(FirstHour, PicturesStandAsHeLeftThem) {
  EXPECT_EQ(At(hour.settings2D, "COMmap"), "Relief");
  EXPECT_EQ(At(hour.settings2D, "COMhormap"), "hsea");
  EXPECT_EQ(hour.mapPicture, "Relief");
  EXPECT_EQ(hour.horizonPicture, "hsea");
}

TEST_P(FirstHour, PlacesStandAsHeLeftThem) {
  EXPECT_EQ(At(hour.locations, "ListLocations"),
            "1 London (Primary Location)\n0 Greenwich\n0 Kennedy Space Center\n1 Kourou\n1 Baikonur\n0 Houston\n"
            "0 Jodrell Bank\n1 Parkes\n0 Tokyo\n0 Mauna Kea\n0 Sao Paulo\n1 Z\u00fcrich\n1 Quito\n");
  EXPECT_EQ(At(hour.locations, "Tlocation"), "London");
  EXPECT_EQ(At(hour.locations, "tHASL"), "11");
  EXPECT_EQ(At(hour.locations, "tLAT2"), Number("51.5"));
  EXPECT_EQ(At(hour.locations, "TLON2"), Number("0.1278"));
  EXPECT_EQ(At(hour.locations, "CHns(0)"), "1");
  EXPECT_EQ(At(hour.locations, "CHew(0)"), "1");
  EXPECT_EQ(At(hour.locations, "LAplace"), "51° 30' 00\" north, 0° 07' 40\" west");
}

TEST_P(FirstHour, GroupsAndTicksStandAsHeLeftThem) {
  EXPECT_EQ(At(hour.groups, "GroupList"),
            "Amateur Radio\nSpace Stations\nWeather\nBrightest\nGeostationary\nGPS Operational\nIridium\nMolniya\n"
            "Search and Rescue\nMy own\n");
  Lines ticked = TenTicked();
  for (const char* before : {"NOAA 15", "NOAA 18", "NOAA 19", "METEOR-M 2"}) ticked.emplace_back(before);
  Lines shown = hour.tickedAgain;
  std::sort(ticked.begin(), ticked.end());
  std::sort(shown.begin(), shown.end());
  EXPECT_EQ(shown, ticked);
  EXPECT_EQ(At(hour.groups, "FavouriteCount"), "22 of 499 favourites");
}

TEST_P(FirstHour, ViewsShowThePrimaryFavouriteMilesAndUniversalTimeAgain) {
  EXPECT_EQ(At(hour.launcher, "lblClock"), "UTC Time");
  EXPECT_EQ(At(hour.map, "RemoteStat(0)"), "Satellite : FORMOSAT-3 FM3");
  const std::string height = At(hour.map, "RemoteStat(5)");
  EXPECT_TRUE(height.starts_with("Height : ") && height.ends_with(" Miles")) << height;
}

TEST_P(FirstHour, MapAndEngineAreAtHisPlaceAgain) {
  EXPECT_TRUE(hour.placeAgain.marked);
  EXPECT_EQ(hour.placeAgain.name, "London");
  EXPECT_NEAR(hour.placeAgain.latitudeDeg, 51.5, kSecondOfArcDeg / 3600);
  EXPECT_NEAR(hour.placeAgain.longitudeDegEast, 360 - 0.1278, kSecondOfArcDeg / 3600);
  EXPECT_EQ(hour.placeAgain.heightM, 11);
}

INSTANTIATE_TEST_SUITE_P(Users, FirstHour, ::testing::ValuesIn(kUsers),
                         [](const auto& each) { return std::string(each.param.locale); });

}  // namespace
}  // namespace kestrava::first_hour
