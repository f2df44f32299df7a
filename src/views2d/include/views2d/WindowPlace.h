// Where the windows with a picture stand. The map stores its place; the horizon opens at the same one.
#pragma once

#include "platform/Fault.h"

namespace kestrava::views2d {

/// In twips, 1/1440 inch.
struct WindowPlace {
  int leftTwips = 200;
  int topTwips = 200;
  int widthTwips = 12195;
  int heightTwips = 7920;
};

/// The place in "WinPosX", "WinPosY", "WinPosW", "WinPosH". A setting that is no number is logged and costs only
/// itself.
WindowPlace ReadStoredPlace(const platform::FaultTrap& trap);

}  // namespace kestrava::views2d
