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

inline constexpr double kSelectionToldMs = 60000;  ///< so long the user knows what was said to be selected
inline constexpr double kAlarmLastsMs = 30000;

/// Times are milliseconds of one stopwatch.
class SpeechQueue {
 public:
  /// A sentence goes to the end. A position report takes the place of one that still waits, and so does a selection;
  /// the selection that was said last is not taken again within a minute.
  void Add(std::string_view text, SpeechKind kind, double nowMs);

  /// Drops what waits of an announcement; sentences and reports stay, in their order.
  void BeginAnnouncement();

  /// Everything goes: the user wants quiet, or nobody could hear it.
  void Clear();

  /// The next text to be said, which then waits no longer; nothing if none waits. Alarms that have waited for more than
  /// half a minute are left out.
  std::optional<std::string> Take(double nowMs);

  bool IsEmpty() const { return waiting_.empty(); }
  std::size_t Size() const { return waiting_.size(); }

 private:
  struct Waiting {
    std::string text;
    SpeechKind kind;
    double sinceMs;
  };
  struct Said {
    std::string text;
    double atMs;
  };
  bool IsToldAlready(std::string_view selection, double nowMs) const;

  std::deque<Waiting> waiting_;
  std::optional<Said> lastSelection_;
};

}  // namespace kestrava::platform
