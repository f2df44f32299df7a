// The tables that the whole system shares, in one copyable struct of plain records. The mandated names at the end are
// references into its single instance; logic takes the tables as a parameter, and a test makes its own.
#pragma once

#include <array>
#include <cstdint>
#include <string>

namespace kestrava::orbit {

/// Row of the favourites. Only the name is stored in faves.dat; row 1 is the primary favourite,
/// row 0 is none of them.
struct FaveRec {
  std::string Name;   ///< at most 15 characters when it comes from a file; empty: a free row
  double Lat = 0;     ///< latest sub-point, degrees, north positive
  double Lon = 0;     ///< degrees, west positive
  double Height = 0;  ///< km, written by the 3D view only
  double Az = 0;      ///< degrees
  double El = 0;      ///< degrees
  /// The latest calculation for this row gave nothing: the numbers above are leftovers of another one. Whoever writes
  /// them writes this; what shows or says a row asks it first.
  bool hasNoPosition = false;
};

/// Row of the groups. Row 0 stays empty.
struct GroupRec {
  std::string Name;
  std::string Address;  ///< host, path and file name without a scheme; for a manual group the plain file name
  std::string Manual;   ///< "0" updated via the internet, "1" kept by hand
};

/// Row of the locations, ended by an empty name. Row 0 stays empty. Numbers are text in the machine's locale.
struct LocationRec {
  std::string Name;
  std::string Latitude;   ///< degrees, north positive
  std::string Longitude;  ///< degrees, west positive, 0..360
  std::int16_t HASL = 0;  ///< metres above sea level
  std::string OnMap;      ///< "1": drawn on the world map
};

/// Row of the ground track: where the satellite is i * 30 seconds after the start, and the colour of its dot.
struct TrackRec {
  double lat = 0;  ///< degrees, north positive
  double lon = 0;  ///< degrees, west positive
  std::uint32_t colour = 0;
  bool hasNoPosition = false;  ///< nothing is known of that moment: no dot
};

/// A point of a circle on the ground.
struct PointRec {
  double lat = 0;  ///< degrees, north positive
  double lon = 0;  ///< degrees, west positive
};

inline constexpr int kFaveRows = 500;
inline constexpr int kGroupRows = 40;
inline constexpr int kLocationRows = 100;
inline constexpr int kTrackRows = 2880;

/// What the latest Satcalc left. There is one block and no history: callers copy what they need straight away.
struct ResultBlock {
  double SatLat = 0;                    ///< degrees, north positive
  double SatLon = 0;                    ///< degrees, west positive, 360 minus east: 0 east is 360
  double SatAz = 0;                     ///< degrees
  double SatEl = 0;                     ///< degrees
  double SatRange = 0;                  ///< km
  double SatRangeRate = 0;              ///< km/s, positive when receding
  double SatHeight = 0;                 ///< km; for "moon" its distance
  double SatPhase = 0;                  ///< radians, for "moon" only
  std::int16_t SatDescending = 0;       ///< -1 true, 0 false
  std::int16_t SatSunlit = 0;           ///< written by the extended block only
  std::int16_t SatVisible = 0;          ///< the same
  double SatPhaseMA = 0;                ///< orbit phase, 0..255, two decimals
  std::string SatAOS;                   ///< next rise "hh:mm:ss", local
  std::string SatLOS;                   ///< next set "hh:mm:ss", local
  std::string SatOrbit;                 ///< orbit number
  std::string SatMA;                    ///< orbit phase in degrees, "0.00"
  double SatX = 0, SatY = 0, SatZ = 0;  ///< first three numbers of the state vector
};

struct Tables {
  std::array<FaveRec, kFaveRows + 1> FaveList;
  std::int16_t FaveCount = 0;
  std::array<GroupRec, kGroupRows + 1> GroupList;
  std::int16_t GroupCount = 0;
  std::array<LocationRec, kLocationRows + 1> LocationList;
  std::string LocationName;  ///< name of the primary location

  std::int16_t SelSat = 0;  ///< the selected satellite as a row of FaveList
  std::string SelSatName;   ///< and as text: follows whichever window set it last
  ResultBlock result;

  std::array<TrackRec, kTrackRows + 1> GroundTrack;
  std::array<PointRec, 362> FootPrint;  ///< even rows are computed, each odd row copies the even one below it
  std::array<PointRec, 361> SunCircle;  ///< the terminator
  std::array<PointRec, 17> SunSeeds;    ///< points well inside the sunlit side; 0 to 15 are used
  double SunLat = 0, SunLon = 0, MoonLat = 0, MoonLon = 0;  ///< degrees, longitude west positive

  std::int16_t RecordActive = 0;  ///< a recording runs
  std::string RecordSatName;      ///< and of whom
  std::int16_t SpeechOn = 0;      ///< written by the map's menu, read nowhere
};

/// The tables of the run.
Tables& TheTables();

// The names by which the system knows them.
inline std::array<FaveRec, kFaveRows + 1>& FaveList = TheTables().FaveList;
inline std::array<GroupRec, kGroupRows + 1>& GroupList = TheTables().GroupList;
inline std::array<LocationRec, kLocationRows + 1>& LocationList = TheTables().LocationList;
inline std::array<TrackRec, kTrackRows + 1>& GroundTrack = TheTables().GroundTrack;
inline std::array<PointRec, 362>& FootPrint = TheTables().FootPrint;
inline std::array<PointRec, 361>& SunCircle = TheTables().SunCircle;
inline std::array<PointRec, 17>& SunSeeds = TheTables().SunSeeds;
inline std::int16_t& FaveCount = TheTables().FaveCount;
inline std::int16_t& GroupCount = TheTables().GroupCount;
inline std::int16_t& SelSat = TheTables().SelSat;
inline std::string& SelSatName = TheTables().SelSatName;
inline std::int16_t& RecordActive = TheTables().RecordActive;
inline std::string& RecordSatName = TheTables().RecordSatName;

}  // namespace kestrava::orbit
