#include "store/Locations.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "orbit/TextHelpers.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "Rewrite.h"

namespace kestrava::store {

using platform::At;

namespace {

constexpr std::string_view kFile = "Locations.dat";
constexpr int kLastRowCleared = orbit::kLocationRows - 1;  // row 100 keeps what it held

/// A number of the file, whichever decimal sign it was written with.
double NumberOfWord(std::string_view line, int n) {
  const std::string word = orbit::GetDelimitedWord(line, n, ";");
  return platform::ParseNumber(platform::UsesDecimalComma() ? platform::ReplaceAll(word, ".", ",")
                                                            : platform::ReplaceAll(word, ",", "."));
}

orbit::LocationRec LocationOf(std::string_view line) {
  orbit::LocationRec location;
  location.OnMap = platform::BeginsWith(line, "1") ? "1" : "0";
  location.Name = platform::Mid(orbit::GetDelimitedWord(line, 1, ";"), 2);
  const double lonDegWest = NumberOfWord(line, 2);
  const double latDeg = NumberOfWord(line, 3);
  location.HASL = platform::ToInt16(platform::ParseNumber(orbit::GetDelimitedWord(line, 4, ";")));
  location.Latitude = platform::NumberText(latDeg);
  location.Longitude = platform::NumberText(lonDegWest);
  return location;
}

/// Whether a load of these lines would bring fewer rows than there are lines: a blank line or a row without a name ends
/// it, a fault breaks it off.
bool HoldsUnreadLines(const Lines& lines) {
  std::size_t taken = 0;
  try {
    while (taken < lines.size() && taken < orbit::kLocationRows && !IsBlank(lines[taken]) &&
           !IsBlank(LocationOf(lines[taken]).Name)) {
      ++taken;
    }
  } catch (const platform::Fault&) {
    return true;
  }
  return !std::all_of(lines.begin() + static_cast<std::ptrdiff_t>(taken), lines.end(), IsBlank);
}

}  // namespace

void LoadLocations(orbit::Tables& tables) {
  platform::TextReader reader(platform::InAppDir(kFile));
  int row = 1;
  while (!reader.AtEnd()) {
    const std::string& line = reader.ReadLine();
    if (IsBlank(line)) break;
    orbit::LocationRec location = LocationOf(line);
    At(tables.LocationList, row) = std::move(location);
    ++row;
  }
  for (; row <= kLastRowCleared; ++row) At(tables.LocationList, row).Name.clear();
}

void SaveLocations(const orbit::Tables& tables) {
  Lines lines;
  for (int i = 1; i <= orbit::kLocationRows; ++i) {
    const orbit::LocationRec& location = At(tables.LocationList, i);
    if (IsBlank(location.Name)) break;
    lines.push_back(location.OnMap + location.Name + ";" + location.Longitude + ";" + location.Latitude + ";" +
                    std::to_string(location.HASL));
  }
  const Lines old = LinesOnDisk(kFile);
  RewriteFile(kFile, lines, HoldsUnreadLines(old) ? LinesMissing(old, lines) : Lines{}, "Global SaveLocations");
}

}  // namespace kestrava::store
