#include "platform/linux/StationVoice.h"

#include <algorithm>
#include <cmath>
#include <csignal>
#include <system_error>
#include <utility>

#include "platform/Fault.h"

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

StationVoice::StationVoice(VoiceParts parts) : parts_(std::move(parts)) {}

StationVoice::~StationVoice() {
  if (!worker_) return;
  if (worker_->End(kEndPatienceMs)) {
    thread_.join();
  } else {
    thread_.detach();  // it holds all that it uses
  }
}

SpeechWorker& StationVoice::Worker() const {
  if (worker_) return *worker_;
  failed_ = true;
  try {
    auto synthesiser = parts_.makeSynthesiser();
    voices_ = synthesiser->Voices();
    auto worker = std::make_shared<SpeechWorker>(std::move(synthesiser), parts_.makeSink());
    thread_ = std::thread([worker] {
      BlockAllSignals();
      worker->Run();
    });
    worker_ = std::move(worker);
  } catch (const std::system_error&) {
    throw Fault::Automation(kNoEngine);
  } catch (const Fault&) {
    throw Fault::Automation(kNoEngine);
  }
  failed_ = false;
  return *worker_;
}

void StationVoice::Speak(std::string_view text, SpeechKind kind) {
  if (failed_) throw Fault::Automation(kNoEngine);  // not tried again for every sentence, only when it is set up
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
    Worker();
  } catch (const Fault&) {
    return {};
  }
  return voices_;
}

void StationVoice::SelectVoice(int index) {
  SpeechWorker& worker = Worker();
  At(voices_, index - 1);
  worker.SelectVoice(static_cast<std::size_t>(index - 1));
}

std::string StationVoice::State() const {
  if (worker_) return worker_->State();
  return failed_ ? kNoEngine : "not used yet";
}

}  // namespace kestrava::platform
