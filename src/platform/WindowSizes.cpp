#include "platform/WindowSizes.h"

#include <charconv>
#include <string>
#include <vector>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::platform {

namespace {

constexpr FaultTrap trap{"Window sizes"};
constexpr std::string_view kMaximised = "maximised";

std::vector<std::string> StoredLines() {
  std::vector<std::string> lines;
  if (AppDir.empty() || !FileExists(InAppDir(kWindowSizesFile))) return lines;
  trap([&] { lines = SplitLines(TheFiles().Read(InAppDir(kWindowSizesFile))); });
  return lines;
}

std::vector<std::string> WordsOf(std::string_view line) {
  return SplitAt(Trim(line), ' ');
}

bool IsOf(std::string_view window, std::string_view line) {
  return WordsOf(line).front() == window;
}

/// A length in pixels; 0 if the text is none.
int Length(std::string_view text) {
  int px = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), px);
  return error == std::errc() && end == text.data() + text.size() && px > 0 ? px : 0;
}

std::optional<WindowSize> SizeOf(std::string_view line) {
  const std::vector<std::string> words = WordsOf(line);
  if (words.size() < 3) return std::nullopt;
  const WindowSize size{Length(words[1]), Length(words[2]), words.size() > 3 && words[3] == kMaximised};
  if (size.widthPx == 0 || size.heightPx == 0) return std::nullopt;
  return size;
}

std::string LineOf(std::string_view window, const WindowSize& size) {
  std::string line(window);
  for (const int px : {size.widthPx, size.heightPx}) line += " " + std::to_string(px);
  if (size.maximised) line.append(" ").append(kMaximised);
  return line;
}

}  // namespace

std::optional<WindowSize> KeptWindowSize(std::string_view window) {
  for (const std::string& line : StoredLines()) {
    if (IsOf(window, line)) return SizeOf(line);
  }
  return std::nullopt;
}

void KeepWindowSize(std::string_view window, const WindowSize& size) {
  if (AppDir.empty()) return;
  TextWriter writer;
  for (const std::string& line : StoredLines()) {
    if (!IsOf(window, line)) writer.WriteLine(line);
  }
  writer.WriteLine(LineOf(window, size));
  trap([&] { writer.ReplaceFile(InAppDir(kWindowSizesFile)); });
}

}  // namespace kestrava::platform
