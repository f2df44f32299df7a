// Reading and writing single pixels of surfaces.
#pragma once

#include <QImage>

#include "platform/qt/ImageSurface.h"

namespace kestrava::platform::qt {

/// A device pixel as 0xBBGGRR.
inline Colour PixelAt(const ImageSurface& surface, int x, int y) {
  return FromRgb(surface.Image().pixel(x, y));
}

inline int CountPixels(const ImageSurface& surface, Colour colour) {
  int n = 0;
  for (int y = 0; y < surface.Image().height(); ++y) {
    for (int x = 0; x < surface.Image().width(); ++x) n += PixelAt(surface, x, y) == colour ? 1 : 0;
  }
  return n;
}

/// The rectangle around all pixels that are not of the colour.
inline QRect Marked(const ImageSurface& surface, Colour ground) {
  QRect marked;
  for (int y = 0; y < surface.Image().height(); ++y) {
    for (int x = 0; x < surface.Image().width(); ++x) {
      if (PixelAt(surface, x, y) != ground) marked |= QRect(x, y, 1, 1);
    }
  }
  return marked;
}

inline QImage Plain(int width, int height, Colour colour) {
  QImage picture(width, height, QImage::Format_RGB32);
  picture.fill(ToRgb(colour));
  return picture;
}

}  // namespace kestrava::platform::qt
