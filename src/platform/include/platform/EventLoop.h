// The event loop door: yielding, and timers. Everything runs on the one window thread.
#pragma once

#include <functional>
#include <memory>

namespace kestrava::platform {

/// A timer of a window. A tick never enters itself; while a tick runs (and yields) its own timer is silent. An interval
/// that does not differ is not set anew, as setting it inside its own tick would re-enter; 0 or less stops the timer.
class Timer {
 public:
  virtual ~Timer() = default;
  virtual void SetIntervalMs(int intervalMs) = 0;
  virtual int IntervalMs() const = 0;
  virtual void SetEnabled(bool enabled) = 0;
  virtual bool Enabled() const = 0;
};

class EventLoop {
 public:
  virtual ~EventLoop() = default;
  /// Lets waiting events run: clicks, other timers.
  virtual void ProcessEvents() = 0;
  /// A disabled timer of the given interval.
  virtual std::unique_ptr<Timer> MakeTimer(int intervalMs, std::function<void()> tick) = 0;
  /// Runs `work` once, when the present event has been handled.
  virtual void Later(std::function<void()> work) = 0;
  /// Leaves the loop: the end of the run in order.
  virtual void Quit(int exitCode) = 0;
};

/// 2 * n yields to the event loop, for n above 0.
void YieldEvents(int n);

/// One yield.
void YieldOnce();

}  // namespace kestrava::platform
