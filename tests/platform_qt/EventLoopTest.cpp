#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/qt/QtEventLoop.h"

#include "support/House.h"

namespace kestrava::platform::qt {
namespace {

class EventLoopTests : public testing::House {
 protected:
  EventLoopTests() { TheDoors().eventLoop = &loop_; }
  ~EventLoopTests() override { TheDoors().eventLoop = &eventLoop; }

  /// Handles events until the condition holds; a test that waits in vain ends by its time limit in CTest.
  template <class Condition>
  void Until(Condition holds) {
    while (!holds()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  /// Handles events for as long as a timer of `ms` takes.
  void For(int ms) {
    bool over = false;
    QTimer::singleShot(ms, Qt::PreciseTimer, qApp, [&] { over = true; });
    Until([&] { return over; });
  }

  QtEventLoop loop_;
};

TEST_F(EventLoopTests, ATimerIsSilentUntilEnabled) {
  int ticks = 0;
  const auto timer = loop_.MakeTimer(1, [&] { ++ticks; });
  For(10);
  EXPECT_EQ(ticks, 0);
  EXPECT_FALSE(timer->Enabled());
  timer->SetEnabled(true);
  Until([&] { return ticks >= 3; });
  timer->SetEnabled(false);
  const int now = ticks;
  For(10);
  EXPECT_EQ(ticks, now);
}

TEST_F(EventLoopTests, AnIntervalOfNoughtOrLessStopsATimerThatStaysEnabled) {
  int ticks = 0;
  const auto timer = loop_.MakeTimer(1, [&] { ++ticks; });
  timer->SetEnabled(true);
  for (const int interval : {0, -5}) {
    timer->SetIntervalMs(interval);
    const int now = ticks;
    For(10);
    EXPECT_EQ(ticks, now);
    EXPECT_TRUE(timer->Enabled());
    EXPECT_EQ(timer->IntervalMs(), interval);
  }
  timer->SetIntervalMs(1);
  const int now = ticks;
  Until([&] { return ticks > now; });
}

TEST_F(EventLoopTests, ATickNeverEntersItselfThoughItYieldsAndSetsItsInterval) {
  int depth = 0;
  int deepest = 0;
  int ticks = 0;
  Timer* self = nullptr;
  const auto timer = loop_.MakeTimer(1, [&] {
    deepest = std::max(deepest, ++depth);
    self->SetIntervalMs(ticks % 2 == 0 ? 2 : 1);
    For(6);
    --depth;
    ++ticks;
  });
  self = timer.get();
  timer->SetEnabled(true);
  Until([&] { return ticks >= 3; });
  EXPECT_EQ(deepest, 1);
}

TEST_F(EventLoopTests, SettingTheSameIntervalDoesNotStartTheWaitAnew) {
  int ticks = 0;
  const auto timer = loop_.MakeTimer(20, [&] { ++ticks; });
  timer->SetEnabled(true);
  const auto setter = loop_.MakeTimer(3, [&] { timer->SetIntervalMs(20); });
  setter->SetEnabled(true);
  Until([&] { return ticks >= 2; });
}

TEST_F(EventLoopTests, OtherTimersRunWhileATickYields) {
  int others = 0;
  bool done = false;
  const auto other = loop_.MakeTimer(1, [&] { ++others; });
  other->SetEnabled(true);
  const auto timer = loop_.MakeTimer(1, [&] {
    const int before = others;
    while (others == before) YieldOnce();
    done = true;
  });
  timer->SetEnabled(true);
  Until([&] { return done; });
}

TEST_F(EventLoopTests, ATickMayEndItsOwnTimer) {
  std::unique_ptr<Timer> timer;
  int ticks = 0;
  timer = loop_.MakeTimer(1, [&] {
    timer.reset();
    ++ticks;
  });
  timer->SetEnabled(true);
  Until([&] { return ticks == 1; });
  For(5);
  EXPECT_EQ(ticks, 1);
}

TEST_F(EventLoopTests, AFaultInATickIsToldOnceAndTheTimerRunsOn) {
  ForgetToldFaults();
  messages.ExpectMessage("Division by zero");
  int ticks = 0;
  const auto timer = loop_.MakeTimer(1, [&] {
    ++ticks;
    throw Fault::DivisionByZero();
  });
  timer->SetEnabled(true);
  Until([&] { return ticks >= 3; });
}

TEST_F(EventLoopTests, LaterWorkRunsAfterThePresentEvent) {
  bool ran = false;
  loop_.Later([&] { ran = true; });
  EXPECT_FALSE(ran);
  Until([&] { return ran; });
}

TEST_F(EventLoopTests, LaterWorkWaitsForTheTickThatYields) {
  bool ran = false;
  bool ranInTick = false;
  bool done = false;
  const auto timer = loop_.MakeTimer(1, [&] {
    if (done) return;
    QTimer::singleShot(0, qApp, [&] { loop_.Later([&] { ran = true; }); });
    For(15);
    ranInTick = ran;
    done = true;
  });
  timer->SetEnabled(true);
  Until([&] { return done && ran; });
  EXPECT_FALSE(ranInTick);
}

TEST_F(EventLoopTests, QuitEndsTheRunWithItsCodeAndWaitingWorkIsDone) {
  bool ran = false;
  QTimer::singleShot(0, qApp, [&] {
    loop_.Quit(1);
    loop_.Later([&] { ran = true; });
  });
  EXPECT_EQ(loop_.Run(), 1);
  EXPECT_TRUE(ran);
}

TEST_F(EventLoopTests, QuitBeforeTheRunEndsItAtOnce) {
  loop_.Quit(1);
  EXPECT_EQ(loop_.Run(), 1);
}

TEST_F(EventLoopTests, QuitInANestedYieldEndsTheRun) {
  const auto timer = loop_.MakeTimer(1, [&] {
    QTimer::singleShot(0, qApp, [&] { loop_.Quit(0); });
    For(3);
  });
  timer->SetEnabled(true);
  EXPECT_EQ(loop_.Run(), 0);
}

}  // namespace
}  // namespace kestrava::platform::qt
