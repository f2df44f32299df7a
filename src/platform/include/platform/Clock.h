// The clock door: the only source of the present moment.
#pragma once

#include "platform/SerialDate.h"

namespace kestrava::platform {

/// Both clocks of one moment, so that a conversion never mixes two readings.
struct ClockReading {
  SerialDate utc = 0;
  SerialDate local = 0;
};

class Clock {
 public:
  virtual ~Clock() = default;
  virtual ClockReading Read() = 0;
  /// Local time of any moment, by the rules of the machine's zone for its date; a clock that knows no zone takes the
  /// offset of the present. @param utc  serial date, Universal Time
  virtual SerialDate LocalAt(SerialDate utc) {
    const ClockReading now = Read();
    return utc + (now.local - now.utc);
  }
};

/// Milliseconds that only ever go forward, for measuring how long something took. Not a time of day.
class Stopwatch {
 public:
  virtual ~Stopwatch() = default;
  virtual double ElapsedMs() = 0;
};

}  // namespace kestrava::platform
