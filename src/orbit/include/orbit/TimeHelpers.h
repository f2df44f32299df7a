// The two clocks, the conversion between them, and the texts of dates and times.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/SerialDate.h"

namespace kestrava::orbit {

/// Present moment, whole seconds.
platform::SerialDate NowUTC();
platform::SerialDate NowLocal();

/// Local time to Universal Time and back, by the offset of the present moment between the two clocks, in whole
/// minutes, also for a date in another season.
platform::SerialDate LocalToUTC(platform::SerialDate date);
platform::SerialDate UTCToLocal(platform::SerialDate date);

/// The present local date and time in parts.
platform::DateParts NowLocalParts();

/// "03 JUL 2004". A month outside 1..12 gives an empty month with both blanks kept.
std::string DateText(std::int16_t day, std::int16_t month, std::int16_t year);

/// "hh:mm:ss".
std::string ClockText(std::int16_t hour, std::int16_t minute, std::int16_t second);

/// Day of the year of "mm-dd-yyyy", 1 for 1 January; only the rule of four makes a leap year.
std::int16_t DayNumber(std::string_view monthDayYear);

/// The present local date as "mm-dd-yyyy", whatever the locale.
std::string RunTimeDateText();

}  // namespace kestrava::orbit
