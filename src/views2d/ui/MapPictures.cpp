#include "MapPictures.h"

namespace kestrava::views2d::ui {

MapPictures::MapPictures()
    : world_(kWorldDesignWidth, kWorldDesignHeight),
      alpha_(kAlphaWidth, kAlphaHeight, 1, platform::qt::ImageSurface::Kind::kMask) {
  alpha_.SetFillColour(platform::kWhite);
}

}  // namespace kestrava::views2d::ui
