// What belongs to one map window: its mode, its warp clock, its slow tick, the texts of its pane, and what it has
// worked out. Two maps never share it; the favourites and the selection they do share (orbit/Tables.h).
#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "orbit/Tables.h"
#include "platform/SerialDate.h"
#include "views2d/PaintedRows.h"

namespace kestrava::views2d {

/// The simulated local time of a map in time warp; the day never rolls into the month.
struct WarpClock {
  std::int16_t WarpSpeed = 0;  ///< seconds added per tick; 0: the system clock is used
  std::int16_t WarpHour = 0;
  std::int16_t WarpMinute = 0;
  std::int16_t WarpSecond = 0;
  std::int16_t WarpDay = 0;
  std::int16_t WarpMonth = 0;
  std::int16_t WarpYear = 0;

  platform::DateParts Parts() const { return {WarpYear, WarpMonth, WarpDay, WarpHour, WarpMinute, WarpSecond}; }
};

/// What stands in place of a number where a satellite's elements give no position.
inline constexpr const char* kNoValue = "--";

/// A selected satellite: its row of the favourites and the name that stood there.
struct Selection {
  int row = 0;
  std::string name;
  bool operator==(const Selection&) const = default;
};

/// What one map has worked out, for its own moment, and paints. The shared tables of the same names get a copy at the
/// end of each calculation, and so hold what the map that calculated last has worked out.
struct MapWork {
  decltype(orbit::Tables::GroundTrack) GroundTrack;
  decltype(orbit::Tables::FootPrint) FootPrint;
  decltype(orbit::Tables::SunCircle) SunCircle;
  decltype(orbit::Tables::SunSeeds) SunSeeds;
  double SunLat = 0, SunLon = 0, MoonLat = 0, MoonLon = 0;  ///< degrees, longitude west positive
  PaintedRows rows;
  Selection trackOf;             ///< whose track it is
  bool nothingSelected = false;  ///< track and footprint are those of a satellite that no one has selected any more
};

inline constexpr int kRemoteStatCount = 18;

struct MapState {
  std::string MapMode = "worldnormal";
  WarpClock warp;
  bool InfoPaneShown = true;
  std::int16_t SlowTick = 0;
  std::array<std::string, kRemoteStatCount> RemoteStat;  ///< the info lines; the window shows them in labels
  MapWork work;
};

/// What the map's calculations ask of their window, each call a short one.
class MapHost {
 public:
  virtual ~MapHost() = default;
  /// One info line has a new text.
  virtual void RemoteStatChanged(int index) = 0;
  /// The warp clock's time for LEDclock.
  virtual void ShowWarpTime(platform::SerialDate time) = 0;
  /// Runs the selection handler of the satellites' menu with a row of the favourites.
  virtual void SelectFavourite(int index) = 0;
  /// False once the window is closing: loops that yield end then.
  virtual bool IsOpen() const = 0;
};

}  // namespace kestrava::views2d
