// Speech: the engine door, and the one gate through which everything is said.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrava::platform {

class SpeechEngine {
 public:
  virtual ~SpeechEngine() = default;
  /// Speaks a text without keeping the caller waiting.
  virtual void Speak(std::string_view text) = 0;
  virtual void SetSpeed(double wordsPerMinute) = 0;
  virtual std::vector<std::string> Voices() const = 0;
  /// @param index  1-based. @throws Fault if there is no such voice
  virtual void SelectVoice(int index) = 0;
};

/// The engine of a station without a voice.
class SilentSpeech : public SpeechEngine {
 public:
  void Speak(std::string_view) override {}
  void SetSpeed(double) override {}
  std::vector<std::string> Voices() const override { return {}; }
  void SelectVoice(int) override {}
};

/// Says a text if the setting Speechpack is not "0". A fault of the engine is dropped without a word.
/// @param wait  has no effect; callers give what they always gave
void SayText(std::string_view text, bool wait = true);

}  // namespace kestrava::platform
