#include <csignal>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Fault.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/PosixFolders.h"

#include "support/TempFolder.h"

namespace kestrava::platform {
namespace {

namespace fs = std::filesystem;

class PosixFoldersTest : public ::testing::Test {
 protected:
  void Write(const fs::path& file) { std::ofstream(file) << "text"; }

  PosixFolders folders_;
  const testing::TempFolder temp_;
  const fs::path folder_ = temp_ / "one";
};

TEST_F(PosixFoldersTest, MakesANameOnlyOnce) {
  EXPECT_TRUE(folders_.Make(folder_));
  EXPECT_FALSE(folders_.Make(folder_));
  Write(temp_ / "file");
  EXPECT_FALSE(folders_.Make(temp_ / "file"));
  EXPECT_THROW(folders_.Make(temp_ / "nowhere" / "one"), Fault);
}

TEST_F(PosixFoldersTest, ListsFoldersButNoFilesAndNoLinks) {
  folders_.Make(temp_ / "b");
  folders_.Make(temp_ / "a");
  Write(temp_ / "file");
  fs::create_directory_symlink(temp_ / "a", temp_ / "link");
  EXPECT_EQ(folders_.List(temp_.Path()), (std::vector<std::string>{"a", "b"}));
  EXPECT_TRUE(folders_.List(temp_ / "nowhere").empty());
}

TEST_F(PosixFoldersTest, RemovesAFolderWithItsFilesThoseHalfWrittenToo) {
  folders_.Make(folder_);
  Write(folder_ / "faves.dat");
  Write(folder_ / ".kestrava-unfinished-1-groups.dat");
  folders_.Remove(folder_);
  EXPECT_FALSE(fs::exists(folder_));
}

TEST_F(PosixFoldersTest, RemovesNoFolderBelowAndNothingBehindALink) {
  fs::create_directories(folder_ / "below");
  Write(folder_ / "below" / "mine");
  EXPECT_THROW(folders_.Remove(folder_), Fault);
  EXPECT_TRUE(fs::exists(folder_ / "below" / "mine"));
  fs::create_directory_symlink(folder_ / "below", temp_ / "link");
  EXPECT_THROW(folders_.TryHold(temp_ / "link"), Fault);
}

TEST_F(PosixFoldersTest, WhatIsHeldIsHeldByOneUntilItLetsGo) {
  folders_.Make(folder_);
  auto hold = folders_.TryHold(folder_);
  ASSERT_TRUE(hold);
  EXPECT_FALSE(folders_.TryHold(folder_));
  hold.reset();
  EXPECT_TRUE(folders_.Hold(folder_));
}

TEST_F(PosixFoldersTest, AFolderThatIsNotThereIsNotHeld) {
  EXPECT_FALSE(folders_.TryHold(folder_));
  EXPECT_THROW(folders_.Hold(folder_), Fault);
}

TEST_F(PosixFoldersTest, AHoldEndsWithItsProcessEvenOneThatIsKilled) {
  folders_.Make(folder_);
  int pipe[2];
  ASSERT_EQ(::pipe(pipe), 0);
  const pid_t child = ::fork();
  if (child == 0) {
    const auto hold = folders_.TryHold(folder_);
    (void)!::write(pipe[1], hold ? "y" : "n", 1);
    while (true) ::pause();
  }
  char held = 0;
  ASSERT_EQ(::read(pipe[0], &held, 1), 1);
  EXPECT_EQ(held, 'y');
  EXPECT_FALSE(folders_.TryHold(folder_));
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
  EXPECT_TRUE(folders_.TryHold(folder_));
  ::close(pipe[0]);
  ::close(pipe[1]);
}

TEST_F(PosixFoldersTest, CopiesOfKilledRunsGoThoseOfLivingOnesStay) {
  const pid_t dead = ::fork();
  if (dead == 0) ::_exit(0);
  ::waitpid(dead, nullptr, 0);
  const std::string ofDead = ".kestrava-unfinished-" + std::to_string(dead) + "-faves.dat";
  const std::vector<std::string> others{".kestrava-unfinished-" + std::to_string(::getpid()) + "-faves.dat",
                                        ".kestrava-unfinished-faves.dat", "faves.dat"};
  Write(temp_ / ofDead);
  for (const std::string& name : others) Write(temp_ / name);
  RemoveUnfinished(temp_.Path());
  EXPECT_FALSE(fs::exists(temp_ / ofDead));
  for (const std::string& name : others) EXPECT_TRUE(fs::exists(temp_ / name)) << name;
  RemoveUnfinished(temp_ / "nowhere");
}

}  // namespace
}  // namespace kestrava::platform
