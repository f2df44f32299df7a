// The map window over damaged pictures and without one, and on settings that were spoilt by hand.
#include <QBuffer>
#include <QImage>

#include <gtest/gtest.h>

#include "platform/qt/SurfaceWidget.h"

#include "MapFixture.h"

namespace kestrava::views2d::ui {
namespace {

using Texts = std::vector<std::string>;

std::string Jpg(int width, int height) {
  QImage picture(width, height, QImage::Format_RGB32);
  picture.fill(Qt::darkCyan);
  QBuffer buffer;
  picture.save(&buffer, "JPG");
  return buffer.data().toStdString();
}

/// The picture with its frame header saying another size.
std::string SaysSize(std::string jpg, int width, int height) {
  const std::size_t frame = jpg.find("\xff\xc0");
  const auto put = [&](std::size_t at, int value) {
    jpg.at(frame + at) = static_cast<char>(value >> 8);
    jpg.at(frame + at + 1) = static_cast<char>(value & 0xff);
  };
  put(5, height);
  put(7, width);
  return jpg;
}

class MapUnderHostility : public MapFixture {
 protected:
  static const QImage& Painted(QWidget& map) { return Child<platform::qt::SurfaceWidget>(map, "Final").Back().Image(); }
  /// Faults at the opening of a map with this picture.
  Texts FaultsOfPicture(const std::string& content) {
    settings.Set("MapFile", "Odd");
    Put("Odd.jpg", content);
    QWidget& map = Open();
    const Texts faults = TakeFaults();
    Run(2);
    TakeFaults();  // the empty base layer's
    EXPECT_FALSE(Painted(map).isNull());
    CloseByUser(map);
    return faults;
  }
};

TEST_F(MapUnderHostility, PicturesThatAreNoneAreToldOnceAndTheMapRuns) {
  const Texts invalid{"Invalid picture - map - Form_load"};
  EXPECT_EQ(FaultsOfPicture(""), invalid);
  EXPECT_EQ(FaultsOfPicture("no picture"), invalid);
  EXPECT_EQ(FaultsOfPicture(Jpg(64, 32).substr(0, 40)), invalid);
  EXPECT_EQ(FaultsOfPicture(SaysSize(Jpg(64, 32), 20000, 20000)), invalid);
}

TEST_F(MapUnderHostility, ATinyPictureIsStretchedOverTheMap) {
  EXPECT_EQ(FaultsOfPicture(Jpg(1, 1)), Texts{});
}

/// Without a base layer every paint must still begin on a clean surface.
TEST_F(MapUnderHostility, WithoutAPictureNoLabelLeavesATrail) {
  settings.Set("MapFile", "None");
  tables.FaveCount = 0;
  QWidget& map = Open();
  Run(2);
  const QImage before = Painted(map).copy();
  tables.LocationList[1] = {"A long name of a place", "40", "100", 0, "1"};
  Run(2);
  EXPECT_NE(Painted(map), before);
  tables.LocationList[1] = {};
  Run(2);
  EXPECT_EQ(Painted(map), before);
  TakeFaults();
}

TEST_F(MapUnderHostility, TheLastColumnOfAnOddWidthKeepsNothingOfTheLastPaint) {
  settings.Set("ShowGroundtrack", "0");
  settings.Set("ShowFootprints", "0");
  tables.FaveCount = 0;
  QWidget& map = Open("worldalt");
  Resize(map, 701, 500);
  auto& back = Child<platform::qt::SurfaceWidget>(map, "Final").Back();
  Run(2);
  ASSERT_EQ(back.Width() % 2, 1);
  ASSERT_EQ((back.Width() - 1) / 2 % 2, 0) << "the half goes down to the even number";
  back.Clear(platform::kWhite);
  Run(2);
  const QImage& image = back.Image();
  EXPECT_EQ(image.pixel(image.width() - 1, 60) & 0xffffffu, 0u);
}

TEST_F(MapUnderHostility, AWindowThatWasStoredNowhereComesOntoTheScreen) {
  settings.Set("WinPosX", "-2000000000");
  settings.Set("WinPosY", "2000000000");
  settings.Set("WinPosW", "2000000000");
  settings.Set("WinPosH", "-5");
  QWidget& map = Open();
  Run(2);
  EXPECT_TRUE(map.isVisible());
  EXPECT_LE(map.width(), 16383);
  EXPECT_GE(map.height(), 1);
  TakeFaults();
}

}  // namespace
}  // namespace kestrava::views2d::ui
