#include <functional>
#include <random>

#include <gtest/gtest.h>

#include "platform_qt/SurfaceHelpers.h"
#include "support/RecordingSurface.h"

namespace kestrava::platform::qt {
namespace {

QImage Noise(int width, int height, unsigned seed) {
  std::mt19937 random(seed);
  QImage picture(width, height, QImage::Format_RGB32);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) picture.setPixel(x, y, 0xff000000u | (random() & 0xffffffu));
  }
  return picture;
}

void ExpectOp(RasterOp op, const std::function<QRgb(QRgb, QRgb)>& expected) {
  const QImage ground = Noise(64, 48, 11);
  const QImage picture = Noise(64, 48, 12);
  ImageSurface target(ground);
  const ImageSurface source(picture);
  target.BitBlt({0, 0, 64, 48}, source, 0, 0, op);
  for (int y = 0; y < 48; ++y) {
    for (int x = 0; x < 64; ++x) {
      ASSERT_EQ(target.Image().pixel(x, y), expected(ground.pixel(x, y), picture.pixel(x, y))) << x << ", " << y;
    }
  }
}

TEST(SurfaceBlit, CopyTakesTheSource) {
  ExpectOp(RasterOp::kSrcCopy, [](QRgb, QRgb source) { return source; });
}

TEST(SurfaceBlit, AndJoinsBitByBitAndStaysOpaque) {
  ExpectOp(RasterOp::kSrcAnd, [](QRgb target, QRgb source) { return (target & source) | 0xff000000u; });
}

TEST(SurfaceBlit, OrJoinsBitByBitAndStaysOpaque) {
  ExpectOp(RasterOp::kSrcPaint, [](QRgb target, QRgb source) { return target | source; });
}

TEST(SurfaceBlit, AMaskAndAnImageMakeASpriteWithClearSurroundings) {
  QImage mask = Plain(8, 8, kWhite);
  QImage image = Plain(8, 8, kBlack);
  mask.setPixel(3, 4, 0xff000000u);
  image.setPixel(3, 4, ToRgb(kOrange));
  ImageSurface target(Plain(20, 20, kBlue));
  target.BitBlt({5, 5, 8, 8}, ImageSurface(mask), 0, 0, RasterOp::kSrcAnd);
  target.BitBlt({5, 5, 8, 8}, ImageSurface(image), 0, 0, RasterOp::kSrcPaint);
  EXPECT_EQ(PixelAt(target, 8, 9), kOrange);
  EXPECT_EQ(CountPixels(target, kBlue), 20 * 20 - 1);
}

TEST(SurfaceBlit, IsClippedOnAllFourSides) {
  const ImageSurface source(Plain(10, 10, kRed));
  ImageSurface target(20, 20);
  target.BitBlt({-7, -6, 10, 10}, source, 0, 0, RasterOp::kSrcCopy);
  target.BitBlt({15, 17, 10, 10}, source, 0, 0, RasterOp::kSrcCopy);
  target.BitBlt({-100, 5, 10, 10}, source, 0, 0, RasterOp::kSrcCopy);
  target.BitBlt({2000000000, -2000000000, 10, 10}, source, 0, 0, RasterOp::kSrcCopy);
  EXPECT_EQ(CountPixels(target, kRed), 3 * 4 + 5 * 3);
}

TEST(SurfaceBlit, TakesNoMoreThanTheSourceHas) {
  const ImageSurface source(Plain(4, 4, kRed));
  ImageSurface target(20, 20);
  target.BitBlt({0, 0, 10, 10}, source, 2, 1, RasterOp::kSrcCopy);
  EXPECT_EQ(CountPixels(target, kRed), 2 * 3);
}

TEST(SurfaceBlit, AnotherKindOfSurfaceIsNoSource) {
  const testing::RecordingSurface other("other", 10, 10);
  ImageSurface target(20, 20);
  target.BitBlt({0, 0, 10, 10}, other, 0, 0, RasterOp::kSrcPaint);
  EXPECT_EQ(target.StretchBlt({0, 0, 20, 20}, other, {0, 0, 10, 10}, RasterOp::kSrcCopy), 0);
  EXPECT_EQ(CountPixels(target, kBlack), 20 * 20);
}

TEST(SurfaceBlit, NeighboursMeetWithoutASeamAtOneAndAHalf) {
  const ImageSurface source(Plain(64, 64, kWhite));
  ImageSurface target(63, 41, 1.5);
  for (int left = 0; left < 63; left += 7) {
    for (int top = 0; top < 41; top += 3) target.BitBlt({left, top, 7, 3}, source, 0, 0, RasterOp::kSrcCopy);
  }
  EXPECT_EQ(target.Image().width(), 95);
  EXPECT_EQ(target.Image().height(), 62);
  EXPECT_EQ(CountPixels(target, kBlack), 0);
}

TEST(SurfaceBlit, ASpriteKeepsItsLogicalSizeAtAnyScale) {
  const ImageSurface sprite(Plain(32, 32, kRed));
  for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
    ImageSurface target(100, 100, scale);
    target.BitBlt({10, 20, 32, 32}, sprite, 0, 0, RasterOp::kSrcPaint);
    EXPECT_EQ(CountPixels(target, kRed), static_cast<int>(32 * scale * 32 * scale)) << scale;
  }
}

TEST(SurfaceBlit, AFinerPictureOfASpriteIsTakenWhereTheScreenIsFiner) {
  ImageSurface sprite(Plain(4, 4, kRed));
  sprite.AddVariant(Plain(8, 8, kGreen), 2);
  sprite.AddVariant(Plain(6, 6, kBlue), 1.5);
  const auto shown = [&](double scale) {
    ImageSurface target(4, 4, scale);
    target.BitBlt({0, 0, 4, 4}, sprite, 0, 0, RasterOp::kSrcCopy);
    return PixelAt(target, 1, 1);
  };
  EXPECT_EQ(shown(1), kRed);
  EXPECT_EQ(shown(1.5), kBlue);
  EXPECT_EQ(shown(2), kGreen);
  EXPECT_EQ(shown(3), kGreen);
}

TEST(SurfaceStretch, CoversTheTargetAndSaysSo) {
  const ImageSurface source(Plain(14, 7, kGreen));
  ImageSurface target(141, 80);
  EXPECT_EQ(target.StretchBlt({0, 0, 141, 80}, source, {0, 0, 14, 7}, RasterOp::kSrcCopy), 1);
  EXPECT_EQ(CountPixels(target, kGreen), 141 * 80);
}

TEST(SurfaceStretch, AnEmptySourceOrTargetIsNotDone) {
  const ImageSurface none{QImage()};
  const ImageSurface source(Plain(14, 7, kGreen));
  ImageSurface target(20, 20);
  EXPECT_EQ(target.StretchBlt({0, 0, 20, 20}, none, {0, 0, 0, 0}, RasterOp::kSrcCopy), 0);
  EXPECT_EQ(target.StretchBlt({0, 0, 20, 20}, source, {0, 0, 0, 7}, RasterOp::kSrcCopy), 0);
  EXPECT_EQ(target.StretchBlt({0, 0, 0, 20}, source, {0, 0, 14, 7}, RasterOp::kSrcCopy), 0);
  EXPECT_EQ(CountPixels(target, kBlack), 20 * 20);
}

TEST(SurfaceStretch, IsMadeOnceForTheSameRectanglesAndSize) {
  const ImageSurface source(Noise(140, 70, 3));
  ImageSurface target(200, 100);
  for (int tick = 0; tick < 10; ++tick) {
    target.StretchBlt({0, 0, 100, 100}, source, {70, 0, 70, 70}, RasterOp::kSrcCopy);
    target.StretchBlt({100, 0, 100, 100}, source, {0, 0, 70, 70}, RasterOp::kSrcCopy);
  }
  EXPECT_EQ(target.StretchCount(), 2);
}

TEST(SurfaceStretch, IsMadeAnewWhenTheSourceHasChanged) {
  ImageSurface source(Plain(14, 7, kGreen));
  ImageSurface target(20, 20);
  target.StretchBlt({0, 0, 20, 20}, source, {0, 0, 14, 7}, RasterOp::kSrcCopy);
  source.Clear(kRed);
  target.StretchBlt({0, 0, 20, 20}, source, {0, 0, 14, 7}, RasterOp::kSrcCopy);
  EXPECT_EQ(target.StretchCount(), 2);
  EXPECT_EQ(CountPixels(target, kRed), 20 * 20);
}

TEST(SurfaceStretch, TheHalvesOfASwappedWorldMeetAtOneAndAHalf) {
  const ImageSurface source(Plain(140, 70, kWhite));
  ImageSurface target(101, 67, 1.5);
  target.StretchBlt({0, 0, 50, 67}, source, {70, 0, 70, 70}, RasterOp::kSrcCopy);
  target.StretchBlt({50, 0, 51, 67}, source, {0, 0, 70, 70}, RasterOp::kSrcCopy);
  EXPECT_EQ(CountPixels(target, kBlack), 0);
}

TEST(SurfaceBlend, MixesByTheWeightRoundedToTheNearest) {
  ImageSurface target(Plain(40, 30, kBlack));
  target.AlphaBlend({0, 0, 40, 30}, ImageSurface(Plain(7, 5, kWhite)), {0, 0, 7, 5}, 40u << 16);
  EXPECT_EQ(CountPixels(target, 0x282828), 40 * 30);
  ImageSurface light(Plain(40, 30, kWhite));
  light.AlphaBlend({0, 0, 40, 30}, ImageSurface(Plain(7, 5, kBlack)), {0, 0, 7, 5}, 40u << 16);
  EXPECT_EQ(CountPixels(light, 0xD7D7D7), 40 * 30);
}

TEST(SurfaceBlend, WeightsOfNoneAndAllAreExact) {
  const QImage ground = Noise(50, 50, 5);
  ImageSurface target(ground);
  target.AlphaBlend({0, 0, 50, 50}, ImageSurface(Plain(5, 5, kRed)), {0, 0, 5, 5}, 0);
  EXPECT_EQ(target.Image(), ground);
  target.AlphaBlend({0, 0, 50, 50}, ImageSurface(Plain(5, 5, kRed)), {0, 0, 5, 5}, 255u << 16);
  EXPECT_EQ(CountPixels(target, kRed), 50 * 50);
}

TEST(SurfaceBlend, FourQuartersShowNoSeam) {
  QImage mask(566, 370, QImage::Format_RGB32);
  for (int y = 0; y < 370; ++y) {
    for (int x = 0; x < 566; ++x) mask.setPixel(x, y, (x - 283) * 3 + (y - 185) * 2 > 40 ? 0xffffffffu : 0xff000000u);
  }
  const ImageSurface alpha(mask);
  ImageSurface whole(Plain(1400, 800, 0x606060));
  ImageSurface quarters(Plain(1400, 800, 0x606060));
  whole.AlphaBlend({0, 0, 1400, 800}, alpha, {0, 0, 566, 370}, 40u << 16);
  for (const int x : {0, 1}) {
    for (const int y : {0, 1}) {
      quarters.AlphaBlend({x * 700, y * 400, 700, 400}, alpha, {x * 283, y * 185, 283, 185}, 40u << 16);
    }
  }
  EXPECT_EQ(whole.Image(), quarters.Image());
}

}  // namespace
}  // namespace kestrava::platform::qt
