#include "platform/FaultLog.h"

#include <exception>
#include <utility>
#include <vector>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/TextFile.h"
#include "platform/Version.h"

namespace kestrava::platform {

namespace {

constexpr std::size_t kMostHeldLines = 1000;

FaultObserver& Observer() {
  static FaultObserver observer;
  return observer;
}

std::vector<std::string>& HeldLines() {
  static std::vector<std::string> lines;
  return lines;
}

/// A fault stays one line of text, whatever its message holds: it may quote a damaged file.
std::string OnOneLine(std::string_view text) {
  std::string line(text);
  for (char& c : line) {
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  return line;
}

void Append(std::string_view line) {
  const auto file = InAppDir("error.log");
  TheFiles().Append(file, std::string(line).append(kLineEnd));
  if (TheFiles().Size(file) > kErrorLogBoundBytes) TheFiles().Remove(file);
}

}  // namespace

std::string ErrorLogLine(std::string_view message, std::string_view trapName) {
  const SerialDate now = TheClock().Read().local;
  return ShortVersion() + " " + TheLocale().DateText(now) + " - " + TheLocale().TimeText(now) + " - " +
         OnOneLine(message) + " - " + OnOneLine(trapName);
}

void ErrorTrap(std::string_view message, std::string_view trapName) {
  try {
    if (Observer()) Observer()(message, trapName);
    std::string line = ErrorLogLine(message, trapName);
    if (!AppDir.empty()) {
      Append(line);
    } else if (HeldLines().size() < kMostHeldLines) {
      HeldLines().push_back(std::move(line));
    }
  } catch (const std::exception&) {
    // A log that cannot be written has nowhere to say so, and trying again would never end.
  }
}

void FlushHeldFaults() {
  const std::vector<std::string> lines = std::exchange(HeldLines(), {});
  try {
    for (const std::string& line : lines) Append(line);
  } catch (const std::exception&) {
  }
}

FaultObserver ObserveFaults(FaultObserver observer) {
  return std::exchange(Observer(), std::move(observer));
}

}  // namespace kestrava::platform
