#pragma once
// The ground of a scenery: a whole turn of the horizon in real numbers, azimuth from left to right, horizon at the
// bottom edge, zenith at the top one. Columns wrap round: 360 degrees is 0 again.
#include <QImage>
#include <QPainter>
#include <functional>
#include <utility>
#include <vector>

namespace kestrava::tools {

/// A colour as it is shown (sRGB), each part 0 to 1.
struct Rgb {
  float r = 0;
  float g = 0;
  float b = 0;
};

Rgb operator+(const Rgb& a, const Rgb& b);
Rgb operator*(const Rgb& c, float f);
Rgb Mix(const Rgb& a, const Rgb& b, float t);
Rgb FromHex(unsigned rgb);

/// 0 below `from`, 1 above `to`, without a corner in between.
float Smooth(float from, float to, float t);

/// Colours by elevation in degrees, mixed in between and rounded at the knots, so that no edge shows in the sky.
class Ramp {
 public:
  explicit Ramp(const std::vector<std::pair<float, unsigned>>& knots);
  Rgb At(float elevationDeg) const;

 private:
  std::vector<Rgb> table_;
};

class Canvas {
 public:
  Canvas(int width, int height);

  int Width() const { return width_; }
  int Height() const { return height_; }
  Rgb& At(int x, int y) { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }
  const Rgb& At(int x, int y) const { return pixels_[static_cast<std::size_t>(y) * width_ + x]; }
  float AzimuthDeg(float x) const { return 360 * x / static_cast<float>(width_); }
  float ElevationDeg(float y) const { return 90 - 90 * y / static_cast<float>(height_); }
  float ColumnOf(float azimuthDeg) const { return azimuthDeg / 360 * static_cast<float>(width_); }
  float RowOf(float elevationDeg) const { return (90 - elevationDeg) / 90 * static_cast<float>(height_); }
  float PerDegree() const { return static_cast<float>(height_) / 90; }  ///< rows

  /// Adds a soft round light; columns wrap.
  void AddLight(float x, float y, float radius, const Rgb& light);

  /// The picture in bytes: nothing lighter than the ceiling below which white and yellow text stays readable, and a
  /// fine grain, without which a dark sky shows steps.
  QImage Finished() const;

 private:
  int width_;
  int height_;
  std::vector<Rgb> pixels_;
};

/// Paints what stands on the horizon, in filled shapes without an outline, apart from the sky, and lays it over it.
/// Painting begins with the canvas's own columns and rows; what crosses an edge comes in again at the other one.
void DrawOver(Canvas& canvas, const std::function<void(QPainter&)>& draw);

}  // namespace kestrava::tools
