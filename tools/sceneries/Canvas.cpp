#include "Canvas.h"

#include <algorithm>
#include <cmath>

#include "Noise.h"

namespace kestrava::tools {
namespace {

// Relative luminance that no pixel exceeds before the grain and the JPEG's own error: white keeps 6.3 to 1 on it and
// yellow 5.9 to 1, so that there is room for both.
constexpr float kCeiling = 0.115F;
constexpr int kMargin = 320;          // room for what is drawn across an edge
constexpr float kGrain = 1.5F / 255;  // as much as survives the JPEG's quantization

float Linear(float v) {
  return v <= 0.04045F ? v / 12.92F : std::pow((v + 0.055F) / 1.055F, 2.4F);
}

float Luminance(const Rgb& c) {
  return 0.2126F * Linear(c.r) + 0.7152F * Linear(c.g) + 0.0722F * Linear(c.b);
}

Rgb UnderCeiling(const Rgb& c) {
  const float luminance = Luminance(c);
  // for a given ratio of light a shown value changes by about its power of 1 / 2.4
  return luminance <= kCeiling ? c : c * std::pow(kCeiling / luminance, 1 / 2.3F);
}

// Grain of about two pixels' size in a triangular spread: finer grain would not survive the JPEG.
std::vector<float> Grain(int width, int height, std::uint32_t seed) {
  const auto raw = [=](int x, int y) {
    const auto column = static_cast<std::uint32_t>((x + width) % width);
    return Hashed(column, static_cast<std::uint32_t>(y), 1, seed) +
           Hashed(column, static_cast<std::uint32_t>(y), 2, seed) - 1;
  };
  std::vector<float> grain(static_cast<std::size_t>(width) * height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      const float sum = raw(x, y) + raw(x + 1, y) + raw(x, y + 1) + raw(x + 1, y + 1);
      grain[static_cast<std::size_t>(y) * width + x] = sum / 2 * 1.6F;
    }
  }
  return grain;
}

/// Lays a picture that is wider than the canvas by a margin on either side over it.
void LayOver(Canvas& canvas, const QImage& image) {
  const auto lay = [&](int from, int x, int y) {
    const QRgb p = reinterpret_cast<const QRgb*>(image.constScanLine(y))[from];
    if (qAlpha(p) == 0) return;
    Rgb& pixel = canvas.At(x, y);
    pixel =
        pixel * (1 - static_cast<float>(qAlpha(p)) / 255) +
        Rgb{static_cast<float>(qRed(p)), static_cast<float>(qGreen(p)), static_cast<float>(qBlue(p))} * (1 / 255.0F);
  };
  for (int y = 0; y < canvas.Height(); ++y) {
    for (int x = 0; x < canvas.Width(); ++x) {
      lay(x + kMargin, x, y);
      if (x < kMargin) lay(x + kMargin + canvas.Width(), x, y);
      if (x >= canvas.Width() - kMargin) lay(x + kMargin - canvas.Width(), x, y);
    }
  }
}

}  // namespace

Rgb operator+(const Rgb& a, const Rgb& b) {
  return {a.r + b.r, a.g + b.g, a.b + b.b};
}
Rgb operator*(const Rgb& c, float f) {
  return {c.r * f, c.g * f, c.b * f};
}
Rgb Mix(const Rgb& a, const Rgb& b, float t) {
  return a * (1 - t) + b * t;
}
Rgb FromHex(unsigned rgb) {
  return {static_cast<float>(rgb >> 16 & 255) / 255, static_cast<float>(rgb >> 8 & 255) / 255,
          static_cast<float>(rgb & 255) / 255};
}

float Smooth(float from, float to, float t) {
  const float s = std::clamp((t - from) / (to - from), 0.0F, 1.0F);
  return s * s * (3 - 2 * s);
}

Ramp::Ramp(const std::vector<std::pair<float, unsigned>>& knots) {
  constexpr int kSteps = 1800;
  const auto straight = [&](float elevation) {
    if (elevation <= knots.front().first) return FromHex(knots.front().second);
    for (std::size_t i = 1; i < knots.size(); ++i) {
      const auto& [from, low] = knots[i - 1];
      const auto& [to, high] = knots[i];
      if (elevation <= to) return Mix(FromHex(low), FromHex(high), (elevation - from) / (to - from));
    }
    return FromHex(knots.back().second);
  };
  for (int i = 0; i <= kSteps; ++i) {
    const float elevation = 90 * static_cast<float>(i) / kSteps;
    const float reach = 0.4F + elevation * 0.25F;  // the knots lie closer together low down
    Rgb sum;
    for (int k = -10; k <= 10; ++k) sum = sum + straight(elevation + reach * static_cast<float>(k) / 10) * (1 / 21.0F);
    table_.push_back(sum);
  }
}

Rgb Ramp::At(float elevationDeg) const {
  const float at = std::clamp(elevationDeg / 90, 0.0F, 1.0F) * static_cast<float>(table_.size() - 1);
  const std::size_t below = std::min(static_cast<std::size_t>(at), table_.size() - 2);
  return Mix(table_[below], table_[below + 1], at - static_cast<float>(below));
}

Canvas::Canvas(int width, int height)
    : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * height) {}

void Canvas::AddLight(float x, float y, float radius, const Rgb& light) {
  const int reach = static_cast<int>(std::ceil(radius * 3));
  const int cx = static_cast<int>(std::lround(x));
  const int cy = static_cast<int>(std::lround(y));
  for (int py = std::max(0, cy - reach); py <= std::min(height_ - 1, cy + reach); ++py) {
    for (int px = cx - reach; px <= cx + reach; ++px) {
      const float dx = static_cast<float>(px) - x;
      const float dy = static_cast<float>(py) - y;
      Rgb& pixel = At((px % width_ + width_) % width_, py);
      pixel = pixel + light * std::exp(-(dx * dx + dy * dy) / (radius * radius));
    }
  }
}

QImage Canvas::Finished() const {
  const std::vector<float> grain = Grain(width_, height_, 77);
  // The JPEG keeps colour at half the size: its grain is twice as coarse.
  const int halfWidth = (width_ + 1) / 2;
  const std::vector<float> tint = Grain(halfWidth, (height_ + 1) / 2, 78);
  QImage image(width_, height_, QImage::Format_RGB32);
  const auto byte = [](float v) { return static_cast<int>(std::lround(std::clamp(v, 0.0F, 1.0F) * 255)); };
  for (int y = 0; y < height_; ++y) {
    auto* row = reinterpret_cast<QRgb*>(image.scanLine(y));
    for (int x = 0; x < width_; ++x) {
      const Rgb c = UnderCeiling(At(x, y));
      const float g = grain[static_cast<std::size_t>(y) * width_ + x] * kGrain;
      const float t = tint[static_cast<std::size_t>(y / 2) * halfWidth + x / 2] * kGrain;
      row[x] = qRgb(byte(c.r + g - t / 2), byte(c.g + g), byte(c.b + g + 1.6F * t));
    }
  }
  return image;
}

void DrawOver(Canvas& canvas, const std::function<void(QPainter&)>& draw) {
  QImage image(canvas.Width() + 2 * kMargin, canvas.Height(), QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(kMargin, 0);
  painter.setPen(Qt::NoPen);
  draw(painter);
  painter.end();
  LayOver(canvas, image);
}

}  // namespace kestrava::tools
