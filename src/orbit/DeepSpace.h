#pragma once

// What SDP4 adds for periods of 225 minutes and more: the pull of Sun and Moon, as rates and as periodic terms, and
// the resonance with the Earth's rotation. Only Sgp4 uses it. The names of the published model are kept where a
// quantity has no other. Source: see orbit/Sgp4.h; Hujsak 1979 for the deep-space theory.

#include <array>

#include "MeanElements.h"
#include "Resonance.h"

namespace kestrava::orbit {

/// Coefficients of the periodic terms of one body, and where it stands on its way.
struct BodyPeriodics {
  double e2, e3, i2, i3, l2, l3, l4, gh2, gh3, gh4, h2, h3;
  double meanAnomalyAtEpoch;  ///< radians
  double meanMotion;          ///< radians a minute
  double eccentricity;
};

/// Rates of the elements by Sun and Moon, a minute.
struct LunisolarRates {
  double eccentricity = 0, inclination = 0, meanAnomaly = 0, perigee = 0, node = 0;
};

/// The set's own secular rates, radians a minute.
struct SecularRates {
  double meanAnomaly = 0, perigee = 0, node = 0;
};

class DeepSpace {
 public:
  /// @param epochDays1950  days since 1949-12-31 0h UTC
  /// @param siderealTime  Greenwich mean sidereal time of the epoch, radians
  DeepSpace(const MeanElements& atEpoch, const SecularRates& rates, double epochDays1950, double siderealTime);

  /// Adds the rates of Sun and Moon and, in resonance, replaces mean motion and mean anomaly.
  void ApplySecular(double minutes, MeanElements& mean) const;

  /// Adds the periodic terms of Sun and Moon.
  void ApplyPeriodics(double minutes, MeanElements& mean) const;

 private:
  std::array<BodyPeriodics, 2> bodies_;
  LunisolarRates rates_;
  double siderealTimeAtEpoch_;
  Resonance resonance_;
};

}  // namespace kestrava::orbit
