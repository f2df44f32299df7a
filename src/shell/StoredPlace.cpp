#include "shell/StoredPlace.h"

#include <algorithm>
#include <cmath>

#include "platform/Format.h"
#include "platform/Quote.h"
#include "platform/Settings.h"

namespace kestrava::shell {

namespace {

constexpr double kPoleDeg = 90;
constexpr double kTurnDeg = 360;

}  // namespace

StoredAngle ReadStoredAngle(std::string_view key) {
  const std::string stored = platform::ReadSetting(key, "0");
  const double degrees = platform::ParseNumber(platform::ApplyCommaRule(stored));
  const bool isLatitude = key == "Latitude";
  if (std::abs(degrees) <= (isLatitude ? kPoleDeg : kTurnDeg)) return {degrees, ""};
  const double taken = isLatitude ? std::clamp(degrees, -kPoleDeg, kPoleDeg) : std::fmod(degrees, kTurnDeg);
  return {taken, "The stored " + std::string(isLatitude ? "latitude" : "longitude") + " is " +
                     platform::QuoteOf(stored) + ", which is no place on the Earth: " + platform::NumberText(taken) +
                     " is taken"};
}

}  // namespace kestrava::shell
