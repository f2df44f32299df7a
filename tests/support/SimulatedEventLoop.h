// An event loop in simulated time: timers fire in order as the scripted clock is moved, a tick never enters itself, and
// a test may have things happen (a click, a close) at any yield.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <vector>

#include "platform/EventLoop.h"

#include "support/ScriptedClock.h"

namespace kestrava::testing {

class SimulatedEventLoop : public platform::EventLoop {
 public:
  explicit SimulatedEventLoop(ScriptedClock& clock) : clock_(clock) {}

  /// Runs what a test injected for this yield, then the timers that are due (but for those whose tick is running).
  /// The clock does not move.
  void ProcessEvents() override;
  std::unique_ptr<platform::Timer> MakeTimer(int intervalMs, std::function<void()> tick) override;
  /// `work` runs when the outermost event is over; in a yield it waits.
  void Later(std::function<void()> work) override;
  void Quit(int exitCode) override { exitCode_ = exitCode; }

  /// Moves the clock forward; every timer fires at its moment. Ends early when the loop was left.
  void Advance(double seconds);
  /// Runs `event` as the toolkit would run a click: what it handed over for later runs when it has returned.
  void RunEvent(const std::function<void()>& event);
  /// `happening` runs in the n-th ProcessEvents from now (1: the next one).
  void AtYield(int n, std::function<void()> happening);

  /// How often ProcessEvents was called so far.
  int YieldCount() const { return yields_; }
  /// Timers that are enabled and have an interval.
  int RunningTimers() const;
  /// How often any timer was really set anew (a new interval, or switched on).
  int TimerStarts() const { return timerStarts_; }
  std::optional<int> ExitCode() const { return exitCode_; }

 private:
  struct TimerState;
  class SimulatedTimer;
  struct Happening {
    int atYield = 0;
    std::function<void()> work;
  };

  std::shared_ptr<TimerState> EarliestDue(double latestMs);
  void Fire(const std::shared_ptr<TimerState>& timer);
  void RunLaterWork();

  ScriptedClock& clock_;
  std::vector<std::shared_ptr<TimerState>> timers_;
  std::vector<Happening> happenings_;
  std::vector<std::function<void()>> later_;
  int depth_ = 0;
  int yields_ = 0;
  int timerStarts_ = 0;
  std::optional<int> exitCode_;
};

}  // namespace kestrava::testing
