#include "store/DataFolder.h"

#include "platform/Files.h"

namespace kestrava::store {

namespace {

std::string WithOneSeparator(const std::filesystem::path& folder) {
  std::string text = folder.lexically_normal().string();
  while (!text.empty() && text.back() == '/') text.pop_back();
  return text + '/';
}

}  // namespace

std::filesystem::path DataHome(std::string_view xdgDataHome, std::string_view home) {
  // Relative values are invalid and count as not set.
  const std::filesystem::path given(xdgDataHome);
  return given.is_absolute() ? given : std::filesystem::path(home) / ".local" / "share";
}

std::string ChooseDataFolder(const FolderClues& clues) {
  if (!clues.dataArgument.empty()) return WithOneSeparator(clues.workingFolder / clues.dataArgument);
  if (platform::FileExists(clues.programFolder / "groups.dat")) return WithOneSeparator(clues.programFolder);
  return WithOneSeparator(clues.dataHome / "kestrava");
}

}  // namespace kestrava::store
