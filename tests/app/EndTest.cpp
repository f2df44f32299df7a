// The end of a run that the system asks for, and one that comes without asking.
#include <algorithm>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Program.h"
#include "support/TempFolder.h"

namespace kestrava::app {
namespace {

namespace fs = std::filesystem;

const fs::path kShipped = KESTRAVA_SOURCE_DIR "data/sample";
const std::string kLastFileOfALauncher = "cust2.dat";  // read when it is activated

std::string Content(const fs::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

std::vector<std::string> NamesIn(const fs::path& folder) {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(folder)) names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

class ProgramEnd : public ::testing::Test {
 protected:
  std::vector<std::string> OnFolder() const { return {"--data", data_.string()}; }
  std::vector<std::string> OnTour() const { return {"--data", data_.string(), "--tour", (home_ / "tour").string()}; }

  /// A folder as a user has it: his own order of favourites, a file of his own.
  void FillFolder() {
    fs::copy(kShipped, data_);
    std::istringstream shipped(Content(kShipped / "faves.dat"));
    std::string faves;
    for (std::string line; std::getline(shipped, line);) faves.insert(0, line + "\n");
    std::ofstream(data_ / "faves.dat", std::ios::binary) << faves;
    std::ofstream(data_ / "notes.txt") << "mine";
    userFaves_ = faves;
  }

  void ExpectWholeFolder(const std::string& when) {
    std::vector<std::string> expected = NamesIn(kShipped);
    if (!userFaves_.empty()) expected.emplace_back("notes.txt");
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(NamesIn(data_), expected) << when << " (an error.log among them tells of a fault)";
    for (const std::string& name : NamesIn(kShipped)) {
      const bool isUsers = name == "faves.dat" && !userFaves_.empty();
      EXPECT_TRUE(Content(data_ / name) == (isUsers ? userFaves_ : Content(kShipped / name))) << when << ": " << name;
    }
    EXPECT_EQ(NamesIn(temp_.Path()), (std::vector<std::string>{"data", "home"})) << when;
  }

  /// Runs it until the launcher stands, and asks it to end.
  void ExpectOneGoodRun(const std::string& when) {
    Program program(home_, OnTour());
    EXPECT_TRUE(program.WaitForLineEndingIn("frmLAUNCHER.png")) << when;
    program.Send(SIGTERM);
    EXPECT_EQ(program.End(), "code 1") << when;  // a tour that is not complete
    ExpectWholeFolder(when);
  }

  const testing::TempFolder temp_;
  const fs::path home_ = temp_ / "home";
  const fs::path data_ = temp_ / "data";
  std::string userFaves_;
};

class ProgramEndBySignal : public ProgramEnd, public ::testing::WithParamInterface<int> {};

TEST_P(ProgramEndBySignal, IsTheEndInOrder) {
  FillFolder();
  FolderWatch opened(data_);
  Program program(home_, OnFolder());
  ASSERT_TRUE(opened.WaitFor(kLastFileOfALauncher));
  program.Send(GetParam());
  EXPECT_EQ(program.End(), "code 0");
  ExpectWholeFolder("after the signal");
  EXPECT_NE(Content(home_ / "config/kestrava/settings.conf"), "");
}

TEST_P(ProgramEndBySignal, ComesAlsoBeforeTheLauncherStands) {
  FillFolder();
  FolderWatch opened(data_);
  Program program(home_, OnFolder());
  ASSERT_TRUE(opened.WaitForMany(3));
  program.Send(GetParam());
  EXPECT_EQ(program.End(), "code 0");
  ExpectWholeFolder("after the signal");
}

INSTANTIATE_TEST_SUITE_P(Signals, ProgramEndBySignal, ::testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto& signal) { return std::string("Of") + sigabbrev_np(signal.param); });

TEST_F(ProgramEnd, BySignalWhileTheMapPaintsLeavesEverythingWhole) {
  for (const std::string seen : {"mnu3.png", "WorldView-NWQ.png"}) {
    fs::remove_all(data_);
    FillFolder();
    Program program(home_, OnTour());
    ASSERT_TRUE(program.WaitForLineEndingIn(seen)) << seen;
    program.Send(SIGTERM);
    EXPECT_EQ(program.End(), "code 1") << seen;  // a tour that is not complete
    ExpectWholeFolder(seen);
  }
}

TEST_F(ProgramEnd, ASecondSignalEndsItAtOnce) {
  FillFolder();
  FolderWatch opened(data_);
  Program program(home_, OnFolder());
  ASSERT_TRUE(opened.WaitFor(kLastFileOfALauncher));
  program.Pause();
  program.Send(SIGINT);
  program.Send(SIGTERM);
  program.GoOn();
  EXPECT_EQ(program.End(), "signal " + std::to_string(SIGTERM));
  ExpectWholeFolder("after two signals");
}

TEST_F(ProgramEnd, AKillInTheMiddleOfAFirstStartIsMendedByTheNextOne) {
  const int files = static_cast<int>(NamesIn(kShipped).size());
  for (int opened = 1; opened <= files; opened += files / 4) {
    {
      FolderWatch shipped(kShipped);
      Program program(home_, OnFolder());
      ASSERT_TRUE(shipped.WaitForMany(opened)) << opened;
      program.Send(SIGKILL);
      EXPECT_EQ(program.End(), "signal 9");
    }
    ExpectOneGoodRun("killed when " + std::to_string(opened) + " shipped files had been opened");
    fs::remove_all(data_);
    fs::remove_all(home_);
  }
}

TEST_F(ProgramEnd, AKillInTheMiddleOfALaterStartDamagesNothing) {
  FillFolder();
  for (int opened = 1; opened <= 26; opened += 5) {
    {
      FolderWatch own(data_);
      Program program(home_, OnFolder());
      ASSERT_TRUE(own.WaitForMany(opened)) << opened;
      program.Send(SIGKILL);
      EXPECT_EQ(program.End(), "signal 9");
    }
    ExpectOneGoodRun("killed when " + std::to_string(opened) + " files had been opened");
  }
}

}  // namespace
}  // namespace kestrava::app
