#include "Decimal.h"

#include <array>
#include <charconv>
#include <cmath>

#include "platform/Fault.h"

namespace kestrava::platform {

namespace {

constexpr int kSignificantDigits = 15;

void DropTrailingZeros(Decimal& number) {
  while (!number.digits.empty() && number.digits.back() == '0') number.digits.pop_back();
  if (number.digits.empty()) {
    number.negative = false;
    number.exponent = 0;
  }
}

}  // namespace

Decimal ToDecimal(double value) {
  if (!std::isfinite(value)) throw Fault::Overflow();
  std::array<char, 40> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), std::fabs(value),
                                 std::chars_format::scientific, kSignificantDigits - 1);
  Decimal number;
  number.negative = value < 0;
  number.digits.assign(1, text[0]);
  number.digits.append(text.data() + 2, kSignificantDigits - 1);
  const char* exponent = text.data() + 2 + kSignificantDigits;  // behind the "e"
  if (*exponent == '+') ++exponent;                             // from_chars knows no plus sign
  std::from_chars(exponent, end.ptr, number.exponent);
  DropTrailingZeros(number);
  return number;
}

void RoundToPlaces(Decimal& number, int places) {
  const int keep = number.exponent + 1 + places;
  if (keep >= static_cast<int>(number.digits.size())) return;
  if (keep < 0) {
    number = {};
    return;
  }
  const bool up = number.digits[static_cast<std::size_t>(keep)] >= '5';
  number.digits.resize(static_cast<std::size_t>(keep));
  if (up) {
    std::size_t i = number.digits.size();
    while (i > 0 && number.digits[i - 1] == '9') number.digits[--i] = '0';
    if (i > 0) {
      ++number.digits[i - 1];
    } else {
      number.digits.insert(number.digits.begin(), '1');
      ++number.exponent;
    }
  }
  DropTrailingZeros(number);
}

}  // namespace kestrava::platform
