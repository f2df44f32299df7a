#include "SampleSky.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include "orbit/ElementReader.h"
#include "orbit/Frames.h"
#include "platform/Doors.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/SystemClock.h"

namespace kestrava::bench {
namespace {

/// Numbers with a point, on every machine.
class PointLocale : public platform::MachineLocale {
 public:
  std::string DecimalSign() const override { return "."; }
  std::string GroupSign() const override { return ","; }
  std::string DateText(platform::SerialDate /*local*/) const override { return {}; }
  std::string TimeText(platform::SerialDate /*local*/) const override { return {}; }
};

/// The doors that a position needs, put in at the first call.
platform::Files& TheRealFiles() {
  static platform::PosixFiles files;
  static platform::SystemClock clock;
  static PointLocale locale;
  static const platform::ScopedDoors doors = [] {
    platform::Doors all;
    all.files = &files;
    all.clock = &clock;
    all.locale = &locale;
    return platform::ScopedDoors(all);
  }();
  return files;
}

std::string WithChecksum(std::string line) {
  int sum = 0;
  for (const char c : line.substr(0, 68)) sum += c >= '0' && c <= '9' ? c - '0' : c == '-' ? 1 : 0;
  line[68] = static_cast<char>('0' + sum % 10);
  return line;
}

std::vector<orbit::ElementSet> SetsOfKind(bool deepSpace) {
  std::vector<orbit::ElementSet> sets;
  for (const orbit::ElementSet& set : AllSets()) {
    if (orbit::Sgp4(set).IsDeepSpace() == deepSpace) sets.push_back(set);
  }
  return sets;
}

}  // namespace

const std::vector<orbit::ElementSet>& AllSets() {
  static const std::vector<orbit::ElementSet> sets = [] {
    std::vector<orbit::ElementSet> all;
    for (const char* name : {"amateur", "geo", "gps-ops", "iridium", "molniya", "stations", "visual", "weather"}) {
      const auto file = std::filesystem::path(KESTRAVA_ELEMENTS) / (std::string(name) + ".txt");
      for (orbit::ElementSet& set : orbit::ReadElementSets(TheRealFiles().Read(file)).sets) {
        all.push_back(std::move(set));
      }
    }
    return all;
  }();
  return sets;
}

std::vector<orbit::ElementSet> NearEarthSets() {
  return SetsOfKind(false);
}
std::vector<orbit::ElementSet> DeepSpaceSets() {
  return SetsOfKind(true);
}

YardstickElements ForYardstick(const orbit::ElementSet& set) {
  constexpr double kJulianOf1950 = 2433281.5;
  const double julian = orbit::JulianFromSerial(set.epoch.wholeDays).midnight + set.epoch.dayFraction;
  return {julian - kJulianOf1950, set.dragTermPerEarthRadius, set.inclinationDeg, set.ascendingNodeDeg,
          set.eccentricity,       set.argumentOfPerigeeDeg,   set.meanAnomalyDeg, set.meanMotionRevPerDay};
}

std::string ElementFileOf(int sets) {
  std::vector<std::string> lines;  // line 1 and line 2 of each shipped set
  for (const char* name : {"visual.txt", "amateur.txt", "weather.txt", "geo.txt"}) {
    const std::string text = TheRealFiles().Read(std::filesystem::path(KESTRAVA_ELEMENTS) / name);
    for (std::size_t at = 0; at + 69 < text.size();) {
      const std::size_t end = std::min(text.find("\r\n", at), text.size());
      if (end - at == 69) lines.push_back(text.substr(at, 69));
      at = end + 2;
    }
  }
  std::string file;
  for (int i = 0; i < sets; ++i) {
    const std::size_t pair = static_cast<std::size_t>(i) % (lines.size() / 2) * 2;
    const std::string number = std::to_string(10000 + i);
    file += "SATELLITE " + number + "         \r\n";
    file += WithChecksum(std::string(lines[pair]).replace(2, 5, number)) + "\r\n";
    file += WithChecksum(std::string(lines[pair + 1]).replace(2, 5, number)) + "\r\n";
  }
  return file;
}

orbit::OrbitEngine& SampleEngine() {
  static orbit::OrbitEngine engine;
  if (engine.SatelliteCount() == 0) {
    TheRealFiles();
    engine.SetDataFolder(KESTRAVA_ELEMENTS);
    engine.SetObserver({47.4, 8.5, 450});
  }
  return engine;
}

void RequireAgreement() {
  for (const orbit::ElementSet& set : AllSets()) {
    const orbit::Sgp4 model(set);
    Yardstick yardstick(ForYardstick(set));
    for (double minutes = -4320; minutes <= 4320; minutes += 977) {
      const orbit::Sgp4State ours = model.Propagate(minutes);
      const YardstickState theirs = yardstick.Propagate(minutes);
      const orbit::Vec3 apart = ours.positionKm - orbit::Vec3{theirs.r[0], theirs.r[1], theirs.r[2]};
      if (static_cast<int>(ours.error) != theirs.error || (theirs.error == 0 && orbit::Length(apart) > 1e-6)) {
        std::fprintf(stderr, "%s at %g minutes: model and yardstick differ by %g km, errors %d and %d\n",
                     set.name.c_str(), minutes, orbit::Length(apart), static_cast<int>(ours.error), theirs.error);
        std::exit(1);
      }
    }
  }
}

}  // namespace kestrava::bench
