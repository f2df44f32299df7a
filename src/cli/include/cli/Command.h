// The station in a terminal: "kestrava passes ...", "next", "where", "list", "job" and "jobs" answer on the output
// stream, without windows, toolkit or display, from the same folder and settings as the windows. Called by main before
// anything else is made. Nothing on the machine is changed: what the loaders would write stays in memory.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "store/FirstStart.h"

namespace kestrava::cli {

/// Exit codes of the program in a terminal.
inline constexpr int kAnswered = 0;
inline constexpr int kNothingFound = 1;  ///< no pass, no rise, or a name that nobody has
inline constexpr int kWrongUse = 2;      ///< options or values that make no sense

/// What a command has to know of the machine beyond the doors of the run (clock, locale and files are asked for).
struct Machine {
  /// The user's folder, ready to be AppDir, for what stands behind --data (empty if it was not given).
  std::function<std::string(const std::string& dataArgument)> chooseFolder;
  std::filesystem::path settingsFile;  ///< read if it is there
  std::filesystem::path shippedData;   ///< serves where the user's folder is not there or empty; empty if there is none
  /// Where the machine believes to be, for a user who has entered no place yet.
  std::function<std::optional<store::ZonePlace>()> place;
};

/// True if these arguments (without the program's own name) ask for an answer in the terminal: a command word, help,
/// the version, or an option that makes no sense. False opens the windows.
bool IsForTerminal(const std::vector<std::string>& arguments);

/// Answers. Faults, notes and suggestions go to `err`; `out` holds the answer alone.
/// @return the exit code
int RunCommand(const std::vector<std::string>& arguments, const Machine& machine, std::ostream& out, std::ostream& err);

}  // namespace kestrava::cli
