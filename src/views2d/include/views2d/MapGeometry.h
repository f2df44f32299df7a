// From latitude and longitude to pixels, in the eight modes of the map.
#pragma once

#include <string_view>

namespace kestrava::views2d {

/// Pixel column for a longitude on a surface of a given width; no clipping.
/// @param lonDeg  west positive, 0..360; a negative value counts as east of Greenwich
double LonToX(double lonDeg, double widthPx, std::string_view mapMode);

/// Pixel row for a latitude on a surface of a given height; no clipping.
double LatToY(double latDeg, double heightPx, std::string_view mapMode);

}  // namespace kestrava::views2d
