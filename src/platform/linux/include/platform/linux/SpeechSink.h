// Where the samples of speech go. All but Wait return at once. The speech thread owns one; tests script it.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace kestrava::platform {

class SpeechSink {
 public:
  enum class Stage {
    kClosed,     ///< nothing held, nothing heard
    kOpening,    ///< under way to the server
    kOpen,       ///< takes samples
    kFinishing,  ///< what was written is being heard; kClosed when it has been
    kLost,       ///< no server, a dead one, or one that does not answer: Close it
  };

  virtual ~SpeechSink() = default;
  virtual Stage Now() const = 0;
  /// Why it was lost, for System information: "no sound server (Connection refused)".
  virtual std::string WhyLost() const = 0;
  /// From kClosed. @param rateHz  samples a second, one channel
  virtual void Open(int rateHz) = 0;
  /// In kOpen. @return how many samples were taken from the front; 0 if there is no room now
  virtual std::size_t Write(std::span<const std::int16_t> samples) = 0;
  /// In kOpen: no more samples come.
  virtual void Finish() = 0;
  /// From every stage: silent at once.
  virtual void Close() = 0;
  /// Until something has happened to the sink, or Wake was called since the last Wait.
  virtual void Wait() = 0;
  /// The one call that any thread may make, also between two Waits.
  virtual void Wake() = 0;
};

struct PulseOptions {
  std::string server;                        ///< address; empty for the machine's usual one
  std::chrono::milliseconds patience{3000};  ///< a server that does nothing for so long is lost
};

/// The sound server of the desktop: PulseAudio, or PipeWire in its place. Nothing is touched before Open.
/// @throws Fault::DeviceError if the machine has no descriptors left
std::unique_ptr<SpeechSink> MakePulseSink(const PulseOptions& options = {});

}  // namespace kestrava::platform
