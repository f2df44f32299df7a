#include "store/ElementFiles.h"

#include "orbit/ElementReader.h"
#include "platform/Doors.h"
#include "platform/EventLoop.h"
#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::store {

namespace {

constexpr int kMostHeaderLines = 400;

/// The first of the two lines of elements, with an epoch.
bool IsFirstLineOfSet(std::string_view line) {
  return platform::BeginsWith(line, "1 ") && platform::Val(platform::Mid(line, 19, 14)) != 0;
}

/// The result of FindFirstKepLine for a file that can be read.
int LinesBeforeFirstSet(platform::TextReader& reader) {
  int line = 0;
  while (!reader.AtEnd()) {
    const std::string& text = reader.ReadLine();
    if (IsFirstLineOfSet(text)) return line - 2;
    if (++line > kMostHeaderLines) return 0;
    platform::YieldOnce();
  }
  return 0;
}

}  // namespace

std::string ElementFileOf(const orbit::GroupRec& group) {
  return platform::FileNameOfAddress(group.Address);
}

bool HoldsSets(std::string_view file) {
  platform::TextReader reader(platform::InAppDir(file));
  for (int line = 0; line <= kMostHeaderLines && !reader.AtEnd(); ++line) {
    if (IsFirstLineOfSet(reader.ReadLine())) return true;
  }
  return false;
}

bool HoldsUsableSet(std::string_view file) {
  const std::string text = platform::TheFiles().Read(platform::InAppDir(file));
  constexpr std::size_t kBeginning = 32768;  // almost always tells: the launcher asks at each activation
  if (!orbit::ReadElementSets(std::string_view(text).substr(0, kBeginning)).sets.empty()) return true;
  return text.size() > kBeginning && !orbit::ReadElementSets(text).sets.empty();
}

std::string TroubleWith(std::string_view file) {
  const auto path = platform::InAppDir(file);
  if (!platform::FileExists(path) && !platform::TheFiles().FolderExists(path)) return "is not there";
  try {
    const orbit::ElementFile elements = orbit::ReadElementSets(platform::TheFiles().Read(path));
    if (elements.sets.empty()) return "holds no elements";
    if (elements.refused.empty()) return {};
    const std::size_t damaged = elements.refused.size();
    return "holds " + std::to_string(damaged) + (damaged == 1 ? " damaged set" : " damaged sets");
  } catch (const platform::Fault& fault) {
    return "cannot be read (" + std::string(fault.what()) + ")";
  }
}

std::int16_t FindFirstKepLine(std::string_view file) {
  if (!platform::FileExists(platform::InAppDir(file))) return -1;
  try {
    platform::TextReader reader(platform::InAppDir(file));
    return static_cast<std::int16_t>(LinesBeforeFirstSet(reader));
  } catch (const platform::Fault& fault) {
    platform::ErrorTrap(fault.what() + (" CAT:" + std::string(file)), "Global FindFirstKepLine");
    return 0;
  }
}

std::vector<std::string> ListSatellites(std::string_view file, std::string_view trapName) {
  const platform::FaultTrap trap{trapName};
  std::vector<std::string> names;
  const int header = FindFirstKepLine(file);
  platform::TextReader reader(platform::InAppDir(file));
  for (int i = 0; i <= header; ++i) {
    if (!trap([&] { reader.ReadLine(); })) return names;
  }
  while (!reader.AtEnd()) {
    const std::string nameLine = reader.ReadLine();
    if (reader.AtEnd()) break;
    const std::string line1 = reader.ReadLine();
    trap([&] { reader.ReadLine(); });  // line 2; a set that breaks off here is listed all the same
    if (platform::Trim(nameLine).empty()) break;
    if (platform::Val(platform::Mid(line1, 19, 13)) != 0) names.push_back(platform::SatelliteName(nameLine));
  }
  return names;
}

}  // namespace kestrava::store
