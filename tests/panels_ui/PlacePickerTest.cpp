// The map and the search box beside the fields of a place.
#include <QAbstractItemView>
#include <QAccessible>
#include <QMouseEvent>
#include <QTest>
#include <cmath>

#include <gtest/gtest.h>

#include "panels/PlacePicking.h"
#include "panels/ui/CitySearch.h"

#include "LocationsFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::panels::ui {
namespace {

constexpr const char* kCities =
    "Zürich;Switzerland;Zürich;47.3800;8.5500;408;1108000;Zurich\n"
    "Santiago;Chile;Región Metropolitana de Santiago;-33.4500;-70.6670;;5720000;\n"
    "Sankt Gallen;Switzerland;Sankt Gallen;47.4230;9.3620;;70572;Saint Gallen\n"
    "Suva;Fiji;Central;-18.1330;178.4417;;175399;\n";

class PlacePickerTest : public LocationsFixture {
 protected:
  PlacePickerTest() : cities(store::ReadCities(kCities)) {}

  QWidget& OpenPicker() {
    QWidget& window = Open();
    SetTick("CHdecDeg", true);
    Child<CitySearch>("Tcity").UseCities(cities);
    return window;
  }
  QWidget& Map() { return Child<QWidget>("PlaceMap"); }
  double Scale() { return Map().devicePixelRatioF(); }
  MapArea Area() {
    return FitMap(static_cast<int>(std::floor(Map().width() * Scale())),
                  static_cast<int>(std::floor(Map().height() * Scale())));
  }
  /// A press of the left button on a pixel of the screen, counted from the map's corner.
  void ClickPixel(int column, int row) {
    const QPointF place((Area().left + column) / Scale(), (Area().top + row) / Scale());
    QMouseEvent press(QEvent::MouseButtonPress, place, Map().mapToGlobal(place), Qt::LeftButton, Qt::LeftButton, {});
    eventLoop.RunEvent([&] { QCoreApplication::sendEvent(&Map(), &press); });
  }
  void MovePointer(QPointF onWidget) {
    QMouseEvent move(QEvent::MouseMove, onWidget, Map().mapToGlobal(onWidget), Qt::NoButton, Qt::NoButton, {});
    eventLoop.RunEvent([&] { QCoreApplication::sendEvent(&Map(), &move); });
  }
  /// What the boxes say in degrees, north and east positive.
  GeoPoint Boxes() {
    const double latitude = Box("tLAT2").text().toDouble();
    const double longitude = Box("TLON2").text().toDouble();
    return {Ticked("CHns(2)") ? latitude : -latitude, Ticked("CHew(2)") ? -longitude : longitude};
  }
  QStringList Hits() { return Child<CitySearch>("Tcity").Hits(); }
  QAbstractItemView& Popup() { return *Child<CitySearch>("Tcity").Popup(); }

  std::vector<store::City> cities;
};

TEST_F(PlacePickerTest, AClickMeansTheMiddleOfItsPixelAtEveryScale) {
  OpenPicker();
  constexpr double kHalfOfTheLastDecimal = 5e-7;
  const MapArea area = Area();
  for (const auto& [column, row] :
       {std::pair{0, 0}, std::pair{area.width - 1, area.height - 1}, std::pair{area.width / 2, area.height / 2},
        std::pair{17, area.height - 3}, std::pair{area.width - 5, 11}}) {
    ClickPixel(column, row);
    EXPECT_NEAR(Boxes().longitudeEastDeg, -180 + (column + 0.5) * 360 / area.width, kHalfOfTheLastDecimal);
    EXPECT_NEAR(Boxes().latitudeDeg, 90 - (row + 0.5) * 180 / area.height, kHalfOfTheLastDecimal);
  }
}

TEST_F(PlacePickerTest, EastAndWestAndNorthAndSouthTakeTheSignBoxesAlong) {
  OpenPicker();
  const MapArea area = Area();
  ClickPixel(area.width / 4, area.height / 4);
  EXPECT_TRUE(Ticked("CHns(2)") && Ticked("CHew(2)") && Ticked("CHns(0)") && Ticked("CHew(0)"));
  ClickPixel(area.width * 3 / 4, area.height * 3 / 4);
  EXPECT_FALSE(Ticked("CHns(2)") || Ticked("CHew(2)") || Ticked("CHns(0)") || Ticked("CHew(0)"));
  ClickPixel(area.width * 3 / 4, area.height / 4);
  EXPECT_TRUE(Ticked("CHns(2)"));
  EXPECT_FALSE(Ticked("CHew(2)"));
}

TEST_F(PlacePickerTest, BothPagesAndTheWordsFollowAClick) {
  OpenPicker();
  ClickPixel(Area().width * 3 / 4, Area().height / 4);
  EXPECT_EQ(Label("LAplace"), Text("tLAT2") + "° north, " + Text("TLON2") + "° east");
  EXPECT_EQ(Text("tLAT1(0)"), std::to_string(static_cast<int>(Boxes().latitudeDeg)));
  EXPECT_EQ(Text("tLON1(0)"), std::to_string(static_cast<int>(Boxes().longitudeEastDeg)));
}

TEST_F(PlacePickerTest, AClickStoresNothingAndLeavesNameAndHeight) {
  OpenPicker();
  const std::string before = Stored();
  ClickPixel(10, 10);
  EXPECT_EQ(Stored(), before);
  EXPECT_EQ(Text("Tlocation"), "Home");
  EXPECT_EQ(Text("tHASL"), "30");
  EXPECT_NE(Label("LAhint").find("Not stored yet"), std::string::npos);
}

TEST_F(PlacePickerTest, APickedPlaceIsStoredByAddAndShownAgain) {
  OpenPicker();
  ClickPixel(Area().width * 3 / 4, Area().height * 3 / 4);
  const GeoPoint picked = Boxes();
  Press("BUTaddlocations");
  ChooseRow(0);
  ChooseRow(3);
  EXPECT_NEAR(Boxes().latitudeDeg, picked.latitudeDeg, 1e-9);
  EXPECT_NEAR(Boxes().longitudeEastDeg, picked.longitudeEastDeg, 1e-9);
}

TEST_F(PlacePickerTest, BesideTheMapAClickDoesNothing) {
  OpenPicker();
  Map().setFixedSize(400, 300);
  testing::HandleEvents();
  const std::string before = Decimals();
  for (const auto& [column, row] : {std::pair{5, -1}, std::pair{5, Area().height}}) {
    ClickPixel(column, row);
    EXPECT_EQ(Decimals(), before);
  }
  Map().setFixedSize(700, 200);
  testing::HandleEvents();
  for (const auto& [column, row] : {std::pair{-1, 5}, std::pair{Area().width, 5}}) {
    ClickPixel(column, row);
    EXPECT_EQ(Decimals(), before);
  }
}

TEST_F(PlacePickerTest, TheMapKeepsItsShapeInAnyWidget) {
  OpenPicker();
  for (const QSize size : {QSize(400, 300), QSize(700, 200), QSize(301, 151)}) {
    Map().setFixedSize(size);
    testing::HandleEvents();
    EXPECT_EQ(Area().width, 2 * Area().height);
    const QImage picture = testing::Grab(Map());
    ClickPixel(Area().width / 2, Area().height / 2);
    EXPECT_NEAR(Boxes().latitudeDeg, 0, 180.0 / Area().height);
    EXPECT_NEAR(Boxes().longitudeEastDeg, 0, 360.0 / Area().width);
    EXPECT_EQ(picture.size(), size * Scale());
  }
}

TEST_F(PlacePickerTest, AtTheDateLineBothEdgesMeanTheSamePlaceAndTheMarkGoesOn) {
  OpenPicker();
  ClickPixel(0, Area().height / 2);
  EXPECT_TRUE(Ticked("CHew(2)"));
  EXPECT_LT(Boxes().longitudeEastDeg, -178);
  Key(Map(), Qt::Key_Left);
  EXPECT_FALSE(Ticked("CHew(2)")) << "west of 180 west lies the east";
  EXPECT_GT(Boxes().longitudeEastDeg, 178);
  ClickPixel(Area().width - 1, Area().height / 2);
  EXPECT_GT(Boxes().longitudeEastDeg, 178);
  Key(Map(), Qt::Key_Right);
  EXPECT_LT(Boxes().longitudeEastDeg, -178);
}

TEST_F(PlacePickerTest, TheCursorKeysMoveThePlaceByDegreesTensAndTenths) {
  OpenPicker();
  const std::pair<Qt::Key, const char*> steps[] = {{Qt::Key_Up, "52.5 N 0.25 W"},
                                                   {Qt::Key_Right, "52.5 N 0.75 E"},
                                                   {Qt::Key_Down, "51.5 N 0.75 E"},
                                                   {Qt::Key_Left, "51.5 N 0.25 W"}};
  for (const auto& [key, place] : steps) {
    Key(Map(), key);
    EXPECT_EQ(Decimals(), place);
  }
  Key(Map(), Qt::Key_Down, Qt::ShiftModifier);
  EXPECT_EQ(Decimals(), "41.5 N 0.25 W");
  Key(Map(), Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(Decimals(), "41.5 N 0.35 W");
}

TEST_F(PlacePickerTest, ThePolesAreTheEnd) {
  OpenPicker();
  for (int i = 0; i < 6; ++i) Key(Map(), Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(Text("tLAT2"), "90");
}

TEST_F(PlacePickerTest, TheMarkStandsWhereTheBoxesSay) {
  OpenPicker();
  Map().setFixedSize(400, 200);
  testing::HandleEvents();
  const QColor markColour(0xff, 0xe9, 0x3b);
  const auto markedAt = [&](double latitudeDeg, double eastDeg) {
    const MapSpot spot = SpotOfPlace(Area(), {latitudeDeg, eastDeg});
    return testing::Grab(Map()).pixelColor(static_cast<int>(spot.x), static_cast<int>(spot.y)) == markColour;
  };
  EXPECT_TRUE(markedAt(51.5, -0.25));
  Type("tLAT2", "33.5");
  SetTick("CHns(2)", false);
  Type("TLON2", "70");
  SetTick("CHew(2)", false);
  EXPECT_TRUE(markedAt(-33.5, 70));
  EXPECT_FALSE(markedAt(51.5, -0.25));
  Type("TLON2", "x");
  EXPECT_FALSE(markedAt(-33.5, 70)) << "a box without a number is no place";
}

TEST_F(PlacePickerTest, ThePointerTellsInWordsWhatLiesUnderIt) {
  OpenPicker();
  Map().setFixedSize(400, 300);
  testing::HandleEvents();
  const QImage plain = testing::Grab(Map());
  MovePointer({100, 100});
  const QImage told = testing::Grab(Map());
  EXPECT_NE(told, plain);
  MovePointer({100, 20});
  EXPECT_EQ(testing::Grab(Map()), plain) << "beside the map there is nothing to tell";
}

TEST_F(PlacePickerTest, AssistiveProgramsReadNameRoleAndPlaceOfTheMap) {
  OpenPicker();
  QAccessibleInterface* map = QAccessible::queryAccessibleInterface(&Map());
  ASSERT_NE(map, nullptr);
  EXPECT_EQ(map->text(QAccessible::Name), "Map of the world");
  EXPECT_EQ(map->role(), QAccessible::Graphic);
  EXPECT_EQ(map->text(QAccessible::Value), "51.5° north, 0.3° west");
  EXPECT_TRUE(map->state().focusable);
  Type("TLON2", "");
  EXPECT_EQ(map->text(QAccessible::Value), "no place");
}

TEST_F(PlacePickerTest, ReturnTakesTheFirstCityWithNamePlaceAndHeight) {
  OpenPicker();
  const std::string before = Stored();
  Type("Tcity", "zur");
  EXPECT_EQ(Hits(), QStringList{"Zürich, Switzerland"});
  EXPECT_TRUE(Popup().isVisible());
  Key(Box("Tcity"), Qt::Key_Return);
  EXPECT_FALSE(Popup().isVisible());
  EXPECT_EQ(Text("Tlocation"), "Zürich");
  EXPECT_EQ(Decimals(), "47.38 N 8.55 E");
  EXPECT_EQ(Text("tHASL"), "408");
  EXPECT_EQ(Label("LAcity"), "Name, place and height are filled in.");
  EXPECT_EQ(Stored(), before) << "nothing is stored before Add or Save";
}

TEST_F(PlacePickerTest, ACityWithoutAHeightLeavesTheHeightAndSaysSo) {
  OpenPicker();
  Type("Tcity", "santiago");
  Key(Box("Tcity"), Qt::Key_Return);
  EXPECT_EQ(Decimals(), "33.45 S 70.667 W");
  EXPECT_EQ(Text("tHASL"), "30");
  EXPECT_EQ(Label("LAcity"), "Filled in but for the height: the list has none.");
}

TEST_F(PlacePickerTest, TheArrowKeysChooseAmongTheHits) {
  OpenPicker();
  Type("Tcity", "sa");
  ASSERT_EQ(Hits().first(), "Santiago, Chile");
  ASSERT_EQ(Hits().at(1), "Sankt Gallen, Switzerland");
  Key(Popup(), Qt::Key_Down);
  Key(Popup(), Qt::Key_Return);
  EXPECT_EQ(Text("Tlocation"), "Sankt Gallen");
}

TEST_F(PlacePickerTest, DownOnTheOnlyHitStaysOnIt) {
  OpenPicker();
  Type("Tcity", "zur");
  Key(Popup(), Qt::Key_Down);
  EXPECT_EQ(Popup().currentIndex().row(), 0);
}

TEST_F(PlacePickerTest, AnotherPlaceOfTheListEmptiesTheSearch) {
  OpenPicker();
  Type("Tcity", "zur");
  Key(Box("Tcity"), Qt::Key_Return);
  ChooseRow(1);
  EXPECT_EQ(Text("Tcity"), "");
}

TEST_F(PlacePickerTest, AClickTakesAHit) {
  OpenPicker();
  Type("Tcity", "sa");
  const QPoint second = Popup().visualRect(Popup().model()->index(1, 0)).center();
  eventLoop.RunEvent([&] { QTest::mouseClick(Popup().viewport(), Qt::LeftButton, {}, second); });
  EXPECT_EQ(Text("Tlocation"), "Sankt Gallen");
  EXPECT_EQ(Decimals(), "47.423 N 9.362 E");
}

TEST_F(PlacePickerTest, ACityNearTheDateLineStandsInTheEast) {
  OpenPicker();
  Type("Tcity", "suva");
  Key(Box("Tcity"), Qt::Key_Return);
  EXPECT_EQ(Decimals(), "18.133 S 178.4417 E");
  Press("BUTaddlocations");
  EXPECT_NE(Content("Locations.dat").find("1Suva;181.5583;-18.133;30\n"), std::string::npos);
}

TEST_F(PlacePickerTest, EscapeLeavesTheBoxesAsTheyWere) {
  OpenPicker();
  Type("Tcity", "sa");
  Key(Popup(), Qt::Key_Escape);
  EXPECT_FALSE(Popup().isVisible());
  EXPECT_EQ(Text("Tlocation"), "Home");
  EXPECT_TRUE(Window().isVisible());
}

TEST_F(PlacePickerTest, TheTabKeyLeavesTheSearchAndTakesNoHit) {
  OpenPicker();
  Box("Tcity").setFocus();
  Type("Tcity", "sa");
  Key(Popup(), Qt::Key_Tab);
  EXPECT_FALSE(Popup().isVisible());
  EXPECT_EQ(Text("Tlocation"), "Home");
  EXPECT_TRUE(Box("Tlocation").hasFocus());
}

TEST_F(PlacePickerTest, TheShippedListKnowsTheCitiesOfTheWorldWithoutTheirAccents) {
  Open();
  SetTick("CHdecDeg", true);
  Type("Tcity", "reykjavik");
  Key(Box("Tcity"), Qt::Key_Return);
  EXPECT_NEAR(Boxes().latitudeDeg, 64.15, 0.1);
  EXPECT_NEAR(Boxes().longitudeEastDeg, -21.95, 0.1);
  Type("Tcity", "san");
  EXPECT_EQ(Hits().size(), 8);
}

TEST_F(PlacePickerTest, ACityThatIsNotThereIsSaid) {
  OpenPicker();
  Type("Tcity", "atlantis");
  EXPECT_FALSE(Popup().isVisible());
  EXPECT_EQ(Label("LAcity"), "No such city in the list. Click on the map instead.");
  Key(Box("Tcity"), Qt::Key_Return);
  EXPECT_EQ(Text("Tlocation"), "Home");
  Type("Tcity", "suva");
  EXPECT_EQ(Label("LAcity"), "A city fills in the boxes below.");
}

}  // namespace
}  // namespace kestrava::panels::ui
