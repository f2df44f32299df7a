// A synthesiser and a sound sink that do what a script says and remember what was asked of them, for the logic of the
// speech thread. A test tells the script, and waits for what must happen; the wait is bounded, and never for a time.
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "platform/linux/StationVoice.h"

namespace kestrava::speech {

inline constexpr std::chrono::seconds kLongestWait{20};

enum class Server { kUp, kMissing, kHanging };

/// All that both threads know of a run; every access under the lock.
struct VoiceScript {
  std::mutex lock;
  std::condition_variable changed;

  // What the parts shall do.
  Server server = Server::kUp;
  std::size_t room = SIZE_MAX;      ///< samples that the sink still takes
  bool makingIsStuck = false;       ///< the synthesiser is not made yet
  bool synthesiserIsStuck = false;  ///< Say does not return
  bool synthesiserRefuses = false;  ///< samples are offered until they are no longer wanted
  bool noPatienceLeft = false;      ///< the sink gives a hanging server up
  double nowMs = 0;

  // What they have done.
  int synthesisersMade = 0;
  std::thread::id madeBy;
  std::vector<std::string> said;
  std::vector<int> speeds;
  std::vector<std::size_t> voices;
  std::size_t samplesTaken = 0;
  int opened = 0;
  int closed = 0;  ///< by a Close of something that was open, opening or lost
  int finished = 0;
  int gone = 0;  ///< parts destroyed
  bool woken = false;

  template <class Change>
  void Tell(const Change& change) {
    const std::lock_guard guard(lock);
    change(*this);
    changed.notify_all();
  }
  template <class Question>
  auto Ask(const Question& question) {
    const std::lock_guard guard(lock);
    return question(*this);
  }
  /// @return false if it does not come true
  template <class Condition>
  bool Until(const Condition& condition) {
    std::unique_lock guard(lock);
    return changed.wait_for(guard, kLongestWait, [&] { return condition(*this); });
  }
};

/// Ten samples for each letter.
class ScriptedSynthesiser : public platform::Synthesiser {
 public:
  explicit ScriptedSynthesiser(std::shared_ptr<VoiceScript> script) : script_(std::move(script)) {
    std::unique_lock guard(script_->lock);
    ++script_->synthesisersMade;
    script_->madeBy = std::this_thread::get_id();
    script_->changed.notify_all();
    script_->changed.wait_for(guard, kLongestWait, [&] { return !script_->makingIsStuck; });
  }
  ~ScriptedSynthesiser() override {
    script_->Tell([](VoiceScript& s) { ++s.gone; });
  }
  std::string Name() const override { return "Scripted voice"; }
  int RateHz() const override { return 1000; }
  std::vector<std::string> Voices() const override { return {"English", "Scottish", "Swedish"}; }
  void SetSpeed(int wordsPerMinute) override {
    script_->Tell([&](VoiceScript& s) { s.speeds.push_back(wordsPerMinute); });
  }
  void SelectVoice(std::size_t index) override {
    script_->Tell([&](VoiceScript& s) { s.voices.push_back(index); });
  }
  void Say(const std::string& text, const Taker& take) override {
    script_->Tell([&](VoiceScript& s) { s.said.push_back(text); });
    const std::vector<std::int16_t> samples(text.size() * 10, 1000);
    {
      std::unique_lock guard(script_->lock);
      script_->changed.wait_for(guard, kLongestWait, [&] { return !script_->synthesiserIsStuck; });
    }
    bool wanted = samples.empty() || take(samples);
    while (wanted && script_->Ask([](VoiceScript& s) { return s.synthesiserRefuses; })) wanted = take(samples);
  }

 private:
  std::shared_ptr<VoiceScript> script_;
};

class ScriptedSink : public platform::SpeechSink {
 public:
  explicit ScriptedSink(std::shared_ptr<VoiceScript> script) : script_(std::move(script)) {}
  ~ScriptedSink() override {
    script_->Tell([](VoiceScript& s) { ++s.gone; });
  }
  Stage Now() const override { return stage_; }
  std::string WhyLost() const override { return "no scripted server"; }
  void Open(int) override {
    stage_ = Stage::kOpening;
    script_->Tell([](VoiceScript& s) { ++s.opened; });
  }
  std::size_t Write(std::span<const std::int16_t> samples) override {
    std::size_t count = 0;
    script_->Tell([&](VoiceScript& s) {
      count = std::min(samples.size(), s.room);
      s.room -= count;
      s.samplesTaken += count;
    });
    return count;
  }
  void Finish() override {
    stage_ = Stage::kFinishing;
    script_->Tell([](VoiceScript& s) { ++s.finished; });
  }
  void Close() override {
    if (stage_ == Stage::kClosed) return;
    stage_ = Stage::kClosed;
    script_->Tell([](VoiceScript& s) { ++s.closed; });
  }
  void Wait() override {
    std::unique_lock guard(script_->lock);
    const std::size_t roomBefore = script_->room;
    script_->changed.wait(guard, [&] { return script_->woken || Advance() || script_->room > roomBefore; });
    script_->woken = false;
    script_->changed.notify_all();
  }
  void Wake() override {
    script_->Tell([](VoiceScript& s) { s.woken = true; });
  }

 private:
  bool Advance() {
    if (stage_ == Stage::kClosed || stage_ == Stage::kLost) return false;
    const Stage before = stage_;
    if (script_->server == Server::kMissing || (script_->server == Server::kHanging && script_->noPatienceLeft)) {
      stage_ = Stage::kLost;
    } else if (script_->server == Server::kUp) {
      if (stage_ == Stage::kOpening) stage_ = Stage::kOpen;
      if (stage_ == Stage::kFinishing) stage_ = Stage::kClosed;
    }
    return stage_ != before;
  }

  std::shared_ptr<VoiceScript> script_;
  Stage stage_ = Stage::kClosed;
};

inline platform::VoiceParts ScriptedParts(const std::shared_ptr<VoiceScript>& script) {
  return {[script] { return std::make_unique<ScriptedSynthesiser>(script); },
          [script] { return std::make_unique<ScriptedSink>(script); },
          [script] { return script->Ask([](VoiceScript& s) { return s.nowMs; }); }};
}

}  // namespace kestrava::speech
