// The slow part of every Sun and Moon place: the orientation of the Earth's axis and the Earth's way round the Sun.
// Both are worked out at the midnights around a moment and interpolated between them, which is 100 times cheaper than
// the series and keeps within 1e-8 radians of them.
#pragma once

#include <array>

#include "orbit/Vec3.h"

namespace kestrava::orbit {

struct SkyFrame {
  std::array<Vec3, 3> trueOfDate;  ///< rows: turn vectors of the inertial frame (GCRS) to true equator and equinox
  double siderealRad = 0;          ///< Greenwich apparent sidereal time
  double obliquityRad = 0;         ///< true obliquity of date
  Vec3 earthFromSunAu;             ///< heliocentric position of the Earth, GCRS axes, au
  Vec3 earthFromSunAuD;            ///< its rate, au a day
  Vec3 earthVelocityAuD;           ///< barycentric velocity of the Earth, GCRS axes, au a day
};

/// @param utcSerial  serial date, Universal Time. The result is a pure function of it.
/// @throws platform::Fault "Overflow" where it is no date
SkyFrame SkyFrameAt(double utcSerial);

}  // namespace kestrava::orbit
