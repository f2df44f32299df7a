// A speech engine that writes down what a listener hears: every text with the voice and the speed in which it comes.
// The record outlives the engine, which goes with its launcher.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Fault.h"
#include "platform/Speech.h"

namespace kestrava::first_hour {

struct Heard {
  std::string text;
  std::string voice;
  int wordsPerMinute = 0;
};

struct VoiceRecord {
  std::vector<Heard> heard;
  std::string voice = "English";  ///< what the next text is spoken in
  int wordsPerMinute = 180;
};

class HourVoice : public platform::SpeechEngine {
 public:
  explicit HourVoice(VoiceRecord& record) : record_(record) {}

  void Speak(std::string_view text, platform::SpeechKind) override {
    record_.heard.push_back({std::string(text), record_.voice, record_.wordsPerMinute});
  }
  void BeginAnnouncement() override {}
  void Stop() override {}
  void SetSpeed(double wordsPerMinute) override { record_.wordsPerMinute = static_cast<int>(wordsPerMinute); }
  std::vector<std::string> Voices() const override { return {"English", "Deutsch", "Scottish"}; }
  void SelectVoice(int index) override {
    const std::vector<std::string> voices = Voices();
    record_.voice = platform::At(voices, index - 1);
  }
  std::string State() const override { return "recording"; }

 private:
  VoiceRecord& record_;
};

}  // namespace kestrava::first_hour
