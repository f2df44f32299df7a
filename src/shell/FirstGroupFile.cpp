#include "FirstGroupFile.h"

#include <string>
#include <string_view>

#include "platform/Doors.h"
#include "platform/Files.h"
#include "platform/Quote.h"
#include "store/Backups.h"
#include "store/ElementFiles.h"

namespace kestrava::shell {

using platform::Fault;

namespace {

constexpr const char* kGroupsFile = "groups.dat";
constexpr std::string_view kThenStart = ", then start Kestrava again.";

Fault InvalidFormat() {
  return {321, "Invalid file format"};
}

std::optional<Fault> FaultOfReading(const std::string& file) {
  try {
    platform::TheFiles().Read(platform::InAppDir(file));
    return std::nullopt;
  } catch (const Fault& fault) {
    return fault;
  }
}

std::string Remedy(std::string_view what) {
  return std::string(what) + std::string(kThenStart);
}

/// groups.dat itself names no group at all.
FirstGroupCheck BadGroups() {
  const std::string path = platform::InAppDir(kGroupsFile).string();
  FirstGroupCheck check;
  check.report.missingFile = kGroupsFile;
  check.report.backup = store::FullestBackup(kGroupsFile);
  if (const auto unreadable = FaultOfReading(kGroupsFile)) {
    check.report.subject = "The list of groups cannot be read: " + path;
    check.report.remedy = Remedy("See that you may read it");
    check.report.missingFile.clear();  // it may be whole: only a copy of it takes its place
    if (check.report.backup) check.report.missingFile = kGroupsFile;
    check.fault = unreadable;
  } else {
    check.report.subject = "The list of groups names no group: " + path;
    check.report.remedy = Remedy("Write a group with its address into its first line");
    check.fault = InvalidFormat();
  }
  return check;
}

/// The first group's file, of which nothing can be used.
FirstGroupCheck BadFile(const std::string& file) {
  const std::string shown = platform::QuoteOf(file), path = platform::AppDir + shown;
  FirstGroupCheck check;
  check.report.missingFile = file;
  check.report.remedy = Remedy("Put the file back, or name another group first in groups.dat");
  check.fault = FaultOfReading(file);
  const bool missing = check.fault && !platform::FileExists(platform::InAppDir(file)) &&
                       !platform::TheFiles().FolderExists(platform::InAppDir(file));
  check.report.subject =
      "The element file of the first group " + (missing ? "cannot be found" : store::TroubleWith(file)) + ": " + path;
  if (!missing) check.report.subject += "\nWhere it is replaced, what is there now is kept as " + shown + ".damaged.";
  if (!check.fault) check.fault = InvalidFormat();
  return check;
}

bool IsUsable(const std::string& file) {
  try {
    return !file.empty() && store::HoldsUsableSet(file);
  } catch (const Fault&) {
    return false;
  }
}

}  // namespace

FirstGroupCheck CheckFirstGroup(const orbit::Tables& tables) {
  const std::string file = platform::FileNameOfAddress(tables.GroupList[1].Address);
  if (IsUsable(file)) {
    return {{"", "The element file of the first group cannot be found: " + platform::AppDir + platform::QuoteOf(file),
             Remedy("Put the file back, or name another group first in groups.dat"), file},
            std::nullopt};
  }
  if (store::RowsOnDisk(kGroupsFile, kGroupsFile) == 0) return BadGroups();
  if (!file.empty()) return BadFile(file);
  return {{"", "The first line of " + platform::InAppDir(kGroupsFile).string() + " names no element file.",
           Remedy("Write a group with its address into that line"), ""},
          Fault::FileNotFound()};
}

}  // namespace kestrava::shell
