#include "store/WaitingFavourites.h"

#include <algorithm>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/SharedFiles.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "Rewrite.h"

namespace kestrava::store {

namespace {

constexpr std::string_view kRemark =
    "# Favourites without elements: place, told, name. They go back into faves.dat when their elements are there "
    "again.";

std::string LineOf(const WaitingFavourite& favourite) {
  return std::to_string(favourite.place) + ";" + (favourite.told ? "1;" : "0;") + favourite.name;
}

/// "3;1;NOAA 19"; the name is all the rest. @return false for a line that is none
bool ReadLine(std::string_view line, WaitingFavourite& favourite) {
  const std::size_t first = line.find(';');
  if (first == std::string_view::npos || first == 0 || line.size() < first + 4 || line[first + 2] != ';') return false;
  const double place = platform::Val(line.substr(0, first));
  favourite = {std::string(line.substr(first + 3)), static_cast<int>(std::clamp(place, 1.0, 1e6)),
               line[first + 1] == '1'};
  return line.front() != '#' && !IsBlank(favourite.name);
}

}  // namespace

WaitingList ReadWaiting() {
  WaitingList waiting;
  WaitingFavourite favourite;
  for (const std::string& line : PlainLines(LinesOnDisk(kWaitingFile))) {
    if (ReadLine(line, favourite)) waiting.push_back(favourite);
  }
  std::stable_sort(waiting.begin(), waiting.end(), [](const auto& a, const auto& b) { return a.place < b.place; });
  return waiting;
}

void WriteWaiting(const WaitingList& waiting) {
  const auto file = platform::InAppDir(kWaitingFile);
  if (waiting.empty()) {
    if (platform::FileExists(file)) platform::TheFiles().Remove(file);
    return;
  }
  Lines lines{std::string(kRemark)};
  for (const WaitingFavourite& favourite : waiting) lines.push_back(LineOf(favourite));
  if (lines == LinesOnDisk(kWaitingFile)) return;
  platform::TextWriter writer;
  for (const std::string& line : lines) writer.WriteLine(line);
  writer.ReplaceFile(file);
}

void MarkWaitingTold() {
  const auto hold = platform::HoldAppDir();
  WaitingList waiting = ReadWaiting();
  for (WaitingFavourite& favourite : waiting) favourite.told = true;
  WriteWaiting(waiting);
}

}  // namespace kestrava::store
