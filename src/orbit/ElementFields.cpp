#include "ElementFields.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace kestrava::orbit {
namespace {

constexpr int kMostDigits = 18;
constexpr std::array<double, kMostDigits + 1> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8, 1e9,
                                                              1e10, 1e11, 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18};

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

/// Takes a sign off the front. @return -1 or 1
int TakeSign(std::string_view& text) {
  if (text.empty() || (text.front() != '-' && text.front() != '+')) return 1;
  const int sign = text.front() == '-' ? -1 : 1;
  text.remove_prefix(1);
  return sign;
}

struct Digits {
  std::int64_t value = 0;
  int count = 0;
  int behindPoint = -1;  ///< -1: no point
};

/// All of the text as digits with one point at most.
std::optional<Digits> ReadDigits(std::string_view text) {
  Digits digits;
  for (const char c : text) {
    if (c == '.' && digits.behindPoint < 0) {
      digits.behindPoint = 0;
    } else if (IsDigit(c) && digits.count < kMostDigits) {
      digits.value = digits.value * 10 + (c - '0');
      ++digits.count;
      if (digits.behindPoint >= 0) ++digits.behindPoint;
    } else {
      return std::nullopt;
    }
  }
  if (digits.count == 0) return std::nullopt;
  return digits;
}

/// The digits with their point; where none stands, it is taken to stand in front of all of them.
double ValueWithImpliedPoint(const Digits& digits) {
  const int behind = digits.behindPoint >= 0 ? digits.behindPoint : digits.count;
  return static_cast<double>(digits.value) / kPowersOfTen[static_cast<std::size_t>(behind)];
}

}  // namespace

std::string_view TrimBlanks(std::string_view field) {
  while (!field.empty() && field.front() == ' ') field.remove_prefix(1);
  while (!field.empty() && field.back() == ' ') field.remove_suffix(1);
  return field;
}

std::optional<double> DecimalField(std::string_view field) {
  field = TrimBlanks(field);
  const int sign = TakeSign(field);
  const std::optional<Digits> digits = ReadDigits(field);
  if (!digits) return std::nullopt;
  const int behind = digits->behindPoint > 0 ? digits->behindPoint : 0;
  return sign * (static_cast<double>(digits->value) / kPowersOfTen[static_cast<std::size_t>(behind)]);
}

std::optional<double> FractionField(std::string_view field) {
  const std::size_t width = field.size();
  field = TrimBlanks(field);
  std::optional<Digits> digits = ReadDigits(field);
  if (!digits) return std::nullopt;
  if (digits->behindPoint < 0) digits->behindPoint = static_cast<int>(width);  // blanks in front stand for zeros
  return ValueWithImpliedPoint(*digits);
}

std::optional<double> PowerField(std::string_view field) {
  field = TrimBlanks(field);
  if (field.empty()) return 0.0;
  const int sign = TakeSign(field);
  const std::size_t end = field.find_first_of("+-");
  const std::optional<Digits> digits = ReadDigits(field.substr(0, end));
  if (!digits) return std::nullopt;
  double value = sign * ValueWithImpliedPoint(*digits);
  if (end == std::string_view::npos) return value;
  std::string_view power = field.substr(end);
  const int powerSign = TakeSign(power);
  if (power.size() != 1 || !IsDigit(power.front())) return std::nullopt;
  const double factor = kPowersOfTen[static_cast<std::size_t>(power.front() - '0')];
  return powerSign < 0 ? value / factor : value * factor;
}

std::optional<int> CountField(std::string_view field) {
  field = TrimBlanks(field);
  int value = 0;
  for (const char c : field) {
    if (!IsDigit(c) || value > 99999999) return std::nullopt;
    value = value * 10 + (c - '0');
  }
  return value;
}

}  // namespace kestrava::orbit
