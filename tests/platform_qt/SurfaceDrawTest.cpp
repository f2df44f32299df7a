#include <cmath>
#include <limits>

#include <gtest/gtest.h>

#include "platform/qt/Theme.h"

#include "platform_qt/SurfaceHelpers.h"
#include "support_qt/Shots.h"

namespace kestrava::platform::qt {
namespace {

/// A mask with a white outline of width 2.
class SurfaceFill : public ::testing::Test {
 protected:
  SurfaceFill() {
    mask_.SetLineWidth(2);
    mask_.SetPen(kWhite);
  }
  void Outline(std::initializer_list<std::pair<double, double>> corners) {
    bool first = true;
    for (const auto& [x, y] : corners) {
      first ? mask_.DrawPoint(x, y) : mask_.LineTo(x, y);
      first = false;
    }
  }
  ImageSurface mask_{566, 370, 1, ImageSurface::Kind::kMask};
};

TEST_F(SurfaceFill, KeepsWithinItsBorder) {
  Outline({{100, 100}, {300, 120}, {280, 300}, {110, 260}, {100, 100}});
  mask_.FloodFill(200, 200, kWhite);
  EXPECT_EQ(PixelAt(mask_, 200, 200), kWhite);
  EXPECT_EQ(PixelAt(mask_, 101, 103), kWhite);
  EXPECT_EQ(PixelAt(mask_, 90, 200), kBlack);
  EXPECT_EQ(PixelAt(mask_, 290, 310), kBlack);
  const QRect marked = Marked(mask_, kBlack);
  EXPECT_GE(marked.left(), 98);
  EXPECT_LE(marked.right(), 301);
}

TEST_F(SurfaceFill, NoSlopeOfTheBorderLeaks) {
  for (int degrees = 0; degrees < 180; degrees += 3) {
    mask_.Clear(kBlack);
    const double x = 400 * std::cos(degrees * 3.14159265358979 / 180);
    const double y = 400 * std::sin(degrees * 3.14159265358979 / 180);
    Outline({{283 - x, 185 - y}, {283 + x, 185 + y}});
    mask_.FloodFill(283 - y / 10, 185 + x / 10, kWhite);
    EXPECT_EQ(PixelAt(mask_, static_cast<int>(283 + y / 10), static_cast<int>(185 - x / 10)), kBlack) << degrees;
  }
}

TEST_F(SurfaceFill, IsBoundedByTheSurfaceItself) {
  mask_.FloodFill(0, 369, kWhite);
  EXPECT_EQ(CountPixels(mask_, kWhite), 566 * 370);
}

TEST_F(SurfaceFill, ASeedOnTheBorderOrOffTheSurfaceDoesNothing) {
  Outline({{100, 100}, {300, 100}});
  const int before = CountPixels(mask_, kWhite);
  mask_.FloodFill(200, 100, kWhite);
  mask_.FloodFill(-1, 10, kWhite);
  mask_.FloodFill(566, 10, kWhite);
  mask_.FloodFill(10, 370, kWhite);
  mask_.FloodFill(std::nan(""), 10, kWhite);
  EXPECT_EQ(CountPixels(mask_, kWhite), before);
}

TEST_F(SurfaceFill, AnotherColourThanTheBordersEndsToo) {
  Outline({{100, 100}, {300, 100}, {300, 300}, {100, 300}, {100, 100}});
  mask_.SetFillColour(kRed);
  mask_.FloodFill(200, 200, kWhite);
  mask_.FloodFill(200, 200, kWhite);
  EXPECT_EQ(CountPixels(mask_, kRed), 198 * 198);
}

TEST_F(SurfaceFill, LinesToFarOffPlacesStayOnTheirRow) {
  mask_.SetPen(kWhite);
  Outline({{500, 50}, {10000, 50}});
  EXPECT_EQ(Marked(mask_, kBlack), QRect(499, 49, 67, 2));
  mask_.DrawPoint(-10, 200);
  mask_.LineTo(5, 200);
  EXPECT_EQ(PixelAt(mask_, 0, 200), kWhite);
  mask_.LineTo(std::numeric_limits<double>::infinity(), std::nan(""));
}

TEST(SurfacePoint, AWidthOfTwoIsASquareOfTwoLogicalPixels) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    ImageSurface surface(50, 50, scale);
    surface.SetLineWidth(2);
    surface.SetPen(kOrange);
    surface.DrawPoint(20, 30);
    const int side = static_cast<int>(2 * scale);
    EXPECT_EQ(CountPixels(surface, kOrange), side * side) << scale;
    EXPECT_TRUE(Marked(surface, kBlack).contains(static_cast<int>(20 * scale), static_cast<int>(30 * scale))) << scale;
  }
}

TEST(SurfacePoint, OffTheSurfaceOrNoNumberMarksNothing) {
  ImageSurface surface(50, 50);
  surface.SetLineWidth(2);
  for (const double x : {-1e300, 1e300, std::nan(""), -10.0, 60.0}) surface.DrawPoint(x, 25);
  EXPECT_EQ(CountPixels(surface, kBlack), 50 * 50);
}

TEST(SurfacePosition, NoOperationCarriesItWithoutAMark) {
  ImageSurface surface(120, 60);
  surface.SetDrawMode(DrawMode::kNoOperation);
  surface.DrawPoint(40, 20);
  surface.LineTo(50, 22);
  surface.DrawCircle(60, 24, 5);
  EXPECT_EQ(CountPixels(surface, kBlack), 120 * 60);
  EXPECT_EQ(surface.CurrentX(), 60);
  EXPECT_EQ(surface.CurrentY(), 24);
  surface.SetDrawMode(DrawMode::kCopy);
  surface.SetFont("Small fonts", 7, true);
  surface.Print("ISS");
  const QRect marked = Marked(surface, kBlack);
  EXPECT_GE(marked.left(), 58);
  EXPECT_LE(marked.left(), 62);
  EXPECT_GE(marked.top(), 23);
  EXPECT_LE(marked.bottom(), 24 + 13);
}

TEST(SurfacePosition, ALineEndsWhereTheNextOneStarts) {
  ImageSurface surface(60, 60, 1, ImageSurface::Kind::kMask);
  surface.DrawPoint(10, 10);
  surface.LineTo(40, 10);
  surface.LineTo(40, 40);
  EXPECT_EQ(PixelAt(surface, 40, 25), kWhite);
  EXPECT_EQ(PixelAt(surface, 25, 25), kBlack);
}

TEST(SurfacePosition, ATextMovesItToTheLeftEdgeOfTheNextLine) {
  for (const double scale : {1.0, 1.5, 2.0}) {
    ImageSurface surface(200, 100, scale);
    surface.SetFont("Arial", 8, true);
    surface.DrawPoint(60, 20);
    surface.Print("The Sun");
    EXPECT_EQ(surface.CurrentX(), 0) << scale;
    EXPECT_EQ(surface.CurrentY(), 20 + surface.LineHeight()) << scale;
    EXPECT_GT(surface.LineHeight(), 9) << scale;
    EXPECT_LT(surface.LineHeight(), 16) << scale;
  }
}

TEST(SurfaceCircle, LeavesThePositionAtItsCentre) {
  ImageSurface surface(60, 60);
  surface.DrawCircle(30, 31, 10);
  EXPECT_EQ(surface.CurrentX(), 30);
  EXPECT_EQ(surface.CurrentY(), 31);
  EXPECT_EQ(PixelAt(surface, 30, 31), kBlack);
  EXPECT_TRUE(Marked(surface, kBlack).contains(QRect(21, 22, 18, 18)));
}

/// A short text in the given colour on plain ground.
QImage Printed(Colour text, Colour ground) {
  ImageSurface surface(Plain(120, 30, ground));
  surface.SetPen(text);
  surface.SetFont("Arial", 8, true);
  surface.SetDrawMode(DrawMode::kNoOperation);
  surface.DrawPoint(10, 8);
  surface.SetDrawMode(DrawMode::kCopy);
  surface.Print("NOAA 19");
  return surface.Image().copy();
}

/// The best contrast to a text's colour close to one of its pixels.
double ContrastAround(const QImage& picture, int atX, int atY, Colour text) {
  double best = 0;
  for (int y = atY - 2; y <= atY + 2; ++y) {
    for (int x = atX - 2; x <= atX + 2; ++x) {
      best = std::max(best, ContrastRatio(QColor(ToRgb(text)), QColor(picture.pixel(x, y))));
    }
  }
  return best;
}

void ExpectLegible(Colour text, Colour ground) {
  constexpr Colour kOdd = 0x316497;  // neither text nor halo gives it
  const QImage onOdd = Printed(text, kOdd);
  const QImage picture = Printed(text, ground);
  int inked = 0;
  for (int y = 2; y < 28; ++y) {
    for (int x = 2; x < 118; ++x) {
      if (FromRgb(onOdd.pixel(x, y)) != text) continue;
      ++inked;
      EXPECT_GE(ContrastAround(picture, x, y, text), 4.5)
          << x << ", " << y << std::hex << ", " << text << " on " << ground;
    }
  }
  EXPECT_GT(inked, 20);
}

TEST(SurfaceText, AHaloOfTheOppositeToneMakesItLegibleOnAnyGround) {
  for (const Colour ground : {kWhite, kBlack, Colour{0x808080}, kBlue, kGreen}) {
    ExpectLegible(kWhite, ground);
    ExpectLegible(kBlack, ground);
  }
}

TEST(SurfaceText, IsRenderedOnceWhateverItsPlace) {
  ImageSurface surface(400, 400);
  surface.SetFont("Small fonts", 7, true);
  for (int tick = 0; tick < 5; ++tick) {
    for (int i = 0; i < 300; ++i) {
      surface.DrawPoint(i, tick * 20);
      surface.Print("SAT " + std::to_string(i));
    }
  }
  EXPECT_EQ(surface.RenderCount(), 300);
  surface.SetPen(kGreen);
  surface.Print("SAT 1");
  EXPECT_EQ(surface.RenderCount(), 301);
}

TEST(SurfaceText, IsForgottenTwoPicturesAfterItWasLastPrinted) {
  ImageSurface surface(400, 100);
  surface.SetFont("Arial", 8, true);
  surface.Print("ISS");
  for (int picture = 0; picture < 3; ++picture) {
    surface.Clear(kBlack);
    surface.Print("ISS");
  }
  EXPECT_EQ(surface.RenderCount(), 1) << "printed on each";
  surface.Clear(kBlack);
  surface.Clear(kBlack);
  surface.Print("ISS");
  EXPECT_EQ(surface.RenderCount(), 2) << "not printed on one";
}

TEST(SurfaceText, StaysBoundedWhenEveryTextIsNew) {
  ImageSurface surface(800, 100);
  surface.SetFont("Arial", 8, true);
  const std::string always = "the status line of a satellite with its place and its look angles";
  for (int i = 0; i < 2000; ++i) {
    surface.Print(always + std::to_string(i));
    surface.Print(always);
  }
  EXPECT_EQ(surface.RenderCount(), 2001);
}

TEST(SurfaceText, KeepsItsLogicalSizeAtAFinerScale) {
  const auto extent = [](double scale) {
    ImageSurface surface(300, 60, scale);
    surface.SetFont("Small fonts", 7, true);
    surface.DrawPoint(10, 10);
    surface.Clear(kBlack);
    surface.Print("METEOR-M2 4");
    return Marked(surface, kBlack).width() / scale;
  };
  EXPECT_NEAR(extent(2), extent(1), 8);
}

TEST(SurfaceColour, BlueStandsHighest) {
  EXPECT_EQ(ToRgb(kOrange), 0xffff8000u);
  EXPECT_EQ(FromRgb(0xffff8000u), kOrange);
}

TEST(SurfaceSize, AResizeGivesABlackSurfaceAndKeepsPenFontAndPosition) {
  ImageSurface surface(40, 40);
  surface.SetPen(kRed);
  surface.DrawPoint(20, 20);
  surface.Resize(40, 40, 1);
  EXPECT_EQ(CountPixels(surface, kRed), 1);
  surface.Resize(60, 50, 2);
  EXPECT_EQ(surface.Width(), 60);
  EXPECT_EQ(surface.Image().width(), 120);
  EXPECT_EQ(CountPixels(surface, kBlack), 120 * 100);
  surface.LineTo(30, 20);
  EXPECT_GT(120 * 100 - CountPixels(surface, kBlack), 10);
}

TEST(SurfaceSize, AKeptCopyOfThePictureDoesNotStopTheDrawing) {
  ImageSurface surface(40, 40);
  const QImage shared = surface.Image();
  surface.DrawCircle(20, 20, 5);
  EXPECT_GT(40 * 40 - CountPixels(surface, kBlack), 10);
}

}  // namespace
}  // namespace kestrava::platform::qt
