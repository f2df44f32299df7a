#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/SerialDate.h"
#include "store/DataFolder.h"
#include "store/FirstStart.h"

#include "support/House.h"
#include "support/MemoryFolders.h"
#include "support/StationFiles.h"

namespace kestrava::store {
namespace {

const std::filesystem::path kShipped = "/usr/share/kestrava/sample";
const std::filesystem::path kFolder = "/home/user/.local/share/kestrava/";

class FirstStart : public testing::House {
 protected:
  FirstStart() {
    files.Put(kShipped / "groups.dat", "Amateur,host/amateur.txt,0\n");
    files.Put(kShipped / "amateur.txt",
              "OSCAR 7 (AO-7)\n1 07530U 74089B   26318.92882759 -.00000031  00000-0  83259-4 0  9999\n"
              "2 07530 101.6660 350.5859 0011799 260.7489 115.8236 12.53630761975916\n"
              "UOSAT 2 (UO-11)\n1 14781U 84021B   26318.70748358  .00000070  00000-0  14796-4 0  9996\n"
              "2 14781  97.6694  63.0532 0008022 197.3881 162.7059 14.82974769822584\n");
    files.Put(kShipped / "history.txt", "1.0 first\n");
    files.Put(kShipped / "Default.jpg", "\xff\xd8picture");
    files.MakeFolder("/home/user/.local/share");
  }

  std::string At(std::string_view name) { return files.Content(kFolder / name); }
  std::size_t ShippedBytes() {
    std::size_t bytes = 0;
    for (const std::string& name : kAll) bytes += files.Content(kShipped / name).size();
    return bytes;
  }
  std::vector<std::string> Names() { return files.List("/home/user/.local/share/kestrava"); }
  bool NothingBeside() { return folders.List("/home/user/.local/share").empty(); }

  testing::MemoryFolders folders{files};
  const std::vector<std::string> kAll{"Default.jpg", "amateur.txt", "groups.dat", "history.txt"};
};

TEST_F(FirstStart, AnAbsentOrEmptyFolderIsNew) {
  EXPECT_TRUE(IsNewFolder(kFolder));
  files.MakeFolder(kFolder);
  EXPECT_TRUE(IsNewFolder(kFolder));
  files.Put(kFolder / "note.txt", "mine");
  EXPECT_FALSE(IsNewFolder(kFolder));
}

TEST_F(FirstStart, FillsAnAbsentFolderWithAllThatIsShipped) {
  EXPECT_TRUE(PrepareFirstStart(kShipped, kFolder, {}, folders));
  EXPECT_EQ(Names(), kAll);
  for (const std::string& name : kAll) EXPECT_EQ(At(name), files.Content(kShipped / name)) << name;
  EXPECT_TRUE(NothingBeside());
}

TEST_F(FirstStart, FillsAnEmptyFolder) {
  files.MakeFolder(kFolder);
  EXPECT_TRUE(PrepareFirstStart(kShipped, kFolder, {}, folders));
  EXPECT_EQ(Names(), kAll);
}

TEST_F(FirstStart, MakesTheFoldersAbove) {
  EXPECT_TRUE(PrepareFirstStart(kShipped, "/elsewhere/deep/down/", {}, folders));
  EXPECT_TRUE(files.Exists("/elsewhere/deep/down/groups.dat"));
}

TEST_F(FirstStart, LeavesAFolderAloneThatHoldsAnything) {
  files.Put(kFolder / "faves.dat", "MINE\n");
  const int changes = files.ChangeCount();
  EXPECT_FALSE(PrepareFirstStart(kShipped, kFolder, ZonePlace{"Europe/Berlin", 52.5, 13.3667}, folders));
  EXPECT_EQ(Names(), std::vector<std::string>{"faves.dat"});
  EXPECT_EQ(files.ChangeCount(), changes);
  EXPECT_TRUE(settings.Writes().empty());
}

TEST_F(FirstStart, ElementFilesCarryTheDateOfTheirNewestElements) {
  SeedFolder(kShipped, kFolder, folders);
  const platform::DateParts dated = platform::SplitSerial(files.ModifiedLocal(kFolder / "amateur.txt"));
  EXPECT_EQ(dated, (platform::DateParts{2026, 11, 14, 22, 17, 31}));  // day 318.92882759 of 2026
}

TEST_F(FirstStart, OtherFilesKeepTheirDate) {
  files.SetModifiedUtc(kShipped / "history.txt", platform::MakeSerial({2020, 2, 3, 4, 5, 6}));
  SeedFolder(kShipped, kFolder, folders);
  EXPECT_EQ(platform::SplitSerial(files.ModifiedLocal(kFolder / "history.txt")),
            (platform::DateParts{2020, 2, 3, 4, 5, 6}));
}

TEST_F(FirstStart, FillsInPlaceAFolderThatCannotBeRenamedOver) {
  files.MakeFolder(kFolder);
  files.BreakFile("/home/user/.local/share/kestrava", platform::Fault::PathFileAccess());  // a mount point, say
  SeedFolder(kShipped, kFolder, folders);
  EXPECT_EQ(Names(), kAll);
}

TEST_F(FirstStart, WithoutShippedDataNothingIsMade) {
  EXPECT_THROW(SeedFolder("/nowhere", kFolder, folders), platform::Fault);
  EXPECT_TRUE(NothingBeside());
  EXPECT_TRUE(IsNewFolder(kFolder));
}

TEST_F(FirstStart, ABrokenDeviceLeavesAnAbsentFolderNew) {
  for (std::size_t bytes = 0; bytes < ShippedBytes(); bytes += 13) {
    files.BreakWriteAfter(bytes);
    EXPECT_THROW(SeedFolder(kShipped, kFolder, folders), platform::Fault) << bytes;
    files.Mend();
    EXPECT_TRUE(IsNewFolder(kFolder)) << bytes;
    EXPECT_TRUE(NothingBeside()) << "what was copied so far takes room of the disk";
  }
  SeedFolder(kShipped, kFolder, folders);
  EXPECT_EQ(Names(), kAll);
}

TEST_F(FirstStart, ABrokenDeviceLeavesAnEmptyFolderEmpty) {
  files.MakeFolder(kFolder);
  for (std::size_t bytes = 0; bytes < ShippedBytes(); bytes += 13) {
    files.BreakWriteAfter(bytes);
    EXPECT_THROW(SeedFolder(kShipped, kFolder, folders), platform::Fault) << bytes;
    files.Mend();
    EXPECT_TRUE(IsNewFolder(kFolder)) << bytes;
  }
}

/// The space station rises up to 70 degrees north, the telescope up to 50; one of the satellites over the equator
/// always stands over Africa.
class FirstFavourites : public FirstStart {
 protected:
  FirstFavourites() {
    files.Put(kShipped / "faves.dat", "ISS (ZARYA)\nHST\nMETEOSAT-11 (MS\nOF NO FILE\n");
    for (const char* name : {"groups.dat", "stations.txt", "visual.txt", "geo.txt"})
      files.Put(kShipped / name, testing::StationFile(name));
  }
  std::string AtPlace(double latitudeDeg, double longitudeEastDeg) {
    const std::filesystem::path folder = "/home/user/" + std::to_string(++folders_) + "/";
    SeedFolder(kShipped, folder, folders, orbit::Observer{latitudeDeg, longitudeEastDeg, 0});
    return files.Content(folder / "faves.dat");
  }
  int folders_ = 0;
};

TEST_F(FirstFavourites, AreThoseThatRiseAtThePlace) {
  EXPECT_EQ(AtPlace(28.5, 0), "ISS (ZARYA)\nHST\nMETEOSAT-11 (MS\nOF NO FILE\n");
  EXPECT_EQ(AtPlace(52.5, 13.4), "ISS (ZARYA)\nMETEOSAT-11 (MS\nOF NO FILE\n");
  EXPECT_EQ(AtPlace(28.5, 180), "ISS (ZARYA)\nHST\nOF NO FILE\n");
}

TEST_F(FirstFavourites, AreAllWhereNoneWouldBeLeft) {
  files.Put(kShipped / "faves.dat", "HST\n");
  EXPECT_EQ(AtPlace(80, 0), "HST\n");
}

TEST_F(FirstFavourites, FollowTheGuessedPlaceAndAStoredOneBeforeIt) {
  const ZonePlace berlin{"Europe/Berlin", 52.5, 13.3667};
  PrepareFirstStart(kShipped, kFolder, berlin, folders);
  EXPECT_EQ(At("faves.dat").find("HST"), std::string::npos);
  settings.Set("Latitude", "-33,9");
  settings.Set("Longitude", "208.8");
  PrepareFirstStart(kShipped, "/elsewhere/", berlin, folders);
  EXPECT_NE(files.Content("/elsewhere/faves.dat").find("HST"), std::string::npos);
}

TEST_F(FirstFavourites, AreTheShippedOnesWhereNothingIsKnownOfThePlace) {
  PrepareFirstStart(kShipped, kFolder, {}, folders);
  EXPECT_EQ(At("faves.dat"), files.Content(kShipped / "faves.dat"));
}

TEST_F(FirstStart, WritesThePlaceOfTheTimeZone) {
  PrepareFirstStart(kShipped, kFolder, ZonePlace{"America/New_York", 40.714167, -74.006389}, folders);
  EXPECT_EQ(settings.Get("Location Name"), "New York");
  EXPECT_EQ(settings.Get("Latitude"), "40.7142");
  EXPECT_EQ(settings.Get("Longitude"), "74.0064");
  EXPECT_EQ(settings.Get("HASL"), "0");
}

TEST_F(FirstStart, AnEasternPlaceIsCountedWestThroughTheDateLine) {
  WriteFirstLocation({"Europe/Berlin", 52.5, 13.366667});
  EXPECT_EQ(settings.Get("Longitude"), "346.6333");
  settings.Clear();
  WriteFirstLocation({"Etc/Greenwich", 51.5, 0});
  EXPECT_EQ(settings.Get("Longitude"), "0");
}

TEST_F(FirstStart, ThePlaceIsWrittenInTheMachinesNumbers) {
  locale.UseComma();
  WriteFirstLocation({"Europe/Berlin", 52.5, 13.366667});
  EXPECT_EQ(settings.Get("Latitude"), "52,5");
}

TEST_F(FirstStart, APlaceThatTheUserHasIsKept) {
  settings.Set("Latitude", "12");
  WriteFirstLocation({"Europe/Berlin", 52.5, 13.366667});
  EXPECT_EQ(settings.Get("Latitude"), "12");
  EXPECT_FALSE(settings.Has("Location Name"));
}

TEST_F(FirstStart, PutsOneShippedFileBackWithTheDateOfItsElements) {
  EXPECT_TRUE(IsShipped(kShipped, "AMATEUR.TXT"));
  EXPECT_TRUE(PutBack(kShipped, "amateur.txt"));
  EXPECT_EQ(Content("amateur.txt"), files.Content(kShipped / "amateur.txt"));
  EXPECT_EQ(platform::SplitSerial(files.ModifiedLocal("/house/amateur.txt")).day, 14);
}

TEST_F(FirstStart, PutsNothingBackOverAFileThatCanBeUsed) {
  const std::string mine = "# mine\n" + files.Content(kShipped / "amateur.txt");
  Put("amateur.txt", mine);
  Put("groups.dat", "Mine,mine.txt,1\n");
  for (const auto* name : {"amateur.txt", "groups.dat"}) EXPECT_TRUE(PutBack(kShipped, name));
  EXPECT_EQ(Content("amateur.txt"), mine);
  EXPECT_EQ(Content("groups.dat"), "Mine,mine.txt,1\n");
}

TEST_F(FirstStart, MovesADamagedFileAsideBeforeItPutsTheShippedOneBack) {
  Put("amateur.txt", "<html>\n");
  EXPECT_TRUE(PutBack(kShipped, "amateur.txt"));
  EXPECT_EQ(Content("amateur.txt"), files.Content(kShipped / "amateur.txt"));
  EXPECT_EQ(Content("amateur.txt.damaged"), "<html>\n");
  Put("amateur.txt", "");
  EXPECT_TRUE(PutBack(kShipped, "amateur.txt"));
  EXPECT_FALSE(files.Exists("/house/amateur.txt.damaged2")) << "an empty one is worth nothing";
  Put("amateur.txt", "cut");
  EXPECT_TRUE(PutBack(kShipped, "amateur.txt"));
  EXPECT_EQ(Content("amateur.txt.damaged2"), "cut");
  Put("groups.dat", std::string(433, '\0'));
  EXPECT_TRUE(PutBack(kShipped, "groups.dat"));
  EXPECT_EQ(Content("groups.dat"), files.Content(kShipped / "groups.dat"));
}

TEST_F(FirstStart, PutsNothingBackThatIsNotShipped) {
  EXPECT_FALSE(IsShipped(kShipped, "mykeps.txt"));
  EXPECT_FALSE(PutBack(kShipped, "mykeps.txt"));
  EXPECT_FALSE(PutBack(kShipped, "../sample/amateur.txt"));
  EXPECT_FALSE(PutBack(kShipped, ""));
}

class DataFolder : public testing::House {
 protected:
  FolderClues clues{"", "/work/here", "/opt/kestrava/bin", "/home/user/.local/share"};
};

TEST_F(DataFolder, IsBelowTheUsersDataHome) {
  EXPECT_EQ(ChooseDataFolder(clues), "/home/user/.local/share/kestrava/");
}

TEST_F(DataFolder, IsTheProgramsOwnIfThatHoldsTheGroups) {
  files.Put("/opt/kestrava/bin/groups.dat", "");
  EXPECT_EQ(ChooseDataFolder(clues), "/opt/kestrava/bin/");
}

TEST_F(DataFolder, IsTheOneOfTheArgumentAboveAll) {
  files.Put("/opt/kestrava/bin/groups.dat", "");
  clues.dataArgument = "/media/stick/";
  EXPECT_EQ(ChooseDataFolder(clues), "/media/stick/");
}

TEST_F(DataFolder, ARelativeArgumentCountsFromTheWorkingFolder) {
  clues.dataArgument = "../data";
  EXPECT_EQ(ChooseDataFolder(clues), "/work/data/");
}

TEST_F(DataFolder, EndsWithOneSeparatorWhateverWasGiven) {
  for (const auto* argument : {"/media/stick", "/media/stick/", "/media/stick//", "/media//stick/./"}) {
    clues.dataArgument = argument;
    EXPECT_EQ(ChooseDataFolder(clues), "/media/stick/") << argument;
  }
  clues.dataArgument = "/";
  EXPECT_EQ(ChooseDataFolder(clues), "/");
}

}  // namespace
}  // namespace kestrava::store
