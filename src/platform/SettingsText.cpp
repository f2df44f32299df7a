#include "platform/SettingsText.h"

#include <algorithm>
#include <cstdint>
#include <utility>

#include "platform/Quote.h"
#include "platform/Text.h"

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

constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c) {
  return kBlanks.find(c) != std::string_view::npos;
}

/// A key as it stands in the file: what would not come back as a part of it is escaped.
std::string EscapedKey(std::string_view key) {
  std::string escaped = Escaped(key, true);
  if (!escaped.empty() && (IsBlank(escaped.back()))) escaped.insert(escaped.size() - 1, 1, '\\');
  if (!escaped.empty() && (IsBlank(escaped[0]) || escaped[0] == '#')) escaped.insert(0, 1, '\\');
  return escaped;
}

/// An escaped blank is a part of the key.
std::string_view WithoutOuterBlanks(std::string_view key) {
  key.remove_prefix(std::min(key.find_first_not_of(kBlanks), key.size()));
  std::size_t end = 0;
  for (std::size_t i = 0; i < key.size(); ++i) {
    if (IsBlank(key[i])) continue;
    if (key[i] == '\\' && i + 1 < key.size()) ++i;
    end = i + 1;
  }
  return key.substr(0, end);
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

std::optional<SettingsText> SettingsText::Parse(std::string_view bytes) {
  if (bytes.find('\0') != std::string_view::npos) return std::nullopt;
  if (BeginsWith(bytes, kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  SettingsText text;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find_first_of("\r\n");
    text.Read(bytes.substr(0, end));
    if (end == std::string_view::npos) break;
    bytes.remove_prefix(end + (bytes.substr(end, 2) == "\r\n" ? 2 : 1));
  }
  return text;
}

void SettingsText::Read(std::string_view line) {
  const std::string utf8 = InUtf8(std::string(line));
  const std::string_view whole = utf8;
  lines_.push_back({std::string(line), false, ""});
  const auto note = [&](const char* what) {
    oddities_.push_back({lines_.size(), std::string(what) + ": '" + QuoteOf(whole) + "'"});
  };
  const std::string_view content = Trim(whole);
  if (content.empty() || content[0] == '#') return;
  const std::size_t equals = PlaceOfEqualsSign(whole);
  if (equals == std::string_view::npos) {
    note("is no setting");
    return;
  }
  if (utf8 != line) note("is not UTF-8 and was read as Latin-1");
  const std::string_view key = WithoutOuterBlanks(whole.substr(0, equals));
  const bool spaced = key.data() + key.size() != whole.data() + equals;
  const std::string_view value = whole.substr(equals + 1);
  lines_.back().isSetting = true;
  lines_.back().key = Unescaped(key);
  values_.insert_or_assign(lines_.back().key, Unescaped(spaced ? Trim(value) : value));
}

void SettingsText::Set(std::string_view key, std::string_view value) {
  const std::string storedValue = InUtf8(std::string(value));
  const auto isThisKey = [&](const Line& line) { return line.isSetting && KeyEqual{}(line.key, key); };
  const auto found = std::find_if(lines_.rbegin(), lines_.rend(), isThisKey);
  const std::string storedKey = found == lines_.rend() ? InUtf8(std::string(key)) : found->key;
  const std::string text = EscapedKey(storedKey) + "=" + Escaped(storedValue, false);
  if (found == lines_.rend()) {
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(PlaceOfNew(text)), {text, true, storedKey});
  } else {
    found->text = text;
  }
  values_.insert_or_assign(storedKey, storedValue);
}

/// What the user has written above the first setting stays there.
std::size_t SettingsText::PlaceOfNew(std::string_view text) const {
  std::size_t place = 0;
  std::size_t first = lines_.size();
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    if (!lines_[i].isSetting) continue;
    first = std::min(first, i);
    if (lines_[i].text < text) place = i + 1;
  }
  if (place > 0 || first == 0) return place;
  return first == lines_.size() ? first : first + 1;
}

std::string SettingsText::Bytes() const {
  std::string bytes;
  if (!lines_.empty() && BeginsWith(lines_[0].text, kByteOrderMark)) bytes = "\n";  // a key's own, not the file's
  for (const Line& line : lines_) bytes += line.text + "\n";
  return bytes;
}

}  // namespace kestrava::platform
