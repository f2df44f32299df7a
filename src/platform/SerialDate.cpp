#include "platform/SerialDate.h"

#include <chrono>
#include <cmath>

#include "platform/Fault.h"

namespace kestrava::platform {

namespace {

using std::chrono::sys_days;

constexpr sys_days kDayZero = std::chrono::year{1899} / 12 / 30;
constexpr long long kFirstDay = -657434;  // 1 January 100
constexpr long long kLastDay = 2958465;   // 31 December 9999
constexpr long long kWholeDayS = 86400;

struct DayAndSecond {
  long long day = 0;
  int second = 0;
};

long long FloorDivide(long long a, long long b) {
  return a / b - (a % b < 0 ? 1 : 0);
}

/// The time of day is the size of the fraction, on both sides of day zero.
DayAndSecond RoundedToSecond(SerialDate date) {
  if (!(date > kFirstDay - 1 && date < kLastDay + 1)) throw Fault::Overflow();
  const double whole = std::trunc(date);
  auto day = static_cast<long long>(whole);
  auto second = static_cast<long long>(std::floor(std::fabs(date - whole) * kSecondsPerDay + 0.5));
  if (second == kWholeDayS) {
    second = 0;
    ++day;
  }
  if (day > kLastDay) throw Fault::Overflow();
  return {day, static_cast<int>(second)};
}

}  // namespace

SerialDate MakeSerial(const DateParts& parts) {
  const long long months = static_cast<long long>(parts.year) * 12 + parts.month - 1;
  const long long year = FloorDivide(months, 12);
  if (year < -20000 || year > 20000) throw Fault::InvalidCall();
  const auto month = static_cast<unsigned>(months - year * 12 + 1);
  const sys_days firstOfMonth =
      std::chrono::year{static_cast<int>(year)} / std::chrono::month{month} / std::chrono::day{1};

  const long long seconds = static_cast<long long>(parts.hour) * 3600 + parts.minute * 60LL + parts.second;
  const long long extraDays = FloorDivide(seconds, kWholeDayS);
  const long long day = (firstOfMonth - kDayZero).count() + static_cast<long long>(parts.day) - 1 + extraDays;
  if (day < kFirstDay || day > kLastDay) throw Fault::InvalidCall();

  const double fraction = static_cast<double>(seconds - extraDays * kWholeDayS) / kSecondsPerDay;
  return day < 0 ? static_cast<double>(day) - fraction : static_cast<double>(day) + fraction;
}

DateParts SplitSerial(SerialDate date) {
  const DayAndSecond moment = RoundedToSecond(date);
  const std::chrono::year_month_day ymd{kDayZero + std::chrono::days{moment.day}};
  return {static_cast<int>(ymd.year()),
          static_cast<int>(static_cast<unsigned>(ymd.month())),
          static_cast<int>(static_cast<unsigned>(ymd.day())),
          moment.second / 3600,
          moment.second / 60 % 60,
          moment.second % 60};
}

int HourOf(SerialDate date) {
  return RoundedToSecond(date).second / 3600;
}

int MinuteOf(SerialDate date) {
  return RoundedToSecond(date).second / 60 % 60;
}

int SecondOf(SerialDate date) {
  return RoundedToSecond(date).second % 60;
}

}  // namespace kestrava::platform
