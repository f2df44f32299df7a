#include "Terminal.h"

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "cli/Command.h"
#include "platform/Doors.h"
#include "platform/Text.h"
#include "platform/linux/MachinePlaces.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/PosixLocale.h"
#include "platform/linux/SystemClock.h"
#include "store/DataFolder.h"

#include "Shipped.h"

namespace kestrava::app {

namespace {

namespace fs = std::filesystem;

/// The doors of the machine that need no toolkit.
struct PlainMachine {
  platform::SystemClock clock;
  platform::SystemStopwatch stopwatch;
  platform::PosixLocale locale;
  platform::PosixFiles files;
  platform::ScopedDoors doors{Doors()};

  platform::Doors Doors() {
    platform::Doors all;
    all.clock = &clock;
    all.stopwatch = &stopwatch;
    all.locale = &locale;
    all.files = &files;
    return all;
  }
};

fs::path ProgramFolder() {
  std::error_code unknown;
  return fs::read_symlink("/proc/self/exe", unknown).parent_path();
}

std::string ChooseFolder(const std::string& dataArgument) {
  std::error_code gone;  // a working folder that was removed: only a relative --data misses it
  return store::ChooseDataFolder({dataArgument, fs::current_path(gone), ProgramFolder(), platform::DataHome()});
}

std::optional<store::ZonePlace> PlaceOfTheMachine() {
  const auto place = platform::MachinePlace();
  if (!place) return std::nullopt;
  return store::ZonePlace{place->zone, place->latitudeDeg, place->longitudeEastDeg};
}

/// @return false if not all could be written; errno then says why
bool WriteAll(int stream, std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = ::write(stream, text.data(), text.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return false;
    text.remove_prefix(static_cast<std::size_t>(written));
  }
  return true;
}

/// The toolkit would end the process by a signal, with advice that is of no use to a user.
bool WindowsHaveNoPlace(const std::vector<std::string>& arguments) {
  const auto namesOne = [](std::string_view argument) {
    argument.remove_prefix(std::min(argument.find_first_not_of('-'), argument.size()));
    return platform::BeginsWith(argument, "platform") || platform::BeginsWith(argument, "display");
  };
  return !platform::NamesADisplay() && std::none_of(arguments.begin(), arguments.end(), namesOne);
}

}  // namespace

std::optional<int> AnswerInTerminal(int argc, char** argv) {
  const std::vector<std::string> arguments(argv + 1, argv + std::max(argc, 1));
  if (!cli::IsForTerminal(arguments)) {
    if (!WindowsHaveNoPlace(arguments)) return std::nullopt;
    WriteAll(STDERR_FILENO, "kestrava: there is no display for its windows. kestrava --help names what needs none\n");
    return cli::kNothingFound;
  }
  PlainMachine machine;
  const cli::Machine place{ChooseFolder, platform::ConfigHome() / "kestrava" / "settings.conf",
                           FindShippedData(ProgramFolder()), PlaceOfTheMachine};
  std::ostringstream out;
  std::ostringstream err;
  const int exitCode = cli::RunCommand(arguments, place, out, err);
  WriteAll(STDERR_FILENO, err.str());
  if (WriteAll(STDOUT_FILENO, out.str()) || errno == EPIPE) return exitCode;  // who reads only the first lines goes
  WriteAll(STDERR_FILENO, "kestrava: the answer could not be written\n");
  return cli::kNothingFound;
}

}  // namespace kestrava::app
