// The place on the ground that look angles, rises and sets refer to. Everything on this floor takes it by value or
// const reference; the engine holds the one that the windows set.
#pragma once

namespace kestrava::orbit {

/// A place on the WGS-84 ellipsoid. Nothing is checked here: an eastern longitude of 360 means 0, and a height may be
/// as large as a satellite's, because the engine is also asked what the Sun does above a point under a satellite.
struct Observer {
  double latitudeDeg = 0;       ///< geodetic, north positive, -90..90
  double longitudeEastDeg = 0;  ///< east positive, 0..360
  double heightM = 0;           ///< above the ellipsoid, metres
};

}  // namespace kestrava::orbit
