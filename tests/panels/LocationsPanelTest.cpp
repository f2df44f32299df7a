#include <array>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "panels/LocationsPanel.h"
#include "platform/Settings.h"
#include "store/Places.h"

#include "PanelDoubles.h"
#include "support/House.h"

namespace kestrava::panels {
namespace {

class View : public LocationsView {
 public:
  void ApplySkin() override { ++skins; }
  bool IsVisible() const override { return visible; }
  TickListControl& ListLocations() override { return list; }
  std::string BoxText(PlaceBox box) const override { return boxes.at(static_cast<std::size_t>(box)); }
  void SetBoxText(PlaceBox box, std::string_view text) override { boxes.at(static_cast<std::size_t>(box)) = text; }
  CheckControl& Tick(PlacePage of, PlaceTick tick) override { return ticks[{of, tick}]; }
  CheckControl& DecDeg() override { return decDeg; }
  void ShowPage(PlacePage shown) override { page = shown; }
  void FocusBox(PlaceBox box) override { focused.push_back(box); }
  void RunActivation() override { ++activations; }

  RecordingTickList list;
  std::array<std::string, kPlaceBoxes> boxes;
  std::map<std::pair<PlacePage, PlaceTick>, RecordingCheck> ticks;
  RecordingCheck decDeg;
  PlacePage page = PlacePage::kParts;
  std::vector<PlaceBox> focused;
  bool visible = true;
  int skins = 0;
  int activations = 0;
};

using Texts = std::vector<std::string>;

class LocationsPanelTest : public testing::House {
 protected:
  LocationsPanelTest() {
    store::WritePrimaryPlace({"Home", "51.5", "0.25", "30"});
    view.list.onTick = [this](int row, bool ticked) { panel.Ticked(row, ticked); };
  }

  void Open(std::string_view file = "1Cape Town;341.58;-33.5;-2\n0Quito;78.5;-0.25;2850\n") {
    Put("Locations.dat", file);
    panel.Load();
  }
  void Choose(int item) {
    view.list.Select(item);
    panel.ListClicked();
  }
  void UseDecimals() {
    view.decDeg.SetChecked(true);
    panel.DecDegClicked();
  }
  void Type(PlaceBox box, std::string_view text) { view.SetBoxText(box, text); }
  void TypeDecimal(std::string_view name, std::string_view lat, bool north, std::string_view lon, bool west) {
    UseDecimals();
    Type(PlaceBox::kName, name);
    Type(PlaceBox::kLatDec, lat);
    Type(PlaceBox::kLonDec, lon);
    Click(PlacePage::kDecimal, PlaceTick::kNorth, north);
    Click(PlacePage::kDecimal, PlaceTick::kWest, west);
  }
  void Click(PlacePage page, PlaceTick tick, bool ticked) {
    view.Tick(page, tick).SetChecked(ticked);
    panel.TickClicked(page, tick);
  }
  std::string Box(PlaceBox box) { return view.BoxText(box); }
  std::string Parts() {
    return Box(PlaceBox::kLatDeg) + " " + Box(PlaceBox::kLatMin) + " " + Box(PlaceBox::kLatSec) + " / " +
           Box(PlaceBox::kLonDeg) + " " + Box(PlaceBox::kLonMin) + " " + Box(PlaceBox::kLonSec);
  }
  /// The decimal page, its sign boxes told; both pages must agree on those.
  std::string Decimal() {
    for (const PlaceTick tick : {PlaceTick::kNorth, PlaceTick::kWest}) {
      EXPECT_EQ(view.Tick(PlacePage::kParts, tick).IsChecked(), view.Tick(PlacePage::kDecimal, tick).IsChecked());
    }
    return Box(PlaceBox::kLatDec) + (view.Tick(PlacePage::kDecimal, PlaceTick::kNorth).IsChecked() ? " N " : " S ") +
           Box(PlaceBox::kLonDec) + (view.Tick(PlacePage::kDecimal, PlaceTick::kWest).IsChecked() ? " W" : " E");
  }
  std::string Primary() {
    const store::PrimaryPlace place = store::ReadPrimaryPlace();
    return place.name + ";" + place.longitude + ";" + place.latitude + ";" + place.heightM;
  }
  /// Everything that is stored.
  std::string Stored() { return Primary() + "|" + Content("Locations.dat"); }

  orbit::Tables tables;
  View view;
  LocationsPanel panel{tables, view};
};

TEST_F(LocationsPanelTest, ListsThePrimaryPlaceFirstAndThenTheRowsOfTheFile) {
  Open();
  EXPECT_EQ(view.list.Texts(), (Texts{"Home (Primary Location)", "Cape Town", "Quito"}));
  EXPECT_EQ(view.list.Ticked(), (Texts{"Home (Primary Location)", "Cape Town"}));
  EXPECT_EQ(view.skins, 1);
}

TEST_F(LocationsPanelTest, ANegativeLongitudeOfAnotherProgramIsShownAsTheEastThatItMeans) {
  Open("1Geneva;-6.15;46.2;375\n1Date Line;-200.25;0;0\n");
  Choose(1);
  EXPECT_EQ(Decimal(), "46.2 N 6.15 E");
  UseDecimals();
  EXPECT_TRUE(view.decDeg.IsChecked()) << "its own page takes it";
  panel.SaveClicked();
  EXPECT_TRUE(messages.Texts().empty());
  EXPECT_TRUE(Content("Locations.dat").starts_with("1Geneva;353.85;46.2;375\n")) << Content("Locations.dat");
  Choose(2);
  EXPECT_EQ(Decimal(), "0 N 159.75 W");
}

TEST_F(LocationsPanelTest, ShowsThePrimaryPlaceOnBothPages) {
  Open();
  EXPECT_EQ(Box(PlaceBox::kName), "Home");
  EXPECT_EQ(Box(PlaceBox::kHeight), "30");
  EXPECT_EQ(Decimal(), "51.5 N 0.25 W");
  EXPECT_EQ(Parts(), "51 30 0 / 0 15 0");
}

TEST_F(LocationsPanelTest, WritesNothingWhileItLoads) {
  Open();
  settings.ForgetAccesses();
  const int changes = files.ChangeCount();
  panel.Load();
  EXPECT_TRUE(settings.Writes().empty());
  EXPECT_EQ(files.ChangeCount(), changes);
}

TEST_F(LocationsPanelTest, OfAnEmptyStoreShowsTheDefaults) {
  settings.Clear();
  Open("");
  EXPECT_EQ(view.list.Texts(), Texts{"Default (Primary Location)"});
  EXPECT_EQ(Box(PlaceBox::kName), "Default");
  EXPECT_EQ(Decimal(), "0 N 0 W");
}

TEST_F(LocationsPanelTest, WithoutItsFileLogsAndShowsThePrimaryPlace) {
  panel.Load();
  EXPECT_EQ(TakeFaults(), Texts{"File not found - LocCON - FormLoad"});
  EXPECT_EQ(view.list.Texts(), Texts{"Home (Primary Location)"});
}

TEST_F(LocationsPanelTest, AStoredAngleThatIsNoNumberIsLoggedAndShownAsNought) {
  platform::WriteSetting("Latitude", "north");
  Open();
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch - LocCON - FormLoad"});
  EXPECT_EQ(Decimal(), "0 N 0.25 W");
}

TEST_F(LocationsPanelTest, EastOneDegreeIsStoredAs359AndShownAsEastOne) {
  Open("");
  TypeDecimal("East", "10", true, "1", false);
  panel.AddClicked();
  EXPECT_EQ(Content("Locations.dat"), "1East;359;10;30\n");
  Choose(0);
  Choose(1);
  EXPECT_EQ(Decimal(), "10 N 1 E");
}

TEST_F(LocationsPanelTest, South33AndAHalfIsStoredWithAMinusAndShownWithout) {
  Open("");
  TypeDecimal("South", "33.5", false, "70", true);
  panel.AddClicked();
  EXPECT_EQ(Content("Locations.dat"), "1South;70;-33.5;30\n");
  Choose(0);
  Choose(1);
  EXPECT_EQ(Decimal(), "33.5 S 70 W");
}

TEST_F(LocationsPanelTest, Longitude180ShowsAsEast180) {
  Open("1Line;180;0;0\n");
  Choose(1);
  EXPECT_EQ(Decimal(), "0 N 180 E");
}

TEST_F(LocationsPanelTest, APlaceWithADecimalCommaShowsOnBothMachines) {
  platform::WriteSetting("Latitude", "51.5");
  locale.UseComma();
  Open();
  EXPECT_EQ(Decimal(), "51,5 N 0,25 W");
  Choose(1);
  EXPECT_EQ(Decimal(), "33,5 S 18,42 E");
}

TEST_F(LocationsPanelTest, TheDecimalPageFollowsTheParts) {
  Open();
  Type(PlaceBox::kLatDeg, "10");
  Type(PlaceBox::kLatMin, "20");
  Type(PlaceBox::kLatSec, "15");
  UseDecimals();
  EXPECT_EQ(view.page, PlacePage::kDecimal);
  EXPECT_EQ(Decimal(), "10.3375 N 0.25 W");
}

TEST_F(LocationsPanelTest, ThePartsFollowTheDecimalPageAndTheirSecondsAreCutOff) {
  Open();
  TypeDecimal("x", "10.9999", true, "2.5", false);
  view.decDeg.SetChecked(false);
  panel.DecDegClicked();
  EXPECT_EQ(view.page, PlacePage::kParts);
  EXPECT_EQ(Parts(), "10 59 59 / 2 30 0");
}

TEST_F(LocationsPanelTest, NegativeDegreesInThePartsUntickBothBoxesOfTheSign) {
  Open();
  Type(PlaceBox::kLatDeg, "-33");
  Type(PlaceBox::kLonDeg, "-18");
  Type(PlaceBox::kLonMin, "0");
  UseDecimals();
  EXPECT_EQ(Decimal(), "32.5 S 18 E");
}

TEST_F(LocationsPanelTest, ASignIsCopiedToItsTwinOnTheOtherPage) {
  Open();
  Click(PlacePage::kParts, PlaceTick::kNorth, false);
  Click(PlacePage::kDecimal, PlaceTick::kWest, false);
  EXPECT_EQ(Decimal(), "51.5 S 0.25 E");
}

TEST_F(LocationsPanelTest, APlaceInPartsIsStoredInDecimals) {
  Open("");
  Type(PlaceBox::kName, " Parts ");
  Type(PlaceBox::kLatDeg, "51");
  Type(PlaceBox::kLatMin, "30");
  Type(PlaceBox::kLatSec, "0");
  panel.AddClicked();
  EXPECT_EQ(Content("Locations.dat"), "1Parts;0.25;51.5;30\n");
  EXPECT_EQ(Decimal(), "51.5 N 0.25 W");
}

TEST_F(LocationsPanelTest, AnAddedPlaceIsOnTheMapInTheListAndChosen) {
  Open();
  TypeDecimal("New", "1", true, "2", true);
  panel.AddClicked();
  EXPECT_EQ(view.list.Texts(), (Texts{"Home (Primary Location)", "Cape Town", "Quito", "New"}));
  EXPECT_EQ(view.list.Ticked(), (Texts{"Home (Primary Location)", "Cape Town", "New"}));
  EXPECT_EQ(view.list.selected, 3);
}

TEST_F(LocationsPanelTest, TheHundredAndFirstPlaceIsTheBoundsErrorAndNothingIsStored) {
  std::string file;
  for (int i = 1; i <= 100; ++i) file += "0P" + std::to_string(i) + ";1.5;51.25;30\n";
  Open(file);
  const std::string before = Stored();
  messages.ExpectMessage("Subscript out of range");
  panel.AddClicked();
  EXPECT_EQ(Stored(), before);
}

TEST_F(LocationsPanelTest, ATickPutsAPlaceOnTheMapAtOnceAndIntoTheFileAtTheEnd) {
  Open();
  view.list.SetTicked(2, true);
  view.list.SetTicked(1, false);
  EXPECT_EQ(tables.LocationList[2].OnMap, "1");
  EXPECT_EQ(tables.LocationList[1].OnMap, "0");
  EXPECT_EQ(Content("Locations.dat"), "1Cape Town;341.58;-33.5;-2\n0Quito;78.5;-0.25;2850\n");
  panel.Unload();
  EXPECT_EQ(Content("Locations.dat"), "0Cape Town;341.58;-33.5;-2\n1Quito;78.5;-0.25;2850\n");
}

TEST_F(LocationsPanelTest, ThePrimaryPlaceIsTickedAgainAtOnce) {
  Open();
  view.list.SetTicked(0, false);
  EXPECT_TRUE(view.list.IsTicked(0));
}

TEST_F(LocationsPanelTest, ATickOfAHiddenWindowChangesNothing) {
  Open();
  view.visible = false;
  view.list.SetTicked(2, true);
  EXPECT_EQ(tables.LocationList[2].OnMap, "0");
}

TEST_F(LocationsPanelTest, TheSavedPlaceIsTheChosenRowAndComesOnTheMap) {
  Open();
  Choose(2);
  Type(PlaceBox::kName, "Quito Airport");
  Type(PlaceBox::kHeight, "2400");
  panel.SaveClicked();
  EXPECT_EQ(Content("Locations.dat"), "1Cape Town;341.58;-33.5;-2\n1Quito Airport;78.5;-0.25;2400\n");
  EXPECT_EQ(view.list.Texts(), (Texts{"Home (Primary Location)", "Cape Town", "Quito Airport"}));
}

TEST_F(LocationsPanelTest, TheSavedPrimaryPlaceChangesInTheSettingsAlone) {
  Open();
  const std::string file = Content("Locations.dat");
  TypeDecimal("Hut", "33,5", false, "1", false);
  Type(PlaceBox::kHeight, "12");
  panel.SaveClicked();
  EXPECT_EQ(Primary(), "Hut;359;-33.5;12");
  EXPECT_EQ(Content("Locations.dat"), file);
  EXPECT_EQ(view.list.Row(0), "Hut (Primary Location)");
}

TEST_F(LocationsPanelTest, ANumberIsStoredAsTheMachineWritesItWhicheverSignWasTyped) {
  locale.UseComma();
  Open("");
  TypeDecimal("P", "33.5", true, "7,25", true);
  panel.SaveClicked();
  EXPECT_EQ(Primary(), "P;7,25;33,5;30");
}

TEST_F(LocationsPanelTest, MadePrimaryAPlaceChangesRolesWithTheOldOne) {
  Open();
  UseDecimals();
  Choose(1);
  panel.SetPrimeClicked();
  EXPECT_EQ(Primary(), "Cape Town;341.58;-33.5;-2");
  EXPECT_EQ(Content("Locations.dat"), "1Home;0.25;51.5;30\n0Quito;78.5;-0.25;2850\n");
  EXPECT_EQ(view.list.Texts(), (Texts{"Cape Town (Primary Location)", "Home", "Quito"}));
}

TEST_F(LocationsPanelTest, ThePrimaryPlaceCannotBeMadePrimaryAgain) {
  Open();
  const std::string before = Stored();
  messages.ExpectMessage("This is already the Primary Location");
  panel.SetPrimeClicked();
  EXPECT_EQ(Stored(), before);
}

TEST_F(LocationsPanelTest, ThePrimaryPlaceCannotBeDeleted) {
  Open();
  messages.ExpectMessage("Can't Remove the Primary Location!");
  panel.RemoveClicked();
  EXPECT_EQ(messages.Texts(), Texts{"Can't Remove the Primary Location!"});
  EXPECT_EQ(messages.Titles(), Texts{"Delete Location"});
  EXPECT_EQ(messages.Icons(), std::vector{platform::MessageIcon::kExclamation});
  EXPECT_EQ(view.list.Count(), 3);
}

TEST_F(LocationsPanelTest, ADeletedPlaceLeavesTheListAndTheFile) {
  Open();
  Choose(1);
  panel.RemoveClicked();
  EXPECT_EQ(Content("Locations.dat"), "0Quito;78.5;-0.25;2850\n");
  EXPECT_EQ(view.list.Texts(), (Texts{"Home (Primary Location)", "Quito"}));
  EXPECT_EQ(Box(PlaceBox::kName), "Home") << "the boxes show the place that is chosen now";
}

struct BadBox {
  PlaceBox box;
  const char* typed;
  const char* said;
};

TEST_F(LocationsPanelTest, ABadNumberNamesItsBoxAndItsValueAndNothingIsStored) {
  const BadBox parts[] = {{PlaceBox::kName, " ", "the box \"Name of Location\" is empty"},
                          {PlaceBox::kName, "a;b", "the box \"Name of Location\" holds \"a;b\""},
                          {PlaceBox::kHeight, "high", "\"Height Above Sea Level (metres)\" holds \"high\""},
                          {PlaceBox::kHeight, "40000", "\"Height Above Sea Level (metres)\" holds \"40000\""},
                          {PlaceBox::kLatDeg, "91", "\"Latitude, degrees\" holds \"91\" and takes -90 to 90"},
                          {PlaceBox::kLatDeg, "90", "with its minutes and seconds is beyond 90"},
                          {PlaceBox::kLatMin, "60", "\"Latitude, minutes\" holds \"60\""},
                          {PlaceBox::kLatSec, "-1", "\"Latitude, seconds\" holds \"-1\""},
                          {PlaceBox::kLonDeg, "361", "\"Longitude, degrees\" holds \"361\""},
                          {PlaceBox::kLonMin, "1.2.3", "\"Longitude, minutes\" holds \"1.2.3\", which is no number"},
                          {PlaceBox::kLonSec, "", "\"Longitude, seconds\" is empty"}};
  Open();
  Choose(2);
  Type(PlaceBox::kLatMin, "30");
  for (const BadBox& bad : parts) {
    const std::string before = Stored();
    const std::string good = Box(bad.box);
    Type(bad.box, bad.typed);
    for (const auto click :
         {&LocationsPanel::AddClicked, &LocationsPanel::SaveClicked, &LocationsPanel::SetPrimeClicked}) {
      messages.ExpectMessage(bad.said);
      (panel.*click)();
      EXPECT_EQ(Stored(), before);
      EXPECT_EQ(view.list.Count(), 3);
      EXPECT_EQ(Box(bad.box), bad.typed) << "what was typed stays";
      EXPECT_EQ(view.focused.back(), bad.box);
    }
    Type(bad.box, good);
  }
}

TEST_F(LocationsPanelTest, ASignOnTheDecimalPageIsRefusedForTheTickBoxesCarryIt) {
  Open();
  const std::string before = Stored();
  TypeDecimal("x", "-33", true, "1", true);
  messages.ExpectMessage("the box \"Latitude\" holds \"-33\" and takes 0 to 90");
  panel.AddClicked();
  TypeDecimal("x", "33", true, "361", true);
  messages.ExpectMessage("the box \"Longitude\" holds \"361\" and takes 0 to 360");
  panel.AddClicked();
  EXPECT_EQ(Stored(), before);
}

TEST_F(LocationsPanelTest, ABadNumberKeepsThePageThatItStandsOn) {
  Open();
  Type(PlaceBox::kLatMin, "x");
  messages.ExpectMessage("the box \"Latitude, minutes\" holds \"x\"");
  UseDecimals();
  EXPECT_EQ(view.page, PlacePage::kParts);
  EXPECT_FALSE(view.decDeg.IsChecked());
  EXPECT_EQ(Box(PlaceBox::kLatDec), "51.5");
}

TEST_F(LocationsPanelTest, WhereTheFileCannotBeWrittenAllIsAsItWas) {
  Open();
  Choose(1);
  const std::string before = Stored();
  Type(PlaceBox::kHeight, "7");  // what is not changed is not written
  files.BreakWriteAfter(3);
  for (const auto click : {&LocationsPanel::AddClicked, &LocationsPanel::SaveClicked, &LocationsPanel::SetPrimeClicked,
                           &LocationsPanel::RemoveClicked}) {
    messages.ExpectMessage("Disk full");
    (panel.*click)();
    EXPECT_EQ(Stored(), before);
    EXPECT_EQ(store::PlaceCount(tables), 2);
    EXPECT_EQ(tables.LocationList[1].Name, "Cape Town");
    files.BreakWriteAfter(3);
  }
  files.Mend();
}

TEST_F(LocationsPanelTest, AtItsEndSavesAndLetsTheStationFollowTheNewPlace) {
  Open();
  panel.Unload();
  EXPECT_EQ(view.activations, 1);
  EXPECT_EQ(Content("Locations.dat"), "1Cape Town;341.58;-33.5;-2\n0Quito;78.5;-0.25;2850\n");
}

TEST_F(LocationsPanelTest, APickedPlaceFillsTheBoxesAndStoresNothing) {
  Open();
  const std::string before = Stored();
  panel.PlacePicked({-33.4489001, -70.6693, "Santiago", std::nullopt});
  EXPECT_EQ(Decimal(), "33.4489 S 70.6693 W");
  EXPECT_EQ(Box(PlaceBox::kName), "Santiago");
  EXPECT_EQ(Box(PlaceBox::kHeight), "30") << "the list knows none: what was there stays";
  panel.PlacePicked({48.2, 16.37, std::nullopt, std::int16_t{171}});
  EXPECT_EQ(Decimal(), "48.2 N 16.37 E");
  EXPECT_EQ(Box(PlaceBox::kHeight), "171");
  EXPECT_EQ(Stored(), before);
}

TEST_F(LocationsPanelTest, SaysInWordsWhatTheBoxesOfTheShownPageMean) {
  Open();
  EXPECT_EQ(panel.Typed().words, "51° 30' 00\" north, 0° 15' 00\" west");
  EXPECT_EQ(panel.Typed().point, (GeoPoint{51.5, -0.25}));
  Type(PlaceBox::kLatDeg, "-51");
  EXPECT_EQ(panel.Typed().words,
            "50° 30' 00\" south, 0° 15' 00\" west; a minus counts for the degrees alone: untick North")
      << "the parts are added as they stand";
  Type(PlaceBox::kLonDeg, "-0");
  EXPECT_EQ(panel.Typed().words,
            "50° 30' 00\" south, 0° 15' 00\" west; a minus counts for the degrees alone: untick North and West");
  Type(PlaceBox::kLatDeg, "51");
  EXPECT_EQ(panel.Typed().words,
            "51° 30' 00\" north, 0° 15' 00\" west; a minus counts for the degrees alone: untick West");
  TypeDecimal("x", "33,5", true, "7.25", false);
  EXPECT_EQ(panel.Typed().words, "33.5° north, 7.25° east");
  EXPECT_EQ(panel.Typed().point, (GeoPoint{33.5, 7.25}));
}

TEST_F(LocationsPanelTest, SaysWhichBoxHoldsNoNumber) {
  Open();
  Type(PlaceBox::kLonMin, "half");
  EXPECT_EQ(panel.Typed().words, "The box \"Longitude, minutes\" holds \"half\", which is no number.");
  EXPECT_EQ(panel.Typed().point, std::nullopt);
}

TEST_F(LocationsPanelTest, IsEditedFromAChangedBoxOrSignUntilItIsStored) {
  Open();
  EXPECT_FALSE(panel.IsEdited());
  Type(PlaceBox::kHeight, "31");
  EXPECT_TRUE(panel.IsEdited());
  panel.SaveClicked();
  EXPECT_FALSE(panel.IsEdited());
  Click(PlacePage::kParts, PlaceTick::kWest, false);
  EXPECT_TRUE(panel.IsEdited());
  Choose(1);
  EXPECT_FALSE(panel.IsEdited());
  panel.PlacePicked({10, 20, "Hut", std::nullopt});
  EXPECT_TRUE(panel.IsEdited());
  panel.AddClicked();
  EXPECT_FALSE(panel.IsEdited());
}

TEST_F(LocationsPanelTest, IsNotEditedByAChangeOfThePageThatOnlyCutsSecondsOff) {
  platform::WriteSetting("Latitude", "51.4779");
  Open();
  UseDecimals();
  EXPECT_EQ(Decimal(), "51.4779 N 0.25 W");
  EXPECT_FALSE(panel.IsEdited());
}

TEST_F(LocationsPanelTest, AnAngleWhosePartsNobodyTouchedIsStoredAsItWas) {
  store::WritePrimaryPlace({"Home", "51.4779", "0.00194444", "30"});
  Open("1Cape Town;341.5812345;-33.4779;-2\n");
  Type(PlaceBox::kName, "Greenwich");
  panel.SaveClicked();
  EXPECT_EQ(Primary(), "Greenwich;0.00194444;51.4779;30");
  Choose(1);
  EXPECT_EQ(Parts(), "33 28 40 / 18 25 7") << "the seconds are cut";
  Type(PlaceBox::kHeight, "12");
  panel.SaveClicked();
  EXPECT_EQ(Content("Locations.dat"), "1Cape Town;341.5812345;-33.4779;12\n");
}

TEST_F(LocationsPanelTest, ATouchedPartStoresWhatTheBoxesSayAndLeavesTheOtherAngle) {
  store::WritePrimaryPlace({"Home", "51.4779", "0.00194444", "30"});
  Open();
  Type(PlaceBox::kLatSec, "41");
  panel.SaveClicked();
  EXPECT_EQ(Primary(), "Home;0.00194444;51.478055556;30");
}

TEST_F(LocationsPanelTest, ASignTakesTheUncutAngleToTheOtherSide) {
  store::WritePrimaryPlace({"Home", "51.4779", "0.00194444", "30"});
  Open();
  Click(PlacePage::kParts, PlaceTick::kNorth, false);
  panel.SaveClicked();
  EXPECT_EQ(Primary(), "Home;0.00194444;-51.4779;30");
}

TEST_F(LocationsPanelTest, ToThePartsAndBackLosesNoSecond) {
  Open();
  UseDecimals();
  Type(PlaceBox::kLatDec, "51.4779");
  view.decDeg.SetChecked(false);
  panel.DecDegClicked();
  EXPECT_EQ(Parts(), "51 28 40 / 0 15 0");
  UseDecimals();
  EXPECT_EQ(Decimal(), "51.4779 N 0.25 W");
}

TEST_F(LocationsPanelTest, AStoredLatitudeBeyondThePoleIsRefusedThoughNobodyTouchedIt) {
  store::WritePrimaryPlace({"Home", "999", "0.25", "30"});
  Open();
  messages.ExpectMessage("holds \"999\" and takes -90 to 90");
  panel.SaveClicked();
  EXPECT_EQ(Primary(), "Home;0.25;999;30");
}

TEST_F(LocationsPanelTest, ClosesWithoutAQuestionWhereAllIsStored) {
  Open();
  EXPECT_TRUE(panel.MayClose());
  Choose(2);
  EXPECT_TRUE(panel.MayClose());
}

TEST_F(LocationsPanelTest, WhatIsNotStoredYetIsSavedDroppedOrKeptAsTheUserSays) {
  Open();
  const std::string before = Stored();
  Type(PlaceBox::kName, "Hut");
  messages.ExpectUnstored("Save changes \"Home (Primary Location)\" to it.", platform::Unstored::kStay);
  EXPECT_FALSE(panel.MayClose());
  EXPECT_EQ(Box(PlaceBox::kName), "Hut");
  messages.ExpectUnstored("not stored yet", platform::Unstored::kDiscard);
  EXPECT_TRUE(panel.MayClose());
  EXPECT_EQ(Stored(), before);
  messages.ExpectUnstored("not stored yet", platform::Unstored::kSave);
  EXPECT_TRUE(panel.MayClose());
  EXPECT_EQ(Primary(), "Hut;0.25;51.5;30");
}

TEST_F(LocationsPanelTest, StaysOpenWhereWhatIsToBeSavedCannotBe) {
  Open();
  Choose(1);
  Type(PlaceBox::kLatMin, "half");
  messages.ExpectUnstored("Save changes \"Cape Town\" to it.", platform::Unstored::kSave);
  messages.ExpectMessage("holds \"half\", which is no number");
  EXPECT_FALSE(panel.MayClose());
}

TEST_F(LocationsPanelTest, StaysEditedWhereItCouldNotBeStored) {
  Open();
  Type(PlaceBox::kName, "Hut");
  files.BreakWriteAfter(3);
  messages.ExpectMessage("Disk full");
  panel.AddClicked();
  EXPECT_TRUE(panel.IsEdited());
  files.Mend();
}

}  // namespace
}  // namespace kestrava::panels
