#include "platform/SettingsText.h"

#include <algorithm>
#include <cstdint>
#include <utility>
#include <vector>

#include "platform/Text.h"
#include "platform/TextFile.h"

namespace kestrava::platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

char Folded(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

std::string Escaped(std::string_view text, bool isKey) {
  std::string line;
  line.reserve(text.size());
  for (const char c : text) {
    switch (c) {
      case '\\':
        line += "\\\\";
        break;
      case '\n':
        line += "\\n";
        break;
      case '\r':
        line += "\\r";
        break;
      case '\0':
        line += "\\0";
        break;
      case '=':
        line += isKey ? "\\=" : "=";
        break;
      default:
        line += c;
    }
  }
  return line;
}

std::string Unescaped(std::string_view line) {
  std::string text;
  text.reserve(line.size());
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] != '\\' || i + 1 == line.size()) {
      text += line[i];
      continue;
    }
    switch (line[++i]) {
      case 'n':
        text += '\n';
        break;
      case 'r':
        text += '\r';
        break;
      case '0':
        text += '\0';
        break;
      default:
        text += line[i];
    }
  }
  return text;
}

/// A text as it stands if that is UTF-8, its byte-order marks and all.
std::string InUtf8(const std::string& text) {
  return IsUtf8(text) ? text : ToUtf8(text);
}

std::size_t PlaceOfEqualsSign(std::string_view line) {
  for (std::size_t i = 0; i < line.size(); ++i) {
    if (line[i] == '=') return i;
    if (line[i] == '\\') ++i;
  }
  return std::string_view::npos;
}

}  // namespace

std::size_t KeyHash::operator()(std::string_view key) const {
  std::uint64_t hash = 14695981039346656037U;  // FNV-1a
  for (const char c : key) hash = (hash ^ static_cast<unsigned char>(Folded(c))) * 1099511628211U;
  return hash;
}

bool KeyEqual::operator()(std::string_view a, std::string_view b) const {
  return EqualsIgnoringCase(a, b);
}

std::string SettingsToText(const SettingsMap& settings) {
  std::vector<std::string> lines;
  for (const auto& [key, value] : settings) {
    lines.push_back(Escaped(InUtf8(key), true) + "=" + Escaped(InUtf8(value), false) + "\n");
  }
  std::sort(lines.begin(), lines.end());
  std::string text;
  if (!lines.empty() && BeginsWith(lines[0], kByteOrderMark)) text = "\n";  // a key's own, not the file's
  for (const std::string& line : lines) text += line;
  return text;
}

std::optional<SettingsMap> SettingsFromText(std::string_view text) {
  if (text.find('\0') != std::string_view::npos) return std::nullopt;
  bool wasLatin1 = false;
  const std::vector<std::string> lines = SplitLines(text, &wasLatin1);
  if (wasLatin1) return std::nullopt;
  SettingsMap settings;
  for (const std::string& line : lines) {
    if (Trim(line).empty()) continue;
    const std::size_t equals = PlaceOfEqualsSign(line);
    if (equals == std::string_view::npos) return std::nullopt;
    const std::string_view whole = line;
    settings.insert_or_assign(Unescaped(whole.substr(0, equals)), Unescaped(whole.substr(equals + 1)));
  }
  return settings;
}

}  // namespace kestrava::platform
