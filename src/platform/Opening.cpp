#include "platform/Opening.h"

#include <string>

#include "platform/Doors.h"

namespace kestrava::platform {

bool OpenOrSay(std::string_view target) {
  if (target.empty()) {
    TheMessages().Show("There is no address to open.");
    return false;
  }
  if (TheOpener().Open(target)) return true;
  TheMessages().Show("This could not be opened: " + std::string(target) +
                     "\n\nNo program of this machine opens it. The address can be typed into a browser elsewhere.");
  return false;
}

}  // namespace kestrava::platform
