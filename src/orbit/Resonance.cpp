#include "Resonance.h"

#include <cmath>
#include <cstddef>

#include "orbit/Frames.h"

#include "DeepSpace.h"
#include "Sgp4Constants.h"

namespace kestrava::orbit {
namespace {

constexpr double kStepMinutes = 720;
constexpr double kHalfStepSquared = 259200;
constexpr std::size_t kMostSteps = 8192;  // eleven years; beyond, the steps are walked anew each time

// phases of the resonant terms, radians
constexpr double kFasx2 = 0.13130908, kFasx4 = 2.8843198, kFasx6 = 0.37448087;
constexpr double kG22 = 5.7686396, kG32 = 0.95240898, kG44 = 1.8014998, kG52 = 1.0508330, kG54 = 4.4108898;

/// The eccentricity functions of the half-day resonance, fitted by cubics in pieces.
struct EccentricityFunctions {
  double g201, g211, g310, g322, g410, g422, g520, g533, g521, g532;
};

double Cubic(double c0, double c1, double c2, double c3, double e) {
  return c0 + c1 * e + c2 * (e * e) + c3 * (e * (e * e));
}

EccentricityFunctions EccentricityFunctionsOf(double e) {
  EccentricityFunctions g{};
  g.g201 = -0.306 - (e - 0.64) * 0.440;
  if (e <= 0.65) {
    g.g211 = Cubic(3.616, -13.2470, 16.2900, 0, e);
    g.g310 = Cubic(-19.302, 117.3900, -228.4190, 156.5910, e);
    g.g322 = Cubic(-18.9068, 109.7927, -214.6334, 146.5816, e);
    g.g410 = Cubic(-41.122, 242.6940, -471.0940, 313.9530, e);
    g.g422 = Cubic(-146.407, 841.8800, -1629.014, 1083.4350, e);
    g.g520 = Cubic(-532.114, 3017.977, -5740.032, 3708.2760, e);
  } else {
    g.g211 = Cubic(-72.099, 331.819, -508.738, 266.724, e);
    g.g310 = Cubic(-346.844, 1582.851, -2415.925, 1246.113, e);
    g.g322 = Cubic(-342.585, 1554.908, -2366.899, 1215.972, e);
    g.g410 = Cubic(-1052.797, 4758.686, -7193.992, 3651.957, e);
    g.g422 = Cubic(-3581.690, 16178.110, -24462.770, 12422.520, e);
    g.g520 = e > 0.715 ? Cubic(-5149.66, 29936.92, -54087.36, 31324.56, e) : Cubic(1464.74, -4664.75, 3763.64, 0, e);
  }
  if (e < 0.7) {
    g.g533 = Cubic(-919.22770, 4988.6100, -9064.7700, 5542.21, e);
    g.g521 = Cubic(-822.71072, 4568.6173, -8491.4146, 5337.524, e);
    g.g532 = Cubic(-853.66600, 4690.2500, -8624.7700, 5341.4, e);
  } else {
    g.g533 = Cubic(-37995.780, 161616.52, -229838.20, 109377.94, e);
    g.g521 = Cubic(-51752.104, 218913.95, -309468.16, 146349.42, e);
    g.g532 = Cubic(-40023.880, 170470.89, -242699.48, 115605.82, e);
  }
  return g;
}

}  // namespace

Resonance::Resonance(const MeanElements& at, const SecularRates& own, const LunisolarRates& lunisolar,
                     double siderealTime) {
  const double n = at.meanMotion;
  if (n > 0.0034906585 && n < 0.0052359877) kind_ = Kind::kOneDay;
  if (n >= 8.26e-3 && n <= 9.24e-3 && at.eccentricity >= 0.5) kind_ = Kind::kHalfDay;
  if (kind_ == Kind::kNone) return;
  const double scaledMotion = std::pow(n / sgp4::kXke, sgp4::kTwoThirds);
  perigee_ = at.perigee;
  perigeeRate_ = own.perigee;
  motionAtEpoch_ = n;
  if (kind_ == Kind::kHalfDay) {
    PrepareHalfDay(at, scaledMotion);
    longitudeAtEpoch_ = std::fmod(at.meanAnomaly + 2 * at.node - 2 * siderealTime, kTurn);
    drift_ = own.meanAnomaly + lunisolar.meanAnomaly + 2 * (own.node + lunisolar.node - sgp4::kEarthRotationRadMin) - n;
  } else {
    PrepareOneDay(at, scaledMotion);
    longitudeAtEpoch_ = std::fmod(at.meanAnomaly + at.node + at.perigee - siderealTime, kTurn);
    drift_ = own.meanAnomaly + (own.perigee + own.node) - sgp4::kEarthRotationRadMin + lunisolar.meanAnomaly +
             lunisolar.perigee + lunisolar.node - n;
  }
}

void Resonance::PrepareHalfDay(const MeanElements& at, double aonv) {
  constexpr double kRoot22 = 1.7891679e-6, kRoot32 = 3.7393792e-7, kRoot44 = 7.3636953e-9, kRoot52 = 1.1428639e-7,
                   kRoot54 = 2.1765803e-9;
  const EccentricityFunctions g = EccentricityFunctionsOf(at.eccentricity);
  const double c = std::cos(at.inclination), s = std::sin(at.inclination), cc = c * c, ss = s * s;
  const double f220 = 0.75 * (1 + 2 * c + cc);
  const double f221 = 1.5 * ss;
  const double f321 = 1.875 * s * (1 - 2 * c - 3 * cc);
  const double f322 = -1.875 * s * (1 + 2 * c - 3 * cc);
  const double f441 = 35 * ss * f220;
  const double f442 = 39.3750 * ss * ss;
  const double f522 = 9.84375 * s * (ss * (1 - 2 * c - 5 * cc) + 0.33333333 * (-2 + 4 * c + 6 * cc));
  const double f523 = s * (4.92187512 * ss * (-2 - 4 * c + 10 * cc) + 6.56250012 * (1 + 2 * c - 3 * cc));
  const double f542 = 29.53125 * s * (2 - 8 * c + cc * (-12 + 8 * c + 10 * cc));
  const double f543 = 29.53125 * s * (-2 - 8 * c + cc * (12 + 8 * c - 10 * cc));

  const double second = 3 * (at.meanMotion * at.meanMotion) * (aonv * aonv);
  const double third = second * aonv, fourth = third * aonv, fifth = fourth * aonv;
  force_ = {second * kRoot22 * f220 * g.g201,     second * kRoot22 * f221 * g.g211,
            third * kRoot32 * f321 * g.g310,      third * kRoot32 * f322 * g.g322,
            2 * fourth * kRoot44 * f441 * g.g410, 2 * fourth * kRoot44 * f442 * g.g422,
            fifth * kRoot52 * f522 * g.g520,      fifth * kRoot52 * f523 * g.g532,
            2 * fifth * kRoot54 * f542 * g.g521,  2 * fifth * kRoot54 * f543 * g.g533};
}

void Resonance::PrepareOneDay(const MeanElements& at, double aonv) {
  constexpr double kQ22 = 1.7891679e-6, kQ31 = 2.1460748e-6, kQ33 = 2.2123015e-7;
  const double ee = at.eccentricity * at.eccentricity;
  const double c = std::cos(at.inclination), s = std::sin(at.inclination);
  const double g200 = 1 + ee * (-2.5 + 0.8125 * ee);
  const double g310 = 1 + 2 * ee;
  const double g300 = 1 + ee * (-6 + 6.60937 * ee);
  const double f220 = 0.75 * (1 + c) * (1 + c);
  const double f311 = 0.9375 * s * s * (1 + 3 * c) - 0.75 * (1 + c);
  const double f330 = 1.875 * (1 + c) * (1 + c) * (1 + c);
  const double common = 3 * at.meanMotion * at.meanMotion * aonv * aonv;
  force_[0] = common * f311 * g310 * kQ31 * aonv;
  force_[1] = 2 * common * f220 * g200 * kQ22;
  force_[2] = 3 * common * f330 * g300 * kQ33 * aonv;
}

Resonance::Step Resonance::StepAt(double minutes, double longitude, double motion) const {
  Step step{longitude, motion, 0, motion + drift_, 0};
  const auto add = [&step](double amplitude, double multiple, double angle) {
    step.motionRate += amplitude * std::sin(angle);
    step.motionRate2 += multiple * amplitude * std::cos(angle);
  };
  if (kind_ == Kind::kOneDay) {
    add(force_[0], 1, longitude - kFasx2);
    add(force_[1], 2, 2 * (longitude - kFasx4));
    add(force_[2], 3, 3 * (longitude - kFasx6));
  } else {
    const double perigee = perigee_ + perigeeRate_ * minutes;
    add(force_[0], 1, 2 * perigee + longitude - kG22);
    add(force_[1], 1, longitude - kG22);
    add(force_[2], 1, perigee + longitude - kG32);
    add(force_[3], 1, -perigee + longitude - kG32);
    add(force_[4], 2, 2 * perigee + 2 * longitude - kG44);
    add(force_[5], 2, 2 * longitude - kG44);
    add(force_[6], 1, perigee + longitude - kG52);
    add(force_[7], 1, -perigee + longitude - kG52);
    add(force_[8], 2, perigee + 2 * longitude - kG54);
    add(force_[9], 2, -perigee + 2 * longitude - kG54);
  }
  step.motionRate2 *= step.longitudeRate;
  return step;
}

Resonance::Step Resonance::NextStep(const Step& step, double nextMinutes, double stepMinutes) const {
  return StepAt(nextMinutes, step.longitude + step.longitudeRate * stepMinutes + step.motionRate * kHalfStepSquared,
                step.motion + step.motionRate * stepMinutes + step.motionRate2 * kHalfStepSquared);
}

Resonance::Step Resonance::FindStep(double minutes) const {
  auto& steps = minutes < 0 ? behind_ : ahead_;
  const double stepMinutes = minutes < 0 ? -kStepMinutes : kStepMinutes;
  const auto wanted = static_cast<std::size_t>(std::abs(minutes) / kStepMinutes);
  if (steps.empty()) steps.push_back(StepAt(0, longitudeAtEpoch_, motionAtEpoch_));
  while (steps.size() <= wanted && steps.size() < kMostSteps) {
    steps.push_back(NextStep(steps.back(), static_cast<double>(steps.size()) * stepMinutes, stepMinutes));
  }
  if (wanted < steps.size()) return steps[wanted];
  Step step = steps.back();
  for (std::size_t k = steps.size(); k <= wanted; ++k) {
    step = NextStep(step, static_cast<double>(k) * stepMinutes, stepMinutes);
  }
  return step;
}

void Resonance::Apply(double minutes, double siderealTime, MeanElements& mean) const {
  constexpr double kFarthestMinutes = 1e8;  // 190 years; the model is long past its sense
  if (!(std::abs(minutes) < kFarthestMinutes)) return;
  const Step step = FindStep(minutes);
  const double rest = minutes - std::trunc(minutes / kStepMinutes) * kStepMinutes;
  const double halfSquare = rest * rest * 0.5;
  const double longitude = step.longitude + step.longitudeRate * rest + step.motionRate * halfSquare;
  mean.meanMotion = step.motion + step.motionRate * rest + step.motionRate2 * halfSquare;
  mean.meanAnomaly = kind_ == Kind::kOneDay ? longitude - mean.node - mean.perigee + siderealTime
                                            : longitude - 2 * mean.node + 2 * siderealTime;
}

}  // namespace kestrava::orbit
