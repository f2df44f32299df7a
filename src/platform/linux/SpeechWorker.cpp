#include "SpeechWorker.h"

#include <chrono>
#include <exception>
#include <span>
#include <utility>

#include "platform/Fault.h"

namespace kestrava::platform {

using Stage = SpeechCondition::Stage;

namespace {

constexpr const char* kNoEngine = "no speech engine could be made";

}  // namespace

/// With the lock held. There is no sink before the parts are made, and none behind the end.
void SpeechWorker::WakeSink() {
  if (sink_) sink_->Wake();
}

void SpeechWorker::Speak(std::string_view text, SpeechKind kind) {
  const std::lock_guard guard(lock_);
  queue_.Add(text, kind, parts_.elapsedMs());
  WakeSink();
}

void SpeechWorker::BeginAnnouncement() {
  const std::lock_guard guard(lock_);
  queue_.BeginAnnouncement();
}

void SpeechWorker::Stop() {
  const std::lock_guard guard(lock_);
  queue_.Clear();
  silence_ = true;
  WakeSink();
}

void SpeechWorker::SetSpeed(int wordsPerMinute) {
  const std::lock_guard guard(lock_);
  newSpeed_ = wordsPerMinute;
}

void SpeechWorker::SelectVoice(std::size_t index) {
  const std::lock_guard guard(lock_);
  if (condition_.stage != Stage::kStarting && index >= voices_.size()) throw Fault::SubscriptOutOfRange();
  newVoice_ = index;
}

void SpeechWorker::Probe() {
  const std::lock_guard guard(lock_);
  probe_ = true;
  WakeSink();
}

std::string SpeechWorker::State() const {
  const std::lock_guard guard(lock_);
  return name_.empty() ? state_ : name_ + ": " + state_;
}

SpeechCondition SpeechWorker::Condition() const {
  const std::lock_guard guard(lock_);
  return condition_;
}

std::vector<std::string> SpeechWorker::Voices(int patienceMs) const {
  std::unique_lock guard(lock_);
  madeNow_.wait_for(guard, std::chrono::milliseconds(patienceMs), [&] { return condition_.stage != Stage::kStarting; });
  return voices_;
}

bool SpeechWorker::End(int patienceMs) {
  std::unique_lock guard(lock_);
  ending_ = true;
  WakeSink();
  return endedNow_.wait_for(guard, std::chrono::milliseconds(patienceMs), [&] { return ended_; });
}

void SpeechWorker::Run() {
  const bool made = MakeParts();
  while (made && !ending_) {
    try {
      if (!Step()) sink_->Wait();
    } catch (const std::exception&) {  // no memory for a sentence: it goes the way of those that nobody hears
      DropAll();
    }
  }
  LetGo();
}

/// To look for all voices takes the engine a while, which no window has.
bool SpeechWorker::MakeParts() {
  std::unique_ptr<Synthesiser> synthesiser;
  std::unique_ptr<SpeechSink> sink;
  try {
    synthesiser = parts_.makeSynthesiser();
    sink = parts_.makeSink();
  } catch (const std::exception&) {
    synthesiser.reset();
    Note(kNoEngine, Stage::kNoEngine);
    madeNow_.notify_all();
    return false;
  }
  const std::lock_guard guard(lock_);
  name_ = synthesiser->Name();
  voices_ = synthesiser->Voices();
  if (newVoice_ && *newVoice_ >= voices_.size()) newVoice_.reset();
  synthesiser_ = std::move(synthesiser);
  sink_ = std::move(sink);
  state_ = "ready";
  condition_ = {Stage::kUntried, {}};
  madeNow_.notify_all();
  return true;
}

/// @return false if there is nothing to do before something happens
bool SpeechWorker::Step() {
  if (ObeyOrders()) return true;
  switch (sink_->Now()) {
    case SpeechSink::Stage::kClosed:
      return BeginIfSomethingWaits();
    case SpeechSink::Stage::kOpen:
      return WriteOn();
    case SpeechSink::Stage::kLost:
      DropAll();
      return true;
    case SpeechSink::Stage::kOpening:
    case SpeechSink::Stage::kFinishing:
      break;
  }
  return false;
}

bool SpeechWorker::ObeyOrders() {
  if (!silence_.exchange(false)) return false;
  samples_.clear();
  written_ = 0;
  const SpeechSink::Stage stage = sink_->Now();
  sink_->Close();
  // What is known of a server that is gone stays known.
  if (stage == SpeechSink::Stage::kOpen || stage == SpeechSink::Stage::kFinishing) Note("ready", Stage::kHeard);
  return true;
}

bool SpeechWorker::BeginIfSomethingWaits() {
  {
    const std::lock_guard guard(lock_);
    if (queue_.IsEmpty() && !probe_) return false;
    probe_ = false;
    state_ = "on the way to the sound server";  // what is known of the last one holds until this one has answered
  }
  sink_->Open(synthesiser_->RateHz());
  return true;
}

bool SpeechWorker::WriteOn() {
  if (written_ == samples_.size() && !TakeSentence()) {
    Note("ready, heard by the sound server", Stage::kHeard);
    sink_->Finish();
    return true;
  }
  if (silence_) return true;  // the wish came while the sentence was being made
  const std::size_t taken = sink_->Write(std::span(samples_).subspan(written_));
  written_ += taken;
  return taken > 0;
}

/// Turns the next sentence that yields any samples into them.
bool SpeechWorker::TakeSentence() {
  samples_.clear();
  written_ = 0;
  while (samples_.empty()) {
    std::optional<std::string> text;
    std::optional<int> speed;
    std::optional<std::size_t> voice;
    {
      const std::lock_guard guard(lock_);
      if (silence_ || ending_) return false;  // what waits now came after the wish for silence
      text = queue_.Take(parts_.elapsedMs());
      speed = std::exchange(newSpeed_, std::nullopt);
      voice = std::exchange(newVoice_, std::nullopt);
    }
    if (voice) synthesiser_->SelectVoice(*voice);
    if (speed) synthesiser_->SetSpeed(*speed);
    if (!text) return false;
    Note("speaking", Stage::kHeard);
    synthesiser_->Say(*text, [this](std::span<const std::int16_t> some) {
      try {
        samples_.insert(samples_.end(), some.begin(), some.end());
      } catch (const std::exception&) {  // must not leave through the synthesiser, which is C
        return false;
      }
      return !silence_ && !ending_;
    });
  }
  return true;
}

/// Nobody hears it: old sentences would only be in the way of new ones when somebody does.
void SpeechWorker::DropAll() {
  samples_.clear();
  written_ = 0;
  {
    const std::lock_guard guard(lock_);
    state_ = sink_->WhyLost() + ", sentences are dropped";
    condition_ = {Stage::kNoSound, sink_->WhyLost()};
    queue_.Clear();
  }
  sink_->Close();
}

void SpeechWorker::Note(std::string_view state, Stage stage) {
  const std::lock_guard guard(lock_);
  state_ = state;
  condition_ = {stage, stage == Stage::kNoEngine ? std::string(state) : std::string()};
}

/// The parts go on the thread that used them. Nobody wakes a sink that is no longer there: End asks under the lock.
void SpeechWorker::LetGo() {
  if (sink_) sink_->Close();
  std::unique_ptr<SpeechSink> sink;
  {
    const std::lock_guard guard(lock_);
    sink = std::move(sink_);
  }
  sink.reset();
  synthesiser_.reset();
  const std::lock_guard guard(lock_);
  ended_ = true;
  endedNow_.notify_all();
}

}  // namespace kestrava::platform
