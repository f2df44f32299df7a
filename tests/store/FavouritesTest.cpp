#include <string>

#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "store/Favourites.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

constexpr std::string_view kKnown = R"~("ISS (ZARYA)","NOAA 19","METEOR-M 2","ABCDEFGHIJKLMNO")~";

class Favourites : public testing::House {
 protected:
  orbit::Tables tables;

  std::string Name(int row) const { return tables.FaveList.at(row).Name; }
  static std::string Numbered(int count) {
    std::string lines;
    for (int i = 1; i <= count; ++i) lines += "SAT " + std::to_string(i) + "\n";
    return lines;
  }
};

TEST_F(Favourites, AreReadInFileOrder) {
  Put("faves.dat", "NOAA 19\nISS (ZARYA)\n");
  LoadFaves(tables, kKnown);
  EXPECT_EQ(tables.FaveCount, 2);
  EXPECT_EQ(Name(1), "NOAA 19");
  EXPECT_EQ(Name(2), "ISS (ZARYA)");
  EXPECT_EQ(Name(0), "");
}

TEST_F(Favourites, AreRewrittenByteForByte) {
  const std::string file = "NOAA 19\nISS (ZARYA)\nMETEOR-M 2\n";
  Put("faves.dat", file);
  const int before = files.ChangeCount();
  LoadFaves(tables, kKnown);
  EXPECT_EQ(Content("faves.dat"), file);
  EXPECT_EQ(files.ChangeCount(), before + 1) << "every load rewrites the file";
  EXPECT_FALSE(files.Exists("/house/faves.dat.bak"));
}

TEST_F(Favourites, AreFoundWithoutRegardToCase) {
  Put("faves.dat", "noaa 19\n");
  LoadFaves(tables, kKnown);
  EXPECT_EQ(Name(1), "noaa 19");
}

TEST_F(Favourites, ALineOfASingleLetterPasses) {
  Put("faves.dat", "z\n");
  LoadFaves(tables, kKnown);
  EXPECT_EQ(tables.FaveCount, 1);
  EXPECT_EQ(Name(1), "z");
}

TEST_F(Favourites, BlanksAroundALineTakePartInTheSearchButNotInTheName) {
  Put("faves.dat", " 19\n NOAA 19\n");  // " 19" stands in the list, " NOAA 19" does not
  LoadFaves(tables, kKnown);
  EXPECT_EQ(tables.FaveCount, 1);
  EXPECT_EQ(Name(1), "19");
  EXPECT_EQ(TakeFaults().size(), 1U);
}

TEST_F(Favourites, BlankLinesDropOutAndTheRewriteClosesTheGaps) {
  Put("faves.dat", "\nNOAA 19\n   \n\nISS (ZARYA)\n");
  LoadFaves(tables, kKnown);
  EXPECT_EQ(Content("faves.dat"), "NOAA 19\nISS (ZARYA)\n");
  EXPECT_FALSE(files.Exists("/house/faves.dat.bak")) << "blank lines are no loss";
}

TEST_F(Favourites, OneThatTheEngineDoesNotKnowIsLostButKeptAsideAndNamed) {
  Put("faves.dat", "NOAA 19\nSPUTNIK 1\nSPUTNIK 2\n");
  LoadFaves(tables, kKnown);
  EXPECT_EQ(tables.FaveCount, 1);
  EXPECT_EQ(Content("faves.dat"), "NOAA 19\n");
  EXPECT_EQ(Content("faves.dat.bak"), "NOAA 19\nSPUTNIK 1\nSPUTNIK 2\n");
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Left out of faves.dat, kept in faves.dat.bak: SPUTNIK 1, SPUTNIK 2 "
                                                   "- Global SaveFaves"});
}

TEST_F(Favourites, TheLogNamesTwentyLostOnesAndCountsTheRest) {
  Put("faves.dat", Numbered(25));
  LoadFaves(tables, kKnown);
  const std::vector<std::string> faults = TakeFaults();
  ASSERT_EQ(faults.size(), 1U);
  EXPECT_NE(faults[0].find("SAT 20 and 5 more"), std::string::npos) << faults[0];
}

TEST_F(Favourites, ANameOfMoreThanFifteenCharactersIsCutAtTheSave) {
  tables.FaveList[1].Name = "ABCDEFGHIJKLMNOPQ";
  SaveFaves(tables);
  EXPECT_EQ(Content("faves.dat"), "ABCDEFGHIJKLMNO\n");
  LoadFaves(tables, kKnown);
  EXPECT_EQ(Name(1), "ABCDEFGHIJKLMNO");
}

TEST_F(Favourites, FifteenCharactersAreCharactersNotBytes) {
  tables.FaveList[1].Name = "\u00c4BCDEFGHIJKLMNOPQ";
  SaveFaves(tables);
  EXPECT_EQ(Content("faves.dat"), "\u00c4BCDEFGHIJKLMNO\n");
}

TEST_F(Favourites, RowsBehindTheLastAreCleared) {
  tables.FaveList[2].Name = "OLD";
  tables.FaveList[500].Name = "OLD TOO";
  Put("faves.dat", "NOAA 19\n");
  LoadFaves(tables, kKnown);
  EXPECT_EQ(Name(2), "");
  EXPECT_EQ(Name(500), "");
}

TEST_F(Favourites, AMissingFileIsAFaultThatMakesNoFile) {
  EXPECT_THROW(LoadFaves(tables, kKnown), platform::Fault);
  EXPECT_EQ(tables.FaveCount, 0);
  EXPECT_FALSE(files.Exists("/house/faves.dat"));
}

TEST_F(Favourites, TheFiveHundredthIsReadButNeverWritten) {
  Put("faves.dat", Numbered(500));
  LoadFaves(tables, Numbered(500));
  EXPECT_EQ(Name(500), "SAT 500");
  EXPECT_EQ(tables.FaveCount, 499);
  EXPECT_EQ(Content("faves.dat"), Numbered(499));
  EXPECT_EQ(Content("faves.dat.bak"), Numbered(500));
  EXPECT_EQ(TakeFaults(),
            std::vector<std::string>{"Left out of faves.dat, kept in faves.dat.bak: SAT 500 - Global SaveFaves"});
}

TEST_F(Favourites, PastRowFiveHundredTheLoadBreaksOffWithCountAndFileAsTheyWere) {
  tables.FaveCount = 7;
  Put("faves.dat", Numbered(501));
  try {
    LoadFaves(tables, Numbered(501));
    FAIL() << "no fault";
  } catch (const platform::Fault& fault) {
    EXPECT_STREQ(fault.what(), "Subscript out of range");
  }
  EXPECT_EQ(tables.FaveCount, 7);
  EXPECT_EQ(Name(500), "SAT 500");
  EXPECT_EQ(Content("faves.dat"), Numbered(501));
}

TEST_F(Favourites, ASaveKeepsTheGapsOfTheTableAndCountsTheNames) {
  tables.FaveList[1].Name = "A";
  tables.FaveList[4].Name = "B";
  tables.FaveList[5].Name = "  ";
  tables.FaveCount = 9;
  SaveFaves(tables);
  EXPECT_EQ(Content("faves.dat"), "A\nB\n");
  EXPECT_EQ(tables.FaveCount, 2);
  EXPECT_EQ(Name(4), "B");
}

TEST_F(Favourites, ASaveOfNoneLeavesAnEmptyFileAndNoCopy) {
  Put("faves.dat", "NOAA 19\n");
  SaveFaves(tables);
  EXPECT_TRUE(files.Exists("/house/faves.dat"));
  EXPECT_EQ(Content("faves.dat"), "");
  EXPECT_FALSE(files.Exists("/house/faves.dat.bak")) << "the user took it out himself";
}

TEST_F(Favourites, ALatin1FileIsWrittenBackAsLatin1) {
  Put("faves.dat", "\xc4RSAT\n");
  LoadFaves(tables, "\"\u00c4RSAT\"");
  EXPECT_EQ(Name(1), "\u00c4RSAT");
  EXPECT_EQ(Content("faves.dat"), "\xc4RSAT\n");
}

TEST_F(Favourites, ALatin1FileBecomesUtf8WhenANameDoesNotFit) {
  Put("faves.dat", "\xc4RSAT\n");
  tables.FaveList[1].Name = "\u03a9SAT";
  SaveFaves(tables);
  EXPECT_EQ(Content("faves.dat"), "\u03a9SAT\n");
}

TEST_F(Favourites, AForeignSpellingOfTheFileNameIsTheSameFile) {
  Put("FAVES.DAT", "NOAA 19\n");
  LoadFaves(tables, kKnown);
  EXPECT_EQ(tables.FaveCount, 1);
  EXPECT_EQ(Content("FAVES.DAT"), "NOAA 19\n");
}

TEST_F(Favourites, ABrokenDeviceLeavesTheOldFileWhole) {
  const std::string file = "SPUTNIK 1\nNOAA 19\nISS (ZARYA)\n";
  for (std::size_t bytes = 0; bytes <= 2 * file.size(); ++bytes) {
    Put("faves.dat", file);
    files.BreakWriteAfter(bytes);
    bool whole = true;
    try {
      LoadFaves(tables, kKnown);
    } catch (const platform::Fault&) {
      whole = false;
    }
    files.Mend();
    EXPECT_EQ(Content("faves.dat"), whole ? "NOAA 19\nISS (ZARYA)\n" : file) << bytes;
  }
  for (std::size_t bytes = 0; bytes < file.size(); ++bytes) {
    Put("faves.dat", file);
    files.BreakReadAfter(bytes);
    EXPECT_THROW(LoadFaves(tables, kKnown), platform::Fault) << bytes;
    files.Mend();
    EXPECT_EQ(Content("faves.dat"), file) << bytes;
  }
  TakeFaults();
}

}  // namespace
}  // namespace kestrava::store
