#include "store/Locations.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>

#include "orbit/TextHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/Quote.h"
#include "platform/SharedFiles.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "MergeRows.h"
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

std::string LineOf(const orbit::LocationRec& location) {
  return location.OnMap + location.Name + ";" + location.Longitude + ";" + location.Latitude + ";" +
         std::to_string(location.HASL);
}

/// What is written of the table.
Lines RowsOf(const orbit::Tables& tables) {
  Lines rows;
  for (int i = 1; i <= orbit::kLocationRows; ++i) {
    const orbit::LocationRec& location = At(tables.LocationList, i);
    if (IsBlank(location.Name)) break;
    rows.push_back(LineOf(location));
  }
  return rows;
}

/// A file as a load takes it: a blank line or a row without a name ends it, a fault breaks it off.
struct Reading {
  Lines rows;    ///< as the writer would have them
  Lines unread;  ///< lines that are not blank and are not taken
};

Reading ReadLines(const Lines& lines) {
  Reading reading;
  auto line = lines.begin();
  try {
    for (; line != lines.end() && reading.rows.size() < orbit::kLocationRows && !IsBlank(*line); ++line) {
      const orbit::LocationRec location = LocationOf(*line);
      if (IsBlank(location.Name)) break;
      reading.rows.push_back(LineOf(location));
    }
  } catch (const platform::Fault&) {
    // the lines from here on are the unread ones
  }
  std::copy_if(line, lines.end(), std::back_inserter(reading.unread),
               [](const std::string& rest) { return !IsBlank(rest); });
  return reading;
}

/// A place is the same one as long as it has its name.
std::string NameOfRow(std::string_view row) {
  return platform::Mid(row.substr(0, row.find(';')), 2);
}

/// Why a load broke off: the line, unless it is one too many.
std::string WhyUnread(const platform::Fault& fault) {
  const Lines unread = ReadLines(LinesOnDisk(kFile)).unread;
  if (unread.empty() || fault.Number() == platform::Fault::SubscriptOutOfRange().Number()) return fault.what();
  return "\"" + platform::QuoteOf(platform::Left(platform::Trim(unread.front()), 80)) + "\" is no place (" +
         fault.what() + ")";
}

/// @throws LeftAsItIs where the user wants it so
void AskToLeaveOut(const Lines& unread) {
  if (unread.empty()) return;
  const bool one = unread.size() == 1;
  const std::string question =
      std::to_string(unread.size()) + (one ? " line" : " lines") + " of " + std::string(kFile) +
      (one ? " is no place" : " are no places") + " that Kestrava can read: " + NamesOf(unread) +
      "\n\nIf your change is stored, " + (one ? "it is" : "they are") +
      " left out of the file; the file as it stands is kept as " + std::string(kFile) + ".bak. Store it?";
  if (!platform::TheMessages().AskYesNo(question)) throw LeftAsItIs();
}

void ReadTable(orbit::Tables& tables) {
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

}  // namespace

void LoadLocations(orbit::Tables& tables) {
  try {
    ReadTable(tables);
  } catch (const platform::Fault& fault) {
    std::string trouble = fault.what();
    try {
      trouble = WhyUnread(fault);
    } catch (const platform::Fault&) {
      // it cannot be read at all
    }
    platform::RememberKnown(kFile, {RowsOf(tables), IsMissing(kFile), trouble});
    throw;
  }
  platform::RememberKnown(kFile, {RowsOf(tables), true, {}});
}

void SaveLocations(const orbit::Tables& tables) {
  const Lines rows = RowsOf(tables);
  const auto known = platform::LastKnown(kFile);
  const bool changed = !known || rows != known->rows;
  if (!changed && !known->whole) return;
  const Lines unread = ReadLines(LinesOnDisk(kFile)).unread;
  if (!changed && !unread.empty()) return;
  AskToLeaveOut(unread);
  const auto hold = platform::HoldAppDir();  // not before: a question may stand for hours
  const Lines lines = LinesOnDisk(kFile);
  const Reading old = ReadLines(lines);
  const Lines base = known ? known->rows : old.rows;
  const Lines theirs = old.rows.empty() ? base : old.rows;  // one that is emptied or gone takes no place away
  Lines merged = MergeRows(base, rows, theirs, NameOfRow);
  if (const Lines noRoom = CutTo(merged, orbit::kLocationRows); !noRoom.empty()) throw NoRoomFor(noRoom);
  KeepWhatIsLost(kFile, old.unread, "Global SaveLocations");
  if (merged != lines || !platform::FileExists(platform::InAppDir(kFile))) ReplaceLines(kFile, merged);
  platform::RememberKnown(kFile, {rows, true, {}});
}

}  // namespace kestrava::store
