// The picture surfaces that a map is painted from: the world, the mask, the sprites.
#pragma once

#include <string>

#include "platform/qt/ImageSurface.h"
#include "views2d/MapPainter.h"

#include "SpritePictures.h"

namespace kestrava::views2d::ui {

class MapPictures {
 public:
  MapPictures();

  /// All surfaces of a painter, with the one that it paints the map on.
  MapSurfaces Surfaces(platform::Surface& final) { return {final, world_, alpha_, sprites_.Set()}; }
  platform::qt::ImageSurface& WorldNormal() { return world_; }
  /// @throws platform::Fault "Invalid picture"
  void LoadWorld(const std::string& file) { LoadPicture(world_, file); }

 private:
  platform::qt::ImageSurface world_;
  platform::qt::ImageSurface alpha_;
  SpritePictures sprites_;
};

}  // namespace kestrava::views2d::ui
