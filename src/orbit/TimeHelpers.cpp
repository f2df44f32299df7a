#include "orbit/TimeHelpers.h"

#include <array>

#include "platform/ClockFace.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace kestrava::orbit {

using platform::DateParts;
using platform::SerialDate;

namespace {

constexpr std::array<const char*, 12> kMonthNames{"JAN", "FEB", "MAR", "APR", "MAY", "JUN",
                                                  "JUL", "AUG", "SEP", "OCT", "NOV", "DEC"};
constexpr std::array<int, 12> kDaysBeforeMonth{0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};

/// The parts of the second that has begun.
DateParts ShownParts(SerialDate moment) {
  return platform::SplitSerial(platform::CutToSecond(moment));
}

/// Minutes to be added to local time. Hour and minute are those of the difference's size, so its sign is put back. The
/// difference is taken before either clock is cut to whole seconds: they could fall to different sides.
int OffsetMinutes() {
  const platform::ClockReading now = platform::TheClock().Read();
  const SerialDate difference = now.utc - now.local;
  const int minutes = platform::HourOf(difference) * 60 + platform::MinuteOf(difference);
  return difference < 0 ? -minutes : minutes;
}

int DaysBeforeMonth(std::string_view month) {
  for (int i = 0; i < 12; ++i) {
    if (platform::Format(i + 1, "00") == month) return platform::At(kDaysBeforeMonth, i);
  }
  return 0;
}

}  // namespace

SerialDate NowUTC() {
  return platform::MakeSerial(ShownParts(platform::TheClock().Read().utc));
}

SerialDate NowLocal() {
  return platform::MakeSerial(NowLocalParts());
}

DateParts NowLocalParts() {
  return ShownParts(platform::TheClock().Read().local);
}

SerialDate LocalToUTC(SerialDate date) {
  return date + OffsetMinutes() / platform::kMinutesPerDay;
}

SerialDate UTCToLocal(SerialDate date) {
  return date - OffsetMinutes() / platform::kMinutesPerDay;
}

std::string DateText(std::int16_t day, std::int16_t month, std::int16_t year) {
  const std::string monthName = month >= 1 && month <= 12 ? platform::At(kMonthNames, month - 1) : "";
  return platform::Format(day, "00") + " " + monthName + " " + std::to_string(year);
}

std::string ClockText(std::int16_t hour, std::int16_t minute, std::int16_t second) {
  const auto within = [](int value, int bound) { return value >= 0 && value < bound; };
  if (within(hour, 24) && within(minute, 60) && within(second, 60)) {
    return platform::Format(platform::MakeSerial({1899, 12, 30, hour, minute, second}), "hh:mm:ss");
  }
  // A text that is no time of day comes out of the pattern as it went in.
  return std::to_string(hour) + ":" + std::to_string(minute) + ":" + std::to_string(second);
}

std::int16_t DayNumber(std::string_view monthDayYear) {
  const std::string month = platform::Left(monthDayYear, 2);
  const std::int16_t day = platform::ToInt16(platform::ParseNumber(platform::Mid(monthDayYear, 4, 2)));
  const int length = platform::LengthInCharacters(monthDayYear);
  const std::int16_t year = platform::ToInt16(platform::ParseNumber(platform::Mid(monthDayYear, length - 3, 4)));
  // The rule of four alone: 1900 and 2100 count as leap years here.
  const int leapDay = year % 4 == 0 && month > "02" ? 1 : 0;
  return platform::ToInt16(DaysBeforeMonth(month) + day + leapDay);
}

std::string RunTimeDateText() {
  const DateParts now = NowLocalParts();
  return platform::Format(now.month, "00") + "-" + platform::Format(now.day, "00") + "-" +
         platform::Format(now.year, "0000");
}

}  // namespace kestrava::orbit
