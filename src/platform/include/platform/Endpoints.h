// Every address on the Internet that the station knows, in one place. Nothing else names a host.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace kestrava::platform::endpoints {

/// Server of the element files that the shipped groups.dat names.
inline constexpr std::string_view kElementServer = "celestrak.org";
inline constexpr std::string_view kElementPath = "/NORAD/elements/";

/// Where the maker reads requests for satellite information, and the beginning of a web search's address. Empty until
/// there is one: then the station says that it cannot do it.
inline constexpr std::string_view kMakerMail = "";
inline constexpr std::string_view kSearchStart = "https://duckduckgo.com/?q=";

/// The maker's server: help page and satellite database. Empty until there is one: then nothing that needs it is
/// opened or asked.
inline constexpr std::string_view kMakerServer = "";
/// The site that credit lines name. A name that is reserved for such use until there is one, so that no stranger's
/// machine is ever meant.
inline constexpr std::string_view kMakerSite = "kestrava.example";
inline constexpr std::string_view kHelpPath = "/faq.html";
inline constexpr std::string_view kDatabasePath = "/kestrava.dat";

/// Server of the Daytime protocol, TCP.
inline constexpr std::string_view kTimeServer = "time.nist.gov";
inline constexpr std::uint16_t kTimePort = 13;

/// The help page on the Internet, as a browser wants it; empty while the maker has no server.
std::string HelpAddress(std::string_view server = kMakerServer);

/// The address of an element file as groups.dat has it, without a scheme.
inline std::string ElementAddress(std::string_view file) {
  return std::string(kElementServer) + std::string(kElementPath) + std::string(file);
}

/// A letter to the maker with a subject, as the mail program wants it; empty while the maker has no address.
std::string MailAddress(std::string_view subject, std::string_view maker = kMakerMail);

/// A web search for words parted by blanks; empty if there is no search host.
std::string SearchAddress(std::string_view words);

}  // namespace kestrava::platform::endpoints
