#include "platform/Version.h"

namespace kestrava::platform {

std::string ShortVersion() {
  return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + std::to_string(kVersionRevision);
}

std::string LongVersion() {
  return std::to_string(kVersionMajor) + "." + std::to_string(kVersionMinor) + "." + std::to_string(kVersionRevision);
}

}  // namespace kestrava::platform
