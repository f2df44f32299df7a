// Which folder is the user's: AppDir, in which all data files lie. Plain decisions; the caller knows the machine.
#pragma once

#include <filesystem>
#include <string>

namespace kestrava::store {

/// What the choice depends on.
struct FolderClues {
  std::string dataArgument;             ///< behind --data; empty if it was not given
  std::filesystem::path workingFolder;  ///< a relative argument counts from here
  std::filesystem::path programFolder;  ///< of the running program
  std::filesystem::path dataHome;       ///< where the desktop keeps its users' data
};

/// The folder of the argument; else the program's own if it holds groups.dat, as on a portable stick; else kestrava
/// below the data home.
/// @return absolute, ends with exactly one separator: ready to be AppDir
std::string ChooseDataFolder(const FolderClues& clues);

}  // namespace kestrava::store
