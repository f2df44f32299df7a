#include "Numbers.h"

#include <charconv>
#include <cmath>

#include "platform/Text.h"

#include "Request.h"

namespace kestrava::cli {

namespace {

double NumberOf(std::string_view text, const std::string& option) {
  double value = 0;
  const std::string_view digits = platform::Trim(text).substr(platform::BeginsWith(platform::Trim(text), "+") ? 1 : 0);
  const auto read = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (read.ec != std::errc() || read.ptr != digits.data() + digits.size() || !std::isfinite(value)) {
    throw WrongUse(option + ": '" + std::string(text) + "' is no number");
  }
  return value;
}

}  // namespace

double NumberBetween(std::string_view text, double least, double most, const std::string& option) {
  const double value = NumberOf(text, option);
  if (value >= least && value <= most) return value;
  throw WrongUse(option + ": " + std::string(text) + " is not between " + std::to_string(static_cast<int>(least)) +
                 " and " + std::to_string(static_cast<int>(most)));
}

}  // namespace kestrava::cli
