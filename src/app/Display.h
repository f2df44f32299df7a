// A display that the toolkit cannot use is an answer, not a crash.
#pragma once

namespace kestrava::app {

/// Stands around the making of the application object. Without a display that it can use (a DISPLAY where nobody
/// listens, a platform that is not installed) the toolkit would end the process by a signal, with half a page of advice
/// that is of no use to a user: the process ends with one line on the error stream and exit code 1 instead. What the
/// toolkit says while all goes well is said afterwards.
class DisplayCheck {
 public:
  DisplayCheck();
  ~DisplayCheck();
  DisplayCheck(const DisplayCheck&) = delete;
  DisplayCheck& operator=(const DisplayCheck&) = delete;
};

}  // namespace kestrava::app
