// What waits to be said, and by which rules. The speech engine of the system keeps one under its lock; the rules stand
// here so that they can be read, and tested, without threads and without sound.
#pragma once

#include <cstddef>
#include <deque>
#include <optional>
#include <string>
#include <string_view>

#include "platform/Speech.h"

namespace kestrava::platform {

class SpeechQueue {
 public:
  /// A sentence goes to the end. A position report takes the place of one that still waits.
  void Add(std::string_view text, SpeechKind kind);

  /// Drops what waits of an announcement; sentences and reports stay, in their order.
  void BeginAnnouncement();

  /// Everything goes: the user wants quiet, or nobody could hear it.
  void Clear();

  /// The next text to be said, which then waits no longer; nothing if none waits.
  std::optional<std::string> Take();

  bool IsEmpty() const { return waiting_.empty(); }
  std::size_t Size() const { return waiting_.size(); }

 private:
  struct Waiting {
    std::string text;
    SpeechKind kind;
  };
  std::deque<Waiting> waiting_;
};

}  // namespace kestrava::platform
