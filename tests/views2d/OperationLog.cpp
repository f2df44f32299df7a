#include "OperationLog.h"

#include <array>
#include <charconv>
#include <cmath>

#include "platform/Text.h"

namespace kestrava::views2d {

namespace {

using platform::PixelRect;

std::string Hex(std::uint32_t value) {
  std::array<char, 8> digits{};
  const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value, 16).ptr;
  const std::string text(digits.data(), static_cast<std::size_t>(end - digits.data()));
  return "#" + std::string(6 - std::min<std::size_t>(6, text.size()), '0') + text;
}

std::string RectText(const PixelRect& rect) {
  return std::to_string(rect.left) + "," + std::to_string(rect.top) + " " + std::to_string(rect.width) + "x" +
         std::to_string(rect.height);
}

const std::string& NameOf(const platform::Surface& surface) {
  return dynamic_cast<const LoggedSurface&>(surface).Name();
}

const char* OpName(platform::RasterOp op) {
  switch (op) {
    case platform::RasterOp::kSrcCopy:
      return "copy";
    case platform::RasterOp::kSrcAnd:
      return "and";
    default:
      return "paint";
  }
}

}  // namespace

std::string Coordinate(double value) {
  if (!std::isfinite(value)) return "nan";
  const long long thousandths = std::llround(value * 1000);
  const long long size = std::llabs(thousandths);
  std::string text = (thousandths < 0 ? "-" : "") + std::to_string(size / 1000);
  if (size % 1000 == 0) return text;
  std::string decimals = std::to_string(1000 + size % 1000).substr(1);
  while (decimals.back() == '0') decimals.pop_back();
  return text + "." + decimals;
}

std::string AtPoint(double x, double y) {
  return "(" + Coordinate(x) + "," + Coordinate(y) + ")";
}

std::string OperationLog::GoldenText() const {
  constexpr std::size_t kColumns = 110;
  std::string text;
  std::string line;
  std::string before;
  for (const Operation& operation : operations) {
    const bool joins = operation.arguments.front() == '(' && operation.what == before;
    if (joins && line.size() + operation.arguments.size() < kColumns) {
      line += " " + operation.arguments;
      continue;
    }
    if (!line.empty()) text += line + "\n";
    line = (joins ? "    " : operation.what + " ") + operation.arguments;
    before = operation.what;
  }
  return text + line + "\n";
}

std::vector<std::string> OperationLog::Of(std::string_view start) const {
  std::vector<std::string> found;
  for (const Operation& operation : operations) {
    if (platform::BeginsWith(operation.Text(), start)) found.push_back(operation.Text());
  }
  return found;
}

int OperationLog::IndexOf(std::string_view start, int from) const {
  for (std::size_t i = static_cast<std::size_t>(from); i < operations.size(); ++i) {
    if (platform::BeginsWith(operations[i].Text(), start)) return static_cast<int>(i);
  }
  return -1;
}

std::vector<std::string> OperationLog::Between(int from, int to) const {
  std::vector<std::string> found;
  for (int i = from; i < to; ++i) found.push_back(operations.at(static_cast<std::size_t>(i)).Text());
  return found;
}

void LoggedSurface::Add(std::string_view operation, std::string arguments) {
  fail(operation);
  log_.Add(name_ + " " + std::string(operation), std::move(arguments));
}

void LoggedSurface::Clear(platform::Colour colour) {
  Add("Clear", Hex(colour));
}
void LoggedSurface::SetPen(platform::Colour colour) {
  Add("SetPen", Hex(colour));
}
void LoggedSurface::SetLineWidth(int pixels) {
  Add("SetLineWidth", std::to_string(pixels));
}
void LoggedSurface::SetDrawMode(platform::DrawMode mode) {
  Add("SetDrawMode", mode == platform::DrawMode::kCopy ? "copy" : "no operation");
}
void LoggedSurface::SetFont(std::string_view name, int pointSize, bool bold) {
  Add("SetFont", std::string(name) + " " + std::to_string(pointSize) + (bold ? " bold" : ""));
}
void LoggedSurface::DrawPoint(double x, double y) {
  Add("DrawPoint", AtPoint(x, y));
}
void LoggedSurface::LineTo(double x, double y) {
  Add("LineTo", AtPoint(x, y));
}
void LoggedSurface::DrawCircle(double x, double y, double radius) {
  Add("DrawCircle", AtPoint(x, y) + " radius " + Coordinate(radius));
}
void LoggedSurface::Print(std::string_view text) {
  Add("Print", "\"" + std::string(text) + "\"");
}
void LoggedSurface::BitBlt(const PixelRect& target, const platform::Surface& source, int sourceX, int sourceY,
                           platform::RasterOp op) {
  Add("BitBlt", RectText(target) + " from " + NameOf(source) + " " + std::to_string(sourceX) + "," +
                    std::to_string(sourceY) + " " + OpName(op));
}
int LoggedSurface::StretchBlt(const PixelRect& target, const platform::Surface& source, const PixelRect& from,
                              platform::RasterOp op) {
  Add("StretchBlt", RectText(target) + " from " + NameOf(source) + " " + RectText(from) + " " + OpName(op));
  return stretchResult;
}
void LoggedSurface::FloodFill(double x, double y, platform::Colour border) {
  Add("FloodFill", AtPoint(x, y) + " border " + Hex(border));
}
void LoggedSurface::AlphaBlend(const PixelRect& target, const platform::Surface& source, const PixelRect& from,
                               std::uint32_t blendFunction) {
  Add("AlphaBlend", RectText(target) + " from " + NameOf(source) + " " + RectText(from) + " " + Hex(blendFunction));
}

}  // namespace kestrava::views2d
