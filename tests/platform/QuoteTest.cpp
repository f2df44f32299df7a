#include <gtest/gtest.h>

#include "platform/Quote.h"
#include "platform/Text.h"

namespace kestrava::platform {
namespace {

TEST(Quotes, AnOrdinaryTextStandsAsItIs) {
  EXPECT_EQ(QuoteOf("Zürich, 47°"), "Zürich, 47°");
  EXPECT_EQ(QuoteOf(""), "");
}

TEST(Quotes, ALongTextIsCutAtTwoHundredCharacters) {
  const std::string whole(200, 'x');
  EXPECT_EQ(QuoteOf(whole), whole);
  EXPECT_EQ(QuoteOf(whole + "y"), whole + "...");
  std::string letters;
  for (int i = 0; i < 100000; ++i) letters += "ü";
  EXPECT_EQ(LengthInCharacters(QuoteOf(letters)), 203) << "characters, not bytes";
}

TEST(Quotes, ControlCharactersAreShownAsSuch) {
  EXPECT_EQ(QuoteOf("a\nb\r\tc\x1B[0m\x7F"), "a\\nb\\r\\tc\\x1B[0m\\x7F");
  EXPECT_EQ(QuoteOf(std::string(3, '\0')), "\\x00\\x00\\x00");
  EXPECT_EQ(QuoteOf("a\xE2\x80\xAE"
                    "b\xC2\x85"),
            "a\\x202Eb\\x85")
      << "marks that turn the writing, C1 controls";
}

TEST(Quotes, BytesThatAreNoUtf8AreReadAsLatin1) {
  EXPECT_EQ(QuoteOf("Z\xFCrich"), "Zürich");
}

}  // namespace
}  // namespace kestrava::platform
