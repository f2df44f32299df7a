#pragma once

// The orbit engine behind one interface: element sets of a folder, one observer, positions, rises, sets and passes.
// The system speaks to it in texts and serial dates through the members of the first block; code in the field's own
// terms uses the typed ones below, on which those are thin. Any number of instances can be made; each has its own
// observer, and what they share (the element sets of a folder, read once) never changes.
//
// A satellite is found by the first 15 characters of its name, without blanks at the ends; where no set has exactly
// that name, letters may differ in case. "sun" and "moon" are lower case.
//
// A member that fails throws platform::Fault and leaves its outputs as they were. Nothing here shows a message.

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/Frames.h"
#include "orbit/Observer.h"
#include "orbit/Sgp4.h"

namespace kestrava::orbit {

class Catalogue;
struct Pass;  // orbit/PassSearch.h

/// All that is known of an object at a moment, for one observer.
struct ObjectPlace {
  orbit::LookAngle look;
  Geodetic subPoint;            ///< of "moon" the height is the distance from the Earth's centre
  bool descending = false;      ///< the sub-point moves south
  double phaseAngleRad = 0;     ///< of "moon" only: -pi new, 0 full
  std::int32_t revolution = 0;  ///< of satellites only, as the two below
  double meanAnomalyRad = 0;    ///< [0, 2 pi)
  Vec3 positionTemeKm;
  Vec3 velocityTemeKmS;
};

class OrbitEngine {
 public:
  OrbitEngine();
  ~OrbitEngine();
  OrbitEngine(const OrbitEngine&) = delete;
  OrbitEngine& operator=(const OrbitEngine&) = delete;

  // ---- the members that the system calls, in the order of the interface; its places 1 and 16 are empty

  const std::string& DataFolder() const { return dataFolder_; }
  /// Reads the element sets of a folder: the files that its groups.dat names (each by the text behind the last "/" of
  /// its address), or, without one, every *.txt. Sets that had to be left out are named once in error.log. A folder
  /// without such files gives an empty database.
  void SetDataFolder(std::string_view folder);

  std::int32_t SatelliteCount() const;
  /// All names, each in double quotes, separated by commas.
  const std::string& SatelliteNames() const;

  /// The observer: degrees north, degrees east (360 means 0), metres. Plain stores, nothing is checked.
  double ObserverLatitude() const { return observer_.latitudeDeg; }
  void SetObserverLatitude(double degrees) { observer_.latitudeDeg = degrees; }
  double ObserverLongitude() const { return observer_.longitudeEastDeg; }
  void SetObserverLongitude(double degreesEast) { observer_.longitudeEastDeg = degreesEast; }
  double ObserverHeight() const { return observer_.heightM; }
  void SetObserverHeight(double metres) { observer_.heightM = metres; }

  /// The passes from a moment on, as a text; see PassListText in orbit/PassList.h for its form.
  /// @param days  how many days are covered; the numbers around it are fixed and not read
  /// @throws platform::Fault  no such satellite
  std::string CalcPassList(std::string_view name, double startSerial, std::int32_t one, std::int32_t days,
                           std::int32_t word1, std::int32_t word2);

  /// Position of a satellite, "sun" or "moon"; leaves what the four members without arguments answer.
  /// @param engineTime  from EngineTime
  /// @param descending  -1 while the sub-point moves south, else 0
  /// @param azimuthRad  and elevation, then longitude [0, 2 pi) and latitude of the sub-point, radians
  /// @param heightKm  over the sub-point; of "moon" the distance from the Earth's centre
  /// @param phaseRad  of "moon" -pi (new) over 0 (full) to pi, else 0
  /// @param unused  always 0
  /// @throws platform::Fault  no such object, or the model gives no position for that moment
  void CalcPosition(std::string_view name, double engineTime, std::int32_t word1, std::int32_t word2,
                    std::int16_t& descending, double& azimuthRad, double& elevationRad, double& longitudeRad,
                    double& latitudeRad, double& rangeKm, double& rangeRateKmS, double& heightKm, double& phaseRad,
                    std::int16_t& unused);

  /// Universal Time to the engine's own time, opaque to callers.
  double EngineTime(double utcSerial) const;

  /// Revolution number at the latest CalcPosition; 0 for "sun" and "moon".
  std::int32_t OrbitNumber() const { return latest_.revolution; }

  /// Next rise or set after a moment, both serial dates in Universal Time; the set of a satellite in view is the end
  /// of its pass. -1.0 where there is none within 30 days.
  /// @throws platform::Fault  no such satellite
  double NextAOSTime(std::string_view name, double utcSerial) const;
  double NextLOSTime(std::string_view name, double utcSerial) const;

  /// Revolutions with fraction at the latest CalcPosition; the fraction is the mean anomaly in turns.
  double OrbitPhase() const;

  /// Position (km) and velocity (km/s) in TEME at the latest CalcPosition.
  void StateVector(double& x, double& y, double& z, double& vx, double& vy, double& vz) const;

  // ---- the same in the field's terms; moments are serial dates, UTC; an unknown name is a Fault everywhere

  const Observer& CurrentObserver() const { return observer_; }
  void SetObserver(const Observer& observer) { observer_ = observer; }

  bool Knows(std::string_view satellite) const;
  /// The model of a satellite, alive as long as the engine keeps its folder.
  const Sgp4& Model(std::string_view satellite) const;
  /// Its number in the catalogue, which stays the same whatever it is called.
  int CatalogueNumber(std::string_view satellite) const;
  Sgp4State Propagate(std::string_view satellite, double utcSerial) const;
  /// @param object  a satellite, "sun" or "moon"; @throws platform::Fault where the model gives no position
  ObjectPlace PlaceOf(std::string_view object, double utcSerial) const;
  orbit::LookAngle LookAngle(std::string_view object, double utcSerial) const;
  double NextRise(std::string_view satellite, double utcSerial) const;
  double NextSet(std::string_view satellite, double utcSerial) const;
  std::vector<Pass> Passes(std::string_view satellite, double utcSerial, double days) const;

 private:
  ObjectPlace PlaceOfSatellite(std::string_view name, double utcSerial) const;
  const Site& CurrentSite() const;
  const EarthTurn& TurnAt(double utcSerial) const;

  std::string dataFolder_;
  std::shared_ptr<const Catalogue> catalogue_;
  Observer observer_;
  ObjectPlace latest_;
  // what the last calls worked out for the observer and the moment, asked again for the next satellite
  mutable Observer siteOf_;
  mutable Site site_;
  mutable double turnOf_ = 0;
  mutable EarthTurn turn_;
};

}  // namespace kestrava::orbit
