#include "platform/ClockFace.h"

#include <cmath>

namespace kestrava::platform {

SerialDate CutToSecond(SerialDate moment) {
  // A serial date of our time is good to a millionth of a second, a sum of two to a few: a whole second may stand a
  // little below itself.
  constexpr double kGrainS = 1e-4;
  const double day = std::floor(moment);
  const double second = std::floor((moment - day) * kSecondsPerDay + kGrainS);
  return day + second / kSecondsPerDay;
}

}  // namespace kestrava::platform
