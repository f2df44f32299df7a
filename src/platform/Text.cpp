#include "platform/Text.h"

#include <algorithm>

namespace kestrava::platform {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr std::string_view kBlanks = " \t\r";

bool ContinuesCharacter(char c) {
  return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// Where the character number n (from 0) begins, or the end.
std::size_t ByteOfCharacter(std::string_view text, int n) {
  std::size_t at = 0;
  for (; n > 0 && at < text.size(); --n) {
    ++at;
    while (at < text.size() && ContinuesCharacter(text[at])) ++at;
  }
  return at;
}

char Capital(char c) {
  return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

/// Length of the well-formed UTF-8 character at the start of a text (Unicode 15, table 3-7), or 0.
std::size_t WellFormedLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U; };
  const unsigned lead = byte(0);
  if (lead < 0x80) return 1;
  const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                             : (lead & 0xF0U) == 0xE0       ? 3
                             : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                            : 0;
  for (std::size_t i = 1; i < length; ++i) {
    if ((byte(i) & 0xC0U) != 0x80U) return 0;
  }
  const bool tooLong = (lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xF0 && byte(1) < 0x90);
  const bool noCharacter = (lead == 0xED && byte(1) >= 0xA0) || (lead == 0xF4 && byte(1) >= 0x90);
  return tooLong || noCharacter ? 0 : length;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

std::string Left(std::string_view text, int n) {
  return std::string(text.substr(0, ByteOfCharacter(text, n)));
}

std::string Mid(std::string_view text, int start, int n) {
  text.remove_prefix(ByteOfCharacter(text, start - 1));
  return n < 0 ? std::string(text) : Left(text, n);
}

int LengthInCharacters(std::string_view text) {
  return static_cast<int>(std::count_if(text.begin(), text.end(), [](char c) { return !ContinuesCharacter(c); }));
}

std::string ToCapitals(std::string_view text) {
  std::string capitals(text);
  std::transform(capitals.begin(), capitals.end(), capitals.begin(), Capital);
  return capitals;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return Capital(x) == Capital(y); });
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string result;
  for (std::size_t at = text.find(from); at != std::string_view::npos; at = text.find(from)) {
    result.append(text.substr(0, at)).append(to);
    text.remove_prefix(at + from.size());
  }
  return result.append(text);
}

bool BeginsWith(std::string_view text, std::string_view start) {
  return text.substr(0, start.size()) == start;
}

bool Contains(std::string_view text, std::string_view part) {
  return text.find(part) != std::string_view::npos;
}

std::vector<std::string> SplitAt(std::string_view text, char separator) {
  std::vector<std::string> parts;
  for (std::size_t at = text.find(separator); at != std::string_view::npos; at = text.find(separator)) {
    parts.emplace_back(text.substr(0, at));
    text.remove_prefix(at + 1);
  }
  parts.emplace_back(text);
  return parts;
}

std::string SatelliteName(std::string_view nameLine) {
  if (BeginsWith(nameLine, "0 ")) nameLine.remove_prefix(2);
  std::string name = Left(nameLine, 15);
  std::replace_if(
      name.begin(), name.end(), [](char c) { return c == ',' || c == '"'; }, ' ');
  return std::string(Trim(name));
}

bool IsUtf8(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::size_t length = WellFormedLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

std::string ToUtf8(std::string_view bytes, bool* wasLatin1) {
  if (BeginsWith(bytes, kByteOrderMark)) bytes.remove_prefix(kByteOrderMark.size());
  const bool utf8 = IsUtf8(bytes);
  if (wasLatin1) *wasLatin1 = !utf8;
  if (utf8) return std::string(bytes);
  std::string text;
  text.reserve(bytes.size() + bytes.size() / 8);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x80) {
      text += c;
    } else {
      text += static_cast<char>(0xC0U | (byte >> 6U));
      text += static_cast<char>(0x80U | (byte & 0x3FU));
    }
  }
  return text;
}

std::string ToLatin1(std::string_view utf8) {
  std::string bytes;
  bytes.reserve(utf8.size());
  while (!utf8.empty()) {
    const auto lead = static_cast<unsigned char>(utf8[0]);
    const std::size_t length = ByteOfCharacter(utf8, 1);
    if (lead < 0x80) {
      bytes += utf8[0];
    } else if (length == 2 && (lead == 0xC2 || lead == 0xC3)) {
      bytes += static_cast<char>(((lead & 0x03U) << 6U) | (static_cast<unsigned char>(utf8[1]) & 0x3FU));
    } else {
      bytes += '?';
    }
    utf8.remove_prefix(length);
  }
  return bytes;
}

}  // namespace kestrava::platform
