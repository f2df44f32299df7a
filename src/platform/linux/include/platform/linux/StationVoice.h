// The speech engine of the system: a synthesiser, a sound sink and one thread that owns both. Made by the program and
// owned by the launcher.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/Speech.h"
#include "platform/linux/SpeechSink.h"
#include "platform/linux/Synthesiser.h"

namespace kestrava::platform {

class SpeechWorker;

std::function<double()> StopwatchOfSpeech();

/// What the engine is made of, in its thread.
struct VoiceParts {
  std::function<std::unique_ptr<Synthesiser>()> makeSynthesiser = MakeEspeak;
  std::function<std::unique_ptr<SpeechSink>()> makeSink = [] { return MakePulseSink(); };
  /// The stopwatch of what waits. Called by both threads.
  std::function<double()> elapsedMs = StopwatchOfSpeech();
};

/// Nothing is made, started or connected before the first call that needs it. No call waits for the sound server, and
/// only Voices for the engine to be made. Where no sound server answers, what waits is dropped, and the next sentence
/// tries again. Where the engine could not be made Speak throws Fault::Automation, and Prepare, SetSpeed, SelectVoice
/// and Voices try again; it has no voices then.
class StationVoice : public SpeechEngine {
 public:
  explicit StationVoice(VoiceParts parts = {});
  /// Falls silent and ends the thread; after kEndPatienceMs it is left to end by itself.
  ~StationVoice() override;
  StationVoice(const StationVoice&) = delete;
  StationVoice& operator=(const StationVoice&) = delete;

  void Speak(std::string_view text, SpeechKind kind) override;
  void BeginAnnouncement() override;
  void Stop() override;
  void SetSpeed(double wordsPerMinute) override;
  std::vector<std::string> Voices() const override;
  void SelectVoice(int index) override;
  std::string State() const override;
  void Prepare() override;
  SpeechCondition Condition() const override;

  static constexpr int kEndPatienceMs = 400;
  static constexpr int kStartPatienceMs = 2000;

 private:
  SpeechWorker& Worker() const;
  bool HasFailed() const;
  void LetGo() const;

  VoiceParts parts_;
  // Made by the first question, whichever it is.
  mutable std::shared_ptr<SpeechWorker> worker_;
  mutable std::thread thread_;
};

}  // namespace kestrava::platform
