// What the user asks for on the command line.
#pragma once

#include <optional>
#include <string>

class QCoreApplication;

namespace kestrava::app {

struct CommandLine {
  std::string dataFolder;  ///< behind --data; empty if it was not given
  std::string tourFolder;  ///< behind --tour; empty if no tour is asked for
};

/// Answers --help and --version, which need no display. @return the exit code if the run ends with that
std::optional<int> AnswerWithoutWindows(int argc, char** argv);

/// @return none for options that make no sense; it has said so on the error stream
std::optional<CommandLine> ReadCommandLine(const QCoreApplication& application);

}  // namespace kestrava::app
