#pragma once
// A plane of real numbers with the few operations that map making needs: resampling, blurring, filling of holes.
// Columns wrap round (the date line is no edge), rows do not.
#include <cstddef>
#include <vector>

namespace kestrava::tools {

class Plane {
 public:
  Plane(int width, int height, float value = 0);

  int Width() const { return width_; }
  int Height() const { return height_; }
  float& At(int x, int y) { return values_[static_cast<std::size_t>(y) * width_ + x]; }
  float At(int x, int y) const { return values_[static_cast<std::size_t>(y) * width_ + x]; }
  /// The value with x wrapped and y held at the edges.
  float Wrapped(int x, int y) const;

 private:
  int width_;
  int height_;
  std::vector<float> values_;
};

/// Resampled to another size with a Lanczos kernel of three lobes (widened when the plane shrinks).
Plane Resample(const Plane& plane, int width, int height);

/// Three box passes of the given radius, close to a Gaussian of 1.0 to 1.7 times the radius.
Plane Blur(const Plane& plane, int radius);

/// Values where `weight` is 0 are filled from the surrounding ones that count, smoothly.
Plane FillHoles(const Plane& plane, const Plane& weight);

}  // namespace kestrava::tools
