#include <string>

#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "store/Locations.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

class Locations : public testing::House {
 protected:
  orbit::Tables tables;

  orbit::LocationRec& Row(int row) { return tables.LocationList.at(row); }
  static std::string Numbered(int count) {
    std::string lines;
    for (int i = 1; i <= count; ++i) lines += "0P" + std::to_string(i) + ";1.5;51.25;30\n";
    return lines;
  }
  std::string FaultOfLoad() {
    try {
      LoadLocations(tables);
    } catch (const platform::Fault& fault) {
      return fault.what();
    }
    return "none";
  }
};

TEST_F(Locations, AreReadWithLongitudeBeforeLatitude) {
  Put("Locations.dat", "1Home;1.5;51.25;30\n");
  LoadLocations(tables);
  EXPECT_EQ(Row(1).OnMap, "1");
  EXPECT_EQ(Row(1).Name, "Home");
  EXPECT_EQ(Row(1).Longitude, "1.5");
  EXPECT_EQ(Row(1).Latitude, "51.25");
  EXPECT_EQ(Row(1).HASL, 30);
  EXPECT_EQ(Row(2).Name, "");
}

TEST_F(Locations, ComeBackByteForByte) {
  const std::string file = "1Home;1.5;51.25;30\n0Cape Town;341.58;-33.93;-2\n";
  Put("Locations.dat", file);
  LoadLocations(tables);
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), file);
  EXPECT_FALSE(files.Exists("/house/Locations.dat.bak"));
}

TEST_F(Locations, AnythingButOneInFrontMeansNotOnTheMapAndIsDroppedFromTheName) {
  Put("Locations.dat", "Home;1.5;51.25;30\n");
  LoadLocations(tables);
  EXPECT_EQ(Row(1).OnMap, "0");
  EXPECT_EQ(Row(1).Name, "ome");
}

TEST_F(Locations, ALineThatBeginsWithASemicolonIsAllName) {
  Put("Locations.dat", ";1.5;51.25;30\n");
  LoadLocations(tables);
  EXPECT_EQ(Row(1).Name, "1.5;51.25;30") << "the first word does not see a delimiter in front of all else";
  EXPECT_EQ(Row(1).Longitude, "1.5");
}

TEST_F(Locations, AFileOfAPointMachineIsReadOnACommaMachineAndComesOutWithCommas) {
  locale.UseComma();
  Put("Locations.dat", "1Home;1.5;51.25;30\n");
  LoadLocations(tables);
  EXPECT_EQ(Row(1).Longitude, "1,5");
  EXPECT_EQ(Row(1).Latitude, "51,25");
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), "1Home;1,5;51,25;30\n");
}

TEST_F(Locations, AFileOfACommaMachineIsReadOnAPointMachine) {
  Put("Locations.dat", "1Home;1,5;51,25;30\n");
  LoadLocations(tables);
  EXPECT_EQ(Row(1).Longitude, "1.5");
  EXPECT_EQ(Row(1).Latitude, "51.25");
}

TEST_F(Locations, ABlankLineEndsTheReading) {
  Put("Locations.dat", "1A;1;2;3\n\n1B;1;2;3\n");
  LoadLocations(tables);
  EXPECT_EQ(Row(1).Name, "A");
  EXPECT_EQ(Row(2).Name, "");
}

TEST_F(Locations, LinesBehindABlankOneAreKeptAsideAtTheSaveAndNamed) {
  const std::string file = "1A;1;2;3\n\n1B;1;2;3\n";
  Put("Locations.dat", file);
  LoadLocations(tables);
  Row(1).OnMap = "0";
  messages.ExpectQuestion("1 line of Locations.dat is no place that Kestrava can read: 1B;1;2;3", true);
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), "0A;1;2;3\n");
  EXPECT_EQ(Content("Locations.dat.bak"), file);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{
                              "Left out of Locations.dat, kept in Locations.dat.bak: 1B;1;2;3 - Global SaveLocations"});
}

TEST_F(Locations, WhatWasNotChangedIsNotWrittenWhereLinesWouldBeLost) {
  for (const std::string file :
       {"1A;1;2;3\n\n1B;1;2;3\n", "1A;1;2;3\n1B;west;2;3\n1C;1;2;3\n", ";west;\n", "1;1;2;3\n1B;1;2;3\n"}) {
    Put("Locations.dat", file);
    FaultOfLoad();
    SaveLocations(tables);
    EXPECT_EQ(Content("Locations.dat"), file);
    EXPECT_FALSE(files.Exists("/house/Locations.dat.bak"));
  }
  const int before = files.ChangeCount();
  Put("Locations.dat", Numbered(3));
  LoadLocations(tables);
  SaveLocations(tables);
  EXPECT_EQ(files.ChangeCount(), before + 1) << "a file that is whole is left alone, too";
}

TEST_F(Locations, ASaveThatWouldLeaveRowsOutSaysSoFirstAndNoLeavesTheFileAsItIs) {
  const std::string file = "1A;1;2;3\n1B;west;2;3\n1C;1;2;3\n";
  Put("Locations.dat", file);
  EXPECT_EQ(FaultOfLoad(), "Type mismatch");
  tables.LocationList[2] = {"New", "2", "1", 3, "1"};
  messages.ExpectQuestion(
      "2 lines of Locations.dat are no places that Kestrava can read: 1B;west;2;3, 1C;1;2;3\n\nIf your change is "
      "stored, they are left out of the file; the file as it stands is kept as Locations.dat.bak. Store it?",
      false);
  EXPECT_THROW(SaveLocations(tables), LeftAsItIs);
  EXPECT_EQ(Content("Locations.dat"), file);
  EXPECT_FALSE(files.Exists("/house/Locations.dat.bak"));
}

TEST_F(Locations, TheQuestionShowsNoMoreOfALineThanFitsAndNoControlCharacters) {
  Put("Locations.dat", "1A;1;2;3\n1B" + std::string(33000, 'x') + "\n1\x01;west;2;3\n");
  FaultOfLoad();
  Row(1).OnMap = "0";
  messages.ExpectQuestion("1B" + std::string(78, 'x') + ", 1\\x01;west;2;3\n\n", false);
  EXPECT_THROW(SaveLocations(tables), LeftAsItIs);
}

TEST_F(Locations, OneThatTheUserTookOutIsNotKeptAside) {
  Put("Locations.dat", Numbered(2));
  LoadLocations(tables);
  tables.LocationList[2].Name.clear();
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), Numbered(1));
  EXPECT_FALSE(files.Exists("/house/Locations.dat.bak"));
}

TEST_F(Locations, ALineWithoutANameEndsTheListForEveryReaderAndIsKeptAside) {
  const std::string file = "1;1;2;3\n1B;1;2;3\n";
  Put("Locations.dat", file);
  LoadLocations(tables);
  EXPECT_EQ(Row(1).Name, "");
  EXPECT_EQ(Row(2).Name, "B");
  tables.LocationList[1] = {"New", "2", "1", 3, "1"};
  tables.LocationList[2] = {};
  messages.ExpectQuestion("2 lines of Locations.dat are no places", true);
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), "1New;1;2;3\n");
  EXPECT_EQ(Content("Locations.dat.bak"), file);
  EXPECT_EQ(TakeFaults().size(), 1U);
}

TEST_F(Locations, AWordThatIsNoNumberBreaksTheLoadOffWithTheRowsSoFar) {
  Put("Locations.dat", "1A;1;2;3\n1B;west;2;3\n1C;1;2;3\n");
  tables.LocationList[2].Name = "KEPT";
  EXPECT_EQ(FaultOfLoad(), "Type mismatch");
  EXPECT_EQ(Row(1).Name, "A");
  EXPECT_EQ(Row(2).Name, "KEPT");
}

TEST_F(Locations, WhatABrokenLoadDidNotReachIsKeptAsideAtTheSave) {
  const std::string file = "1A;1;2;3\n1B;west;2;3\n1C;1;2;3\n";
  Put("Locations.dat", file);
  EXPECT_EQ(FaultOfLoad(), "Type mismatch");
  Row(1).OnMap = "0";
  messages.ExpectQuestion("2 lines of Locations.dat", true);
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), "0A;1;2;3\n");
  EXPECT_EQ(Content("Locations.dat.bak"), file);
  const std::vector<std::string> faults = TakeFaults();
  ASSERT_EQ(faults.size(), 1U);
  EXPECT_NE(faults[0].find("1B;west;2;3, 1C;1;2;3"), std::string::npos) << faults[0];
}

TEST_F(Locations, AHeightBeyondSixteenBitsIsAnOverflow) {
  Put("Locations.dat", "1A;1;2;32768\n");
  EXPECT_EQ(FaultOfLoad(), "Overflow");
}

TEST_F(Locations, AMissingHeightIsLookedForAtTheBeginningOfTheLine) {
  Put("Locations.dat", "1A;1;2\n");
  EXPECT_EQ(FaultOfLoad(), "Type mismatch") << "word 4 of three is word 1";
}

TEST_F(Locations, AHundredFitIn) {
  Put("Locations.dat", Numbered(100));
  LoadLocations(tables);
  EXPECT_EQ(Row(100).Name, "P100");
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), Numbered(100));
  EXPECT_FALSE(files.Exists("/house/Locations.dat.bak"));
}

TEST_F(Locations, PastRowAHundredTheLoadBreaksOff) {
  Put("Locations.dat", Numbered(101));
  EXPECT_EQ(FaultOfLoad(), "Subscript out of range");
  EXPECT_EQ(Row(100).Name, "P100");
  Row(100).OnMap = "1";
  messages.ExpectQuestion("1 line of Locations.dat is no place", true);
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), Numbered(99) + "1P100;1.5;51.25;30\n");
  EXPECT_EQ(Content("Locations.dat.bak"), Numbered(101));
  EXPECT_EQ(TakeFaults(),
            std::vector<std::string>{"Left out of Locations.dat, kept in Locations.dat.bak: 0P101;1.5;51.25;30 - "
                                     "Global SaveLocations"});
}

TEST_F(Locations, RowAHundredIsNotCleared) {
  Put("Locations.dat", Numbered(100));
  LoadLocations(tables);
  Put("Locations.dat", Numbered(1));
  LoadLocations(tables);
  EXPECT_EQ(Row(2).Name, "");
  EXPECT_EQ(Row(99).Name, "");
  EXPECT_EQ(Row(100).Name, "P100");
}

TEST_F(Locations, AMissingFileIsAFault) {
  EXPECT_EQ(FaultOfLoad(), "File not found");
}

TEST_F(Locations, AFirstSaveMakesTheFile) {
  tables.LocationList[1] = {"Home", "51.25", "1.5", 30, "1"};
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), "1Home;1.5;51.25;30\n");
}

TEST_F(Locations, ALatin1FileIsWrittenBackAsLatin1) {
  Put("Locations.dat", "1K\xf6ln;353.05;50.94;50\n");
  LoadLocations(tables);
  EXPECT_EQ(Row(1).Name, "K\u00f6ln");
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), "1K\xf6ln;353.05;50.94;50\n");
}

TEST_F(Locations, ABrokenDeviceLeavesTheOldFileWhole) {
  const std::string file = "1A;1;2;3\n0B;1;2;3\n";
  Put("Locations.dat", file);
  for (std::size_t bytes = 0; bytes <= file.size() + 10; ++bytes) {
    Put("Locations.dat", file);
    LoadLocations(tables);
    tables.LocationList[2].Name = "Changed";
    files.BreakWriteAfter(bytes);
    bool whole = true;
    try {
      SaveLocations(tables);
    } catch (const platform::Fault&) {
      whole = false;
    }
    files.Mend();
    EXPECT_EQ(Content("Locations.dat"), whole ? "1A;1;2;3\n0Changed;1;2;3\n" : file) << bytes;
  }
}

}  // namespace
}  // namespace kestrava::store
