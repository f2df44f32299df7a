#include "platform/WindowSizes.h"

#include "support/House.h"

namespace kestrava::platform {
namespace {

class KeptWindowSizes : public testing::House {
 protected:
  std::string Kept() { return files.Read(InAppDir(kWindowSizesFile)); }
};

TEST_F(KeptWindowSizes, AreReadAsTheyWereKept) {
  EXPECT_FALSE(KeptWindowSize("About").has_value());
  KeepWindowSize("Tabular", {900, 600, false});
  KeepWindowSize("frmCONGroups", {1000, 700, true});
  EXPECT_EQ(KeptWindowSize("Tabular"), (WindowSize{900, 600, false}));
  EXPECT_EQ(KeptWindowSize("frmCONGroups"), (WindowSize{1000, 700, true}));
  EXPECT_EQ(Kept(), "Tabular 900 600\nfrmCONGroups 1000 700 maximised\n");
}

TEST_F(KeptWindowSizes, ANewSizeTakesThePlaceOfTheOldOneAndLeavesOtherLinesAlone) {
  Put(std::string(kWindowSizesFile), "# mine\r\nTabular 1 2\r\nOther window\r\n");
  KeepWindowSize("Tabular", {900, 600, false});
  EXPECT_EQ(Kept(), "# mine\nOther window\nTabular 900 600\n");
}

TEST_F(KeptWindowSizes, ALineThatCannotBeReadIsNoSize) {
  for (const char* line : {"Tabular", "Tabular 900", "Tabular 900 x", "Tabular -1 600", "Tabular 0 600",
                           "Tabular 99999999999 600", "Tabular  900 600", "TabularX 900 600"}) {
    Put(std::string(kWindowSizesFile), std::string(line) + "\n");
    EXPECT_FALSE(KeptWindowSize("Tabular").has_value()) << line;
  }
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(KeptWindowSizes, WhatCannotBeWrittenIsLogged) {
  files.BreakWriteAfter(5);
  KeepWindowSize("Tabular", {900, 600, false});
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Disk full - Window sizes"});
}

}  // namespace
}  // namespace kestrava::platform
