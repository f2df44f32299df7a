#pragma once

// The propagator: SGP4 for near-earth sets (periods below 225 minutes) and SDP4 for the others, in the "improved" form,
// with the constants of WGS-72. The engine, the rise and set search and the pass list call it, once per moment.
//
// Source: Hoots and Roehrich, Spacetrack Report No. 3, 1980; Vallado, Crawford, Hujsak and Kelso, "Revisiting
// Spacetrack Report #3", AIAA 2006-6753, whose order of operations and error codes are kept.

#include <memory>

#include "orbit/ElementSet.h"
#include "orbit/Vec3.h"

namespace kestrava::orbit {

class DeepSpace;

/// Why the model gives no state; the numbers are the published ones.
enum class ModelError {
  kNone = 0,
  kMeanEccentricity = 1,       ///< mean eccentricity outside [-0.001, 1), or no mean motion to speak of an orbit
  kMeanMotion = 2,             ///< mean motion not above 0
  kPerturbedEccentricity = 3,  ///< eccentricity with Sun and Moon outside [0, 1]
  kSemiLatusRectum = 4,        ///< semi-latus rectum below 0
  kDecayed = 6                 ///< the orbit lies inside the Earth
};

/// What the model gives for one moment. Position and velocity stand in its own frame, TEME (true equator, mean
/// equinox). The angles are the mean elements of the moment, secular rates and drag applied, periodics not.
struct Sgp4State {
  Vec3 positionKm;                  ///< TEME
  Vec3 velocityKmS;                 ///< TEME
  double meanAnomalyRad = 0;        ///< not reduced to one turn
  double argumentOfPerigeeRad = 0;  ///< not reduced to one turn
  ModelError error = ModelError::kNone;
};

/// One element set made ready. Moves, does not copy.
class Sgp4 {
 public:
  /// @param elements  a set that the reader accepted: eccentricity below 1, mean motion above 0
  explicit Sgp4(const ElementSet& elements);
  ~Sgp4();
  Sgp4(Sgp4&&) noexcept;
  Sgp4& operator=(Sgp4&&) noexcept;

  /// State of the satellite.
  /// @param minutes  since the epoch, any sign
  /// @return the state; with an error other than kNone, position and velocity are not to be used
  /// @note a set in resonance remembers the steps of its numerical integration, so that the same moment gives the
  ///   same numbers whatever was asked before; two threads must not share one object
  Sgp4State Propagate(double minutes) const;

  /// Minutes from the epoch to a moment, without loss to the size of serial dates.
  /// @param utcSerial  serial date, UTC
  double MinutesSinceEpoch(double utcSerial) const;

  /// Number of the revolution under way: the set's own number, counted on (or back) at each northward crossing of
  /// the equator.
  /// @param minutes  since the epoch
  /// @param state  what Propagate gave for that moment
  int RevolutionNumber(double minutes, const Sgp4State& state) const;

  const SerialMoment& Epoch() const { return epoch_; }
  /// Whether the deep-space part of the model (period of 225 minutes or more) is at work.
  bool IsDeepSpace() const { return deep_ != nullptr; }
  /// Mean motion after Brouwer, radians a minute.
  double MeanMotionRadPerMin() const { return meanMotion_; }
  double Eccentricity() const { return eccentricity_; }
  double InclinationRad() const { return inclination_; }

 private:
  struct Moment;
  void PrepareSecular(double posq);
  void PrepareDrag(double perigeeEarthRadii);
  void PrepareDragPowers(double sfour, double tsi);
  void PrepareDeepSpace();
  ModelError MeanElementsAt(double minutes, Moment& at) const;
  ModelError AddDeepSpacePeriodics(double minutes, Moment& at) const;
  ModelError AddShortPeriodics(const Moment& at, Sgp4State& state) const;
  double NodeTurns(double minutes, const Sgp4State& state) const;

  // the set, in radians and radians a minute
  SerialMoment epoch_;
  double bstar_ = 0, inclination_ = 0, node_ = 0, eccentricity_ = 0, perigee_ = 0, meanAnomaly_ = 0;
  double meanMotion_ = 0;
  int revolutionNumber_ = 0;
  // what follows from it, by the names of the published model
  bool isSimple_ = false;
  double ao_ = 0, sinio_ = 0, cosio_ = 0, con41_ = 0, x1mth2_ = 0, x7thm1_ = 0;
  double mdot_ = 0, argpdot_ = 0, nodedot_ = 0, nodecf_ = 0, omgcof_ = 0, xmcof_ = 0, eta_ = 0, delmo_ = 0, sinmao_ = 0;
  double cc1_ = 0, bstarCc4_ = 0, bstarCc5_ = 0, d2_ = 0, d3_ = 0, d4_ = 0;
  double t2cof_ = 0, t3cof_ = 0, t4cof_ = 0, t5cof_ = 0, xlcof_ = 0, aycof_ = 0;
  std::unique_ptr<DeepSpace> deep_;
  double nodeTurnsAtEpoch_ = 0;
};

}  // namespace kestrava::orbit
