#include "store/Favourites.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "orbit/OrbitEngine.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/SharedFiles.h"
#include "platform/Text.h"
#include "platform/TextFile.h"
#include "store/Backups.h"
#include "store/WaitingFavourites.h"

#include "MergeRows.h"
#include "Rewrite.h"

namespace kestrava::store {

using platform::At;
using platform::RememberKnown;

namespace {

constexpr std::string_view kFile = "faves.dat";
constexpr std::string_view kTrap = "Global SaveFaves";
constexpr std::size_t kNameCharacters = 15;
constexpr int kLastRowWritten = orbit::kFaveRows - 1;  // the loop of the writer has always ended one row early

bool Holds(const Lines& lines, std::string_view name) {
  return std::find(lines.begin(), lines.end(), name) != lines.end();
}

/// What is written of the table.
Lines RowsOf(const orbit::Tables& tables) {
  Lines rows;
  for (int i = 1; i <= kLastRowWritten; ++i) {
    const std::string& name = At(tables.FaveList, i).Name;
    if (!IsBlank(name)) rows.push_back(platform::Left(name, kNameCharacters));
  }
  return rows;
}

/// The row that is never written; blank if it is free.
const std::string& LastRow(const orbit::Tables& tables) {
  return At(tables.FaveList, orbit::kFaveRows).Name;
}

/// A line of the file, or a favourite that waits, at its place.
struct Candidate {
  std::string line;
  bool waited = false;
  bool told = false;
};

/// The lines of the file, which are not blank, and between them those that wait, each at its place.
std::vector<Candidate> WithThoseThatWait(platform::TextReader& reader, const WaitingList& waiting) {
  std::vector<Candidate> all;
  Lines inFile;
  while (!reader.AtEnd()) {
    const std::string& line = reader.ReadLine();
    if (IsBlank(line)) continue;
    all.push_back({line});
    inFile.emplace_back(platform::Trim(line));
  }
  for (const WaitingFavourite& favourite : waiting) {
    if (Holds(inFile, favourite.name)) continue;  // the user has brought it back himself
    const auto place = std::min(static_cast<std::size_t>(favourite.place - 1), all.size());
    all.insert(all.begin() + static_cast<std::ptrdiff_t>(place), {favourite.name, true, favourite.told});
  }
  return all;
}

/// The favourites of a load, told apart.
struct Sorted {
  Lines unknown;  ///< lines of the file
  WaitingList waiting;
};

/// A line of a damaged file, as a page of another program, is no name that could ever be known again.
bool CanBeAName(std::string_view line) {
  constexpr int kLongestName = 40;
  return IsRow(kFile, line) && line.front() != '<' && platform::LengthInCharacters(line) <= kLongestName;
}

/// Fills the table with those that the engine knows. One that waited is put in only where there is room.
Sorted FillTable(orbit::Tables& tables, const std::vector<Candidate>& all, const std::string& known) {
  const auto isKnown = [&](const Candidate& one) { return platform::Contains(known, platform::ToCapitals(one.line)); };
  auto room = static_cast<std::ptrdiff_t>(orbit::kFaveRows) -
              std::count_if(all.begin(), all.end(), [&](const Candidate& one) { return !one.waited && isKnown(one); });
  Sorted sorted;
  int row = 1;
  for (std::size_t i = 0; i < all.size(); ++i) {
    const Candidate& one = all[i];
    if (isKnown(one) && (!one.waited || room-- > 0)) {
      At(tables.FaveList, row++).Name = platform::Trim(one.line);
      continue;
    }
    if (!one.waited) sorted.unknown.push_back(one.line);
    if (CanBeAName(one.line)) {
      sorted.waiting.push_back({std::string(platform::Trim(one.line)), static_cast<int>(i) + 1, one.told});
    }
  }
  tables.FaveCount = static_cast<std::int16_t>(row - 1);
  for (; row <= orbit::kFaveRows; ++row) At(tables.FaveList, row).Name.clear();
  return sorted;
}

/// A 500th favourite stands in row 500, which is never written: it is kept with those that wait.
void KeepLastRow(const orbit::Tables& tables, WaitingList& waiting, const WaitingList& before) {
  if (IsBlank(LastRow(tables))) return;
  const auto isThis = [&](const WaitingFavourite& one) { return one.name == LastRow(tables); };
  if (std::any_of(waiting.begin(), waiting.end(), isThis)) return;
  const auto earlier = std::find_if(before.begin(), before.end(), isThis);
  waiting.push_back({LastRow(tables), orbit::kFaveRows, earlier != before.end() && earlier->told});
}

void SaveLoaded(orbit::Tables& tables, Sorted sorted, const WaitingList& before) {
  const Lines rows = RowsOf(tables);
  Lines lost = std::move(sorted.unknown);
  if (!IsBlank(LastRow(tables))) lost.push_back(LastRow(tables));
  KeepLastRow(tables, sorted.waiting, before);
  KeepWhatIsLost(kFile, lost, kTrap);
  WriteWaiting(sorted.waiting);  // before the list is cut: a kill in between leaves a favourite in both
  ReplaceLines(kFile, rows);
  tables.FaveCount = static_cast<std::int16_t>(rows.size());
}

/// A copy that is damaged, emptied or gone meanwhile takes nothing out of the list.
Lines RowsOfOthers(const Lines& base) {
  Lines rows = PlainLines(LinesOnDisk(kFile));
  return rows.empty() ? base : rows;
}

/// Those that wait, after the user has changed the list.
WaitingList WaitingAfter(const orbit::Tables& tables, const Lines& earlier, const Lines& rows) {
  const WaitingList before = ReadWaiting();
  const auto rowBefore = platform::LastKnown(kWaitingFile);
  WaitingList waiting;
  for (WaitingFavourite favourite : before) {
    const bool tookOut = rowBefore && Holds(rowBefore->rows, favourite.name) && favourite.name != LastRow(tables);
    if (tookOut || Holds(rows, favourite.name)) continue;
    const bool newPrimary = !rows.empty() && (earlier.empty() || rows.front() != earlier.front());
    if (favourite.place == 1 && newPrimary) favourite.place = 2;  // the one that the user has put first stays first
    waiting.push_back(std::move(favourite));
  }
  KeepLastRow(tables, waiting, before);
  return waiting;
}

void RememberTable(const orbit::Tables& tables, bool whole, const std::string& trouble) {
  RememberKnown(kFile, {RowsOf(tables), whole, trouble});
  RememberKnown(kWaitingFile, {{LastRow(tables)}, true, {}});
}

}  // namespace

void LoadFaves(orbit::Tables& tables, std::string_view satelliteNames) {
  const auto hold = platform::HoldAppDir();
  bool whole = false;
  try {
    std::optional<platform::TextReader> reader;
    try {
      reader.emplace(platform::InAppDir(kFile));
    } catch (const platform::Fault&) {
      whole = IsMissing(kFile);  // one that is not there holds nothing to be lost
      throw;
    }
    WaitingList before;
    std::optional<platform::Fault> unreadable;  // the list is not cut then, as what is cut could not be remembered
    try {
      before = ReadWaiting();
    } catch (const platform::Fault& fault) {
      unreadable = fault;
    }
    Sorted sorted = FillTable(tables, WithThoseThatWait(*reader, before), platform::ToCapitals(satelliteNames));
    whole = true;
    if (unreadable) throw *unreadable;
    SaveLoaded(tables, std::move(sorted), before);
  } catch (const platform::Fault& fault) {
    RememberTable(tables, whole, fault.what());
    throw;
  }
  RememberTable(tables, true, {});
}

void LoadFaves(orbit::Tables& tables, const orbit::OrbitEngine& engine) {
  LoadFaves(tables, engine.SatelliteNames());
}

void SaveFaves(orbit::Tables& tables) {
  const auto hold = platform::HoldAppDir();
  const Lines rows = RowsOf(tables);
  const auto known = platform::LastKnown(kFile);
  if (known && !known->whole) {
    if (rows == known->rows) return;
    throw NotReadWhole(kFile);
  }
  const Lines base = known ? known->rows : RowsOfOthers(rows);
  Lines merged = MergeRows(base, rows, RowsOfOthers(base), [](std::string_view row) { return std::string(row); });
  const Lines noRoom = CutTo(merged, kLastRowWritten);
  KeepWhatIsLost(kFile, noRoom, kTrap);
  WaitingList waiting = WaitingAfter(tables, base, merged);
  for (const std::string& name : noRoom) waiting.push_back({name, orbit::kFaveRows, false});
  WriteWaiting(waiting);
  ReplaceLines(kFile, merged);
  tables.FaveCount = static_cast<std::int16_t>(rows.size());
  RememberTable(tables, true, {});
}

}  // namespace kestrava::store
