#include "platform/linux/SystemClock.h"

#include <cmath>
#include <ctime>

namespace kestrava::platform {

namespace {

constexpr SerialDate kUnixEpoch = 25569;  // 1 January 1970

}  // namespace

ClockReading ReadingOf(long long unixSeconds, long nanoseconds) {
  const auto moment = static_cast<std::time_t>(unixSeconds);
  std::tm local{};
  const long long offset = ::localtime_r(&moment, &local) ? local.tm_gmtoff : 0;
  const auto serial = [&](long long seconds) {
    return kUnixEpoch + (static_cast<double>(seconds) + static_cast<double>(nanoseconds) * 1e-9) / kSecondsPerDay;
  };
  return {serial(unixSeconds), serial(unixSeconds + offset)};
}

ClockReading SystemClock::Read() {
  timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  if (zoneReadMinute_ != now.tv_sec / 60) {  // the user may have moved to another zone
    zoneReadMinute_ = now.tv_sec / 60;
    ::tzset();
  }
  return ReadingOf(now.tv_sec, now.tv_nsec);
}

SerialDate SystemClock::LocalAt(SerialDate utc) {
  const double unixSeconds = std::floor((utc - kUnixEpoch) * kSecondsPerDay + 0.5);
  const ClockReading at = ReadingOf(static_cast<long long>(unixSeconds), 0);
  return utc + (at.local - at.utc);
}

}  // namespace kestrava::platform
