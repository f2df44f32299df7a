// Stretched pictures kept by source, rectangle and size: the base map is scaled when the window or the region changes,
// not on every tick.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/Surface.h"
#include "platform/qt/ImageSurface.h"

#include "Raster.h"

namespace kestrava::platform::qt {

class StretchCache {
 public:
  /// The source's rectangle at the given size in device pixels.
  PixelView Get(const ImageSurface& source, const PixelRect& from, int width, int height, bool smooth);
  int StretchCount() const { return count_; }

 private:
  struct Entry {
    std::uint64_t source = 0;
    std::uint64_t revision = 0;
    PixelRect from;
    int width = 0;
    int height = 0;
    bool smooth = false;
    std::uint64_t lastUse = 0;
    QImage picture;
  };
  Entry& Slot(const ImageSurface& source, const PixelRect& from, int width, int height, bool smooth);

  std::vector<Entry> entries_;
  std::uint64_t uses_ = 0;
  int count_ = 0;
};

}  // namespace kestrava::platform::qt
