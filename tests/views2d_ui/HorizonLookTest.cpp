// The looks of the horizon window.
#include <QAction>
#include <QImage>
#include <QPlainTextEdit>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/Theme.h"

#include "HorizonFixture.h"
#include "LookCompare.h"
#include "support_qt/Shots.h"

namespace kestrava::views2d::ui {
namespace {

constexpr double kLegible = 4.5;

class HorizonLook : public HorizonFixture {
 protected:
  /// An evening with the space station well up.
  QWidget& OpenAtAPass() {
    const platform::SerialDate rise = orbit::Engine->NextRise("ISS (ZARYA)", clock.Read().utc);
    clock.SetUtc(platform::SplitSerial(rise + 150 / platform::kSecondsPerDay));
    return OpenHorizon();
  }
  static void ExpectLooksLike(QWidget& horizon, const std::string& name) {
    ui::ExpectLooksLike(horizon, "horizonwindow", "horizon", name);
  }
  void ExpectAtSize(int width, int height, const char* name) {
    QWidget& horizon = OpenAtAPass();
    Resize(horizon, width, height);
    Run(2);
    ExpectLooksLike(horizon, name);
  }
};

TEST_F(HorizonLook, AtTheUsualSize) {
  ExpectAtSize(813, 528, "usual");
}

TEST_F(HorizonLook, InASmallWindow) {
  ExpectAtSize(400, 300, "small");
}

TEST_F(HorizonLook, OnALargeScreen) {
  ExpectAtSize(1600, 900, "large");
}

TEST_F(HorizonLook, WithNorthInTheCentreAndTheBoxInView) {
  QWidget& horizon = OpenAtAPass();
  Run(1);
  Entry(horizon, "Mnorth").trigger();
  Click(Child<QWidget>(horizon, "BUTexpand"));
  Run(1);
  ExpectLooksLike(horizon, "north-box");
}

TEST_F(HorizonLook, OnThePlainDesktop) {
  settings.Set("Skin", "0");
  platform::qt::ApplyTheme(false);
  QWidget& horizon = OpenAtAPass();
  Click(Child<QWidget>(horizon, "BUTexpand"));
  Run(2);
  ExpectLooksLike(horizon, "plain");
}

TEST_F(HorizonLook, AcrossSeveralScreensWithAllFavourites) {
  FillFavourites(499);
  QWidget& horizon = OpenAtAPass();
  Resize(horizon, 3800, 1000);
  Run(2);
  Shot(horizon, "horizon", "wide-499");
  EXPECT_EQ(Child<platform::qt::SurfaceWidget>(horizon, "Final").Back().Width(), 3800);
}

TEST_F(HorizonLook, AnyTwoOfThePicturesDiffer) {
  const QString folder = KESTRAVA_TEST_DATA "golden/horizonwindow/";
  const QImage usual(folder + "usual.png");
  for (const char* other : {"small", "large", "north-box", "plain"})
    EXPECT_GT(ShareOfDiffering(usual, QImage(folder + other + ".png").scaled(usual.size())), kMayDiffer) << other;
}

TEST_F(HorizonLook, TheBoxIsDarkAndItsTextLegibleInBothLooks) {
  for (const bool skin : {true, false}) {
    settings.Set("Skin", skin ? "1" : "0");
    platform::qt::ApplyTheme(skin);
    QWidget& horizon = OpenAtAPass();
    Click(Child<QWidget>(horizon, "BUTexpand"));
    Run(2);
    auto& box = Child<QPlainTextEdit>(horizon, "txtSatInfo");
    const QImage window = testing::Grab(horizon);
    const QPoint ground = box.mapTo(&horizon, QPoint(box.width() - 12, box.height() - 8)) * window.devicePixelRatio();
    const QColor back = window.pixelColor(ground);
    EXPECT_GE(platform::qt::ContrastRatio(back, QColor(0xdd, 0xdd, 0xdd)), kLegible) << back.name().toStdString();
    CloseByUser(horizon);
  }
}

/// On a screen of any scale the view is painted in the screen's own pixels.
TEST_F(HorizonLook, IsCrispAtTheScreensScale) {
  QWidget& horizon = OpenAtAPass();
  Resize(horizon, 700, 500);
  Run(2);
  const auto& canvas = Child<platform::qt::SurfaceWidget>(horizon, "Final");
  EXPECT_EQ(canvas.Back().Image().width(), qRound(700 * horizon.devicePixelRatioF()));
  EXPECT_LE(canvas.Back().TextWidth("NORTH"), 40);
  Shot(horizon, "horizon", "scaled");
}

}  // namespace
}  // namespace kestrava::views2d::ui
