// The machine's clock, its folders and its place.
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

#include "platform/linux/MachinePlaces.h"
#include "platform/linux/SystemClock.h"

#include "support/House.h"
#include "support/TempFolder.h"

namespace kestrava::platform {
namespace {

namespace fs = std::filesystem;

/// An environment variable for as long as it lives.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    const char* earlier = std::getenv(name);
    if (earlier) earlier_ = earlier;
    value ? ::setenv(name, value, 1) : ::unsetenv(name);
    ::tzset();
  }
  ~Variable() {
    earlier_ ? ::setenv(name_, earlier_->c_str(), 1) : ::unsetenv(name_);
    ::tzset();
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> earlier_;
};

TEST(MachineClock, BothTimesAreOfOneMoment) {
  const Variable zone("TZ", "UTC-05:30");
  const ClockReading reading = ReadingOf(1709245815, 500000000);  // 29 February 2024, 22:30:15.5
  EXPECT_NEAR(reading.utc, MakeSerial({2024, 2, 29, 22, 30, 15}) + 0.5 / 86400, 1e-10);
  EXPECT_EQ(SplitSerial(reading.local - 0.4 / 86400), (DateParts{2024, 3, 1, 4, 0, 15}));
  EXPECT_NEAR(reading.local - reading.utc, 5.5 / 24, 1e-10);
}

TEST(MachineClock, FollowsSummerTime) {
  const Variable zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
  const auto offsetHours = [](long long seconds) {
    const ClockReading reading = ReadingOf(seconds, 0);
    return (reading.local - reading.utc) * 24;
  };
  EXPECT_NEAR(offsetHours(1711846799), 1, 1e-6);  // 31 March 2024, 00:59:59 UTC
  EXPECT_NEAR(offsetHours(1711846800), 2, 1e-6);
}

TEST(MachineClock, AnotherDateHasTheOffsetOfItsOwnSeason) {
  const Variable zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
  SystemClock clock;
  const auto offsetHours = [&](const DateParts& utc) {
    return (clock.LocalAt(MakeSerial(utc)) - MakeSerial(utc)) * 24;
  };
  EXPECT_NEAR(offsetHours({2026, 1, 15, 12, 0, 0}), 1, 1e-6);
  EXPECT_NEAR(offsetHours({2026, 7, 15, 12, 0, 0}), 2, 1e-6);
  EXPECT_NEAR(offsetHours({2026, 10, 25, 0, 59, 59}), 2, 1e-6);
  EXPECT_NEAR(offsetHours({2026, 10, 25, 1, 0, 0}), 1, 1e-6);
}

TEST(MachineClock, ReadsTheMachine) {
  SystemClock clock;
  const auto before = static_cast<double>(std::time(nullptr));
  const double seconds = (clock.Read().utc - 25569) * 86400;
  const auto after = static_cast<double>(std::time(nullptr)) + 1;
  EXPECT_GE(seconds, before - 1e-3);
  EXPECT_LE(seconds, after + 1e-3);
  SystemStopwatch stopwatch;
  const double first = stopwatch.ElapsedMs();
  EXPECT_GE(first, 0);
  EXPECT_GE(stopwatch.ElapsedMs(), first);
}

TEST(MachineRandom, StaysInItsRange) {
  SystemRandom random;
  bool differs = false;
  const double first = random.Next();
  for (int i = 0; i < 1000; ++i) {
    const double number = random.Next();
    ASSERT_TRUE(number >= 0 && number < 1) << number;
    differs = differs || number != first;
  }
  EXPECT_TRUE(differs);
}

TEST(MachineFolders, FollowTheXdgVariablesIfTheyAreAbsolute) {
  const Variable home("HOME", "/home/user");
  {
    const Variable data("XDG_DATA_HOME", "/data");
    const Variable config("XDG_CONFIG_HOME", "/config");
    EXPECT_EQ(DataHome(), "/data");
    EXPECT_EQ(ConfigHome(), "/config");
  }
  for (const char* value : {static_cast<const char*>(nullptr), "", "relative"}) {
    const Variable data("XDG_DATA_HOME", value);
    const Variable config("XDG_CONFIG_HOME", value);
    EXPECT_EQ(DataHome(), "/home/user/.local/share");
    EXPECT_EQ(ConfigHome(), "/home/user/.config");
  }
}

TEST(TimeZones, TheVariableGoesFirstThenTheLinkThenTheNameFile) {
  const kestrava::testing::TempFolder folder;
  fs::create_symlink("/usr/share/zoneinfo/Asia/Tokyo", folder / "localtime");
  std::ofstream(folder / "timezone") << "America/New_York\n";
  const ZoneSources all{"Europe/Berlin", folder / "localtime", folder / "timezone"};
  EXPECT_EQ(TimeZoneName(all), "Europe/Berlin");
  EXPECT_EQ(TimeZoneName({":Europe/Berlin", {}, {}}), "Europe/Berlin");
  EXPECT_EQ(TimeZoneName({":/usr/share/zoneinfo/Europe/Berlin", {}, {}}), "Europe/Berlin");
  EXPECT_EQ(TimeZoneName({"", folder / "localtime", folder / "timezone"}), "Asia/Tokyo");
  EXPECT_EQ(TimeZoneName({"", folder / "none", folder / "timezone"}), "America/New_York");
  EXPECT_EQ(TimeZoneName({"", folder / "none", folder / "none"}), "");
}

constexpr const char* kTable =
    "# remarks\n"
    "DE,DK\t+5230+01322\tEurope/Berlin\tmost of Germany\n"
    "AR\t-3436-05827\tAmerica/Argentina/Buenos_Aires\n"
    "AQ\t-720041+0023206\tAntarctica/Troll\n"
    "XX\tnonsense\tNo/Where\n"
    "YY\t+\tNo/Where\n";

TEST(TimeZones, TheTableTellsTheMainPlaceOfAZone) {
  const auto berlin = PlaceOfZone("Europe/Berlin", kTable);
  ASSERT_TRUE(berlin);
  EXPECT_NEAR(berlin->latitudeDeg, 52.5, 1e-9);
  EXPECT_NEAR(berlin->longitudeEastDeg, 13 + 22.0 / 60, 1e-9);
  const auto aires = PlaceOfZone("America/Argentina/Buenos_Aires", kTable);
  ASSERT_TRUE(aires);
  EXPECT_NEAR(aires->latitudeDeg, -34.6, 1e-9);
  EXPECT_NEAR(aires->longitudeEastDeg, -58.45, 1e-9);
  const auto troll = PlaceOfZone("Antarctica/Troll", kTable);
  ASSERT_TRUE(troll);
  EXPECT_NEAR(troll->latitudeDeg, -(72 + 41.0 / 3600), 1e-9);
  EXPECT_NEAR(troll->longitudeEastDeg, 2 + 32.0 / 60 + 6.0 / 3600, 1e-9);
}

TEST(TimeZones, AZoneWithoutAPlaceHasNone) {
  EXPECT_FALSE(PlaceOfZone("Etc/UTC", kTable));
  EXPECT_FALSE(PlaceOfZone("No/Where", kTable));
  EXPECT_FALSE(PlaceOfZone("", kTable));
}

TEST(TimeZones, ZonesThatAreLinksTodayAreFoundInTheOlderTable) {
  const kestrava::testing::TempFolder folder;
  const Variable zone("TZ", "Europe/Amsterdam");
  EXPECT_FALSE(MachinePlace(folder.Path()));
  std::ofstream(folder / "zone1970.tab") << kTable;
  std::ofstream(folder / "zone.tab") << "NL\t+5222+00454\tEurope/Amsterdam\n";
  const auto place = MachinePlace(folder.Path());
  ASSERT_TRUE(place);
  EXPECT_EQ(place->zone, "Europe/Amsterdam");
  EXPECT_NEAR(place->longitudeEastDeg, 4.9, 1e-9);
}

}  // namespace
}  // namespace kestrava::platform
