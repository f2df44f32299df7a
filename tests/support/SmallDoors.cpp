#include "support/SmallDoors.h"

#include "platform/SerialDate.h"

namespace kestrava::testing {

namespace {

std::string TwoDigits(int number) {
  return (number < 10 ? "0" : "") + std::to_string(number);
}

}  // namespace

std::string FixedLocale::DateText(platform::SerialDate local) const {
  const platform::DateParts parts = platform::SplitSerial(local);
  return TwoDigits(parts.day) + "/" + TwoDigits(parts.month) + "/" + std::to_string(parts.year);
}

std::string FixedLocale::TimeText(platform::SerialDate local) const {
  const platform::DateParts parts = platform::SplitSerial(local);
  return TwoDigits(parts.hour) + ":" + TwoDigits(parts.minute) + ":" + TwoDigits(parts.second);
}

}  // namespace kestrava::testing
