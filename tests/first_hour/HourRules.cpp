#include "first_hour/HourRules.h"

#include <algorithm>
#include <cstdio>
#include <sstream>
#include <utility>

#include "support/StationFiles.h"

namespace kestrava::first_hour {

namespace {

constexpr std::size_t kNameCharacters = 15;

/// A name line of an element file as all lists show it: fifteen characters of it, without blanks behind.
std::string NameOf(const std::string& line) {
  std::string name = line.substr(0, kNameCharacters);
  while (!name.empty() && name.back() == ' ') name.pop_back();
  return name;
}

bool Holds(const Lines& lines, const std::string& line) {
  return std::find(lines.begin(), lines.end(), line) != lines.end();
}

/// So many seconds of arc in degrees with nine decimals, behind which zeros are not written. Whole arithmetic: the
/// nearest billionth of a degree to seconds / 3600.
std::string DegreesOf(long long seconds) {
  const long long billionths = (seconds * 1000000000LL + 1800) / 3600;
  std::string text = std::to_string(billionths / 1000000000LL) + ".";
  const std::string rest = std::to_string(billionths % 1000000000LL);
  text += std::string(9 - rest.size(), '0') + rest;
  while (text.back() == '0') text.pop_back();
  return text;
}

long long Seconds(int degrees, int minutes, int seconds) {
  return (degrees * 60LL + minutes) * 60 + seconds;
}

/// 360 degrees less so many seconds, each rounded as the panel does: the typed angle to nine decimals first.
std::string EastDegreesOf(long long seconds) {
  const long long typed = (seconds * 1000000000LL + 1800) / 3600;
  const long long stored = 360LL * 1000000000LL - typed;
  std::string rest = std::to_string(stored % 1000000000LL);
  return std::to_string(stored / 1000000000LL) + "." + std::string(9 - rest.size(), '0') + rest;
}

}  // namespace

Lines LinesOf(const std::string& text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

std::string Number(const User& user, std::string number) {
  std::replace(number.begin(), number.end(), '.', user.decimalSign);
  return number;
}

Lines TenTicked() {
  const Lines before = LinesOf(testing::StationFile("faves.dat"));
  const Lines weather = LinesOf(testing::StationFile("weather.txt"));
  Lines ten;
  for (std::size_t i = 0; i < weather.size() && ten.size() < 10; i += 3) {
    const std::string name = NameOf(weather[i]);
    if (!Holds(before, name)) ten.push_back(name);
  }
  return ten;
}

/// New favourites stand behind the old ones; the primary one changes places with the first.
Lines ExpectedFaves() {
  Lines faves = LinesOf(testing::StationFile("faves.dat"));
  for (const std::string& name : TenTicked()) faves.push_back(name);
  std::iter_swap(faves.begin(), std::find(faves.begin(), faves.end(), "FORMOSAT-3 FM3"));
  return faves;
}

Lines ExpectedGroups() {
  Lines groups = LinesOf(testing::StationFile("groups.dat"));
  groups.emplace_back("Search and Rescue,celestrak.org/NORAD/elements/sarsat.txt,0");
  groups.emplace_back(std::string("My own,") + kHandMadeFile + ",1");
  return groups;
}

/// Longitude before latitude, west positive. The first place lost its role to the second and stands in its row; the
/// city is stored as the list has it: nobody touched the seconds, which are shown cut.
Lines ExpectedLocations(const User& user) {
  Lines places = LinesOf(testing::StationFile("Locations.dat"));
  places[1][0] = '0';  // taken off the map
  places.push_back(std::string("1") + kFirstPlaceName + ";" + EastDegreesOf(Seconds(8, 32, 30)) + ";" +
                   DegreesOf(Seconds(47, 22, 40)) + ";408");
  places.push_back("1Quito;78.502;-0.213;2850");
  for (std::string& place : places) place = Number(user, place);
  return places;
}

std::map<std::string, std::string> ExpectedSettings(const User& user) {
  std::map<std::string, std::string> settings{// what he chose
                                              {"Location Name", "London"},
                                              {"Latitude", "51.5"},
                                              {"Longitude", "0.1278"},
                                              {"HASL", "11"},
                                              {"Speechpack", "1"},
                                              {"Voice", "3"},
                                              {"SpeechSpeed", "201"},
                                              {"SpeechEvery", "5"},
                                              {"SpeechStart", "20"},
                                              {"LEDclocks", "2"},
                                              {"Miles", "1"},
                                              {"Skin", "0"},
                                              {"MapFile", "Relief"},
                                              {"HorizonFile", "hsea"},
                                              // what was read, and so stands with its default
                                              {"AutoSelect", "0"},
                                              {"DDEstartup", "0"},
                                              {"RecWxsat", "0"},
                                              {"RecPrimary", "0"},
                                              {"WxEL", "0"},
                                              {"WxWavDir", "/house/"},
                                              {"Altworld", "0"},
                                              {"ShowInfoPane", "1"},
                                              {"ShowFootprints", "1"},
                                              {"ShowGroundtrack", "1"},
                                              {"GroundTrackLen", "90"},
                                              {"MapUpdate", "2"},
                                              // the map's place in twips: the default one, as whole pixels of 15
                                              {"WinPosX", "195"},
                                              {"WinPosY", "195"},
                                              {"WinPosW", "12195"},
                                              {"WinPosH", "7920"}};
  for (const char* key : {"Latitude", "Longitude"}) settings[key] = Number(user, settings[key]);
  return settings;
}

}  // namespace kestrava::first_hour
