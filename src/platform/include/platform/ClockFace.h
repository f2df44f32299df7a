// What a clock shows of a moment. The clock door gives the fraction of the second; whoever shows the present, or works
// in whole seconds, takes the second that has begun.
#pragma once

#include "platform/SerialDate.h"

namespace kestrava::platform {

/// The whole second that has begun: 23:59:59.9 is still that second, never the next day. The parts of a serial date are
/// those of the nearest second, which would let a clock run half a second early.
/// @param moment  a reading of the clock door, from day zero on; no number stays none
SerialDate CutToSecond(SerialDate moment);

}  // namespace kestrava::platform
