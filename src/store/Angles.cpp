#include "store/Angles.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace kestrava::store {

namespace {

/// 360 minus an angle as a decimal number would have it. A stored text has up to 15 digits, so twelve decimals of an
/// angle from 180 to 360 are all that it can hold: what lies behind them is the noise of the subtraction.
double FromFullCircle(double degrees) {
  constexpr double kTwelveDecimals = 1e12;
  return std::round((360 - degrees) * kTwelveDecimals) / kTwelveDecimals;
}

bool IsDecimalSign(char c) {
  return c == '.' || c == ',';
}

bool IsPartOfNumber(char c) {
  return (c >= '0' && c <= '9') || IsDecimalSign(c);
}

}  // namespace

DegreeParts DegToDMS(double degrees) {
  const double whole = std::floor(degrees);
  const double restMin = (degrees - whole) * 60;
  const double minutes = std::floor(restMin);
  return {whole, minutes, std::floor((restMin - minutes) * 60)};
}

double DMSToDeg(const DegreeParts& parts) {
  return platform::ParseNumber(
      platform::Format(parts.degrees + parts.minutes / 60 + parts.seconds / 3600, "000.000000000"));
}

ShownAngle ShownLatitude(double latitudeDeg) {
  return {std::abs(latitudeDeg), !(latitudeDeg < 0)};
}

ShownAngle ShownLongitude(double longitudeDegWest) {
  if (longitudeDegWest < 0) return ShownLongitude(FromFullCircle(std::fmod(-longitudeDegWest, 360)));
  if (longitudeDegWest >= 180) return {FromFullCircle(longitudeDegWest), false};
  return {longitudeDegWest, true};
}

double StoredLatitude(const ShownAngle& shown) {
  return shown.ticked ? shown.degrees : -shown.degrees;
}

double StoredLongitude(const ShownAngle& shown) {
  return shown.ticked ? shown.degrees : FromFullCircle(shown.degrees);
}

double ParseStoredDegrees(std::string_view stored) {
  return platform::ParseNumber(platform::ApplyCommaRule(stored));
}

double ParseTyped(std::string_view text) {
  const std::string_view trimmed = platform::Trim(text);
  const bool hasSign = platform::BeginsWith(trimmed, "-") || platform::BeginsWith(trimmed, "+");
  const std::string_view digits = trimmed.substr(hasSign ? 1 : 0);
  const bool plain = std::all_of(digits.begin(), digits.end(), IsPartOfNumber);
  if (!plain || std::count_if(digits.begin(), digits.end(), IsDecimalSign) > 1) {
    throw platform::Fault::TypeMismatch();
  }
  const std::string sign = platform::TheLocale().DecimalSign();
  return platform::ParseNumber(platform::ReplaceAll(platform::ReplaceAll(trimmed, ",", "."), ".", sign));
}

}  // namespace kestrava::store
