// What the user asks of the windows on the command line. Commands, help and version are answered before (Terminal.h).
#pragma once

#include <optional>
#include <string>

class QCoreApplication;

namespace kestrava::app {

struct CommandLine {
  std::string dataFolder;  ///< behind --data; empty if it was not given
  std::string tourFolder;  ///< behind --tour; empty if no tour is asked for
};

/// @return none for options that make no sense; it has said so on the error stream
std::optional<CommandLine> ReadCommandLine(const QCoreApplication& application);

}  // namespace kestrava::app
