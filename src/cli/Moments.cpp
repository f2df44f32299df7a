#include "Moments.h"

#include <cmath>
#include <cstddef>
#include <optional>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "predict/PassText.h"

#include "Request.h"

namespace kestrava::cli {

using platform::DateParts;
using platform::SerialDate;

namespace {

constexpr int kFirstYear = 1957;  // no satellite before, and element sets count their years from here
constexpr int kLastYear = 2099;
constexpr long long kDayMs = 86400000;
constexpr int kMostOffsetMin = 14 * 60;

/// Minutes by which local time is ahead at a moment.
int OffsetMinutes(SerialDate utc) {
  return static_cast<int>(std::lround((platform::TheClock().LocalAt(utc) - utc) * platform::kMinutesPerDay));
}

std::string Digits(long long number, std::size_t width) {
  std::string text = std::to_string(number);
  if (text.size() < width) text.insert(0, width - text.size(), '0');
  return text;
}

/// "2026-11-01" and the like.
std::string DayText(long long serialDay, std::string_view between) {
  const DateParts parts = platform::SplitSerial(static_cast<SerialDate>(serialDay));
  std::string text = Digits(parts.year, 4).append(between);
  return text.append(Digits(parts.month, 2)).append(between).append(Digits(parts.day, 2));
}

/// "01:30:00" and the like.
std::string TimeText(long long seconds, std::string_view between) {
  std::string text = Digits(seconds / 3600, 2).append(between);
  return text.append(Digits(seconds / 60 % 60, 2)).append(between).append(Digits(seconds % 60, 2));
}

std::string OffsetText(int minutes) {
  const int size = std::abs(minutes);
  return (minutes < 0 ? "-" : "+") + Digits(size / 60, 2) + ":" + Digits(size % 60, 2);
}

/// Reads a text from left to right; whatever does not fit makes it fail as a whole.
class Reader {
 public:
  explicit Reader(std::string_view text) : rest_(text) {}

  bool AtEnd() const { return rest_.empty(); }

  bool Take(char c) {
    if (rest_.empty() || rest_.front() != c) return false;
    rest_.remove_prefix(1);
    return true;
  }
  std::optional<int> TakeDigits(std::size_t count) {
    if (rest_.size() < count) return std::nullopt;
    int value = 0;
    for (const char c : rest_.substr(0, count)) {
      if (c < '0' || c > '9') return std::nullopt;
      value = value * 10 + (c - '0');
    }
    rest_.remove_prefix(count);
    return value;
  }
  /// The digits behind a point, as seconds.
  std::optional<double> TakeFraction() {
    double value = 0;
    double scale = 1;
    std::size_t used = 0;
    for (; used < rest_.size() && rest_[used] >= '0' && rest_[used] <= '9'; ++used) {
      value += (rest_[used] - '0') * (scale /= 10);
    }
    if (used == 0) return std::nullopt;
    rest_.remove_prefix(used);
    return value;
  }

 private:
  std::string_view rest_;
};

std::optional<SerialDate> TakeDate(Reader& reader) {
  const auto year = reader.TakeDigits(4);
  if (!year || !reader.Take('-')) return std::nullopt;
  const auto month = reader.TakeDigits(2);
  if (!month || !reader.Take('-')) return std::nullopt;
  const auto day = reader.TakeDigits(2);
  if (!day || *year < kFirstYear || *year > kLastYear) return std::nullopt;
  const DateParts parts{*year, *month, *day, 0, 0, 0};
  const SerialDate date = platform::MakeSerial(parts);
  if (!(platform::SplitSerial(date) == parts)) return std::nullopt;  // 30 February rolls over
  return date;
}

/// @return fraction of a day
std::optional<double> TakeTime(Reader& reader) {
  const auto hour = reader.TakeDigits(2);
  if (!hour || !reader.Take(':')) return std::nullopt;
  const auto minute = reader.TakeDigits(2);
  if (!minute || *hour > 23 || *minute > 59) return std::nullopt;
  double second = 0;
  if (reader.Take(':')) {
    const auto whole = reader.TakeDigits(2);
    if (!whole || *whole > 59) return std::nullopt;
    second = *whole;
    if (reader.Take('.')) {
      const auto fraction = reader.TakeFraction();
      if (!fraction) return std::nullopt;
      second += *fraction;
    }
  }
  return (*hour * 3600 + *minute * 60 + second) / platform::kSecondsPerDay;
}

/// Minutes of "Z", "+01:00", "+0100" or "+01".
std::optional<int> TakeOffset(Reader& reader) {
  if (reader.Take('Z') || reader.Take('z')) return 0;
  const bool negative = reader.Take('-');
  if (!negative && !reader.Take('+')) return std::nullopt;
  const auto hours = reader.TakeDigits(2);
  if (!hours) return std::nullopt;
  int minutes = 0;
  if (!reader.AtEnd()) {
    reader.Take(':');
    const auto given = reader.TakeDigits(2);
    if (!given || *given > 59) return std::nullopt;
    minutes = *given;
  }
  const int offset = *hours * 60 + minutes;
  if (offset > kMostOffsetMin) return std::nullopt;
  return negative ? -offset : offset;
}

std::optional<SerialDate> ParseIso(std::string_view text) {
  Reader reader(text);
  const auto date = TakeDate(reader);
  if (!date) return std::nullopt;
  if (reader.AtEnd()) return UtcOfLocal(*date);
  if (!reader.Take('T') && !reader.Take('t') && !reader.Take(' ')) return std::nullopt;
  const auto time = TakeTime(reader);
  if (!time) return std::nullopt;
  if (reader.AtEnd()) return UtcOfLocal(*date + *time);
  const auto offset = TakeOffset(reader);
  if (!offset || !reader.AtEnd()) return std::nullopt;
  return *date + *time - *offset / platform::kMinutesPerDay;
}

/// A date as the windows print it.
std::optional<SerialDate> ParseWindowDate(std::string_view text) {
  try {
    const SerialDate date = predict::ParseDateCell(text);
    const int year = platform::SplitSerial(date).year;
    if (year < kFirstYear || year > kLastYear) return std::nullopt;
    return UtcOfLocal(date);
  } catch (const platform::Fault&) {
    return std::nullopt;
  }
}

}  // namespace

std::string IsoText(SerialDate utc) {
  const int offset = OffsetMinutes(utc);
  const long long localMs = std::llround(utc * static_cast<double>(kDayMs)) + offset * 60000LL;
  const long long day = localMs / kDayMs;
  const long long inDayMs = localMs % kDayMs;
  return DayText(day, "-") + "T" + TimeText(inDayMs / 1000, ":") + "." + Digits(inDayMs % 1000, 3) + OffsetText(offset);
}

std::string CalendarText(SerialDate utc) {
  const long long seconds = std::llround(utc * platform::kSecondsPerDay);
  return DayText(seconds / 86400, "") + "T" + TimeText(seconds % 86400, "") + "Z";
}

SerialDate UtcOfLocal(SerialDate local) {
  const SerialDate before = local - OffsetMinutes(local - 1) / platform::kMinutesPerDay;
  const SerialDate after = local - OffsetMinutes(local + 1) / platform::kMinutesPerDay;
  const auto fits = [&](SerialDate utc) {
    return std::abs(platform::TheClock().LocalAt(utc) - local) < 0.5 / platform::kMinutesPerDay;
  };
  return !fits(before) && fits(after) ? after : before;
}

SerialDate LocalMidnight(SerialDate utc) {
  return UtcOfLocal(std::floor(platform::TheClock().LocalAt(utc)));
}

SerialDate ParseMoment(std::string_view text) {
  const std::string_view plain = platform::Trim(text);
  const platform::ClockReading now = platform::TheClock().Read();
  if (platform::EqualsIgnoringCase(plain, "now")) return now.utc;
  if (platform::EqualsIgnoringCase(plain, "today")) return LocalMidnight(now.utc);
  if (platform::EqualsIgnoringCase(plain, "tomorrow")) return UtcOfLocal(std::floor(now.local) + 1);
  if (const auto iso = ParseIso(plain)) return *iso;
  if (const auto date = ParseWindowDate(plain)) return *date;
  throw WrongUse("'" + std::string(text) +
                 "' is no date: write 2026-11-15, 2026-11-15T20:30 (local), 2026-11-15T19:30Z, now, today or "
                 "tomorrow; years " +
                 std::to_string(kFirstYear) + " to " + std::to_string(kLastYear));
}

}  // namespace kestrava::cli
