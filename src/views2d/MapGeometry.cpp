#include "views2d/MapGeometry.h"

#include "MapModes.h"

namespace kestrava::views2d {

double LonToX(double lonDeg, double widthPx, std::string_view mapMode) {
  const double pxPerDeg = widthPx / 360;
  double x = lonDeg <= 180 ? pxPerDeg * (180 - lonDeg) : pxPerDeg * (180 - (lonDeg - 180)) + widthPx * 180 / 360;
  if (const RegionalMode* mode = FindRegionalMode(mapMode)) return 2 * x - pxPerDeg * mode->westShiftDeg;
  if (mapMode == kSwappedHalves) {
    x -= pxPerDeg * 180;
    if (x < 0) x += pxPerDeg * 360;
  }
  return x;
}

double LatToY(double latDeg, double heightPx, std::string_view mapMode) {
  const double pxPerDeg = heightPx / 180;
  const double y = pxPerDeg * (180 - latDeg - 90);
  if (const RegionalMode* mode = FindRegionalMode(mapMode)) return 2 * y - pxPerDeg * mode->northShiftDeg;
  return y;
}

}  // namespace kestrava::views2d
