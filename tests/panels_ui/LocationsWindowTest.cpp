#include <QAccessible>
#include <QTest>
#include <QToolTip>

#include <gtest/gtest.h>

#include "LocationsFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::panels::ui {
namespace {

using LocationsWindowTest = LocationsFixture;
using Texts = std::vector<std::string>;

TEST_F(LocationsWindowTest, ShowsThePrimaryPlaceFirstChosenAndTicked) {
  Open();
  EXPECT_EQ(Window().windowTitle(), "Locations");
  EXPECT_EQ(Rows(), (Texts{"Home (Primary Location)", "Cape Town", "Quito"}));
  EXPECT_EQ(TickedRows(), (Texts{"Home (Primary Location)", "Cape Town"}));
  EXPECT_EQ(List().currentRow(), 0);
  EXPECT_EQ(Text("Tlocation"), "Home");
  EXPECT_EQ(Text("tHASL"), "30");
  EXPECT_EQ(Parts(), "51 30 0 / 0 15 0");
  EXPECT_EQ(Decimals(), "51.5 N 0.25 W");
}

TEST_F(LocationsWindowTest, OneOfTheTwoPagesIsShown) {
  Open();
  EXPECT_TRUE(Child<QWidget>("PageDMS").isVisible());
  EXPECT_FALSE(Child<QWidget>("PageDEC").isVisible());
  SetTick("CHdecDeg", true);
  EXPECT_FALSE(Child<QWidget>("PageDMS").isVisible());
  EXPECT_TRUE(Child<QWidget>("PageDEC").isVisible());
}

TEST_F(LocationsWindowTest, EastOneDegreeIsStoredAs359AndShownAsEastOne) {
  Open("");
  TypeDecimals("East", "10", true, "1", false);
  Press("BUTaddlocations");
  EXPECT_EQ(Content("Locations.dat"), "1East;359;10;30\n");
  ChooseRow(0);
  ChooseRow(1);
  EXPECT_EQ(Decimals(), "10 N 1 E");
}

TEST_F(LocationsWindowTest, South33AndAHalfIsStoredWithAMinusAndShownWithout) {
  Open("");
  TypeDecimals("South", "33.5", false, "70", true);
  Press("BUTaddlocations");
  EXPECT_EQ(Content("Locations.dat"), "1South;70;-33.5;30\n");
  ChooseRow(0);
  ChooseRow(1);
  EXPECT_EQ(Decimals(), "33.5 S 70 W");
}

TEST_F(LocationsWindowTest, ANameWithASemicolonFromElsewhereCanBeMendedByTyping) {
  settings.Set("Location Name", "My;Hut");
  Open();
  QLineEdit& name = Box("Tlocation");
  ASSERT_EQ(Text("Tlocation"), "My;Hut");
  name.end(false);
  eventLoop.RunEvent([&] { QTest::keyClicks(&name, "s"); });
  EXPECT_EQ(Text("Tlocation"), "My;Huts");
  Key(name, Qt::Key_Backspace);
  EXPECT_EQ(Text("Tlocation"), "My;Hut");
  name.setCursorPosition(2);
  Key(name, Qt::Key_Delete);
  EXPECT_EQ(Text("Tlocation"), "MyHut");
  eventLoop.RunEvent([&] { QTest::keyClicks(&name, ";"); });
  EXPECT_EQ(Text("Tlocation"), "MyHut") << "a new one is refused";
}

TEST_F(LocationsWindowTest, Longitude180ShowsAsEast180) {
  Open("1Line;180;0;0\n");
  ChooseRow(1);
  EXPECT_EQ(Decimals(), "0 N 180 E");
}

TEST_F(LocationsWindowTest, FiftyOneThirtyNoughtIsFiftyOneAndAHalfOnTheDecimalPage) {
  Open("1Quito;78.5;-0.25;2850\n");
  ChooseRow(1);
  Type("tLAT1(0)", "51");
  Type("tLAT1(1)", "30");
  Type("tLAT1(2)", "0");
  SetTick("CHns(0)", true);
  SetTick("CHdecDeg", true);
  EXPECT_EQ(Decimals(), "51.5 N 78.5 W");
}

TEST_F(LocationsWindowTest, SecondsAreCutOffOnTheWayToTheParts) {
  Open();
  TypeDecimals("x", "10.9999", true, "2.5", false);
  SetTick("CHdecDeg", false);
  EXPECT_EQ(Parts(), "10 59 59 / 2 30 0");
  SetTick("CHdecDeg", true);
  EXPECT_EQ(Decimals(), "10.9999 N 2.5 E") << "nobody has touched the parts";
  SetTick("CHdecDeg", false);
  Type("tLAT1(2)", "58");
  SetTick("CHdecDeg", true);
  EXPECT_EQ(Decimals(), "10.999444444 N 2.5 E");
}

TEST_F(LocationsWindowTest, ASignIsCopiedToItsTwinOnTheOtherPage) {
  Open();
  SetTick("CHns(0)", false);
  EXPECT_EQ(Decimals(), "51.5 S 0.25 W");
  SetTick("CHdecDeg", true);
  SetTick("CHew(2)", false);
  EXPECT_EQ(Decimals(), "51.5 S 0.25 E");
}

TEST_F(LocationsWindowTest, APlaceInPartsIsStoredInDecimals) {
  Open("");
  Type("Tlocation", "Parts");
  Type("tLAT1(2)", "36");
  Press("BUTaddlocations");
  EXPECT_EQ(Content("Locations.dat"), "1Parts;0.25;51.51;30\n");
  EXPECT_EQ(Decimals(), "51.51 N 0.25 W");
}

TEST_F(LocationsWindowTest, AnAddedPlaceIsTickedInTheListAndChosen) {
  Open();
  TypeDecimals("New", "1", true, "2", true);
  Press("BUTaddlocations");
  EXPECT_EQ(Rows(), (Texts{"Home (Primary Location)", "Cape Town", "Quito", "New"}));
  EXPECT_EQ(TickedRows(), (Texts{"Home (Primary Location)", "Cape Town", "New"}));
  EXPECT_EQ(List().currentRow(), 3);
}

TEST_F(LocationsWindowTest, AHundredPlacesFitAndOneMoreIsTheBoundsError) {
  std::string file;
  for (int i = 1; i < 100; ++i) file += "0P" + std::to_string(i) + ";1.5;51.25;30\n";
  Open(file);
  Press("BUTaddlocations");
  EXPECT_EQ(List().count(), 101);
  const std::string before = Stored();
  messages.ExpectMessage("Subscript out of range");
  Press("BUTaddlocations");
  EXPECT_EQ(Stored(), before);
  EXPECT_EQ(List().count(), 101);
}

TEST_F(LocationsWindowTest, ATickByMouseIsOnTheMapAtOnceAndInTheFileAtTheEnd) {
  Open();
  TickRow(1);
  TickRow(2);
  EXPECT_EQ(TickedRows(), (Texts{"Home (Primary Location)", "Quito"}));
  EXPECT_EQ(orbit::TheTables().LocationList[1].OnMap, "0");
  EXPECT_EQ(orbit::TheTables().LocationList[2].OnMap, "1");
  CloseByUser();
  EXPECT_EQ(Content("Locations.dat"), "0Cape Town;341.58;-33.5;-2\n1Quito;78.5;-0.25;2850\n");
}

TEST_F(LocationsWindowTest, ATickByTheSpaceBarIsOnTheMapAtOnce) {
  Open();
  Key(List(), Qt::Key_Down);
  EXPECT_EQ(Text("Tlocation"), "Cape Town") << "the cursor keys choose a place";
  Key(List(), Qt::Key_Space);
  EXPECT_EQ(orbit::TheTables().LocationList[1].OnMap, "0");
}

TEST_F(LocationsWindowTest, ThePrimaryPlaceStaysTicked) {
  Open();
  TickRow(0);
  EXPECT_EQ(TickedRows().front(), "Home (Primary Location)");
  Key(List(), Qt::Key_Space);
  EXPECT_EQ(TickedRows().front(), "Home (Primary Location)");
}

TEST_F(LocationsWindowTest, ASavedPlaceChangesInItsRow) {
  Open();
  ChooseRow(2);
  Type("Tlocation", "Quito Airport");
  Type("tHASL", "2400");
  Press("BUTsaveSetting");
  EXPECT_EQ(Content("Locations.dat"), "1Cape Town;341.58;-33.5;-2\n1Quito Airport;78.5;-0.25;2400\n");
  EXPECT_EQ(Rows(), (Texts{"Home (Primary Location)", "Cape Town", "Quito Airport"}));
  EXPECT_EQ(List().currentRow(), 2);
}

TEST_F(LocationsWindowTest, ASavedPrimaryPlaceChangesInTheSettingsAlone) {
  Open();
  const std::string file = Content("Locations.dat");
  TypeDecimals("Hut", "33.5", false, "1", false);
  Press("BUTsaveSetting");
  EXPECT_EQ(Primary(), "Hut;359;-33.5;30");
  EXPECT_EQ(Content("Locations.dat"), file);
  EXPECT_EQ(Rows().front(), "Hut (Primary Location)");
}

TEST_F(LocationsWindowTest, MadePrimaryAPlaceChangesRolesWithTheOldOne) {
  Open();
  SetTick("CHdecDeg", true);
  ChooseRow(1);
  Press("BUTsetPrime");
  EXPECT_EQ(Primary(), "Cape Town;341.58;-33.5;-2");
  EXPECT_EQ(Content("Locations.dat"), "1Home;0.25;51.5;30\n0Quito;78.5;-0.25;2850\n");
  EXPECT_EQ(Rows(), (Texts{"Cape Town (Primary Location)", "Home", "Quito"}));
}

TEST_F(LocationsWindowTest, ThePrimaryPlaceCannotBeMadePrimaryAgain) {
  Open();
  const std::string before = Stored();
  messages.ExpectMessage("This is already the Primary Location");
  Press("BUTsetPrime");
  EXPECT_EQ(Stored(), before);
}

TEST_F(LocationsWindowTest, ThePrimaryPlaceCannotBeDeleted) {
  Open();
  messages.ExpectMessage("Can't Remove the Primary Location!");
  Press("BUTremovelocations");
  EXPECT_EQ(messages.Titles(), Texts{"Delete Location"});
  EXPECT_EQ(messages.Icons(), std::vector{platform::MessageIcon::kExclamation});
  EXPECT_EQ(List().count(), 3);
}

TEST_F(LocationsWindowTest, ADeletedPlaceLeavesTheListAndTheFile) {
  Open();
  ChooseRow(1);
  Press("BUTremovelocations");
  EXPECT_EQ(Content("Locations.dat"), "0Quito;78.5;-0.25;2850\n");
  EXPECT_EQ(Rows(), (Texts{"Home (Primary Location)", "Quito"}));
  EXPECT_EQ(Text("Tlocation"), "Home");
}

struct BadBox {
  const char* box;
  const char* typed;
  const char* said;
};

class ABadBox : public LocationsFixture, public ::testing::WithParamInterface<BadBox> {};

TEST_P(ABadBox, IsNamedWithItsValueGetsTheKeyboardAndNothingIsStored) {
  const BadBox bad = GetParam();
  Open();
  ChooseRow(2);
  const bool decimal = std::string_view(bad.box) == "tLAT2" || std::string_view(bad.box) == "TLON2";
  SetTick("CHdecDeg", decimal);
  Type(bad.box, bad.typed);
  const std::string before = Stored();
  for (const char* button : {"BUTaddlocations", "BUTsaveSetting", "BUTsetPrime"}) {
    messages.ExpectMessage(bad.said);
    Press(button);
    EXPECT_EQ(Stored(), before);
    EXPECT_EQ(List().count(), 3);
    EXPECT_EQ(Text(bad.box), bad.typed) << "what was typed stays";
    EXPECT_TRUE(Box(bad.box).hasFocus());
  }
  EXPECT_TRUE(Window().isVisible());
}

INSTANTIATE_TEST_SUITE_P(
    OfThePlace, ABadBox,
    ::testing::Values(BadBox{"Tlocation", "", "the box \"Name of Location\" is empty"},
                      BadBox{"tHASL", "high", "\"Height Above Sea Level (metres)\" holds \"high\""},
                      BadBox{"tHASL", "40000", "\"Height Above Sea Level (metres)\" holds \"40000\""},
                      BadBox{"tLAT1(0)", "91", "\"Latitude, degrees\" holds \"91\" and takes -90 to 90"},
                      BadBox{"tLAT1(1)", "60", "\"Latitude, minutes\" holds \"60\""},
                      BadBox{"tLAT1(2)", "x", "\"Latitude, seconds\" holds \"x\""},
                      BadBox{"tLON1(0)", "361", "\"Longitude, degrees\" holds \"361\""},
                      BadBox{"tLON1(1)", "1.2.3", "\"Longitude, minutes\" holds \"1.2.3\""},
                      BadBox{"tLON1(2)", "", "\"Longitude, seconds\" is empty"},
                      BadBox{"tLAT2", "-33", "the box \"Latitude\" holds \"-33\" and takes 0 to 90"},
                      BadBox{"TLON2", "1,234.5", "the box \"Longitude\" holds \"1,234.5\""}));

TEST_F(LocationsWindowTest, ABadNumberKeepsThePageThatItStandsOn) {
  Open();
  Type("tLAT1(1)", "x");
  messages.ExpectMessage("the box \"Latitude, minutes\" holds \"x\"");
  SetTick("CHdecDeg", true);
  EXPECT_FALSE(Ticked("CHdecDeg"));
  EXPECT_TRUE(Child<QWidget>("PageDMS").isVisible());
  EXPECT_TRUE(Box("tLAT1(1)").hasFocus());
}

TEST_F(LocationsWindowTest, CommaAndPointAreBothDecimalSigns) {
  Open("");
  TypeDecimals("P", "33,5", true, "7.25", true);
  Press("BUTaddlocations");
  EXPECT_EQ(Content("Locations.dat"), "1P;7.25;33.5;30\n");
}

TEST_F(LocationsWindowTest, OnACommaMachineBothSignsAreReadAndTheCommaIsStored) {
  locale.UseComma();
  Open("");
  EXPECT_EQ(Decimals(), "51,5 N 0,25 W");
  TypeDecimals("P", "33.5", true, "7,25", true);
  Press("BUTsaveSetting");
  EXPECT_EQ(Primary(), "P;7,25;33,5;30");
}

TEST_F(LocationsWindowTest, ASemicolonIsNotTakenByTheBoxOfTheName) {
  Open();
  Type("Tlocation", "a;b");
  EXPECT_EQ(Text("Tlocation"), "ab");
  EXPECT_NE(QToolTip::text().indexOf("semicolon"), -1) << "and it is said why";
  QToolTip::hideText();
}

TEST_F(LocationsWindowTest, TheLineInWordsFollowsWhatIsTyped) {
  Open();
  EXPECT_EQ(Label("LAplace"), "51° 30' 00\" north, 0° 15' 00\" west");
  Type("tLAT1(2)", "7");
  SetTick("CHew(0)", false);
  EXPECT_EQ(Label("LAplace"), "51° 30' 07\" north, 0° 15' 00\" east");
  SetTick("CHns(0)", false);
  EXPECT_EQ(Label("LAplace"), "51° 30' 07\" south, 0° 15' 00\" east");
  Type("tLAT1(1)", "");
  EXPECT_EQ(Label("LAplace"), "The box \"Latitude, minutes\" is empty.");
  ChooseRow(1);
  SetTick("CHdecDeg", true);
  EXPECT_EQ(Label("LAplace"), "33.5° south, 18.42° east");
}

TEST_F(LocationsWindowTest, WhatIsNotStoredYetIsSaidUntilItIs) {
  Open();
  EXPECT_EQ(Label("LAhint"), "");
  Type("Tlocation", "Hut");
  EXPECT_NE(Label("LAhint").find("Not stored yet"), std::string::npos);
  EXPECT_NE(Label("LAhint").find("Home (Primary Location)"), std::string::npos);
  Press("BUTsaveSetting");
  EXPECT_EQ(Label("LAhint"), "");
}

TEST_F(LocationsWindowTest, ClosedItSavesAndLetsTheStationFollowTheNewPlace) {
  Open();
  EXPECT_EQ(hub.activations, 0);
  CloseByUser();
  EXPECT_EQ(hub.activations, 1);
  EXPECT_EQ(windows->Find("frmCONlocations"), nullptr);
}

TEST_F(LocationsWindowTest, WithoutItsFileLogsAndShowsThePrimaryPlace) {
  windows->Show("frmCONlocations");
  EXPECT_EQ(TakeFaults(), Texts{"File not found - LocCON - FormLoad"});
  EXPECT_NE(windows->Find("frmCONlocations"), nullptr);
}

TEST_F(LocationsWindowTest, WhileItLoadsNothingIsWritten) {
  Put("Locations.dat", "1Cape Town;341.58;-33.5;-2\n");
  settings.ForgetAccesses();
  const int changes = files.ChangeCount();
  windows->Show("frmCONlocations");
  EXPECT_TRUE(settings.Writes().empty());
  EXPECT_EQ(files.ChangeCount(), changes);
}

TEST_F(LocationsWindowTest, EveryControlHasANameForAssistivePrograms) {
  Open();
  for (QWidget* widget : Window().findChildren<QWidget*>()) {
    if (widget->focusPolicy() == Qt::NoFocus) continue;
    QAccessibleInterface* accessible = QAccessible::queryAccessibleInterface(widget);
    ASSERT_NE(accessible, nullptr);
    EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << widget->objectName().toStdString();
  }
}

TEST_F(LocationsWindowTest, WhoClosesWithSomethingTypedIsAskedOnce) {
  Open();
  const std::string before = Stored();
  CloseByUser();
  ASSERT_EQ(windows->Find("frmCONlocations"), nullptr) << "nothing was typed";
  Open();
  Type("Tlocation", "Hut");
  messages.ExpectUnstored("What you have typed is not stored yet.", platform::Unstored::kStay);
  CloseByUser();
  ASSERT_NE(windows->Find("frmCONlocations"), nullptr);
  EXPECT_EQ(Text("Tlocation"), "Hut");
  messages.ExpectUnstored("not stored yet", platform::Unstored::kDiscard);
  CloseByUser();
  EXPECT_EQ(windows->Find("frmCONlocations"), nullptr);
  EXPECT_EQ(Stored(), before);
}

TEST_F(LocationsWindowTest, AWindowThatGoesWithTheStationAsksNothing) {
  Open();
  Type("Tlocation", "Hut");
  windows->Unload(*windows->Find("frmCONlocations"));
  EXPECT_EQ(windows->Find("frmCONlocations"), nullptr);
}

TEST_F(LocationsWindowTest, ButtonsThatCannotActOnThePrimaryPlaceSayWhatIsMissing) {
  Open();
  for (const char* name : {"BUTsetPrime", "BUTremovelocations"}) {
    EXPECT_EQ(Child<QWidget>(name).toolTip(), "This is the primary location: select another place first") << name;
    EXPECT_TRUE(Child<QWidget>(name).isEnabled()) << name;
  }
  ChooseRow(1);
  EXPECT_TRUE(Child<QWidget>("BUTsetPrime").toolTip().startsWith("Makes the selected place"));
  EXPECT_TRUE(Child<QWidget>("BUTremovelocations").toolTip().startsWith("Takes the selected place off"));
}

TEST_F(LocationsWindowTest, TheBoxesSayWhatTheirNumbersAre) {
  Open();
  EXPECT_TRUE(Box("TLON2").toolTip().contains("west longitudes as positive numbers: 1° east is 359"));
  EXPECT_TRUE(Box("tLAT1(0)").toolTip().contains("A minus would count for the degrees alone"));
  Type("tLAT1(0)", "-51");
  EXPECT_NE(Label("LAplace").find("a minus counts for the degrees alone: untick North"), std::string::npos);
}

TEST_F(LocationsWindowTest, EveryButtonSaysInItsToolTipWhatItDoes) {
  Open();
  for (const char* button : {"BUTaddlocations", "BUTsaveSetting", "BUTremovelocations", "BUTsetPrime"}) {
    EXPECT_GT(Child<QWidget>(button).toolTip().size(), 20) << button;
  }
}

TEST_F(LocationsWindowTest, EveryMnemonicOfAPageLeadsToOneControl) {
  Open();
  for (const bool decimal : {false, true}) {
    SetTick("CHdecDeg", decimal);
    std::map<QChar, std::string> taken;
    const auto take = [&](const QWidget& widget, const QString& text) {
      const qsizetype at = text.indexOf('&');
      if (at < 0 || !widget.isVisible()) return;
      const QChar letter = text.at(at + 1).toLower();
      EXPECT_TRUE(taken.emplace(letter, text.toStdString()).second)
          << text.toStdString() << " and " << taken[letter] << " share a letter";
    };
    for (const auto* label : Window().findChildren<QLabel*>()) take(*label, label->text());
    for (const auto* button : Window().findChildren<QAbstractButton*>()) take(*button, button->text());
    EXPECT_GE(taken.size(), 13U);
  }
}

TEST_F(LocationsWindowTest, TheTabKeyVisitsEveryControlAsTheEyeMeetsThem) {
  Open();
  std::vector<std::string> visited;
  for (int i = 0; i < 20; ++i) {
    const QWidget* focus = Window().focusWidget();
    visited.push_back(focus ? focus->objectName().toStdString() : "");
    Key(*Window().focusWidget(), Qt::Key_Tab);
    if (Window().focusWidget() == &List()) break;
  }
  EXPECT_EQ(visited, (Texts{"ListLocations", "BUTsetPrime", "BUTremovelocations", "Tcity", "Tlocation", "tHASL",
                            "CHdecDeg", "tLAT1(0)", "tLAT1(1)", "tLAT1(2)", "CHns(0)", "tLON1(0)", "tLON1(1)",
                            "tLON1(2)", "CHew(0)", "PlaceMap", "BUTaddlocations", "BUTsaveSetting"}));
}

}  // namespace
}  // namespace kestrava::panels::ui
