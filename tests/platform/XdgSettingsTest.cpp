#include <algorithm>
#include <csignal>
#include <fstream>
#include <iterator>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "platform/Fault.h"
#include "platform/linux/XdgSettings.h"

#include "support/ScriptedClock.h"
#include "support/TempFolder.h"

namespace kestrava::platform {
namespace {

namespace fs = std::filesystem;

class RealSettings : public ::testing::Test {
 protected:
  fs::path File() const { return folder / "kestrava/settings.conf"; }
  std::string Text() const {
    std::ifstream in(File(), std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  void PutText(const std::string& text) const {
    fs::create_directories(File().parent_path());
    std::ofstream(File(), std::ios::binary) << text;
  }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(File().parent_path())) {
      names.push_back(entry.path().filename().string());
    }
    std::sort(names.begin(), names.end());
    return names;
  }
  std::unique_ptr<XdgSettings> Open() {
    return std::make_unique<XdgSettings>(
        folder / "kestrava", clock, [this](const fs::path& aside) { reports.push_back(aside); },
        [this](const std::string& oddity) { oddities.push_back(oddity); });
  }

  kestrava::testing::TempFolder folder;
  kestrava::testing::ScriptedClock clock;
  std::vector<fs::path> reports;
  std::vector<std::string> oddities;
};

TEST_F(RealSettings, AReadMakesNoFile) {
  EXPECT_EQ(Open()->Get("Miles"), "");
  EXPECT_FALSE(fs::exists(folder / "kestrava"));
}

TEST_F(RealSettings, AValueIsThereInTheNextRun) {
  Open()->Set("Location Name", " Zürich = home ");
  EXPECT_EQ(Open()->Get("LOCATION NAME"), " Zürich = home ");
  EXPECT_EQ(Text(), "Location Name= Zürich = home \n");
}

TEST_F(RealSettings, EveryTextComesBackAsItWas) {
  const std::string odd[] = {"",
                             " ",
                             "a=b",
                             "\\",
                             "\\n",
                             "line\nline\r\n",
                             "\t",
                             "= = =",
                             "\"quoted\"",
                             "C:\\temp\\new",
                             "# no remark",
                             std::string("a\0b", 3),
                             "51,5",
                             "\xEF\xBB\xBFmarked",
                             "#",
                             "\t \\ "};
  auto store = Open();
  for (std::size_t i = 0; i < std::size(odd); ++i) {
    store->Set("value" + std::to_string(i), odd[i]);
    store->Set("key " + odd[i] + " end", std::to_string(i));
    store->Set(odd[i] + "i" + std::to_string(i) + odd[i], std::to_string(i));
  }
  store = Open();
  for (std::size_t i = 0; i < std::size(odd); ++i) {
    EXPECT_EQ(store->Get("value" + std::to_string(i)), odd[i]) << i;
    EXPECT_EQ(store->Get("key " + odd[i] + " end"), std::to_string(i)) << i;
    EXPECT_EQ(store->Get(odd[i] + "i" + std::to_string(i) + odd[i]), std::to_string(i)) << i;
  }
  EXPECT_TRUE(reports.empty());
}

TEST_F(RealSettings, AKeyMayBeginWithAByteOrderMark) {
  Open()->Set("\xEF\xBB\xBFkey", "1");
  EXPECT_EQ(Open()->Get("\xEF\xBB\xBFkey"), "1");
}

TEST_F(RealSettings, BytesThatAreNoUtf8DoNotDamageTheFile) {
  Open()->Set("Location Name", "Z\xFCrich");
  EXPECT_EQ(Open()->Get("Location Name"), "Zürich");
  EXPECT_TRUE(reports.empty());
}

TEST_F(RealSettings, OneKeyInTwoSpellingsIsOneLine) {
  auto store = Open();
  store->Set("FqOffset", "5000");
  store->Set("FQoffset", "0");
  EXPECT_EQ(Text(), "FqOffset=0\n");
}

TEST_F(RealSettings, AValueThatStandsIsNotWrittenAgain) {
  auto store = Open();
  store->Set("WinPosX", "200");
  const auto before = fs::last_write_time(File());
  fs::permissions(File().parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
  store->Set("WinPosX", "200");
  store->Set("winposx", "200");
  fs::permissions(File().parent_path(), fs::perms::owner_all);
  EXPECT_EQ(fs::last_write_time(File()), before);
}

TEST_F(RealSettings, AFileFromAnotherEditorIsRead) {
  PutText("\xEF\xBB\xBFSkin=0\r\n\r\n Miles=1\r\nskin=1");
  const auto store = Open();
  EXPECT_EQ(store->Get("Skin"), "1") << "the last line of a key counts";
  EXPECT_EQ(store->Get("Miles"), "1") << "blanks around a key are no part of it";
  EXPECT_TRUE(reports.empty());
}

TEST_F(RealSettings, WhatAUserWritesByHandCostsNothingButItselfAndStaysInItsPlace) {
  const std::string head = "# My station\n\n  Miles = 1 \n";
  const std::string rest = "Location Name=Z\xFCrich\nLatitude 47\n# the balcony\nSkin=0\n";
  PutText(head + rest);
  auto store = Open();
  EXPECT_TRUE(oddities.empty()) << "whoever makes the store cannot be told anything yet";
  EXPECT_EQ(store->Get("Miles"), "1") << "a blank in front of the sign: those around the value are none of it";
  EXPECT_EQ(store->Get("Location Name"), "Zürich");
  EXPECT_EQ(store->Get("Skin"), "0");
  EXPECT_EQ(store->Get("Latitude"), "");
  store->Set("MapFile", "a");
  store->Set("Skin", "1");
  EXPECT_EQ(Text(), head + "Location Name=Z\xFCrich\nMapFile=a\nLatitude 47\n# the balcony\nSkin=1\n");
  EXPECT_EQ(Open()->Get("Location Name"), "Zürich");
  EXPECT_TRUE(reports.empty()) << "nothing was set aside";
}

TEST_F(RealSettings, ALineThatSaysNothingIsNamedOnceInARunWithItsNumber) {
  PutText("Skin=0\nLatitude 47\nLocation Name=Z\xFCrich\n# a remark\n");
  const auto store = Open();
  store->Get("Skin");
  const std::vector<std::string> told = {"line 2 is no setting: 'Latitude 47'",
                                         "line 3 is not UTF-8 and was read as Latin-1: 'Location Name=Zürich'"};
  EXPECT_EQ(oddities, told);
  for (const char* key : {"A", "B", "Miles"}) store->Set(key, "1");
  store->Get("Skin");
  EXPECT_EQ(oddities, told) << "though its number is another one now";
}

TEST_F(RealSettings, WhatTheUserHasWrittenAboveTheFirstSettingStaysThere) {
  PutText("# Mine\nMiles=1\n");
  Open()->Set("AutoSelect", "1");
  EXPECT_EQ(Text(), "# Mine\nMiles=1\nAutoSelect=1\n");
  PutText("# Mine alone\n");
  Open()->Set("Miles", "1");
  EXPECT_EQ(Text(), "# Mine alone\nMiles=1\n");
}

TEST_F(RealSettings, OfTwoLinesOfOneKeyTheLastOneIsWritten) {
  PutText("Skin=0\nMiles=1\nskin=1\n");
  Open()->Set("Skin", "0");
  EXPECT_EQ(Text(), "Skin=0\nMiles=1\nskin=0\n");
  EXPECT_EQ(Open()->Get("Skin"), "0");
}

TEST_F(RealSettings, ALockFileThatIsCutWhileWeRunEndsNothingAndLosesNoChange) {
  auto first = Open();
  first->Set("Miles", "1");
  auto second = Open();
  EXPECT_EQ(second->Get("Miles"), "1");
  fs::resize_file(File().parent_path() / "settings.lock", 0);
  EXPECT_EQ(first->Get("Miles"), "1");
  first->Set("Miles", "0");
  EXPECT_EQ(second->Get("Miles"), "0");
  fs::resize_file(File().parent_path() / "settings.lock", 3);
  second->Set("Miles", "1");
  EXPECT_EQ(first->Get("Miles"), "1");
}

TEST_F(RealSettings, APipeInPlaceOfTheFilesIsNotWaitedFor) {
  fs::create_directories(File().parent_path());
  ASSERT_EQ(::mkfifo(File().c_str(), 0600), 0);
  ASSERT_EQ(::mkfifo((File().parent_path() / "settings.lock").c_str(), 0600), 0);
  auto store = Open();
  EXPECT_EQ(store->Get("Miles"), "");
  EXPECT_THROW(store->Set("Miles", "1"), Fault);
  EXPECT_TRUE(fs::is_fifo(File())) << "it is not ours to replace";
}

TEST_F(RealSettings, TheFileIsTheUsersOwn) {
  Open()->Set("ProxyPass", "secret");
  EXPECT_EQ(fs::status(File()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_F(RealSettings, AFileThatIsNoTextIsSetAsideUnderADatedNameAndSaidOnce) {
  const std::string damaged[] = {std::string("Skin=1\n\0\n", 9), std::string(433, '\0'),
                                 std::string("S\0k\0i\0n\0=\0"
                                             "1\0",
                                             12)};
  for (const std::string& text : damaged) {
    fs::remove_all(folder / "kestrava");
    reports.clear();
    PutText(text);
    const auto store = Open();
    const fs::path aside = folder / "kestrava/settings.conf.damaged-2024-06-01-12-00-00";
    EXPECT_EQ(reports, std::vector<fs::path>{}) << "whoever makes the store cannot show anything yet";
    EXPECT_EQ(store->Get("Skin"), "") << "the run goes on with defaults";
    EXPECT_EQ(reports, std::vector<fs::path>{aside});
    store->Set("Miles", "1");
    EXPECT_EQ(Text(), "Miles=1\n");
    std::ifstream kept(aside, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(kept), {}), text);
    EXPECT_EQ(reports.size(), 1U);
  }
}

TEST_F(RealSettings, TwoDamagedFilesOfOneMomentAreBothKept) {
  PutText(std::string("first\0", 6));
  Open();
  PutText(std::string("second\0", 7));
  Open();
  EXPECT_EQ(Names(), (std::vector<std::string>{"settings.conf.damaged-2024-06-01-12-00-00",
                                               "settings.conf.damaged-2024-06-01-12-00-00-2", "settings.lock"}));
}

TEST_F(RealSettings, AFileDamagedWhileWeRunIsSetAsideAtTheNextWrite) {
  auto store = Open();
  store->Set("Skin", "0");
  PutText(std::string(7, '\0'));
  store->Set("Miles", "1");
  EXPECT_EQ(Text(), "Miles=1\n");
  EXPECT_EQ(reports.size(), 1U);
}

TEST_F(RealSettings, ACopyInTheSameSecondSeesWhatAnotherHasWritten) {
  auto first = Open();
  auto second = Open();
  EXPECT_EQ(second->Get("MapFile"), "");
  first->Set("MapFile", "a");
  EXPECT_EQ(second->Get("MapFile"), "a") << "though there was no file to share when it started";
  for (int i = 0; i < 20; ++i) {
    const std::string value = std::to_string(i % 2);  // same size, maybe the same clock tick
    first->Set("MapFile", value);
    ASSERT_EQ(second->Get("mapfile"), value) << i;
    second->Set("Miles", value);
    ASSERT_EQ(first->Get("Miles"), value) << i;
  }
}

TEST_F(RealSettings, AWriteKeepsWhatAnotherCopyHasWrittenMeanwhile) {
  auto first = Open();
  auto second = Open();
  first->Set("A", "1");
  second->Set("B", "2");
  first->Set("C", "3");
  EXPECT_EQ(Text(), "A=1\nB=2\nC=3\n");
}

TEST_F(RealSettings, AFolderThatWasRemovedIsMadeAnew) {
  auto store = Open();
  store->Set("A", "1");
  fs::remove_all(folder / "kestrava");
  store->Set("B", "2");
  EXPECT_EQ(Text(), "B=2\n") << "the file is read anew at each write";
}

TEST_F(RealSettings, AStoreThatCannotBeWrittenSaysSoAndKeepsWhatItHas) {
  auto store = Open();
  store->Set("A", "1");
  for (rlim_t offset = 0; offset < 8; ++offset) {
    rlimit earlier{};
    ::getrlimit(RLIMIT_FSIZE, &earlier);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit{offset, earlier.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_THROW(store->Set("B", "2"), Fault) << offset;
    ::setrlimit(RLIMIT_FSIZE, &earlier);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(store->Get("B"), "");
    EXPECT_EQ(Text(), "A=1\n");
  }
  EXPECT_EQ(Names(), (std::vector<std::string>{"settings.conf", "settings.lock"}));
}

TEST_F(RealSettings, AFileInPlaceOfTheFolderIsAFault) {
  std::ofstream(folder / "kestrava") << "x";
  auto store = Open();
  EXPECT_EQ(store->Get("A"), "");
  EXPECT_THROW(store->Set("A", "1"), Fault);
}

TEST_F(RealSettings, AKillInMidWriteLosesNothingWrittenBefore) {
  for (int round = 0; round < 12; ++round) {
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    const pid_t child = ::fork();
    if (child == 0) {
      XdgSettings store(folder / "kestrava", clock);
      for (int i = 0;; ++i) {
        store.Set("Counter", std::to_string(round * 100000 + i));
        if (::write(ends[1], &i, sizeof i) != sizeof i) ::_exit(1);
      }
    }
    int last = 0;
    for (int i = 0; i <= round; ++i) ASSERT_EQ(::read(ends[0], &last, sizeof last), ssize_t{sizeof last});
    ::kill(child, SIGKILL);
    ::waitpid(child, nullptr, 0);
    ::close(ends[1]);
    while (::read(ends[0], &last, sizeof last) == ssize_t{sizeof last}) continue;  // all that it had confirmed
    ::close(ends[0]);
    const int stored = std::stoi(Open()->Get("Counter")) - round * 100000;
    EXPECT_TRUE(stored == last || stored == last + 1) << "confirmed " << last << ", stored " << stored;
  }
  EXPECT_TRUE(reports.empty());
}

TEST_F(RealSettings, TwoCopiesWritingAtOnceLoseNothing) {
  constexpr int kWrites = 100;
  std::vector<pid_t> children;
  for (const char* name : {"left", "right"}) {
    const pid_t child = ::fork();
    if (child == 0) {
      try {
        XdgSettings store(folder / "kestrava", clock);
        for (int i = 0; i < kWrites; ++i) store.Set(name + std::to_string(i), std::to_string(i));
      } catch (...) {
        ::_exit(1);
      }
      ::_exit(0);
    }
    children.push_back(child);
  }
  for (const pid_t child : children) {
    int status = 1;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
  }
  const auto store = Open();
  for (int i = 0; i < kWrites; ++i) {
    EXPECT_EQ(store->Get("left" + std::to_string(i)), std::to_string(i));
    EXPECT_EQ(store->Get("right" + std::to_string(i)), std::to_string(i));
  }
}

}  // namespace
}  // namespace kestrava::platform
