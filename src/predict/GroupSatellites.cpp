#include "predict/GroupSatellites.h"

#include <algorithm>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Quote.h"
#include "platform/Text.h"
#include "platform/TextFile.h"
#include "store/ElementFiles.h"

namespace kestrava::predict {

namespace {

constexpr int kListedCharacters = 16;  // one more than a satellite's name has: the engine looks at 15

/// What the selection lists show of a name line.
std::string ListedName(std::string_view nameLine) {
  if (platform::BeginsWith(nameLine, "0 ")) nameLine.remove_prefix(2);
  std::string name = platform::Left(nameLine, kListedCharacters);
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == ',' || c == '"'; }, ' ');
  return std::string(platform::Trim(name));
}

/// The rows of the table that are in use.
int UsedGroups(const orbit::Tables& tables) {
  return std::min<int>(tables.GroupCount, orbit::kGroupRows);
}

std::string NextLine(platform::TextReader& reader) {
  return reader.AtEnd() ? std::string() : reader.ReadLine();
}

}  // namespace

void AddGroupNames(const orbit::Tables& tables, platform::ComboControl& combo) {
  for (int i = 1; i <= tables.GroupCount; ++i) combo.Add(platform::At(tables.GroupList, i).Name);
}

std::string ElementFileOfGroup(const orbit::Tables& tables, std::string_view groupName) {
  std::string file;
  for (int i = 1; i <= UsedGroups(tables); ++i) {
    const orbit::GroupRec& group = platform::At(tables.GroupList, i);
    if (group.Name == groupName) file = store::ElementFileOf(group);
  }
  return file;
}

GroupRead AddSatellitesOfGroup(const orbit::Tables& tables, std::string_view groupName, platform::ComboControl& combo,
                               const std::function<bool()>& stopped) {
  const std::string file = ElementFileOfGroup(tables, groupName);
  if (!platform::FileExists(platform::InAppDir(file))) {
    platform::TheMessages().Show(platform::QuoteOf(file) +
                                 " satellite group keps are not updated yet, the keplerian file doesn't exist");
    return GroupRead::kMissing;
  }
  platform::TextReader reader(platform::InAppDir(file));
  while (!reader.AtEnd()) {
    const std::string nameLine = NextLine(reader);
    NextLine(reader);
    NextLine(reader);
    if (!platform::Trim(nameLine).empty()) combo.Add(ListedName(nameLine));
    platform::YieldOnce();
    if (stopped()) return GroupRead::kStopped;
  }
  return GroupRead::kDone;
}

}  // namespace kestrava::predict
