// A clock that stands still until a test moves it: time of day and stopwatch in one.
#pragma once

#include <functional>
#include <utility>

#include "platform/Clock.h"

namespace kestrava::testing {

class ScriptedClock : public platform::Clock, public platform::Stopwatch {
 public:
  platform::ClockReading Read() override { return {Utc(), Utc() + offsetHours_ / 24}; }
  double ElapsedMs() override { return elapsedMs_; }

  /// Without a zone rule of the test's own every date has the present offset.
  platform::SerialDate LocalAt(platform::SerialDate utc) override {
    return utc + (offsetHoursAt_ ? offsetHoursAt_(utc) : offsetHours_) / 24;
  }

  /// The present moment, Universal Time. The stopwatch does not notice.
  void SetUtc(platform::SerialDate utc) {
    startUtc_ = utc;
    startMs_ = elapsedMs_;
  }
  void SetUtc(const platform::DateParts& parts) { SetUtc(platform::MakeSerial(parts)); }
  /// Hours by which local time is ahead of Universal Time.
  void SetOffsetHours(double hours) { offsetHours_ = hours; }
  /// The zone's rule: hours by which local time is ahead at a moment. The present offset stays what was set.
  void SetOffsetHoursAt(std::function<double(platform::SerialDate utc)> rule) { offsetHoursAt_ = std::move(rule); }
  void AdvanceMs(double ms) { elapsedMs_ += ms; }

 private:
  platform::SerialDate Utc() const { return startUtc_ + (elapsedMs_ - startMs_) / 86400000.0; }

  platform::SerialDate startUtc_ = platform::MakeSerial({2024, 6, 1, 12, 0, 0});
  double startMs_ = 0;
  double elapsedMs_ = 0;
  double offsetHours_ = 0;
  std::function<double(platform::SerialDate)> offsetHoursAt_;
};

}  // namespace kestrava::testing
