#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "store/ElementFiles.h"
#include "store/GroupTable.h"
#include "store/Groups.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

class GroupTable : public testing::House {
 protected:
  orbit::Tables tables;

  void Fill(int count) {
    for (int i = 1; i <= count; ++i) AddGroup(tables, {"G" + std::to_string(i), std::to_string(i) + ".txt", "1"});
  }
  std::string FileOfTable() {
    SaveGroups(tables);
    return Content("groups.dat");
  }
};

TEST_F(GroupTable, ANewGroupTakesTheNextRow) {
  Fill(1);
  EXPECT_EQ(AddGroup(tables, {"Mine", "mykeps.txt", "1"}), 2);
  EXPECT_EQ(tables.GroupCount, 2);
  EXPECT_EQ(FileOfTable(), "G1,1.txt,1\nMine,mykeps.txt,1\n");
}

TEST_F(GroupTable, FortyGroupsFitAndTheNextIsTheBoundsError) {
  Fill(40);
  const std::string before = FileOfTable();
  try {
    AddGroup(tables, {"One more", "x.txt", "1"});
    ADD_FAILURE() << "no fault";
  } catch (const platform::Fault& fault) {
    EXPECT_STREQ(fault.what(), "Subscript out of range");
  }
  EXPECT_EQ(tables.GroupCount, 40);
  EXPECT_EQ(FileOfTable(), before);
}

TEST_F(GroupTable, ARemovedGroupLeavesNoGapAndTheOthersKeepAllTheirFields) {
  Fill(2);
  AddGroup(tables, {"Net", "host/net.txt", "0"});
  RemoveGroup(tables, 2);
  EXPECT_EQ(tables.GroupCount, 2);
  EXPECT_EQ(FileOfTable(), "G1,1.txt,1\nNet,host/net.txt,0\n");
  EXPECT_EQ(tables.GroupList[3].Name, "");
}

TEST_F(GroupTable, OfAFullTableTheFirstAndTheLastCanBeRemoved) {
  Fill(40);
  RemoveGroup(tables, 40);
  RemoveGroup(tables, 1);
  EXPECT_EQ(tables.GroupCount, 38);
  EXPECT_EQ(tables.GroupList[1].Name, "G2");
  EXPECT_EQ(tables.GroupList[38].Name, "G39");
  EXPECT_EQ(tables.GroupList[39].Name, "");
}

TEST_F(GroupTable, ARowThatIsNotInUseCannotBeRemoved) {
  Fill(2);
  for (const int row : {-1, 0, 3, 41}) EXPECT_THROW(RemoveGroup(tables, row), platform::Fault) << row;
  EXPECT_EQ(tables.GroupCount, 2);
}

TEST_F(GroupTable, TheElementFileOfARemovedGroupStays) {
  Fill(1);
  Put("1.txt", "elements");
  RemoveGroup(tables, 1);
  EXPECT_EQ(Content("1.txt"), "elements");
}

TEST_F(GroupTable, TheServerIsKnownForTwentySevenGroups) {
  ASSERT_EQ(ServerGroups().size(), 27u);
  EXPECT_EQ(ServerGroups()[0].name, "Amateur");
  EXPECT_EQ(ServerGroups()[15].name, "Orbcomm");
  EXPECT_EQ(ServerGroups()[16].name, "Other Comms");
  EXPECT_EQ(ServerGroups()[26].name, "Experimental");
  for (std::size_t i = 1; i < ServerGroups().size(); ++i) {
    EXPECT_LT(ServerGroups()[i - 1].file, ServerGroups()[i].file) << "they stand in the order of their files";
  }
}

TEST_F(GroupTable, NamesAndFilesOfTheServersGroupsBelongTogether) {
  const std::pair<std::string_view, std::string_view> some[] = {
      {"Educational", "education.txt"},    {"Geostationary", "geo.txt"},
      {"GPS Navigation", "gps-ops.txt"},   {"Russian Navigation", "musson.txt"},
      {"Navy Navigation", "nnss.txt"},     {"Earth Resources", "resource.txt"},
      {"Search and Rescue", "sarsat.txt"}, {"Tracking and Data Relay", "tdrss.txt"},
      {"New Launches", "tle-new.txt"},     {"Bright and visual", "visual.txt"},
      {"Experimental", "x-comm.txt"}};
  for (const auto& [name, file] : some) {
    const ServerGroup* group = FindOffered(name);
    ASSERT_NE(group, nullptr) << name;
    EXPECT_EQ(group->file, file);
  }
}

TEST_F(GroupTable, AGroupThatTheServerHasEndedSaysSoAndCanStillBeChosen) {
  int ended = 0;
  for (const ServerGroup& group : ServerGroups()) {
    const std::string offered = OfferedText(group);
    EXPECT_EQ(FindOffered(offered), &group) << offered;
    if (group.ended) ++ended;
    EXPECT_EQ(offered.find("no longer published") != std::string::npos, group.ended) << offered;
  }
  EXPECT_EQ(ended, 5);
  EXPECT_EQ(OfferedText(*FindOffered("Gorizont (no longer published)")), "Gorizont (no longer published)");
}

TEST_F(GroupTable, ATextThatIsNotOfferedIsNoGroup) {
  EXPECT_EQ(FindOffered("Select a Celestrak Group"), nullptr);
  EXPECT_EQ(FindOffered(""), nullptr);
}

TEST_F(GroupTable, TheRowOfAServersGroupHasItsPlainNameAndItsAddress) {
  const orbit::GroupRec row = GroupOf(*FindOffered("Iridium (no longer published)"));
  EXPECT_EQ(row.Name, "Iridium");
  EXPECT_EQ(row.Address, "celestrak.org/NORAD/elements/iridium.txt");
  EXPECT_EQ(row.Manual, "0");
  EXPECT_EQ(ElementFileOf(row), "iridium.txt");
}

TEST_F(GroupTable, NoServersGroupHoldsWhatPartsTheFieldsOfItsLine) {
  for (const ServerGroup& group : ServerGroups()) {
    EXPECT_EQ(GroupOf(group).Name.find_first_of(kNotInGroups), std::string::npos);
    EXPECT_EQ(GroupOf(group).Address.find_first_of(kNotInGroups), std::string::npos);
    EXPECT_EQ(OfferedText(group).find("Select"), std::string::npos) << "it would be taken for the prompt";
  }
}

TEST_F(GroupTable, AddedServersGroupsComeBackFromTheFileByteForByte) {
  for (const ServerGroup& group : ServerGroups()) AddGroup(tables, GroupOf(group));
  const std::string file = FileOfTable();
  orbit::Tables again;
  LoadGroups(again);
  SaveGroups(again);
  EXPECT_EQ(again.GroupCount, 27);
  EXPECT_EQ(Content("groups.dat"), file);
}

TEST_F(GroupTable, ATypedAddressLosesItsScheme) {
  EXPECT_EQ(WithoutScheme(" https://host/path/a.txt "), "host/path/a.txt");
  EXPECT_EQ(WithoutScheme("http://host/a.txt"), "host/a.txt");
  EXPECT_EQ(WithoutScheme("host/a.txt"), "host/a.txt");
  EXPECT_EQ(WithoutScheme(""), "");
}

TEST_F(GroupTable, AKillAtAnyMomentOfASaveLeavesTheOldFileWhole) {
  Fill(3);
  const std::string before = FileOfTable();
  RemoveGroup(tables, 1);
  for (std::size_t bytes = 0; bytes < 22; ++bytes) {
    files.BreakWriteAfter(bytes);
    EXPECT_THROW(SaveGroups(tables), platform::Fault) << bytes;
    EXPECT_EQ(Content("groups.dat"), before) << bytes;
    files.Mend();
  }
}

}  // namespace
}  // namespace kestrava::store
