// Where the horizon's scenery glows, seen in the window's own picture, and the scale at its left edge.
#include <QBuffer>
#include <QImage>
#include <algorithm>
#include <array>
#include <cmath>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/qt/SurfaceWidget.h"
#include "views2d/HorizonPainter.h"

#include "HorizonFixture.h"
#include "LookCompare.h"
#include "support_qt/Shots.h"

namespace kestrava::views2d::ui {
namespace {

constexpr double kDeg = 180 / 3.14159265358979323846;
constexpr int kSectors = 24;
using Sectors = std::array<double, kSectors>;

class HorizonScenery : public HorizonFixture {
 protected:
  HorizonScenery() { tables.FaveCount = 0; }

  QWidget& OpenAt(const platform::DateParts& utc, bool centreNorth = false) {
    clock.SetUtc(utc);
    QWidget& horizon = OpenHorizon();
    Resize(horizon, 900, 500);
    if (centreNorth) Entry(horizon, "Mnorth").trigger();
    Run(1);
    return horizon;
  }
  const QImage& PictureOf(QWidget& horizon) {
    return Child<platform::qt::SurfaceWidget>(horizon, "Final").Back().Image();
  }
  /// How much redder than blue the lowest sky is, in sectors from the left edge.
  static Sectors RednessOf(const QImage& picture) {
    Sectors redness{};
    for (int sector = 0; sector < kSectors; ++sector) {
      const int left = picture.width() * sector / kSectors;
      const int right = picture.width() * (sector + 1) / kSectors;
      int pixels = 0;
      for (int y = qRound(ElToY(14, picture.height())); y < ElToY(7, picture.height()); ++y) {
        for (int x = left; x < right; ++x, ++pixels)
          redness[static_cast<std::size_t>(sector)] += qRed(picture.pixel(x, y)) - qBlue(picture.pixel(x, y));
      }
      redness[static_cast<std::size_t>(sector)] /= pixels;
    }
    return redness;
  }
  static double SunAzDeg() {
    return orbit::Engine->LookAngle("sun", platform::TheClock().Read().utc).azimuthRad * kDeg;
  }
  void ExpectGlowAtTheSun(QWidget& horizon, bool centreNorth) {
    const QImage& picture = PictureOf(horizon);
    const Sectors redness = RednessOf(picture);
    const auto reddest = std::max_element(redness.begin(), redness.end());
    const double column = (static_cast<double>(reddest - redness.begin()) + 0.5) * picture.width() / kSectors;
    EXPECT_NEAR(column, AzToX(SunAzDeg(), picture.width(), centreNorth), 1.0 * picture.width() / kSectors);
    EXPECT_GT(*reddest - *std::min_element(redness.begin(), redness.end()), 20);
  }
};

constexpr platform::DateParts kDawn{2026, 11, 15, 6, 55, 0};
constexpr platform::DateParts kDusk{2026, 11, 15, 16, 40, 0};
constexpr platform::DateParts kMidnight{2026, 11, 15, 23, 55, 0};

TEST_F(HorizonScenery, GlowsInTheWestAtDuskAndInTheEastAtDawn) {
  QWidget& horizon = OpenAt(kDusk);
  ExpectGlowAtTheSun(horizon, false);
  Shot(horizon, "horizon", "dusk");
  clock.SetUtc(kDawn);
  Run(1);
  ExpectGlowAtTheSun(horizon, false);
  Shot(horizon, "horizon", "dawn");
}

TEST_F(HorizonScenery, GlowsWhereTheSunStandsWithNorthInTheCentreToo) {
  QWidget& horizon = OpenAt(kDusk, true);
  ExpectGlowAtTheSun(horizon, true);
  Shot(horizon, "horizon", "dusk-north");
  Entry(horizon, "Msouth").trigger();
  Run(1);
  ExpectGlowAtTheSun(horizon, false);
}

TEST_F(HorizonScenery, HasNoLighterSideByNight) {
  for (const char* scenery : {"hdefault", "hmoonlit", "hsea"}) {
    settings.Set("HorizonFile", scenery);
    QWidget& horizon = OpenAt(kMidnight);
    const Sectors redness = RednessOf(PictureOf(horizon));
    Shot(horizon, "horizon", std::string("night-") + scenery);
    const auto [least, most] = std::minmax_element(redness.begin(), redness.end());
    EXPECT_LT(*most - *least, 12) << scenery;
    CloseByUser(horizon);
  }
}

TEST_F(HorizonScenery, TheGlowOfTheEveningIsGoneByMidnightWithoutANewOpening) {
  QWidget& horizon = OpenAt(kDusk);
  clock.SetUtc(kMidnight);
  Run(1);
  const Sectors redness = RednessOf(PictureOf(horizon));
  const auto [least, most] = std::minmax_element(redness.begin(), redness.end());
  EXPECT_LT(*most - *least, 12);
}

TEST_F(HorizonScenery, APictureOfTheUsersOwnStaysAsItIs) {
  QImage own(360, 90, QImage::Format_RGB32);
  own.fill(QColor(20, 30, 60));
  QByteArray bytes;
  QBuffer buffer(&bytes);
  own.save(&buffer, "JPG", 100);
  Put("hdefault.jpg", bytes.toStdString());
  QWidget& horizon = OpenAt(kDusk);
  const Sectors redness = RednessOf(PictureOf(horizon));
  const auto [least, most] = std::minmax_element(redness.begin(), redness.end());
  EXPECT_LT(*most - *least, 2);
}

TEST_F(HorizonScenery, AFaintScaleOfElevationsStandsAtTheLeftEdge) {
  QWidget& horizon = OpenAt(kMidnight);
  auto& canvas = Child<platform::qt::SurfaceWidget>(horizon, "Final");
  const QImage shown = testing::Grab(canvas);
  const double scale = shown.devicePixelRatio();
  const auto tickAt = [&](int row) {  // at a scale between two whole ones it may lie a pixel off
    int lightest = 0;
    for (int y = -1; y <= 1; ++y)
      lightest = std::max(lightest, qGreen(shown.pixel(qRound(4 * scale), qRound(row * scale) + y)));
    return lightest;
  };
  for (const double elDeg : {10.0, 30.0, 60.0}) {
    const int row = qRound(ElToY(elDeg, canvas.height()));
    EXPECT_GT(tickAt(row), tickAt(row - 4) + 40) << elDeg;
    EXPECT_LT(tickAt(row), 180) << elDeg;
  }
  EXPECT_LT(qGreen(canvas.Back().Image().pixel(4, qRound(ElToY(30, canvas.height())))), 80) << "over the picture only";
}

}  // namespace
}  // namespace kestrava::views2d::ui
