// A sound server of a test's own, in a folder of its own, as any user and without a system bus; and an ear at it. Both
// are processes that end with their objects, by their ids.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <sys/types.h>

#include "support/TempFolder.h"

namespace kestrava::speech {

/// A process started from a program on the path, with the reading end of what it writes.
class Process {
 public:
  enum class Speaks { kOutput, kErrors };
  Process(const std::vector<std::string>& command, const std::vector<std::string>& environment, Speaks what);
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  void Signal(int signal) const;
  /// The next bytes that it writes. @return nothing at its end, or if none come in `atMostMs`
  std::string Read(int atMostMs) const;

 private:
  pid_t id_ = -1;
  int out_ = -1;
};

class PulseServer {
 public:
  static bool IsInstalled();

  /// Started, with one sink that plays to nobody.
  PulseServer();
  std::string Address() const { return "unix:" + (folder_ / "native").string(); }
  std::vector<std::string> Environment() const;
  void Start();
  void Kill() { process_.reset(); }
  /// Stopped without dying: it answers nothing, but its socket is there.
  void Freeze() const;
  void Thaw() const;
  bool Started() const { return started_; }

 private:
  testing::TempFolder folder_;
  std::unique_ptr<Process> process_;
  bool started_ = false;
};

/// What the sink plays, as it plays it.
class Ear {
 public:
  static constexpr int kRateHz = 22050;
  static constexpr int kLoud = 300;  ///< root mean square of a window that is no silence

  explicit Ear(const PulseServer& server);

  struct Heard {
    double soundS = 0;  ///< from the first loud window to the last
    double rms = 0;     ///< over that time
  };
  /// Waits for sound, then for a second of silence behind it. @return all zero if none comes in 15 s of listening
  Heard Sentence();
  /// Waits for the first sound. @return false if none comes in 15 s of listening
  bool Begins();
  /// Seconds of sound within the next `seconds` of listening.
  double SoundWithin(double seconds);
  bool Listening() const { return listening_; }

 private:
  /// Loudness of the next hundredth of a second; below 0 if nothing comes any more.
  double Window();

  Process process_;
  std::string bytes_;
  bool listening_ = false;
};

}  // namespace kestrava::speech
