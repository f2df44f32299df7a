#include "Folding.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace kestrava::store {

namespace {

/// A row stands for all its letters: each is written as `plain` on a keyboard without it.
struct Letters {
  std::string_view plain;
  std::u32string_view marked;
};

// Latin-1 Supplement, Latin Extended-A, and of Latin Extended-B and Additional what Romanian and Vietnamese write.
constexpr std::array kLetters{
    Letters{"a", U"àáâãäåāăąÀÁÂÃÄÅĀĂĄạảấầẩẫậắằẳẵặẠẢẤẦẨẪẬẮẰẲẴẶ"},
    Letters{"ae", U"æÆ"},
    Letters{"c", U"çćĉċčÇĆĈĊČ"},
    Letters{"d", U"ďđðĎĐÐ"},
    Letters{"e", U"èéêëēĕėęěÈÉÊËĒĔĖĘĚẹẻẽếềểễệẸẺẼẾỀỂỄỆ"},
    Letters{"g", U"ĝğġģĜĞĠĢ"},
    Letters{"h", U"ĥħĤĦḥḤ"},
    Letters{"i", U"ìíîïĩīĭįıÌÍÎÏĨĪĬĮİỉịỈỊ"},
    Letters{"ij", U"ĳĲ"},
    Letters{"j", U"ĵĴ"},
    Letters{"k", U"ķĸĶ"},
    Letters{"l", U"ĺļľŀłĹĻĽĿŁ"},
    Letters{"n", U"ñńņňŉŋÑŃŅŇŊ"},
    Letters{"o", U"òóôõöøōŏőÒÓÔÕÖØŌŎŐơƠọỏốồổỗộớờởỡợỌỎỐỒỔỖỘỚỜỞỠỢ"},
    Letters{"oe", U"œŒ"},
    Letters{"r", U"ŕŗřŔŖŘ"},
    Letters{"s", U"śŝşšșſŚŜŞŠȘ"},
    Letters{"ss", U"ßẞ"},
    Letters{"t", U"ţťŧțŢŤŦȚ"},
    Letters{"th", U"þÞ"},
    Letters{"u", U"ùúûüũūŭůűųÙÚÛÜŨŪŬŮŰŲưƯụủứừửữựỤỦỨỪỬỮỰ"},
    Letters{"w", U"ŵŴ"},
    Letters{"y", U"ýÿŷÝŸŶỳỵỷỹỲỴỶỸ"},
    Letters{"z", U"źżžŹŻŽ"},
};

constexpr char32_t kLastWithMark = 0x1EFF;

/// The row of kLetters for each character, 1 and up; 0 for none.
std::array<std::uint8_t, kLastWithMark + 1> RowsByLetter() {
  std::array<std::uint8_t, kLastWithMark + 1> rows{};
  for (std::size_t i = 0; i < kLetters.size(); ++i) {
    for (const char32_t letter : kLetters[i].marked) rows[letter] = static_cast<std::uint8_t>(i + 1);
  }
  return rows;
}

/// The character at the start of a text and its length in bytes; a byte that begins none is taken for itself.
char32_t CharacterAt(std::string_view text, std::size_t& length) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned lead = byte(0);
  length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
  if (length == 1 || length > text.size()) {
    length = 1;
    return lead;
  }
  char32_t character = lead & (0xFFU >> (length + 1));
  for (std::size_t i = 1; i < length; ++i) character = character << 6U | (byte(i) & 0x3FU);
  return character;
}

bool IsPassedOver(char32_t c) {
  const bool combiningMark = c >= 0x300 && c <= 0x36F;
  return combiningMark || c == U'.' || c == U'\'' || c == U'`' || c == U'´' || c == U'\u2018' || c == U'\u2019';
}

bool IsAsciiLetterOrDigit(char32_t c) {
  return (c >= U'a' && c <= U'z') || (c >= U'A' && c <= U'Z') || (c >= U'0' && c <= U'9');
}

/// Signs beyond ASCII that part words: those of Latin-1, and the dashes, blanks and quotes of U+2000 to U+206F.
bool PartsWords(char32_t c) {
  return (c < 0xC0 && !IsAsciiLetterOrDigit(c)) || c == U'×' || c == U'÷' || (c >= 0x2000 && c <= 0x206F);
}

}  // namespace

std::string FoldForSearch(std::string_view utf8) {
  static const auto rows = RowsByLetter();
  std::string folded;
  folded.reserve(utf8.size());
  while (!utf8.empty()) {
    std::size_t length = 1;
    const char32_t c = CharacterAt(utf8, length);
    const std::size_t row = c <= kLastWithMark ? rows[c] : 0U;
    if (row > 0) {
      folded += kLetters[row - 1].plain;
    } else if (IsAsciiLetterOrDigit(c)) {
      folded += static_cast<char>(c >= U'A' && c <= U'Z' ? c - U'A' + U'a' : c);
    } else if (!IsPassedOver(c)) {
      if (!PartsWords(c)) {
        folded += utf8.substr(0, length);
      } else if (!folded.empty() && folded.back() != ' ') {
        folded += ' ';
      }
    }
    utf8.remove_prefix(length);
  }
  if (!folded.empty() && folded.back() == ' ') folded.pop_back();
  return folded;
}

}  // namespace kestrava::store
