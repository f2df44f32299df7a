#include "platform/linux/StationVoice.h"

#include <algorithm>
#include <clocale>
#include <cmath>
#include <csignal>
#include <system_error>
#include <utility>

#include "platform/Fault.h"
#include "platform/linux/SystemClock.h"

#include "SpeechWorker.h"

namespace kestrava::platform {

namespace {

constexpr const char* kNoEngine = "no speech engine could be made";

/// Signals are the business of the station's thread.
void BlockAllSignals() {
  sigset_t all;
  sigfillset(&all);
  pthread_sigmask(SIG_BLOCK, &all, nullptr);
}

}  // namespace

std::function<double()> StopwatchOfSpeech() {
  return [watch = std::make_shared<SystemStopwatch>()] { return watch->ElapsedMs(); };
}

StationVoice::StationVoice(VoiceParts parts) : parts_(std::move(parts)) {}

StationVoice::~StationVoice() {
  LetGo();
}

void StationVoice::LetGo() const {
  if (!worker_) return;
  if (worker_->End(kEndPatienceMs)) {
    thread_.join();
  } else {
    thread_.detach();  // it holds all that it uses
  }
  worker_.reset();
}

bool StationVoice::HasFailed() const {
  return worker_ && worker_->Condition().stage == SpeechCondition::Stage::kNoEngine;
}

SpeechWorker& StationVoice::Worker() const {
  if (HasFailed()) LetGo();
  if (worker_) return *worker_;
  // The synthesiser asks for this locale when it comes up. By then it is in force, and nothing changes for a thread
  // that reads the locale at that moment.
  std::setlocale(LC_CTYPE, "C.UTF-8");
  try {
    auto worker = std::make_shared<SpeechWorker>(parts_);
    thread_ = std::thread([worker] {
      BlockAllSignals();
      worker->Run();
    });
    worker_ = std::move(worker);
  } catch (const std::system_error&) {
    throw Fault::Automation(kNoEngine);
  }
  return *worker_;
}

void StationVoice::Speak(std::string_view text, SpeechKind kind) {
  if (HasFailed()) throw Fault::Automation(kNoEngine);  // not tried again for every sentence, only when it is set up
  Worker().Speak(text, kind);
}

void StationVoice::BeginAnnouncement() {
  if (worker_) worker_->BeginAnnouncement();
}

void StationVoice::Stop() {
  if (worker_) worker_->Stop();
}

void StationVoice::SetSpeed(double wordsPerMinute) {
  const double inReach = std::clamp<double>(wordsPerMinute, kSlowestSpeech, kFastestSpeech);
  Worker().SetSpeed(std::isnan(inReach) ? kSlowestSpeech : static_cast<int>(RoundHalfEven(inReach)));
}

std::vector<std::string> StationVoice::Voices() const {
  try {
    return Worker().Voices(kStartPatienceMs);
  } catch (const Fault&) {
    return {};
  }
}

void StationVoice::SelectVoice(int index) {
  if (index < 1) throw Fault::SubscriptOutOfRange();
  Worker().SelectVoice(static_cast<std::size_t>(index - 1));
}

std::string StationVoice::State() const {
  return worker_ ? worker_->State() : "not used yet";
}

void StationVoice::Prepare() {
  Worker().Probe();
}

SpeechCondition StationVoice::Condition() const {
  return worker_ ? worker_->Condition() : SpeechCondition{SpeechCondition::Stage::kNotUsed, {}};
}

}  // namespace kestrava::platform
