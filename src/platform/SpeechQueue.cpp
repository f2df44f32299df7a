#include "platform/SpeechQueue.h"

#include <algorithm>
#include <utility>

namespace kestrava::platform {

bool SpeechQueue::IsToldAlready(std::string_view selection, double nowMs) const {
  return lastSelection_ && lastSelection_->text == selection && nowMs - lastSelection_->atMs < kSelectionToldMs;
}

void SpeechQueue::Add(std::string_view text, SpeechKind kind, double nowMs) {
  const auto old = std::find_if(waiting_.begin(), waiting_.end(), [&](const Waiting& w) { return w.kind == kind; });
  if (kind == SpeechKind::kSelection && IsToldAlready(text, nowMs)) {
    if (old != waiting_.end()) waiting_.erase(old);  // it is no longer what is selected
    return;
  }
  const bool hasSuccessor = kind == SpeechKind::kPositionReport || kind == SpeechKind::kSelection;
  if (hasSuccessor && old != waiting_.end()) {
    old->text = text;
    return;
  }
  waiting_.push_back({std::string(text), kind, nowMs});
}

void SpeechQueue::BeginAnnouncement() {
  std::erase_if(waiting_, [](const Waiting& w) { return w.kind == SpeechKind::kAnnouncement; });
}

void SpeechQueue::Clear() {
  waiting_.clear();
}

std::optional<std::string> SpeechQueue::Take(double nowMs) {
  std::erase_if(waiting_,
                [&](const Waiting& w) { return w.kind == SpeechKind::kAlarm && nowMs - w.sinceMs > kAlarmLastsMs; });
  if (waiting_.empty()) return std::nullopt;
  Waiting next = std::move(waiting_.front());
  waiting_.pop_front();
  if (next.kind == SpeechKind::kSelection) lastSelection_ = {next.text, nowMs};
  return std::move(next.text);
}

}  // namespace kestrava::platform
