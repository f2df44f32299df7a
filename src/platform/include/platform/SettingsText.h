// The text of the settings file, for the store that keeps it: one line key=value for each setting, UTF-8, keys in
// order. A backslash escapes itself
// ("\\"), line ends ("\n", "\r"), a NUL ("\0") and, in keys, the equals sign ("\=").
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace kestrava::platform {

/// Hash and equality of keys without regard to case (ASCII letters), for lookup by any kind of text.
struct KeyHash {
  using is_transparent = void;
  std::size_t operator()(std::string_view key) const;
};
struct KeyEqual {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const;
};

using SettingsMap = std::unordered_map<std::string, std::string, KeyHash, KeyEqual>;

std::string SettingsToText(const SettingsMap& settings);

/// @return none if the text is damaged: not UTF-8, a NUL byte, or a line without "="
std::optional<SettingsMap> SettingsFromText(std::string_view text);

}  // namespace kestrava::platform
