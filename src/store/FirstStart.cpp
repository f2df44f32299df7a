#include "store/FirstStart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include "orbit/ElementReader.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "store/Backups.h"
#include "store/ElementFiles.h"

#include "FirstFavourites.h"

namespace kestrava::store {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMarkOfAFolder = "groups.dat";
constexpr std::string_view kBeside = ".new-";
constexpr std::string_view kDigits = "0123456789abcdef";
constexpr int kDigitsBeside = 12;
constexpr int kNamesTried = 100;
constexpr std::array<std::string_view, 4> kLocationKeys{"Location Name", "Latitude", "Longitude", "HASL"};

/// The folder without the separator at its end, so that a name can be put behind its own.
fs::path Bare(const fs::path& folder) {
  return folder.has_filename() ? folder : folder.parent_path();
}

/// A fresh copy tells the truth about the age of its elements.
void DateByElements(const fs::path& file) {
  if (file.extension() != ".txt") return;
  const orbit::ElementFile elements = orbit::ReadElementSets(platform::TheFiles().Read(file));
  if (elements.sets.empty()) return;
  platform::SerialDate newest = 0;
  for (const orbit::ElementSet& set : elements.sets) newest = std::max(newest, set.epoch.Serial());
  platform::TheFiles().SetModifiedUtc(file, newest);
}

/// What a new folder is filled with.
struct Seeds {
  fs::path shipped;
  std::vector<std::string> names;         ///< the file by which a folder is known as a whole one at the end
  std::optional<std::string> favourites;  ///< in place of the shipped ones
};

Seeds SeedsFor(const fs::path& shipped, const std::optional<orbit::Observer>& observer) {
  std::vector<std::string> names = platform::TheFiles().List(shipped);
  const auto mark = std::find(names.begin(), names.end(), kMarkOfAFolder);
  if (mark == names.end()) throw platform::Fault::FileNotFound();
  std::rotate(mark, mark + 1, names.end());
  Seeds seeds{shipped, std::move(names), std::nullopt};
  if (observer && platform::FileExists(shipped / kFavouritesFile))
    seeds.favourites = FavouritesThatRise(shipped, *observer);
  return seeds;
}

void Sow(const Seeds& seeds, const std::string& name, const fs::path& folder) {
  if (name == kFavouritesFile && seeds.favourites) {
    platform::TheFiles().Replace(folder / name, *seeds.favourites);
  } else {
    platform::TheFiles().Copy(seeds.shipped / name, folder / name);
    DateByElements(folder / name);
  }
}

/// A name that no other first start has: the target's, with a number behind it.
fs::path NameBeside(const fs::path& target) {
  std::string number;
  for (int digit = 0; digit < kDigitsBeside; ++digit) {
    number += kDigits[static_cast<std::size_t>(platform::TheRandom().Next() * static_cast<double>(kDigits.size()))];
  }
  return target.parent_path() / (target.filename().string() + std::string(kBeside) + number);
}

bool IsNameBeside(std::string_view name, const fs::path& target) {
  const std::string beginning = target.filename().string() + std::string(kBeside);
  return platform::BeginsWith(name, beginning) && name.size() == beginning.size() + kDigitsBeside &&
         name.find_first_not_of(kDigits, beginning.size()) == std::string_view::npos;
}

/// A folder that this start alone fills. Others know by the hold that it is in use.
struct OwnFolder {
  fs::path path;
  std::unique_ptr<platform::FolderHold> hold;
};

OwnFolder MakeOwnFolder(const fs::path& target, platform::Folders& folders) {
  for (int i = 0; i < kNamesTried; ++i) {
    const fs::path path = NameBeside(target);
    if (!folders.Make(path)) continue;
    try {
      // None if another start has cleared it away before it was held.
      if (auto hold = folders.TryHold(path)) return {path, std::move(hold)};
    } catch (const platform::Fault&) {
      return {path, nullptr};  // a medium without holds: there nobody clears away what he cannot hold
    }
  }
  throw platform::Fault::PathFileAccess();
}

/// What cannot be removed stays: it does no harm but take room.
void RemoveQuietly(const fs::path& folder, platform::Folders& folders) {
  try {
    folders.Remove(folder);
  } catch (const platform::Fault&) {
    return;
  }
}

/// Folders of first starts that were killed. One that a living start is filling is held by it, and stays.
void RemoveAbandoned(const fs::path& target, platform::Folders& folders) {
  for (const std::string& name : folders.List(target.parent_path())) {
    if (!IsNameBeside(name, target)) continue;
    try {
      if (const auto hold = folders.TryHold(target.parent_path() / name)) folders.Remove(target.parent_path() / name);
    } catch (const platform::Fault&) {
      continue;  // not ours to remove
    }
  }
}

void FillBesideAndRename(const Seeds& seeds, const fs::path& target, platform::Folders& folders) {
  platform::TheFiles().MakeFolder(target.parent_path());
  const OwnFolder beside = MakeOwnFolder(target, folders);
  try {
    for (const std::string& name : seeds.names) Sow(seeds, name, beside.path);
    platform::TheFiles().Rename(beside.path, target);
  } catch (const platform::Fault&) {
    RemoveQuietly(beside.path, folders);  // a disk that is full stays full otherwise
    throw;
  }
}

std::unique_ptr<platform::FolderHold> HoldWherePossible(const fs::path& target, platform::Folders& folders) {
  try {
    return folders.Hold(target);
  } catch (const platform::Fault&) {
    return nullptr;
  }
}

/// For an empty folder that cannot be renamed over: the root of a stick, or a link to a folder elsewhere. One start at
/// a time; the next one finds it filled.
void FillInPlace(const Seeds& seeds, const fs::path& target, platform::Folders& folders) {
  const auto hold = HoldWherePossible(target, folders);
  if (!IsNewFolder(target)) return;
  try {
    for (const std::string& name : seeds.names) Sow(seeds, name, target);
  } catch (const platform::Fault&) {
    for (const std::string& name : seeds.names) {
      if (platform::FileExists(target / name)) platform::TheFiles().Remove(target / name);
    }
    throw;
  }
}

/// The shipped file that a name means, in its own spelling.
std::string ShippedSpelling(const fs::path& shipped, std::string_view fileName) {
  for (const std::string& name : platform::TheFiles().List(shipped)) {
    if (platform::EqualsIgnoringCase(name, fileName)) return name;
  }
  return {};
}

/// Whether a file of the user serves as it is: one that is there, and is what it should be.
bool IsSound(std::string_view fileName) {
  try {
    if (!platform::FileExists(platform::InAppDir(fileName))) return false;
    if (platform::EqualsIgnoringCase(fileName, kMarkOfAFolder)) return RowsOnDisk(fileName, fileName) > 0;
    return fs::path(fileName).extension() != ".txt" || HoldsUsableSet(fileName);
  } catch (const platform::Fault&) {
    return false;
  }
}

/// "America/New_York" lies at "New York".
std::string PlaceName(std::string_view zoneName) {
  const std::size_t slash = zoneName.rfind('/');
  return platform::ReplaceAll(slash == std::string_view::npos ? zoneName : zoneName.substr(slash + 1), "_", " ");
}

double RoundToTenThousandths(double x) {
  return std::round(x * 10000) / 10000;
}

}  // namespace

bool IsNewFolder(const fs::path& folder) {
  return platform::TheFiles().FolderIsEmpty(Bare(folder));
}

void SeedFolder(const fs::path& shipped, const fs::path& folder, platform::Folders& folders,
                const std::optional<orbit::Observer>& observer) {
  const Seeds seeds = SeedsFor(shipped, observer);
  const fs::path target = Bare(folder);
  try {
    FillBesideAndRename(seeds, target, folders);
  } catch (const platform::Fault&) {
    if (!platform::TheFiles().FolderExists(target)) throw;
    if (IsNewFolder(target)) FillInPlace(seeds, target, folders);
    // Otherwise another copy has filled it meanwhile: that one is taken as it is.
  }
}

void WriteFirstLocation(const ZonePlace& place) {
  const auto isThere = [](std::string_view key) { return !platform::Trim(platform::TheSettings().Get(key)).empty(); };
  if (std::any_of(kLocationKeys.begin(), kLocationKeys.end(), isThere)) return;
  const double lonDegWest = std::fmod(720 - place.longitudeEastDeg, 360);
  const std::array<std::string, 4> values{PlaceName(place.zoneName),
                                          platform::NumberText(RoundToTenThousandths(place.latitudeDeg)),
                                          platform::NumberText(RoundToTenThousandths(lonDegWest)), "0"};
  for (std::size_t i = 0; i < values.size(); ++i) platform::WriteSetting(kLocationKeys[i], values[i]);
}

bool PrepareFirstStart(const fs::path& shipped, const fs::path& folder, const std::optional<ZonePlace>& place,
                       platform::Folders& folders) {
  RemoveAbandoned(Bare(folder), folders);
  if (!IsNewFolder(folder)) return false;
  SeedFolder(shipped, folder, folders, FirstObserver(place));
  if (place) WriteFirstLocation(*place);
  return true;
}

bool IsShipped(const fs::path& shipped, std::string_view fileName) {
  return !ShippedSpelling(shipped, fileName).empty();
}

bool PutBack(const fs::path& shipped, std::string_view fileName) {
  const std::string name = ShippedSpelling(shipped, fileName);
  if (name.empty()) return false;
  const fs::path target = platform::InAppDir(fileName);
  if (IsSound(fileName)) return true;
  MoveAside(fileName);
  platform::Files& files = platform::TheFiles();
  files.Replace(target, files.Read(shipped / name));
  DateByElements(target);
  return true;
}

}  // namespace kestrava::store
