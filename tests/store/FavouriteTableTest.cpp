#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "store/FavouriteTable.h"
#include "store/Favourites.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

class FavouriteTable : public testing::House {
 protected:
  orbit::Tables tables;

  std::string& Name(int row) { return tables.FaveList.at(row).Name; }
  void Fill(int count) {
    for (int i = 1; i <= count; ++i) Name(i) = "S" + std::to_string(i);
    tables.FaveCount = static_cast<std::int16_t>(count);
  }
  std::vector<std::string> Names() {
    std::vector<std::string> names;
    for (int i = 1; i <= orbit::kFaveRows && !Name(i).empty(); ++i) names.push_back(Name(i));
    return names;
  }
};

using NameList = std::vector<std::string>;

TEST_F(FavouriteTable, ATickedNameTakesTheFirstEmptyRow) {
  SetFave(tables, "ISS (ZARYA)", true);
  SetFave(tables, "AO-07", true);
  EXPECT_EQ(Names(), (NameList{"ISS (ZARYA)", "AO-07"}));
  EXPECT_EQ(tables.FaveCount, 2);
}

TEST_F(FavouriteTable, ATickedNameFillsAGapAndItsRowIsTheCount) {
  Fill(4);
  Name(2).clear();
  SetFave(tables, "NEW", true);
  EXPECT_EQ(Names(), (NameList{"S1", "NEW", "S3", "S4"}));
  EXPECT_EQ(tables.FaveCount, 2) << "the row that was taken, whatever stands behind it";
}

TEST_F(FavouriteTable, ANameThatIsThereIsAddedOnceMore) {
  Fill(1);
  SetFave(tables, "S1", true);
  EXPECT_EQ(Names(), (NameList{"S1", "S1"}));
}

TEST_F(FavouriteTable, AnUntickedNameClosesItsGap) {
  Fill(4);
  SetFave(tables, "S2", false);
  EXPECT_EQ(Names(), (NameList{"S1", "S3", "S4"}));
  EXPECT_EQ(tables.FaveCount, 3);
}

TEST_F(FavouriteTable, AnUntickedNameIsComparedWithoutBlanksAtTheEnds) {
  Fill(2);
  Name(1) = " S1 ";
  SetFave(tables, "S1", false);
  EXPECT_EQ(Names(), (NameList{"S2"}));
}

TEST_F(FavouriteTable, OnlyTheFirstOfTwoEqualNamesGoes) {
  for (const char* name : {"A", "B", "A"}) SetFave(tables, name, true);
  SetFave(tables, "A", false);
  EXPECT_EQ(Names(), (NameList{"B", "A"}));
}

TEST_F(FavouriteTable, AnUntickedNameThatIsNotThereChangesNothing) {
  Fill(2);
  tables.FaveCount = 7;
  SetFave(tables, "OTHER", false);
  EXPECT_EQ(Names(), (NameList{"S1", "S2"}));
  EXPECT_EQ(tables.FaveCount, 7) << "the procedure ends before it counts";
}

TEST_F(FavouriteTable, OnlyNamesMove) {
  Fill(3);
  tables.FaveList[2].El = 12;
  tables.FaveList[3].El = 34;
  SetFave(tables, "S2", false);
  EXPECT_EQ(Name(2), "S3");
  EXPECT_EQ(tables.FaveList[2].El, 12) << "until the next tick of the map";
}

TEST_F(FavouriteTable, TheLastRowTakesAName) {
  Fill(499);
  SetFave(tables, "LAST", true);
  EXPECT_EQ(Name(500), "LAST");
  EXPECT_EQ(tables.FaveCount, 500);
  EXPECT_EQ(FavouriteCountText(tables), "500 of 499 favourites");
}

TEST_F(FavouriteTable, PastTheLastRowIsTheBoundsError) {
  Fill(500);
  try {
    SetFave(tables, "ONE MORE", true);
    ADD_FAILURE() << "no fault";
  } catch (const platform::Fault& fault) {
    EXPECT_STREQ(fault.what(), "Subscript out of range");
  }
  EXPECT_EQ(tables.FaveCount, 500);
  EXPECT_EQ(Names().size(), 500u);
}

TEST_F(FavouriteTable, ANameInTheLastRowIsNotFoundToBeTakenOut) {
  Fill(500);
  SetFave(tables, "S500", false);
  EXPECT_EQ(Name(500), "S500");
  EXPECT_EQ(tables.FaveCount, 500);
}

TEST_F(FavouriteTable, TheLastRowMovesDownIntoAGap) {
  Fill(500);
  SetFave(tables, "S1", false);
  EXPECT_EQ(Name(1), "S2");
  EXPECT_EQ(Name(499), "S500");
  EXPECT_EQ(Name(500), "");
  EXPECT_EQ(tables.FaveCount, 499);
}

TEST_F(FavouriteTable, TheLastRowIsNeverSaved) {
  Fill(500);
  SaveFaves(tables);
  TakeFaults();
  const std::string file = Content("faves.dat");
  EXPECT_NE(file.find("S499\n"), std::string::npos);
  EXPECT_EQ(file.find("S500"), std::string::npos);
}

TEST_F(FavouriteTable, ANameIsAFavouriteOnlyIfARowIsExactlyIt) {
  Fill(2);
  EXPECT_TRUE(InFaves(tables, "S2"));
  EXPECT_FALSE(InFaves(tables, "s2"));
  EXPECT_FALSE(InFaves(tables, "S2 "));
  EXPECT_FALSE(InFaves(tables, "S"));
  EXPECT_FALSE(InFaves(tables, ""));
}

TEST_F(FavouriteTable, BehindAGapNoNameIsAFavourite) {
  Fill(3);
  Name(2).clear();
  EXPECT_TRUE(InFaves(tables, "S1"));
  EXPECT_FALSE(InFaves(tables, "S3"));
}

TEST_F(FavouriteTable, TheLastRowIsAFavouriteToo) {
  Fill(500);
  EXPECT_TRUE(InFaves(tables, "S500"));
}

TEST_F(FavouriteTable, MadePrimaryAFavouriteChangesPlacesWithTheFirst) {
  Fill(3);
  EXPECT_EQ(MakePrimaryFavourite(tables, "S3"), "S1");
  EXPECT_EQ(Names(), (NameList{"S3", "S2", "S1"}));
  EXPECT_EQ(Name(0), "");
}

TEST_F(FavouriteTable, MadePrimaryTheFirstStaysFirst) {
  Fill(2);
  EXPECT_EQ(MakePrimaryFavourite(tables, "S1"), "S1");
  EXPECT_EQ(Names(), (NameList{"S1", "S2"}));
}

TEST_F(FavouriteTable, MadePrimaryANameThatIsNoFavouriteSendsTheOldFirstOneToRowNought) {
  Fill(2);
  EXPECT_EQ(MakePrimaryFavourite(tables, "OTHER"), "S1");
  EXPECT_EQ(Names(), (NameList{"OTHER", "S2"}));
  EXPECT_EQ(Name(0), "S1");
  EXPECT_EQ(tables.FaveCount, 2);
}

TEST_F(FavouriteTable, AllFavouritesGoneLeaveAnEmptyFile) {
  Fill(2);
  SaveFaves(tables);
  EXPECT_EQ(Content("faves.dat"), "S1\nS2\n");
  SetFave(tables, "S1", false);
  SetFave(tables, "S2", false);
  SaveFaves(tables);
  EXPECT_TRUE(files.Exists("/house/faves.dat"));
  EXPECT_EQ(Content("faves.dat"), "");
}

TEST_F(FavouriteTable, FavouritesThatNoElementsAreKnownOfAreFound) {
  Fill(3);
  EXPECT_EQ(FavouritesUnknownTo(tables, "\"s1\",\"OTHER\",\"S3\""), (NameList{"S2"}));
  EXPECT_EQ(FavouritesUnknownTo(tables, "\"S1\",\"S2\",\"S3\""), NameList{});
}

TEST_F(FavouriteTable, AKillAtAnyMomentOfASaveLeavesTheOldFileWhole) {
  Fill(3);
  SaveFaves(tables);
  const std::string before = Content("faves.dat");
  SetFave(tables, "S1", false);
  for (std::size_t bytes = 0; bytes < 6; ++bytes) {
    files.BreakWriteAfter(bytes);
    EXPECT_THROW(SaveFaves(tables), platform::Fault) << bytes;
    EXPECT_EQ(Content("faves.dat"), before) << bytes;
    files.Mend();
  }
}

}  // namespace
}  // namespace kestrava::store
