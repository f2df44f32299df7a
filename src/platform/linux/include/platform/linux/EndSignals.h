// The system's wishes that the run end (SIGTERM, SIGINT, SIGHUP), as something that an event loop can wait for. Made
// once in main.
#pragma once

namespace kestrava::platform {

/// While it lives, the first of these signals only makes Descriptor() readable; from then on each of them has its usual
/// effect again, so that a second one ends the process at once. One that whoever started the process has it ignore
/// stays ignored: a run under nohup, or one in the background of a script.
class EndSignals {
 public:
  /// @throws Fault if the system has no descriptors left
  EndSignals();
  ~EndSignals();
  EndSignals(const EndSignals&) = delete;
  EndSignals& operator=(const EndSignals&) = delete;

  int Descriptor() const { return readEnd_; }
  /// Gives the signals their usual effects for good. @return true if one had come before
  bool End();

 private:
  int readEnd_ = -1;
  int writeEnd_ = -1;
};

}  // namespace kestrava::platform
