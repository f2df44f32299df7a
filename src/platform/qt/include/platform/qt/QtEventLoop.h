// The event loop of the toolkit as the station's door: yields, precise timers, and work put off until nothing of the
// present event is under way any more.
#pragma once

#include <QObject>
#include <deque>
#include <functional>
#include <memory>
#include <optional>

#include "platform/EventLoop.h"

namespace kestrava::platform::qt {

class QtEventLoop : public EventLoop {
 public:
  /// The application object exists already. The run no longer ends by itself with its last window.
  QtEventLoop();
  ~QtEventLoop() override;

  void ProcessEvents() override;
  std::unique_ptr<Timer> MakeTimer(int intervalMs, std::function<void()> tick) override;
  /// The work waits while a tick, a yield or a message box is under way, at whatever depth it was asked for: what it
  /// ends may still be running there.
  void Later(std::function<void()> work) override;
  void Quit(int exitCode) override;

  /// Runs until Quit, then does the work that still waits. A Quit before it returns at once.
  int Run();
  /// Does all waiting work now.
  void DrainLater();

  /// Something is under way below which waiting work must not run.
  class Busy {
   public:
    Busy();
    ~Busy();
    Busy(const Busy&) = delete;
    Busy& operator=(const Busy&) = delete;
  };

 private:
  void Arm();
  void TryDrain();

  QObject context_;
  std::deque<std::function<void()>> works_;
  bool armed_ = false;
  std::optional<int> exitCode_;
};

}  // namespace kestrava::platform::qt
