// A horizon over logged surfaces, with the real engine and the shipped element sets: London, noon of 15 November 2026
// unless a test moves on. Design size 800 x 450: 360 degrees across, 90 up, so 20 / 9 pixels and 5 pixels for a degree.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "views2d/HorizonPainter.h"
#include "views2d/HorizonWindow.h"

#include "OperationLog.h"
#include "support/SkyHouse.h"

namespace kestrava::views2d {

inline constexpr const char* kStation = "ISS (ZARYA)";

struct ScriptedHorizonHost : HorizonHost {
  void SatelliteTaken(int index) override {
    taken.push_back(index);
    whenTaken();
  }
  bool IsOpen() const override { return open; }

  std::vector<int> taken;
  std::function<void()> whenTaken = [] {};
  bool open = true;
};

/// The surfaces of a horizon, all writing into one log.
struct HorizonSurfaceSet {
  HorizonSurfaceSet();
  HorizonSurfaces Surfaces();

  OperationLog log;
  LoggedSurface final{log, "Final", 800, 450};
  LoggedSurface backDrop{log, "BackDrop", kBackDropDesignWidth, kBackDropDesignHeight};
  LoggedSurface sunMask{log, "SunMask", 30, 30};
  LoggedSurface sunPic{log, "SunPic", 30, 30};
  LoggedSurface moonMask{log, "MoonMask", 20, 20};
  LoggedSurface moonPic{log, "MoonPic", 20, 20};
  std::vector<std::unique_ptr<LoggedSurface>> sprites;
};

class HorizonSky : public testing::SkyHouse {
 protected:
  orbit::FaveRec& Fave(int index) { return tables.FaveList[static_cast<std::size_t>(index)]; }
  void SetFavourites(const std::vector<std::string>& names);
  /// Moves the clock so many seconds past the next rise of a satellite.
  void GoPastRise(const std::string& satellite, double seconds);
  void GoPastSet(const std::string& satellite, double seconds);
  /// Moves the clock to the nearest whole second of a moment.
  void GoTo(platform::SerialDate utc);
  /// Puts the observer under a satellite.
  void StandBelow(const std::string& satellite);
  double ElevationDeg(const std::string& object);
  double AzimuthDeg(const std::string& object);
  /// Puts the observer on the equator where "sun" or "moon" stands at this elevation.
  void SeeAt(const std::string& body, double elevationDeg);
  platform::SerialDate NowUtc() { return clock.Read().utc; }
};

class HorizonPainterFixture : public HorizonSky {
 protected:
  void Paint();
  void Track(const std::string& satellite);
  /// The Print operations, without their quotes.
  std::vector<std::string> Printed() const;

  HorizonSurfaceSet set;
  OperationLog& log = set.log;
  HorizonState state;
  ScriptedHorizonHost host;
  HorizonPainter painter{sky, state, set.Surfaces(), host};
};

}  // namespace kestrava::views2d
