// The sceneries of the horizon view as they ship: names in white and labels in yellow are written all over them, and
// the toolkit's own decoder says what a user gets to see.
#include <QColor>
#include <QFileInfo>
#include <QImage>
#include <algorithm>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/qt/Theme.h"

namespace kestrava::platform::qt {
namespace {

constexpr double kLegible = 4.5;  // WCAG 2.1, 1.4.3

class Scenery : public ::testing::TestWithParam<const char*> {
 protected:
  static QString File() { return QString(KESTRAVA_SOURCE_DIR "data/sample/") + GetParam() + ".jpg"; }
  const QImage picture_ = QImage(File()).convertToFormat(QImage::Format_RGB32);
};

std::vector<QRgb> Colours(const QImage& picture) {
  std::vector<QRgb> colours;
  for (int y = 0; y < picture.height(); ++y) {
    const auto* row = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
    colours.insert(colours.end(), row, row + picture.width());
  }
  std::sort(colours.begin(), colours.end());
  colours.erase(std::unique(colours.begin(), colours.end()), colours.end());
  return colours;
}

double LeastContrast(const QImage& picture, const QColor& text) {
  double least = 21;
  for (const QRgb colour : Colours(picture)) least = std::min(least, ContrastRatio(text, QColor(colour)));
  return least;
}

double MeanStep(const QImage& picture, int fromColumn, int toColumn) {
  double sum = 0;
  for (int y = 0; y < picture.height(); ++y) {
    sum += std::abs(qGreen(picture.pixel(fromColumn, y)) - qGreen(picture.pixel(toColumn, y)));
  }
  return sum / picture.height();
}

TEST_P(Scenery, StandsEnlargementAndIsModest) {
  ASSERT_FALSE(picture_.isNull()) << File().toStdString();
  EXPECT_GE(picture_.width(), 3000);
  EXPECT_GE(picture_.height(), 1200);
  EXPECT_LT(QFileInfo(File()).size(), 700'000);
}

TEST_P(Scenery, WhiteAndYellowTextIsReadableOnEveryPixel) {
  ASSERT_FALSE(picture_.isNull());
  EXPECT_GE(LeastContrast(picture_, QColor(255, 255, 255)), kLegible);
  EXPECT_GE(LeastContrast(picture_, QColor(255, 255, 0)), kLegible);
}

TEST_P(Scenery, StaysReadableAtTheSizesOfAWindow) {
  ASSERT_FALSE(picture_.isNull());
  for (const QSize size : {QSize(400, 300), QSize(794, 509), QSize(1600, 900), QSize(3800, 1200)}) {
    const QImage stretched = picture_.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    EXPECT_GE(LeastContrast(stretched, QColor(255, 255, 255)), kLegible) << size.width();
    EXPECT_GE(LeastContrast(stretched, QColor(255, 255, 0)), kLegible) << size.width();
  }
}

TEST_P(Scenery, TheTurnCloses) {
  ASSERT_FALSE(picture_.isNull());
  // across the edge as inside, where steps between the blocks of the JPEG count too
  double inside = 0;
  int columns = 0;
  for (int x = 8; x < picture_.width(); x += 8, ++columns) inside += MeanStep(picture_, x - 1, x);
  EXPECT_LT(MeanStep(picture_, picture_.width() - 1, 0), 1.5 * inside / columns);
}

TEST_P(Scenery, TheSkyShowsNoSteps) {
  ASSERT_FALSE(picture_.isNull());
  // a step of a gradient without grain is a run of one colour, hundreds of pixels long
  int longest = 0;
  for (int y = 0; y < picture_.height() * 9 / 10; ++y) {
    int run = 1;
    for (int x = 1; x < picture_.width(); ++x) {
      run = picture_.pixel(x, y) == picture_.pixel(x - 1, y) ? run + 1 : 1;
      longest = std::max(longest, run);
    }
  }
  EXPECT_LT(longest, 32);
}

TEST_P(Scenery, NothingButSkyStandsAboveTheLowestDegrees) {
  ASSERT_FALSE(picture_.isNull());
  const QColor nearlyBlack(13, 15, 21);  // lighter than a silhouette's core, darker than the sky low down
  const double silhouette = ContrastRatio(nearlyBlack, Qt::black);
  double darkest = 21;
  const QImage band = picture_.copy(0, picture_.height() * 75 / 100, picture_.width(), picture_.height() * 16 / 100);
  for (const QRgb colour : Colours(band)) darkest = std::min(darkest, ContrastRatio(QColor(colour), Qt::black));
  EXPECT_GT(darkest, silhouette);
  double ground = 21;
  const QImage foot = picture_.copy(0, picture_.height() * 98 / 100, picture_.width(), picture_.height() * 2 / 100);
  for (const QRgb colour : Colours(foot)) ground = std::min(ground, ContrastRatio(QColor(colour), Qt::black));
  EXPECT_LT(ground, silhouette) << "a silhouette as this test knows it";
}

INSTANTIATE_TEST_SUITE_P(Shipped, Scenery, ::testing::Values("hdefault", "hmoonlit", "hsea"),
                         [](const auto& scenery) { return std::string(scenery.param); });

}  // namespace
}  // namespace kestrava::platform::qt
