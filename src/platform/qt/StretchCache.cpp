#include "StretchCache.h"

#include <algorithm>
#include <cmath>

namespace kestrava::platform::qt {
namespace {

constexpr std::size_t kEntries = 3;  // both halves of a swapped world, and one more

PixelView ViewOf(const QImage& picture) {
  return {reinterpret_cast<std::uint32_t*>(const_cast<uchar*>(picture.constBits())), picture.width(), picture.height()};
}

}  // namespace

StretchCache::Entry& StretchCache::Slot(const ImageSurface& source, const PixelRect& from, int width, int height,
                                        bool smooth) {
  for (Entry& entry : entries_) {
    if (entry.source == source.id_ && entry.from == from && entry.width == width && entry.height == height &&
        entry.smooth == smooth) {
      return entry;
    }
  }
  if (entries_.size() < kEntries) return entries_.emplace_back();
  return *std::min_element(entries_.begin(), entries_.end(),
                           [](const Entry& a, const Entry& b) { return a.lastUse < b.lastUse; });
}

PixelView StretchCache::Get(const ImageSurface& source, const PixelRect& from, int width, int height, bool smooth) {
  Entry& entry = Slot(source, from, width, height, smooth);
  const bool stands = entry.source == source.id_ && entry.revision == source.revision_ && entry.from == from &&
                      entry.width == width && entry.height == height && entry.smooth == smooth;
  entry.lastUse = ++uses_;
  if (stands) return ViewOf(entry.picture);
  ++count_;
  const double s = source.Scale();
  QImage part = source.Image().copy(
      static_cast<int>(std::lround(from.left * s)), static_cast<int>(std::lround(from.top * s)),
      static_cast<int>(std::lround(from.width * s)), static_cast<int>(std::lround(from.height * s)));
  part.setDevicePixelRatio(1);
  entry.picture =
      part.scaled(width, height, Qt::IgnoreAspectRatio, smooth ? Qt::SmoothTransformation : Qt::FastTransformation)
          .convertToFormat(QImage::Format_RGB32);
  entry.source = source.id_;
  entry.revision = source.revision_;
  entry.from = from;
  entry.width = width;
  entry.height = height;
  entry.smooth = smooth;
  return ViewOf(entry.picture);
}

}  // namespace kestrava::platform::qt
