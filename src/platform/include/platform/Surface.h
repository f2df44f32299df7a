// A picture surface: what the painters of the 2D views draw on, with just the operations that they use. Coordinates are
// logical pixels from the top left; anything off the surface is clipped. One implementation draws, another records.
#pragma once

#include <cstdint>
#include <string_view>

namespace kestrava::platform {

/// 0xBBGGRR, as all colours of the station.
using Colour = std::uint32_t;

inline constexpr Colour kBlack = 0x000000;
inline constexpr Colour kWhite = 0xFFFFFF;
inline constexpr Colour kGreen = 0x00FF00;
inline constexpr Colour kRed = 0x0000FF;
inline constexpr Colour kBlue = 0xFF0000;
inline constexpr Colour kOrange = 0x0080FF;
inline constexpr Colour kYellow = 0x00FFFF;

struct PixelRect {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const PixelRect&) const = default;
};

enum class RasterOp : std::uint32_t {
  kSrcCopy = 0x00CC0020,
  kSrcAnd = 0x008800C6,
  kSrcPaint = 0x00EE0086,
};

/// Whether drawing marks the picture, or only carries the current position.
enum class DrawMode { kCopy, kNoOperation };

class Surface {
 public:
  virtual ~Surface() = default;

  virtual int Width() const = 0;
  virtual int Height() const = 0;

  /// Fills with a colour.
  virtual void Clear(Colour colour) = 0;
  virtual void SetPen(Colour colour) = 0;
  virtual void SetLineWidth(int pixels) = 0;
  virtual void SetDrawMode(DrawMode mode) = 0;
  virtual void SetFont(std::string_view name, int pointSize, bool bold) = 0;

  /// A point of the pen's width; the current position moves there.
  virtual void DrawPoint(double x, double y) = 0;
  /// A line from the current position; the position moves to its end.
  virtual void LineTo(double x, double y) = 0;
  /// The outline of a circle; the current position moves to its centre.
  virtual void DrawCircle(double x, double y, double radius) = 0;
  /// Text with its top left at the current position, in the pen's colour. The position moves to the left edge, one line
  /// of the font down.
  virtual void Print(std::string_view text) = 0;

  /// Copies without scaling from the source's (sourceX, sourceY).
  virtual void BitBlt(const PixelRect& target, const Surface& source, int sourceX, int sourceY, RasterOp op) = 0;
  /// Copies with scaling. @return 1 if it was done, else 0
  virtual int StretchBlt(const PixelRect& target, const Surface& source, const PixelRect& from, RasterOp op) = 0;
  /// Fills from a seed up to the border colour with the surface's fill colour. A seed on the border or off the surface
  /// does nothing.
  virtual void FloodFill(double x, double y, Colour border) = 0;
  /// Stretches the source over the target with one constant weight.
  /// @param blendFunction  alpha (0..255) shifted left by 16 bits, other bits 0
  virtual void AlphaBlend(const PixelRect& target, const Surface& source, const PixelRect& from,
                          std::uint32_t blendFunction) = 0;
};

}  // namespace kestrava::platform
