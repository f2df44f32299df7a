#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "orbit/TextHelpers.h"
#include "platform/Fault.h"

#include "support/House.h"

namespace kestrava::orbit {
namespace {

using TextHelpers = testing::House;

TEST_F(TextHelpers, WordsAreCountedFromOne) {
  EXPECT_EQ(GetDelimitedWord("a,b", 1, ","), "a");
  EXPECT_EQ(GetDelimitedWord("a,b", 2, ","), "b");
  EXPECT_EQ(GetDelimitedWord("one;two;three", 2, ";"), "two");
}

TEST_F(TextHelpers, AWordPastTheEndStartsAgainFromTheBeginning) {
  EXPECT_EQ(GetDelimitedWord("a,b", 3, ","), "a");
  EXPECT_EQ(GetDelimitedWord("a,b", 4, ","), "b");
  EXPECT_EQ(GetDelimitedWord("alone", 2, ","), "alone");
}

TEST_F(TextHelpers, ATextWithoutTheDelimiterIsOneWord) {
  EXPECT_EQ(GetDelimitedWord("whole text", 1, ","), "whole text");
  EXPECT_EQ(GetDelimitedWord("", 1, ","), "");
  EXPECT_EQ(GetDelimitedWord("", 3, ","), "");
}

TEST_F(TextHelpers, ADelimiterInFrontOfAllElseIsNotSeenByTheFirstWord) {
  EXPECT_EQ(GetDelimitedWord(",b", 1, ","), ",b");
  EXPECT_EQ(GetDelimitedWord(",b", 2, ","), "b");
}

TEST_F(TextHelpers, AnEmptyWordInTheMiddleOrAtTheEndIsEmpty) {
  EXPECT_EQ(GetDelimitedWord("a,,c", 2, ","), "");
  EXPECT_EQ(GetDelimitedWord("a,", 2, ","), "");
}

TEST_F(TextHelpers, ALongDelimiterStepsOneCharacterPastItsFirst) {
  EXPECT_EQ(GetDelimitedWord("a::b", 2, "::"), ":b");
  EXPECT_EQ(GetDelimitedWord("a::b", 1, "::"), "a");
}

TEST_F(TextHelpers, ANumberBelowOneIsTheFirstWord) {
  EXPECT_EQ(GetDelimitedWord("a,b", 0, ","), "a");
  EXPECT_EQ(GetDelimitedWord("a,b", -5, ","), "a");
}

TEST_F(TextHelpers, CharactersOfSeveralBytesStayWhole) {
  EXPECT_EQ(GetDelimitedWord("K\u00f6ln;\u00c5s", 2, ";"), "\u00c5s");
  EXPECT_EQ(GetDelimitedWord("a\u2026b\u2026c", 2, "\u2026"), "b");
}

TEST_F(TextHelpers, AFaultInTheSearchIsShownOnceAndGivesNothing) {
  messages.ExpectMessage("DelimitedWord Error: 5. Invalid procedure call or argument");
  int tries = 0;
  EXPECT_EQ(WordOrMessage([&]() -> std::string {
              ++tries;
              throw platform::Fault::InvalidCall();
            }),
            "");
  EXPECT_EQ(tries, 1);
}

TEST_F(TextHelpers, AFavouriteHasExactlyThatName) {
  Tables tables;
  EXPECT_FALSE(IsFavourite(tables, ""));
  tables.FaveList[1].Name = "ISS (ZARYA)";
  tables.FaveList[2].Name = "NOAA 19";
  tables.FaveCount = 1;
  EXPECT_TRUE(IsFavourite(tables, "ISS (ZARYA)"));
  EXPECT_FALSE(IsFavourite(tables, "iss (zarya)"));
  EXPECT_FALSE(IsFavourite(tables, "ISS"));
  EXPECT_FALSE(IsFavourite(tables, "NOAA 19")) << "row 2 is not in use";
  tables.FaveCount = -1;
  EXPECT_FALSE(IsFavourite(tables, "ISS (ZARYA)"));
}

TEST_F(TextHelpers, SpokenNamesOfTheTable) {
  EXPECT_EQ(SpokenName("HST"), "The Hubble space telescope");
  EXPECT_EQ(SpokenName("ISS (ZARYA)"), "The International Space station");
  EXPECT_EQ(SpokenName("STS-107"), "The Space shuttle");
  EXPECT_EQ(SpokenName("PCSAT (NO-44)"), "P C SAT");
  EXPECT_EQ(SpokenName("STARSHINE 2"), "Starshiine 2");
  EXPECT_EQ(SpokenName("STARSHINE-2"), "Starshiine 2");
  EXPECT_EQ(SpokenName("STARSHINE 3"), "Starshiine 3");
}

TEST_F(TextHelpers, AnyNameWithIssInItIsTheStation) {
  EXPECT_EQ(SpokenName("MISSION 1"), "The International Space station");
}

TEST_F(TextHelpers, HyphensBecomeBlanksSoThatTheTwoOscarsAreSpokenAsTheyStand) {
  EXPECT_EQ(SpokenName("AO-40"), "AO 40");
  EXPECT_EQ(SpokenName("AO-13"), "AO 13");
  EXPECT_EQ(SpokenName("METEOR-M 2-1"), "METEOR M 2 1");
}

TEST_F(TextHelpers, ShortNameOfAFileThatIsThereTouchesNothing) {
  Put("pass.wav", "sound");
  const int changes = files.ChangeCount();
  EXPECT_EQ(ShortName("/house/pass.wav"), "/house/pass.wav");
  EXPECT_EQ(files.ChangeCount(), changes);
}

TEST_F(TextHelpers, ShortNameOfANewFileMakesItAndRemovesIt) {
  const int changes = files.ChangeCount();
  EXPECT_EQ(ShortName("/house/new.wav"), "/house/new.wav");
  EXPECT_EQ(files.ChangeCount(), changes + 2);
  EXPECT_FALSE(files.Exists("/house/new.wav"));
}

TEST_F(TextHelpers, ShortNameWhereNothingCanBeMadeIsAFaultOfTheCaller) {
  EXPECT_THROW(ShortName("/nowhere/new.wav"), platform::Fault);
}

TEST_F(TextHelpers, HasBlankLooksForABlank) {
  EXPECT_TRUE(HasBlank("my station"));
  EXPECT_FALSE(HasBlank("station"));
  EXPECT_FALSE(HasBlank(""));
}

}  // namespace
}  // namespace kestrava::orbit
