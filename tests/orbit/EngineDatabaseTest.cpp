// What the engine loads from a folder: which files, which sets, and what it says about those left out.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "platform/Fault.h"
#include "platform/Files.h"

#include "ReferenceData.h"
#include "support/House.h"

namespace kestrava::orbit {
namespace {

/// A set that differs in name, catalogue number (five digits) and day of the year only.
std::string SetOf(const std::string& name, const std::string& number = "25544", const std::string& day = "318") {
  const auto withChecksum = [](std::string line) {
    int sum = 0;
    for (const char c : line) sum += c >= '0' && c <= '9' ? c - '0' : c == '-' ? 1 : 0;
    return line + static_cast<char>('0' + sum % 10);
  };
  return name + "\r\n" +
         withChecksum("1 " + number + "U 98067A   26" + day + ".89808844  .00002078  00000-0  38550-4 0  999") +
         "\r\n" + withChecksum("2 " + number + "  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 9561") +
         "\r\n";
}

class EngineDatabase : public testing::House {
 protected:
  const std::string& Names() {
    engine_.SetDataFolder(platform::AppDir);
    return engine_.SatelliteNames();
  }
  OrbitEngine engine_;
};

TEST_F(EngineDatabase, IsEmptyForAFolderWithoutElementFiles) {
  EXPECT_EQ(Names(), "");
  EXPECT_EQ(engine_.SatelliteCount(), 0);
  EXPECT_EQ(engine_.DataFolder(), platform::AppDir);
}

TEST_F(EngineDatabase, IsEmptyForAFolderThatIsNotThere) {
  engine_.SetDataFolder("/nowhere/at/all/");
  EXPECT_EQ(engine_.SatelliteCount(), 0);
  EXPECT_EQ(engine_.DataFolder(), "/nowhere/at/all/");
}

TEST_F(EngineDatabase, GivesNamesInQuotesBetweenCommas) {
  Put("a.txt", SetOf("ONE") + SetOf("TWO", "00002") + SetOf("A NAME OF MORE THAN FIFTEEN", "00003"));
  EXPECT_EQ(Names(), "\"ONE\",\"TWO\",\"A NAME OF MORE\"");
  EXPECT_EQ(engine_.SatelliteCount(), 3);
}

TEST_F(EngineDatabase, ReadsTheFilesThatTheGroupsName) {
  Put("groups.dat",
      "Amateur,celestrak.org/NORAD/elements/amateur.txt,0\r\nMine, own.tle ,1\r\nGone,celestrak.org/gone.txt,0\r\n");
  Put("amateur.txt", SetOf("AMATEUR"));
  Put("own.tle", SetOf("OWN", "00002"));
  Put("other.txt", SetOf("OTHER", "00003"));
  EXPECT_EQ(Names(), "\"AMATEUR\",\"OWN\"");
}

TEST_F(EngineDatabase, StopsAtABlankLineOfTheGroups) {
  Put("groups.dat", "A,x/a.txt,0\n\nB,x/b.txt,0\n");
  Put("a.txt", SetOf("A"));
  Put("b.txt", SetOf("B", "00002"));
  EXPECT_EQ(Names(), "\"A\"");
}

TEST_F(EngineDatabase, FollowsTheRuleOfTheGroupReaderForALineWithoutAComma) {
  Put("groups.dat", "a.txt\nhost/b.txt\nB,,0\n,x/c.txt,0\n");
  Put("a.txt", SetOf("A"));
  Put("b.txt", SetOf("B", "00002"));
  Put("c.txt", SetOf("C", "00003"));
  EXPECT_EQ(Names(), "\"A\",\"B\",\"C\"");
}

TEST_F(EngineDatabase, ReadsAFileOnceThatTwoGroupsName) {
  Put("groups.dat", "A,x/a.txt,0\nB,y/A.TXT,0\n");
  Put("a.txt", SetOf("A"));
  EXPECT_EQ(Names(), "\"A\"");
}

TEST_F(EngineDatabase, FindsFilesWithoutRegardToCase) {
  Put("Groups.DAT", "A,x/Amateur.txt,0\n");
  Put("AMATEUR.TXT", SetOf("A"));
  EXPECT_EQ(Names(), "\"A\"");
}

TEST_F(EngineDatabase, ReadsEveryTextFileWithSetsWhereThereAreNoGroups) {
  Put("b.TXT", SetOf("B", "00002"));
  Put("a.txt", "some header\r\n" + SetOf("A"));
  Put("history.txt", "Version 1\r\n1 first change\r\n");
  Put("own.tle", SetOf("C", "00003"));
  Names();
  EXPECT_EQ(engine_.SatelliteCount(), 2);
  EXPECT_TRUE(engine_.Knows("A"));
  EXPECT_TRUE(engine_.Knows("B"));
}

TEST_F(EngineDatabase, TakesTheNewestOfSeveralSetsOfOneSatellite) {
  Put("a.txt", SetOf("X", "00001", "300") + SetOf("Y", "00002"));
  Put("b.txt", SetOf("X", "00001", "310"));
  Put("c.txt", SetOf("X", "00001", "305"));
  EXPECT_EQ(Names(), "\"X\",\"Y\"");
  EXPECT_EQ(engine_.Model("X").Epoch().wholeDays, 46322 + 10);
}

TEST_F(EngineDatabase, KeepsTheFirstOfSeveralSatellitesOfOneNameAndNamesTheOthersOnce) {
  Put("a.txt", SetOf("X", "00001", "300") + SetOf("X", "00002", "310") + SetOf("X", "00002", "311"));
  EXPECT_EQ(Names(), "\"X\"");
  EXPECT_EQ(engine_.Model("X").Epoch().wholeDays, 46322);
  const std::vector<std::string> faults = TakeFaults();
  ASSERT_EQ(faults.size(), 1U);
  EXPECT_EQ(faults[0], "Several satellites of one name, the first found stays; left out: X (2) - Engine DataFolder");
}

TEST_F(EngineDatabase, NamesTheSetsLeftOutOnceInTheLog) {
  std::string bad = SetOf("BAD", "00002");
  bad[bad.size() - 3] = bad[bad.size() - 3] == '0' ? '1' : '0';
  Put("a.txt", SetOf("GOOD") + bad + "SHORT\r\n1 00003U\r\n2 00003\r\n");
  EXPECT_EQ(Names(), "\"GOOD\"");
  OrbitEngine second;
  second.SetDataFolder(platform::AppDir);
  EXPECT_EQ(second.SatelliteCount(), 1);
  const std::vector<std::string> faults = TakeFaults();
  ASSERT_EQ(faults.size(), 1U);
  EXPECT_EQ(faults[0],
            "a.txt: 2 element sets left out: BAD (wrong checksum), SHORT (wrong length) - Engine DataFolder");
}

TEST_F(EngineDatabase, ReadsTheFolderAnewWhenItsFilesHaveChanged) {
  Put("a.txt", SetOf("OLD"));
  Names();
  Put("a.txt", SetOf("NEW"));
  EXPECT_EQ(engine_.SatelliteNames(), "\"OLD\"");  // until it is set again
  EXPECT_EQ(Names(), "\"NEW\"");
  EXPECT_FALSE(engine_.Knows("OLD"));
}

TEST_F(EngineDatabase, ReadsTheOtherFilesWhenOneCannotBeRead) {
  Put("a.txt", SetOf("A"));
  Put("b.txt", SetOf("B", "00002"));
  files.BreakFile(platform::InAppDir("a.txt"), platform::Fault::PermissionDenied());
  EXPECT_EQ(Names(), "\"B\"");
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Permission denied - Engine DataFolder"});
}

TEST_F(EngineDatabase, SaysOnceWhyTheGroupsCannotBeRead) {
  Put("groups.dat", "A,x/a.txt,0\n");
  Put("a.txt", SetOf("A"));
  files.BreakFile(platform::InAppDir("groups.dat"), platform::Fault::DeviceError());
  EXPECT_EQ(Names(), "");
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Device I/O error - Engine DataFolder"});
}

TEST_F(EngineDatabase, SurvivesADeviceThatBreaksAtAnyByte) {
  const std::string groups = "A,x/a.txt,0\nB,x/b.txt,0\n";
  Put("groups.dat", groups);
  Put("a.txt", SetOf("A"));
  Put("b.txt", SetOf("B", "00002"));
  const std::size_t all = groups.size() + SetOf("A").size() + SetOf("B", "00002").size();
  for (std::size_t bytes = 0; bytes <= all; bytes += 7) {
    files.BreakReadAfter(bytes);
    Names();
    EXPECT_LE(engine_.SatelliteCount(), 2);
    files.Mend();
    (void)TakeFaults();
  }
  EXPECT_EQ(Names(), "\"A\",\"B\"");
}

TEST_F(EngineDatabase, FindsEachOfThousandsOfNames) {
  std::string text;
  constexpr int kSets = 3000;
  for (int i = 0; i < kSets; ++i) {
    const std::string number = std::to_string(10000 + i);
    text += SetOf("SAT " + number, number);
  }
  Put("many.txt", text);
  Names();
  ASSERT_EQ(engine_.SatelliteCount(), kSets);
  for (int i = 0; i < kSets; ++i) ASSERT_TRUE(engine_.Knows("SAT " + std::to_string(10000 + i)));
  EXPECT_FALSE(engine_.Knows("SAT 9999"));
  EXPECT_FALSE(engine_.Knows(""));
}

}  // namespace
}  // namespace kestrava::orbit
