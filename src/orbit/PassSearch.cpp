#include "orbit/PassSearch.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

#include "HorizonWatch.h"

namespace kestrava::orbit {
namespace {

constexpr double kSecondsPerDay = 86400.0;
constexpr double kAheadS = kSearchAheadDays * kSecondsPerDay;
constexpr double kForever = std::numeric_limits<double>::infinity();
constexpr double kRootToleranceS = 1e-4;  // of the last correction; what is left after it is its square
constexpr double kFarthestSerial = 4e6;   // beyond the years that serial dates can hold
constexpr double kPeakToleranceS = 1e-3;
constexpr double kPastCrossingS = 5e-6;  // answers lie on the new side, so that a search from an answer goes on
constexpr double kPeakScanRad = 0.25;    // the elevation has at most one peak in so short an arc

double Between(const HorizonSample& a, const HorizonSample& b) {
  return (a.elapsedS + b.elapsedS) / 2;
}

// Zero of the cubic that has the heights and rates of both samples, whose heights differ in sign.
double CubicZero(const HorizonSample& a, const HorizonSample& b) {
  const double span = b.elapsedS - a.elapsedS;
  const auto height = [&](double s) {
    const double t = 1 - s;
    return a.aboveKm * t * t * (1 + 2 * s) + b.aboveKm * s * s * (3 - 2 * s) + a.climbKmS * span * s * t * t -
           b.climbKmS * span * s * s * t;
  };
  double low = 0;
  double high = 1;
  const bool up = a.aboveKm > 0;
  for (int i = 0; i < 20; ++i) {
    const double middle = (low + high) / 2;
    ((height(middle) > 0) == up ? low : high) = middle;
  }
  return a.elapsedS + span * (low + high) / 2;
}

// The crossing between two samples, seconds; nothing if the model fails between them.
std::optional<double> CrossingBetween(const HorizonWatch& watch, HorizonSample a, HorizonSample b) {
  const bool up = a.aboveKm > 0;
  for (int i = 0; b.elapsedS - a.elapsedS > kRootToleranceS; ++i) {
    const HorizonSample middle = watch.At(i % 3 == 2 ? Between(a, b) : CubicZero(a, b));  // the halves ensure the end
    if (!middle.valid) return std::nullopt;
    const double better = middle.elapsedS - middle.aboveKm / middle.climbKmS;
    const bool within = better >= a.elapsedS && better <= b.elapsedS;
    if (within && std::abs(better - middle.elapsedS) < kRootToleranceS) return better;
    ((middle.aboveKm > 0) == up ? a : b) = middle;
  }
  return Between(a, b);
}

// What a search found: the crossing if there is one, and the last sample taken.
struct Found {
  std::optional<double> crossingS;
  HorizonSample last;  // behind the crossing, or where the search ended; the last one that the model gave
};

Found NextCrossing(const HorizonWatch& watch, HorizonSample sample, double untilS) {
  const bool up = sample.aboveKm > 0;
  while (sample.elapsedS < untilS) {
    const HorizonSample next = watch.At(sample.elapsedS + watch.SafeStepS(sample));
    if (!next.valid) break;
    if ((next.aboveKm > 0) != up) return {CrossingBetween(watch, sample, next), next};
    sample = next;
  }
  return {std::nullopt, sample};
}

bool IsMoment(double serial) {
  return std::abs(serial) < kFarthestSerial;
}

// Searches from a moment for the next crossing to one side. A satellite that is there already has to leave it first.
double NextCrossingTo(bool above, const Sgp4& satellite, const Observer& observer, double utcSerial) {
  if (!IsMoment(utcSerial)) return kNoSuchMoment;
  const HorizonWatch watch(satellite, observer, utcSerial, 1);
  HorizonSample sample = watch.At(0);
  if (!sample.valid) return kNoSuchMoment;
  if (sample.aboveKm <= 0 && watch.NeverVisible(sample)) return kNoSuchMoment;
  if ((sample.aboveKm > 0) == above) {
    const Found away = NextCrossing(watch, sample, kAheadS);
    if (!away.crossingS) return kNoSuchMoment;
    sample = away.last;
  }
  const Found found = NextCrossing(watch, sample, sample.elapsedS + kAheadS);
  if (!found.crossingS) return kNoSuchMoment;
  return utcSerial + (*found.crossingS + kPastCrossingS) / kSecondsPerDay;
}

// The elevation at a moment of a stay.
struct Height {
  HorizonSample sample;
  ElevationSine elevation;
};

Height HeightAt(const HorizonWatch& watch, double elapsedS) {
  const HorizonSample sample = watch.At(elapsedS);
  return {sample, watch.ElevationOf(sample)};
}

// The peak between two moments, at the first of which the elevation grows and at the second falls: the zero of its
// rate, by the Illinois form of the false position (Dowell and Jarratt, 1971).
Height PeakBetween(const HorizonWatch& watch, Height rising, Height falling) {
  Height peak = rising.elevation.value > falling.elevation.value ? rising : falling;
  double risingRate = rising.elevation.ratePerS;
  double fallingRate = falling.elevation.ratePerS;
  int side = 0;
  while (falling.sample.elapsedS - rising.sample.elapsedS > kPeakToleranceS) {
    const double span = falling.sample.elapsedS - rising.sample.elapsedS;
    const double part = std::clamp(risingRate / (risingRate - fallingRate), 1e-4, 1 - 1e-4);
    const Height trial = HeightAt(watch, rising.sample.elapsedS + span * part);
    if (trial.elevation.value > peak.elevation.value) peak = trial;
    const bool up = trial.elevation.ratePerS > 0;
    const double moved =
        up ? trial.sample.elapsedS - rising.sample.elapsedS : falling.sample.elapsedS - trial.sample.elapsedS;
    (up ? rising : falling) = trial;
    (up ? risingRate : fallingRate) = trial.elevation.ratePerS;
    if (side == (up ? 1 : -1)) (up ? fallingRate : risingRate) /= 2;
    side = up ? 1 : -1;
    if (moved < kPeakToleranceS) break;
  }
  return peak;
}

// The highest point of a stay above the horizon. A satellite far out may have several peaks in one stay.
Height HighestBetween(const HorizonWatch& watch, double fromS, double toS) {
  Height here = HeightAt(watch, fromS);
  Height highest = here;
  while (here.sample.elapsedS < toS) {
    const double stepS = watch.TimeToTurnS(here.sample, kPeakScanRad);
    const Height next = HeightAt(watch, std::min(toS, here.sample.elapsedS + stepS));
    const bool peaked = here.elevation.ratePerS > 0 && next.elevation.ratePerS <= 0;
    const Height candidate = peaked ? PeakBetween(watch, here, next) : next;
    if (candidate.elevation.value > highest.elevation.value) highest = candidate;
    here = next;
  }
  return highest;
}

/// Collects the passes of one satellite over one place.
class PassCollector {
 public:
  PassCollector(const Sgp4& satellite, const Observer& observer, double fromSerial, double days)
      : watch_(satellite, observer, fromSerial, 1),
        backwards_(satellite, observer, fromSerial, -1),
        fromSerial_(fromSerial),
        spanS_(days * kSecondsPerDay) {}

  std::vector<Pass> Collect() {
    HorizonSample sample = watch_.At(0);
    if (!sample.valid || (sample.aboveKm <= 0 && watch_.NeverVisible(sample))) return {};
    if (sample.aboveKm > 0) {
      const Found rise = NextCrossing(backwards_, backwards_.At(0), kAheadS);
      sample = AddStay(sample, rise.crossingS ? -*rise.crossingS : -kForever, -rise.last.elapsedS);
    }
    while (sample.valid && sample.aboveKm <= 0) {
      const Found rise = NextCrossing(watch_, sample, spanS_);
      if (!rise.crossingS || *rise.crossingS >= spanS_) break;
      sample = AddStay(rise.last, *rise.crossingS, *rise.crossingS);
    }
    return std::move(passes_);
  }

 private:
  // Follows a stay to its end. riseS is infinite where no rise was found, aboveFromS the first moment known above.
  HorizonSample AddStay(const HorizonSample& above, double riseS, double aboveFromS) {
    const Found set = NextCrossing(watch_, above, above.elapsedS + kAheadS);
    if (set.crossingS && std::isfinite(riseS)) {
      Add(riseS, *set.crossingS, kPastCrossingS);
    } else {
      AddDays(aboveFromS, set.crossingS.value_or(set.last.elapsedS));
    }
    return set.last;
  }

  void AddDays(double aboveFromS, double aboveToS) {
    const double spanEnd = fromSerial_ + spanS_ / kSecondsPerDay;
    for (double day = std::floor(fromSerial_); day + 0.25 < spanEnd; ++day) {
      const double startS = (day - fromSerial_) * kSecondsPerDay;
      const bool whollyAbove = startS >= aboveFromS && startS + kSecondsPerDay <= aboveToS;
      if (whollyAbove && startS + 0.75 * kSecondsPerDay > 0) {
        Add(startS + 0.25 * kSecondsPerDay, startS + 0.75 * kSecondsPerDay, 0);
      }
    }
  }

  void Add(double riseS, double setS, double pastS) {
    const Height highest = HighestBetween(watch_, riseS, setS);
    passes_.push_back({SerialOf(riseS + pastS), SerialOf(setS + pastS), SerialOf(highest.sample.elapsedS),
                       std::asin(std::clamp(highest.elevation.value, -1.0, 1.0))});
  }

  double SerialOf(double elapsedS) const { return fromSerial_ + elapsedS / kSecondsPerDay; }

  HorizonWatch watch_;
  HorizonWatch backwards_;
  double fromSerial_ = 0;
  double spanS_ = 0;
  std::vector<Pass> passes_;
};

}  // namespace

double NextRise(const Sgp4& satellite, const Observer& observer, double utcSerial) {
  return NextCrossingTo(true, satellite, observer, utcSerial);
}

double NextSet(const Sgp4& satellite, const Observer& observer, double utcSerial) {
  return NextCrossingTo(false, satellite, observer, utcSerial);
}

std::vector<Pass> Passes(const Sgp4& satellite, const Observer& observer, double fromSerial, double days) {
  if (!IsMoment(fromSerial)) return {};
  return PassCollector(satellite, observer, fromSerial, days).Collect();
}

}  // namespace kestrava::orbit
