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
    d.sine = turn * (1 - q / 6 * (1 - q / 20 * (1 - q / 42 * (1 - q / 72))));
    d.cosine = 1 - q / 2 * (1 - q / 12 * (1 - q / 30 * (1 - q / 56)));
  } else {
    d = SineCosine::Of(turn);
  }
  return {known.sine * d.cosine + known.cosine * d.sine, known.cosine * d.cosine - known.sine * d.sine};
}

}  // namespace kestrava::orbit
