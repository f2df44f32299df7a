// Surfaces that write what is drawn on them into one common list, so that the order of layers across surfaces can be
// compared as text.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Surface.h"

namespace kestrava::views2d {

/// One operation: "Final DrawPoint" and its arguments, "(12.5,33)".
struct Operation {
  std::string what;
  std::string arguments;
  std::string Text() const { return what + " " + arguments; }
};

/// A coordinate with at most three decimals, so that a golden text does not depend on the last bit.
std::string Coordinate(double value);
std::string AtPoint(double x, double y);

class OperationLog {
 public:
  void Add(std::string what, std::string arguments) { operations.push_back({std::move(what), std::move(arguments)}); }

  /// All operations; points and lines that follow one another on one surface share a line, wrapped at 110 columns.
  std::string GoldenText() const;
  /// The texts of all operations that begin so ("Final DrawPoint").
  std::vector<std::string> Of(std::string_view start) const;
  /// Where the first operation stands whose text begins so; -1 if none does.
  int IndexOf(std::string_view start, int from = 0) const;
  /// The operations from one index up to another, as texts.
  std::vector<std::string> Between(int from, int to) const;

  std::vector<Operation> operations;
};

/// A surface of a fixed size. `fail` is called with the name of each operation and may throw, as a broken one would.
class LoggedSurface : public platform::Surface {
 public:
  LoggedSurface(OperationLog& log, std::string name, int width, int height)
      : log_(log), name_(std::move(name)), width_(width), height_(height) {}

  int Width() const override { return width_; }
  int Height() const override { return height_; }
  void Resize(int width, int height) {
    width_ = width;
    height_ = height;
  }
  const std::string& Name() const { return name_; }

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

  int stretchResult = 1;
  std::function<void(std::string_view operation)> fail = [](std::string_view) {};

 private:
  void Add(std::string_view operation, std::string arguments);

  OperationLog& log_;
  std::string name_;
  int width_;
  int height_;
};

}  // namespace kestrava::views2d
