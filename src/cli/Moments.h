// Moments as a terminal writes and prints them. All are serial dates, Universal Time; the zone is the machine's, with
// the rule of each date.
#pragma once

#include <string>
#include <string_view>

#include "platform/SerialDate.h"

namespace kestrava::cli {

/// ISO 8601 with milliseconds and the zone's offset on that date: "2026-11-01T01:30:00.250-04:00".
std::string IsoText(platform::SerialDate utc);

/// The iCalendar form, to the second: "20261101T053000Z".
std::string CalendarText(platform::SerialDate utc);

/// The moment at which clocks show a local time; of two, the earlier. A time that the clocks skip counts on from the
/// time before the gap.
platform::SerialDate UtcOfLocal(platform::SerialDate local);

/// The local midnight that begins the day of a moment.
platform::SerialDate LocalMidnight(platform::SerialDate utc);

/// "now", "today", "tomorrow", a date ("2026-11-15" or "15 NOV 2026": its local midnight), or a date and time
/// ("2026-11-15T20:30", seconds and fraction if wanted, local unless "Z" or an offset such as "+01:00" stands behind).
/// @throws WrongUse for anything else, and outside the years 1957 to 2099
platform::SerialDate ParseMoment(std::string_view text);

}  // namespace kestrava::cli
