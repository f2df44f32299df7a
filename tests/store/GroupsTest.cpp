#include <string>

#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "store/Groups.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

class Groups : public testing::House {
 protected:
  orbit::Tables tables;

  const orbit::GroupRec& Row(int row) const { return tables.GroupList.at(row); }
  static std::string Numbered(int count) {
    std::string lines;
    for (int i = 1; i <= count; ++i) lines += "G" + std::to_string(i) + ",host/g" + std::to_string(i) + ".txt,0\n";
    return lines;
  }
};

TEST_F(Groups, AreReadWithNameAddressAndKind) {
  Put("groups.dat", "Amateur,celestrak.org/NORAD/elements/amateur.txt,0\nMine,mykeps.txt,1\n");
  LoadGroups(tables);
  EXPECT_EQ(tables.GroupCount, 2);
  EXPECT_EQ(Row(1).Name, "Amateur");
  EXPECT_EQ(Row(1).Address, "celestrak.org/NORAD/elements/amateur.txt");
  EXPECT_EQ(Row(1).Manual, "0");
  EXPECT_EQ(Row(2).Address, "mykeps.txt");
  EXPECT_EQ(Row(2).Manual, "1");
}

TEST_F(Groups, ComeBackByteForByte) {
  const std::string file = "Amateur,celestrak.org/NORAD/elements/amateur.txt,0\nMine,mykeps.txt,1\n";
  Put("groups.dat", file);
  LoadGroups(tables);
  SaveGroups(tables);
  EXPECT_EQ(Content("groups.dat"), file);
  EXPECT_FALSE(files.Exists("/house/groups.dat.bak"));
}

TEST_F(Groups, BlanksAroundTheAddressAreTakenOff) {
  Put("groups.dat", "Amateur,  host/a.txt ,0\n");
  LoadGroups(tables);
  EXPECT_EQ(Row(1).Address, "host/a.txt");
}

TEST_F(Groups, ABlankAtTheEndOfTheLineIsTakenAsTheKind) {
  Put("groups.dat", "Amateur,host/a.txt,0 \n");
  LoadGroups(tables);
  EXPECT_EQ(Row(1).Manual, " ");
}

TEST_F(Groups, ACommaInTheNameShiftsTheAddress) {
  Put("groups.dat", "Radio, amateur,host/a.txt,0\n");
  LoadGroups(tables);
  EXPECT_EQ(Row(1).Name, "Radio");
  EXPECT_EQ(Row(1).Address, "amateur");
  EXPECT_EQ(Row(1).Manual, "0");
}

TEST_F(Groups, ALineWithoutACommaIsItsOwnAddress) {
  Put("groups.dat", "amateur1\n");
  LoadGroups(tables);
  EXPECT_EQ(Row(1).Name, "amateur1");
  EXPECT_EQ(Row(1).Address, "amateur1");
  EXPECT_EQ(Row(1).Manual, "1");
}

TEST_F(Groups, ABlankLineEndsTheReading) {
  Put("groups.dat", "A,a.txt,0\n  \nB,b.txt,0\n");
  LoadGroups(tables);
  EXPECT_EQ(tables.GroupCount, 1);
  EXPECT_EQ(Row(2).Name, "");
}

TEST_F(Groups, LinesBehindABlankOneAreKeptAsideAtTheSaveAndNamed) {
  const std::string file = "A,a.txt,0\n\nB,b.txt,0\n";
  Put("groups.dat", file);
  LoadGroups(tables);
  SaveGroups(tables);
  EXPECT_EQ(Content("groups.dat"), "A,a.txt,0\n");
  EXPECT_EQ(Content("groups.dat.bak"), file);
  EXPECT_EQ(TakeFaults(),
            std::vector<std::string>{"Left out of groups.dat, kept in groups.dat.bak: B,b.txt,0 - Global SaveGroups"});
}

TEST_F(Groups, OneThatTheUserTookOutIsNotKeptAside) {
  Put("groups.dat", Numbered(3));
  LoadGroups(tables);
  tables.GroupCount = 2;
  SaveGroups(tables);
  EXPECT_EQ(Content("groups.dat"), Numbered(2));
  EXPECT_FALSE(files.Exists("/house/groups.dat.bak"));
}

TEST_F(Groups, BlankLinesAtTheEndAreNoLoss) {
  Put("groups.dat", "A,a.txt,0\n\n\n");
  LoadGroups(tables);
  SaveGroups(tables);
  EXPECT_FALSE(files.Exists("/house/groups.dat.bak"));
}

TEST_F(Groups, FortyFitIn) {
  Put("groups.dat", Numbered(40));
  LoadGroups(tables);
  EXPECT_EQ(tables.GroupCount, 40);
  EXPECT_EQ(Row(40).Name, "G40");
  SaveGroups(tables);
  EXPECT_EQ(Content("groups.dat"), Numbered(40));
  EXPECT_FALSE(files.Exists("/house/groups.dat.bak"));
}

TEST_F(Groups, PastRowFortyTheLoadBreaksOffWithTheCountAsItWas) {
  Put("groups.dat", Numbered(41));
  try {
    LoadGroups(tables);
    FAIL() << "no fault";
  } catch (const platform::Fault& fault) {
    EXPECT_STREQ(fault.what(), "Subscript out of range");
  }
  EXPECT_EQ(tables.GroupCount, 0);
  EXPECT_EQ(Row(40).Name, "G40");
}

TEST_F(Groups, ATableThatCouldNotBeReadWholeIsNeverWrittenOverItsFile) {
  Put("groups.dat", Numbered(41));
  EXPECT_THROW(LoadGroups(tables), platform::Fault);
  SaveGroups(tables);  // looked at, and nothing changed
  EXPECT_EQ(Content("groups.dat"), Numbered(41));
  tables.GroupList[1] = {"Mine", "mine.txt", "1"};
  tables.GroupCount = 1;
  try {
    SaveGroups(tables);
    FAIL() << "no fault";
  } catch (const platform::Fault& fault) {
    EXPECT_STREQ(fault.what(), "groups.dat could not be read whole, and is not written over");
  }
  EXPECT_EQ(Content("groups.dat"), Numbered(41));
  EXPECT_FALSE(files.Exists("/house/groups.dat.bak"));
}

TEST_F(Groups, OnlyRowsUpToTwentyAreCleared) {
  Put("groups.dat", Numbered(40));
  LoadGroups(tables);
  Put("groups.dat", Numbered(2));
  LoadGroups(tables);
  EXPECT_EQ(tables.GroupCount, 2);
  EXPECT_EQ(Row(3).Name, "");
  EXPECT_EQ(Row(20).Name, "");
  EXPECT_EQ(Row(21).Name, "G21");
  EXPECT_EQ(Row(40).Name, "G40");
}

TEST_F(Groups, AMissingFileIsAFault) {
  try {
    LoadGroups(tables);
    FAIL() << "no fault";
  } catch (const platform::Fault& fault) {
    EXPECT_STREQ(fault.what(), "File not found");
  }
}

TEST_F(Groups, RowsWithoutANameAreNotWrittenAndTheCountStays) {
  tables.GroupList[1] = {"A", "a.txt", "0"};
  tables.GroupList[2] = {" ", "b.txt", "0"};
  tables.GroupList[3] = {"C", "c.txt", "1"};
  tables.GroupCount = 3;
  SaveGroups(tables);
  EXPECT_EQ(Content("groups.dat"), "A,a.txt,0\nC,c.txt,1\n");
  EXPECT_EQ(tables.GroupCount, 3);
}

TEST_F(Groups, ALatin1FileIsWrittenBackAsLatin1) {
  Put("groups.dat", "Tr\xe4ume,a.txt,0\n");
  LoadGroups(tables);
  EXPECT_EQ(Row(1).Name, "Tr\u00e4ume");
  SaveGroups(tables);
  EXPECT_EQ(Content("groups.dat"), "Tr\xe4ume,a.txt,0\n");
}

TEST_F(Groups, CrLfAndAMissingLastLineEndAreRead) {
  Put("groups.dat", "A,a.txt,0\r\nB,b.txt,1");
  LoadGroups(tables);
  EXPECT_EQ(Row(1).Manual, "0");
  EXPECT_EQ(Row(2).Manual, "1");
}

TEST_F(Groups, ABrokenDeviceLeavesTheOldFileWhole) {
  const std::string file = "A,a.txt,0\n\nB,b.txt,0\n";
  Put("groups.dat", file);
  LoadGroups(tables);
  for (std::size_t bytes = 0; bytes <= file.size() + 10; ++bytes) {
    Put("groups.dat", file);
    files.BreakWriteAfter(bytes);
    bool whole = true;
    try {
      SaveGroups(tables);
    } catch (const platform::Fault&) {
      whole = false;
    }
    files.Mend();
    EXPECT_EQ(Content("groups.dat"), whole ? "A,a.txt,0\n" : file) << bytes;
  }
  TakeFaults();
}

}  // namespace
}  // namespace kestrava::store
