// Every address on the Internet that the station knows, in one place. Nothing else names a host.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrava::platform::endpoints {

/// Server of the element files that the shipped groups.dat names.
inline constexpr std::string_view kElementServer = "celestrak.org";

/// The maker's server: help page and satellite database. A name that is reserved for such use until there is one, so
/// that no stranger's machine is ever asked.
inline constexpr std::string_view kMakerServer = "kestrava.example";
inline constexpr std::string_view kHelpPath = "/faq.html";
inline constexpr std::string_view kDatabasePath = "/kestrava.dat";

/// Server of the Daytime protocol, TCP.
inline constexpr std::string_view kTimeServer = "time.nist.gov";
inline constexpr std::uint16_t kTimePort = 13;

/// The help page on the Internet, as a browser wants it.
inline std::string HelpAddress() {
  return "https://" + std::string(kMakerServer) + std::string(kHelpPath);
}

}  // namespace kestrava::platform::endpoints
