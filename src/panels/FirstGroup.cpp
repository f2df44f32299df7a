#include "FirstGroup.h"

#include <algorithm>
#include <string_view>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Quote.h"
#include "platform/SharedFiles.h"
#include "platform/Text.h"
#include "store/ElementFiles.h"
#include "store/GroupTable.h"

namespace kestrava::panels {

namespace {

std::string Quoted(std::string_view text) {
  return '"' + platform::QuoteOf(text) + '"';
}

/// A file that cannot be read is none to be named.
bool HoldsSets(std::string_view file) {
  bool holds = false;
  platform::FaultTrap{"CONgroups - FirstGroup"}([&] { holds = store::HoldsUsableSet(file); });
  return holds;
}

/// The launcher wants more of it than that it is there.
bool HasItsFile(const orbit::GroupRec& group) {
  const std::string file = store::ElementFileOf(group);
  return !file.empty() && platform::FileExists(platform::InAppDir(file)) && HoldsSets(file);
}

/// A group of the element server whose file is there; empty if there is none.
std::string ServerGroupWithFile() {
  for (const store::ServerGroup& group : store::ServerGroups()) {
    if (!group.ended && platform::FileExists(platform::InAppDir(group.file)) && HoldsSets(group.file)) {
      return std::string(group.name);
    }
  }
  return {};
}

/// A file of elements in the data folder; empty if there is none.
std::string AnyElementFile() {
  for (const std::string& name : platform::TheFiles().List(platform::AppDir)) {
    const std::string ending = platform::ToCapitals(name.substr(name.size() - std::min<std::size_t>(name.size(), 4)));
    if ((ending == ".TXT" || ending == ".TLE") && HoldsSets(name)) return name;
  }
  return {};
}

/// A new group comes last: the ones before it, none of which has its file, have to go.
std::string AddRemedy(const orbit::Tables& tables, const std::string& steps) {
  if (tables.GroupCount == 0) return steps;
  return "delete all groups, as no file of theirs is there, and " + steps + " After that you can add them again.";
}

std::string Remedy(const orbit::Tables& tables) {
  for (int row = 2; row <= tables.GroupCount; ++row) {
    const orbit::GroupRec& group = platform::At(tables.GroupList, row);
    if (HasItsFile(group)) return "delete the groups above " + Quoted(group.Name) + ", whose file is there.";
  }
  if (const std::string group = ServerGroupWithFile(); !group.empty()) {
    return AddRemedy(tables, "choose " + Quoted(group) +
                                 " among the groups of the element server, whose file is there, and click \"Add This "
                                 "to your Groups\".");
  }
  const std::string byHand = "click \"Add New Group\", answer No, type any name for the group, and then ";
  if (const std::string file = AnyElementFile(); !file.empty()) {
    return AddRemedy(tables, byHand + Quoted(file) + ", a file that is there.");
  }
  const std::string copy = "copy a file of elements into the folder " + platform::AppDir;
  if (tables.GroupCount == 0) return copy + ", " + byHand + "the name of that file.";
  const std::string wanted = store::ElementFileOf(platform::At(tables.GroupList, 1));
  return wanted.empty()
             ? AddRemedy(tables, copy + ", " + byHand + "the name of that file.")
             : "copy a file of elements named " + Quoted(wanted) + " into the folder " + platform::AppDir + ".";
}

}  // namespace

std::string FirstGroupTrouble(const orbit::Tables& tables) {
  // The start goes by the rows that it could read, and has said so; the file is left as it is.
  if (const auto known = platform::LastKnown("groups.dat"); known && !known->whole) return {};
  std::string missing = "There is no group on your list.";
  if (tables.GroupCount > 0) {
    const orbit::GroupRec& first = platform::At(tables.GroupList, 1);
    if (HasItsFile(first)) return {};
    const std::string file = store::ElementFileOf(first);
    missing = "The file of your first group " + Quoted(first.Name) + ' ' +
              (file.empty() ? "is not there: it names none." : store::TroubleWith(file) + ": " + Quoted(file) + ".");
  }
  return missing +
         "\n\nKestrava needs a first group whose file is in its folder. Without one it ends as soon as this window is "
         "closed and you go on, and does not start again.\n\nWhat helps: " +
         Remedy(tables) + "\n\nStay in this window to do that?";
}

}  // namespace kestrava::panels
