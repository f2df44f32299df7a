// A first start as it happens: the shipped sample data, the real file system.

#include <filesystem>
#include <iterator>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include "platform/SerialDate.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/PosixFolders.h"
#include "store/FirstStart.h"

#include "support/House.h"
#include "support/TempFolder.h"

namespace kestrava::store {
namespace {

namespace fs = std::filesystem;

class FirstStartOnDisk : public testing::House {
 protected:
  FirstStartOnDisk() {
    platform::Doors doors = platform::TheDoors();
    doors.files = &disk_;
    doors_ = std::make_unique<platform::ScopedDoors>(doors);
  }

  static std::size_t FilesIn(const fs::path& folder) {
    return static_cast<std::size_t>(std::distance(fs::directory_iterator(folder), {}));
  }

  const fs::path shipped_ = KESTRAVA_SOURCE_DIR "data/sample";
  platform::PosixFiles disk_;
  platform::PosixFolders folders_;
  std::unique_ptr<platform::ScopedDoors> doors_;
  const testing::TempFolder temp_;
  const fs::path home_ = temp_.Path();
};

TEST_F(FirstStartOnDisk, FillsAnEmptyFolderInOneStepWithTheDateOfTheElements) {
  const fs::path folder = home_ / "kestrava";
  fs::create_directory(folder);
  EXPECT_TRUE(PrepareFirstStart(shipped_, folder.string() + "/", {}, folders_));
  EXPECT_EQ(FilesIn(folder), FilesIn(shipped_));
  EXPECT_EQ(FilesIn(home_), 1U) << "nothing stays beside it";
  const platform::DateParts dated = platform::SplitSerial(disk_.ModifiedLocal(folder / "amateur.txt"));
  EXPECT_EQ(dated.year, 2026);
  EXPECT_EQ(dated.month, 11);
  EXPECT_FALSE(PrepareFirstStart(shipped_, folder, {}, folders_)) << "it is not new any more";
}

TEST_F(FirstStartOnDisk, BringsTheSceneriesOfTheHorizonToANewFolderAlone) {
  const fs::path fresh = home_ / "fresh", old = home_ / "old";
  EXPECT_TRUE(PrepareFirstStart(shipped_, fresh, {}, folders_));
  fs::create_directory(old);
  fs::copy_file(shipped_ / "groups.dat", old / "groups.dat");  // of a release without sceneries
  EXPECT_FALSE(PrepareFirstStart(shipped_, old, {}, folders_));
  for (const char* scenery : {"hdefault.jpg", "hmoonlit.jpg", "hsea.jpg"}) {
    ASSERT_TRUE(fs::exists(fresh / scenery)) << scenery;
    EXPECT_EQ(disk_.Read(fresh / scenery), disk_.Read(shipped_ / scenery)) << scenery;
    EXPECT_FALSE(fs::exists(old / scenery)) << scenery;
  }
}

TEST_F(FirstStartOnDisk, AFolderThatHoldsOnlyAFolderIsNotNew) {
  fs::create_directories(home_ / "kestrava" / "3D");
  EXPECT_FALSE(PrepareFirstStart(shipped_, home_ / "kestrava", {}, folders_));
  EXPECT_EQ(FilesIn(home_ / "kestrava"), 1U);
}

TEST_F(FirstStartOnDisk, ALinkToAnEmptyFolderIsFilledWhereItPoints) {
  fs::create_directory(home_ / "elsewhere");
  fs::create_directory_symlink(home_ / "elsewhere", home_ / "kestrava");
  EXPECT_TRUE(PrepareFirstStart(shipped_, home_ / "kestrava", {}, folders_));
  EXPECT_EQ(FilesIn(home_ / "elsewhere"), FilesIn(shipped_));
  EXPECT_TRUE(fs::is_symlink(home_ / "kestrava"));
  EXPECT_EQ(FilesIn(home_), 2U) << "what was made beside it is cleared away";
}

}  // namespace
}  // namespace kestrava::store
