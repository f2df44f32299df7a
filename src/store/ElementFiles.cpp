#include "store/ElementFiles.h"

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
