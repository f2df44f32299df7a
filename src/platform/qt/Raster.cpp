#include "Raster.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace kestrava::platform::qt {
namespace {

constexpr std::uint32_t kOpaque = 0xff000000u;
constexpr std::uint32_t kRedBlue = 0x00ff00ffu;

DeviceRect Clip(DeviceRect rect, PixelView target) {
  return {std::max(rect.left, 0), std::max(rect.top, 0), std::min(rect.right, target.width),
          std::min(rect.bottom, target.height)};
}

/// Two colour channels at a time: (a * weightA + b * (255 - weightA)) / 255, rounded exactly.
std::uint32_t MixChannels(std::uint32_t a, std::uint32_t b, std::uint32_t weightA) {
  const std::uint32_t sum = a * weightA + b * (255 - weightA) + 0x00800080u;
  return ((sum + ((sum >> 8) & kRedBlue)) >> 8) & kRedBlue;
}

std::uint32_t Mix(std::uint32_t a, std::uint32_t b, std::uint32_t weightA) {
  const std::uint32_t redBlue = MixChannels(a & kRedBlue, b & kRedBlue, weightA);
  const std::uint32_t green = MixChannels((a >> 8) & 0xff, (b >> 8) & 0xff, weightA);
  return kOpaque | redBlue | (green << 8);
}

/// From a to b by weight / 256.
std::uint32_t Between(std::uint32_t a, std::uint32_t b, std::uint32_t weight) {
  if (a == b) return a;
  const std::uint32_t keep = 256 - weight;
  const std::uint32_t redBlue = (((a & kRedBlue) * keep + (b & kRedBlue) * weight) >> 8) & kRedBlue;
  const std::uint32_t green = (((a >> 8) & 0xff) * keep + ((b >> 8) & 0xff) * weight) & 0xff00;
  return kOpaque | redBlue | green;
}

std::uint32_t Over(std::uint32_t source, std::uint32_t target) {
  const std::uint32_t keep = 255 - (source >> 24);
  const std::uint32_t redBlue = MixChannels(0, target & kRedBlue, 255 - keep);
  const std::uint32_t green = MixChannels(0, (target >> 8) & 0xff, 255 - keep);
  return kOpaque | ((source & 0xffffff) + (redBlue | (green << 8)));
}

/// Narrows the parameters t0..t1 of a line to the side where p * t <= q (Liang and Barsky 1984).
bool Narrow(double p, double q, double& t0, double& t1) {
  if (p == 0) return q >= 0;
  const double t = q / p;
  if (p < 0) {
    t0 = std::max(t0, t);
  } else {
    t1 = std::min(t1, t);
  }
  return t0 <= t1;
}

}  // namespace

void FillRect(PixelView target, DeviceRect rect, std::uint32_t colour) {
  const DeviceRect r = Clip(rect, target);
  if (r.Empty()) return;
  for (int y = r.top; y < r.bottom; ++y) std::fill(target.Row(y) + r.left, target.Row(y) + r.right, colour);
}

void Blit(PixelView target, DeviceRect rect, PixelView source, int sourceX, int sourceY, PixelOp op) {
  const int shiftX = sourceX - rect.left;
  const int shiftY = sourceY - rect.top;
  DeviceRect r = Clip(rect, target);
  r.left = std::max(r.left, -shiftX);
  r.top = std::max(r.top, -shiftY);
  r.right = std::min(r.right, source.width - shiftX);
  r.bottom = std::min(r.bottom, source.height - shiftY);
  if (r.Empty()) return;
  const int n = r.right - r.left;
  for (int y = r.top; y < r.bottom; ++y) {
    std::uint32_t* to = target.Row(y) + r.left;
    const std::uint32_t* from = source.Row(y + shiftY) + r.left + shiftX;
    if (op == PixelOp::kCopy) {
      std::memmove(to, from, static_cast<std::size_t>(n) * sizeof *to);
    } else if (op == PixelOp::kAnd) {
      for (int i = 0; i < n; ++i) to[i] &= from[i] | kOpaque;
    } else {
      for (int i = 0; i < n; ++i) to[i] |= from[i];
    }
  }
}

void BlendOver(PixelView target, int x, int y, PixelView premultiplied) {
  const DeviceRect r = Clip({x, y, x + premultiplied.width, y + premultiplied.height}, target);
  if (r.Empty()) return;
  for (int row = r.top; row < r.bottom; ++row) {
    std::uint32_t* to = target.Row(row);
    const std::uint32_t* from = premultiplied.Row(row - y) - x;
    for (int i = r.left; i < r.right; ++i) {
      const std::uint32_t pixel = from[i];
      if (pixel != 0) to[i] = Over(pixel, to[i]);
    }
  }
}

void DrawSolidLine(PixelView target, double x0, double y0, double x1, double y1, int brush, std::uint32_t colour) {
  const double dx = x1 - x0;
  const double dy = y1 - y0;
  const double margin = brush + 1;
  double t0 = 0;
  double t1 = 1;
  if (!Narrow(-dx, x0 + margin, t0, t1) || !Narrow(dx, target.width + margin - x0, t0, t1) ||
      !Narrow(-dy, y0 + margin, t0, t1) || !Narrow(dy, target.height + margin - y0, t0, t1)) {
    return;
  }
  const double startX = x0 + t0 * dx;
  const double startY = y0 + t0 * dy;
  const double stepsExact = std::max(std::abs(dx), std::abs(dy)) * (t1 - t0);
  const int steps = std::max(1, static_cast<int>(std::ceil(stepsExact)));
  const double stepX = dx * (t1 - t0) / steps;
  const double stepY = dy * (t1 - t0) / steps;
  for (int i = 0; i <= steps; ++i) {
    const int left = static_cast<int>(std::lround(startX + i * stepX)) - brush / 2;
    const int top = static_cast<int>(std::lround(startY + i * stepY)) - brush / 2;
    FillRect(target, {left, top, left + brush, top + brush}, colour);
  }
}

bool RasterWorker::Open(PixelView target, int x, int y, std::uint32_t border) const {
  if (target.Row(y)[x] == border) return false;
  return !useVisited_ ||
         visited_[static_cast<std::size_t>(y) * static_cast<std::size_t>(target.width) + static_cast<std::size_t>(x)] ==
             0;
}

void RasterWorker::FillSpan(PixelView target, Span span, std::uint32_t fill) {
  std::fill(target.Row(span.y) + span.left, target.Row(span.y) + span.right, fill);
  if (!useVisited_) return;
  const auto row = visited_.begin() + static_cast<std::ptrdiff_t>(span.y) * target.width;
  std::fill(row + span.left, row + span.right, std::uint8_t{1});
}

void RasterWorker::PushNeighbours(PixelView target, Span span, int y, std::uint32_t border) {
  if (y < 0 || y >= target.height) return;
  bool inside = false;
  for (int x = span.left; x < span.right; ++x) {
    const bool open = Open(target, x, y, border);
    if (open && !inside) spans_.push_back({y, x, x});
    inside = open;
  }
}

void RasterWorker::FloodFill(PixelView target, int x, int y, std::uint32_t border, std::uint32_t fill) {
  if (!target.Holds(x, y)) return;
  // Filling with the border's own colour marks the way by itself; any other colour needs a note of where one has been.
  useVisited_ = fill != border;
  if (useVisited_) {
    visited_.assign(static_cast<std::size_t>(target.width) * static_cast<std::size_t>(target.height), 0);
  }
  spans_.clear();
  spans_.push_back({y, x, x});
  while (!spans_.empty()) {
    Span span = spans_.back();
    spans_.pop_back();
    if (!Open(target, span.left, span.y, border)) continue;
    span.right = span.left + 1;
    while (span.left > 0 && Open(target, span.left - 1, span.y, border)) --span.left;
    while (span.right < target.width && Open(target, span.right, span.y, border)) ++span.right;
    FillSpan(target, span, fill);
    PushNeighbours(target, span, span.y - 1, border);
    PushNeighbours(target, span, span.y + 1, border);
  }
}

void RasterWorker::PrepareTaps(DeviceRect rect, int clippedLeft, int clippedRight, int sourceWidth, SourceRect from) {
  taps_.clear();
  const double step = from.width / (rect.right - rect.left);
  for (int x = clippedLeft; x < clippedRight; ++x) {
    const double position = std::clamp(from.left + (x - rect.left + 0.5) * step - 0.5, 0.0, sourceWidth - 1.0);
    const int first = static_cast<int>(position);
    taps_.push_back({first, std::min(first + 1, sourceWidth - 1),
                     static_cast<std::uint32_t>(std::lround((position - first) * 256))});
  }
}

void RasterWorker::AlphaStretch(PixelView target, DeviceRect rect, PixelView source, SourceRect from,
                                std::uint32_t alpha) {
  const DeviceRect r = Clip(rect, target);
  if (r.Empty() || source.width <= 0 || source.height <= 0) return;
  PrepareTaps(rect, r.left, r.right, source.width, from);
  row_.resize(static_cast<std::size_t>(source.width));
  const int firstColumn = taps_.front().first;
  const int endColumn = taps_.back().second + 1;
  const double step = from.height / (rect.bottom - rect.top);
  for (int y = r.top; y < r.bottom; ++y) {
    const double position = std::clamp(from.top + (y - rect.top + 0.5) * step - 0.5, 0.0, source.height - 1.0);
    const int first = static_cast<int>(position);
    const auto weight = static_cast<std::uint32_t>(std::lround((position - first) * 256));
    const std::uint32_t* above = source.Row(first);
    const std::uint32_t* below = source.Row(std::min(first + 1, source.height - 1));
    for (int i = firstColumn; i < endColumn; ++i)
      row_[static_cast<std::size_t>(i)] = Between(above[i], below[i], weight);
    std::uint32_t* to = target.Row(y) + r.left;
    const std::uint32_t* row = row_.data();
    for (const Tap& tap : taps_) {
      *to = Mix(Between(row[tap.first], row[tap.second], tap.weight), *to, alpha);
      ++to;
    }
  }
}

}  // namespace kestrava::platform::qt
