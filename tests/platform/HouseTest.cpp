// The scripted doors themselves: a test double that lets a mistake pass would make every test pass.
#include <gtest/gtest-spi.h>

#include "platform/Fault.h"
#include "platform/TextFile.h"

#include "support/House.h"

namespace kestrava::platform {
namespace {

using Lines = std::vector<std::string>;
using HouseRules = testing::House;
using kestrava::testing::RecordingSurface;
using kestrava::testing::ScriptedHouse;
using kestrava::testing::ScriptedMessages;

TEST(ScriptedMessageBoxes, AnUnexpectedMessageFailsTheTest) {
  EXPECT_NONFATAL_FAILURE(ScriptedMessages().Show("Disk full", "Kestrava", MessageIcon::kInformation),
                          "unexpected message: \"Disk full\"");
  EXPECT_NONFATAL_FAILURE(ScriptedMessages().AskYesNo("Sure?", "Kestrava"), "unexpected question");
}

TEST(ScriptedMessageBoxes, AnAnswerThatNobodyAskedForFailsTheTest) {
  static ScriptedMessages messages;
  messages.ExpectQuestion("Sure?", true);
  EXPECT_NONFATAL_FAILURE(messages.CheckAllAsked(), "never shown: \"Sure?\"");
}

TEST(ScriptedMessageBoxes, AnotherTextOrKindThanScriptedFailsTheTest) {
  static ScriptedMessages messages;
  messages.ExpectMessage("Disk full");
  EXPECT_NONFATAL_FAILURE(messages.Show("Disk empty", "Kestrava", MessageIcon::kInformation), "expected a message");
  messages.ExpectQuestion("Sure?", true);
  EXPECT_NONFATAL_FAILURE(messages.Show("Sure?", "Kestrava", MessageIcon::kInformation), "expected a question");
}

TEST(ScriptedMessageBoxes, AnswersComeInTheirOrder) {
  ScriptedMessages messages;
  messages.ExpectQuestion("first", true);
  messages.ExpectQuestion("second", false);
  EXPECT_TRUE(messages.AskYesNo("the first one", "Kestrava"));
  EXPECT_FALSE(messages.AskYesNo("the second one", "Other"));
  EXPECT_EQ(messages.Titles(), (Lines{"Kestrava", "Other"}));
}

TEST(ScriptedHouses, AFaultThatTheTestDidNotTakeFailsIt) {
  const auto live = [] {
    const ScriptedHouse house;
    ErrorTrap("Overflow", "Global Satcalc");
  };
  EXPECT_NONFATAL_FAILURE(live(), "a fault was trapped: Overflow - Global Satcalc");
  EXPECT_EQ(AppDir, "") << "the house leaves nothing behind";
}

TEST_F(HouseRules, FilesMatchWithoutRegardToCaseAndKeepTheirDates) {
  Put("GROUPS.DAT", "x");
  EXPECT_TRUE(FileExists(InAppDir("groups.dat")));
  EXPECT_EQ(files.ModifiedLocal("/house/groups.dat"), MakeSerial({2024, 6, 1, 12, 0, 0}));
  clock.SetOffsetHours(-5);
  EXPECT_EQ(files.ModifiedLocal("/house/groups.dat"), MakeSerial({2024, 6, 1, 7, 0, 0}));
  files.SetModifiedUtc("/house/groups.dat", MakeSerial({2020, 1, 1, 5, 0, 0}));
  files.Copy("/house/groups.dat", "/house/copy.dat");
  EXPECT_EQ(files.ModifiedLocal("/house/copy.dat"), MakeSerial({2020, 1, 1, 0, 0, 0}));
  EXPECT_EQ(files.List("/HOUSE"), (Lines{"GROUPS.DAT", "copy.dat"}));
}

TEST_F(HouseRules, FilesHaveTheFaultsOfTheRealOnes) {
  const auto faultOf = [](const std::function<void()>& body) -> std::string {
    try {
      body();
    } catch (const Fault& fault) {
      return fault.what();
    }
    return "";
  };
  EXPECT_EQ(faultOf([&] { files.Read("/house/none"); }), "File not found");
  EXPECT_EQ(faultOf([&] { files.Read("/nowhere/none"); }), "Path not found");
  EXPECT_EQ(faultOf([&] { files.Replace("/nowhere/a", "x"); }), "Path not found");
  EXPECT_EQ(faultOf([&] { files.Remove("/house/none"); }), "File not found");
  Put("a", "x");
  EXPECT_EQ(faultOf([&] { files.Copy("/house/a", "/media/gone/a"); }), "Disk not ready");
  files.BreakFile("/house/A", Fault::PathFileAccess());
  EXPECT_EQ(faultOf([&] { files.Read("/house/a"); }), "Path/File access error");
}

TEST_F(HouseRules, AFolderIsRenamedWithAllThatIsInIt) {
  files.Put("/data/new/sub/a.dat", "a");
  files.MakeFolder("/data/kestrava");
  files.Rename("/data/new", "/data/kestrava");
  EXPECT_EQ(files.Content("/data/kestrava/sub/a.dat"), "a");
  EXPECT_FALSE(files.FolderExists("/data/new"));
  files.MakeFolder("/data/other");
  EXPECT_THROW(files.Rename("/data/other", "/data/kestrava"), Fault);
}

TEST(RecordedSurfaces, WriteOneLineForEachOperation) {
  const RecordingSurface map("WorldNormal", 1400, 704);
  RecordingSurface surface("Map", 800, 400);
  surface.Clear(kBlack);
  surface.SetPen(kOrange);
  surface.SetLineWidth(2);
  surface.SetDrawMode(DrawMode::kNoOperation);
  surface.DrawPoint(1.5, 2);
  surface.SetDrawMode(DrawMode::kCopy);
  surface.LineTo(3, -4);
  surface.DrawCircle(5, 6, 2);
  surface.SetFont("Arial", 8, true);
  surface.Print("ISS");
  surface.BitBlt({10, 20, 30, 30}, map, 1, 2, RasterOp::kSrcAnd);
  EXPECT_EQ(surface.StretchBlt({0, 0, 800, 400}, map, {0, 0, 1400, 704}, RasterOp::kSrcCopy), 1);
  surface.FloodFill(7, 8, kWhite);
  surface.AlphaBlend({0, 0, 8, 4}, map, {0, 0, 4, 2}, 0x800000);
  EXPECT_EQ(surface.Operations(),
            (Lines{"Clear 000000", "SetPen 0080FF", "SetLineWidth 2", "SetDrawMode NoOperation", "DrawPoint 1.5 2",
                   "SetDrawMode Copy", "LineTo 3 -4", "DrawCircle 5 6 2", "SetFont Arial 8 bold", "Print ISS",
                   "BitBlt 10 20 30 30 <- WorldNormal 1 2 SRCAND",
                   "StretchBlt 0 0 800 400 <- WorldNormal 0 0 1400 704 SRCCOPY", "FloodFill 7 8 FFFFFF",
                   "AlphaBlend 0 0 8 4 <- WorldNormal 0 0 4 2 00800000"}));
  EXPECT_EQ(surface.Operations("SetDrawMode").size(), 2U);
}

}  // namespace
}  // namespace kestrava::platform
