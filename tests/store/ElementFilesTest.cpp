#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "store/ElementFiles.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

constexpr std::string_view kTrap = "Test list";

class ElementFiles : public testing::House {
 protected:
  static std::string Set(const std::string& name, const std::string& epoch = "26318.92882759") {
    return name + "\n1 07530U 74089B   " + epoch + " -.00000031  00000-0  83259-4 0  9999\n" +
           "2 07530 101.6660 350.5859 0011799 260.7489 115.8236 12.53630761975916\n";
  }
  static std::string Header(int lines) {
    std::string text;
    for (int i = 0; i < lines; ++i) text += "header\n";
    return text;
  }
};

TEST_F(ElementFiles, AFileWithoutAHeaderGivesMinusOne) {
  Put("a.txt", Set("OSCAR 7"));
  EXPECT_EQ(FindFirstKepLine("a.txt"), -1);
}

TEST_F(ElementFiles, AMissingFileGivesMinusOneToo) {
  EXPECT_EQ(FindFirstKepLine("nowhere.txt"), -1);
}

TEST_F(ElementFiles, AFirstSetAtLineFiveGivesThree) {
  Put("a.txt", Header(4) + Set("OSCAR 7"));
  EXPECT_EQ(FindFirstKepLine("a.txt"), 3);
  EXPECT_EQ(ListSatellites("a.txt", kTrap), std::vector<std::string>{"OSCAR 7"});
}

TEST_F(ElementFiles, AHeaderLineThatLooksLikeLineOneWithoutAnEpochIsPassedOver) {
  Put("a.txt", "1 is the number of this file\n" + Set("OSCAR 7"));
  EXPECT_EQ(FindFirstKepLine("a.txt"), 0);
  EXPECT_EQ(ListSatellites("a.txt", kTrap), std::vector<std::string>{"OSCAR 7"});
}

TEST_F(ElementFiles, AFileOfFiveHundredHeaderLinesGivesZero) {
  Put("a.txt", Header(500) + Set("OSCAR 7"));
  EXPECT_EQ(FindFirstKepLine("a.txt"), 0);
}

TEST_F(ElementFiles, ASetWithItsLineOneAtFourHundredIsTheLastThatIsFound) {
  Put("a.txt", Header(399) + Set("OSCAR 7"));
  EXPECT_EQ(FindFirstKepLine("a.txt"), 398);
  Put("b.txt", Header(400) + Set("OSCAR 7"));
  EXPECT_EQ(FindFirstKepLine("b.txt"), 0);
}

TEST_F(ElementFiles, AFileWithoutASetGivesZero) {
  Put("a.txt", "nothing\nto see\n");
  EXPECT_EQ(FindFirstKepLine("a.txt"), 0);
  Put("b.txt", "");
  EXPECT_EQ(FindFirstKepLine("b.txt"), 0);
}

TEST_F(ElementFiles, TheSearchYieldsOnceForEachLineThatItPasses) {
  Put("a.txt", Header(4) + Set("OSCAR 7"));
  const int before = eventLoop.YieldCount();
  FindFirstKepLine("a.txt");
  EXPECT_EQ(eventLoop.YieldCount() - before, 5);
}

TEST_F(ElementFiles, AFaultIsLoggedWithTheFilesName) {
  Put("a.txt", Set("OSCAR 7"));
  files.BreakReadAfter(10);
  EXPECT_EQ(FindFirstKepLine("a.txt"), 0);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Device I/O error CAT:a.txt - Global FindFirstKepLine"});
  EXPECT_NE(ErrorLog().at(0).find("Device I/O error CAT:a.txt"), std::string::npos) << ErrorLog().at(0);
}

TEST_F(ElementFiles, NamesAreCutToFifteenCharactersAndTrimmed) {
  Put("a.txt", Set("OSCAR 7 (AO-7)          ") + Set("ABCDEFGHIJKLMNOPQ"));
  EXPECT_EQ(ListSatellites("a.txt", kTrap), (std::vector<std::string>{"OSCAR 7 (AO-7)", "ABCDEFGHIJKLMNO"}));
}

TEST_F(ElementFiles, ASetWithAnEpochOfZeroIsLeftOut) {
  Put("a.txt", Set("FIRST") + Set("NONE", "00000.00000000") + Set("LAST"));
  EXPECT_EQ(ListSatellites("a.txt", kTrap), (std::vector<std::string>{"FIRST", "LAST"}));
}

TEST_F(ElementFiles, ABlankNameLineEndsTheList) {
  Put("a.txt", Set("FIRST") + Set("   ") + Set("LAST"));
  EXPECT_EQ(ListSatellites("a.txt", kTrap), std::vector<std::string>{"FIRST"});
}

TEST_F(ElementFiles, ANameWithoutItsLinesIsNotListed) {
  Put("a.txt", Set("FIRST") + "LONELY\n");
  EXPECT_EQ(ListSatellites("a.txt", kTrap), std::vector<std::string>{"FIRST"});
}

TEST_F(ElementFiles, ASetThatBreaksOffBeforeItsSecondLineIsLoggedAndListed) {
  const std::string set = Set("HALF");
  Put("a.txt", Set("FIRST") + set.substr(0, set.find("\n2 ") + 1));
  EXPECT_EQ(ListSatellites("a.txt", kTrap), (std::vector<std::string>{"FIRST", "HALF"}));
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Input past end of file - Test list"});
}

TEST_F(ElementFiles, AnEmptyFileHasNoSatellites) {
  Put("a.txt", "");
  EXPECT_TRUE(ListSatellites("a.txt", kTrap).empty());
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Input past end of file - Test list"});
}

TEST_F(ElementFiles, TheListOfAMissingFileIsAFaultOfTheCaller) {
  EXPECT_THROW(ListSatellites("nowhere.txt", kTrap), platform::Fault);
}

TEST_F(ElementFiles, TheFileOfAGroupStandsBehindTheLastSlashOfItsAddress) {
  EXPECT_EQ(ElementFileOf({"Amateur", "celestrak.org/NORAD/elements/amateur.txt", "0"}), "amateur.txt");
  EXPECT_EQ(ElementFileOf({"Mine", "mykeps.txt", "1"}), "mykeps.txt");
}

}  // namespace
}  // namespace kestrava::store
