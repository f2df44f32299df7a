// A speech engine that writes down whatever reaches the speech door, with its simulated time, and speaks it in
// simulated time to a listener who writes down too: by the waiting rules of the real engine, a sentence taking as long
// as its words.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Speech.h"
#include "platform/SpeechQueue.h"

#include "support/ScriptedClock.h"
#include "support/SimulatedEventLoop.h"

namespace kestrava::evening {

struct VoiceEvent {
  enum class What { kDeed, kSpeed, kVoice, kSaid, kAnnouncementBegins, kStopped };
  double atS = 0;
  What what = What::kSaid;
  std::string text;  ///< what was said or done; of the speed and the voice their number
  platform::SpeechKind kind = platform::SpeechKind::kSentence;
};

struct HeardText {
  double fromS = 0;
  std::string text;
  bool whole = true;  ///< not broken off
};

/// What outlives the engine, which goes with its launcher.
struct VoiceRecord {
  std::vector<VoiceEvent> events;
  std::vector<HeardText> heard;
  int touches = 0;  ///< calls of any kind
};

class EveningVoice : public platform::SpeechEngine {
 public:
  EveningVoice(VoiceRecord& record, testing::SimulatedEventLoop& loop, testing::ScriptedClock& clock);

  void Speak(std::string_view text, platform::SpeechKind kind) override;
  void BeginAnnouncement() override;
  void Stop() override;
  void SetSpeed(double wordsPerMinute) override;
  std::vector<std::string> Voices() const override;
  void SelectVoice(int index) override;
  std::string State() const override { return "recording"; }

 private:
  double NowS() { return clock_.ElapsedMs() / 1000; }
  void Write(VoiceEvent::What what, std::string text, platform::SpeechKind kind = platform::SpeechKind::kSentence);
  void SpeakNext();

  VoiceRecord& record_;
  testing::ScriptedClock& clock_;
  platform::SpeechQueue queue_;
  double wordsPerMinute_ = 180;
  std::unique_ptr<platform::Timer> mouth_;
};

}  // namespace kestrava::evening
