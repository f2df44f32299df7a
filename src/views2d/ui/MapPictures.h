// The picture surfaces that a map is painted from: the world, the mask, the sprites.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "platform/qt/ImageSurface.h"
#include "views2d/MapPainter.h"

namespace kestrava::views2d::ui {

class MapPictures {
 public:
  MapPictures();

  /// All surfaces of a painter, with the one that it paints the map on.
  MapSurfaces Surfaces(platform::Surface& final);
  platform::qt::ImageSurface& WorldNormal() { return world_; }
  /// @throws platform::Fault "Invalid picture"
  void LoadWorld(const std::string& file);

 private:
  using Surface = platform::qt::ImageSurface;

  Surface world_;
  Surface alpha_;
  std::array<std::unique_ptr<Surface>, 2> sun_;   ///< mask, image
  std::array<std::unique_ptr<Surface>, 2> moon_;  ///< mask, image
  std::array<std::unique_ptr<Surface>, 6> satMask_;
  std::array<std::unique_ptr<Surface>, 6> satPic_;
};

}  // namespace kestrava::views2d::ui
