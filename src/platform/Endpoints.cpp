#include "platform/Endpoints.h"

namespace kestrava::platform::endpoints {

namespace {

/// Text as a part of an address: letters, digits and harmless marks stand, other bytes become %XX.
std::string Escaped(std::string_view text, std::string_view forBlank) {
  constexpr std::string_view kHex = "0123456789ABCDEF";
  constexpr std::string_view kHarmless = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~()";
  std::string escaped;
  for (const char c : text) {
    if (c == ' ') {
      escaped += forBlank;
    } else if (kHarmless.find(c) != std::string_view::npos) {
      escaped += c;
    } else {
      const auto byte = static_cast<unsigned char>(c);
      escaped += {'%', kHex[byte >> 4U], kHex[byte & 15U]};
    }
  }
  return escaped;
}

}  // namespace

std::string HelpAddress(std::string_view server) {
  if (server.empty()) return {};
  return "https://" + std::string(server) + std::string(kHelpPath);
}

std::string MailAddress(std::string_view subject, std::string_view maker) {
  if (maker.empty()) return {};
  return "mailto:" + std::string(maker) + "?subject=" + Escaped(subject, "%20");
}

std::string SearchAddress(std::string_view words) {
  if (kSearchStart.empty()) return {};
  return std::string(kSearchStart) + Escaped(words, "+");
}

}  // namespace kestrava::platform::endpoints
