// The machine's clock, stopwatch and random numbers.
#pragma once

#include <chrono>
#include <random>

#include "platform/Clock.h"
#include "platform/Random.h"

namespace kestrava::platform {

/// Both times of one reading; local time by the machine's time zone, as it stands now.
class SystemClock : public Clock {
 public:
  ClockReading Read() override;
  SerialDate LocalAt(SerialDate utc) override;

 private:
  long long zoneReadMinute_ = -1;
};

class SystemStopwatch : public Stopwatch {
 public:
  double ElapsedMs() override {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start_).count();
  }

 private:
  std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};

class SystemRandom : public Random {
 public:
  double Next() override { return std::uniform_real_distribution<double>(0, 1)(engine_); }

 private:
  std::mt19937_64 engine_{std::random_device{}()};
};

/// The two serial dates of a moment, by the machine's time zone.
/// @param unixSeconds  whole seconds since 1970, Universal Time; `nanoseconds` on top of it
ClockReading ReadingOf(long long unixSeconds, long nanoseconds);

}  // namespace kestrava::platform
