// Numbers to plain texts and back.
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Text.h"

#include "Decimal.h"

namespace kestrava::platform {

namespace {

constexpr int kMostPlaces = 15;  // whole digits, or places behind the point, before the exponent form is taken

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string ExponentForm(const Decimal& number, std::string_view decimalSign) {
  std::string text = number.digits.substr(0, 1);
  if (number.digits.size() > 1) text.append(decimalSign).append(number.digits, 1);
  const int size = std::abs(number.exponent);
  text += number.exponent < 0 ? "E-" : "E+";
  if (size < 10) text += '0';
  return text + std::to_string(size);
}

std::string PlainForm(const Decimal& number, std::string_view decimalSign) {
  const auto digits = static_cast<int>(number.digits.size());
  if (number.exponent < 0) {
    std::string text = "0";
    text.append(decimalSign).append(static_cast<std::size_t>(-number.exponent - 1), '0');
    return text + number.digits;
  }
  if (digits <= number.exponent + 1) {
    return number.digits + std::string(static_cast<std::size_t>(number.exponent + 1 - digits), '0');
  }
  const auto whole = static_cast<std::size_t>(number.exponent) + 1;
  return number.digits.substr(0, whole).append(decimalSign).append(number.digits, whole);
}

std::string ShortestText(double value, std::string_view decimalSign) {
  const Decimal number = ToDecimal(value);
  if (number.digits.empty()) return "0";
  const int behindPoint = static_cast<int>(number.digits.size()) - 1 - number.exponent;
  const bool plain = number.exponent < kMostPlaces && (number.exponent >= 0 || behindPoint <= kMostPlaces);
  std::string text = plain ? PlainForm(number, decimalSign) : ExponentForm(number, decimalSign);
  if (number.negative) text.insert(text.begin(), '-');
  return text;
}

/// The number that a text of digits, one point and an exponent stands for.
/// @param used  how many characters of it belong to the number; 0 if it begins with none
double PlainNumber(std::string_view text, std::size_t& used, bool& tooLarge) {
  std::size_t start = 0;
  const bool negative = !text.empty() && text[0] == '-';
  if (negative || (!text.empty() && text[0] == '+')) start = 1;
  const bool pointFirst = text.size() > start + 1 && text[start] == '.' && IsDigit(text[start + 1]);
  used = 0;
  tooLarge = false;
  if (text.size() <= start || (!IsDigit(text[start]) && !pointFirst)) return 0;  // no "inf", no "nan"
  double value = 0;
  const auto result = std::from_chars(text.data() + start, text.data() + text.size(), value);
  used = static_cast<std::size_t>(result.ptr - text.data());
  if (result.ec == std::errc::result_out_of_range) {
    // Too small reads as nothing; what is too large begins with a digit other than 0 or has a positive exponent.
    const std::string_view number = text.substr(0, used);
    const std::size_t exponent = number.find_first_of("eE");
    tooLarge = exponent == std::string_view::npos ? number.find_first_of("123456789.") != number.find('.')
                                                  : number.substr(exponent + 1, 1) != "-";
    value = tooLarge ? std::numeric_limits<double>::max() : 0;
  }
  return negative ? -value : value;
}

bool StandsBetweenDigits(std::string_view text, std::size_t at, std::size_t length) {
  return at > 0 && IsDigit(text[at - 1]) && at + length < text.size() && IsDigit(text[at + length]);
}

/// A number text of this machine with its group signs taken out and a point for its decimal sign.
std::string WithPoint(std::string_view text, std::string_view decimalSign, std::string_view groupSign) {
  std::string plain;
  bool pointSeen = false;
  for (std::size_t i = 0; i < text.size();) {
    const std::string_view rest = text.substr(i);
    if (!decimalSign.empty() && BeginsWith(rest, decimalSign)) {
      if (pointSeen) throw Fault::TypeMismatch();
      pointSeen = true;
      plain += '.';
      i += decimalSign.size();
    } else if (!groupSign.empty() && !pointSeen && BeginsWith(rest, groupSign) &&
               StandsBetweenDigits(text, i, groupSign.size())) {
      i += groupSign.size();
    } else if (rest[0] == '.' || rest[0] == ',') {
      throw Fault::TypeMismatch();
    } else {
      plain += rest[0];
      ++i;
    }
  }
  return plain;
}

/// The sign that another machine would have written: "," on a point machine, "." elsewhere.
std::string_view OtherDecimalSign(std::string_view decimalSign) {
  return decimalSign == "." ? "," : ".";
}

bool HoldsOnce(std::string_view text, std::string_view part) {
  const std::size_t first = text.find(part);
  return first != std::string_view::npos && text.find(part, first + 1) == std::string_view::npos;
}

}  // namespace

double ParseNumber(std::string_view text) {
  const std::string_view trimmed = Trim(text);
  const std::string decimalSign = TheLocale().DecimalSign();
  const std::string_view other = OtherDecimalSign(decimalSign);
  const bool foreign = HoldsOnce(trimmed, other) && !Contains(trimmed, decimalSign);
  std::string plain =
      foreign ? WithPoint(trimmed, other, {}) : WithPoint(trimmed, decimalSign, TheLocale().GroupSign());

  bool tooLarge = false;
  std::size_t used = 0;
  const double value = PlainNumber(plain, used, tooLarge);
  if (used == 0 || used != plain.size()) throw Fault::TypeMismatch();
  if (tooLarge) throw Fault::Overflow();
  return value;
}

double Val(std::string_view text) {
  std::string packed;
  packed.reserve(text.size());
  for (const char c : text) {
    if (c != ' ' && c != '\t' && c != '\r' && c != '\n') packed += c;
  }
  bool tooLarge = false;
  std::size_t used = 0;
  return PlainNumber(packed, used, tooLarge);
}

std::string NumberText(double value) {
  return ShortestText(value, TheLocale().DecimalSign());
}

std::string PointText(double value) {
  return ShortestText(value, ".");
}

std::string FloorText(double value) {
  return PointText(std::floor(value));
}

}  // namespace kestrava::platform
