#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/Text.h"
#include "platform/TextFile.h"

#include "support/House.h"

namespace kestrava::platform {
namespace {

using Lines = std::vector<std::string>;
using TextFiles = testing::House;

TEST(Texts, PositionsCountCharactersNotBytes) {
  EXPECT_EQ(Left("Zürich", 2), "Zü");
  EXPECT_EQ(Left("abc", 5), "abc");
  EXPECT_EQ(Left("abc", 0), "");
  EXPECT_EQ(Mid("Zürich", 2, 2), "ür");
  EXPECT_EQ(Mid("Zürich", 3), "rich");
  EXPECT_EQ(Mid("abc", 9), "");
  EXPECT_EQ(LengthInCharacters("Zürich"), 6);
}

TEST(Texts, TrimTakesBlanksOffBothEnds) {
  EXPECT_EQ(Trim(" \ta b\r "), "a b");
  EXPECT_EQ(Trim(" \t "), "");
  EXPECT_EQ(Trim(""), "");
}

TEST(Texts, SmallTools) {
  EXPECT_EQ(ToCapitals("abc ü 1"), "ABC ü 1");
  EXPECT_TRUE(EqualsIgnoringCase("HorizonFIle", "horizonfile"));
  EXPECT_FALSE(EqualsIgnoringCase("abc", "abcd"));
  EXPECT_EQ(ReplaceAll("a.b.c", ".", ", "), "a, b, c");
  EXPECT_EQ(ReplaceAll("aaa", "aa", "b"), "ba");
  EXPECT_EQ(ReplaceAll("abc", "", "x"), "abc");
  EXPECT_TRUE(BeginsWith("Uplink 145", "Uplink"));
  EXPECT_FALSE(BeginsWith("Up", "Uplink"));
  EXPECT_TRUE(Contains("MISSION", "ISS"));
  EXPECT_EQ(SplitAt("a,,b,", ','), (Lines{"a", "", "b", ""}));
  EXPECT_EQ(SplitAt("", ','), (Lines{""}));
}

TEST(SatelliteNames, AreTheFirstFifteenCharactersTrimmed) {
  EXPECT_EQ(SatelliteName("ISS (ZARYA)             "), "ISS (ZARYA)");
  EXPECT_EQ(SatelliteName("ABCDEFGHIJKLMNOPQRST"), "ABCDEFGHIJKLMNO");
  EXPECT_EQ(SatelliteName("ABCDEFGHIJKLMN OP"), "ABCDEFGHIJKLMN");
  EXPECT_EQ(SatelliteName("ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜÄ"), "ÄÖÜÄÖÜÄÖÜÄÖÜÄÖÜ") << "characters, not bytes";
}

TEST(SatelliteNames, LoseTheLineNumberOfThePublishedForm) {
  EXPECT_EQ(SatelliteName("0 ISS (ZARYA)"), "ISS (ZARYA)");
  EXPECT_EQ(SatelliteName("0 ABCDEFGHIJKLMNOPQ"), "ABCDEFGHIJKLMNO");
  EXPECT_EQ(SatelliteName("01 SAT"), "01 SAT");
}

TEST(SatelliteNames, HaveBlanksForCommaAndQuote) {
  EXPECT_EQ(SatelliteName("A,B\"C"), "A B C");
  EXPECT_EQ(SatelliteName("\"SAT\""), "SAT");
}

TEST(Encodings, ValidUtf8StandsAndTheRestIsLatin1) {
  bool wasLatin1 = true;
  EXPECT_EQ(ToUtf8("Zürich", &wasLatin1), "Zürich");
  EXPECT_FALSE(wasLatin1);
  EXPECT_EQ(ToUtf8("Z\xFCrich", &wasLatin1), "Zürich");
  EXPECT_TRUE(wasLatin1);
  EXPECT_EQ(ToUtf8("\xEF\xBB\xBFname"), "name") << "the byte-order mark goes";
}

TEST(Encodings, IllFormedUtf8IsNotTakenAsUtf8) {
  for (const char* bytes : {"\xC0\xAF", "\xE0\x80\x80", "\xED\xA0\x80", "\xF4\x90\x80\x80", "\xF0\x80\x80\x80", "\xC3",
                            "\xE2\x82", "\x80", "\xFF", "\xF5\x80\x80\x80"}) {
    bool wasLatin1 = false;
    const std::string text = ToUtf8(bytes, &wasLatin1);
    EXPECT_TRUE(wasLatin1);
    bool again = true;
    EXPECT_EQ(ToUtf8(text, &again), text);
    EXPECT_FALSE(again) << "what comes out is UTF-8";
    EXPECT_EQ(ToLatin1(text), bytes) << "and goes back";
  }
  bool wasLatin1 = true;
  ToUtf8("\xF0\x9F\x9B\xB0 \xE2\x82\xAC", &wasLatin1);
  EXPECT_FALSE(wasLatin1);
}

TEST(Encodings, WhatLatin1DoesNotHoldBecomesAQuestionMark) {
  EXPECT_EQ(ToLatin1("Zürich 5 € Ā"), "Z\xFCrich 5 ? ?");
}

TEST(LineReader, TakesEveryKindOfLineEnd) {
  EXPECT_EQ(SplitLines("a\r\nb\nc\rd"), (Lines{"a", "b", "c", "d"}));
  EXPECT_EQ(SplitLines("a\n\nb\n"), (Lines{"a", "", "b"}));
  EXPECT_EQ(SplitLines("\r\n\r\n"), (Lines{"", ""}));
  EXPECT_EQ(SplitLines("\r\r\n\n"), (Lines{"", "", ""}));
  EXPECT_EQ(SplitLines(""), Lines{});
  EXPECT_EQ(SplitLines("\xEF\xBB\xBF"), Lines{});
  EXPECT_EQ(SplitLines("\xEF\xBB\xBF"
                       "first\n"),
            (Lines{"first"}));
}

TEST_F(TextFiles, AreReadLineByLineUntilTheirEnd) {
  Put("faves.dat", "one\r\n\r\nZ\xFCrich");
  TextReader reader(InAppDir("FAVES.DAT"));
  EXPECT_FALSE(reader.AtEnd());
  EXPECT_EQ(reader.ReadLine(), "one");
  EXPECT_EQ(reader.ReadLine(), "");
  EXPECT_EQ(reader.ReadLine(), "Zürich");
  EXPECT_TRUE(reader.AtEnd());
  EXPECT_TRUE(reader.WasLatin1());
  try {
    reader.ReadLine();
    ADD_FAILURE() << "no fault";
  } catch (const Fault& fault) {
    EXPECT_STREQ(fault.what(), "Input past end of file");
  }
}

TEST_F(TextFiles, MissingFileIsAFault) {
  EXPECT_THROW(TextReader(InAppDir("none.dat")), Fault);
}

TEST_F(TextFiles, AreWrittenBackInKind) {
  TextWriter utf8;
  utf8.WriteLine("Zürich");
  utf8.WriteLine("");
  utf8.ReplaceFile(InAppDir("a.dat"));
  EXPECT_EQ(Content("a.dat"), "Zürich\n\n");
  TextWriter latin1(true);
  latin1.WriteLine("Zürich");
  latin1.ReplaceFile(InAppDir("b.dat"));
  EXPECT_EQ(Content("b.dat"), "Z\xFCrich\n");
}

TEST_F(TextFiles, TheDeviceMayBreakAtEveryOffsetAndTheOldFileIsWhole) {
  const std::string whole = "first line\nsecond line\n";
  Put("a.dat", "old\n");
  TextWriter writer;
  writer.WriteLine("first line");
  writer.WriteLine("second line");
  for (std::size_t offset = 0; offset < whole.size(); ++offset) {
    files.BreakWriteAfter(offset);
    EXPECT_THROW(writer.ReplaceFile(InAppDir("a.dat")), Fault) << offset;
    files.Mend();
    EXPECT_EQ(Content("a.dat"), "old\n") << offset;
    files.BreakReadAfter(offset % 4);
    EXPECT_THROW(TextReader(InAppDir("a.dat")), Fault) << offset;
    files.Mend();
  }
  writer.ReplaceFile(InAppDir("a.dat"));
  EXPECT_EQ(Content("a.dat"), whole);
}

TEST(Addresses, TheFileNameStandsBehindTheLastSlash) {
  EXPECT_EQ(FileNameOfAddress("celestrak.org/NORAD/elements/amateur.txt"), "amateur.txt");
  EXPECT_EQ(FileNameOfAddress("local.txt"), "local.txt");
  EXPECT_EQ(FileNameOfAddress("a/"), "");
}

}  // namespace
}  // namespace kestrava::platform
