#include "Plane.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kestrava::tools {
namespace {

double Lanczos(double x) {
  if (std::abs(x) < 1e-9) return 1;
  if (std::abs(x) >= 3) return 0;
  const double px = std::numbers::pi * x;
  return 3 * std::sin(px) * std::sin(px / 3) / (px * px);
}

struct Tap {
  int first;
  std::vector<float> weights;
};

std::vector<Tap> Taps(int from, int to) {
  const double step = static_cast<double>(from) / to;
  const double widen = std::max(1.0, step);
  std::vector<Tap> taps;
  for (int i = 0; i < to; ++i) {
    const double centre = (i + 0.5) * step - 0.5;
    Tap tap{static_cast<int>(std::ceil(centre - 3 * widen)), {}};
    double sum = 0;
    for (int k = tap.first; k <= centre + 3 * widen; ++k) {
      const double w = Lanczos((k - centre) / widen);
      tap.weights.push_back(static_cast<float>(w));
      sum += w;
    }
    for (float& w : tap.weights) w = static_cast<float>(w / sum);
    taps.push_back(std::move(tap));
  }
  return taps;
}

Plane Transposed(const Plane& plane) {
  Plane out(plane.Height(), plane.Width());
  for (int y = 0; y < plane.Height(); ++y) {
    for (int x = 0; x < plane.Width(); ++x) out.At(y, x) = plane.At(x, y);
  }
  return out;
}

Plane ResampleRows(const Plane& plane, int width, bool wrap) {
  const std::vector<Tap> taps = Taps(plane.Width(), width);
  Plane out(width, plane.Height());
  for (int y = 0; y < out.Height(); ++y) {
    for (int x = 0; x < width; ++x) {
      float sum = 0;
      for (size_t k = 0; k < taps[x].weights.size(); ++k) {
        const int source = taps[x].first + static_cast<int>(k);
        const int inside = wrap ? source : std::clamp(source, 0, plane.Width() - 1);
        sum += taps[x].weights[k] * plane.Wrapped(inside, y);
      }
      out.At(x, y) = sum;
    }
  }
  return out;
}

Plane BoxRows(const Plane& plane, int radius, bool wrap) {
  Plane out(plane.Width(), plane.Height());
  const auto value = [&](int x, int y) { return plane.Wrapped(wrap ? x : std::clamp(x, 0, plane.Width() - 1), y); };
  for (int y = 0; y < plane.Height(); ++y) {
    double sum = 0;
    for (int x = -radius; x <= radius; ++x) sum += value(x, y);
    for (int x = 0; x < plane.Width(); ++x) {
      out.At(x, y) = static_cast<float>(sum / (2 * radius + 1));
      sum += value(x + radius + 1, y) - value(x - radius, y);
    }
  }
  return out;
}

Plane Halved(const Plane& plane) {
  Plane out((plane.Width() + 1) / 2, (plane.Height() + 1) / 2);
  for (int y = 0; y < out.Height(); ++y) {
    for (int x = 0; x < out.Width(); ++x) {
      for (int k = 0; k < 4; ++k) out.At(x, y) += plane.Wrapped(2 * x + k % 2, 2 * y + k / 2) / 4;
    }
  }
  return out;
}

// Push and pull: averages of what counts are carried to ever coarser planes, holes take theirs back from there.
Plane PulledFrom(const Plane& sum, const Plane& weight) {
  Plane coarse(1, 1);
  const bool deeper = sum.Width() > 1 || sum.Height() > 1;
  if (deeper) coarse = PulledFrom(Halved(sum), Halved(weight));
  const Plane below = deeper ? Resample(coarse, sum.Width(), sum.Height()) : coarse;
  Plane out(sum.Width(), sum.Height());
  for (int y = 0; y < out.Height(); ++y) {
    for (int x = 0; x < out.Width(); ++x) {
      const float w = weight.At(x, y);
      out.At(x, y) = w > 1e-6F ? sum.At(x, y) / w : below.At(x, y);
    }
  }
  return out;
}

}  // namespace

Plane::Plane(int width, int height, float value)
    : width_(width), height_(height), values_(static_cast<size_t>(width) * height, value) {}

float Plane::Wrapped(int x, int y) const {
  return At(((x % width_) + width_) % width_, std::clamp(y, 0, height_ - 1));
}

Plane Resample(const Plane& plane, int width, int height) {
  return Transposed(ResampleRows(Transposed(ResampleRows(plane, width, true)), height, false));
}

Plane Blur(const Plane& plane, int radius) {
  Plane out = plane;
  for (int pass = 0; pass < 3; ++pass) {
    out = Transposed(BoxRows(Transposed(BoxRows(out, radius, true)), radius, false));
  }
  return out;
}

Plane FillHoles(const Plane& plane, const Plane& weight) {
  Plane sum = plane;
  for (int y = 0; y < sum.Height(); ++y) {
    for (int x = 0; x < sum.Width(); ++x) sum.At(x, y) *= weight.At(x, y);
  }
  return PulledFrom(sum, weight);
}

}  // namespace kestrava::tools
