// "kestrava next", "where" and "list" on a scripted station.
#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "cli/Terminal.h"

namespace kestrava::cli {
namespace {

using Lookups = Terminal;

TEST_F(Lookups, NextWithoutANameTakesTheFavouritesInOrderOfTheirRise) {
  const Answer answer = Run({"next", "--format", "json"});
  EXPECT_EQ(answer.code, 0) << answer.err;
  const Json json = answer.OutAsJson();
  EXPECT_EQ(json["next"].size(), 12u) << "the shipped favourites";
  std::string last;
  for (const Json& row : json["next"]) {
    if (&row == &json["next"].back()) break;
    ASSERT_TRUE(row["next_rise"].is_string());
    EXPECT_LE(last, row["next_rise"].get<std::string>());
    last = row["next_rise"];
  }
  EXPECT_EQ(json["next"].back()["satellite"], "HST") << "which never rises over London";
  EXPECT_TRUE(json["next"].back()["next_rise"].is_null());
}

TEST_F(Lookups, NextOfOneSatelliteAgreesWithItsPasses) {
  const Json next = Run({"next", "25544", "--format", "json"}).OutAsJson()["next"][0];
  const Json passes = Run({"passes", "25544", "--min-elevation", "-90", "--format", "json"}).OutAsJson();
  const Json& first = passes["passes"][0];
  EXPECT_FALSE(next["in_view"]);
  EXPECT_EQ(next["next_rise"].get<std::string>().substr(0, 21), first["start_time"].get<std::string>().substr(0, 21));
  EXPECT_EQ(next["next_set"].get<std::string>().substr(0, 21), first["end_time"].get<std::string>().substr(0, 21));
  EXPECT_NEAR(next["rise_azimuth_deg"], first["start_azimuth_deg"], 0.01);
}

TEST_F(Lookups, NextInAPassTellsItsEndAndTheRiseAfterIt) {
  const Json passes = Run({"passes", "25544", "--min-elevation", "-90", "--format", "json"}).OutAsJson()["passes"];
  const Json next =
      Run({"next", "25544", "--format", "json", "--at-time", passes[0]["max_elevation_time"].get<std::string>()})
          .OutAsJson()["next"][0];
  EXPECT_TRUE(next["in_view"]);
  EXPECT_EQ(next["next_set"].get<std::string>().substr(0, 21), passes[0]["end_time"].get<std::string>().substr(0, 21));
  EXPECT_EQ(next["next_rise"].get<std::string>().substr(0, 21),
            passes[1]["start_time"].get<std::string>().substr(0, 21));
}

TEST_F(Lookups, WhatNeverRisesHasNoRise) {
  const Answer answer = Run({"next", "25544", "--at", "89,0,0", "--format", "json"});
  EXPECT_EQ(answer.code, 1);
  EXPECT_TRUE(answer.OutAsJson()["next"][0]["next_rise"].is_null());
  EXPECT_NE(answer.err.find("nothing rises within 30 days"), std::string::npos);
  const Answer geo = Run({"next", "38552", "--format", "json"});
  EXPECT_EQ(geo.code, 0) << "it is in view";
  EXPECT_TRUE(geo.OutAsJson()["next"][0]["in_view"]);
}

TEST_F(Lookups, WhereKeysNameUnitsAndDirections) {
  const Answer answer = Run({"where", "25544", "--at-time", "2026-11-15T12:00Z", "--format", "json"});
  const Json row = answer.OutAsJson()["satellites"][0];
  std::vector<std::string> keys;
  for (const auto& [key, value] : row.items()) keys.push_back(key);
  EXPECT_EQ(keys, (std::vector<std::string>{"satellite", "catalogue_number", "time", "azimuth_deg", "elevation_deg",
                                            "range_km", "range_rate_km_s", "height_km", "latitude_north_deg",
                                            "longitude_east_deg", "orbit_number"}));
  EXPECT_EQ(row["time"], "2026-11-15T12:00:00.000+00:00");
  EXPECT_NEAR(row["height_km"], 410, 30);
  EXPECT_LE(std::abs(row["latitude_north_deg"].get<double>()), 51.9);
}

TEST_F(Lookups, WhereTextIsAligned) {
  const std::vector<std::string> lines = Run({"where", "25544", "NOAA 15", "38552"}).Lines();
  ASSERT_EQ(lines.size(), 5u);
  EXPECT_EQ(lines[0], kLondonLine);
  EXPECT_EQ(lines[1].substr(0, 9), "Satellite");
  const std::size_t time = lines[1].find("Time");
  for (std::size_t i = 2; i < lines.size(); ++i) EXPECT_EQ(lines[i].substr(time, 11), "15 NOV 2026") << lines[i];
}

TEST_F(Lookups, CsvOfEveryAnswerFromAPlaceNamesIt) {
  for (const std::vector<std::string>& question : {std::vector<std::string>{"next", "25544"}, {"where", "25544"}}) {
    std::vector<std::string> words = question;
    words.insert(words.end(), {"--format", "csv"});
    const std::vector<std::string> lines = Run(words).Lines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_TRUE(
        lines[0].ends_with(",observer_name,observer_latitude_north_deg,observer_longitude_east_deg,observer_height_m"))
        << lines[0];
    EXPECT_TRUE(lines[1].ends_with(",London,51.5,0,30")) << lines[1];
  }
  EXPECT_EQ(Run({"list", "groups", "--format", "csv"}).out.find("observer"), std::string::npos);
}

TEST_F(Lookups, AMomentThatTheElementsDoNotReachIsToldByName) {
  const Answer answer = Run({"where", "25544", "--at-time", "2099-01-01"});
  EXPECT_EQ(answer.code, 1);
  EXPECT_NE(answer.err.find("ISS (ZARYA): "), std::string::npos) << answer.err;
}

/// A cubesat that came down long ago: its elements give no position any more.
constexpr const char* kGoneSet =
    "OSNSAT\n"
    "1 41939U 98067KZ  26309.28402027  .11925055  12489-4  54124-3 0  9996\n"
    "2 41939 051.6147 038.9582 0001091 231.1728 128.9202 16.43639489055773\n";

TEST_F(Lookups, WhereAnswersDashesForOneWhoseElementsGiveNoPosition) {
  Put("stations.txt", kGoneSet + testing::StationFile("weather.txt"));
  const Answer text = Run({"where", "OSNSAT", "NOAA 15"});
  EXPECT_EQ(text.code, 0) << text.err;
  const std::vector<std::string> lines = text.Lines();
  ASSERT_EQ(lines.size(), 4u) << text.out;
  EXPECT_TRUE(lines[2].starts_with("OSNSAT ")) << lines[2];
  EXPECT_EQ(std::count(lines[2].begin(), lines[2].end(), '-'), 7) << lines[2];
  EXPECT_NE(text.err.find("OSNSAT: No position"), std::string::npos) << text.err;
  const Json row = Run({"where", "OSNSAT", "NOAA 15", "--format", "json"}).OutAsJson()["satellites"][0];
  EXPECT_EQ(row["catalogue_number"], 41939);
  EXPECT_TRUE(row["elevation_deg"].is_null());
  EXPECT_TRUE(row["orbit_number"].is_null());
}

TEST_F(Lookups, WhereOfNoneWithAPositionIsNotFound) {
  Put("stations.txt", kGoneSet);
  const Answer answer = Run({"where", "OSNSAT"});
  EXPECT_EQ(answer.code, 1);
  EXPECT_NE(answer.err.find("no position at"), std::string::npos) << answer.err;
}

TEST_F(Lookups, NextDoesNotSayWhetherOneWithoutAPositionIsInView) {
  Put("stations.txt", kGoneSet + testing::StationFile("weather.txt"));
  const Json rows = Run({"next", "NOAA 15", "OSNSAT", "--format", "json"}).OutAsJson()["next"];
  ASSERT_EQ(rows.size(), 2u);
  EXPECT_EQ(rows[1]["satellite"], "OSNSAT");
  EXPECT_TRUE(rows[1]["in_view"].is_null());
  EXPECT_TRUE(rows[0]["in_view"].is_boolean());
}

TEST_F(Lookups, ListNamesSatellitesGroupsAndFavourites) {
  const Answer satellites = Run({"list", "--format", "json"});
  EXPECT_EQ(satellites.code, 0);
  EXPECT_GT(satellites.OutAsJson()["satellites"].size(), 300u);
  EXPECT_EQ(Run({"list", "satellites"}).out, Run({"list"}).out);
  const Json groups = Run({"list", "groups", "--format", "json"}).OutAsJson()["groups"];
  EXPECT_EQ(groups.size(), 8u);
  EXPECT_EQ(groups[0]["file"], "amateur.txt");
  EXPECT_TRUE(groups[0]["file_is_there"]);
  const std::vector<std::string> favourites = Run({"list", "favourites", "--format", "csv"}).Lines();
  ASSERT_EQ(favourites.size(), 13u);
  EXPECT_EQ(favourites[1], "ISS (ZARYA),25544");
}

TEST_F(Lookups, AnEmptyFolderOfElementsHasNothingToList) {
  files.Put("/other/readme", "nothing");
  const Answer answer = Run({"list", "--data", "/other"});
  EXPECT_EQ(answer.code, 1);
  EXPECT_NE(answer.err.find("there are no satellites in /other/"), std::string::npos) << answer.err;
}

TEST_F(Lookups, CsvQuotesWhatHoldsASeparator) {
  Put("groups.dat", "Say \"hi\",celestrak.org/amateur.txt,0\n");
  const std::vector<std::string> lines = Run({"list", "groups", "--format", "csv"}).Lines();
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(lines[1], "\"Say \"\"hi\"\"\",amateur.txt,celestrak.org/amateur.txt,false,true");
}

}  // namespace
}  // namespace kestrava::cli
