#include "Station.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "platform/TextFile.h"
#include "predict/ElementAge.h"
#include "store/Favourites.h"
#include "store/Groups.h"

#include "PlainWords.h"

namespace kestrava::cli {

using platform::SerialDate;

namespace {

constexpr std::array<std::string_view, 2> kPlaceKeys{"Latitude", "Longitude"};  // a place needs both

/// A folder that the user has named must be there: other data would answer in its name.
void RefuseNoFolder(const std::filesystem::path& folder) {
  const std::string name = folder.has_filename() ? folder.string() : folder.parent_path().string();
  if (platform::TheFiles().FolderExists(name)) return;
  throw WrongUse("--data: " + name +
                 (platform::TheFiles().Exists(name) ? " is a file, not a folder" : " is not there"));
}

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
        if (const std::string words = PlainWords(message, trapName); !words.empty()) Note(words);
      })) {
  try {
    OpenFolder(machine, request);
    engine_.SetDataFolder(platform::AppDir);
    ReadSatellites();
    if (request.word != Word::kList && request.word != Word::kJobs) PlaceObserver(machine, request);
    ReadMinimumElevation(request);
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
  platform::AppDir = machine.chooseFolder(request.dataFolder.value_or(""));
  if (request.dataFolder) RefuseNoFolder(platform::AppDir);
  if (!store::IsNewFolder(platform::AppDir)) return;
  if (machine.shippedData.empty()) throw NotFound("there is no data in " + platform::AppDir);
  Note(platform::AppDir + " holds no data yet: the sample data that came with the program serve");
  platform::AppDir = (machine.shippedData / "").string();
}

void Station::PlaceObserver(const Machine& machine, const Request& request) {
  const auto isThere = [&](std::string_view key) { return !platform::Trim(settings_.Get(key)).empty(); };
  if (request.at) {
    place_ = *request.at;
  } else {
    if (!std::all_of(kPlaceKeys.begin(), kPlaceKeys.end(), isThere)) GuessPlace(machine);
    place_ = StoredPlace();
  }
  engine_.SetObserver(place_.observer);
}

/// As a first start of the windows does it, and in memory alone.
void Station::GuessPlace(const Machine& machine) {
  const auto place = machine.place();
  if (!place) {
    throw NotFound("no place has been entered, and the machine's time zone tells none: name one with --at LAT,LON");
  }
  store::WriteFirstLocation(*place);
  Note("no place has been entered: " + PlaceText(StoredPlace()) + " is guessed from the time zone " + place->zoneName +
       "; --at names another");
}

/// The place as the windows set it: six decimals, the stored longitude west positive.
Place Station::StoredPlace() {
  const auto sixPlaces = [](double degrees) { return std::round(degrees * 1e6) / 1e6; };
  const double latitudeDeg = sixPlaces(NumberOf("Latitude"));
  const double longitudeDeg = 360 - sixPlaces(NumberOf("Longitude"));
  if (!(std::abs(latitudeDeg) <= 90 && std::abs(longitudeDeg) <= 720)) {
    throw NotFound("the stored place is none on the Earth; correct Latitude and Longitude, or name one with --at");
  }
  return {platform::ReadSetting("Location Name", "Default"),
          {latitudeDeg, longitudeDeg, NumberOf("HASL")},
          EastDeg(longitudeDeg)};
}

/// As in the windows: a minimum that is no number is told, and leaves nothing out.
void Station::ReadMinimumElevation(const Request& request) {
  const std::string stored = platform::ReadSetting("WxEL", "0");
  try {
    minimumElevationDeg_ = platform::ParseNumber(platform::ApplyCommaRule(stored));
  } catch (const platform::Fault&) {
    Note("the setting WxEL holds '" + stored + "', which is no number: no pass is left out for its elevation");
  }
  if (request.minElevationDeg) minimumElevationDeg_ = *request.minElevationDeg;
}

void Station::NoteOldElements(const std::vector<std::string>& satellites, SerialDate utc) {
  constexpr double kGoodDays = 14;
  std::vector<predict::ElementAge> old = predict::ElementAges(engine_, satellites, utc);
  std::erase_if(old, [](const predict::ElementAge& age) { return std::abs(age.days) <= kGoodDays; });
  if (old.empty()) return;
  const auto farther = [](const auto& a, const auto& b) { return std::abs(a.days) < std::abs(b.days); };
  const predict::ElementAge& worst = *std::max_element(old.begin(), old.end(), farther);
  const std::string days = std::to_string(std::lround(std::abs(worst.days))) + " days " +
                           (worst.days < 0 ? "younger than that moment" : "old at that moment");
  const std::string which = old.size() == 1 ? "the elements of " + worst.satellite + " are " + days
                                            : "the elements of " + std::to_string(old.size()) +
                                                  " satellites are far from that moment; those of " + worst.satellite +
                                                  " are " + days;
  Note(which + ". They serve for about two weeks: update them");
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
  std::vector<std::string> written;
  try {
    written = platform::SplitLines(files_.Read(platform::InAppDir("faves.dat")));
    store::LoadFaves(*tables_, engine_);
  } catch (const platform::Fault& fault) {
    Note("faves.dat cannot be read: " + std::string(fault.what()));
  }
  std::vector<std::string> names;
  for (const orbit::FaveRec& row : tables_->FaveList) {
    if (!row.Name.empty()) names.push_back(row.Name);
  }
  for (const std::string& line : written) {
    const std::string name(platform::Trim(line));
    const bool loaded = name.empty() || std::find(names.begin(), names.end(), name) != names.end();
    if (!loaded) Note("the favourite '" + name + "' is in no element file");
  }
  return names;
}

void Station::LoadGroups() {
  try {
    store::LoadGroups(*tables_);
  } catch (const platform::Fault& fault) {
    Note("groups.dat cannot be read: " + std::string(fault.what()));
  }
}

}  // namespace kestrava::cli
