// What turns a text into sound samples. The speech thread owns one and is the only one to call it; tests script it.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace kestrava::platform {

inline constexpr int kSlowestSpeech = 80;  ///< words per minute; below it the synthesiser does not go
inline constexpr int kFastestSpeech = 450;
inline constexpr int kUsualSpeech = 180;  ///< before any is asked for

class Synthesiser {
 public:
  /// Takes the next samples. @return false to have the rest left out
  using Taker = std::function<bool(std::span<const std::int16_t>)>;

  virtual ~Synthesiser() = default;
  /// Its name with the version, for System information.
  virtual std::string Name() const = 0;
  /// Samples a second, one channel.
  virtual int RateHz() const = 0;
  /// Names of all voices in the order in which they are offered.
  virtual std::vector<std::string> Voices() const = 0;
  /// @param wordsPerMinute  kSlowestSpeech to kFastestSpeech
  virtual void SetSpeed(int wordsPerMinute) = 0;
  /// @param index  of Voices(), from 0
  virtual void SelectVoice(std::size_t index) = 0;
  virtual void Say(const std::string& text, const Taker& take) = 0;
};

/// eSpeak NG. There is one in a process: the next may be made when the last is gone.
/// @throws Fault::Automation if it does not come up, or has no voice
std::unique_ptr<Synthesiser> MakeEspeak();

}  // namespace kestrava::platform
