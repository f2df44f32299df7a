// pass.dat: what is listed, read, appended and taken out, and that a broken device or a kill leaves a whole file.

#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/linux/PosixFiles.h"
#include "predict/PassJobs.h"

#include "support/House.h"
#include "support/TempFolder.h"

namespace kestrava::predict {
namespace {

using Names = std::vector<std::string>;

constexpr const char* kTwoJobs =
    "Morning\r\nISS (ZARYA);\r\nNOAA 19;\r\n3\r\n1\r\n0\r\n"
    "Evening\r\nAO-7;\r\n1\r\n0\r\n1\r\n";

JobRecord Weekend() {
  return {"Weekend", {"ISS (ZARYA)", "NOAA 15"}, "2", "1", "0"};
}
constexpr const char* kWeekend = "Weekend\r\nISS (ZARYA);\r\nNOAA 15;\r\n2\r\n1\r\n0\r\n";

class PassJobs : public testing::House {
 protected:
  Names Satellites(const PassJob& job) {
    Names names;
    for (int i = 1; i <= job.satelliteCount; ++i) names.push_back(platform::At(job.satellites, i));
    return names;
  }
};

TEST_F(PassJobs, WithoutAFileThereAreNone) {
  EXPECT_EQ(ListJobs(), Names{});
}

TEST_F(PassJobs, NamesAreListedInFileOrder) {
  Put("pass.dat", kTwoJobs);
  EXPECT_EQ(ListJobs(), (Names{"Morning", "Evening"}));
}

TEST_F(PassJobs, NamesAreListedTrimmedUpToTheFirstBlankLine) {
  Put("pass.dat", "  A \nX;\n1\n0\n0\n \t\nB\nX;\n1\n0\n0\n");
  EXPECT_EQ(ListJobs(), Names{"A"});
}

TEST_F(PassJobs, AFileThatBreaksOffIsLoggedOnce) {
  Put("pass.dat", "A\nX;\n1\n0\n0\nB\nX;\n");
  EXPECT_EQ(ListJobs(), (Names{"A", "B"}));
  EXPECT_EQ(TakeFaults(), Names{"Input past end of file - PassPred-FormLoad"});
}

TEST_F(PassJobs, AFileThatCannotBeReadIsLoggedAndListsNothing) {
  Put("pass.dat", kTwoJobs);
  files.BreakFile("/house/pass.dat", platform::Fault::DeviceError());
  EXPECT_EQ(ListJobs(), Names{});
  EXPECT_EQ(TakeFaults(), Names{"Device I/O error - PassPred-FormLoad"});
}

TEST_F(PassJobs, AJobIsReadForItsRun) {
  Put("pass.dat", kTwoJobs);
  const auto job = ReadJob("Morning");
  ASSERT_TRUE(job);
  EXPECT_EQ(Satellites(*job), (Names{"ISS (ZARYA)", "NOAA 19"}));
  EXPECT_EQ(job->days, 3);
  EXPECT_TRUE(job->save);
  EXPECT_FALSE(job->print);
  EXPECT_TRUE(ReadJob("Evening")->print);
}

TEST_F(PassJobs, ARunTrimsTheNameLine) {
  Put("pass.dat", " A \nX;\n1\n0\n0\n");
  EXPECT_TRUE(ReadJob("A"));
}

TEST_F(PassJobs, AJobThatIsNotThereIsNotRead) {
  Put("pass.dat", kTwoJobs);
  EXPECT_FALSE(ReadJob("Noon"));
  files.Remove("/house/pass.dat");
  EXPECT_FALSE(ReadJob("Morning"));
  EXPECT_EQ(TakeFaults(), Names{"File not found - PassPred-PresetGo"});
}

TEST_F(PassJobs, TheFirstOfTwoOfOneNameIsRead) {
  Put("pass.dat", "A\nX;\n1\n0\n0\nA\nY;\n2\n0\n0\n");
  EXPECT_EQ(ReadJob("A")->days, 1);
  EXPECT_EQ(ReadJobRecord("A")->satellites, Names{"X"});
}

TEST_F(PassJobs, AJobNamedLikeADaysLineIsFound) {
  Put("pass.dat", "A\nX;\n3\n1\n0\n3\nY;\n2\n0\n0\n");
  EXPECT_EQ(Satellites(*ReadJob("3")), Names{"Y"});
  EXPECT_TRUE(RemoveJob("3"));
  EXPECT_EQ(Content("pass.dat"), "A\r\nX;\r\n3\r\n1\r\n0\r\n");
}

TEST_F(PassJobs, AJobBehindABlankLineOrABrokenRecordIsFound) {
  Put("pass.dat", "A\nX;\n3\n1\n0\n\nB\nY;\n2\n0\n0\n");
  EXPECT_TRUE(ReadJob("B"));
  Put("pass.dat", "A\nB\nY;\n2\n0\n0\n");
  EXPECT_TRUE(ReadJob("B"));
}

TEST_F(PassJobs, TextBehindTheSemicolonIsIgnored) {
  Put("pass.dat", "A\nX;ignored;too\n1\n0\n0\n");
  EXPECT_EQ(Satellites(*ReadJob("A")), Names{"X"});
}

TEST_F(PassJobs, DaysThatAreNoNumberCountAsNone) {
  Put("pass.dat", "A\nX;\nseven\n1\n1\n");
  const auto job = ReadJob("A");
  EXPECT_EQ(job->days, 0);
  EXPECT_TRUE(job->save);
  EXPECT_EQ(TakeFaults(), Names{"Type mismatch - PassPred-PresetGo"});
}

TEST_F(PassJobs, DaysBeyondSixteenBitsCountAsNone) {
  Put("pass.dat", "A\nX;\n40000\n1\n1\n");
  EXPECT_EQ(ReadJob("A")->days, 0);
  EXPECT_EQ(TakeFaults(), Names{"Overflow - PassPred-PresetGo"});
}

TEST_F(PassJobs, OnlyExactlyOneIsAFlag) {
  Put("pass.dat", "A\nX;\n1\n1 \ntrue\n");
  EXPECT_FALSE(ReadJob("A")->save);
  EXPECT_FALSE(ReadJob("A")->print);
}

TEST_F(PassJobs, TheFiftyFirstSatelliteIsLoggedAndTheFirstFiftyStand) {
  std::string text = "A\n";
  for (int i = 1; i <= 51; ++i) text += "SAT " + std::to_string(i) + ";\n";
  Put("pass.dat", text + "1\n0\n0\n");
  const auto job = ReadJob("A");
  ASSERT_TRUE(job);
  EXPECT_EQ(TakeFaults(), Names{"Subscript out of range - PassPred-PresetGo"});
  EXPECT_EQ(job->satelliteCount, 51);
  EXPECT_EQ(job->satellites[50], "SAT 50");
  EXPECT_EQ(job->days, 1);
}

TEST_F(PassJobs, AJobThatBreaksOffIsReadAsFarAsItGoes) {
  Put("pass.dat", "A\nX;\n");
  const auto job = ReadJob("A");
  EXPECT_EQ(job->days, 0);
  EXPECT_EQ(TakeFaults().front(), "Input past end of file - PassPred-PresetGo");
}

TEST_F(PassJobs, ARecordIsReadForTheEditor) {
  Put("pass.dat", "A\nX;y;\nZ;\n 3\n1\nno\n");
  const auto job = ReadJobRecord("A");
  ASSERT_TRUE(job);
  EXPECT_EQ(job->satellites, (Names{"Xy", "Z"}));
  EXPECT_EQ(job->days, " 3");
  EXPECT_EQ(job->save, "1");
  EXPECT_EQ(job->print, "no");
  EXPECT_FALSE(ReadJobRecord(" A")) << "the editor compares lines as they stand";
}

TEST_F(PassJobs, AnAppendedJobStandsAtTheEnd) {
  AppendJob(Weekend());
  EXPECT_EQ(Content("pass.dat"), kWeekend);
  AppendJob(Weekend());
  EXPECT_EQ(Content("pass.dat"), std::string(kWeekend) + kWeekend) << "a job of the same name is a second one";
}

TEST_F(PassJobs, AnAppendKeepsEveryByteOfTheFile) {
  const std::string odd = "A\nX;\n3\n1\n0\n\n \nB\rY;\r1\r0\r0";
  Put("pass.dat", odd);
  AppendJob(Weekend());
  EXPECT_EQ(Content("pass.dat"), odd + "\r\n" + kWeekend);
}

TEST_F(PassJobs, AJobThatIsAddedBehindATrailingBlankLineIsListed) {
  for (const char* end : {"\r\n", "\n", " \r\n\t\r\n\r\n", "\n \n  "}) {
    Put("pass.dat", std::string("A\nX;\n1\n0\n0 \n") + end);
    AppendJob(Weekend());
    EXPECT_EQ(ListJobs(), (Names{"A", "Weekend"})) << end;
    EXPECT_EQ(Content("pass.dat"), std::string("A\nX;\n1\n0\n0 \n") + kWeekend);
  }
  for (const char* blank : {"\r\n", "\xEF\xBB\xBF\r\n \r\n"}) {
    Put("pass.dat", blank);
    AppendJob(Weekend());
    EXPECT_EQ(ListJobs(), Names{"Weekend"});
  }
}

TEST_F(PassJobs, AnEditedJobComesBackOnce) {
  EXPECT_FALSE(PutBackEditedJob()) << "there is none";
  Put("pass.dat", kTwoJobs);
  KeepEditedJob("Morning");
  EXPECT_FALSE(PutBackEditedJob()) << "killed before it left the file";
  EXPECT_EQ(Content("pass.dat"), kTwoJobs);
  KeepEditedJob("Morning");
  RemoveJob("Morning");
  EXPECT_EQ(PutBackEditedJob(), "Morning");
  EXPECT_EQ(ListJobs(), (Names{"Evening", "Morning"}));
  EXPECT_EQ(ReadJobRecord("Morning")->satellites, (Names{"ISS (ZARYA)", "NOAA 19"}));
  EXPECT_FALSE(PutBackEditedJob());
}

TEST_F(PassJobs, TheCopyOfOneEditedJobIsNoMatterOfAnothers) {
  Put("pass.dat", kTwoJobs);
  KeepEditedJob("Morning");
  RemoveJob("Morning");
  KeepEditedJob("Evening");  // in another copy of the station
  EXPECT_EQ(ListJobs(), (Names{"Evening", "Morning"})) << "the first is not lost with its copy";
  RemoveJob("Evening");
  ForgetEditedJob("Morning");
  EXPECT_FALSE(PutBackEditedJob("Morning"));
  EXPECT_EQ(PutBackEditedJob("Evening"), "Evening");
  EXPECT_EQ(ListJobs(), (Names{"Morning", "Evening"}));
}

TEST_F(PassJobs, AnEditedJobThatCannotBePutBackKeepsItsCopyFromTheNext) {
  Put("pass.dat", kTwoJobs);
  KeepEditedJob("Morning");
  RemoveJob("Morning");
  files.BreakWriteAfter(0);
  EXPECT_THROW(KeepEditedJob("Evening"), platform::Fault);
  files.Mend();
  EXPECT_EQ(PutBackEditedJob(), "Morning");
}

TEST_F(PassJobs, AnEditedJobThatCannotBeWrittenBackStaysInItsCopy) {
  Put("pass.dat", kTwoJobs);
  KeepEditedJob("Morning");
  RemoveJob("Morning");
  for (std::size_t bytes = 0; bytes < std::string(kTwoJobs).size(); ++bytes) {
    files.BreakWriteAfter(bytes);
    EXPECT_THROW(PutBackEditedJob(), platform::Fault) << bytes;
    files.Mend();
    EXPECT_TRUE(files.Exists("/house/pass.edit")) << bytes;
  }
  EXPECT_EQ(PutBackEditedJob(), "Morning");
}

TEST_F(PassJobs, AFileOfOldLettersKeepsThemWhereTheyCan) {
  Put("pass.dat", "M\xFCnchen\r\nX;\r\n1\r\n0\r\n0\r\n");
  EXPECT_EQ(ListJobs(), Names{"München"});
  AppendJob({"Köln", {"X"}, "1", "0", "0"});
  EXPECT_EQ(Content("pass.dat"), "M\xFCnchen\r\nX;\r\n1\r\n0\r\n0\r\nK\xF6ln\r\nX;\r\n1\r\n0\r\n0\r\n");
  RemoveJob("München");
  EXPECT_EQ(Content("pass.dat"), "K\xF6ln\r\nX;\r\n1\r\n0\r\n0\r\n");
  AppendJob({"Łódź", {"X"}, "1", "0", "0"});
  EXPECT_EQ(ListJobs(), (Names{"Köln", "Łódź"}));
}

TEST_F(PassJobs, LineEndsInAFieldDoNotBreakTheFile) {
  AppendJob({"two\r\nlines", {"X\nY"}, "1", "0", "0"});
  EXPECT_EQ(ListJobs(), Names{"two  lines"});
  EXPECT_EQ(ReadJob("two  lines")->satellites[1], "X Y");
}

TEST_F(PassJobs, ARemovedJobTakesTheBlankLinesBehindItAlong) {
  Put("pass.dat", "\nA\nX;\n1\n0\n0\n\nB\nY;\n2\n0\n0\n \nC\nZ;\n3\n0\n0\n");
  EXPECT_TRUE(RemoveJob("A"));
  EXPECT_EQ(Content("pass.dat"), "\r\nB\r\nY;\r\n2\r\n0\r\n0\r\nC\r\nZ;\r\n3\r\n0\r\n0\r\n");
}

TEST_F(PassJobs, ANameThatBeginsLikeAByteOrderMarkKeepsThatWhenAnotherJobIsRemoved) {
  const std::string mark = "\xEF\xBB\xBF";
  Put("pass.dat", mark + mark + "One\r\nA;\r\n1\r\n0\r\n0\r\nTwo\r\nB;\r\n1\r\n0\r\n0\r\n");
  ASSERT_EQ(ListJobs(), (Names{mark + "One", "Two"}));
  ASSERT_TRUE(RemoveJob("Two"));
  EXPECT_EQ(ListJobs(), Names{mark + "One"});
}

TEST_F(PassJobs, RecordsBehindABlankLineComeBackWithTheNextDelete) {
  Put("pass.dat", "A\nX;\n1\n0\n0\n\nB\nY;\n2\n0\n0\n");
  ASSERT_EQ(ListJobs(), Names{"A"});
  RemoveJob("A");
  EXPECT_EQ(ListJobs(), Names{"B"});
}

TEST_F(PassJobs, WithoutAnExactMatchTheFileIsUntouched) {
  Put("pass.dat", " A \nX;\n1\n0\n0\n");
  const int changes = files.ChangeCount();
  EXPECT_FALSE(RemoveJob("A"));
  EXPECT_FALSE(RemoveJob("a"));
  EXPECT_EQ(files.ChangeCount(), changes);
  files.Remove("/house/pass.dat");
  EXPECT_FALSE(RemoveJob("A"));
}

TEST_F(PassJobs, TheLastJobLeavesAnEmptyFile) {
  Put("pass.dat", kWeekend);
  EXPECT_TRUE(RemoveJob("Weekend"));
  EXPECT_EQ(Content("pass.dat"), "");
  EXPECT_EQ(ListJobs(), Names{});
}

TEST_F(PassJobs, ALeftoverOfAKilledChangeDoesNoHarm) {
  Put("pass.dat", kTwoJobs);
  Put("pass.new", "half of a fi");
  EXPECT_EQ(ListJobs().size(), 2U);
  AppendJob(Weekend());
  EXPECT_EQ(Content("pass.dat"), std::string(kTwoJobs) + kWeekend);
  EXPECT_FALSE(files.Exists("/house/pass.new"));
}

TEST_F(PassJobs, ADeviceThatBreaksAtAnyByteLeavesTheOldFile) {
  for (std::size_t bytes = 0; bytes < std::string(kTwoJobs).size() + std::string(kWeekend).size(); ++bytes) {
    Put("pass.dat", kTwoJobs);
    files.BreakWriteAfter(bytes);
    EXPECT_THROW(AppendJob(Weekend()), platform::Fault) << bytes;
    EXPECT_EQ(Content("pass.dat"), kTwoJobs) << bytes;
    files.Mend();
  }
  const std::size_t whatIsLeft = std::string("Evening\r\nAO-7;\r\n1\r\n0\r\n1\r\n").size();
  for (std::size_t bytes = 0; bytes < whatIsLeft; ++bytes) {
    files.BreakWriteAfter(bytes);
    EXPECT_THROW(RemoveJob("Morning"), platform::Fault) << bytes;
    EXPECT_EQ(Content("pass.dat"), kTwoJobs) << bytes;
    files.Mend();
  }
}

TEST_F(PassJobs, AKillBeforeTheRenameLeavesTheOldFile) {
  struct Killed {};
  class KilledAtRename : public platform::PosixFiles {
   public:
    void Rename(const Path&, const Path&) override { throw Killed{}; }
  };
  const testing::TempFolder folder;
  const std::string earlier = std::exchange(platform::AppDir, folder.Path().string() + "/");
  KilledAtRename killed;
  platform::PosixFiles real;
  platform::Doors doors = platform::TheDoors();
  doors.files = &real;
  const platform::ScopedDoors realDoors(doors);
  AppendJob(Weekend());
  {
    doors.files = &killed;
    const platform::ScopedDoors killedDoors(doors);
    EXPECT_THROW(AppendJob(Weekend()), Killed);
    EXPECT_THROW(RemoveJob("Weekend"), Killed);
  }
  EXPECT_EQ(real.Read(folder / "pass.dat"), kWeekend);
  EXPECT_TRUE(real.Exists(folder / "pass.new"));
  EXPECT_TRUE(RemoveJob("Weekend"));
  EXPECT_EQ(real.Read(folder / "pass.dat"), "");
  EXPECT_FALSE(real.Exists(folder / "pass.new"));
  platform::AppDir = earlier;
}

TEST_F(PassJobs, AFileInCapitalsIsTheSameFile) {
  Put("PASS.DAT", kTwoJobs);
  EXPECT_EQ(ListJobs().size(), 2U);
  EXPECT_TRUE(RemoveJob("Morning"));
  EXPECT_EQ(files.List("/house"), Names{"PASS.DAT"});
}

}  // namespace
}  // namespace kestrava::predict
