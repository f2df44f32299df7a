#include "evening/EveningVoice.h"

#include <iterator>
#include <sstream>
#include <utility>

namespace kestrava::evening {

namespace {

std::ptrdiff_t WordsIn(const std::string& text) {
  std::istringstream words(text);
  return std::distance(std::istream_iterator<std::string>(words), {});
}

}  // namespace

EveningVoice::EveningVoice(VoiceRecord& record, testing::SimulatedEventLoop& loop, testing::ScriptedClock& clock)
    : record_(record), clock_(clock), mouth_(loop.MakeTimer(1000, [this] { SpeakNext(); })) {}

void EveningVoice::Write(VoiceEvent::What what, std::string text, platform::SpeechKind kind) {
  ++record_.touches;
  record_.events.push_back({NowS(), what, std::move(text), kind});
}

void EveningVoice::Speak(std::string_view text, platform::SpeechKind kind) {
  Write(VoiceEvent::What::kSaid, std::string(text), kind);
  queue_.Add(text, kind, clock_.ElapsedMs());
  if (!mouth_->Enabled()) SpeakNext();
}

void EveningVoice::BeginAnnouncement() {
  Write(VoiceEvent::What::kAnnouncementBegins, {});
  queue_.BeginAnnouncement();
}

void EveningVoice::Stop() {
  Write(VoiceEvent::What::kStopped, {});
  queue_.Clear();
  if (mouth_->Enabled()) record_.heard.back().whole = false;
  mouth_->SetEnabled(false);
}

void EveningVoice::SetSpeed(double wordsPerMinute) {
  Write(VoiceEvent::What::kSpeed, std::to_string(static_cast<int>(wordsPerMinute)));
  wordsPerMinute_ = wordsPerMinute;
}

std::vector<std::string> EveningVoice::Voices() const {
  ++record_.touches;
  return {"English"};
}

void EveningVoice::SelectVoice(int index) {
  Write(VoiceEvent::What::kVoice, std::to_string(index));
}

void EveningVoice::SpeakNext() {
  const auto text = queue_.Take(clock_.ElapsedMs());
  mouth_->SetEnabled(false);
  if (!text) return;
  record_.heard.push_back({NowS(), *text, true});
  mouth_->SetIntervalMs(static_cast<int>(static_cast<double>(WordsIn(*text)) * 60000 / wordsPerMinute_));
  mouth_->SetEnabled(true);
}

}  // namespace kestrava::evening
