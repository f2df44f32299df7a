// The program in a terminal: commands that answer without windows, toolkit or display.
#pragma once

#include <optional>

namespace kestrava::app {

/// Answers a command, help or the version on the output stream.
/// @return the exit code; none if the arguments ask for the windows
std::optional<int> AnswerInTerminal(int argc, char** argv);

}  // namespace kestrava::app
