#include <gtest/gtest.h>

#include "shell/FloppyTransfer.h"

#include "support/House.h"

namespace kestrava::shell {
namespace {

constexpr auto kQuestion = "Copy ALL Keplerian element files onto a Floppy disk ?";
constexpr auto kNotReady = "Floppy Drive A: is not ready, or no Floppy disk is inserted";

class FloppyTransfer : public testing::House {
 protected:
  FloppyTransfer() {
    files.MakeFolder("/media/stick");
    files.SetRemovableMedia({"/media/stick", "/media/other"});
    Put("amateur.txt", "A");
    Put("weather.txt", "W");
    tables_.GroupList[1].Address = "celestrak.org/NORAD/elements/amateur.txt";
    tables_.GroupList[2].Address = "weather.txt";
  }
  orbit::Tables tables_;
};

TEST_F(FloppyTransfer, CopiesTheFilesOfAllGroupsToTheFirstMedium) {
  messages.ExpectQuestion(kQuestion, true);
  messages.ExpectMessage("2 Keplerian files copied to Floppy disk");
  messages.ExpectMessage("The copied files are in /media/stick.");
  TransferElementsToFloppy(tables_);
  EXPECT_EQ(files.Content("/media/stick/amateur.txt"), "A");
  EXPECT_EQ(files.Content("/media/stick/weather.txt"), "W");
  EXPECT_EQ(messages.Titles().front(), "Keplerian Data Transfer");
}

TEST_F(FloppyTransfer, RowFortyIsCopiedAndEmptyAddressesArePassedOver) {
  tables_ = {};
  tables_.GroupList[40].Address = "celestrak.org/weather.txt";
  messages.ExpectQuestion(kQuestion, true);
  messages.ExpectMessage("1 Keplerian files copied to Floppy disk");
  messages.ExpectMessage("The copied files are in /media/stick.");
  TransferElementsToFloppy(tables_);
}

TEST_F(FloppyTransfer, NoStillShowsTheCountOfZero) {
  messages.ExpectQuestion(kQuestion, false);
  messages.ExpectMessage("0 Keplerian files copied to Floppy disk");
  TransferElementsToFloppy(tables_);
  EXPECT_FALSE(files.Exists("/media/stick/amateur.txt"));
}

TEST_F(FloppyTransfer, WithoutAMediumItIsNotReadyAndNoCountIsShown) {
  files.SetRemovableMedia({});
  messages.ExpectQuestion(kQuestion, true);
  messages.ExpectMessage(kNotReady);
  TransferElementsToFloppy(tables_);
}

TEST_F(FloppyTransfer, AMediumThatGoesAwayBetweenTwoFilesIsNotReady) {
  files.BreakFile("/media/stick/weather.txt", platform::Fault::DiskNotReady());
  messages.ExpectQuestion(kQuestion, true);
  messages.ExpectMessage(kNotReady);
  messages.ExpectMessage("The copied files are in /media/stick.");
  TransferElementsToFloppy(tables_);
}

TEST_F(FloppyTransfer, AFileThatCannotBeCopiedForAnotherReasonIsPassedOver) {
  files.Remove("/house/amateur.txt");
  messages.ExpectQuestion(kQuestion, true);
  messages.ExpectMessage("1 Keplerian files copied to Floppy disk");
  messages.ExpectMessage("The copied files are in /media/stick.");
  TransferElementsToFloppy(tables_);
  EXPECT_EQ(files.Content("/media/stick/weather.txt"), "W");
  EXPECT_EQ(messages.Texts().back(),
            "The copied files are in /media/stick.\n\nNot copied:\namateur.txt (File not found)");
}

TEST_F(FloppyTransfer, OfManyFilesThatCouldNotBeCopiedTenAreNamedAndTheRestIsCounted) {
  for (int row = 1; row <= 40; ++row) tables_.GroupList[row].Address = "none" + std::to_string(row) + ".txt";
  messages.ExpectQuestion(kQuestion, true);
  messages.ExpectMessage("0 Keplerian files copied to Floppy disk");
  messages.ExpectMessage("none10.txt (File not found)\nand 30 more");
  TransferElementsToFloppy(tables_);
  EXPECT_EQ(messages.Texts().back().rfind("Not copied:\nnone1.txt", 0), 0U) << messages.Texts().back();
}

TEST_F(FloppyTransfer, AFullMediumIsPassedOverToo) {
  files.BreakWriteAfter(1);
  messages.ExpectQuestion(kQuestion, true);
  messages.ExpectMessage("1 Keplerian files copied to Floppy disk");
  messages.ExpectMessage("weather.txt (Disk full)");
  TransferElementsToFloppy(tables_);
}

}  // namespace
}  // namespace kestrava::shell
