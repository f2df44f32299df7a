// The deeds of the speech thread, and what the two threads share: orders under one lock, held for moments only.
#pragma once

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SpeechQueue.h"
#include "platform/linux/SpeechSink.h"
#include "platform/linux/StationVoice.h"
#include "platform/linux/Synthesiser.h"

namespace kestrava::platform {

class SpeechWorker {
 public:
  explicit SpeechWorker(VoiceParts parts) : parts_(std::move(parts)) {}

  // Of the station's thread. What is wanted while the engine is still being made is done when it is there.
  void Speak(std::string_view text, SpeechKind kind);
  void BeginAnnouncement();
  void Stop();
  void SetSpeed(int wordsPerMinute);
  /// @throws Fault if the engine has no such voice. While it is being made nobody knows: it keeps its first one then
  void SelectVoice(std::size_t index);
  /// Looks whether a sound server answers.
  void Probe();
  std::string State() const;
  SpeechCondition Condition() const;
  /// Waits for the engine to be made. @return none if that failed, or takes longer
  std::vector<std::string> Voices(int patienceMs) const;
  /// @return false if the thread has not let go of its parts in that time
  bool End(int patienceMs);

  /// The speech thread, from its beginning to its end.
  void Run();

 private:
  bool MakeParts();
  bool Step();
  bool ObeyOrders();
  bool BeginIfSomethingWaits();
  bool WriteOn();
  bool TakeSentence();
  void DropAll();
  void Note(std::string_view state, SpeechCondition::Stage stage);
  void WakeSink();
  void LetGo();

  VoiceParts parts_;
  mutable std::mutex lock_;
  SpeechQueue queue_;
  std::optional<int> newSpeed_;
  std::optional<std::size_t> newVoice_;
  bool probe_ = false;
  std::string name_;
  std::vector<std::string> voices_;
  std::string state_ = "being made";
  SpeechCondition condition_{SpeechCondition::Stage::kStarting, {}};
  mutable std::condition_variable madeNow_;
  bool ended_ = false;
  std::condition_variable endedNow_;
  std::atomic<bool> silence_ = false;  ///< what is being said ends at once
  std::atomic<bool> ending_ = false;

  std::unique_ptr<Synthesiser> synthesiser_;
  std::unique_ptr<SpeechSink> sink_;  ///< under the lock: only its Wake, its coming and its going
  std::vector<std::int16_t> samples_;
  std::size_t written_ = 0;  ///< of them
};

}  // namespace kestrava::platform
