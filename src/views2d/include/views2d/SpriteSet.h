// The sprites that the 2D views draw: each a mask, black where it shows and white around it, and a picture, black
// around it.
#pragma once

#include <array>

#include "platform/Surface.h"

namespace kestrava::views2d {

inline constexpr std::size_t kSatSprites = 6;

struct SpriteSet {
  const platform::Surface& SunMask;
  const platform::Surface& SunPic;
  const platform::Surface& MoonMask;
  const platform::Surface& MoonPic;
  std::array<const platform::Surface*, kSatSprites> SatMask;
  std::array<const platform::Surface*, kSatSprites> SatPic;
};

}  // namespace kestrava::views2d
