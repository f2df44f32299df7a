// The map's calculations over the real engine with a few element sets of 14 November 2026, in a scripted house whose
// clock stands at noon UTC of the next day. The observer can be put where a satellite has a wanted elevation.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "station/Devices.h"
#include "views2d/SatellitePlot.h"

#include "support/House.h"

namespace kestrava::views2d {

inline constexpr const char* kIss = "ISS (ZARYA)";
inline constexpr const char* kNoaa = "NOAA 15";
inline constexpr const char* kMeteor = "METEOR-M 2";
inline constexpr const char* kOscar = "OSCAR 7 (AO-7)";

struct ScriptedMapHost : MapHost {
  void RemoteStatChanged(int index) override {
    changedLines.push_back(index);
    onChange(index);
  }
  void ShowWarpTime(platform::SerialDate time) override { warpTimes.push_back(time); }
  void SelectFavourite(int index) override { selected.push_back(index); }
  bool IsOpen() const override { return open; }

  std::vector<int> changedLines;
  std::vector<platform::SerialDate> warpTimes;
  std::vector<int> selected;
  std::function<void(int)> onChange = [](int) {};
  bool open = true;
};

/// Remembers its calls: "show", "start NAME", "stop". As the real one it keeps the name and clears the flag.
class ScriptedRecorder : public station::Recorder {
 public:
  explicit ScriptedRecorder(orbit::Tables& tables) : tables_(tables) { station::UseRecorder(this); }
  ~ScriptedRecorder() override { station::UseRecorder(nullptr); }
  void Show() override { calls.emplace_back("show"); }
  void Start(std::string_view name) override {
    calls.push_back("start " + std::string(name));
    tables_.RecordSatName = name;
  }
  void Stop() override {
    calls.emplace_back("stop");
    tables_.RecordActive = 0;
  }

  std::vector<std::string> calls;

 private:
  orbit::Tables& tables_;
};

class PlotFixture : public testing::House {
 protected:
  PlotFixture();

  void SetFavourites(const std::vector<std::string>& names);
  orbit::FaveRec& Fave(int index) { return tables.FaveList[static_cast<std::size_t>(index)]; }
  /// Puts the observer away from the satellite's present sub-point so that it stands at this elevation.
  void SeeAt(const std::string& satellite, double elevationDeg);
  /// The same at the next moment at which another satellite is well below the horizon there.
  void SeeWithout(const std::string& other, const std::string& satellite, double elevationDeg);
  double ElevationDeg(const std::string& satellite) const;
  void Tick() { Gsatroutine(sky, map, host); }
  void StartWarp(const platform::DateParts& local, int speed);
  platform::SerialDate NowUtc() { return clock.Read().utc; }
  const std::string& Line(int index) const { return map.RemoteStat[static_cast<std::size_t>(index)]; }

  orbit::Tables tables;
  orbit::OrbitEngine engine;
  orbit::Sky sky{tables, engine};
  MapState map;
  ScriptedMapHost host;
};

/// Degrees between two points on a sphere, longitudes west positive.
double DegreesApart(double latDegA, double lonDegA, double latDegB, double lonDegB);

}  // namespace kestrava::views2d
