#include "LookCompare.h"

#include <QImage>
#include <QWidget>
#include <algorithm>
#include <cstdlib>

#include <gtest/gtest.h>

#include "support_qt/Shots.h"

namespace kestrava::views2d::ui {

namespace {

constexpr int kShrink = 4;             // hides how a machine's faces are hinted
constexpr int kChannelTolerance = 28;  // of 255

int GreatestDifference(QRgb a, QRgb b) {
  return std::max({std::abs(qRed(a) - qRed(b)), std::abs(qGreen(a) - qGreen(b)), std::abs(qBlue(a) - qBlue(b))});
}

}  // namespace

double ShareOfDiffering(const QImage& a, const QImage& b) {
  int differing = 0;
  for (int y = 0; y < a.height(); ++y)
    for (int x = 0; x < a.width(); ++x)
      differing += GreatestDifference(a.pixel(x, y), b.pixel(x, y)) > kChannelTolerance;
  return static_cast<double>(differing) / (a.width() * a.height());
}

void Shot(QWidget& window, const std::string& prefix, const std::string& name) {
  const std::string scale = qEnvironmentVariable("KESTRAVA_TEST_SCALE", "1").toStdString();
  testing::SaveShot(window, (prefix + "-" + name + "-x" + scale).c_str());
}

void ExpectLooksLike(QWidget& window, const std::string& folder, const std::string& prefix, const std::string& name) {
  Shot(window, prefix, name);
  const QImage now =
      testing::Grab(window).scaled(window.size() / kShrink, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  const QString file = QString(KESTRAVA_TEST_DATA "golden/%1/%2.png").arg(folder.c_str(), name.c_str());
  if (qEnvironmentVariable("KESTRAVA_GOLDEN") == "write") now.save(file);
  const QImage golden = QImage(file).convertToFormat(QImage::Format_RGB32);
  ASSERT_EQ(golden.size(), now.size()) << name;
  const double share = ShareOfDiffering(now.convertToFormat(QImage::Format_RGB32), golden);
  EXPECT_LE(share, kMayDiffer) << name << ": look at it with KESTRAVA_SHOTS=<folder>";
}

}  // namespace kestrava::views2d::ui
