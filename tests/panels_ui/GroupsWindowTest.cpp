// The groups window through its real controls: lists, ticks, favourites, the search box, information, the closing.
#include <QDialog>
#include <QGroupBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <QWindow>
#include <algorithm>
#include <utility>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"

#include "GroupsFixture.h"

namespace kestrava::panels::ui {
namespace {

constexpr const char* kSatellites = "SatelliteList";
constexpr const char* kFull = "Subscript out of range - GroupsCON - Satlist_itemcheck";

class GroupsWindowTest : public GroupsFixture {
 protected:
  QListWidget& Satellites() { return Child<QListWidget>(kSatellites); }
  /// A tick made by code, as a listing makes it.
  void TickByCode(int row, bool ticked) { Satellites().item(row)->setCheckState(ticked ? Qt::Checked : Qt::Unchecked); }
  /// Only a flag that is down leaves the favourites alone.
  void ExpectFlagIsDown(int row) {
    const Strings before = Favourites();
    const bool ticked = Satellites().item(row)->checkState() == Qt::Checked;
    TickByCode(row, !ticked);
    EXPECT_EQ(Favourites(), before) << "the flag stayed up";
    TickByCode(row, ticked);
  }
  void MouseDown(int row) { QTest::mousePress(Satellites().viewport(), Qt::LeftButton, {}, BoxOf(row)); }
  void MouseUp(const QPoint& at) { QTest::mouseRelease(Satellites().viewport(), Qt::LeftButton, {}, at); }
};

TEST_F(GroupsWindowTest, TheLoadShowsTheGroupsAndTheSatellitesOfTheFirst) {
  Favour({"AO-73", "OTHER"});
  QWidget& window = Open();
  EXPECT_EQ(window.windowTitle(), "Kestrava - Satellite Groups and Favourites");
  EXPECT_EQ(Rows("GroupList"), (Strings{"Amateur", "Mine", "Weather"}));
  EXPECT_EQ(Child<platform::qt::ListBox>("GroupList").Selected(), 0);
  EXPECT_EQ(Rows(kSatellites), (Strings{"AO-07", "AO-73", "ISS (ZARYA)"}));
  EXPECT_EQ(Ticked(), Strings{"AO-73"});
  EXPECT_EQ(Details(), "No Information.");
  EXPECT_EQ(Count(), "2 of 499 favourites");
  EXPECT_EQ(Child<platform::qt::ComboList>("COMCelestrak").Text(), "Select a Celestrak Group");
  EXPECT_EQ(Child<QComboBox>("COMCelestrak").count(), 27);
  EXPECT_EQ(Favourites(), (Strings{"AO-73", "OTHER"})) << "the ticks of the listing change nothing";
}

TEST_F(GroupsWindowTest, HeadingsAndCaptionsAreThoseOfTheStation) {
  QWidget& window = Open();
  Strings labels;
  for (const QLabel* label : window.findChildren<QLabel*>()) labels.push_back(label->text().remove('&').toStdString());
  for (const char* text : {"Favourite Satellites in selected Group", "Selected Satellite Information"})
    EXPECT_NE(std::find(labels.begin(), labels.end(), text), labels.end()) << text;
  const std::vector<std::pair<const char*, const char*>> buttons{{"BUTdeletegroup", "Delete Group"},
                                                                 {"BUTaddgroup", "Add New Group"},
                                                                 {"BUTaddCelestrak", "Add This to your Groups"},
                                                                 {"BUTdesel", "Deselect All"},
                                                                 {"BUTsel", "Select All"},
                                                                 {"BUTmakeprime", "Make Primary Satellite"},
                                                                 {"BUTfindInfo", "Find more info on Internet"}};
  for (const auto& [name, text] : buttons) EXPECT_EQ(Child<QAbstractButton>(name).text().remove('&'), text);
}

TEST_F(GroupsWindowTest, AGroupIsListedByMouseAndByKey) {
  Open();
  ClickRow("GroupList", 1);
  EXPECT_EQ(Rows(kSatellites), (Strings{"MY SAT", "AO-73"}));
  Press("GroupList", Qt::Key_Up);
  EXPECT_EQ(Rows(kSatellites), (Strings{"AO-07", "AO-73", "ISS (ZARYA)"}));
}

TEST_F(GroupsWindowTest, AGroupWhoseFileIsMissingIsSaidAndTheListKeepsThePreviousGroup) {
  Open();
  messages.ExpectMessage("Weather satellite group keps are not updated yet, the keplerian file doesn't exist");
  ClickRow("GroupList", 2);
  EXPECT_EQ(Rows(kSatellites), (Strings{"AO-07", "AO-73", "ISS (ZARYA)"}));
}

TEST_F(GroupsWindowTest, TheFirstGroupsMissingFileIsSaidOverTheWindow) {
  files.Remove("/house/amateur.txt");
  bool seen = false;
  messages.ExpectMessage("Amateur satellite group keps", [&] { seen = windows->IsVisible(kGroupsWindow); });
  Open();
  EXPECT_TRUE(seen);
  EXPECT_TRUE(Rows(kSatellites).empty());
}

TEST_F(GroupsWindowTest, AWindowThatIsClosedWhileItsFirstMessageStandsGoes) {
  files.Remove("/house/amateur.txt");
  messages.ExpectMessage("Amateur satellite group keps", [&] { CloseByLauncher(); });
  EXPECT_THROW(Open(), std::runtime_error);
  EXPECT_FALSE(IsOpen());
}

TEST_F(GroupsWindowTest, AMouseTickMakesAFavouriteAndTakesItAway) {
  Open();
  ClickBox(2);
  ClickBox(0);
  EXPECT_EQ(Favourites(), (Strings{"ISS (ZARYA)", "AO-07"}));
  EXPECT_EQ(Ticked(), (Strings{"AO-07", "ISS (ZARYA)"}));
  ClickBox(2);
  EXPECT_EQ(Favourites(), Strings{"AO-07"});
  EXPECT_EQ(Count(), "1 of 499 favourites");
  ExpectFlagIsDown(1);
}

TEST_F(GroupsWindowTest, AMouseTickAlsoChoosesItsRow) {
  Favour({"AO-07"});
  Open();
  ClickBox(2);
  EXPECT_EQ(Details().find("You can still track"), 0U);
  messages.ExpectMessage("Primary Favourite Satellite changed from AO-07 to ISS (ZARYA)");
  Click("BUTmakeprime");
}

TEST_F(GroupsWindowTest, WithoutADatabaseTheFirstClickOnABoxTicksAllTheSame) {
  QWidget& window = Open();
  files.Remove("/house/satellite.dat");
  const QPoint at = Satellites().viewport()->mapTo(&window, BoxOf(1));
  bool down = true;
  const auto release = [&] {
    if (std::exchange(down, false)) QTest::mouseRelease(window.windowHandle(), Qt::LeftButton, {}, at);
  };
  messages.ExpectMessage("Satellite.dat file is missing", [&] { QDialog(&window).exec(); });
  InTheBox([&](QDialog& box) {
    release();  // where it has not been yet, the window does not hear of it while the box stands
    box.accept();
  });
  RunEvent([&] {
    QTest::mousePress(window.windowHandle(), Qt::LeftButton, {}, at);
    release();
  });
  EXPECT_EQ(Ticked(), Strings{"AO-73"});
  EXPECT_EQ(Favourites(), Strings{"AO-73"});
  ExpectFlagIsDown(0);
}

TEST_F(GroupsWindowTest, TheSpaceBarTicksTheRowOfTheCursor) {
  Open();
  Press(kSatellites, Qt::Key_Down);
  Press(kSatellites, Qt::Key_Space);
  EXPECT_EQ(Favourites(), Ticked());
  EXPECT_EQ(Favourites().size(), 1u);
  ExpectFlagIsDown(2);
  Press(kSatellites, Qt::Key_Space);
  EXPECT_TRUE(Favourites().empty());
}

TEST_F(GroupsWindowTest, ATickByCodeChangesNothing) {
  Open();
  TickByCode(0, true);
  EXPECT_TRUE(Favourites().empty());
}

TEST_F(GroupsWindowTest, AButtonThatIsDraggedOutOfTheWindowTicksNothingAndLeavesTheFlagDown) {
  Open();
  RunEvent([&] {
    MouseDown(0);
    MouseUp(QPoint(-400, -300));
  });
  EXPECT_TRUE(Ticked().empty());
  EXPECT_TRUE(Favourites().empty());
  ExpectFlagIsDown(0);
}

TEST_F(GroupsWindowTest, ADoubleClickOnABoxLeavesTableAndTicksAlike) {
  Open();
  RunEvent([&] {
    QTest::mouseClick(Satellites().viewport(), Qt::LeftButton, {}, BoxOf(1));
    QTest::mouseDClick(Satellites().viewport(), Qt::LeftButton, {}, BoxOf(1));  // its second press
    MouseUp(BoxOf(1));
  });
  EXPECT_EQ(Favourites(), Ticked());
  ExpectFlagIsDown(1);
}

TEST_F(GroupsWindowTest, AKeyboardThatGoesElsewhereWhileTheButtonIsDownLowersTheFlag) {
  Open();
  Satellites().setFocus();
  RunEvent([&] {
    MouseDown(0);
    Child<QWidget>("FilterBox").setFocus();
    ExpectFlagIsDown(1);
    MouseUp(BoxOf(0));
  });
  EXPECT_EQ(Favourites(), Ticked()) << "what the toolkit toggles at the end is the user's";
  ExpectFlagIsDown(1);
}

TEST_F(GroupsWindowTest, AListThatLeavesTheScreenWhileTheButtonIsDownLowersTheFlag) {
  QWidget& window = Open();
  RunEvent([&] {
    MouseDown(0);
    window.hide();
    ExpectFlagIsDown(0);
    window.show();
  });
  EXPECT_TRUE(Favourites().empty());
}

TEST_F(GroupsWindowTest, AGroupThatIsListedWhileTheButtonIsDownMakesNoFavourites) {
  Favour({"AO-73"});
  Open();
  RunEvent([&] {
    MouseDown(0);
    QTest::keyClick(&Child<QWidget>("GroupList"), Qt::Key_Down);
    MouseUp(QPoint(-400, -300));
  });
  EXPECT_EQ(Ticked(), Strings{"AO-73"});
  EXPECT_EQ(Favourites(), Strings{"AO-73"}) << "no name twice";
}

TEST_F(GroupsWindowTest, SelectAllAndDeselectAllActOnTheWholeGroup) {
  Favour({"AO-73"});
  Open();
  Click("BUTsel");
  EXPECT_EQ(Favourites(), (Strings{"AO-73", "AO-07", "ISS (ZARYA)"}));
  ExpectFlagIsDown(0);
  Click("BUTdesel");
  EXPECT_TRUE(Favourites().empty());
  EXPECT_TRUE(Ticked().empty());
  ExpectFlagIsDown(0);
}

TEST_F(GroupsWindowTest, DeselectedByCodeTheyStayFavouritesAndDeselectedByHandTheyDoNot) {
  Favour({"AO-07", "AO-73", "ISS (ZARYA)"});
  Open();
  for (int row = 0; row < 3; ++row) TickByCode(row, false);
  EXPECT_EQ(Favourites().size(), 3u) << "by code";
  for (int row = 0; row < 3; ++row) TickByCode(row, true);
  for (int row = 0; row < 3; ++row) ClickBox(row);
  EXPECT_TRUE(Favourites().empty()) << "by hand";
}

TEST_F(GroupsWindowTest, PastTheLastRowATickIsTheBoundsErrorAndTheRowFallsBack) {
  FillFavourites(500);
  Open();
  ClickBox(0);
  EXPECT_EQ(TakeFaults(), Strings{kFull});
  EXPECT_TRUE(Ticked().empty());
  EXPECT_EQ(tables.FaveCount, 500);
  Press(kSatellites, Qt::Key_Space);
  EXPECT_EQ(TakeFaults(), Strings{kFull}) << "by key, too";
  Click("BUTsel");
  EXPECT_EQ(TakeFaults(), Strings{kFull}) << "one line for all";
  EXPECT_TRUE(Ticked().empty());
}

TEST_F(GroupsWindowTest, BeyondTheSavedFavouritesTheCountWarns) {
  FillFavourites(499);
  Open();
  EXPECT_EQ(Count(), "499 of 499 favourites");
  EXPECT_FALSE(Child<QLabel>("FavouriteCount").font().bold());
  ClickBox(0);
  EXPECT_EQ(Count(), "500 of 499 favourites. The last one will not be saved.");
  EXPECT_TRUE(Child<QLabel>("FavouriteCount").font().bold());
  ClickBox(0);
  EXPECT_EQ(tables.FaveCount, 500) << "a name in the last row is not found again";
}

TEST_F(GroupsWindowTest, MakesAFavouriteThePrimaryOne) {
  Favour({"AO-07", "AO-73"});
  Open();
  ClickRow(kSatellites, 1);
  messages.ExpectMessage("Primary Favourite Satellite changed from AO-07 to AO-73");
  Click("BUTmakeprime");
  EXPECT_EQ(Favourites(), (Strings{"AO-73", "AO-07"}));
}

TEST_F(GroupsWindowTest, MadePrimaryANameThatIsNoFavouriteLosesTheOldFirstOneIntoRowNought) {
  Favour({"AO-07", "AO-73"});
  Open();
  ClickRow(kSatellites, 2);
  messages.ExpectMessage("Primary Favourite Satellite changed from AO-07 to ISS (ZARYA)");
  Click("BUTmakeprime");
  EXPECT_EQ(Favourites(), (Strings{"ISS (ZARYA)", "AO-73"}));
  EXPECT_EQ(tables.FaveList[0].Name, "AO-07");
}

TEST_F(GroupsWindowTest, AButtonWithNothingToActOnWorksAndItsHintSaysWhatIsMissing) {
  Open();
  for (const auto& [name, missing] : {std::pair{"BUTmakeprime", "Select a satellite first"},
                                      {"BUTfindInfo", "Select a satellite first"},
                                      {"BUTaddCelestrak", "Choose a group of the element server first"}}) {
    EXPECT_TRUE(Child<QWidget>(name).toolTip().startsWith(missing)) << name;
    EXPECT_TRUE(Child<QWidget>(name).isEnabled()) << name;
  }
  ClickRow("SatelliteList", 0);
  Choose("COMCelestrak", "Amateur");
  for (const char* name : {"BUTmakeprime", "BUTfindInfo", "BUTaddCelestrak"}) {
    EXPECT_FALSE(Child<QWidget>(name).toolTip().contains("first,")) << name;
    EXPECT_FALSE(Child<QWidget>(name).toolTip().startsWith("Select")) << name;
  }
  Type("FilterBox", "nothing like it");
  EXPECT_EQ(Child<QWidget>("BUTsel").toolTip(), "The search shows no satellite");
  EXPECT_EQ(Child<QWidget>("BUTdesel").toolTip(), "The search shows no satellite");
  EXPECT_EQ(Child<QWidget>("BUTmakeprime").toolTip(), "Select a satellite first");
}

TEST_F(GroupsWindowTest, ThePrimaryFavouriteBearsAStarBesideItsNameAlone) {
  Favour({"AO-73", "ISS (ZARYA)"});
  Open();
  auto& list = Child<QListWidget>("SatelliteList");
  const auto pixelsOfSecond = [&] {
    ClickRow("SatelliteList", 0);
    return list.viewport()->grab(list.visualItemRect(list.item(1))).toImage();
  };
  EXPECT_EQ(list.item(1)->text(), "AO-73") << "the text is the name";
  EXPECT_EQ(list.item(1)->toolTip(), "The primary favourite");
  EXPECT_EQ(list.item(1)->data(Qt::AccessibleDescriptionRole).toString(), "The primary favourite");
  const QImage withStar = pixelsOfSecond();
  ClickRow("SatelliteList", 2);
  messages.ExpectMessage("changed from AO-73 to ISS (ZARYA)");
  Click("BUTmakeprime");
  EXPECT_EQ(list.item(1)->toolTip(), "");
  EXPECT_EQ(list.item(2)->toolTip(), "The primary favourite");
  EXPECT_NE(pixelsOfSecond(), withStar) << "the star is seen";
}

TEST_F(GroupsWindowTest, TheSearchBoxNarrowsTheListAndTheButtonsActOnWhatIsShown) {
  Open();
  Type("FilterBox", "ao-");
  EXPECT_EQ(Shown(), (Strings{"AO-07", "AO-73"}));
  Click("BUTsel");
  EXPECT_EQ(Favourites(), (Strings{"AO-07", "AO-73"}));
  Type("FilterBox", "7");
  EXPECT_EQ(Shown(), Strings{"AO-73"});
  Click("BUTdesel");
  EXPECT_EQ(Favourites(), Strings{"AO-07"});
  EXPECT_TRUE(Child<QWidget>("BUTsel").toolTip().contains("search"));
  Press("FilterBox", Qt::Key_Escape);
  EXPECT_EQ(Shown().size(), 3u);
  EXPECT_FALSE(Child<QWidget>("BUTsel").toolTip().contains("search"));
}

TEST_F(GroupsWindowTest, TheSearchGoesOnInTheNextGroup) {
  Open();
  Type("FilterBox", "73");
  ClickRow("GroupList", 1);
  EXPECT_EQ(Shown(), Strings{"AO-73"});
}

TEST_F(GroupsWindowTest, FromTheSearchBoxDownGoesToTheFirstThatIsShown) {
  QWidget& window = Open();
  Type("FilterBox", "iss");
  Press("FilterBox", Qt::Key_Down);
  EXPECT_EQ(window.focusWidget()->objectName(), kSatellites);
  EXPECT_EQ(Satellites().currentRow(), 2);
  Press(kSatellites, Qt::Key_Space);
  EXPECT_EQ(Favourites(), Strings{"ISS (ZARYA)"});
}

TEST_F(GroupsWindowTest, WithoutAMatchDownStaysInTheSearchBox) {
  QWidget& window = Open();
  Child<QWidget>("FilterBox").setFocus();
  Type("FilterBox", "zzz");
  EXPECT_TRUE(Shown().empty());
  Press("FilterBox", Qt::Key_Down);
  EXPECT_EQ(window.focusWidget()->objectName(), "FilterBox");
}

TEST_F(GroupsWindowTest, WhatTheSearchHidesIsNotChosenAnyMore) {
  Favour({"AO-07"});
  Open();
  ClickRow(kSatellites, 2);
  Type("FilterBox", "ao");
  messages.ExpectMessage("Select a satellite first");
  Click("BUTmakeprime");
  EXPECT_EQ(Favourites(), Strings{"AO-07"});
}

TEST_F(GroupsWindowTest, EscapeInAnEmptySearchBoxMakesTheStationSilent) {
  settings.Set("Speechpack", "1");
  Open();
  Press("FilterBox", Qt::Key_Escape);
  EXPECT_EQ(speech.stops, 1);
}

TEST_F(GroupsWindowTest, ShowsWhatTheDatabaseSaysAndOffersNothingThen) {
  Open();
  ClickRow(kSatellites, 0);
  EXPECT_EQ(Details(), "Data for AO-07\nNotes: Old and alive");
  EXPECT_EQ(Child<QPlainTextEdit>("Details").viewport()->cursor().shape(), Qt::IBeamCursor);
  RunEvent([&] { QTest::mouseClick(Child<QPlainTextEdit>("Details").viewport(), Qt::LeftButton); });
  Press("Details", Qt::Key_Return);
  Press("Details", Qt::Key_Space);
  EXPECT_TRUE(messages.Texts().empty());
}

TEST_F(GroupsWindowTest, OfAnUnknownSatelliteDetailsOfferARequestByMouseAndByKeys) {
  Open();
  ClickRow(kSatellites, 2);
  EXPECT_EQ(Details().find("You can still track the position of this Satellite"), 0U);
  auto& details = Child<QPlainTextEdit>("Details");
  EXPECT_EQ(details.viewport()->cursor().shape(), Qt::PointingHandCursor);
  EXPECT_FALSE(details.accessibleDescription().isEmpty());
  // Nobody reads such letters yet, so that is all that can be said.
  constexpr const char* kSorry = "Sorry, this feature is not available for this version of windows";
  messages.ExpectMessage(kSorry);
  RunEvent([&] { QTest::mouseClick(details.viewport(), Qt::LeftButton); });
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space}) {
    messages.ExpectMessage(kSorry);
    Press("Details", key);
  }
  EXPECT_TRUE(opener.opened.empty());
}

TEST_F(GroupsWindowTest, MarkingTheOfferForACopyIsNoClick) {
  Open();
  ClickRow(kSatellites, 2);
  auto& details = Child<QPlainTextEdit>("Details");
  RunEvent([&] {
    QTest::mousePress(details.viewport(), Qt::LeftButton, {}, QPoint(8, 8));
    QTest::mouseMove(details.viewport(), QPoint(90, 8));
    QTest::mouseRelease(details.viewport(), Qt::LeftButton, {}, QPoint(90, 8));
  });
  EXPECT_TRUE(messages.Texts().empty());
}

TEST_F(GroupsWindowTest, SearchesTheInternetForTheChosenSatellite) {
  Open();
  ClickRow(kSatellites, 2);
  Click("BUTfindInfo");
  ASSERT_EQ(opener.opened.size(), 1u);
  EXPECT_TRUE(opener.opened[0].ends_with("=ISS+(ZARYA)+satellite")) << opener.opened[0];
}

TEST_F(GroupsWindowTest, NothingIsOnDiskBeforeTheWindowCloses) {
  Open();
  ClickBox(2);
  EXPECT_FALSE(files.Exists("/house/faves.dat"));
  CloseByUser();
  EXPECT_EQ(Content("faves.dat"), "ISS (ZARYA)\n");
  EXPECT_NE(Content("groups.dat").find("Mine,mine.txt,1"), std::string::npos);
}

TEST_F(GroupsWindowTest, TakenAlongByTheLauncherItWritesBothFiles) {
  Open();
  ClickBox(0);
  CloseByLauncher();
  EXPECT_EQ(Content("faves.dat"), "AO-07\n");
  EXPECT_TRUE(files.Exists("/house/groups.dat"));
}

TEST_F(GroupsWindowTest, ClosedAfterTheLastFavouriteWentLeavesAnEmptyFile) {
  Put("faves.dat", "AO-07\n");
  Favour({"AO-07"});
  Open();
  Click("BUTdesel");
  CloseByUser();
  EXPECT_TRUE(files.Exists("/house/faves.dat"));
  EXPECT_EQ(Content("faves.dat"), "");
}

class FavouriteTooNew : public GroupsWindowTest {
 protected:
  FavouriteTooNew() {
    orbit::Engine = std::make_unique<orbit::OrbitEngine>();
    orbit::Engine->SetDataFolder("/house/");
    Put("mine.txt", Sets({"NEWCOMER"}));
  }
  ~FavouriteTooNew() override {
    if (IsOpen()) CloseByLauncher();
    orbit::Engine.reset();
  }
  void Prefer() {
    Open();
    ClickRow("GroupList", 1);
    ClickBox(0);
  }
};

TEST_F(FavouriteTooNew, IsToldWhenTheUserClosesAndTheStationStartsAnewIfHeLikes) {
  Prefer();
  messages.ExpectQuestion("NEWCOMER", true);
  CloseByUser();
  EXPECT_NE(messages.Texts().back().find("Start Kestrava anew now?"), std::string::npos);
  EXPECT_EQ(hub.starts, 1);
}

TEST_F(FavouriteTooNew, IsLeftAloneIfHeDoesNot) {
  Prefer();
  messages.ExpectQuestion("NEWCOMER", false);
  CloseByUser();
  EXPECT_EQ(hub.starts, 0);
  EXPECT_EQ(Content("faves.dat"), "NEWCOMER\n");
}

TEST_F(FavouriteTooNew, IsNotToldWhenTheLauncherTakesTheWindowAlong) {
  Prefer();
  CloseByLauncher();
  EXPECT_TRUE(messages.Texts().empty());
}

}  // namespace
}  // namespace kestrava::panels::ui
