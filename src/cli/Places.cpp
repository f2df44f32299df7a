#include "Places.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <utility>
#include <vector>

#include "platform/Format.h"
#include "platform/Text.h"

#include "Numbers.h"
#include "Request.h"

namespace kestrava::cli {

namespace {

constexpr double kLowestM = -1000;
constexpr double kHighestM = 100000;
constexpr std::string_view kWanted =
    "--at wants LAT,LON or LAT,LON,HEIGHT, as in --at -33.9,151.2,20, or a locator, as in --at QF56oc";

double Rounded(double value, double steps) {
  return std::round(value * steps) / steps;
}

/// One pair of a locator: its two characters begin here, the next pair divides its cell into so many.
struct LocatorPair {
  char first;
  int count;
};
constexpr std::array<LocatorPair, 4> kLocatorPairs{{{'A', 18}, {'0', 10}, {'a', 24}, {'0', 10}}};

/// A character in the letters of its place in a locator, counted from 0; none if it is no such character.
std::optional<int> LocatorStep(char c, const LocatorPair& pair) {
  const bool isLetter = pair.first != '0';
  const char same = isLetter && c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  const int step = same - (isLetter ? 'a' : '0');
  if (step < 0 || step >= pair.count) return std::nullopt;
  return step;
}

/// A Maidenhead locator (IARU Region 1, 1980): pairs of a longitude and a latitude, each in ever smaller parts.
std::optional<Place> ParseLocator(std::string_view text) {
  if (text.size() != 4 && text.size() != 6 && text.size() != 8) return std::nullopt;
  std::string name;
  double eastDeg = -180;
  double northDeg = -90;
  double cellDeg = 180;  // in latitude; twice as much in longitude
  for (std::size_t at = 0; at < text.size(); at += 2) {
    const LocatorPair& pair = kLocatorPairs[at / 2];
    const auto east = LocatorStep(text[at], pair);
    const auto north = LocatorStep(text[at + 1], pair);
    if (!east || !north) return std::nullopt;
    cellDeg /= pair.count;
    eastDeg += *east * 2 * cellDeg;
    northDeg += *north * cellDeg;
    name += static_cast<char>(pair.first + *east);
    name += static_cast<char>(pair.first + *north);
  }
  constexpr double kTenThousandths = 1e4;  // ten metres: no locator says more
  return MakePlace(name, Rounded(northDeg + cellDeg / 2, kTenThousandths), Rounded(eastDeg + cellDeg, kTenThousandths),
                   0);
}

}  // namespace

Place MakePlace(std::string name, double latitudeDeg, double longitudeEastDeg, double heightM) {
  Place place{std::move(name), {latitudeDeg, longitudeEastDeg, heightM}, EastDeg(longitudeEastDeg)};
  if (longitudeEastDeg < 0) place.observer.longitudeEastDeg += 360;
  return place;
}

Place ParsePlace(std::string_view text) {
  if (const auto located = ParseLocator(platform::Trim(text))) return *located;
  const std::vector<std::string> parts = platform::SplitAt(text, ',');
  if (parts.size() > 3) {
    throw WrongUse("--at: '" + std::string(text) + "' has " + std::to_string(parts.size()) +
                   " numbers, and three are the most (the decimal sign is a point). " + std::string(kWanted));
  }
  if (parts.size() < 2) throw WrongUse(std::string(kWanted) + ", and '" + std::string(text) + "' is none of them");
  const double latitudeDeg = NumberBetween(parts[0], -90, 90, "--at, degrees north");
  const double longitudeDeg = NumberBetween(parts[1], -180, 360, "--at, degrees east");
  const double heightM = parts.size() < 3 ? 0 : NumberBetween(parts[2], kLowestM, kHighestM, "--at, metres");
  return MakePlace("", latitudeDeg, longitudeDeg, heightM);
}

std::string PlaceText(const Place& place) {
  const auto side = [](double degrees, const char* positive, const char* negative) {
    return platform::PointText(std::abs(degrees)) + (degrees < 0 ? negative : positive);
  };
  return (place.name.empty() ? "" : place.name + ", ") + side(place.observer.latitudeDeg, " N, ", " S, ") +
         side(place.longitudeEastDeg, " E, ", " W, ") + platform::PointText(place.observer.heightM) + " m";
}

double EastDeg(double longitudeDeg) {
  constexpr double kNineDecimals = 1e9;  // turning round the Earth leaves digits behind that nobody gave
  const double turned = std::remainder(longitudeDeg, 360.0);
  if (turned == longitudeDeg && turned != -180.0) return longitudeDeg;
  return turned == -180.0 ? 180.0 : Rounded(turned, kNineDecimals);
}

}  // namespace kestrava::cli
