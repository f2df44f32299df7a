// Serial dates: days since 30 December 1899 with the time of day as the fraction. Local and Universal Time have the
// same form and nothing marks which is which. Hour, minute and second are those of the date rounded to the nearest
// second; a negative date's time of day is the size of its fraction.
#pragma once

namespace kestrava::platform {

using SerialDate = double;

struct DateParts {
  int year = 1899;
  int month = 12;
  int day = 30;
  int hour = 0;
  int minute = 0;
  int second = 0;
  bool operator==(const DateParts&) const = default;
};

/// Builds a serial date; every part may lie outside its range and rolls over (month 14, day 32, second 75).
/// Gregorian calendar. @throws Fault "Invalid procedure call or argument" outside the years 100 to 9999
SerialDate MakeSerial(const DateParts& parts);

/// Takes a serial date apart. @throws Fault "Overflow" outside the years 100 to 9999, or for no number
DateParts SplitSerial(SerialDate date);

int HourOf(SerialDate date);
int MinuteOf(SerialDate date);
int SecondOf(SerialDate date);

inline constexpr double kSecondsPerDay = 86400.0;
inline constexpr double kMinutesPerDay = 1440.0;

}  // namespace kestrava::platform
