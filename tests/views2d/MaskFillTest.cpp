// What the outline and the seeds make of the day and night mask: filled on a small raster of its own and compared with
// the height of the Sun at each pixel.
#include <algorithm>
#include <cmath>

#include "PainterFixture.h"

namespace kestrava::views2d {
namespace {

constexpr double kDeg = 3.14159265358979323846 / 180;

/// The operations of the mask on an array of pixels: lines two pixels wide, a fill up to white.
class RasterSurface : public LoggedSurface {
 public:
  using LoggedSurface::LoggedSurface;

  void Clear(platform::Colour) override { white_.assign(static_cast<std::size_t>(Width() * Height()), false); }
  void DrawPoint(double x, double y) override {
    Mark(x, y);
    x_ = x, y_ = y;
  }
  void LineTo(double x, double y) override {
    const int steps = static_cast<int>(std::ceil(std::max(std::abs(x - x_), std::abs(y - y_)))) + 1;
    for (int i = 0; i <= steps; ++i) Mark(x_ + (x - x_) * i / steps, y_ + (y - y_) * i / steps);
    x_ = x, y_ = y;
  }
  void FloodFill(double x, double y, platform::Colour) override {
    std::vector<std::pair<int, int>> open{{static_cast<int>(std::lround(x)), static_cast<int>(std::lround(y))}};
    while (!open.empty()) {
      const auto [column, row] = open.back();
      open.pop_back();
      if (!IsInside(column, row) || IsWhite(column, row)) continue;
      white_[Index(column, row)] = true;
      for (const auto& [right, down] : {std::pair{1, 0}, {-1, 0}, {0, 1}, {0, -1}}) {
        open.emplace_back(column + right, row + down);
      }
    }
  }

  bool IsWhite(int column, int row) const { return white_[Index(column, row)]; }

 private:
  bool IsInside(int column, int row) const { return column >= 0 && row >= 0 && column < Width() && row < Height(); }
  std::size_t Index(int column, int row) const { return static_cast<std::size_t>(row * Width() + column); }
  void Mark(double x, double y) {
    for (const int right : {0, 1}) {
      for (const int down : {0, 1}) {
        const int column = static_cast<int>(std::lround(x)) - right;
        const int row = static_cast<int>(std::lround(y)) - down;
        if (IsInside(column, row)) white_[Index(column, row)] = true;
      }
    }
  }

  std::vector<bool> white_;
  double x_ = 0;
  double y_ = 0;
};

class MaskFill : public PainterFixture {
 protected:
  MaskFill() {
    std::array<const platform::Surface*, 6> masks{};
    masks.fill(sprites[0].get());
    painter = std::make_unique<MapPainter>(
        tables, map, MapSurfaces{final, world, raster, {sunMask, sunPic, moonMask, moonPic, masks, masks}}, host);
  }

  /// Pixels on the wrong side, leaving out a band of so many degrees around the terminator and the rows at the poles.
  int WrongPixels(double bandDeg) {
    int wrong = 0;
    for (int row = 4; row < raster.Height() - 4; ++row) {
      for (int column = 0; column < raster.Width(); ++column) {
        const double sunHeightDeg = SunHeightDeg(column, row);
        if (std::abs(sunHeightDeg) > bandDeg && raster.IsWhite(column, row) != (sunHeightDeg > 0)) ++wrong;
      }
    }
    return wrong;
  }

  RasterSurface raster{log, "Alpha", kAlphaWidth, kAlphaHeight};

 private:
  double SunHeightDeg(int column, int row) const {
    const double latDeg = 90 - (row + 0.5) * 180 / raster.Height();
    const double lonDeg = 180 - (column + 0.5) * 360 / raster.Width();
    const double sine =
        std::sin(latDeg * kDeg) * std::sin(map.work.SunLat * kDeg) +
        std::cos(latDeg * kDeg) * std::cos(map.work.SunLat * kDeg) * std::cos((lonDeg - map.work.SunLon) * kDeg);
    return std::asin(sine) / kDeg;
  }
};

TEST_F(MaskFill, TheFillStaysInsideTheDaySideAtEverySeasonAndHour) {
  for (const double sunLatDeg : {-23.44, -12.0, -5.0, 5.0, 12.0, 23.44}) {
    for (double sunLonDeg = 0.5; sunLonDeg < 360; sunLonDeg += 30) {
      SetSun(sunLatDeg, sunLonDeg);
      Paint();
      EXPECT_EQ(WrongPixels(3), 0) << sunLatDeg << " " << sunLonDeg;
    }
  }
}

TEST_F(MaskFill, WithTheSunOnTheEquatorTheFillStaysBetweenItsTwoMeridians) {
  for (double sunLonDeg = 3; sunLonDeg < 360; sunLonDeg += 30) {
    SetSun(0, sunLonDeg);
    Paint();
    EXPECT_EQ(WrongPixels(3), 0) << sunLonDeg;
  }
}

}  // namespace
}  // namespace kestrava::views2d
