#include "Rewrite.h"

#include <algorithm>
#include <cstddef>
#include <unordered_set>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::store {

namespace {

constexpr std::size_t kNamedInLog = 20;  // the rest is counted: a damaged file may hold any number of lines

std::string NamesOf(const Lines& leftOut) {
  std::string names;
  for (std::size_t i = 0; i < std::min(leftOut.size(), kNamedInLog); ++i) {
    if (i > 0) names += ", ";
    names += platform::Left(platform::Trim(leftOut[i]), 80);
  }
  if (leftOut.size() > kNamedInLog) names += " and " + std::to_string(leftOut.size() - kNamedInLog) + " more";
  return names;
}

void KeepOldFile(std::string_view fileName, const Lines& leftOut, std::string_view trapName) {
  const std::string name(fileName);
  platform::TheFiles().Copy(platform::InAppDir(name), platform::InAppDir(name + ".bak"));
  platform::ErrorTrap("Left out of " + name + ", kept in " + name + ".bak: " + NamesOf(leftOut), trapName);
}

/// Whether a text comes back as it is from a file of Latin-1 bytes.
bool SurvivesLatin1(std::string_view line) {
  return platform::ToUtf8(platform::ToLatin1(line)) == line;
}

}  // namespace

bool IsBlank(std::string_view line) {
  return platform::Trim(line).empty();
}

Lines LinesOnDisk(std::string_view fileName) {
  const std::filesystem::path file = platform::InAppDir(fileName);
  if (!platform::FileExists(file)) return {};
  return platform::SplitLines(platform::TheFiles().Read(file));
}

Lines LinesMissing(const Lines& before, const Lines& after) {
  const std::unordered_set<std::string_view> present(after.begin(), after.end());
  Lines missing;
  std::copy_if(before.begin(), before.end(), std::back_inserter(missing),
               [&](const std::string& line) { return !IsBlank(line) && !present.contains(line); });
  return missing;
}

void RewriteFile(std::string_view fileName, const Lines& lines, const Lines& leftOut, std::string_view trapName) {
  const std::filesystem::path file = platform::InAppDir(fileName);
  bool wasLatin1 = false;
  if (platform::FileExists(file)) {
    platform::ToUtf8(platform::TheFiles().Read(file), &wasLatin1);
    if (!leftOut.empty()) KeepOldFile(fileName, leftOut, trapName);
  }
  platform::TextWriter writer(wasLatin1 && std::all_of(lines.begin(), lines.end(), SurvivesLatin1));
  for (const std::string& line : lines) writer.WriteLine(line);
  writer.ReplaceFile(file);
}

}  // namespace kestrava::store
