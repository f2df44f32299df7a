#include "shell/KepAge.h"

#include <cmath>

namespace kestrava::shell {

int ElementAgeDays(platform::SerialDate nowLocal, platform::SerialDate fileLocal) {
  const int days = static_cast<int>(std::floor(nowLocal - fileLocal));
  if (days >= 0) return days;
  const platform::DateParts file = platform::SplitSerial(fileLocal);
  const platform::SerialDate swapped = platform::MakeSerial({file.year, file.day, file.month, 12, 0, 0});
  return static_cast<int>(std::floor(nowLocal - swapped));
}

std::optional<std::string> KepAgeText(int days) {
  if (days < 0) return std::nullopt;
  if (days == 0) return "Keplerian Elements Were Updated Today";
  if (days == 1) return "Keplerian Elements Were Updated Yesterday";
  return "Keplerian Elements Last Updated " + std::to_string(days) + " Days Ago";
}

}  // namespace kestrava::shell
