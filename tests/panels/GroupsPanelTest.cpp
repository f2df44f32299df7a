#include "GroupsPanelFixture.h"

namespace kestrava::panels {
namespace {

TEST_F(GroupsPanelTest, ShowsTheGroupsAndTheSatellitesOfTheFirst) {
  Favour({"AO-73", "OTHER"});
  panel.Load();
  EXPECT_EQ(view.skins, 1);
  EXPECT_EQ(view.groups.Texts(), (Texts{"Amateur", "Mine"}));
  EXPECT_EQ(view.groups.selected, 0);
  EXPECT_EQ(view.satellites.Texts(), (Texts{"AO-07", "AO-73", "ISS (ZARYA)"}));
  EXPECT_EQ(view.satellites.Ticked(), Texts{"AO-73"});
  EXPECT_EQ(view.server.entries.size(), 27u);
  EXPECT_EQ(view.server.text, "Select a Celestrak Group");
  EXPECT_EQ(view.details, "No Information.");
  EXPECT_EQ(view.count, "2 of 499 favourites");
  EXPECT_FALSE(view.warning);
}

TEST_F(GroupsPanelTest, WithoutGroupsShowsNoSatellites) {
  tables.GroupCount = 0;
  panel.Load();
  EXPECT_TRUE(view.groups.rows.empty());
  EXPECT_TRUE(view.satellites.rows.empty());
}

TEST_F(GroupsPanelTest, ListingAGroupChangesNoFavourites) {
  Favour({"AO-73", "ISS (ZARYA)"});
  panel.Load();
  ChooseGroup(1);
  EXPECT_EQ(view.satellites.Ticked(), Texts{"AO-73"});
  EXPECT_EQ(Favourites(), (Texts{"AO-73", "ISS (ZARYA)"}));
}

TEST_F(GroupsPanelTest, AGroupWhoseFileIsMissingIsSaidAndTheListKeepsThePreviousGroup) {
  AddRow("Weather", "host/weather.txt", "0");
  panel.Load();
  messages.ExpectMessage("Weather satellite group keps are not updated yet, the keplerian file doesn't exist");
  ChooseGroup(2);
  EXPECT_EQ(view.satellites.Texts(), (Texts{"AO-07", "AO-73", "ISS (ZARYA)"}));
}

TEST_F(GroupsPanelTest, AHeaderOfTheElementFileIsSkipped) {
  Put("mine.txt", "One line\nAnother\n" + Sets({"MY SAT"}));
  panel.Load();
  ChooseGroup(1);
  EXPECT_EQ(view.satellites.Texts(), Texts{"MY SAT"});
}

TEST_F(GroupsPanelTest, AnotherGroupChosenWhileOneIsReadIsTheOneThatIsListed) {
  panel.Load();
  eventLoop.AtYield(1, [&] { ChooseGroup(1); });
  ChooseGroup(0);
  EXPECT_EQ(view.satellites.Texts(), (Texts{"MY SAT", "AO-73"}));
}

TEST_F(GroupsPanelTest, TheOnlyGroupDeletedWhileItIsReadLeavesNoSatellites) {
  tables.GroupCount = 1;
  panel.Load();
  eventLoop.AtYield(1, [&] { panel.DeleteGroupClicked(); });
  ChooseGroup(0);
  EXPECT_EQ(tables.GroupCount, 0);
  EXPECT_TRUE(view.satellites.rows.empty());
}

TEST_F(GroupsPanelTest, AWindowThatClosesWhileAGroupIsReadIsLeftAlone) {
  panel.Load();
  eventLoop.AtYield(1, [&] {
    panel.Unload();
    view.satellites.Clear();
  });
  ChooseGroup(1);
  EXPECT_TRUE(view.satellites.rows.empty());
}

TEST_F(GroupsPanelTest, AUsersTickMakesAFavouriteAndTakesItAway) {
  panel.Load();
  Tick(2, true);
  Tick(0, true);
  EXPECT_EQ(Favourites(), (Texts{"ISS (ZARYA)", "AO-07"}));
  EXPECT_EQ(view.count, "2 of 499 favourites");
  Tick(2, false);
  EXPECT_EQ(Favourites(), Texts{"AO-07"});
  EXPECT_EQ(view.count, "1 of 499 favourites");
}

TEST_F(GroupsPanelTest, ATickByCodeChangesNothing) {
  panel.Load();
  view.satellites.SetTicked(0, true);
  EXPECT_TRUE(Favourites().empty());
}

TEST_F(GroupsPanelTest, SelectAllTicksTheRowsThatAreNotYetAndDeselectAllTakesAllAway) {
  Favour({"AO-73"});
  panel.Load();
  panel.SelectAllClicked();
  EXPECT_EQ(Favourites(), (Texts{"AO-73", "AO-07", "ISS (ZARYA)"})) << "no name twice";
  panel.DeselectAllClicked();
  EXPECT_TRUE(Favourites().empty());
  EXPECT_TRUE(view.satellites.Ticked().empty());
}

TEST_F(GroupsPanelTest, DeselectAllByHandAndByCodeDifferInTheFlagAlone) {
  Favour({"AO-07", "AO-73", "ISS (ZARYA)"});
  panel.Load();
  for (int row = 0; row < 3; ++row) view.satellites.SetTicked(row, false);
  EXPECT_EQ(Favourites().size(), 3u) << "by code";
  for (int row = 0; row < 3; ++row) view.satellites.SetTicked(row, true);
  for (int row = 0; row < 3; ++row) Tick(row, false);
  EXPECT_TRUE(Favourites().empty()) << "by hand";
}

TEST_F(GroupsPanelTest, WithAFilterTheButtonsActOnTheRowsShown) {
  Filter("ao-7");
  panel.Load();
  EXPECT_FALSE(view.satellites.IsShown(2));
  EXPECT_TRUE(view.satellites.IsShown(1));
  EXPECT_FALSE(view.satellites.IsShown(0)) << "AO-07 holds no \"ao-7\"";
  panel.SelectAllClicked();
  EXPECT_EQ(Favourites(), Texts{"AO-73"});
  Filter(" ");
  panel.SelectAllClicked();
  Filter("iss");
  panel.DeselectAllClicked();
  EXPECT_EQ(Favourites(), (Texts{"AO-73", "AO-07"}));
}

TEST_F(GroupsPanelTest, TheFlagIsDownAgainAfterTheButtons) {
  panel.Load();
  panel.SelectAllClicked();
  panel.DeselectAllClicked();
  view.satellites.SetTicked(0, true);
  EXPECT_TRUE(Favourites().empty());
}

TEST_F(GroupsPanelTest, BeyondTheSavedFavouritesTheCountIsAWarning) {
  FillTo(499);
  panel.Load();
  EXPECT_EQ(view.count, "499 of 499 favourites");
  EXPECT_FALSE(view.warning);
  Tick(0, true);
  EXPECT_EQ(view.count, "500 of 499 favourites");
  EXPECT_TRUE(view.warning);
}

TEST_F(GroupsPanelTest, PastTheLastRowATickIsTheBoundsErrorAndFallsBack) {
  FillTo(500);
  panel.Load();
  Tick(0, true);
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - GroupsCON - Satlist_itemcheck"});
  EXPECT_EQ(tables.FaveCount, 500);
  EXPECT_TRUE(view.satellites.Ticked().empty()) << "it is no favourite";
  Tick(1, true);
  EXPECT_EQ(TakeFaults().size(), 1u) << "the flag works on";
}

TEST_F(GroupsPanelTest, SelectAllEndsWhereTheTableIsFullWithOneLineInTheLog) {
  FillTo(499);
  panel.Load();
  panel.SelectAllClicked();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - GroupsCON - Satlist_itemcheck"});
  EXPECT_EQ(view.satellites.Ticked(), Texts{"AO-07"});
  EXPECT_EQ(tables.FaveList[500].Name, "AO-07");
  EXPECT_TRUE(view.warning);
}

TEST_F(GroupsPanelTest, MakesAFavouriteThePrimaryOneAndSaysSo) {
  Favour({"AO-07", "AO-73"});
  panel.Load();
  view.satellites.Select(1);
  messages.ExpectMessage("Primary Favourite Satellite changed from AO-07 to AO-73");
  panel.MakePrimeClicked();
  EXPECT_EQ(Favourites(), (Texts{"AO-73", "AO-07"}));
}

TEST_F(GroupsPanelTest, MadePrimaryANameThatIsNoFavouriteSendsTheOldFirstOneToRowNought) {
  Favour({"AO-07", "AO-73"});
  panel.Load();
  view.satellites.Select(2);
  messages.ExpectMessage("Primary Favourite Satellite changed from AO-07 to ISS (ZARYA)");
  panel.MakePrimeClicked();
  EXPECT_EQ(Favourites(), (Texts{"ISS (ZARYA)", "AO-73"}));
  EXPECT_EQ(tables.FaveList[0].Name, "AO-07");
}

TEST_F(GroupsPanelTest, AfterANewPrimaryThatWasNoFavouriteTheTicksAreThoseOfTheTableAndNothingIsAddedTwice) {
  Favour({"AO-07", "AO-73"});
  panel.Load();
  view.satellites.Select(2);
  messages.ExpectMessage("changed from AO-07 to ISS (ZARYA)");
  panel.MakePrimeClicked();
  EXPECT_EQ(view.satellites.Ticked(), (Texts{"AO-73", "ISS (ZARYA)"}));
  EXPECT_EQ(Favourites(), (Texts{"ISS (ZARYA)", "AO-73"}));
  panel.SelectAllClicked();
  EXPECT_EQ(Favourites(), (Texts{"ISS (ZARYA)", "AO-73", "AO-07"}));
}

TEST_F(GroupsPanelTest, ThePrimaryFavouriteBearsAStarAndKeepsItsText) {
  Favour({"AO-07", "AO-73"});
  panel.Load();
  EXPECT_EQ(view.satellites.Marked(), Texts{"AO-07"});
  view.satellites.Select(1);
  messages.ExpectMessage("changed from AO-07 to AO-73");
  panel.MakePrimeClicked();
  EXPECT_EQ(view.satellites.Marked(), Texts{"AO-73"});
  ChooseGroup(1);
  EXPECT_EQ(view.satellites.Marked(), Texts{"AO-73"});
  EXPECT_EQ(view.satellites.Texts(), (Texts{"MY SAT", "AO-73"}));
  Tick(1, false);
  EXPECT_EQ(view.satellites.Marked(), Texts()) << "AO-07 is the first now, and not of this group";
}

TEST_F(GroupsPanelTest, TheFirstFavouriteOfAllMadePrimaryIsCounted) {
  panel.Load();
  view.satellites.Select(1);
  messages.ExpectMessage("changed from  to AO-73");
  panel.MakePrimeClicked();
  EXPECT_EQ(Favourites(), Texts{"AO-73"});
  EXPECT_EQ(view.count, "1 of 499 favourites");
}

TEST_F(GroupsPanelTest, ANameThatStandsTwiceInAFileIsOneFavourite) {
  Put("amateur.txt", Sets({"AO-07", "AO-73"}) + testing::ElementText("AO-07", 12345));
  panel.Load();
  ASSERT_EQ(view.satellites.Texts(), (Texts{"AO-07", "AO-73", "AO-07"}));
  panel.SelectAllClicked();
  EXPECT_EQ(Favourites(), (Texts{"AO-07", "AO-73"}));
  EXPECT_EQ(view.satellites.Ticked(), (Texts{"AO-07", "AO-73", "AO-07"}));
  Tick(0, false);
  EXPECT_EQ(Favourites(), Texts{"AO-73"});
  EXPECT_EQ(view.satellites.Ticked(), Texts{"AO-73"});
  Tick(2, true);
  EXPECT_EQ(Favourites(), (Texts{"AO-73", "AO-07"}));
  EXPECT_EQ(view.satellites.Ticked(), (Texts{"AO-07", "AO-73", "AO-07"}));
}

TEST_F(GroupsPanelTest, ATickNeverWritesANameThatStandsAlready) {
  Favour({"AO-07"});
  panel.Load();
  view.satellites.rows[0].ticked = false;  // out of step, however that came
  Tick(0, true);
  EXPECT_EQ(Favourites(), Texts{"AO-07"});
}

TEST_F(GroupsPanelTest, WithoutAChosenGroupNoneIsDeletedAndThatIsSaid) {
  panel.Load();
  view.groups.Select(-1);
  messages.ExpectMessage("Select a group first, then click this button");
  panel.DeleteGroupClicked();
  EXPECT_EQ(tables.GroupCount, 2);
}

TEST_F(GroupsPanelTest, WithoutAChosenSatelliteTheFirstFavouriteStays) {
  Favour({"AO-07"});
  panel.Load();
  messages.ExpectMessage("Select a satellite first");
  panel.MakePrimeClicked();
  EXPECT_EQ(Favourites(), Texts{"AO-07"});
}

TEST_F(GroupsPanelTest, ShowsWhatTheDatabaseSaysOfASatellite) {
  Put("satellite.dat", "AO 07\nNOTES  Old and alive\n***\n");
  panel.Load();
  view.satellites.Select(0);
  panel.SatelliteClicked();
  EXPECT_EQ(view.details, "Data for AO-07\r\nNotes: Old and alive");
  panel.DetailsClicked();
  EXPECT_TRUE(opener.opened.empty());
}

TEST_F(GroupsPanelTest, OfAnUnknownSatelliteItOffersARequest) {
  Put("satellite.dat", "NOAA\n***\n");
  panel.Load();
  view.satellites.Select(2);
  panel.SatelliteClicked();
  EXPECT_EQ(view.details,
            "You can still track the position of this Satellite, but No further Information is Available, To send a "
            "request for information to be added to the database for this object CLICK HERE. Information if found will "
            "be added within a week or so.");
}

TEST_F(GroupsPanelTest, ARequestWithoutAnAddressOfTheMakerIsNotAvailable) {
  Put("satellite.dat", "NOAA\n***\n");
  panel.Load();
  view.satellites.Select(2);
  panel.SatelliteClicked();
  messages.ExpectMessage("Sorry, this feature is not available for this version of windows");
  panel.DetailsClicked();
  EXPECT_TRUE(opener.opened.empty());
}

TEST_F(GroupsPanelTest, AClickOnTheFirstTextOfTheDetailsDoesNothing) {
  panel.Load();
  panel.DetailsClicked();
  EXPECT_TRUE(messages.Texts().empty());
}

TEST_F(GroupsPanelTest, SearchesTheInternetForTheChosenName) {
  panel.Load();
  view.satellites.Select(2);
  panel.FindInfoClicked();
  ASSERT_EQ(opener.opened.size(), 1u);
  EXPECT_TRUE(opener.opened[0].ends_with("=ISS+(ZARYA)+satellite")) << opener.opened[0];
}

TEST_F(GroupsPanelTest, AMachineWithoutABrowserIsSorry) {
  panel.Load();
  opener.canOpen = false;
  view.satellites.Select(0);
  messages.ExpectMessage("Sorry, this feature is not available");
  panel.FindInfoClicked();
}

TEST_F(GroupsPanelTest, AddsAGroupOfTheElementServer) {
  panel.Load();
  view.server.text = "Weather";
  panel.AddServerGroupClicked();
  EXPECT_EQ(view.groups.Texts(), (Texts{"Amateur", "Mine", "Weather"}));
  EXPECT_EQ(tables.GroupCount, 3);
  EXPECT_EQ(tables.GroupList[3].Address, "celestrak.org/NORAD/elements/weather.txt");
  EXPECT_EQ(tables.GroupList[3].Manual, "0");
}

TEST_F(GroupsPanelTest, AGroupThatIsNoLongerPublishedIsMarkedAndCanBeAddedUnderItsPlainName) {
  panel.Load();
  EXPECT_EQ(view.server.entries[10], "Iridium (no longer published)");
  view.server.text = view.server.entries[10];
  panel.AddServerGroupClicked();
  EXPECT_EQ(view.groups.Texts().back(), "Iridium");
}

TEST_F(GroupsPanelTest, WithoutAChosenGroupOfTheServerNoneIsAdded) {
  panel.Load();
  messages.ExpectMessage("Select a group first, then click this button");
  panel.AddServerGroupClicked();
  EXPECT_EQ(tables.GroupCount, 2);
}

TEST_F(GroupsPanelTest, TheFortyFirstGroupIsLoggedWithoutAMessage) {
  for (int i = 3; i <= 40; ++i) AddRow("G" + std::to_string(i), "mine.txt", "1");
  panel.Load();
  view.server.text = "Weather";
  panel.AddServerGroupClicked();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - GroupsCON - BUTaddCelestrak"});
  messages.ExpectQuestion("Internet", false);
  view.answers = {"Own", "own.txt"};
  panel.AddGroupClicked();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - GroupsCON - BUTaddgroup"});
  EXPECT_EQ(tables.GroupCount, 40);
  EXPECT_EQ(view.groups.Count(), 40);
}

TEST_F(GroupsPanelTest, AddsAGroupKeptByHand) {
  panel.Load();
  messages.ExpectQuestion("Is this new group updated via the Internet?", false);
  view.answers = {"Own", "own.txt"};
  panel.AddGroupClicked();
  EXPECT_EQ(messages.Titles(), Texts{"Update"});
  EXPECT_EQ(view.asked,
            (Texts{"Display name: Type a Display name for this group. This can be any name you would like. [New Group]",
                   "Manually updated Keps: Type the name of the file containing the keps, this file must be in your "
                   "Kestrava folder. Eg. 'mykeps.txt' []"}));
  EXPECT_EQ(view.groups.Texts().back(), "Own");
  EXPECT_EQ(tables.GroupList[3].Address, "own.txt");
  EXPECT_EQ(tables.GroupList[3].Manual, "1");
}

TEST_F(GroupsPanelTest, AddsAGroupOfTheInternetWithoutItsScheme) {
  panel.Load();
  messages.ExpectQuestion("Internet", true);
  view.answers = {"Net", " https://host/path/net.txt "};
  panel.AddGroupClicked();
  EXPECT_EQ(tables.GroupList[3].Address, "host/path/net.txt");
  EXPECT_EQ(tables.GroupList[3].Manual, "0");
  EXPECT_TRUE(view.asked[1].starts_with("Web Address of Keplerian Elements: ")) << view.asked[1];
}

TEST_F(GroupsPanelTest, CancelOrAnEmptyAnswerEndsTheAdd) {
  panel.Load();
  const std::vector<std::deque<std::optional<std::string>>> ends{{std::nullopt}, {"  "},  {"Name", std::nullopt},
                                                                 {"Name", ""},   {"a,b"}, {"Name", "a,b.txt"}};
  for (const auto& answers : ends) {
    messages.ExpectQuestion("Internet", false);
    view.answers = answers;
    panel.AddGroupClicked();
    EXPECT_TRUE(view.answers.empty());
    EXPECT_EQ(tables.GroupCount, 2);
    EXPECT_EQ(view.groups.Count(), 2);
  }
}

TEST_F(GroupsPanelTest, ADeletedGroupGoesAndTheFirstIsListed) {
  panel.Load();
  ChooseGroup(1);
  panel.DeleteGroupClicked();
  EXPECT_EQ(view.groups.Texts(), Texts{"Amateur"});
  EXPECT_EQ(tables.GroupCount, 1);
  EXPECT_EQ(view.groups.selected, 0);
  EXPECT_EQ(view.satellites.Texts(), (Texts{"AO-07", "AO-73", "ISS (ZARYA)"}));
  EXPECT_TRUE(files.Exists("/house/mine.txt"));
}

TEST_F(GroupsPanelTest, TheLastGroupCanBeDeletedAndThenNothingMore) {
  panel.Load();
  panel.DeleteGroupClicked();
  panel.DeleteGroupClicked();
  EXPECT_EQ(tables.GroupCount, 0);
  EXPECT_TRUE(view.satellites.rows.empty());
  panel.DeleteGroupClicked();
  EXPECT_EQ(tables.GroupCount, 0);
}

TEST_F(GroupsPanelTest, BothFilesAreWrittenAtTheEndAndNotBefore) {
  panel.Load();
  Tick(2, true);
  view.server.text = "Weather";
  panel.AddServerGroupClicked();
  EXPECT_FALSE(files.Exists("/house/faves.dat"));
  panel.Unload();
  EXPECT_EQ(Content("faves.dat"), "ISS (ZARYA)\n");
  EXPECT_EQ(Content("groups.dat"),
            "Amateur,celestrak.org/NORAD/elements/amateur.txt,0\nMine,mine.txt,1\n"
            "Weather,celestrak.org/NORAD/elements/weather.txt,0\n");
}

TEST_F(GroupsPanelTest, ClosedAfterTheLastFavouriteWentLeavesAnEmptyFile) {
  Put("faves.dat", "AO-07\n");
  Favour({"AO-07"});
  panel.Load();
  panel.DeselectAllClicked();
  panel.Unload();
  EXPECT_TRUE(files.Exists("/house/faves.dat"));
  EXPECT_EQ(Content("faves.dat"), "");
}

TEST_F(GroupsPanelTest, AFileThatCannotBeWrittenIsLoggedAndTheOtherIsWritten) {
  panel.Load();
  Tick(0, true);
  files.BreakFile("/house/faves.dat", platform::Fault::DiskFull());
  view.server.text = "Weather";
  panel.AddServerGroupClicked();
  messages.ExpectMessage(
      "could not all be saved in /house/\n\nfaves.dat: the disk has no room (Disk full)\n\nThey hold until");
  panel.Unload();
  EXPECT_EQ(TakeFaults(), Texts{"Disk full - CONgroups - Unload"});
  EXPECT_NE(Content("groups.dat").find("Weather"), std::string::npos);
  panel.UserClosed();
}

TEST_F(GroupsPanelTest, FavouritesThatTheRunningEngineDoesNotKnowAreToldAtTheEnd) {
  orbit::OrbitEngine running;
  running.SetDataFolder("/house/");
  engine = &running;
  panel.Load();
  Tick(2, true);
  panel.Unload();
  panel.UserClosed();
  EXPECT_TRUE(messages.Texts().empty()) << "all are known";

  Favour({"ISS (ZARYA)", "NEWCOMER"});
  messages.ExpectQuestion("NEWCOMER", false);
  panel.UserClosed();
  EXPECT_EQ(view.starts, 0);
  messages.ExpectQuestion("Start Kestrava anew now?", true);
  panel.UserClosed();
  EXPECT_EQ(view.starts, 1);
}

}  // namespace
}  // namespace kestrava::panels
