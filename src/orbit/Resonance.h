#pragma once

// Orbits whose period is near one day or, eccentric, half a day meet the same bulges of the Earth again and again.
// Their mean motion and mean longitude are integrated in steps of half a day (Euler-Maclaurin), as published. The steps
// are kept, so that a moment costs no trigonometry and gives the same numbers whatever was asked before.

#include <array>
#include <vector>

#include "MeanElements.h"

namespace kestrava::orbit {

struct LunisolarRates;
struct SecularRates;

class Resonance {
 public:
  Resonance() = default;
  Resonance(const MeanElements& atEpoch, const SecularRates& own, const LunisolarRates& lunisolar, double siderealTime);

  bool Exists() const { return kind_ != Kind::kNone; }

  /// Replaces mean motion and mean anomaly by the integrated ones.
  /// @param mean  node and perigee of the moment already in it
  /// @param siderealTime  of the moment, as the deep-space model counts it
  void Apply(double minutes, double siderealTime, MeanElements& mean) const;

 private:
  enum class Kind { kNone, kOneDay, kHalfDay };
  /// State and derivatives of the integrator at a multiple of half a day.
  struct Step {
    double longitude, motion, motionRate, longitudeRate, motionRate2;
  };

  void PrepareHalfDay(const MeanElements& at, double scaledMotion);
  void PrepareOneDay(const MeanElements& at, double scaledMotion);
  Step StepAt(double minutes, double longitude, double motion) const;
  Step NextStep(const Step& step, double nextMinutes, double stepMinutes) const;
  Step FindStep(double minutes) const;

  Kind kind_ = Kind::kNone;
  std::array<double, 10> force_{};  ///< amplitudes of the terms; three of them for one day
  double longitudeAtEpoch_ = 0, motionAtEpoch_ = 0, drift_ = 0;
  double perigee_ = 0, perigeeRate_ = 0;
  mutable std::vector<Step> ahead_, behind_;  ///< the steps taken so far, in both directions of time
};

}  // namespace kestrava::orbit
