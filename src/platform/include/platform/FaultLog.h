// error.log: one line per trapped fault, in the user's folder. Deleted whole when it has grown past its bound.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace kestrava::platform {

inline constexpr std::uintmax_t kErrorLogBoundBytes = 200000;

/// The line of error.log for a fault at a local moment: version, date, time, message, trap name.
std::string ErrorLogLine(std::string_view message, std::string_view trapName);

/// Writes the lines that were held while the user's folder was not known. Called once AppDir stands.
void FlushHeldFaults();

/// For commands in a terminal, tests and the robot user: called with every fault that is trapped.
using FaultObserver = std::function<void(std::string_view message, std::string_view trapName)>;
/// @return the earlier observer
FaultObserver ObserveFaults(FaultObserver observer);

}  // namespace kestrava::platform
