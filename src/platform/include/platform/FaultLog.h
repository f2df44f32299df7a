// error.log: one line per trapped fault, in the user's folder. Deleted whole when it has grown past its bound. So that
// a fault of every tick does not push everything else out, only its first line in a minute stands as it is; its repeats
// of that minute end in one line with their number: "Overflow (120 times) - map - Timer1". That line is written with
// the first fault of a later minute or at the end of the run, and bears the time of the last repeat.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace kestrava::platform {

inline constexpr std::uintmax_t kErrorLogBoundBytes = 200000;

/// The line of error.log for a fault at a local moment: version, date, time, message, trap name.
std::string ErrorLogLine(std::string_view message, std::string_view trapName);

/// ErrorTrap for a state that lasts: written once a day, however often it is met and however its message changes.
/// @param subject  of whom it tells: each has a line of its own
void ErrorTrapOnceADay(std::string_view message, std::string_view trapName, std::string_view subject);

/// Writes what repeats are still to be told and forgets all that was told: the next fault is a first one. Called at the
/// end of the run.
void EndFaultLog();

/// Writes the lines that were held while the user's folder was not known. Called once AppDir stands.
void FlushHeldFaults();

/// For commands in a terminal, tests and the robot user: called with every fault that is trapped.
using FaultObserver = std::function<void(std::string_view message, std::string_view trapName)>;
/// @return the earlier observer
FaultObserver ObserveFaults(FaultObserver observer);

}  // namespace kestrava::platform
