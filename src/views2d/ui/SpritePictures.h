// The sprites as pictures, at every scale that they are shipped in.
#pragma once

#include <array>
#include <memory>
#include <string>

#include "platform/qt/ImageSurface.h"
#include "views2d/SpriteSet.h"

namespace kestrava::views2d::ui {

class SpritePictures {
 public:
  SpritePictures();
  SpriteSet Set() const;

 private:
  using Picture = std::unique_ptr<platform::qt::ImageSurface>;

  std::array<Picture, 2> sun_;   ///< mask, image
  std::array<Picture, 2> moon_;  ///< mask, image
  std::array<Picture, kSatSprites> satMask_;
  std::array<Picture, kSatSprites> satPic_;
};

/// Reads a picture file of the user's. @throws platform::Fault "Invalid picture", or that of the reading
QImage ReadPicture(const std::string& file);

/// Loads a picture file of the user's. @throws platform::Fault "Invalid picture", or that of the reading
void LoadPicture(platform::qt::ImageSurface& surface, const std::string& file);

}  // namespace kestrava::views2d::ui
