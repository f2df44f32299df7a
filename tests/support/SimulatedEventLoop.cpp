#include "support/SimulatedEventLoop.h"

#include <algorithm>
#include <utility>

namespace kestrava::testing {

struct SimulatedEventLoop::TimerState {
  int intervalMs = 0;
  bool enabled = false;
  bool running = false;
  bool gone = false;
  double dueMs = 0;
  std::function<void()> tick;

  bool Counts() const { return enabled && intervalMs > 0 && !gone; }
};

class SimulatedEventLoop::SimulatedTimer : public platform::Timer {
 public:
  SimulatedTimer(SimulatedEventLoop& loop, std::shared_ptr<TimerState> state) : loop_(loop), state_(std::move(state)) {}
  ~SimulatedTimer() override {
    state_->gone = true;
    std::erase(loop_.timers_, state_);
  }

  void SetIntervalMs(int intervalMs) override {
    if (intervalMs == state_->intervalMs) return;
    state_->intervalMs = intervalMs;
    Restart();
  }
  int IntervalMs() const override { return state_->intervalMs; }
  void SetEnabled(bool enabled) override {
    if (enabled == state_->enabled) return;
    state_->enabled = enabled;
    Restart();
  }
  bool Enabled() const override { return state_->enabled; }

 private:
  void Restart() {
    if (!state_->Counts()) return;
    ++loop_.timerStarts_;
    state_->dueMs = loop_.clock_.ElapsedMs() + state_->intervalMs;
  }

  SimulatedEventLoop& loop_;
  std::shared_ptr<TimerState> state_;
};

std::unique_ptr<platform::Timer> SimulatedEventLoop::MakeTimer(int intervalMs, std::function<void()> tick) {
  auto state = std::make_shared<TimerState>();
  state->intervalMs = intervalMs;
  state->tick = std::move(tick);
  timers_.push_back(state);
  return std::make_unique<SimulatedTimer>(*this, state);
}

void SimulatedEventLoop::Later(std::function<void()> work) {
  later_.push_back(std::move(work));
}

std::shared_ptr<SimulatedEventLoop::TimerState> SimulatedEventLoop::EarliestDue(double latestMs) {
  std::shared_ptr<TimerState> earliest;
  for (const auto& timer : timers_) {
    if (!timer->Counts() || timer->running || timer->dueMs > latestMs) continue;
    if (!earliest || timer->dueMs < earliest->dueMs) earliest = timer;
  }
  return earliest;
}

void SimulatedEventLoop::Fire(const std::shared_ptr<TimerState>& timer) {
  timer->dueMs = clock_.ElapsedMs() + timer->intervalMs;  // missed ticks become one
  struct Running {
    TimerState& state;
    explicit Running(TimerState& s) : state(s) { state.running = true; }
    ~Running() { state.running = false; }
  };
  const Running running(*timer);
  RunEvent(timer->tick);
}

void SimulatedEventLoop::RunEvent(const std::function<void()>& event) {
  struct Depth {
    int& depth;
    explicit Depth(int& d) : depth(d) { ++depth; }
    ~Depth() { --depth; }
  };
  {
    const Depth inside(depth_);
    event();
  }
  if (depth_ == 0) RunLaterWork();
}

void SimulatedEventLoop::RunLaterWork() {
  while (!later_.empty()) {
    const auto work = std::exchange(later_, {});
    for (const auto& piece : work) RunEvent(piece);
  }
}

void SimulatedEventLoop::ProcessEvents() {
  ++yields_;
  while (true) {
    const auto due = std::find_if(happenings_.begin(), happenings_.end(),
                                  [&](const Happening& happening) { return happening.atYield <= yields_; });
    if (due == happenings_.end()) break;
    const auto work = std::move(due->work);
    happenings_.erase(due);
    RunEvent(work);
  }
  while (const auto timer = EarliestDue(clock_.ElapsedMs())) Fire(timer);
}

void SimulatedEventLoop::Advance(double seconds) {
  const double endMs = clock_.ElapsedMs() + seconds * 1000;
  if (depth_ == 0) RunLaterWork();
  while (!exitCode_) {
    const auto timer = EarliestDue(endMs);
    if (!timer) break;
    clock_.AdvanceMs(std::max(0.0, timer->dueMs - clock_.ElapsedMs()));
    Fire(timer);
  }
  if (!exitCode_) clock_.AdvanceMs(std::max(0.0, endMs - clock_.ElapsedMs()));
}

void SimulatedEventLoop::AtYield(int n, std::function<void()> happening) {
  happenings_.push_back({yields_ + n, std::move(happening)});
}

int SimulatedEventLoop::RunningTimers() const {
  return static_cast<int>(std::count_if(timers_.begin(), timers_.end(), [](const auto& t) { return t->Counts(); }));
}

}  // namespace kestrava::testing
