// The text that a view shows about a satellite.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kestrava::views2d {

/// What stands there while nothing is known.
inline constexpr const char* kNoInformation = "No Information available\r\n";

class DataText {
 public:
  /// What satellite.dat says of a satellite, or else kNoInformation. A missing satellite.dat is said in a message each
  /// time: while one stands, further calls (a resize, a tick) must not pile up more of them and get nothing.
  std::optional<std::string> Of(std::string_view name);

 private:
  bool reading_ = false;
};

}  // namespace kestrava::views2d
