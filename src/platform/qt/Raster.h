// Pixel loops of the picture surface: plain functions on 32-bit pixels, without a toolkit and without allocation.
#pragma once

#include <cstdint>
#include <vector>

namespace kestrava::platform::qt {

/// A picture of 0xffRRGGBB pixels that somebody else owns.
struct PixelView {
  std::uint32_t* bits = nullptr;
  int width = 0;
  int height = 0;

  std::uint32_t* Row(int y) const { return bits + static_cast<std::ptrdiff_t>(y) * width; }
  bool Holds(int x, int y) const { return x >= 0 && y >= 0 && x < width && y < height; }
};

/// A rectangle of device pixels; right and bottom lie outside.
struct DeviceRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool Empty() const { return right <= left || bottom <= top; }
};

enum class PixelOp { kCopy, kAnd, kOr };

void FillRect(PixelView target, DeviceRect rect, std::uint32_t colour);

/// Copies, ANDs or ORs source pixels from (sourceX, sourceY) over the target rectangle; clipped at both pictures. The
/// alpha byte stays opaque.
void Blit(PixelView target, DeviceRect rect, PixelView source, int sourceX, int sourceY, PixelOp op);

/// Premultiplied source pixels over the target at (x, y).
void BlendOver(PixelView target, int x, int y, PixelView premultiplied);

/// A line drawn with a square brush, without antialiasing: gapless, so that a fill bounded by it cannot leak.
/// Ends may lie far off the picture.
void DrawSolidLine(PixelView target, double x0, double y0, double x1, double y1, int brush, std::uint32_t colour);

/// Source rectangle in source pixels, as exact positions.
struct SourceRect {
  double left = 0;
  double top = 0;
  double width = 0;
  double height = 0;
};

/// Scanline flood fill and constant-weight stretching with their working memory, which is kept between calls.
class RasterWorker {
 public:
  /// Fills the 4-connected area around (x, y) that is not of the border colour.
  void FloodFill(PixelView target, int x, int y, std::uint32_t border, std::uint32_t fill);

  /// target = (source * alpha + target * (255 - alpha)) / 255, the source stretched bilinearly. Neighbours beyond the
  /// source rectangle are read too, so that adjoining calls show no seam.
  void AlphaStretch(PixelView target, DeviceRect rect, PixelView source, SourceRect from, std::uint32_t alpha);

 private:
  struct Span {
    int y, left, right;
  };
  struct Tap {
    int first, second;
    std::uint32_t weight;  // of the second, 0..256
  };
  bool Open(PixelView target, int x, int y, std::uint32_t border) const;
  void FillSpan(PixelView target, Span span, std::uint32_t fill);
  void PushNeighbours(PixelView target, Span span, int y, std::uint32_t border);
  void PrepareTaps(DeviceRect rect, int clippedLeft, int clippedRight, int sourceWidth, SourceRect from);

  std::vector<Span> spans_;
  std::vector<std::uint8_t> visited_;
  bool useVisited_ = false;
  std::vector<Tap> taps_;
  std::vector<std::uint32_t> row_;
};

}  // namespace kestrava::platform::qt
