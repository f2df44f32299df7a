// "kestrava passes" on a scripted station.
#include <algorithm>
#include <cmath>
#include <set>

#include <gtest/gtest.h>

#include "cli/Terminal.h"
#include "predict/PassText.h"

namespace kestrava::cli {
namespace {

using Passes = Terminal;

const std::vector<std::string> kThreeDays{"passes", "ISS (ZARYA)", "--from", "2026-11-15", "--days", "3"};

std::vector<std::string> With(std::vector<std::string> arguments, const std::vector<std::string>& more) {
  arguments.insert(arguments.end(), more.begin(), more.end());
  return arguments;
}

TEST_F(Passes, TextHasTheColumnsOfTheWindowsRows) {
  const Answer answer = Run(kThreeDays);
  EXPECT_EQ(answer.code, 0);
  EXPECT_EQ(answer.err, "");
  ASSERT_GT(answer.Lines().size(), 10u);
  EXPECT_EQ(answer.Lines()[0], kLondonLine);
  EXPECT_EQ(answer.Lines()[1], predict::kPassHeading);
  for (std::size_t i = 2; i < answer.Lines().size(); ++i) {
    EXPECT_EQ(answer.Lines()[i].substr(0, 20), "ISS (ZARYA)         ");
    EXPECT_EQ(answer.Lines()[i].substr(23, 5), "NOV 2") << answer.Lines()[i];
  }
}

TEST_F(Passes, JsonNamesUnitsAndCarriesTheOffset) {
  clock.SetOffsetHours(5.5);
  const Answer answer = Run(With(kThreeDays, {"--format", "json"}));
  const Json json = answer.OutAsJson();
  EXPECT_EQ(json["observer"]["name"], "London");
  EXPECT_EQ(json["observer"]["latitude_north_deg"], 51.5);
  EXPECT_EQ(json["observer"]["longitude_east_deg"], 0.0);
  EXPECT_EQ(json["observer"]["height_m"], 30.0);
  EXPECT_EQ(json["from"], "2026-11-15T00:00:00.000+05:30");
  EXPECT_EQ(json["to"], "2026-11-18T00:00:00.000+05:30");
  const Json& first = json["passes"][0];
  EXPECT_EQ(first["satellite"], "ISS (ZARYA)");
  EXPECT_EQ(first["catalogue_number"], 25544);
  const std::string start = first["start_time"];
  EXPECT_EQ(start.size(), std::string("2026-11-15T00:00:00.000+05:30").size());
  EXPECT_EQ(start.substr(23), "+05:30");
  EXPECT_TRUE(first["max_elevation_deg"].is_number_float());
  EXPECT_TRUE(first["visible"].is_boolean());
  EXPECT_GT(first["duration_s"], 10.0);
}

TEST_F(Passes, TheWholeDegreesAreTheWindowsInEveryForm) {
  // From here one pass climbs to a hair below 73 degrees, which the engine's pass list rounds up.
  Put("pass.dat", "Day\r\nISS (ZARYA);\r\n1\r\n0\r\n0\r\n");
  const std::vector<std::string> there{"--from", "2026-11-16", "--at", "51.498454,0,30", "--min-elevation", "73"};
  const auto run = [&](const std::vector<std::string>& words, const char* format) {
    return Run(With(With(words, there), {"--format", format}));
  };
  const std::vector<std::string> passes{"passes", "25544"};
  const Json all = run(passes, "json").OutAsJson()["passes"];
  ASSERT_EQ(all.size(), 2u);
  EXPECT_EQ(all[0]["max_elevation_deg"], 73.0) << "to four decimals, as the list of the engine has it";
  for (const std::string& rows : {run(passes, "text").out, run({"job", "Day"}, "text").out}) {
    EXPECT_NE(rows.find(" 73 (AZ 16"), std::string::npos) << rows;
  }
  EXPECT_NE(run(passes, "ical").out.find("up to 73 degrees"), std::string::npos);
}

TEST_F(Passes, CsvHasTheSameNumbersAsJson) {
  const Json json = Run(With(kThreeDays, {"--format", "json"})).OutAsJson();
  const std::vector<std::string> lines = Run(With(kThreeDays, {"--format", "csv"})).Lines();
  ASSERT_EQ(lines.size(), json["passes"].size() + 1);
  EXPECT_EQ(lines[0],
            "satellite,catalogue_number,orbit_number,start_time,max_elevation_time,end_time,duration_s,"
            "max_elevation_deg,start_azimuth_deg,max_elevation_azimuth_deg,end_azimuth_deg,all_day,sunlit,visible,"
            "observer_name,observer_latitude_north_deg,observer_longitude_east_deg,observer_height_m");
  std::istringstream fields(lines[1]);
  std::vector<std::string> first;
  for (std::string field; std::getline(fields, field, ',');) first.push_back(field);
  ASSERT_EQ(first.size(), 18u);
  EXPECT_EQ(first[3], json["passes"][0]["start_time"].get<std::string>());
  EXPECT_NEAR(std::strtod(first[7].c_str(), nullptr), json["passes"][0]["max_elevation_deg"].get<double>(), 1e-12);
  EXPECT_EQ(std::vector<std::string>(first.begin() + 14, first.end()),
            (std::vector<std::string>{"London", "51.5", "0", "30"}));
}

TEST_F(Passes, ComputedNumbersHaveTheDigitsThatMeanSomething) {
  const auto decimals = [](const std::string& number) {
    const std::size_t point = number.find('.');
    return point == std::string::npos ? 0 : number.size() - point - 1;
  };
  const std::vector<std::string> passes = Run(With(kThreeDays, {"--format", "csv"})).Lines();
  std::size_t most = 0;
  for (std::size_t i = 1; i < passes.size(); ++i) {
    std::istringstream fields(passes[i]);
    std::string field;
    for (int column = 0; std::getline(fields, field, ','); ++column) {
      if (column >= 7 && column <= 10) most = std::max(most, decimals(field));
    }
  }
  EXPECT_EQ(most, 4u);
  const Json where = Run({"where", "25544", "--format", "json"}).OutAsJson()["satellites"][0];
  EXPECT_EQ(decimals(where["range_km"].dump()), 3u) << where;
  EXPECT_LE(decimals(where["azimuth_deg"].dump()), 4u) << where;
  EXPECT_LE(decimals(where["range_rate_km_s"].dump()), 6u) << where;
}

TEST_F(Passes, ThePlaceThatWasGivenComesBackAsItWasGiven) {
  const auto observer = [&](const char* at) {
    const Answer answer = Run({"where", "25544", "--format", "json", "--at", at});
    return answer.code == 0 ? answer.OutAsJson()["observer"] : Json(answer.err);
  };
  EXPECT_EQ(observer("51.5,-0.1,20").dump(),
            R"({"latitude_north_deg":51.5,"longitude_east_deg":-0.1,"height_m":20.0})");
  EXPECT_EQ(observer("-33.8688197,151.2092955,19.25")["longitude_east_deg"].dump(), "151.2092955");
  EXPECT_EQ(observer("10,359.9,0")["longitude_east_deg"].dump(), "-0.1");
  EXPECT_EQ(observer("10,-180,0")["longitude_east_deg"].dump(), "180.0");
  EXPECT_EQ(observer("51.5,-0.1")["height_m"], 0.0) << "the height may be left out";
  EXPECT_EQ(Run({"where", "25544", "--at", "51.5,-0.1"}).Lines()[0], "Place: 51.5 N, 0.1 W, 0 m");
  PutSettings("Latitude=51.5\nLongitude=0.1\nHASL=30\n");
  EXPECT_EQ(Run({"where", "25544", "--format", "json"}).OutAsJson()["observer"]["longitude_east_deg"].dump(), "-0.1");
}

TEST_F(Passes, AMaidenheadLocatorIsThePlaceInTheMiddleOfItsField) {
  const auto observer = [&](const char* at) {
    return Run({"where", "25544", "--format", "json", "--at", at}).OutAsJson()["observer"].dump();
  };
  EXPECT_EQ(observer("JN47"), R"({"name":"JN47","latitude_north_deg":47.5,"longitude_east_deg":9.0,"height_m":0.0})");
  EXPECT_EQ(observer("jn47PH"),
            R"({"name":"JN47ph","latitude_north_deg":47.3125,"longitude_east_deg":9.2917,"height_m":0.0})");
  EXPECT_EQ(observer("FN31pr21"),
            R"({"name":"FN31pr21","latitude_north_deg":41.7146,"longitude_east_deg":-72.7292,"height_m":0.0})");
  EXPECT_EQ(Run({"where", "25544", "--at", "AA00aa"}).Lines()[0], "Place: AA00aa, 89.9792 S, 179.9583 W, 0 m");
}

TEST_F(Passes, OldElementsAreNotedOnceWithTheirAge) {
  EXPECT_EQ(Run({"passes", "25544", "--from", "2026-11-28"}).err, "") << "13 days and a half";
  EXPECT_EQ(
      Run({"passes", "25544", "--from", "2026-12-05"}).err,
      "kestrava: the elements of ISS (ZARYA) are 20 days old at that moment. They serve for about two weeks: update "
      "them\n");
  EXPECT_NE(Run({"where", "25544", "--at-time", "2026-10-15"}).err.find("are 31 days younger than that moment"),
            std::string::npos);
  const std::string many = Run({"next", "--at-time", "2026-12-15"}).err;
  EXPECT_NE(many.find("satellites are far from that moment; those of "), std::string::npos) << many;
  EXPECT_EQ(std::count(many.begin(), many.end(), '\n'), 1) << many;
}

TEST_F(Passes, ANumberDoesAsWellAsAName) {
  EXPECT_EQ(Run({"passes", "25544", "--days", "2"}).out, Run({"passes", "iss (zarya)", "--days", "2"}).out);
}

TEST_F(Passes, OneSatelliteNamedTwiceIsListedOnce) {
  EXPECT_EQ(Run({"passes", "25544", "ISS (ZARYA)"}).out, Run({"passes", "25544"}).out);
}

TEST_F(Passes, SeveralSatellitesStandInOrderOfTime) {
  const Json json = Run({"passes", "NOAA 15", "NOAA 18", "25544", "--days", "2", "--format", "json"}).OutAsJson();
  std::string last;
  std::set<std::string> names;
  for (const Json& pass : json["passes"]) {
    EXPECT_LE(last, pass["start_time"].get<std::string>());
    last = pass["start_time"];
    names.insert(pass["satellite"].get<std::string>());
  }
  EXPECT_EQ(names.size(), 3u);
}

TEST_F(Passes, ThePlaceOfTheSettingsIsWestPositiveAndAnswersEastPositive) {
  PutSettings("Latitude=40.7\nLongitude=74.25\nHASL=10\n");
  const Answer stored = Run({"passes", "25544", "--format", "json"});
  EXPECT_EQ(stored.OutAsJson()["observer"]["longitude_east_deg"], -74.25);
  const Answer given = Run({"passes", "25544", "--format", "json", "--at", "40.7,-74.25,10"});
  EXPECT_EQ(stored.OutAsJson()["passes"], given.OutAsJson()["passes"]);
}

TEST_F(Passes, AValueThatBeginsWithAMinusIsAValue) {
  for (const std::vector<std::string>& at :
       {std::vector<std::string>{"--at", "-33.9,151.2,20"}, {"--at=-33.9,151.2,20"}, {"--at", "-33.9,-208.8e0,20"}}) {
    const Answer answer = Run(With({"passes", "25544", "--format", "json"}, at));
    if (at.back().find("208") != std::string::npos) {
      EXPECT_EQ(answer.code, 2) << "below -180";
      continue;
    }
    ASSERT_EQ(answer.code, 0) << answer.err;
    EXPECT_EQ(answer.OutAsJson()["observer"]["latitude_north_deg"], -33.9);
    EXPECT_NEAR(answer.OutAsJson()["observer"]["longitude_east_deg"].get<double>(), 151.2, 1e-9);
  }
  EXPECT_EQ(Run({"passes", "25544", "--at", "-.5,-.5,-10"}).code, 0);
  EXPECT_EQ(Run({"passes", "25544", "--min-elevation", "-5"}).code, 0);
}

TEST_F(Passes, TheMinimumElevationIsTheSettingUnlessGiven) {
  PutSettings("Latitude=51.5\nLongitude=0\nHASL=30\nWxEL=40\n");
  const auto lowest = [](const Answer& answer) {
    double lowestDeg = 90;
    const Json json = answer.OutAsJson();
    for (const Json& pass : json["passes"]) lowestDeg = std::min(lowestDeg, pass["max_elevation_deg"].get<double>());
    return lowestDeg;
  };
  const Answer bySetting = Run(With(kThreeDays, {"--format", "json"}));
  EXPECT_GE(lowest(bySetting), 40);
  EXPECT_EQ(bySetting.OutAsJson()["min_elevation_deg"], 40.0);
  EXPECT_LT(lowest(Run(With(kThreeDays, {"--format", "json", "--min-elevation", "0"}))), 40);
  EXPECT_GE(lowest(Run(With(kThreeDays, {"--format", "json", "--min-elevation", "60"}))), 60);
}

TEST_F(Passes, AMinimumElevationThatIsNoNumberIsToldAndLeavesNothingOut) {
  PutSettings("Latitude=51.5\nLongitude=0\nHASL=30\nWxEL=high\n");
  const Answer answer = Run(With(kThreeDays, {"--format", "json"}));
  EXPECT_EQ(answer.code, 0);
  EXPECT_NE(answer.err.find("the setting WxEL holds 'high', which is no number"), std::string::npos) << answer.err;
  EXPECT_EQ(answer.OutAsJson()["min_elevation_deg"], 0.0);
}

TEST_F(Passes, VisibleLeavesOutTheOthers) {
  const Json all = Run(With(kThreeDays, {"--format", "json"})).OutAsJson();
  const Json visible = Run(With(kThreeDays, {"--format", "json", "--visible"})).OutAsJson();
  std::size_t expected = 0;
  for (const Json& pass : all["passes"]) expected += pass["visible"].get<bool>() ? 1 : 0;
  EXPECT_EQ(visible["passes"].size(), expected);
  ASSERT_GT(expected, 0u);
  EXPECT_LT(expected, all["passes"].size());
}

TEST_F(Passes, EachMomentHasTheOffsetOfItsOwnDate) {
  const double change = platform::MakeSerial({2026, 11, 16, 6, 0, 0});
  clock.SetOffsetHours(-4);
  clock.SetOffsetHoursAt([=](double utc) { return utc < change ? -4.0 : -5.0; });
  const Json json = Run(With(kThreeDays, {"--format", "json"})).OutAsJson();
  EXPECT_EQ(json["from"], "2026-11-15T00:00:00.000-04:00");
  EXPECT_EQ(json["to"], "2026-11-18T00:00:00.000-05:00") << "three days of the calendar";
  int before = 0;
  int after = 0;
  for (const Json& pass : json["passes"]) {
    const std::string start = pass["start_time"];
    if (start.substr(0, 13) == "2026-11-16T01") continue;  // an hour that comes twice
    EXPECT_EQ(start.substr(23), start < "2026-11-16T02" ? "-04:00" : "-05:00") << start;
    ++(start.substr(23) == "-04:00" ? before : after);
  }
  EXPECT_GT(before, 0);
  EXPECT_GT(after, 0);
}

TEST_F(Passes, AnAllDayObjectSaysSo) {
  const Json json = Run({"passes", "38552", "--format", "json", "--from", "2026-11-15"}).OutAsJson();
  ASSERT_FALSE(json["passes"].empty());
  EXPECT_TRUE(json["passes"][0]["all_day"]);
  const Answer text = Run({"passes", "38552", "--from", "2026-11-15"});
  EXPECT_NE(text.out.find("00:00:00"), std::string::npos);
  EXPECT_NE(text.out.find("24 Hours"), std::string::npos);
}

TEST_F(Passes, NoPassEndsWithOneAndAnEmptyList) {
  const std::vector<std::string> never{"passes", "25544", "--at", "89,0,0"};
  EXPECT_EQ(Run(never).code, 1);
  EXPECT_EQ(Run(never).out, "");
  EXPECT_NE(Run(never).err.find("no passes from 2026-11-15T12:00:00.000+00:00"), std::string::npos);
  EXPECT_NE(Run(never).err.find(" over 89 N, 0 E, 0 m, minimum"), std::string::npos) << Run(never).err;
  const Answer json = Run(With(never, {"--format", "json"}));
  EXPECT_EQ(json.code, 1);
  EXPECT_TRUE(json.OutAsJson()["passes"].empty());
  EXPECT_EQ(Run(With(never, {"--format", "csv"})).Lines().size(), 1u) << "the head";
  EXPECT_EQ(Run(With(never, {"--format", "ical"})).out, "");
}

TEST_F(Passes, TextFollowsTheLocaleAndDataDoNot) {
  const Answer json = Run(With(kThreeDays, {"--format", "json"}));
  const Answer csv = Run(With(kThreeDays, {"--format", "csv"}));
  locale.UseComma();
  EXPECT_EQ(Run(With(kThreeDays, {"--format", "json"})).out, json.out);
  EXPECT_EQ(Run(With(kThreeDays, {"--format", "csv"})).out, csv.out);
  PutSettings("Latitude=51,5\nLongitude=0\nHASL=30\nLocation Name=London\n");
  EXPECT_EQ(Run(With(kThreeDays, {"--format", "json"})).out, json.out) << "a place stored with a comma";
}

TEST_F(Passes, DatesAreReadInSeveralForms) {
  const auto from = [&](const std::string& text) {
    const Answer answer = Run({"passes", "25544", "--format", "json", "--from", text});
    return answer.code == 0 ? answer.OutAsJson()["from"].get<std::string>() : "refused";
  };
  clock.SetOffsetHours(1);
  EXPECT_EQ(from("2026-11-16"), "2026-11-16T00:00:00.000+01:00");
  EXPECT_EQ(from("16 NOV 2026"), "2026-11-16T00:00:00.000+01:00");
  EXPECT_EQ(from("2026-11-16T20:30"), "2026-11-16T20:30:00.000+01:00");
  EXPECT_EQ(from("2026-11-16 20:30:15.5"), "2026-11-16T20:30:15.500+01:00");
  EXPECT_EQ(from("2026-11-16T20:30:00Z"), "2026-11-16T21:30:00.000+01:00");
  EXPECT_EQ(from("2026-11-16T20:30-05:00"), "2026-11-17T02:30:00.000+01:00");
  EXPECT_EQ(from("2026-11-16T20:30+0530"), "2026-11-16T16:00:00.000+01:00");
  EXPECT_EQ(from("now"), "2026-11-15T13:00:00.000+01:00");
  EXPECT_EQ(from("today"), "2026-11-15T00:00:00.000+01:00");
  EXPECT_EQ(from("Tomorrow"), "2026-11-16T00:00:00.000+01:00");
}

}  // namespace
}  // namespace kestrava::cli
