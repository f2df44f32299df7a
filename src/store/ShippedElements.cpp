#include "store/ShippedElements.h"

#include <algorithm>
#include <set>
#include <string>

#include "platform/Doors.h"
#include "platform/Files.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::store {

namespace {

/// Lines 1 and 2 of all sets, without blanks behind.
std::set<std::string> ElementLines(const std::filesystem::path& file) {
  std::set<std::string> lines;
  for (const std::string& line : platform::SplitLines(platform::TheFiles().Read(file))) {
    if (platform::BeginsWith(line, "1 ") || platform::BeginsWith(line, "2 ")) lines.emplace(platform::Trim(line));
  }
  return lines;
}

}  // namespace

bool HoldsShippedElements(const std::filesystem::path& shipped, std::string_view fileName) {
  const std::filesystem::path original = shipped / fileName;
  const std::filesystem::path users = platform::InAppDir(fileName);
  if (fileName.empty() || !platform::FileExists(original) || !platform::FileExists(users)) return false;
  const std::set<std::string> known = ElementLines(original);
  const std::set<std::string> present = ElementLines(users);
  return !known.empty() && std::includes(present.begin(), present.end(), known.begin(), known.end());
}

}  // namespace kestrava::store
