// Picking a place by eye: which place a pixel of a small world map stands for and back, how a mark moves over the
// globe, and how an angle reads in words, so that nobody needs to know the sign of his longitude. Called by the
// locations panel and the map beside its fields. Pixels are those of the screen, not logical ones.
#pragma once

#include <optional>
#include <string>

#include "store/Angles.h"

namespace kestrava::panels {

/// A place on the globe. Other than in the store, east is positive here.
struct GeoPoint {
  double latitudeDeg = 0;
  double longitudeEastDeg = 0;  ///< -180 to 180
  bool operator==(const GeoPoint&) const = default;
};

/// The world from 180 west to 180 east and from pole to pole, twice as wide as it is high.
struct MapArea {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  bool operator==(const MapArea&) const = default;
};

struct MapSpot {
  double x = 0;
  double y = 0;
};

/// The largest map within a widget, in its middle; empty where not even two pixels fit.
MapArea FitMap(int widthPx, int heightPx);

/// The place in the middle of a pixel. @return nothing for a pixel beside the map
std::optional<GeoPoint> PlaceAtPixel(const MapArea& area, int column, int row);

/// Where a place stands on the map.
MapSpot SpotOfPlace(const MapArea& area, const GeoPoint& place);

/// A place that many degrees further. It stops at the poles and goes on over the date line.
GeoPoint Moved(const GeoPoint& place, double northDeg, double eastDeg);

/// The place that a locations window shows: angles without a sign beside the tick boxes "North" and "West".
GeoPoint PointOf(const store::ShownAngle& latitude, const store::ShownAngle& longitude);

enum class AngleForm { kParts, kDecimals };
/// "51° 30' 00" north", to the nearest second; "51.5° south"
std::string LatitudeInWords(const store::ShownAngle& latitude, AngleForm form);
/// The same with "west" and "east". Of more than half a turn the shorter way round is told too.
std::string LongitudeInWords(const store::ShownAngle& longitude, AngleForm form);
/// "51.5° north, 0.1° west": a tenth of a degree is what a pixel of a small map can mean.
std::string PointInWords(const GeoPoint& place);

}  // namespace kestrava::panels
