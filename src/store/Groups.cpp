#include "store/Groups.h"

#include <algorithm>
#include <string>

#include "orbit/TextHelpers.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/SharedFiles.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "MergeRows.h"
#include "Rewrite.h"

namespace kestrava::store {

using platform::At;

namespace {

constexpr std::string_view kFile = "groups.dat";
constexpr int kLastRowCleared = 20;  // rows above keep what they held

std::string LastCharacter(std::string_view line) {
  return platform::Mid(line, platform::LengthInCharacters(line), 1);
}

orbit::GroupRec GroupOf(std::string_view line) {
  return {orbit::GetDelimitedWord(line, 1, ","), std::string(platform::Trim(orbit::GetDelimitedWord(line, 2, ","))),
          LastCharacter(line)};
}

std::string LineOf(const orbit::GroupRec& group) {
  return group.Name + "," + group.Address + "," + group.Manual;
}

/// What is written of the table.
Lines RowsOf(const orbit::Tables& tables) {
  Lines rows;
  for (int i = 1; i <= tables.GroupCount; ++i) {
    const orbit::GroupRec& group = At(tables.GroupList, i);
    if (!IsBlank(group.Name)) rows.push_back(LineOf(group));
  }
  return rows;
}

/// The rows of a file as the writer would have them. One that is damaged, emptied or gone takes no group away.
Lines RowsOfOthers(const Lines& file, const Lines& base) {
  Lines rows;
  for (auto line = file.begin(); line != file.end() && !IsBlank(*line); ++line) {
    const orbit::GroupRec group = GroupOf(*line);
    if (!IsBlank(group.Name)) rows.push_back(LineOf(group));
  }
  rows = PlainLines(rows);
  return rows.empty() ? base : rows;
}

/// Whether the reader stops before the end of these lines, at a blank one.
bool HoldsUnreadLines(const Lines& lines) {
  const auto blank = std::find_if(lines.begin(), lines.end(), IsBlank);
  return !std::all_of(blank, lines.end(), IsBlank);
}

void ReadTable(orbit::Tables& tables) {
  platform::TextReader reader(platform::InAppDir(kFile));
  int row = 1;
  while (!reader.AtEnd()) {
    const std::string& line = reader.ReadLine();
    if (IsBlank(line)) break;
    At(tables.GroupList, row) = GroupOf(line);
    ++row;
  }
  tables.GroupCount = static_cast<std::int16_t>(row - 1);
  for (; row <= kLastRowCleared; ++row) At(tables.GroupList, row).Name.clear();
}

}  // namespace

void LoadGroups(orbit::Tables& tables) {
  try {
    ReadTable(tables);
  } catch (const platform::Fault& fault) {
    platform::RememberKnown(kFile, {RowsOf(tables), IsMissing(kFile), fault.what()});
    throw;
  }
  platform::RememberKnown(kFile, {RowsOf(tables), true, {}});
}

void SaveGroups(const orbit::Tables& tables) {
  const auto hold = platform::HoldAppDir();
  const Lines rows = RowsOf(tables);
  const auto known = platform::LastKnown(kFile);
  if (known && !known->whole) {
    if (rows == known->rows) return;
    throw NotReadWhole(kFile);
  }
  const Lines old = LinesOnDisk(kFile);
  const Lines base = known ? known->rows : RowsOfOthers(old, rows);
  Lines merged = MergeRows(base, rows, RowsOfOthers(old, base), [](std::string_view row) { return std::string(row); });
  const Lines noRoom = CutTo(merged, orbit::kGroupRows);
  KeepWhatIsLost(kFile, HoldsUnreadLines(old) ? LinesMissing(old, merged) : noRoom, "Global SaveGroups");
  ReplaceLines(kFile, merged);
  platform::RememberKnown(kFile, {rows, true, {}});
  if (!noRoom.empty()) throw NoRoomFor(noRoom);
}

}  // namespace kestrava::store
