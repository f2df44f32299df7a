#pragma once

// The six mean elements of a moment, handed from one stage of the model to the next.

namespace kestrava::orbit {

struct MeanElements {
  double meanMotion = 0;  ///< radians a minute
  double eccentricity = 0;
  double inclination = 0;  ///< radians, as all below
  double perigee = 0;      ///< argument of perigee
  double node = 0;         ///< right ascension of the ascending node
  double meanAnomaly = 0;
};

}  // namespace kestrava::orbit
