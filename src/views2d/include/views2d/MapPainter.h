// The painter of the map: rebuilds the whole picture from what the map has worked out, in a fixed order of layers, on
// every tick.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "orbit/Tables.h"
#include "platform/Surface.h"
#include "views2d/MapState.h"
#include "views2d/SpriteSet.h"

namespace kestrava::views2d {

/// The picture surfaces of a map window. All measured in logical pixels.
struct MapSurfaces {
  platform::Surface& Final;        ///< the map as the user sees it
  platform::Surface& WorldNormal;  ///< the whole-world picture; black and of its design size while none is loaded
  platform::Surface& Alpha;        ///< the day and night mask, small and never resized
  SpriteSet sprites;
};

inline constexpr int kWorldDesignWidth = 1400;
inline constexpr int kWorldDesignHeight = 704;
inline constexpr int kAlphaWidth = 566;
inline constexpr int kAlphaHeight = 370;

/// The place of the map window in twips, as it is stored; and whether it is to be stored.
struct MapWindowPlace {
  int leftTwips = 0;
  int topTwips = 0;
  int widthTwips = 0;
  int heightTwips = 0;
  bool storable = false;  ///< normal or maximised, and visible
  int innerHeightPx = 0;
};

/// What the painter asks of its window.
class PaintHost {
 public:
  virtual ~PaintHost() = default;
  /// Asked for the status line (the inner height), and at the end of a paint, after its last yield.
  virtual MapWindowPlace PlaceToStore() const = 0;
  virtual bool IsOpen() const = 0;
};

class MapPainter {
 public:
  MapPainter(const orbit::Tables& tables, const MapState& map, MapSurfaces surfaces, PaintHost& host)
      : tables_(tables), map_(map), surfaces_(surfaces), host_(host) {}

  /// Pixel position on Final for a point in the current mode.
  double LonToMapX(double lonDeg) const;
  double LatToMapY(double latDeg) const;
  /// The same against the size of Alpha.
  double LonToMaskX(double lonDeg) const;
  double LatToMaskY(double latDeg) const;

  /// Paints everything. Yields twice; if the window closes in a yield, the paint ends there. Faults are logged with
  /// "mapview RepaintMapScreen" and cost the row or layer that they stand in.
  void RepaintMapScreen();

 private:
  void PaintBaseLayer();
  void PaintHome();
  void PaintLocations();
  void PaintSun();
  void DrawMaskOutline();
  void FillMask();
  void BlendMask();
  void PaintMoon();
  void PaintTrack();
  void PaintFootprint();
  void PaintSatellites();
  void PaintSatellite(int index);
  void PaintStatusLine();
  void StorePlace();

  const orbit::Tables& tables_;
  const MapState& map_;
  MapSurfaces surfaces_;
  PaintHost& host_;
  /// What this window stored last. Two maps at different places would else undo each other's settings on every paint.
  std::optional<std::array<int, 4>> storedTwips_;
};

/// The world, or the part of it that a mode shows, over the whole of a surface.
/// @return 0 if the world is empty; the result of the whole world's blit alone is looked at
int PaintWorld(platform::Surface& final, const platform::Surface& world, std::string_view mapMode);

/// Blends a source over a destination with a constant weight. @param alpha  0 to 255
void AlphaBlendPercent(platform::Surface& dest, const platform::PixelRect& to, const platform::Surface& source,
                       const platform::PixelRect& from, std::uint8_t alpha);

}  // namespace kestrava::views2d
