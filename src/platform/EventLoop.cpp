#include "platform/EventLoop.h"

#include "platform/Doors.h"

namespace kestrava::platform {

void YieldEvents(int n) {
  for (int i = 0; i < 2 * n; ++i) YieldOnce();
}

void YieldOnce() {
  TheEventLoop().ProcessEvents();
}

}  // namespace kestrava::platform
