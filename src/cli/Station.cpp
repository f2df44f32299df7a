#include "Station.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "store/Favourites.h"
#include "store/Groups.h"

namespace kestrava::cli {

namespace {

constexpr platform::FaultTrap kTrap{"Command line"};

/// The number in a setting. @throws NotFound if it holds none
double NumberOf(std::string_view key) {
  try {
    return platform::ParseNumber(platform::ApplyCommaRule(platform::ReadSetting(key, "0")));
  } catch (const platform::Fault&) {
    throw NotFound("the setting " + std::string(key) + " holds '" + platform::ReadSetting(key, "0") +
                   "', which is no number; correct it, or name a place with --at");
  }
}

bool IsNumber(std::string_view text) {
  return !text.empty() && text.size() <= 9 && text.find_first_not_of("0123456789") == std::string_view::npos;
}

}  // namespace

void ErrorStreamMessages::Show(std::string_view text, std::string_view /*title*/, platform::MessageIcon /*icon*/) {
  err_ << "kestrava: " << text << '\n';
}

bool ErrorStreamMessages::AskYesNo(std::string_view text, std::string_view title) {
  Show(text, title, platform::MessageIcon::kInformation);
  return false;
}

Station::Station(const Machine& machine, const Request& request, std::ostream& err)
    : err_(err),
      files_(platform::TheFiles()),
      settings_(ReadSettings(machine.settingsFile)),
      messages_(err),
      doors_(DoorsOver()),
      earlierAppDir_(platform::AppDir),
      earlierObserver_(platform::ObserveFaults([this](std::string_view message, std::string_view trapName) {
        Note(std::string(message) + " (" + std::string(trapName) + ")");
      })) {
  try {
    OpenFolder(machine, request);
    engine_.SetDataFolder(platform::AppDir);
    ReadSatellites();
    if (request.word != Word::kList) PlaceObserver(request);
    // As in the windows: a minimum that is no number is told, and leaves nothing out.
    kTrap([&] {
      minimumElevationDeg_ = platform::ParseNumber(platform::ApplyCommaRule(platform::ReadSetting("WxEL", "0")));
    });
    if (request.minElevationDeg) minimumElevationDeg_ = *request.minElevationDeg;
  } catch (...) {
    platform::ObserveFaults(earlierObserver_);
    platform::AppDir = earlierAppDir_;
    throw;
  }
}

Station::~Station() {
  platform::ObserveFaults(earlierObserver_);
  platform::AppDir = earlierAppDir_;
}

platform::Doors Station::DoorsOver() {
  platform::Doors doors = platform::TheDoors();
  doors.files = &files_;
  doors.settings = &settings_;
  doors.eventLoop = &events_;
  doors.messages = &messages_;
  doors.windows = windows_.get();
  return doors;
}

platform::SettingsMap Station::ReadSettings(const std::filesystem::path& file) {
  try {
    if (!files_.Exists(file)) return {};
    if (const auto settings = platform::SettingsText::Parse(files_.Read(file))) {
      for (const auto& oddity : settings->Oddities()) Note(file.string() + ": " + oddity.Text());
      return settings->Values();
    }
    Note("the settings in " + file.string() + " are damaged; first settings serve");
  } catch (const platform::Fault& fault) {
    Note("the settings in " + file.string() + " cannot be read (" + fault.what() + "); first settings serve");
  }
  return {};
}

void Station::OpenFolder(const Machine& machine, const Request& request) {
  platform::AppDir = machine.chooseFolder(request.dataFolder);
  if (!store::IsNewFolder(platform::AppDir)) return;
  if (machine.shippedData.empty()) throw NotFound("there is no data in " + platform::AppDir);
  Note(platform::AppDir + " holds no data yet: the sample data that came with the program serve");
  platform::AppDir = (machine.shippedData / "").string();
  if (const auto place = machine.place()) store::WriteFirstLocation(*place);
}

/// The place as the windows set it: six decimals, the stored longitude west positive.
void Station::PlaceObserver(const Request& request) {
  if (request.at) {
    place_ = {"", *request.at};
  } else {
    const auto sixPlaces = [](double degrees) { return std::round(degrees * 1e6) / 1e6; };
    place_.name = platform::ReadSetting("Location Name", "Default");
    place_.observer.latitudeDeg = sixPlaces(NumberOf("Latitude"));
    place_.observer.longitudeEastDeg = 360 - sixPlaces(NumberOf("Longitude"));
    place_.observer.heightM = NumberOf("HASL");
    const orbit::Observer& at = place_.observer;
    if (!(std::abs(at.latitudeDeg) <= 90 && std::abs(at.longitudeEastDeg) <= 720)) {
      throw NotFound("the stored place is none on the Earth; correct Latitude and Longitude, or name one with --at");
    }
  }
  engine_.SetObserver(place_.observer);
}

void Station::ReadSatellites() {
  const std::string names = platform::ReplaceAll(engine_.SatelliteNames(), "\"", "");
  if (names.empty()) return;
  for (const std::string& name : platform::SplitAt(names, ',')) satellites_.emplace_back(platform::Trim(name));
}

std::string Station::Find(std::string_view asked) const {
  if (engine_.Knows(asked)) {
    const std::string key(platform::Trim(platform::Left(asked, 15)));
    if (std::find(satellites_.begin(), satellites_.end(), key) != satellites_.end()) return key;
    const auto alike = std::find_if(satellites_.begin(), satellites_.end(),
                                    [&](const std::string& name) { return platform::EqualsIgnoringCase(name, key); });
    return alike == satellites_.end() ? key : *alike;
  }
  const std::string_view number = platform::Trim(asked);
  if (!IsNumber(number)) return {};
  const auto found = std::find_if(satellites_.begin(), satellites_.end(), [&](const std::string& name) {
    return engine_.CatalogueNumber(name) == static_cast<int>(platform::Val(number));
  });
  return found == satellites_.end() ? std::string() : *found;
}

std::vector<std::string> Station::Resolve(const std::vector<std::string>& asked) const {
  std::vector<std::string> names;
  std::string unknown;
  for (const std::string& name : asked) {
    const std::string found = Find(name);
    if (found.empty()) {
      unknown += (unknown.empty() ? "" : "\nkestrava: ") + std::string("no satellite is called '") + name + "'.";
      unknown += DidYouMean(NearNames(name, satellites_));
    } else if (std::find(names.begin(), names.end(), found) == names.end()) {
      names.push_back(found);
    }
  }
  if (!unknown.empty()) throw NotFound(unknown);
  return names;
}

std::vector<std::string> Station::Favourites() {
  kTrap([&] { store::LoadFaves(*tables_, engine_); });
  std::vector<std::string> names;
  for (const orbit::FaveRec& row : tables_->FaveList) {
    if (!row.Name.empty()) names.push_back(row.Name);
  }
  return names;
}

void Station::LoadGroups() {
  kTrap([&] { store::LoadGroups(*tables_); });
}

}  // namespace kestrava::cli
