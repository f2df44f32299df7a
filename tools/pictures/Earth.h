#pragma once
// The Earth as map makers need it: coast, borders and rivers as paths, relief of the land and of the ocean floor as
// planes, all in the equirectangular frame with 180 degrees west at the left edge and the north pole on top.
#include <QImage>
#include <QPainterPath>
#include <QString>
#include <array>
#include <functional>
#include <vector>

#include "Plane.h"

namespace kestrava::tools {

struct Earth {
  int width;
  int height;
  QPainterPath land;   ///< areas; lakes are holes
  QPainterPath coast;  ///< outlines without the artificial edges along the date line and the south pole
  QPainterPath borders;
  QPainterPath rivers;
  Plane coverage;                   ///< share of land in each pixel, 0 to 1
  std::array<Plane, 3> landColour;  ///< red, green, blue of the relief, 0 to 1, carried on under the sea
  Plane seaLight;                   ///< brightness of the ocean floor relief, 0 to 1, carried on under the land
  Plane ice;                        ///< share of ice cap, 0 to 1
  Plane shelfIce;                   ///< share of floating ice round the Antarctic, 0 to 1
};

/// Calls `use` with each ring or line of a shapefile, x longitude and y latitude in degrees, east and north positive.
void ForEachRing(const QString& file, const std::function<void(const std::vector<QPointF>&)>& use);

/// Reads the Natural Earth extract in `folder` for a map of the given size; ends the program when a file is missing.
Earth LoadEarth(const QString& folder, int width, int height);

}  // namespace kestrava::tools
