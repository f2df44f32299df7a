// Commands change nothing, and read what the windows read.
#include <algorithm>

#include <gtest/gtest.h>

#include "cli/ReadOnlyDoors.h"
#include "cli/Terminal.h"
#include "platform/Doors.h"
#include "platform/Settings.h"

namespace kestrava::cli {
namespace {

using ReadOnly = Terminal;

TEST_F(ReadOnly, NoCommandWritesAnything) {
  Put("faves.dat", "NOBODY KNOWS\r\nISS (ZARYA)\r\n\r\nNOAA 15");  // a loader would put this in order
  Put("pass.dat", "Mine\r\nISS (ZARYA);\r\n2\r\n1\r\n1\r\n");
  const std::string faves = Content("faves.dat");
  const int changes = files.ChangeCount();
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"passes", "25544"},
                                                    {"next"},
                                                    {"where", "25544"},
                                                    {"list", "favourites"},
                                                    {"list", "groups"},
                                                    {"job", "Mine"},
                                                    {"job", "Mine", "--format", "ical"},
                                                    {"passes", "nobody"}}) {
    Run(arguments);
    EXPECT_EQ(files.ChangeCount(), changes) << arguments[0];
    EXPECT_TRUE(settings.Writes().empty()) << arguments[0];
  }
  EXPECT_EQ(Content("faves.dat"), faves);
  EXPECT_FALSE(files.Exists("/house/error.log"));
}

TEST_F(ReadOnly, FaultsGoToTheErrorStream) {
  Put("faves.dat", "NOBODY KNOWS\r\nISS (ZARYA)\r\n");
  const Answer answer = Run({"list", "favourites", "--format", "csv"});
  EXPECT_EQ(answer.code, 0);
  EXPECT_EQ(answer.Lines().size(), 2u);
  EXPECT_EQ(answer.err, "kestrava: the favourite 'NOBODY KNOWS' is in no element file\n")
      << "nothing is said of a file that would be kept: none is";
  files.Remove("/house/groups.dat");
  EXPECT_NE(Run({"list", "groups"}).err.find("groups.dat cannot be read: File not found"), std::string::npos);
}

TEST_F(ReadOnly, NoMessageBearsTheNameOfAProcedure) {
  Put("faves.dat", "NOBODY KNOWS\r\nISS (ZARYA)\r\n");
  Put("pass.dat", "Odd\r\nISS (ZARYA);\r\nseven\r\n0\r\n0\r\nBroken\r\nISS (ZARYA);\r\n");
  PutSettings("Latitude=51.5\nLongitude=0\nWxEL=high\n");
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"list", "favourites"},
                                                    {"job", "Odd"},
                                                    {"job", "Broken"},
                                                    {"jobs"},
                                                    {"passes", "25544"}}) {
    const Answer answer = Run(arguments);
    EXPECT_NE(answer.err, "") << arguments[0];
    for (const char* name : {"Global ", "PassPred", "Command line", "FormLoad"})
      EXPECT_EQ(answer.err.find(name), std::string::npos) << answer.err;
  }
}

TEST_F(ReadOnly, ThePlaceOfTheRunIsPutBack) {
  platform::AppDir = "/elsewhere/";
  Run({"passes", "25544"});
  EXPECT_EQ(platform::AppDir, "/elsewhere/");
  EXPECT_EQ(Run({"passes", "25544", "--data", "/nowhere"}).code, 2);
  EXPECT_EQ(platform::AppDir, "/elsewhere/");
}

TEST_F(ReadOnly, WithoutAFolderTheShippedDataServeUnseeded) {
  files.Put("/shipped/groups.dat", testing::StationFile("groups.dat"));
  files.Put("/shipped/stations.txt", testing::StationFile("stations.txt"));
  files.Put("/config/settings.conf", "");
  machine_.shippedData = "/shipped";
  machine_.place = [] { return store::ZonePlace{"America/New_York", 40.7142, -74.0064}; };
  machine_.chooseFolder = [](const std::string&) { return "/new/"; };
  const Answer answer = Run({"passes", "25544", "--format", "json", "--days", "3"});
  EXPECT_EQ(answer.code, 0) << answer.err;
  EXPECT_EQ(answer.OutAsJson()["observer"]["name"], "New York");
  EXPECT_NEAR(answer.OutAsJson()["observer"]["longitude_east_deg"].get<double>(), -74.0064, 1e-9);
  EXPECT_NE(answer.err.find("/new/ holds no data yet"), std::string::npos);
  EXPECT_FALSE(files.FolderExists("/new"));
  machine_.shippedData.clear();
  EXPECT_EQ(Run({"list"}).code, 1);
}

TEST_F(ReadOnly, APlaceThatNobodyHasEnteredIsGuessedByTheTimeZoneAndSaid) {
  PutSettings("WxEL=7\n");
  machine_.place = [] { return store::ZonePlace{"America/New_York", 40.7142, -74.0064}; };
  const Answer answer = Run({"where", "25544"});
  EXPECT_EQ(answer.code, 0);
  EXPECT_EQ(answer.Lines()[0], "Place: New York, 40.7142 N, 74.0064 W, 0 m");
  EXPECT_EQ(answer.err,
            "kestrava: no place has been entered: New York, 40.7142 N, 74.0064 W, 0 m is guessed from the time zone "
            "America/New_York; --at names another\n");
  EXPECT_EQ(files.Content("/config/settings.conf"), "WxEL=7\n");
  EXPECT_EQ(Run({"where", "25544", "--at", "0,0"}).err, "") << "a place that is given needs no guess";
}

TEST_F(ReadOnly, APlaceThatNothingTellsIsAskedFor) {
  files.Remove("/config/settings.conf");
  const Answer answer = Run({"where", "25544"});
  EXPECT_EQ(answer.code, 1);
  EXPECT_EQ(answer.out, "");
  EXPECT_EQ(
      answer.err,
      "kestrava: no place has been entered, and the machine's time zone tells none: name one with --at LAT,LON\n");
}

TEST_F(ReadOnly, DamagedSettingsAreToldAndLeftAlone) {
  const std::string noText(20, '\0');
  PutSettings(noText);
  machine_.place = [] { return store::ZonePlace{"Europe/Berlin", 52.5, 13.3667}; };
  const Answer answer = Run({"where", "25544", "--format", "json"});
  EXPECT_EQ(answer.code, 0);
  EXPECT_NE(answer.err.find("damaged"), std::string::npos);
  EXPECT_EQ(answer.OutAsJson()["observer"]["name"], "Berlin") << "and not 0 N 0 E, where nobody is";
  EXPECT_EQ(files.Content("/config/settings.conf"), noText);
}

TEST_F(ReadOnly, ALineOfTheSettingsThatIsNoneIsToldAndCostsItselfAlone) {
  PutSettings("# mine\nLatitude = 47\nLongitude = 351\nno equals sign\n");
  const Answer answer = Run({"where", "25544", "--format", "json"});
  EXPECT_EQ(answer.code, 0);
  EXPECT_NE(answer.err.find("line 4 is no setting: 'no equals sign'"), std::string::npos) << answer.err;
  EXPECT_EQ(answer.OutAsJson()["observer"]["latitude_north_deg"], 47.0);
}

TEST_F(ReadOnly, ASettingThatIsNoNumberIsNamed) {
  PutSettings("Latitude=here\nLongitude=0\n");
  const Answer answer = Run({"where", "25544"});
  EXPECT_EQ(answer.code, 1);
  EXPECT_NE(answer.err.find("the setting Latitude holds 'here'"), std::string::npos) << answer.err;
  EXPECT_EQ(Run({"where", "25544", "--at", "0,0,0"}).code, 0);
}

TEST_F(ReadOnly, AListNeedsNoPlace) {
  for (const char* place : {"Latitude=here\nLongitude=0\n", "Latitude=91\nLongitude=0\n"}) {
    PutSettings(place);
    for (const char* what : {"groups", "satellites", "favourites"}) {
      const Answer answer = Run({"list", what});
      EXPECT_EQ(answer.code, 0) << what;
      EXPECT_EQ(answer.err, "") << what;
    }
    EXPECT_EQ(Run({"next"}).code, 1) << "who asks for a rise asks from a place";
  }
}

TEST_F(ReadOnly, ChangedFilesAreReadBackFromMemory) {
  UnchangedFiles kept(files);
  files.Put("/house/A.txt", "old");
  const int changes = files.ChangeCount();
  kept.Replace("/house/a.TXT", "new");
  EXPECT_EQ(kept.Read("/house/A.txt"), "new");
  kept.Append("/house/A.txt", "er");
  EXPECT_EQ(kept.Read("/house/A.txt"), "newer");
  EXPECT_EQ(kept.Size("/house/A.txt"), 5u);
  kept.Append("/house/B.txt", "b");
  kept.Rename("/house/B.txt", "/house/C.txt");
  EXPECT_FALSE(kept.Exists("/house/B.txt"));
  EXPECT_EQ(kept.Read("/house/C.txt"), "b");
  kept.Copy("/house/C.txt", "/house/D.txt");
  kept.Remove("/house/A.txt");
  EXPECT_FALSE(kept.Exists("/house/A.txt"));
  EXPECT_THROW(kept.Read("/house/A.txt"), platform::Fault);
  EXPECT_THROW(kept.Remove("/house/A.txt"), platform::Fault);
  const std::vector<std::string> names = kept.List("/house");
  EXPECT_EQ(std::count(names.begin(), names.end(), "A.txt"), 0);
  EXPECT_EQ(std::count(names.begin(), names.end(), "C.txt"), 1);
  kept.MakeFolder("/made");
  EXPECT_TRUE(kept.FolderExists("/made"));
  EXPECT_EQ(files.ChangeCount(), changes);
  EXPECT_EQ(files.Read("/house/A.txt"), "old");
}

TEST_F(ReadOnly, AFirstReadOfASettingStaysInMemory) {
  UnchangedSettings kept(platform::SettingsMap{{"WxEL", "7"}});
  EXPECT_EQ(kept.Get("wxel"), "7");
  kept.Set("WXEL", "9");
  EXPECT_EQ(kept.Get("WxEL"), "9");
  EXPECT_EQ(kept.Get("other"), "");
}

}  // namespace
}  // namespace kestrava::cli
