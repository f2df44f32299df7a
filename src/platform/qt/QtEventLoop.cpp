#include "platform/qt/QtEventLoop.h"

#include <QApplication>
#include <QTimer>
#include <string>
#include <utility>

#include "platform/Messages.h"

namespace kestrava::platform::qt {
namespace {

constexpr int kRetryMs = 5;

int& BusyDepth() {
  static int depth = 0;
  return depth;
}

/// A precise timer whose tick never enters itself. The tick may end the timer.
class QtTimer : public Timer {
 public:
  QtTimer(int intervalMs, std::function<void()> tick)
      : intervalMs_(intervalMs), tick_(std::make_shared<std::function<void()>>(std::move(tick))) {
    timer_.setTimerType(Qt::PreciseTimer);
    if (intervalMs > 0) timer_.setInterval(intervalMs);
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
  }
  ~QtTimer() override { *alive_ = false; }

  void SetIntervalMs(int intervalMs) override {
    if (intervalMs == intervalMs_) return;
    intervalMs_ = intervalMs;
    if (intervalMs > 0) timer_.setInterval(intervalMs);
    StartOrStop();
  }
  int IntervalMs() const override { return intervalMs_; }
  void SetEnabled(bool enabled) override {
    enabled_ = enabled;
    StartOrStop();
  }
  bool Enabled() const override { return enabled_; }

 private:
  void StartOrStop() {
    const bool runs = enabled_ && intervalMs_ > 0;
    if (runs && !timer_.isActive()) timer_.start();
    if (!runs) timer_.stop();
  }

  void Tick() {
    if (ticking_) return;
    ticking_ = true;
    const auto alive = alive_;
    const auto tick = tick_;  // outlives this timer if the tick ends it
    {
      const QtEventLoop::Busy busy;
      RunUntrapped(name_, *tick, Untrapped::kTick);
    }
    if (*alive) ticking_ = false;
  }

  /// Told apart by a number: a fault is told once for each timer.
  static std::string NextName() {
    static int last = 0;
    return "Timed work (" + std::to_string(++last) + ")";
  }

  std::string name_ = NextName();
  int intervalMs_;
  bool enabled_ = false;
  bool ticking_ = false;
  std::shared_ptr<std::function<void()>> tick_;
  std::shared_ptr<bool> alive_ = std::make_shared<bool>(true);
  QTimer timer_;
};

}  // namespace

QtEventLoop::Busy::Busy() {
  ++BusyDepth();
}

QtEventLoop::Busy::~Busy() {
  --BusyDepth();
}

QtEventLoop::QtEventLoop() {
  QGuiApplication::setQuitOnLastWindowClosed(false);
}

QtEventLoop::~QtEventLoop() {
  DrainLater();
}

void QtEventLoop::ProcessEvents() {
  const Busy busy;
  QCoreApplication::processEvents();
}

std::unique_ptr<Timer> QtEventLoop::MakeTimer(int intervalMs, std::function<void()> tick) {
  return std::make_unique<QtTimer>(intervalMs, std::move(tick));
}

void QtEventLoop::Later(std::function<void()> work) {
  works_.push_back(std::move(work));
  Arm();
}

void QtEventLoop::Arm() {
  if (std::exchange(armed_, true)) return;
  QMetaObject::invokeMethod(
      &context_, [this] { TryDrain(); }, Qt::QueuedConnection);
}

void QtEventLoop::TryDrain() {
  armed_ = false;
  if (BusyDepth() == 0) {
    DrainLater();
  } else if (!works_.empty()) {
    // Asked again a little later rather than at once: a queued call would spin in the nested loop.
    armed_ = true;
    QTimer::singleShot(kRetryMs, &context_, [this] { TryDrain(); });
  }
}

void QtEventLoop::DrainLater() {
  while (!works_.empty()) {
    const std::function<void()> work = std::move(works_.front());
    works_.pop_front();
    work();
  }
}

void QtEventLoop::Quit(int exitCode) {
  if (!exitCode_) exitCode_ = exitCode;
  QCoreApplication::exit(*exitCode_);
}

int QtEventLoop::Run() {
  const int code = exitCode_ ? *exitCode_ : QCoreApplication::exec();
  DrainLater();
  return exitCode_.value_or(code);
}

}  // namespace kestrava::platform::qt
