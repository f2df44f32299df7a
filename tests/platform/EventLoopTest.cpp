#include <string>
#include <vector>

#include "platform/EventLoop.h"

#include "support/House.h"

namespace kestrava::platform {
namespace {

using SimulatedLoop = testing::House;

TEST_F(SimulatedLoop, TimersFireInOrderOfTheirMoments) {
  std::string order;
  const auto slow = eventLoop.MakeTimer(2000, [&] { order += 's'; });
  const auto fast = eventLoop.MakeTimer(900, [&] { order += 'f'; });
  slow->SetEnabled(true);
  fast->SetEnabled(true);
  eventLoop.Advance(4.6);
  EXPECT_EQ(order, "ffsffsf");
  EXPECT_EQ(clock.ElapsedMs(), 4600);
}

TEST_F(SimulatedLoop, ATickThatYieldsDoesNotEnterItselfButOthersRun) {
  int depth = 0;
  int deepest = 0;
  int others = 0;
  const auto own = eventLoop.MakeTimer(100, [&] {
    deepest = std::max(deepest, ++depth);
    clock.AdvanceMs(1000);
    YieldEvents(3);
    --depth;
  });
  const auto other = eventLoop.MakeTimer(300, [&] { ++others; });
  own->SetEnabled(true);
  other->SetEnabled(true);
  eventLoop.Advance(0.1);
  EXPECT_EQ(deepest, 1);
  EXPECT_EQ(others, 1) << "missed ticks become one";
}

TEST_F(SimulatedLoop, YieldEventsYieldsTwiceForEachAndNotAtAllBelowOne) {
  YieldEvents(3);
  EXPECT_EQ(eventLoop.YieldCount(), 6);
  YieldEvents(0);
  YieldEvents(-2);
  EXPECT_EQ(eventLoop.YieldCount(), 6);
  YieldOnce();
  EXPECT_EQ(eventLoop.YieldCount(), 7);
}

TEST_F(SimulatedLoop, AnIntervalThatStandsIsNotSetAnewAndZeroStops) {
  int ticks = 0;
  const auto timer = eventLoop.MakeTimer(1000, [&] { ++ticks; });
  timer->SetEnabled(true);
  eventLoop.Advance(0.9);
  timer->SetIntervalMs(1000);
  eventLoop.Advance(0.1);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(eventLoop.TimerStarts(), 1);
  timer->SetIntervalMs(0);
  eventLoop.Advance(10);
  EXPECT_EQ(ticks, 1);
  EXPECT_EQ(eventLoop.RunningTimers(), 0);
}

TEST_F(SimulatedLoop, ATimerMayEndItselfInItsOwnTick) {
  std::unique_ptr<Timer> timer;
  int ticks = 0;
  timer = eventLoop.MakeTimer(100, [&] {
    ++ticks;
    timer.reset();
    YieldOnce();
  });
  timer->SetEnabled(true);
  eventLoop.Advance(1);
  EXPECT_EQ(ticks, 1);
}

TEST_F(SimulatedLoop, WorkForLaterWaitsForTheEndOfTheOutermostEvent) {
  std::string order;
  eventLoop.RunEvent([&] {
    eventLoop.Later([&] { order += 'l'; });
    YieldEvents(2);
    order += 'e';
  });
  EXPECT_EQ(order, "el");
}

TEST_F(SimulatedLoop, ATestCanHaveSomethingHappenAtTheThirdYield) {
  int at = 0;
  eventLoop.AtYield(3, [&] { at = eventLoop.YieldCount(); });
  YieldEvents(5);
  EXPECT_EQ(at, 3);
}

TEST_F(SimulatedLoop, LeavingTheLoopEndsTheRun) {
  int ticks = 0;
  const auto timer = eventLoop.MakeTimer(100, [&] {
    if (++ticks == 2) eventLoop.Quit(1);
  });
  timer->SetEnabled(true);
  eventLoop.Advance(10);
  EXPECT_EQ(ticks, 2);
  EXPECT_EQ(eventLoop.ExitCode(), 1);
}

}  // namespace
}  // namespace kestrava::platform
