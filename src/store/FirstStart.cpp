#include "store/FirstStart.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

#include "orbit/ElementReader.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace kestrava::store {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kMarkOfAFolder = "groups.dat";
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

void CopyShipped(const fs::path& shipped, const fs::path& folder, const std::string& name) {
  platform::TheFiles().Copy(shipped / name, folder / name);
  DateByElements(folder / name);
}

/// What is shipped, the file by which a folder is known as a whole one at the end.
std::vector<std::string> ShippedNames(const fs::path& shipped) {
  std::vector<std::string> names = platform::TheFiles().List(shipped);
  const auto mark = std::find(names.begin(), names.end(), kMarkOfAFolder);
  if (mark == names.end()) throw platform::Fault::FileNotFound();
  std::rotate(mark, mark + 1, names.end());
  return names;
}

void RemoveAll(const fs::path& folder, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    if (platform::FileExists(folder / name)) platform::TheFiles().Remove(folder / name);
  }
}

fs::path BesideOf(const fs::path& target) {
  return target.parent_path() / (target.filename().string() + ".new");
}

void FillBesideAndRename(const fs::path& shipped, const fs::path& target, const std::vector<std::string>& names) {
  platform::Files& files = platform::TheFiles();
  const fs::path beside = BesideOf(target);
  files.MakeFolder(beside);
  RemoveAll(beside, files.List(beside));  // of a first start that was killed
  for (const std::string& name : names) CopyShipped(shipped, beside, name);
  // Another first start at the same moment clears the same folder: what is not whole is not put in place.
  if (files.List(beside).size() < names.size()) throw platform::Fault::PathFileAccess();
  files.Rename(beside, target);
}

/// For an empty folder that cannot be renamed over: the root of a stick, or a link to a folder elsewhere.
void FillInPlace(const fs::path& shipped, const fs::path& target, const std::vector<std::string>& names) {
  try {
    for (const std::string& name : names) CopyShipped(shipped, target, name);
  } catch (const platform::Fault&) {
    RemoveAll(target, names);
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

void SeedFolder(const fs::path& shipped, const fs::path& folder) {
  const std::vector<std::string> names = ShippedNames(shipped);
  const fs::path target = Bare(folder);
  try {
    FillBesideAndRename(shipped, target, names);
  } catch (const platform::Fault&) {
    if (platform::TheFiles().FolderExists(target) && !IsNewFolder(target)) return;  // filled by another copy meanwhile
    RemoveAll(BesideOf(target), names);  // a disk that is full stays full otherwise
    if (!platform::TheFiles().FolderExists(target) || !IsNewFolder(target)) throw;
    FillInPlace(shipped, target, names);
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

bool PrepareFirstStart(const fs::path& shipped, const fs::path& folder, const std::optional<ZonePlace>& place) {
  if (!IsNewFolder(folder)) return false;
  SeedFolder(shipped, folder);
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
  if (platform::FileExists(target)) return true;
  platform::Files& files = platform::TheFiles();
  files.Replace(target, files.Read(shipped / name));
  DateByElements(target);
  return true;
}

}  // namespace kestrava::store
