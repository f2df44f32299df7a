#include "store/Groups.h"

#include <algorithm>
#include <string>

#include "orbit/TextHelpers.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "Rewrite.h"

namespace kestrava::store {

using platform::At;

namespace {

constexpr std::string_view kFile = "groups.dat";
constexpr int kLastRowCleared = 20;  // rows above keep what they held

std::string LastCharacter(std::string_view line) {
  return platform::Mid(line, platform::LengthInCharacters(line), 1);
}

/// Whether the reader stops before the end of these lines: at a blank one, or past the last row.
bool HoldsUnreadLines(const Lines& lines) {
  const auto blank = std::find_if(lines.begin(), lines.end(), IsBlank);
  if (blank - lines.begin() > orbit::kGroupRows) return true;
  return !std::all_of(blank, lines.end(), IsBlank);
}

}  // namespace

void LoadGroups(orbit::Tables& tables) {
  platform::TextReader reader(platform::InAppDir(kFile));
  int row = 1;
  while (!reader.AtEnd()) {
    const std::string& line = reader.ReadLine();
    if (IsBlank(line)) break;
    orbit::GroupRec& group = At(tables.GroupList, row);
    group.Name = orbit::GetDelimitedWord(line, 1, ",");
    group.Address = platform::Trim(orbit::GetDelimitedWord(line, 2, ","));
    group.Manual = LastCharacter(line);
    ++row;
  }
  tables.GroupCount = static_cast<std::int16_t>(row - 1);
  for (; row <= kLastRowCleared; ++row) At(tables.GroupList, row).Name.clear();
}

void SaveGroups(const orbit::Tables& tables) {
  Lines lines;
  for (int i = 1; i <= tables.GroupCount; ++i) {
    const orbit::GroupRec& group = At(tables.GroupList, i);
    if (!IsBlank(group.Name)) lines.push_back(group.Name + "," + group.Address + "," + group.Manual);
  }
  const Lines old = LinesOnDisk(kFile);
  RewriteFile(kFile, lines, HoldsUnreadLines(old) ? LinesMissing(old, lines) : Lines{}, "Global SaveGroups");
}

}  // namespace kestrava::store
