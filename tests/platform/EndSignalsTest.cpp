#include <csignal>

#include <gtest/gtest.h>
#include <poll.h>

#include "platform/linux/EndSignals.h"

namespace kestrava::platform {
namespace {

bool IsReadable(int descriptor) {
  pollfd wanted{descriptor, POLLIN, 0};
  return ::poll(&wanted, 1, 0) == 1;
}

void (*EffectOf(int signal))(int) {
  struct sigaction now {};
  ::sigaction(signal, nullptr, &now);
  return now.sa_handler;
}

TEST(EndSignalsTest, TheFirstOneIsOnlyToldAndTheNextHasItsUsualEffect) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    const EndSignals signals;
    EXPECT_FALSE(IsReadable(signals.Descriptor()));
    std::raise(signal);
    EXPECT_TRUE(IsReadable(signals.Descriptor())) << signal;
    for (const int next : {SIGTERM, SIGINT, SIGHUP}) EXPECT_EQ(EffectOf(next), SIG_DFL) << signal << ", " << next;
  }
}

TEST(EndSignalsTest, WhatTheProcessIsToIgnoreStaysIgnored) {
  std::signal(SIGHUP, SIG_IGN);
  {
    const EndSignals signals;
    std::raise(SIGHUP);
    EXPECT_FALSE(IsReadable(signals.Descriptor()));
    std::raise(SIGTERM);
    EXPECT_TRUE(IsReadable(signals.Descriptor()));
    EXPECT_EQ(EffectOf(SIGHUP), SIG_IGN);
  }
  EXPECT_EQ(EffectOf(SIGHUP), SIG_IGN);
  std::signal(SIGHUP, SIG_DFL);
}

TEST(EndSignalsTest, TheirEndTellsWhetherOneHadCome) {
  EndSignals none;
  EXPECT_FALSE(none.End());
  EXPECT_EQ(EffectOf(SIGTERM), SIG_DFL);
  EndSignals one;
  std::raise(SIGTERM);
  EXPECT_TRUE(one.End());
  EXPECT_TRUE(one.End());
}

TEST(EndSignalsTest, AfterItsEndTheyHaveTheirUsualEffect) {
  { const EndSignals signals; }
  EXPECT_EQ(EffectOf(SIGTERM), SIG_DFL);
}

}  // namespace
}  // namespace kestrava::platform
