// Copies of the user's files that were kept before lines were left out of them: NAME.bak, the newest, to NAME.bak5. The
// fullest is never the one that goes.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kestrava::store {

/// Whether a line of one of the lists can be a row of it: not blank, no control characters, in groups.dat as it is
/// written or with a file's name in its second field, in Locations.dat with four fields.
bool IsRow(std::string_view fileName, std::string_view line);

/// How many rows a file in AppDir holds; 0 if it is not there or cannot be read.
int RowsOnDisk(std::string_view listName, std::string_view fileName);

struct Backup {
  std::string fileName;
  int rows = 0;
};

/// The backup with the most rows, of several the newest. @return none if no backup holds a row
std::optional<Backup> FullestBackup(std::string_view fileName);

/// Keeps a file as NAME.bak, unless a backup holds the same already.
/// @return the name of the backup. @throws platform::Fault; nothing is lost then
std::string KeepBackup(std::string_view fileName);

/// Puts a backup in place of its file. What stands there now, be it a folder, is moved aside first (see MoveAside).
/// @throws platform::Fault
void RestoreBackup(std::string_view fileName, std::string_view backup);

/// Renames a damaged file, or a folder of that name, to NAME.damaged or the first free NAME.damaged2, ...; an empty
/// file is left for whoever replaces it. @throws platform::Fault
void MoveAside(std::string_view fileName);

}  // namespace kestrava::store
