#include "platform/FaultLog.h"

#include <algorithm>
#include <exception>
#include <map>
#include <set>
#include <utility>
#include <vector>

#include "platform/ClockFace.h"
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

/// What makes two faults the same: message and trap name.
using FaultName = std::pair<std::string, std::string>;

struct Repeats {
  int count = 0;
  SerialDate last = 0;  ///< local
};

/// What has been told, so that it is not told again.
struct Told {
  DateParts minute;  ///< of `faults`, its seconds at 0
  std::map<FaultName, Repeats> faults;
  DateParts day;                ///< of `lasting`, its time of day at 0
  std::set<FaultName> lasting;  ///< with the subject in place of the message
};

Told& TheTold() {
  static Told told;
  return told;
}

/// A fault stays one line of text, whatever its message holds: it may quote a damaged file.
std::string OnOneLine(std::string_view text) {
  std::string line(text);
  for (char& c : line) {
    if (static_cast<unsigned char>(c) < ' ') c = ' ';
  }
  return line;
}

std::string LineAt(SerialDate local, std::string_view message, std::string_view trapName) {
  return ShortVersion() + " " + TheLocale().DateText(local) + " - " + TheLocale().TimeText(local) + " - " +
         OnOneLine(message) + " - " + OnOneLine(trapName);
}

void Append(std::string_view line) {
  const auto file = InAppDir("error.log");
  TheFiles().Append(file, std::string(line).append(kLineEnd));
  if (TheFiles().Size(file) <= kErrorLogBoundBytes) return;
  TheTold() = {};  // the lines that told it go with the file
  TheFiles().Remove(file);
}

void Write(std::string line) {
  if (!AppDir.empty()) {
    Append(line);
  } else if (HeldLines().size() < kMostHeldLines) {
    HeldLines().push_back(std::move(line));
  }
}

/// A fault that came again once keeps its plain form.
std::string WithCount(const std::string& message, int count) {
  return count == 1 ? message : message + " (" + std::to_string(count) + " times)";
}

/// Ends the minute: the lines of what came again in it, in the order of the moments that they bear.
void WriteRepeats() {
  using Fault = std::pair<FaultName, Repeats>;
  const std::map<FaultName, Repeats> told = std::exchange(TheTold().faults, {});
  std::vector<Fault> repeated;
  std::copy_if(told.begin(), told.end(), std::back_inserter(repeated),
               [](const Fault& f) { return f.second.count > 0; });
  std::stable_sort(repeated.begin(), repeated.end(),
                   [](const Fault& a, const Fault& b) { return a.second.last < b.second.last; });
  for (const auto& [name, repeats] : repeated) {
    Write(LineAt(repeats.last, WithCount(name.first, repeats.count), name.second));
  }
}

/// Writes a fault, or counts it where this minute has its line already.
void WriteOrCount(SerialDate local, std::string_view message, std::string_view trapName) {
  DateParts minute = SplitSerial(local);
  minute.second = 0;
  if (!(minute == TheTold().minute)) WriteRepeats();
  TheTold().minute = minute;
  const auto [place, first] = TheTold().faults.try_emplace({std::string(message), std::string(trapName)});
  if (first) return Write(LineAt(local, message, trapName));
  place->second = {place->second.count + 1, local};
}

bool IsNewToday(SerialDate local, std::string_view subject, std::string_view trapName) {
  DateParts day = SplitSerial(local);
  day.hour = day.minute = day.second = 0;
  Told& told = TheTold();
  if (!(day == told.day)) told.lasting.clear();
  told.day = day;
  return told.lasting.emplace(subject, trapName).second;
}

/// Tells the observer, then does what is to be done for the log at a local moment.
template <class Deed>
void Tell(std::string_view message, std::string_view trapName, Deed&& deed) {
  try {
    if (Observer()) Observer()(message, trapName);
    deed(CutToSecond(TheClock().Read().local));
  } catch (const std::exception&) {
    // A log that cannot be written has nowhere to say so, and trying again would never end.
  }
}

}  // namespace

std::string ErrorLogLine(std::string_view message, std::string_view trapName) {
  return LineAt(CutToSecond(TheClock().Read().local), message, trapName);
}

void ErrorTrap(std::string_view message, std::string_view trapName) {
  Tell(message, trapName, [&](SerialDate local) { WriteOrCount(local, message, trapName); });
}

void ErrorTrapOnceADay(std::string_view message, std::string_view trapName, std::string_view subject) {
  Tell(message, trapName, [&](SerialDate local) {
    if (IsNewToday(local, subject, trapName)) Write(LineAt(local, message, trapName));
  });
}

void EndFaultLog() {
  try {
    WriteRepeats();
  } catch (const std::exception&) {
  }
  TheTold() = {};
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
