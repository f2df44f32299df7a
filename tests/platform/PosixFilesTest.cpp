#include <csignal>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Fault.h"
#include "platform/linux/PosixFiles.h"

#include "support/TempFolder.h"

namespace kestrava::platform {
namespace {

namespace fs = std::filesystem;

class RealFiles : public ::testing::Test {
 protected:
  static std::string Content(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  static void Put(const fs::path& file, const std::string& content) {
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << content;
  }

  kestrava::testing::TempFolder folder;
  PosixFiles files;
};

template <class Body>
std::string FaultOf(Body body) {
  try {
    body();
  } catch (const Fault& fault) {
    return fault.what();
  }
  return "";
}

/// From the given size on the kernel refuses to write to any file of this process, as a full disk would.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t bytes) : earlierHandler_(std::signal(SIGXFSZ, SIG_IGN)) {
    ::getrlimit(RLIMIT_FSIZE, &earlier_);
    const rlimit limit{bytes, earlier_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() {
    ::setrlimit(RLIMIT_FSIZE, &earlier_);
    std::signal(SIGXFSZ, earlierHandler_);
  }

 private:
  rlimit earlier_{};
  void (*earlierHandler_)(int);
};

TEST_F(RealFiles, WhatIsWrittenIsReadBackByteForByte) {
  const std::string bytes("a\0\r\n\xFF", 5);
  files.Replace(folder / "a.dat", bytes);
  EXPECT_EQ(files.Read(folder / "a.dat"), bytes);
  EXPECT_EQ(files.Size(folder / "a.dat"), 5U);
  const std::string large(300000, 'x');
  files.Replace(folder / "a.dat", large);
  EXPECT_EQ(files.Read(folder / "a.dat"), large);
  files.Replace(folder / "a.dat", "");
  EXPECT_EQ(files.Read(folder / "a.dat"), "");
}

TEST_F(RealFiles, NamesMatchWithoutRegardToCaseWhereTheExactOneIsMissing) {
  Put(folder / "Sub" / "GROUPS.DAT", "upper");
  EXPECT_TRUE(files.Exists(folder / "sub" / "groups.dat"));
  EXPECT_EQ(files.Read(folder / "SUB" / "Groups.dat"), "upper");
  files.Replace(folder / "sub" / "groups.dat", "new");
  EXPECT_EQ(Content(folder / "Sub" / "GROUPS.DAT"), "new") << "no second file beside it";
  EXPECT_EQ(files.List(folder / "sub"), std::vector<std::string>{"GROUPS.DAT"});
  Put(folder / "Sub" / "groups.dat", "lower");
  EXPECT_EQ(files.Read(folder / "Sub" / "groups.dat"), "lower") << "the exact name goes first";
  EXPECT_FALSE(files.Exists(folder / "sub" / "faves.dat"));
}

TEST_F(RealFiles, MissingThingsHaveTheirFaults) {
  EXPECT_EQ(FaultOf([&] { files.Read(folder / "none.dat"); }), "File not found");
  EXPECT_EQ(FaultOf([&] { files.Read(folder / "none" / "none.dat"); }), "Path not found");
  EXPECT_EQ(FaultOf([&] { files.Read(folder.Path()); }), "Path/File access error");
  EXPECT_EQ(FaultOf([&] { files.Replace(folder / "none" / "a.dat", "x"); }), "Path not found");
  EXPECT_EQ(FaultOf([&] { files.Remove(folder / "none.dat"); }), "File not found");
  EXPECT_EQ(FaultOf([&] { files.Size(folder / "none.dat"); }), "File not found");
  EXPECT_EQ(FaultOf([&] { files.ModifiedLocal(folder / "none.dat"); }), "File not found");
  Put(folder / "a.dat", "x");
  {
    const FileSizeLimit full(1);
    EXPECT_EQ(FaultOf([&] { files.Append(folder / "a.dat", "x"); }), "Disk full");
  }
  EXPECT_EQ(FaultOf([&] { files.Copy(folder / "a.dat", folder / "gone" / "a.dat"); }), "Disk not ready");
  EXPECT_EQ(FaultOf([&] { files.MakeFolder(folder / "a.dat" / "b"); }), "Path not found");
}

TEST_F(RealFiles, TheDeviceMayBreakAtEveryOffsetAndTheOldFileIsWhole) {
  const std::string old = "the old file\n";
  const std::string text(40, 'n');
  Put(folder / "a.dat", old);
  for (rlim_t offset = 0; offset < text.size(); ++offset) {
    {
      const FileSizeLimit limit(offset);
      EXPECT_EQ(FaultOf([&] { files.Replace(folder / "a.dat", text); }), "Disk full") << offset;
      EXPECT_EQ(FaultOf([&] { files.Copy("/etc/passwd", folder / "a.dat"); }), "Disk full") << offset;
    }
    EXPECT_EQ(Content(folder / "a.dat"), old) << offset;
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Path()), {}), 1) << "nothing is left beside it";
  }
  files.Replace(folder / "a.dat", text);
  EXPECT_EQ(Content(folder / "a.dat"), text);
}

TEST_F(RealFiles, AKillInMidWriteLeavesTheOldOrTheNewFileWhole) {
  const std::string one(200000, '1');
  const std::string two(200000, '2');
  for (int round = 0; round < 10; ++round) {
    files.Replace(folder / "a.dat", one);
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
      for (int i = 0;; ++i) {
        files.Replace(folder / "a.dat", i % 2 ? one : two);
        if (::write(ends[1], "x", 1) != 1) ::_exit(1);
      }
    }
    char beat = 0;
    for (int i = 0; i < round; ++i) ASSERT_EQ(::read(ends[0], &beat, 1), 1);
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ends[0]);
    ::close(ends[1]);
    const std::string content = Content(folder / "a.dat");
    EXPECT_TRUE(content == one || content == two) << "length " << content.size();
    EXPECT_EQ(files.List(folder.Path()), std::vector<std::string>{"a.dat"}) << "an unfinished file is not listed";
  }
}

TEST_F(RealFiles, ReplacingKeepsPermissionsAndWritesThroughALink) {
  Put(folder / "a.dat", "x");
  fs::permissions(folder / "a.dat", fs::perms::owner_read | fs::perms::owner_write);
  fs::create_symlink(folder / "a.dat", folder / "link.dat");
  files.Replace(folder / "link.dat", "new");
  EXPECT_TRUE(fs::is_symlink(folder / "link.dat"));
  EXPECT_EQ(Content(folder / "a.dat"), "new");
  EXPECT_EQ(fs::status(folder / "a.dat").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(RealFiles, AppendingAddsAndRenamingReplaces) {
  files.Append(folder / "error.log", "one\n");
  files.Append(folder / "ERROR.LOG", "two\n");
  EXPECT_EQ(Content(folder / "error.log"), "one\ntwo\n");
  Put(folder / "b.dat", "b");
  files.Rename(folder / "error.log", folder / "b.dat");
  EXPECT_EQ(files.List(folder.Path()), std::vector<std::string>{"b.dat"});
  EXPECT_EQ(Content(folder / "b.dat"), "one\ntwo\n");
}

TEST_F(RealFiles, AFolderIsRenamedOntoAnEmptyOneOnly) {
  Put(folder / "new" / "groups.dat", "x");
  files.MakeFolder(folder / "empty");
  EXPECT_TRUE(files.FolderIsEmpty(folder / "empty"));
  EXPECT_TRUE(files.FolderIsEmpty(folder / "none"));
  EXPECT_FALSE(files.FolderIsEmpty(folder / "new"));
  files.Rename(folder / "new", folder / "empty");
  EXPECT_EQ(Content(folder / "empty" / "groups.dat"), "x");
  files.MakeFolder(folder / "other");
  EXPECT_EQ(FaultOf([&] { files.Rename(folder / "other", folder / "empty"); }), "Path/File access error");
}

TEST_F(RealFiles, DatesAreKeptByACopyAndReadInLocalTime) {
  ::setenv("TZ", "<+03>-3", 1);
  Put(folder / "a.dat", "x");
  files.SetModifiedUtc(folder / "a.dat", MakeSerial({2024, 2, 29, 22, 30, 15}));
  files.Copy(folder / "a.dat", folder / "b.dat");
  EXPECT_EQ(SplitSerial(files.ModifiedLocal(folder / "b.dat")), (DateParts{2024, 3, 1, 1, 30, 15}));
  files.SetModifiedUtc(folder / "a.dat", MakeSerial({1969, 12, 31, 12, 0, 0}));
  EXPECT_EQ(SplitSerial(files.ModifiedLocal(folder / "a.dat")), (DateParts{1969, 12, 31, 15, 0, 0}));
  ::unsetenv("TZ");
}

TEST_F(RealFiles, ListsPlainFilesInOrder) {
  Put(folder / "b.txt", "");
  Put(folder / "a.txt", "");
  fs::create_directory(folder / "c.txt");
  EXPECT_EQ(files.List(folder.Path()), (std::vector<std::string>{"a.txt", "b.txt"}));
  EXPECT_TRUE(files.List(folder / "none").empty());
  EXPECT_FALSE(files.Exists(folder / "c.txt")) << "a folder is no file";
  EXPECT_TRUE(files.FolderExists(folder / "C.TXT"));
}

TEST_F(RealFiles, APipeOrADeviceWhereAFileShouldBeIsRefusedAndNotWaitedFor) {
  ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
  fs::create_symlink("/dev/zero", folder / "zeros");
  for (const char* name : {"pipe", "zeros"}) {
    EXPECT_EQ(FaultOf([&] { files.Read(folder / name); }), "Path/File access error") << name;
    EXPECT_EQ(FaultOf([&] { files.Append(folder / name, "x"); }), "Path/File access error") << name;
    EXPECT_EQ(FaultOf([&] { files.Replace(folder / name, "x"); }), "Path/File access error") << name;
    EXPECT_EQ(FaultOf([&] { files.Copy(folder / name, folder / "copy"); }), "Path/File access error") << name;
    EXPECT_FALSE(fs::is_regular_file(folder / name)) << "it is not ours to replace";
  }
}

TEST(RemovableMedia, AreDevicesMountedWritableWhereMediaGo) {
  const auto isStick = [](const std::string& device) { return device == "/dev/sdd1"; };
  EXPECT_EQ(RemovableMounts("/dev/vda / ext4 rw 0 0\n"
                            "/dev/sdb1 /media/user/MY\\040STICK vfat rw,nosuid 0 0\n"
                            "/dev/sdc1 /run/media/user/card exfat rw 0 0\n"
                            "/dev/sdd1 /mnt ext4 rw 0 0\n"
                            "/dev/sr0 /media/user/cd iso9660 ro,nosuid 0 0\n"
                            "tmpfs /mnt/tools tmpfs rw 0 0\n"
                            "server:/x /mnt/net nfs rw 0 0\n"
                            "/dev/sde1 /mnt2 ext4 rw 0 0\n"
                            "/dev/nvme0n1p5 /mnt/archive ext4 rw 0 0\n"
                            "broken line\n",
                            isStick),
            (std::vector<fs::path>{"/media/user/MY STICK", "/run/media/user/card", "/mnt"}));
}

TEST(RemovableMedia, ADeviceCanBeTakenOutIfItsDiskSaysSoOrHangsOnUsbOrInACardSlot) {
  const kestrava::testing::TempFolder folder;
  const auto put = [&](const fs::path& disk, const std::string& partition, const char* removable) {
    fs::create_directories(folder / "devices" / disk / partition);
    std::ofstream(folder / "devices" / disk / "removable") << removable;
    fs::create_directories(folder / "block");
    fs::create_symlink(folder / "devices" / disk, folder / "block" / disk.filename());
    fs::create_symlink(folder / "devices" / disk / partition, folder / "block" / partition);
  };
  put("pci/ata1/block/sda", "sda1", "0\n");
  put("pci/usb2/block/sdb", "sdb1", "0\n");
  put("pci/ata2/block/sdc", "sdc1", "1\n");
  put("platform/mmc_host/block/mmcblk0", "mmcblk0p1", "0\n");
  for (const char* device : {"/dev/sdb1", "/dev/sdc1", "/dev/sdc", "/dev/mmcblk0p1"}) {
    EXPECT_TRUE(CanBeTaken(folder / "block", device)) << device;
  }
  for (const char* device : {"/dev/sda1", "/dev/sda", "/dev/none1"}) {
    EXPECT_FALSE(CanBeTaken(folder / "block", device)) << device;
  }
}

TEST(RemovableMedia, MountsThatAreGoneAreNotListed) {
  const kestrava::testing::TempFolder folder;
  std::ofstream(folder / "mounts") << "/dev/sdb1 /media/nobody/none-such vfat rw 0 0\n";
  EXPECT_TRUE(PosixFiles(folder / "mounts").RemovableMedia().empty());
  EXPECT_THROW(PosixFiles(folder / "no mounts").RemovableMedia(), Fault);
}

}  // namespace
}  // namespace kestrava::platform
