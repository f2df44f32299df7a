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
#include "platform/linux/Synthesiser.h"

namespace kestrava::platform {

class SpeechWorker {
 public:
  SpeechWorker(std::unique_ptr<Synthesiser> synthesiser, std::unique_ptr<SpeechSink> sink);

  // Of the station's thread.
  void Speak(std::string_view text, SpeechKind kind);
  void BeginAnnouncement();
  void Stop();
  void SetSpeed(int wordsPerMinute);
  void SelectVoice(std::size_t index);
  std::string State() const;
  /// @return false if the thread has not let go of its parts in that time
  bool End(int patienceMs);

  /// The speech thread, from its beginning to its end.
  void Run();

 private:
  bool Step();
  bool ObeyOrders();
  bool BeginIfSomethingWaits();
  bool WriteOn();
  bool TakeSentence();
  void DropAll();
  void Note(std::string_view state);
  void LetGo();

  mutable std::mutex lock_;
  SpeechQueue queue_;
  std::optional<int> newSpeed_;
  std::optional<std::size_t> newVoice_;
  std::string name_;
  std::string state_ = "ready";
  bool ended_ = false;
  std::condition_variable endedNow_;
  std::atomic<bool> silence_ = false;  ///< what is being said ends at once
  std::atomic<bool> ending_ = false;

  std::unique_ptr<Synthesiser> synthesiser_;
  std::unique_ptr<SpeechSink> sink_;  ///< under the lock: only its Wake
  std::vector<std::int16_t> samples_;
  std::size_t written_ = 0;  ///< of them
};

}  // namespace kestrava::platform
