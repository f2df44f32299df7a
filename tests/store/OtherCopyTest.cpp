// Two copies of the station on one folder: what the one added or took out is not undone by the other.
#include <string>

#include "platform/Fault.h"
#include "store/FavouriteTable.h"
#include "store/Favourites.h"
#include "store/GroupTable.h"
#include "store/Groups.h"
#include "store/Locations.h"
#include "store/Places.h"
#include "store/WaitingFavourites.h"

#include "support/SharedFolder.h"

namespace kestrava::store {
namespace {

class OtherCopy : public testing::SharedFolder {
 protected:
  /// Any name of this file.
  static std::string Known() {
    std::string known = "\"A\",\"B\",\"C\",\"D\",\"MINE\",\"THEIRS\",";
    for (int i = 0; i < 100; ++i) known += "\"SAT " + std::to_string(i) + "\",";
    return known;
  }
  static void ChangeFavourites(const std::function<void(orbit::Tables&)>& change) {
    auto other = std::make_unique<orbit::Tables>();
    LoadFaves(*other, Known());
    change(*other);
    SaveFaves(*other);
  }
  static void ChangeGroups(const std::function<void(orbit::Tables&)>& change) {
    auto other = std::make_unique<orbit::Tables>();
    LoadGroups(*other);
    change(*other);
    SaveGroups(*other);
  }
  static void ChangePlaces(const std::function<void(orbit::Tables&)>& change) {
    auto other = std::make_unique<orbit::Tables>();
    LoadLocations(*other);
    change(*other);
    SaveLocations(*other);
  }
};

TEST_F(OtherCopy, AllOfFiftyAdditionsOfTwoCopiesSurvive) {
  Write("faves.dat", "A\n");
  const auto add = [](int first) {
    return [first] {
      auto own = std::make_unique<orbit::Tables>();
      LoadFaves(*own, Known());
      for (int i = first; i < 50; i += 2) {
        SetFave(*own, "SAT " + std::to_string(i), true);
        SaveFaves(*own);
      }
    };
  };
  const pid_t one = Start(add(0)), two = Start(add(1));
  EXPECT_TRUE(EndsWell(one));
  EXPECT_TRUE(EndsWell(two));
  LoadFaves(tables, Known());
  EXPECT_EQ(tables.FaveCount, 51);
  EXPECT_EQ(tables.FaveList[1].Name, "A");
}

TEST_F(OtherCopy, FavouritesThatItAddedAndTookOutStaySo) {
  Write("faves.dat", "A\nB\nC\n");
  LoadFaves(tables, Known());
  ASSERT_TRUE(InAnotherCopy([] {
    ChangeFavourites([](orbit::Tables& other) {
      SetFave(other, "B", false);
      SetFave(other, "THEIRS", true);
    });
  }));
  SetFave(tables, "MINE", true);
  SaveFaves(tables);
  EXPECT_EQ(Read("faves.dat"), "A\nC\nTHEIRS\nMINE\n");
  SaveFaves(tables);
  EXPECT_EQ(Read("faves.dat"), "A\nC\nTHEIRS\nMINE\n") << "a second save undoes nothing either";
  SetFave(tables, "A", false);
  SaveFaves(tables);
  EXPECT_EQ(Read("faves.dat"), "C\nTHEIRS\nMINE\n");
}

TEST_F(OtherCopy, APanelThatWasOnlyLookedAtUndoesNothing) {
  Write("faves.dat", "A\nB\n");
  Write("groups.dat", "G,g.txt,0\n");
  LoadFaves(tables, Known());
  LoadGroups(tables);
  ASSERT_TRUE(InAnotherCopy([] {
    ChangeFavourites([](orbit::Tables& other) { MakePrimaryFavourite(other, "B"); });
    ChangeGroups([](orbit::Tables& other) { AddGroup(other, {"H", "h.txt", "1"}); });
  }));
  SaveFaves(tables);
  SaveGroups(tables);
  EXPECT_EQ(Read("faves.dat"), "B\nA\n");
  EXPECT_EQ(Read("groups.dat"), "G,g.txt,0\nH,h.txt,1\n");
}

TEST_F(OtherCopy, ThePrimaryFavouriteIsThatOfTheOneWhoChangedIt) {
  Write("faves.dat", "A\nB\nC\n");
  LoadFaves(tables, Known());
  ASSERT_TRUE(InAnotherCopy([] { ChangeFavourites([](orbit::Tables& other) { MakePrimaryFavourite(other, "C"); }); }));
  SetFave(tables, "MINE", true);
  SaveFaves(tables);
  EXPECT_EQ(Read("faves.dat"), "C\nB\nA\nMINE\n");
  LoadFaves(tables, Known());
  ASSERT_TRUE(InAnotherCopy([] { ChangeFavourites([](orbit::Tables& other) { SetFave(other, "D", true); }); }));
  MakePrimaryFavourite(tables, "B");
  SaveFaves(tables);
  EXPECT_EQ(Read("faves.dat"), "B\nC\nA\nMINE\nD\n");
}

TEST_F(OtherCopy, GroupsThatItAddedAndTookOutStaySo) {
  Write("groups.dat", "A,a.txt,0\nB, b.txt ,0\nC,c.txt,1\n");
  LoadGroups(tables);
  ASSERT_TRUE(InAnotherCopy([] {
    ChangeGroups([](orbit::Tables& other) {
      RemoveGroup(other, 2);
      AddGroup(other, {"Theirs", "t.txt", "1"});
    });
  }));
  AddGroup(tables, {"Mine", "m.txt", "0"});
  SaveGroups(tables);
  EXPECT_EQ(Read("groups.dat"), "A,a.txt,0\nC,c.txt,1\nTheirs,t.txt,1\nMine,m.txt,0\n");
  EXPECT_FALSE(IsThere("groups.dat.bak"));
}

TEST_F(OtherCopy, GroupsThatDoNotFitAnyMoreAreSaid) {
  std::string many;
  for (int i = 1; i <= 38; ++i) many += "G" + std::to_string(i) + ",g.txt,0\n";
  Write("groups.dat", many);
  LoadGroups(tables);
  ASSERT_TRUE(InAnotherCopy([] {
    ChangeGroups([](orbit::Tables& other) {
      AddGroup(other, {"T1", "t.txt", "1"});
      AddGroup(other, {"T2", "t.txt", "1"});
    });
  }));
  AddGroup(tables, {"M1", "m.txt", "0"});
  try {
    SaveGroups(tables);
    FAIL() << "no fault";
  } catch (const platform::Fault& fault) {
    EXPECT_STREQ(fault.what(), "another copy of Kestrava has filled the list, which has no room for M1,m.txt,0");
  }
  EXPECT_EQ(Read("groups.dat"), many + "T1,t.txt,1\nT2,t.txt,1\n");
}

TEST_F(OtherCopy, FavouritesThatDoNotFitAnyMoreAreRememberedBesideTheList) {
  std::string many;
  for (int i = 1; i <= 498; ++i) many += "SAT " + std::to_string(i) + "\n";
  Write("faves.dat", many);
  const std::string known = "\"" + many + "\",\"MINE\",\"THEIRS\"";
  LoadFaves(tables, known);
  ASSERT_TRUE(InAnotherCopy([&] {
    auto other = std::make_unique<orbit::Tables>();
    LoadFaves(*other, known);
    SetFave(*other, "THEIRS", true);
    SaveFaves(*other);
  }));
  SetFave(tables, "MINE", true);
  SaveFaves(tables);
  EXPECT_EQ(Read("faves.dat"), many + "THEIRS\n");
  ASSERT_EQ(ReadWaiting().size(), 1U);
  EXPECT_EQ(ReadWaiting()[0].name, "MINE");
}

TEST_F(OtherCopy, PlacesThatItAddedChangedAndTookOutStaySo) {
  Write("Locations.dat", "1Home;1;2;3\n1Cape;1;2;3\n0Quito;1;2;3\n");
  LoadLocations(tables);
  ASSERT_TRUE(InAnotherCopy([] {
    ChangePlaces([](orbit::Tables& other) {
      OverwritePlace(other, 1, {"Home", 51, 0, 9});
      RemovePlace(other, 2);
      AddPlace(other, {"Theirs", 5, 6, 7});
    });
  }));
  SetPlaceOnMap(tables, 3, true);
  AddPlace(tables, {"Mine", 8, 9, 10});
  SaveLocations(tables);
  EXPECT_EQ(Read("Locations.dat"), "1Home;0;51;9\n1Quito;1;2;3\n1Theirs;6;5;7\n1Mine;9;8;10\n");
}

TEST_F(OtherCopy, APlaceThatBothChangedIsThereTwiceAndOneThatIsOnlyHereChangedStays) {
  Write("Locations.dat", "1Home;1;2;3\n1Cape;1;2;3\n");
  LoadLocations(tables);
  ASSERT_TRUE(InAnotherCopy([] {
    ChangePlaces([](orbit::Tables& other) {
      OverwritePlace(other, 1, {"Home", 51, 0, 9});
      RemovePlace(other, 2);
    });
  }));
  OverwritePlace(tables, 1, {"Home", 52, 0, 9});
  OverwritePlace(tables, 2, {"Cape", -34, 0, 9});
  SaveLocations(tables);
  EXPECT_EQ(Read("Locations.dat"), "1Home;0;51;9\n1Home;0;52;9\n1Cape;0;-34;9\n");
}

TEST_F(OtherCopy, PlacesThatDoNotFitAnyMoreAreSaidAndNothingIsWritten) {
  std::string many;
  for (int i = 1; i <= 99; ++i) many += "0P" + std::to_string(i) + ";1;2;3\n";
  Write("Locations.dat", many);
  LoadLocations(tables);
  ASSERT_TRUE(InAnotherCopy([] { ChangePlaces([](orbit::Tables& other) { AddPlace(other, {"Theirs", 5, 6, 7}); }); }));
  AddPlace(tables, {"Mine", 8, 9, 10});
  EXPECT_THROW(SaveLocations(tables), platform::Fault);
  EXPECT_EQ(Read("Locations.dat"), many + "1Theirs;6;5;7\n");
  EXPECT_THROW(SaveLocations(tables), platform::Fault) << "it is not taken for stored";
}

TEST_F(OtherCopy, AFileThatIsEmptiedOrGoneTakesNothingOut) {
  for (const bool gone : {false, true}) {
    Write("groups.dat", "A,a.txt,0\n");
    Write("Locations.dat", "1Home;1;2;3\n");
    LoadGroups(tables);
    LoadLocations(tables);
    Write("groups.dat", std::string(433, '\0'));
    Write("Locations.dat", "");
    if (gone) {
      std::filesystem::remove(platform::InAppDir("groups.dat"));
      std::filesystem::remove(platform::InAppDir("Locations.dat"));
    }
    SaveGroups(tables);
    SaveLocations(tables);
    EXPECT_EQ(Read("groups.dat"), "A,a.txt,0\n");
    EXPECT_EQ(Read("Locations.dat"), "1Home;1;2;3\n");
  }
}

}  // namespace
}  // namespace kestrava::store
