// Decimal digits of a number, 15 significant ones, as the texts of numbers are made of. Private to Format.cpp and
// NumberText.cpp.
#pragma once

#include <string>

namespace kestrava::platform {

/// digits d1 d2 d3 ... stand for d1.d2d3... * 10^exponent; zero has no digits.
struct Decimal {
  bool negative = false;
  std::string digits;
  int exponent = 0;
};

/// @throws Fault "Overflow" for what is no finite number
Decimal ToDecimal(double value);

/// Rounds to a number of places behind the point, halves away from zero, without trailing zeros.
void RoundToPlaces(Decimal& number, int places);

}  // namespace kestrava::platform
