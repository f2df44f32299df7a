#include "platform/Quote.h"

#include <cstdint>

#include "platform/Text.h"

namespace kestrava::platform {

namespace {

/// The code point of one well-formed UTF-8 character.
std::uint32_t CodePoint(std::string_view character) {
  const auto lead = static_cast<unsigned char>(character[0]);
  if (character.size() == 1) return lead;
  std::uint32_t code = lead & (0xFFU >> (character.size() + 1));
  for (const char c : character.substr(1)) code = code << 6U | (static_cast<unsigned char>(c) & 0x3FU);
  return code;
}

bool IsUnseen(std::uint32_t code) {
  const bool control = code < 0x20 || (code >= 0x7F && code < 0xA0);
  const bool mark = (code >= 0x200B && code <= 0x200F) || code == 0xFEFF;
  const bool turn = (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
  return control || mark || turn;
}

std::string Shown(std::uint32_t code) {
  if (code == '\n') return "\\n";
  if (code == '\r') return "\\r";
  if (code == '\t') return "\\t";
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string shown = "\\x";
  for (int shift = code > 0xFF ? 12 : 4; shift >= 0; shift -= 4) shown += kDigits[code >> shift & 0xFU];
  return shown;
}

std::size_t LengthOfCharacter(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  return byte < 0xC0 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

}  // namespace

std::string QuoteOf(std::string_view text) {
  const std::string utf8 = IsUtf8(text) ? std::string(text) : ToUtf8(text);
  std::string_view rest = utf8;
  std::string quote;
  for (int taken = 0; !rest.empty(); ++taken) {
    if (taken == kMostQuotedCharacters) return quote + "...";
    const std::string_view character = rest.substr(0, LengthOfCharacter(rest[0]));
    const std::uint32_t code = CodePoint(character);
    quote += IsUnseen(code) ? Shown(code) : std::string(character);
    rest.remove_prefix(character.size());
  }
  return quote;
}

}  // namespace kestrava::platform
