// The looks of the map window: small pictures of it are compared with those in tests/data/golden/mapwindow. Whole
// pictures for the eye are saved where KESTRAVA_SHOTS names a folder; KESTRAVA_GOLDEN=write makes the golden ones anew.
#include <QAction>
#include <QImage>
#include <QSlider>

#include <gtest/gtest.h>

#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/Theme.h"

#include "MapFixture.h"
#include "support_qt/Shots.h"

namespace kestrava::views2d::ui {
namespace {

constexpr int kShrink = 4;             // hides how a machine's faces are hinted
constexpr int kChannelTolerance = 28;  // of 255
constexpr double kMayDiffer = 0.01;    // of the pixels

int GreatestDifference(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

double ShareOfDiffering(const QImage& a, const QImage& b) {
  int differing = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x)
      differing += GreatestDifference(a.pixel(x, y), b.pixel(x, y)) > kChannelTolerance;
  return static_cast<double>(differing) / (a.width() * a.height());
}

class MapLook : public MapFixture {
 protected:
  static void Shot(QWidget& map, const std::string& name) {
    const std::string scale = qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toStdString();
    testing::SaveShot(map, ("map-" + name + "-x" + scale).c_str());
  }

  static void ExpectLooksLike(QWidget& map, const std::string& name) {
    Shot(map, name);
    const QImage now = testing::Grab(map).scaled(map.size() / kShrink, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QString file = QString(KESTRAVA_TEST_DATA "golden/mapwindow/%1.png").arg(name.c_str());
    if (qEnvironmentVariable("KESTRAVA_GOLDEN") == "write") now.save(file);
    const QImage golden = QImage(file).convertToFormat(QImage::Format_RGB32);
    ASSERT_EQ(golden.size(), now.size()) << name;
    const double share = ShareOfDiffering(now.convertToFormat(QImage::Format_RGB32), golden);
    EXPECT_LE(share, kMayDiffer) << name << ": look at it with KESTRAVA_SHOTS=<folder>";
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
