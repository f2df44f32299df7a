// A surface that draws nothing and remembers what it was told, one line for each operation:
//   StretchBlt 0 0 800 400 <- WorldNormal 0 0 1400 704 SRCCOPY
//   BitBlt 10 20 30 30 <- SunMask 0 0 SRCAND
//   SetPen FFFFFF | SetLineWidth 2 | SetDrawMode NoOperation | SetFont Arial 8 bold | Clear 000000
//   DrawPoint 1.5 2 | LineTo 3 4 | DrawCircle 5 6 2 | Print ISS | FloodFill 1 2 0000FF
//   AlphaBlend 0 0 800 400 <- Night 0 0 400 200 00800000
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Surface.h"

namespace kestrava::testing {

class RecordingSurface : public platform::Surface {
 public:
  RecordingSurface(std::string name, int width, int height) : name_(std::move(name)), width_(width), height_(height) {}

  int Width() const override { return width_; }
  int Height() const override { return height_; }
  void Clear(platform::Colour colour) override;
  void SetPen(platform::Colour colour) override;
  void SetLineWidth(int pixels) override;
  void SetDrawMode(platform::DrawMode mode) override;
  void SetFont(std::string_view name, int pointSize, bool bold) override;
  void DrawPoint(double x, double y) override;
  void LineTo(double x, double y) override;
  void DrawCircle(double x, double y, double radius) override;
  void Print(std::string_view text) override;
  void BitBlt(const platform::PixelRect& target, const platform::Surface& source, int sourceX, int sourceY,
              platform::RasterOp op) override;
  int StretchBlt(const platform::PixelRect& target, const platform::Surface& source, const platform::PixelRect& from,
                 platform::RasterOp op) override;
  void FloodFill(double x, double y, platform::Colour border) override;
  void AlphaBlend(const platform::PixelRect& target, const platform::Surface& source, const platform::PixelRect& from,
                  std::uint32_t blendFunction) override;

  const std::string& Name() const { return name_; }
  void Resize(int width, int height) { width_ = width, height_ = height; }
  const std::vector<std::string>& Operations() const { return operations_; }
  /// The operations that begin with a word, in order.
  std::vector<std::string> Operations(std::string_view beginning) const;
  void Forget() { operations_.clear(); }

  int stretchResult = 1;       // what StretchBlt answers
  bool keepOperations = true;  // off for soak runs

 private:
  void Record(std::string operation);

  std::string name_;
  int width_;
  int height_;
  std::vector<std::string> operations_;
};

}  // namespace kestrava::testing
