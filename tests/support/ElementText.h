// Element sets as they stand in a file, for tests that need satellites of their own.
#pragma once

#include <string>
#include <string_view>

namespace kestrava::testing {

/// A line of an element set with its checksum behind it.
inline std::string WithChecksum(std::string line) {
  int sum = 0;
  for (const char c : line) sum += c >= '0' && c <= '9' ? c - '0' : c == '-' ? 1 : 0;
  return line + static_cast<char>('0' + sum % 10);
}

/// A set of 14 November 2026, by default on the orbit of a space station.
/// @param number  catalogue number, at most 99999
/// @param elements  columns 8 to 68 of line 2: inclination, node, eccentricity, perigee, anomaly, motion, revolution
inline std::string ElementText(
    std::string_view name, int number,
    std::string_view elements = "  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 9561") {
  std::string digits = std::to_string(number);
  digits.insert(0, 5 - digits.size(), '0');
  return std::string(name) + "\r\n" +
         WithChecksum("1 " + digits + "U 98067A   26318.89808844  .00000000  00000-0  00000-0 0  999") + "\r\n" +
         WithChecksum("2 " + digits + std::string(elements)) + "\r\n";
}

}  // namespace kestrava::testing
