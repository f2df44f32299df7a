// Each way in which favourites could be gone, with real files.
#include <algorithm>
#include <string>
#include <vector>

#include "platform/Fault.h"
#include "platform/Text.h"
#include "store/Backups.h"
#include "store/FavouriteTable.h"
#include "store/Favourites.h"
#include "store/WaitingFavourites.h"

#include "support/KilledWork.h"
#include "support/SharedFolder.h"

namespace kestrava::store {
namespace {

using Texts = std::vector<std::string>;

const Texts kTwelve{"ISS",   "AO-7",  "NOAA 15", "NOAA 18", "SO-50", "NOAA 19",
                    "AO-91", "AO-73", "RS-44",   "FO-29",   "HST",   "METEOR-M 2"};
const Texts kWithoutWeather{"ISS", "AO-7", "SO-50", "AO-91", "AO-73", "RS-44", "FO-29", "HST"};

class LostFavourites : public testing::SharedFolder {
 protected:
  LostFavourites() { Write("faves.dat", Lines(kTwelve)); }

  static std::string Known(const Texts& names) {
    std::string text;
    for (const std::string& name : names) text += "\"" + name + "\",";
    return text;
  }
  /// A start whose engine knows these. @return the favourites in the table
  Texts Start(const Texts& known) {
    platform::ForgetSharedFiles();
    LoadFaves(tables, Known(known));
    TakeFaults();
    return Table();
  }
  Texts Table() const {
    Texts names;
    for (const orbit::FaveRec& row : tables.FaveList) {
      if (!row.Name.empty()) names.push_back(row.Name);
    }
    return names;
  }
  static Texts Numbered(int count) {
    Texts names;
    for (int i = 1; i <= count; ++i) names.push_back("SAT " + std::to_string(i));
    return names;
  }
  Texts Waiting() const {
    Texts names;
    for (const WaitingFavourite& one : ReadWaiting()) names.push_back(std::to_string(one.place) + " " + one.name);
    return names;
  }
};

TEST_F(LostFavourites, ComeBackInTheirPlacesByThemselvesAsSoonAsTheyAreKnownAgain) {
  EXPECT_EQ(Start(kWithoutWeather), kWithoutWeather);
  EXPECT_EQ(Read("faves.dat"), Lines(kWithoutWeather)) << "the file is what it must be";
  EXPECT_EQ(Waiting(), (Texts{"3 NOAA 15", "4 NOAA 18", "6 NOAA 19", "12 METEOR-M 2"}));
  EXPECT_EQ(Start(kTwelve), kTwelve);
  EXPECT_EQ(Read("faves.dat"), Lines(kTwelve));
  EXPECT_FALSE(IsThere("faves.waiting"));
}

TEST_F(LostFavourites, ComeBackAfterASecondStartThatLostMore) {
  Start(kWithoutWeather);
  EXPECT_EQ(Start({"AO-7"}), Texts{"AO-7"});
  EXPECT_EQ(Start(kWithoutWeather), kWithoutWeather);
  EXPECT_EQ(Start(kTwelve), kTwelve);
}

TEST_F(LostFavourites, ComeBackAfterAStartThatKnewNothingAtAll) {
  EXPECT_EQ(Start({}), Texts{});
  EXPECT_EQ(Read("faves.dat"), "");
  EXPECT_EQ(Start(kTwelve), kTwelve);
}

TEST_F(LostFavourites, OfASecondLossyStartStandInABackupEach) {
  Start(kWithoutWeather);
  EXPECT_EQ(Read("faves.dat.bak"), Lines(kTwelve));
  Start({"ISS"});
  EXPECT_EQ(Read("faves.dat.bak"), Lines(kWithoutWeather));
  EXPECT_EQ(Read("faves.dat.bak2"), Lines(kTwelve)) << "the good one is not overwritten";
}

TEST_F(LostFavourites, TheFullestOfFiveBackupsIsNeverTheOneThatGoes) {
  Start({"ISS"});
  for (int i = 1; i <= 12; ++i) {
    Write("faves.dat", Lines({"ISS", "GONE " + std::to_string(i)}));
    Start({"ISS"});
  }
  EXPECT_EQ(Read("faves.dat.bak"), Lines({"ISS", "GONE 12"}));
  EXPECT_EQ(Read("faves.dat.bak4"), Lines({"ISS", "GONE 9"}));
  EXPECT_EQ(Read("faves.dat.bak5"), Lines(kTwelve));
  EXPECT_FALSE(IsThere("faves.dat.bak6"));
  const auto fullest = FullestBackup("faves.dat");
  ASSERT_TRUE(fullest);
  EXPECT_EQ(fullest->fileName, "faves.dat.bak5");
  EXPECT_EQ(fullest->rows, 12);
}

TEST_F(LostFavourites, NoBackupIsWrittenThatHoldsNothingMore) {
  Start(kTwelve);
  EXPECT_FALSE(IsThere("faves.dat.bak"));
  Start(kWithoutWeather);
  Write("faves.dat", Lines(kTwelve));
  Start(kWithoutWeather);
  EXPECT_TRUE(IsThere("faves.dat.bak"));
  EXPECT_FALSE(IsThere("faves.dat.bak2")) << "the same stands in one already";
}

TEST_F(LostFavourites, OneThatTheUserTakesOutHimselfStaysOut) {
  Start(kTwelve);
  SetFave(tables, "NOAA 18", false);
  SaveFaves(tables);
  EXPECT_FALSE(IsThere("faves.waiting"));
  EXPECT_EQ(Start(kTwelve).size(), 11U);
}

TEST_F(LostFavourites, TheSatelliteThatTheUserPutsFirstMeanwhileStaysFirst) {
  const Texts withoutTheFirst(kTwelve.begin() + 1, kTwelve.end());
  EXPECT_EQ(Start(withoutTheFirst), withoutTheFirst);
  MakePrimaryFavourite(tables, "RS-44");
  SaveFaves(tables);
  const Texts back = Start(kTwelve);
  EXPECT_EQ(back[0], "RS-44");
  EXPECT_EQ(back[1], "ISS");
}

TEST_F(LostFavourites, OneThatTheUserAddsAgainIsThereOnce) {
  Start(kWithoutWeather);
  Write("faves.dat", Lines(kWithoutWeather) + "NOAA 15\n");
  const Texts back = Start(kTwelve);
  EXPECT_EQ(back.size(), 12U);
  EXPECT_EQ(std::count(back.begin(), back.end(), "NOAA 15"), 1);
}

TEST_F(LostFavourites, ARowFiveHundredAtASaveIsRememberedAndNeverSaidToBeInABackup) {
  Write("faves.dat", Lines(Numbered(499)));
  Start(Numbered(500));
  SetFave(tables, "SAT 500", true);
  SaveFaves(tables);
  EXPECT_EQ(Read("faves.dat"), Lines(Numbered(499)));
  EXPECT_TRUE(TakeFaults().empty());
  EXPECT_EQ(Waiting(), Texts{"500 SAT 500"});
  Start(Numbered(500));
  EXPECT_EQ(tables.FaveList[500].Name, "SAT 500");
  SetFave(tables, "SAT 7", false);
  SaveFaves(tables);
  EXPECT_FALSE(IsThere("faves.waiting")) << "it is in the file now";
  EXPECT_NE(Read("faves.dat").find("SAT 500"), std::string::npos);
}

TEST_F(LostFavourites, ARowFiveHundredThatTheUserTakesOutIsForgotten) {
  Write("faves.dat", Lines(Numbered(499)));
  Start(Numbered(500));
  SetFave(tables, "SAT 500", true);
  SaveFaves(tables);
  tables.FaveList[500].Name.clear();
  SaveFaves(tables);
  EXPECT_FALSE(IsThere("faves.waiting"));
}

TEST_F(LostFavourites, MoreThanTheTableHoldsAreLeftInTheirFile) {
  Write("faves.dat", Lines(Numbered(620)));
  platform::ForgetSharedFiles();
  EXPECT_THROW(LoadFaves(tables, Known(Numbered(620))), platform::Fault);
  SaveFaves(tables);
  EXPECT_EQ(Read("faves.dat"), Lines(Numbered(620)));
  SetFave(tables, "SAT 3", false);
  EXPECT_THROW(SaveFaves(tables), platform::Fault);
  EXPECT_EQ(Read("faves.dat"), Lines(Numbered(620)));
}

TEST_F(LostFavourites, AFullDiskAtTheStartLosesNone) {
  std::filesystem::create_directory(platform::InAppDir("faves.dat.bak-new"));  // no backup can be written
  EXPECT_THROW(LoadFaves(tables, Known({"ISS"})), platform::Fault);
  EXPECT_EQ(Read("faves.dat"), Lines(kTwelve));
  EXPECT_EQ(Table(), Texts{"ISS"});
  std::filesystem::remove(platform::InAppDir("faves.dat.bak-new"));
  std::filesystem::create_directory(platform::InAppDir("faves.waiting"));  // what is left out cannot be remembered
  EXPECT_THROW(LoadFaves(tables, Known({"ISS"})), platform::Fault);
  EXPECT_EQ(Read("faves.dat"), Lines(kTwelve));
  TakeFaults();
}

TEST_F(LostFavourites, AListThatCannotBeReadIsNeverWrittenOver) {
  std::filesystem::remove(platform::InAppDir("faves.dat"));
  std::filesystem::create_directory(platform::InAppDir("faves.dat"));
  EXPECT_THROW(LoadFaves(tables, Known(kTwelve)), platform::Fault);
  SaveFaves(tables);
  std::filesystem::remove(platform::InAppDir("faves.dat"));
  Write("faves.dat", Lines(kTwelve));  // the user has mended it while the station runs
  SetFave(tables, "ISS", true);
  EXPECT_THROW(SaveFaves(tables), platform::Fault);
  EXPECT_EQ(Read("faves.dat"), Lines(kTwelve));
}

TEST_F(LostFavourites, AListThatIsEmptiedOrDamagedWhileTheStationRunsIsWrittenAnewWhole) {
  for (const std::string& damage : {std::string(), std::string(433, '\0'), std::string("\0\0\n\0\n", 5)}) {
    Write("faves.dat", Lines(kTwelve));
    Start(kTwelve);
    Write("faves.dat", damage);
    SaveFaves(tables);
    EXPECT_EQ(Read("faves.dat"), Lines(kTwelve));
  }
  std::filesystem::remove(platform::InAppDir("faves.dat"));
  SaveFaves(tables);
  EXPECT_EQ(Read("faves.dat"), Lines(kTwelve));
}

TEST_F(LostFavourites, APageOfAnotherProgramIsKeptAndNotTakenForNames) {
  const std::string page = "<!DOCTYPE html>\n<html>\n" + std::string(60, 'x') + "\n</html>\n";
  Write("faves.dat", page);
  EXPECT_EQ(Start(kTwelve), Texts{});
  EXPECT_EQ(Read("faves.dat.bak"), page);
  EXPECT_EQ(Waiting(), Texts{});
}

TEST_F(LostFavourites, LinesOfTheFileBesideThatAreNoneOfOursArePassedOver) {
  Write("faves.waiting", "# mine\n3\n;;\n2;1;NOAA 99\nx;0;y\n\n900;0;LAST\n1;0;\n");
  EXPECT_EQ(Waiting(), (Texts{"1 y", "2 NOAA 99", "900 LAST"}));
}

TEST_F(LostFavourites, AKillAtAnyMomentOfALossyStartLosesNone) {
  for (int call = 1;; ++call) {
    SCOPED_TRACE("killed at call " + std::to_string(call));
    for (const std::string& name : Names()) std::filesystem::remove(platform::InAppDir(name));
    Write("faves.dat", Lines(kTwelve));
    const testing::WorkEnd end = testing::RunKilledAt(call, [&] { LoadFaves(tables, Known(kWithoutWeather)); });
    if (end == testing::WorkEnd::kRefused) GTEST_SKIP() << "this machine lets nobody trace a process";
    platform::RemoveUnfinished(platform::AppDir);
    EXPECT_EQ(Start(kTwelve), kTwelve);
    EXPECT_EQ(Read("faves.dat"), Lines(kTwelve));
    if (end == testing::WorkEnd::kDone) {
      EXPECT_GT(call, 10);
      return;
    }
  }
}

TEST_F(LostFavourites, AreToldOnce) {
  Start(kWithoutWeather);
  MarkWaitingTold();
  Start({"ISS"});
  int told = 0;
  for (const WaitingFavourite& one : ReadWaiting()) told += one.told ? 1 : 0;
  EXPECT_EQ(told, 4);
  EXPECT_EQ(ReadWaiting().size(), 11U);
}

}  // namespace
}  // namespace kestrava::store
