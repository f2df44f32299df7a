#include "platform/SpeechQueue.h"

#include <algorithm>
#include <utility>

namespace kestrava::platform {

void SpeechQueue::Add(std::string_view text, SpeechKind kind) {
  if (kind == SpeechKind::kPositionReport) {
    const auto old = std::find_if(waiting_.begin(), waiting_.end(), [&](const Waiting& w) { return w.kind == kind; });
    if (old != waiting_.end()) {
      old->text = text;
      return;
    }
  }
  waiting_.push_back({std::string(text), kind});
}

void SpeechQueue::BeginAnnouncement() {
  std::erase_if(waiting_, [](const Waiting& w) { return w.kind == SpeechKind::kAnnouncement; });
}

void SpeechQueue::Clear() {
  waiting_.clear();
}

std::optional<std::string> SpeechQueue::Take() {
  if (waiting_.empty()) return std::nullopt;
  std::string text = std::move(waiting_.front().text);
  waiting_.pop_front();
  return text;
}

}  // namespace kestrava::platform
