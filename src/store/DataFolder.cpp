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

std::string ChooseDataFolder(const FolderClues& clues) {
  if (!clues.dataArgument.empty()) return WithOneSeparator(clues.workingFolder / clues.dataArgument);
  if (platform::FileExists(clues.programFolder / "groups.dat")) return WithOneSeparator(clues.programFolder);
  return WithOneSeparator(clues.dataHome / "kestrava");
}

}  // namespace kestrava::store
