// What the painters of the map and of the horizon have in common: which sprite a satellite gets, and how sprites and
// texts are put on a picture.
#pragma once

#include <string_view>

#include "platform/Surface.h"

namespace kestrava::views2d {

inline constexpr int kSunSizePx = 30;
inline constexpr int kSatSizePx = 32;
inline constexpr int kSatRisePx = 20;  ///< on the horizon a sprite and its label begin so far above the place

/// Which sprite a name gets, and the rise of its label: on the map so far above the satellite, on the horizon so far to
/// its left.
struct SpriteLook {
  int sprite = 0;
  int labelRisePx = 14;
  bool operator==(const SpriteLook&) const = default;
};

/// Case counts; of several tests that a name meets the last one holds.
SpriteLook LookOnMap(std::string_view name);
/// The same, and one sprite more, which the map never shows.
SpriteLook LookOnHorizon(std::string_view name);

/// Transparent by a pair of blits: the mask punches a black hole, the picture, black around the sprite, fills it.
void PlaceSprite(platform::Surface& target, double x, double y, int sizePx, const platform::Surface& mask,
                 const platform::Surface& picture);

/// A point that marks nothing carries the text position.
void MoveTextTo(platform::Surface& target, double x, double y);

}  // namespace kestrava::views2d
