// The picture surface that draws: plain 32-bit pixels at the screen's scale. The map window paints on one, and keeps
// its base map, its mask and its sprites in others.
#pragma once

#include <QFont>
#include <QImage>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/Surface.h"

namespace kestrava::platform::qt {

class LabelCache;
class RasterWorker;
class StretchCache;
struct DeviceRect;
struct PixelView;

/// 0xBBGGRR as the toolkit has it, and back.
QRgb ToRgb(Colour colour);
Colour FromRgb(QRgb rgb);

class ImageSurface : public Surface {
 public:
  /// A picture is drawn smoothly and its texts carry a halo; a mask has hard edges, so that a fill keeps within them.
  enum class Kind { kPicture, kMask };

  /// A black surface. @param width,height  logical pixels @param scale  device pixels for one of them
  ImageSurface(int width, int height, double scale = 1, Kind kind = Kind::kPicture);
  /// A surface that shows a picture, one logical pixel to each of its own. A null picture gives one of 0 x 0.
  explicit ImageSurface(const QImage& picture);
  ~ImageSurface() override;
  ImageSurface(const ImageSurface&) = delete;
  ImageSurface& operator=(const ImageSurface&) = delete;

  /// A new black picture, if anything differs. Pen, font and position stay.
  void Resize(int width, int height, double scale);
  /// Replaces size and content, as the constructor from a picture does.
  void Load(const QImage& picture);
  /// A finer picture of the same content, used where the target's scale is above 1 (sprites at 200 %).
  void AddVariant(const QImage& picture, double scale);

  double Scale() const { return scale_; }
  /// The pixels, in place: copy() it to keep it beyond the next drawing. Its device pixel ratio is the scale.
  const QImage& Image() const { return image_; }
  void SetFillColour(Colour colour) { fill_ = ToRgb(colour); }
  double CurrentX() const { return x_; }
  double CurrentY() const { return y_; }
  /// Of the present font, logical pixels.
  double LineHeight() const;
  double TextWidth(std::string_view text) const;
  /// How many texts and stretched pictures had to be made anew so far; the rest came from the caches.
  int RenderCount() const;
  int StretchCount() const;

  int Width() const override { return width_; }
  int Height() const override { return height_; }
  void Clear(Colour colour) override;
  void SetPen(Colour colour) override { pen_ = ToRgb(colour); }
  void SetLineWidth(int pixels) override { lineWidth_ = pixels; }
  void SetDrawMode(DrawMode mode) override { mode_ = mode; }
  void SetFont(std::string_view name, int pointSize, bool bold) override;
  void DrawPoint(double x, double y) override;
  void LineTo(double x, double y) override;
  void DrawCircle(double x, double y, double radius) override;
  void Print(std::string_view text) override;
  /// Other kinds of surfaces than this one are no source: nothing is drawn.
  void BitBlt(const PixelRect& target, const Surface& source, int sourceX, int sourceY, RasterOp op) override;
  /// @return 0 for an empty source or target, or a source of another kind
  int StretchBlt(const PixelRect& target, const Surface& source, const PixelRect& from, RasterOp op) override;
  void FloodFill(double x, double y, Colour border) override;
  void AlphaBlend(const PixelRect& target, const Surface& source, const PixelRect& from,
                  std::uint32_t blendFunction) override;

 private:
  struct Face {
    std::string name;
    int pointSize;
    bool bold;
    double scale;
    QFont font;
    double lineHeightPx;
  };
  struct Variant {
    double scale;
    QImage picture;
  };
  struct Rescaled {
    double scale = 0;
    std::uint64_t revision = 0;
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
  };
  friend class StretchCache;

  int Device(double logical) const;
  DeviceRect ToDevice(const PixelRect& rect) const;
  PixelView View() const;
  PixelView ViewAt(double scale) const;
  void Allocate(int width, int height, double scale);
  QImage Canvas();
  bool Marks() const { return mode_ == DrawMode::kCopy; }
  void Touch() { ++revision_; }
  void PrintHere(std::string_view text);

  Kind kind_ = Kind::kPicture;
  int width_ = 0;
  int height_ = 0;
  double scale_ = 1;
  mutable std::vector<std::uint32_t> pixels_;
  QImage image_;
  std::vector<Variant> variants_;
  mutable Rescaled rescaled_;
  std::uint64_t id_;
  std::uint64_t revision_ = 0;

  QRgb pen_ = 0xffffffff;
  QRgb fill_ = 0xffffffff;
  int lineWidth_ = 1;
  DrawMode mode_ = DrawMode::kCopy;
  double x_ = 0;
  double y_ = 0;
  std::vector<Face> faces_;  // those used so far; few
  std::size_t face_ = 0;
  std::unique_ptr<LabelCache> labels_;
  std::unique_ptr<RasterWorker> worker_;
  std::unique_ptr<StretchCache> stretched_;
};

}  // namespace kestrava::platform::qt
