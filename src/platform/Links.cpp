#include "platform/Links.h"

#include <algorithm>
#include <filesystem>

#include "platform/Doors.h"
#include "platform/Quote.h"
#include "platform/Text.h"

namespace kestrava::platform {

namespace {

bool MayStandInAScheme(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

/// What stands in front of the colon (RFC 3986, section 3.1); empty if there is no scheme.
std::string_view SchemeOf(std::string_view link) {
  const std::size_t colon = link.find(':');
  if (colon == std::string_view::npos) return {};
  const std::string_view scheme = link.substr(0, colon);
  return std::all_of(scheme.begin(), scheme.end(), MayStandInAScheme) ? scheme : std::string_view{};
}

std::optional<std::string> FileOfTheFolder(std::string_view name) {
  const auto folder = std::filesystem::path(AppDir).lexically_normal();
  const auto file = (folder / name).lexically_normal();
  if (AppDir.empty() || !BeginsWith(file.string(), folder.string()) || !FileExists(file)) return std::nullopt;
  return file.string();
}

bool LooksLikeAnAddress(std::string_view link) {
  const std::string_view host = link.substr(0, link.find('/'));
  return !BeginsWith(host, ".") && Contains(host, ".") && !Contains(host, " ") && !Contains(host, "\\");
}

}  // namespace

std::optional<std::string> TargetOfLink(std::string_view link) {
  constexpr std::string_view kFileStart = "file://";
  const std::string_view scheme = SchemeOf(link);
  for (const std::string_view allowed : {"http", "https", "mailto"}) {
    if (EqualsIgnoringCase(scheme, allowed)) return std::string(link);
  }
  if (EqualsIgnoringCase(link.substr(0, kFileStart.size()), kFileStart)) {
    return FileOfTheFolder(link.substr(kFileStart.size()));
  }
  if (!scheme.empty() || link.empty()) return std::nullopt;
  if (auto file = FileOfTheFolder(link)) return file;
  return LooksLikeAnAddress(link) ? std::optional("https://" + std::string(link)) : std::nullopt;
}

void OpenLink(std::string_view link) {
  const auto target = TargetOfLink(link);
  const std::string named = "The link \"" + QuoteOf(link) + "\" ";
  if (!target) {
    TheMessages().Show(named + "was not opened: only web addresses, mail addresses and files of your data folder are.");
  } else if (!TheOpener().Open(*target)) {
    TheMessages().Show(named + "could not be opened: this machine names no program for it.");
  }
}

}  // namespace kestrava::platform
