// One run of the station: its doors, its folder, its windows, its end.
#pragma once

#include "CommandLine.h"

namespace kestrava::app {

/// @return the process's exit code, or shell::kStartAnewCode: the program is to be started again
int Run(const CommandLine& commandLine);

}  // namespace kestrava::app
