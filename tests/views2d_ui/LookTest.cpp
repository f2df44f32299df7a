// The looks of the map window.
#include <QAction>
#include <QImage>
#include <QSlider>

#include <gtest/gtest.h>

#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/Theme.h"

#include "LookCompare.h"
#include "MapFixture.h"

namespace kestrava::views2d::ui {
namespace {

class MapLook : public MapFixture {
 protected:
  static void Shot(QWidget& map, const std::string& name) { ui::Shot(map, "map", name); }
  static void ExpectLooksLike(QWidget& map, const std::string& name) {
    ui::ExpectLooksLike(map, "mapwindow", "map", name);
  }
};

TEST_F(MapLook, BeforeTheFirstTickTheWholeWorldStandsThere) {
  ExpectLooksLike(Open(), "idle");
}

TEST_F(MapLook, TheWorldWithThePaneOpenAndClosed) {
  QWidget& map = Open();
  Run(3);
  ExpectLooksLike(map, "world");
  Click(Child<QWidget>(map, "BUTexpand"));
  HandleEvents();
  ExpectLooksLike(map, "closed");
}

TEST_F(MapLook, ARegionWithTheEtaList) {
  QWidget& map = Open("NCQ");
  Click(Child<QWidget>(map, "BUTimode(1)"));
  Run(3);
  ExpectLooksLike(map, "europe-eta");
}

TEST_F(MapLook, TheSwappedWorldInTimeWarp) {
  settings.Set("MapFile", "Night");
  QWidget& map = Open("worldalt");
  Click(Child<QWidget>(map, "BUTtime(1)"));
  Child<QSlider>(map, "SliderWarp").setValue(40);
  Entry(map, "MFaveList(8)").trigger();
  Run(20);
  ExpectLooksLike(map, "swapped-warp-night");
}

TEST_F(MapLook, ThePlainDesktop) {
  settings.Set("Skin", "0");
  platform::qt::ApplyTheme(false);
  QWidget& map = Open("SEQ");
  Run(3);
  ExpectLooksLike(map, "plain");
}

TEST_F(MapLook, WithoutAMapPictureEverythingElseIsThere) {
  settings.Set("MapFile", "None");
  QWidget& map = Open();
  Run(3);
  ExpectLooksLike(map, "no-picture");
  EXPECT_TRUE(ErrorLog().empty());
  EXPECT_TRUE(TakeFaults().empty()) << "a missing picture is no error: the base layer is blank";
}

TEST_F(MapLook, AnyTwoOfThePicturesDiffer) {
  const QString folder = KESTRAVA_TEST_DATA "golden/mapwindow/";
  const QImage world(folder + "world.png");
  for (const char* other : {"idle", "closed", "europe-eta", "swapped-warp-night", "plain", "no-picture"})
    EXPECT_GT(ShareOfDiffering(world, QImage(folder + other + ".png").scaled(world.size())), 5 * kMayDiffer) << other;
}

/// On a screen of any scale the map is painted in the screen's own pixels.
TEST_F(MapLook, IsCrispAtTheScreensScale) {
  QWidget& map = Open();
  Resize(map, 700, 500);
  Run(3);
  const auto& canvas = Child<platform::qt::SurfaceWidget>(map, "Final");
  EXPECT_EQ(canvas.Back().Width(), 500);
  EXPECT_EQ(canvas.Back().Scale(), map.devicePixelRatioF());
  EXPECT_EQ(canvas.Back().Image().width(), qRound(500 * map.devicePixelRatioF()));
  EXPECT_EQ(map.devicePixelRatioF(), qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toDouble());
  Shot(map, "scaled");
}

}  // namespace
}  // namespace kestrava::views2d::ui
