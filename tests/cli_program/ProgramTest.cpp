// The real program in a terminal: without a display, on folders of its own, with what it prints, how it ends, and what
// it leaves on the disk.
#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/StationFiles.h"
#include "support/TempFolder.h"

namespace kestrava::cli {
namespace {

namespace fs = std::filesystem;

std::string Content(const fs::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

struct Ended {
  std::string how;  ///< "code 0", "signal 13"
  std::string out;
  std::string err;
};

/// Everything about a folder that a write would change.
std::map<std::string, std::string> StateOf(const fs::path& folder) {
  std::map<std::string, std::string> state;
  const auto note = [&](const fs::path& path) {
    struct stat status {};
    ASSERT_EQ(::lstat(path.c_str(), &status), 0) << path;
    std::ostringstream text;
    text << status.st_mtim.tv_sec << "." << status.st_mtim.tv_nsec << " " << status.st_ctim.tv_sec << "."
         << status.st_ctim.tv_nsec << " " << status.st_ino << " " << status.st_mode << " " << status.st_size;
    if (S_ISREG(status.st_mode)) text << " " << Content(path);
    state[path.string()] = text.str();
  };
  note(folder);
  for (const auto& entry : fs::recursive_directory_iterator(folder)) note(entry.path());
  return state;
}

class RealProgram : public ::testing::Test {
 protected:
  RealProgram() {
    fs::create_directories(home_ / "config/kestrava");
    testing::CopyStationFiles(home_ / "data");
    std::ofstream(home_ / "config/kestrava/settings.conf")
        << "Latitude=51.5\nLongitude=0\nHASL=30\nLocation Name=London\n";
    std::ofstream(home_ / "config/kestrava/settings.lock") << "12345678";
    std::ofstream(home_ / "data/pass.dat") << "Morning\r\nISS (ZARYA);\r\nNOAA 15;\r\n2\r\n1\r\n1\r\n";
    std::ofstream(home_ / "data/faves.dat") << "NOBODY KNOWS\nISS (ZARYA)\n\nNOAA 15";
  }

  /// @param where  device or file that its answer goes to; empty: it is read
  Ended Run(const std::vector<std::string>& arguments, const std::string& where = {}) {
    const fs::path out = where.empty() ? fs::path(scratch_ / "out") : fs::path(where);
    const fs::path err = scratch_ / "err";
    const pid_t child = ::fork();
    if (child == 0) Become(arguments, out, err);
    int status = 0;
    ::waitpid(child, &status, 0);
    const std::string how = WIFSIGNALED(status) ? "signal " + std::to_string(WTERMSIG(status))
                                                : "code " + std::to_string(WEXITSTATUS(status));
    return {how, where.empty() ? Content(out) : std::string(), Content(err)};
  }

  Ended OnData(std::vector<std::string> arguments) {
    arguments.insert(arguments.end(), {"--data", (home_ / "data").string()});
    return Run(arguments);
  }

  std::string zone_ = "UTC";
  std::string locale_ = "C";
  std::string display_;  ///< a variable that names one: "DISPLAY=:1"
  int answerTo_ = -1;    ///< a descriptor that the answer goes to instead
  bool pipesIgnored_ = false;
  testing::TempFolder home_;
  testing::TempFolder scratch_;

 private:
  [[noreturn]] void Become(const std::vector<std::string>& arguments, const fs::path& out, const fs::path& err) const {
    const int outFile = answerTo_ >= 0 ? answerTo_ : ::open(out.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    ::dup2(outFile, STDOUT_FILENO);
    ::dup2(::open(err.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600), STDERR_FILENO);
    ::signal(SIGPIPE, pipesIgnored_ ? SIG_IGN : SIG_DFL);
    const char* locales = std::getenv("LOCPATH");
    std::vector<std::string> environment{"PATH=/usr/bin:/bin",
                                         "HOME=" + home_.Path().string(),
                                         "XDG_CONFIG_HOME=" + (home_ / "config").string(),
                                         "XDG_DATA_HOME=" + (home_ / "share").string(),
                                         "TZ=" + zone_,
                                         "LC_ALL=" + locale_};
    if (!display_.empty()) environment.push_back(display_);
    if (locales) environment.push_back("LOCPATH=" + std::string(locales));
    std::vector<std::string> words{KESTRAVA_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    const auto pointers = [](std::vector<std::string>& texts) {
      std::vector<char*> ends;
      for (std::string& text : texts) ends.push_back(text.data());
      ends.push_back(nullptr);
      return ends;
    };
    ::execve(KESTRAVA_PROGRAM, pointers(words).data(), pointers(environment).data());
    ::_exit(127);
  }
};

const std::vector<std::vector<std::string>> kCommands{
    {"passes", "ISS (ZARYA)", "--from", "2026-11-15", "--days", "3"},
    {"passes", "25544", "--from", "2026-11-15", "--format", "csv"},
    {"passes", "25544", "--from", "2026-11-15", "--format", "json", "--days", "3", "--visible"},
    {"passes", "25544", "--from", "2026-11-15", "--format", "ical", "--at", "-33.9,151.2,20"},
    {"next"},
    {"next", "NOAA 15", "--at-time", "2026-11-15T12:00Z", "--format", "json"},
    {"where", "25544", "NOAA 15", "--at-time", "2026-11-15T12:00Z"},
    {"where", "25544", "--format", "csv", "--at-time", "2026-11-15T12:00Z"},
    {"list"},
    {"list", "groups", "--format", "json"},
    {"list", "favourites"},
    {"job", "Morning", "--from", "2026-11-15"},
    {"job", "Morning", "--from", "2026-11-15", "--format", "json"}};

TEST_F(RealProgram, EveryCommandAnswersWithoutADisplayAndLeavesTheDiskAsItWas) {
  const auto before = StateOf(home_.Path());
  for (const auto& arguments : kCommands) {
    const Ended ended = OnData(arguments);
    EXPECT_EQ(ended.how, "code 0") << arguments[0] << "\n" << ended.err;
    EXPECT_FALSE(ended.out.empty()) << arguments[0];
    EXPECT_EQ(StateOf(home_.Path()), before) << arguments[0];
  }
}

TEST_F(RealProgram, AFolderThatCannotBeWrittenDoesAsWell) {
  const auto answers = [&] {
    std::vector<std::string> all;
    for (const auto& arguments : kCommands) {
      if (arguments.size() > 3) all.push_back(OnData(arguments).out);
    }
    return all;
  };
  const auto writable = answers();
  fs::permissions(home_ / "data", fs::perms::owner_read | fs::perms::owner_exec);
  fs::permissions(home_ / "config/kestrava", fs::perms::owner_read | fs::perms::owner_exec);
  const auto before = StateOf(home_.Path());
  const auto readOnly = answers();
  EXPECT_EQ(StateOf(home_.Path()), before);
  fs::permissions(home_ / "data", fs::perms::owner_all);
  fs::permissions(home_ / "config/kestrava", fs::perms::owner_all);
  ASSERT_EQ(readOnly.size(), writable.size());
  for (std::size_t i = 0; i < readOnly.size(); ++i) {
    const bool isCalendar = writable[i].starts_with("BEGIN:VCALENDAR");  // dated by the clock
    EXPECT_TRUE(isCalendar || readOnly[i] == writable[i]) << readOnly[i] << writable[i];
    EXPECT_EQ(readOnly[i].size(), writable[i].size());
  }
}

TEST_F(RealProgram, WithoutAFolderNoneIsMade) {
  fs::remove_all(home_ / "data");
  fs::remove_all(home_ / "config");
  zone_ = "Europe/Berlin";
  const auto before = StateOf(home_.Path());
  const Ended ended = Run({"passes", "25544", "--from", "2026-11-15", "--format", "json"});
  EXPECT_EQ(ended.how, "code 0") << ended.err;
  EXPECT_NE(ended.out.find("\"name\": \"Berlin\""), std::string::npos) << ended.out;
  EXPECT_NE(ended.err.find("holds no data yet"), std::string::npos);
  EXPECT_EQ(StateOf(home_.Path()), before);
}

TEST_F(RealProgram, ExitCodesTellWhatHappened) {
  EXPECT_EQ(OnData({"where", "25544"}).how, "code 0");
  EXPECT_EQ(OnData({"where", "nobody"}).how, "code 1");
  EXPECT_EQ(OnData({"passes", "25544", "--at", "89,0,0"}).how, "code 1");
  EXPECT_EQ(OnData({"job", "nobody"}).how, "code 1");
  EXPECT_EQ(OnData({"where"}).how, "code 2");
  EXPECT_EQ(OnData({"passes", "25544", "--days", "nan"}).how, "code 2");
  EXPECT_EQ(OnData({"pases"}).how, "code 2");
  EXPECT_EQ(Run({"--version"}).out, "Kestrava 2.0.2\n");
  EXPECT_EQ(Run({"--help"}).how, "code 0");
}

TEST_F(RealProgram, AnOptionThatMakesNoSenseIsToldWithoutADisplay) {
  for (const std::vector<std::string>& arguments : {std::vector<std::string>{"--nonsense"},
                                                    {"-nonsense"},
                                                    {"--data"},
                                                    {"--data", "/nowhere", "--nonsense"},
                                                    {"-"}}) {
    const Ended ended = Run(arguments);
    EXPECT_EQ(ended.how, "code 2") << arguments.back() << ": " << ended.err;
    EXPECT_EQ(ended.out, "");
    EXPECT_TRUE(ended.err.starts_with("kestrava: ")) << ended.err;
    EXPECT_EQ(std::count(ended.err.begin(), ended.err.end(), '\n'), 1) << ended.err;
  }
}

TEST_F(RealProgram, WindowsWithoutADisplayAreToldInOneLine) {
  const Ended ended = Run({});
  EXPECT_EQ(ended.how, "code 1");
  EXPECT_EQ(ended.out, "");
  EXPECT_EQ(ended.err, "kestrava: there is no display for its windows. kestrava --help names what needs none\n");
}

TEST_F(RealProgram, ADisplayThatCannotBeUsedIsToldInOneLineAndEndsNothingByASignal) {
  for (const char* display : {"DISPLAY=:4711", "DISPLAY=no host:0", "QT_QPA_PLATFORM=none"}) {
    display_ = display;
    const Ended ended = Run({"--data", (home_ / "data").string()});
    EXPECT_EQ(ended.how, "code 1") << display;
    EXPECT_EQ(ended.err.rfind("kestrava: there is no display for its windows (", 0), 0U) << ended.err;
    EXPECT_EQ(std::count(ended.err.begin(), ended.err.end(), '\n'), 1) << ended.err;
  }
}

TEST_F(RealProgram, AFileWhereAFolderIsNeededIsWrongUse) {
  display_ = "QT_QPA_PLATFORM=offscreen";
  const std::string file = (home_ / "data/groups.dat").string();
  const std::string before = Content(file);
  for (const char* option : {"--data", "--tour"}) {
    const Ended ended = Run({option, file});
    EXPECT_EQ(ended.how, "code 2") << option;
    const std::string line = "kestrava: " + std::string(option) + " needs a folder, and " + file +
                             " is a file. kestrava --help tells what there is.\n";
    EXPECT_TRUE(ended.err.ends_with(line)) << ended.err;  // the toolkit may speak of its folders before
  }
  EXPECT_EQ(Content(file), before);
}

TEST_F(RealProgram, EachSideOfAChangeOfTheClocksHasItsOwnOffset) {
  const std::vector<std::string> arguments{"passes",   "25544", "--from", "2026-10-31T04:00Z", "--days", "3",
                                           "--format", "csv",   "--at",   "40.7,-74,10"};
  const auto starts = [&](const std::string& zone) {
    zone_ = zone;
    std::vector<std::string> all;
    std::istringstream lines(OnData(arguments).out);
    for (std::string line; std::getline(lines, line);) {
      std::istringstream fields(line);
      std::string field;
      for (int i = 0; i < 4; ++i) std::getline(fields, field, ',');
      all.push_back(field);
    }
    all.erase(all.begin());
    return all;
  };
  const auto utc = starts("UTC");
  const auto local = starts("America/New_York");
  ASSERT_EQ(utc.size(), local.size());
  ASSERT_GT(utc.size(), 6u);
  int before = 0;
  int after = 0;
  for (std::size_t i = 0; i < utc.size(); ++i) {
    const bool summer = utc[i] < "2026-11-01T06:00";
    EXPECT_EQ(local[i].substr(23), summer ? "-04:00" : "-05:00") << utc[i];
    EXPECT_EQ(utc[i].substr(23), "+00:00");
    const int utcHour = std::stoi(utc[i].substr(11, 2));
    const int localHour = std::stoi(local[i].substr(11, 2));
    EXPECT_EQ((utcHour + 24 - localHour) % 24, summer ? 4 : 5) << utc[i] << " " << local[i];
    EXPECT_EQ(utc[i].substr(13, 10), local[i].substr(13, 10));
    ++(summer ? before : after);
  }
  EXPECT_GT(before, 0);
  EXPECT_GT(after, 0);
}

TEST_F(RealProgram, ADateOfAZoneBeginsAtItsOwnMidnight) {
  zone_ = "America/New_York";
  const auto from = [&](const std::string& text) {
    const std::string out =
        OnData({"passes", "25544", "--from", text, "--days", "3", "--at", "40.7,-74,10", "--format", "json"}).out;
    const std::size_t at = out.find("\"from\": \"");
    return at == std::string::npos ? out : out.substr(at + 9, 29);
  };
  EXPECT_EQ(from("2026-11-01"), "2026-11-01T00:00:00.000-04:00");
  EXPECT_EQ(from("2026-11-02"), "2026-11-02T00:00:00.000-05:00");
  EXPECT_EQ(from("2026-11-01T01:30"), "2026-11-01T01:30:00.000-04:00") << "the earlier of two";
  EXPECT_EQ(from("2026-11-01T01:30-05:00"), "2026-11-01T01:30:00.000-05:00");
}

TEST_F(RealProgram, DataPrintPointsAndDatesEnglishMonthsInEveryLocale) {
  const auto all = [&] {
    std::vector<std::string> answers;
    for (const auto* format : {"csv", "json", "text"})
      answers.push_back(OnData({"passes", "25544", "--from", "2026-12-01", "--days", "3", "--format", format}).out);
    return answers;
  };
  const auto plain = all();
  locale_ = "de_DE.UTF-8";  // where it is not installed this is the plain one again
  EXPECT_EQ(all(), plain);
  EXPECT_NE(plain[2].find("DEC 2026"), std::string::npos);
}

TEST_F(RealProgram, AReaderWhoGoesAwayIsNoFault) {
  for (const bool ignored : {false, true}) {
    int ends[2];
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    ::close(ends[0]);
    answerTo_ = ends[1];
    pipesIgnored_ = ignored;
    const Ended ended = OnData({"list"});
    ::close(ends[1]);
    EXPECT_EQ(ended.how, ignored ? "code 0" : "signal 13");
    EXPECT_EQ(ended.err, "");
  }
}

TEST_F(RealProgram, AnAnswerThatCannotBeWrittenIsTold) {
  const Ended ended = Run({"list", "--data", (home_ / "data").string()}, "/dev/full");
  EXPECT_EQ(ended.how, "code 1");
  EXPECT_NE(ended.err.find("could not be written"), std::string::npos);
}

TEST_F(RealProgram, TwoCalendarsNameTheSamePassesAlike) {
  const auto uids = [&](const std::string& from) {
    std::vector<std::string> all;
    std::istringstream lines(OnData({"passes", "25544", "--from", from, "--days", "3", "--format", "ical"}).out);
    for (std::string line; std::getline(lines, line);) {
      if (line.starts_with("UID:")) all.push_back(line);
    }
    return all;
  };
  const auto first = uids("2026-11-15");
  const auto again = uids("2026-11-16");
  ASSERT_GT(first.size(), 8u);
  int common = 0;
  for (const std::string& uid : again) common += static_cast<int>(std::count(first.begin(), first.end(), uid));
  EXPECT_GT(common, 4);
  EXPECT_EQ(uids("2026-11-15"), first);
}

}  // namespace
}  // namespace kestrava::cli
