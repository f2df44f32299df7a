#include "support/RecordingSurface.h"

#include "platform/Format.h"
#include "platform/Text.h"

namespace kestrava::testing {

using platform::PixelRect;
using platform::PointText;

namespace {

std::string Hex(std::uint32_t value, int digits) {
  std::string text(static_cast<std::size_t>(digits), '0');
  for (int i = digits - 1; i >= 0; --i, value >>= 4U)
    text[static_cast<std::size_t>(i)] = "0123456789ABCDEF"[value & 15U];
  return text;
}

std::string Place(const PixelRect& rect) {
  return std::to_string(rect.left) + " " + std::to_string(rect.top) + " " + std::to_string(rect.width) + " " +
         std::to_string(rect.height);
}

std::string Point(double x, double y) {
  return PointText(x) + " " + PointText(y);
}

std::string NameOf(const platform::Surface& source) {
  const auto* recording = dynamic_cast<const RecordingSurface*>(&source);
  return recording ? recording->Name() : "?";
}

std::string OpText(platform::RasterOp op) {
  switch (op) {
    case platform::RasterOp::kSrcCopy:
      return "SRCCOPY";
    case platform::RasterOp::kSrcAnd:
      return "SRCAND";
    case platform::RasterOp::kSrcPaint:
      return "SRCPAINT";
  }
  return "?";
}

}  // namespace

void RecordingSurface::Record(std::string operation) {
  if (keepOperations) operations_.push_back(std::move(operation));
}

std::vector<std::string> RecordingSurface::Operations(std::string_view beginning) const {
  std::vector<std::string> found;
  for (const std::string& operation : operations_) {
    if (platform::BeginsWith(operation, beginning)) found.push_back(operation);
  }
  return found;
}

void RecordingSurface::Clear(platform::Colour colour) {
  Record("Clear " + Hex(colour, 6));
}
void RecordingSurface::SetPen(platform::Colour colour) {
  Record("SetPen " + Hex(colour, 6));
}
void RecordingSurface::SetLineWidth(int pixels) {
  Record("SetLineWidth " + std::to_string(pixels));
}
void RecordingSurface::SetDrawMode(platform::DrawMode mode) {
  Record(mode == platform::DrawMode::kCopy ? "SetDrawMode Copy" : "SetDrawMode NoOperation");
}
void RecordingSurface::SetFont(std::string_view name, int pointSize, bool bold) {
  Record("SetFont " + std::string(name) + " " + std::to_string(pointSize) + (bold ? " bold" : ""));
}
void RecordingSurface::DrawPoint(double x, double y) {
  Record("DrawPoint " + Point(x, y));
}
void RecordingSurface::LineTo(double x, double y) {
  Record("LineTo " + Point(x, y));
}
void RecordingSurface::DrawCircle(double x, double y, double radius) {
  Record("DrawCircle " + Point(x, y) + " " + PointText(radius));
}
void RecordingSurface::Print(std::string_view text) {
  Record("Print " + std::string(text));
}

void RecordingSurface::BitBlt(const PixelRect& target, const platform::Surface& source, int sourceX, int sourceY,
                              platform::RasterOp op) {
  Record("BitBlt " + Place(target) + " <- " + NameOf(source) + " " + std::to_string(sourceX) + " " +
         std::to_string(sourceY) + " " + OpText(op));
}

int RecordingSurface::StretchBlt(const PixelRect& target, const platform::Surface& source, const PixelRect& from,
                                 platform::RasterOp op) {
  Record("StretchBlt " + Place(target) + " <- " + NameOf(source) + " " + Place(from) + " " + OpText(op));
  return stretchResult;
}

void RecordingSurface::FloodFill(double x, double y, platform::Colour border) {
  Record("FloodFill " + Point(x, y) + " " + Hex(border, 6));
}

void RecordingSurface::AlphaBlend(const PixelRect& target, const platform::Surface& source, const PixelRect& from,
                                  std::uint32_t blendFunction) {
  Record("AlphaBlend " + Place(target) + " <- " + NameOf(source) + " " + Place(from) + " " + Hex(blendFunction, 8));
}

}  // namespace kestrava::testing
