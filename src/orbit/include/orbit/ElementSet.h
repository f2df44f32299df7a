#pragma once

// One two-line element set as it was published: the numbers in the units of its fields, not yet prepared for the
// model. The reader of element files (orbit/ElementReader.h) makes it; Sgp4 (orbit/Sgp4.h) is built from it. The
// elements are mean elements of SGP4 and mean nothing to any other propagator.

#include <string>

namespace kestrava::orbit {

/// A moment as a serial date (days since 1899-12-30 0h UTC) in two parts, because one double resolves only 0.6
/// microseconds, 5 mm of a low orbit.
struct SerialMoment {
  double wholeDays = 0;    ///< a whole number
  double dayFraction = 0;  ///< [0, 1)

  /// The same moment in one number, to 0.6 microseconds.
  double Serial() const { return wholeDays + dayFraction; }
};

struct ElementSet {
  std::string name;                       ///< first 15 characters of the name line, trimmed; UTF-8
  int catalogueNumber = 0;                ///< 0 to 339999; the letters of the Alpha-5 form are resolved
  SerialMoment epoch;                     ///< UTC
  double meanMotionDotRevPerDay2 = 0;     ///< half of the first derivative, as published; not used by the model
  double meanMotionDotDotRevPerDay3 = 0;  ///< a sixth of the second derivative, as published; not used by the model
  double dragTermPerEarthRadius = 0;      ///< B*
  double inclinationDeg = 0;              ///< [0, 180]
  double ascendingNodeDeg = 0;            ///< right ascension of the ascending node
  double eccentricity = 0;                ///< [0, 1)
  double argumentOfPerigeeDeg = 0;
  double meanAnomalyDeg = 0;
  double meanMotionRevPerDay = 0;  ///< above 0, after Kozai
  int elementNumber = 0;
  int revolutionNumber = 0;  ///< of the revolution under way at the epoch; counted from the ascending node
};

}  // namespace kestrava::orbit
