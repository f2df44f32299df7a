#include "Rewrite.h"

#include <algorithm>
#include <cstddef>
#include <unordered_set>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Quote.h"
#include "platform/Text.h"
#include "platform/TextFile.h"
#include "store/Backups.h"

namespace kestrava::store {

namespace {

constexpr std::size_t kNamed = 20;  // the rest is counted: a damaged file may hold any number of lines

/// Whether a text comes back as it is from a file of Latin-1 bytes.
bool SurvivesLatin1(std::string_view line) {
  return platform::ToUtf8(platform::ToLatin1(line)) == line;
}

}  // namespace

std::string NamesOf(const Lines& leftOut) {
  std::string names;
  for (std::size_t i = 0; i < std::min(leftOut.size(), kNamed); ++i) {
    if (i > 0) names += ", ";
    names += platform::QuoteOf(platform::Left(platform::Trim(leftOut[i]), 80));
  }
  if (leftOut.size() > kNamed) names += " and " + std::to_string(leftOut.size() - kNamed) + " more";
  return names;
}

bool IsMissing(std::string_view fileName) {
  const auto file = platform::InAppDir(fileName);
  return !platform::FileExists(file) && !platform::TheFiles().FolderExists(file);
}

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

Lines PlainLines(const Lines& lines) {
  Lines plain;
  std::copy_if(lines.begin(), lines.end(), std::back_inserter(plain),
               [](const std::string& line) { return IsRow({}, line); });
  return plain;
}

void KeepWhatIsLost(std::string_view fileName, const Lines& lost, std::string_view trapName) {
  if (lost.empty()) return;
  const Lines old = LinesOnDisk(fileName);
  const std::unordered_set<std::string_view> present(old.begin(), old.end());
  Lines leftOut;
  std::copy_if(lost.begin(), lost.end(), std::back_inserter(leftOut),
               [&](const std::string& line) { return present.contains(line); });
  if (leftOut.empty()) return;
  const std::string backup = KeepBackup(fileName);
  platform::ErrorTrap("Left out of " + std::string(fileName) + ", kept in " + backup + ": " + NamesOf(leftOut),
                      trapName);
}

platform::Fault NotReadWhole(std::string_view fileName) {
  return {75, std::string(fileName) + " could not be read whole, and is not written over"};
}

void ReplaceLines(std::string_view fileName, const Lines& lines) {
  const std::filesystem::path file = platform::InAppDir(fileName);
  bool wasLatin1 = false;
  if (platform::FileExists(file)) platform::ToUtf8(platform::TheFiles().Read(file), &wasLatin1);
  platform::TextWriter writer(wasLatin1 && std::all_of(lines.begin(), lines.end(), SurvivesLatin1));
  for (const std::string& line : lines) writer.WriteLine(line);
  writer.ReplaceFile(file);
}

}  // namespace kestrava::store
