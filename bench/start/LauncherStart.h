// The start of the real program, seen from outside.
#pragma once

#include <filesystem>

namespace kestrava::bench {

/// Starts the program in a filled folder of its own, time after time.
class LauncherStart {
 public:
  LauncherStart();
  ~LauncherStart();
  LauncherStart(const LauncherStart&) = delete;
  LauncherStart& operator=(const LauncherStart&) = delete;

  /// One run: from the start of the process to the end of the launcher's first activation, seconds. Its last deed with
  /// files is to remove a left-over gps-ops.new; the splash and the clock's mode, which come after that, cost nothing
  /// that a clock could tell.
  /// @throws std::runtime_error if the program does not come so far, or does not end in order
  double SecondsToActivation();

 private:
  std::filesystem::path folder_;
};

}  // namespace kestrava::bench
