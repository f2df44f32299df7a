// How this process was started, so that it can be started so once more. Made first in main.
#pragma once

#include <csignal>
#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace kestrava::platform {

class OwnStart {
 public:
  /// Remembers the program, its arguments, and the signals that it is to ignore or to hold back. The toolkit takes its
  /// own arguments out of argv later.
  OwnStart(int argc, char** argv);

  /// Puts a new start of the program in the place of this process: the same arguments, environment, working folder,
  /// process number and signals. Nothing of this run goes on: what is to be kept has been written, and what has threads
  /// has ended.
  /// @throws Fault only where the system refuses
  [[noreturn]] void Again();

 private:
  std::filesystem::path program_;
  std::vector<std::string> arguments_;
  std::set<int> ignored_;
  sigset_t heldBack_{};
};

}  // namespace kestrava::platform
