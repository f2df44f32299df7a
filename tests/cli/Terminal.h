// A terminal on a scripted station: the files of the tests' station in "/house/", an observer in London in the settings
// file, noon of 15 November 2026, a day after the epochs of the elements.
#pragma once

#include <cstdlib>
#include <functional>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "cli/Command.h"

#include "support/House.h"
#include "support/StationFiles.h"

namespace kestrava::cli {

using Json = nlohmann::ordered_json;

/// What a command answered.
struct Answer {
  int code = -1;
  std::string out;
  std::string err;

  Json OutAsJson() const { return Json::parse(out); }
  /// The lines of the answer.
  std::vector<std::string> Lines() const {
    std::vector<std::string> lines;
    std::istringstream text(out);
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }
};

class Terminal : public testing::House {
 protected:
  Terminal() {
    for (const auto* name : {"groups.dat", "faves.dat", "amateur.txt", "stations.txt", "weather.txt", "visual.txt",
                             "geo.txt", "gps-ops.txt", "iridium.txt", "molniya.txt"}) {
      Put(name, testing::StationFile(name));
    }
    PutSettings("Latitude=51.5\nLongitude=0\nHASL=30\nLocation Name=London\n");
    clock.SetUtc(platform::DateParts{2026, 11, 15, 12, 0, 0});
    machine_.chooseFolder = [](const std::string& given) { return given.empty() ? "/house/" : given + "/"; };
    machine_.settingsFile = "/config/settings.conf";
    machine_.place = [] { return std::optional<store::ZonePlace>(); };
  }

  /// The line above every table for the place of the settings.
  static constexpr const char* kLondonLine = "Place: London, 51.5 N, 0 E, 30 m";

  void PutSettings(const std::string& text) { files.Put("/config/settings.conf", text); }

  Answer Run(const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const int code = RunCommand(arguments, machine_, out, err);
    return {code, out.str(), err.str()};
  }

  Machine machine_;
};

}  // namespace kestrava::cli
