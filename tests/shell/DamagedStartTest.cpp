// Starts on folders that something has damaged: what ends the run, with which way back, and what is told.
#include "store/WaitingFavourites.h"

#include "LauncherRig.h"
#include "support/ElementText.h"

namespace kestrava::shell {
namespace {

using Strings = std::vector<std::string>;

class DamagedStart : public LauncherRig {
 protected:
  /// The report of the fatal activation.
  FatalReport Fatal() {
    Launcher launcher(view, tables, NewSetup());
    launcher.Load();
    TakeFaults();
    try {
      launcher.Activate();
    } catch (const platform::Fault& fault) {
      launcher.BringFavouritesBack();
      return launcher.DescribeFault(fault);
    }
    ADD_FAILURE() << "the station went on";
    return {};
  }
  /// What is told after a start that goes on.
  std::string News() {
    const std::size_t before = messages.Texts().size();
    Launcher launcher(view, tables, NewSetup());
    launcher.Load();
    TakeFaults();
    launcher.Activate();
    eventLoop.RunEvent([] {});
    launcher.Activate();
    eventLoop.RunEvent([] {});
    const Strings& texts = messages.Texts();
    EXPECT_LE(texts.size(), before + 1) << "told once";
    return texts.size() > before ? texts.back() : std::string();
  }
  void TwoGroups() {
    Put("groups.dat", "Amateur,amateur.txt,0\nWeather,host/weather.txt,0\n");
    Put("weather.txt", testing::ElementText("NOAA 15", 25338) + testing::ElementText("NOAA 19", 33591));
    Put("faves.dat", "NOAA 15\nISS (ZARYA)\nNOAA 19\n");
  }
};

TEST_F(DamagedStart, AFirstGroupsFileOfWhichNothingCanBeUsedIsMetAsAMissingOneIs) {
  const std::string whole(kOneSet);
  for (const std::string& damage : {std::string(), std::string("<!DOCTYPE html>\n<html>\n"), whole.substr(0, 100),
                                    std::string(433, '\0'), std::string("1 25544U 98067A   24153.50000000\n")}) {
    SCOPED_TRACE(damage);
    Put("amateur.txt", damage);
    const FatalReport report = Fatal();
    EXPECT_EQ(report.fault, "Invalid file format");
    EXPECT_EQ(
        report.subject,
        "The element file of the first group holds no elements: /house/amateur.txt\nWhere it is replaced, what is "
        "there now is kept as amateur.txt.damaged.");
    EXPECT_EQ(report.missingFile, "amateur.txt");
    EXPECT_FALSE(report.backup);
    EXPECT_EQ(Content("faves.dat"), "ISS (ZARYA)\n") << "nothing was lost";
    EXPECT_FALSE(files.Exists("/house/faves.waiting"));
  }
}

TEST_F(DamagedStart, AFirstGroupsFileThatCannotBeReadIsFatalWithTheReason) {
  files.BreakFile("/house/amateur.txt", platform::Fault::PathFileAccess());
  const FatalReport report = Fatal();
  EXPECT_EQ(report.fault, "Path/File access error");
  EXPECT_EQ(report.subject.substr(0, report.subject.find('\n')),
            "The element file of the first group cannot be read (Path/File access error): /house/amateur.txt");
}

TEST_F(DamagedStart, AFolderInPlaceOfTheFirstGroupsFileIsNoFile) {
  files.Remove("/house/amateur.txt");
  files.MakeFolder("/house/amateur.txt");
  EXPECT_EQ(Fatal().missingFile, "amateur.txt");
}

TEST_F(DamagedStart, AListOfGroupsThatNamesNoneIsFatalAndItsFullestBackupIsOffered) {
  Put("groups.dat.bak", "A,amateur.txt,0\n");
  Put("groups.dat.bak2", "A,amateur.txt,0\nB,b.txt,0\nC,c.txt,1\n");
  Put("groups.dat.bak3", std::string(5000, '\n') + "<html>\nno group\n");
  for (const std::string& damage : {std::string(433, '\0'), std::string(), std::string("<!DOCTYPE html>\n<html>\n")}) {
    SCOPED_TRACE(damage);
    Put("groups.dat", damage);
    const FatalReport report = Fatal();
    EXPECT_EQ(report.subject, "The list of groups names no group: /house/groups.dat");
    ASSERT_TRUE(report.backup);
    EXPECT_EQ(report.backup->fileName, "groups.dat.bak2");
    EXPECT_EQ(report.backup->rows, 3);
    EXPECT_EQ(report.missingFile, "groups.dat");
    EXPECT_EQ(Content("faves.dat"), "ISS (ZARYA)\n");
  }
}

TEST_F(DamagedStart, GroupsThatTheReaderTakesAreGroupsHoweverTheirLinesEnd) {
  files.Remove("/house/amateur.txt");
  for (const char* groups : {"A,amateur.txt,0 \nB,h/b.txt,1 \n", "A,amateur.txt\n", "A,amateur.txt,x\n"}) {
    Put("groups.dat", groups);
    const FatalReport report = Fatal();
    EXPECT_EQ(report.missingFile, "amateur.txt") << groups;
    EXPECT_EQ(Content("groups.dat"), groups);
  }
}

TEST_F(DamagedStart, AListOfGroupsThatCannotBeReadIsNotCalledMissing) {
  files.BreakFile("/house/groups.dat", platform::Fault::PathFileAccess());
  const FatalReport report = Fatal();
  EXPECT_EQ(report.fault, "Path/File access error");
  EXPECT_EQ(report.subject, "The list of groups cannot be read: /house/groups.dat");
  EXPECT_EQ(report.missingFile, "") << "it may be whole";
}

TEST_F(DamagedStart, AMissingListOfGroupsIsOfferedFromItsFullestBackup) {
  files.Remove("/house/groups.dat");
  Put("groups.dat.bak", "A,amateur.txt,0\nB,b.txt,0\n");
  messages.ExpectMessage("Problem finding 'groups.dat' (a file used by kestrava) in the folder: /house/");
  messages.ExpectQuestion(
      "groups.dat.bak, the fullest copy that was kept of groups.dat, has 2 rows. Shall it be put "
      "back? Kestrava ends now in either case: start it again afterwards.",
      true);
  Launcher(view, tables, NewSetup()).Load();
  TakeFaults();
  EXPECT_EQ(Content("groups.dat"), "A,amateur.txt,0\nB,b.txt,0\n");
}

TEST_F(DamagedStart, ABackupThatIsWantedTakesThePlaceOfTheDamagedFile) {
  Put("groups.dat", "<html>\n");
  Put("groups.dat.bak", "A,amateur.txt,0\n");
  messages.ExpectQuestion(
      "Invalid file format.\n\nThe list of groups names no group: /house/groups.dat\n\n"
      "groups.dat.bak, the fullest copy that was kept of groups.dat, has 1 row. Shall it be put back?",
      true);
  ReportFatal(Fatal(), nullptr);
  EXPECT_EQ(Content("groups.dat"), "A,amateur.txt,0\n");
  EXPECT_EQ(Content("groups.dat.damaged"), "<html>\n");
}

TEST_F(DamagedStart, TellsOnceWhichFavouritesAreLeftOutAndWhy) {
  TwoGroups();
  files.BreakFile("/house/weather.txt", platform::Fault::PathFileAccess());
  messages.ExpectMessage(
      "1 of 3 favourites: weather.txt cannot be read (Path/File access error).\n\nNot in the list for "
      "now: NOAA 15, NOAA 19. Kestrava remembers them");
  News();
  EXPECT_EQ(Content("faves.dat"), "ISS (ZARYA)\n");
  EXPECT_EQ(News(), "") << "at the next start it is known";
  files.Mend();
  Put("weather.txt", testing::ElementText("NOAA 15", 25338) + testing::ElementText("NOAA 19", 33591));
  EXPECT_EQ(News(), "");
  EXPECT_EQ(Content("faves.dat"), "NOAA 15\nISS (ZARYA)\nNOAA 19\n");
}

TEST_F(DamagedStart, NamesWhatIsWrongWithEachElementFile) {
  TwoGroups();
  std::string cut = Content("weather.txt");
  cut.resize(cut.size() - 20);
  Put("weather.txt", cut);
  messages.ExpectMessage("2 of 3 favourites: weather.txt holds 1 damaged set.\n\nNot in the list for now: NOAA 19.");
  News();
  files.Remove("/house/weather.txt");
  messages.ExpectMessage("1 of 2 favourites: weather.txt is not there.\n\nNot in the list for now: NOAA 15.");
  News();
}

TEST_F(DamagedStart, AFavouriteThatNoFileNamesAnyMoreIsToldToo) {
  Put("faves.dat", "ISS (ZARYA)\nSPUTNIK 1\n");
  messages.ExpectMessage(
      "1 of 2 favourites: no element file names the others any more.\n\nNot in the list for now: "
      "SPUTNIK 1.");
  News();
}

TEST_F(DamagedStart, FortyOneGroupsAreToldAndTheFileStays) {
  std::string many;
  for (int i = 1; i <= 41; ++i) many += "G" + std::to_string(i) + ",amateur.txt,0\n";
  Put("groups.dat", many);
  messages.ExpectMessage(
      "groups.dat could not be read whole: it has more than 40 groups, the most that Kestrava can "
      "hold. Kestrava goes on with what it could read, and leaves the file as it is.");
  News();
  EXPECT_EQ(Content("groups.dat"), many);
}

TEST_F(DamagedStart, ALineThatIsNoPlaceIsToldWithTheLine) {
  Put("Locations.dat", "1Home;0.5;51.5;20\n1Cape;west;2;3\n");
  messages.ExpectMessage(
      "Locations.dat could not be read whole: \"1Cape;west;2;3\" is no place (Type mismatch). Kestrava "
      "goes on");
  News();
}

TEST_F(DamagedStart, AFolderThatCannotBeWrittenIsTold) {
  files.BreakWriteAfter(0, platform::Fault::PathFileAccess());
  messages.ExpectMessage("faves.dat could not be written: Path/File access error. What you change may not be kept");
  News();
  files.Mend();
}

TEST_F(DamagedStart, AListOfFavouritesThatIsGoneIsToldWithItsBackup) {
  files.Remove("/house/faves.dat");
  EXPECT_EQ(News(), "") << "there is nothing to be had back";
  Put("faves.dat.bak", "ISS (ZARYA)\nAO-07\n");
  messages.ExpectMessage(
      "faves.dat is not there. faves.dat.bak, a copy that was kept, has 2 favourites: to have them "
      "back, rename it to faves.dat and start Kestrava again.");
  News();
}

}  // namespace
}  // namespace kestrava::shell
