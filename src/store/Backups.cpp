#include "store/Backups.h"

#include <algorithm>

#include "orbit/TextHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "Rewrite.h"

namespace kestrava::store {

namespace {

constexpr int kGenerations = 5;
constexpr int kAsideTried = 1000;

std::string Numbered(std::string_view fileName, std::string_view ending, int number) {
  return std::string(fileName) + std::string(ending) + (number == 1 ? "" : std::to_string(number));
}

std::string BackupName(std::string_view fileName, int generation) {
  return Numbered(fileName, ".bak", generation);
}

bool IsThere(std::string_view fileName) {
  return platform::FileExists(platform::InAppDir(fileName));
}

void Rename(std::string_view from, std::string_view to) {
  platform::TheFiles().Rename(platform::InAppDir(from), platform::InAppDir(to));
}

/// A backup that cannot be read is none that holds the same.
bool HoldsTheSame(std::string_view a, std::string_view b) {
  try {
    return platform::TheFiles().Read(platform::InAppDir(a)) == platform::TheFiles().Read(platform::InAppDir(b));
  } catch (const platform::Fault&) {
    return false;
  }
}

/// Two commas and the digit behind the last one.
bool IsGroupAsWritten(std::string_view line) {
  const std::size_t first = line.find(',');
  const std::size_t last = line.rfind(',');
  return first != last && last + 2 == line.size() && (line.back() == '0' || line.back() == '1');
}

/// A line that was written by hand, of which the reader takes almost any; a page of another program names no file
/// behind its first comma.
bool NamesAFile(std::string_view line) {
  const std::string address(platform::Trim(orbit::GetDelimitedWord(line, 2, ",")));
  return line.front() != '<' && line.front() != ' ' && address.find_first_of("./") != std::string::npos &&
         address.find_first_of(" \"'<>(){};") == std::string::npos;
}

/// The generation that makes room: the first that is free, else the oldest but for the fullest one.
int GenerationToGo(std::string_view fileName) {
  int fullest = 1;
  for (int i = 1; i <= kGenerations; ++i) {
    if (!IsThere(BackupName(fileName, i))) return i;
    if (RowsOnDisk(fileName, BackupName(fileName, i)) > RowsOnDisk(fileName, BackupName(fileName, fullest)))
      fullest = i;
  }
  return fullest == kGenerations ? kGenerations - 1 : kGenerations;
}

}  // namespace

bool IsRow(std::string_view fileName, std::string_view line) {
  const bool hasControls =
      std::any_of(line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < ' ' && c != '\t'; });
  if (IsBlank(line) || hasControls) return false;
  if (platform::EqualsIgnoringCase(fileName, "groups.dat")) {
    return IsGroupAsWritten(line) || NamesAFile(line);
  }
  return !platform::EqualsIgnoringCase(fileName, "Locations.dat") || std::count(line.begin(), line.end(), ';') == 3;
}

int RowsOnDisk(std::string_view listName, std::string_view fileName) {
  try {
    const Lines lines = LinesOnDisk(fileName);
    return static_cast<int>(
        std::count_if(lines.begin(), lines.end(), [&](const std::string& line) { return IsRow(listName, line); }));
  } catch (const platform::Fault&) {
    return 0;
  }
}

std::optional<Backup> FullestBackup(std::string_view fileName) {
  Backup fullest;
  for (int i = 1; i <= kGenerations; ++i) {
    const std::string name = BackupName(fileName, i);
    if (const int rows = RowsOnDisk(fileName, name); rows > fullest.rows) fullest = {name, rows};
  }
  if (fullest.rows == 0) return std::nullopt;
  return fullest;
}

std::string KeepBackup(std::string_view fileName) {
  for (int i = 1; i <= kGenerations; ++i) {
    if (IsThere(BackupName(fileName, i)) && HoldsTheSame(fileName, BackupName(fileName, i))) {
      return BackupName(fileName, i);
    }
  }
  const std::string newest = std::string(fileName) + ".bak-new";  // whole before an older one makes room for it
  platform::TheFiles().Copy(platform::InAppDir(fileName), platform::InAppDir(newest));
  for (int i = GenerationToGo(fileName); i > 1; --i) Rename(BackupName(fileName, i - 1), BackupName(fileName, i));
  Rename(newest, BackupName(fileName, 1));
  return BackupName(fileName, 1);
}

void MoveAside(std::string_view fileName) {
  platform::Files& files = platform::TheFiles();
  const auto file = platform::InAppDir(fileName);
  const bool isFolder = files.FolderExists(file);
  if (!isFolder && (!files.Exists(file) || files.Size(file) == 0)) return;
  for (int i = 1; i <= kAsideTried; ++i) {
    const auto aside = platform::InAppDir(Numbered(fileName, ".damaged", i));
    if (files.Exists(aside) || files.FolderExists(aside)) continue;
    files.Rename(file, aside);
    return;
  }
  throw platform::Fault::PathFileAccess();
}

void RestoreBackup(std::string_view fileName, std::string_view backup) {
  const std::string content = platform::TheFiles().Read(platform::InAppDir(backup));
  MoveAside(fileName);
  platform::TheFiles().Replace(platform::InAppDir(fileName), content);
}

}  // namespace kestrava::store
