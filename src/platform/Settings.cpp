#include "platform/Settings.h"

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace kestrava::platform {

std::string ReadSetting(std::string_view key, std::string_view defaultValue) {
  std::string value = TheSettings().Get(key);
  if (!Trim(value).empty()) return value;
  try {
    TheSettings().Set(key, defaultValue);
  } catch (const Fault&) {
    // A reader gets its default on a store that takes nothing, too: the painter reads on every tick.
  }
  return std::string(defaultValue);
}

void WriteSetting(std::string_view key, std::string_view value) {
  TheSettings().Set(key, value);
}

double ReadNumberSetting(std::string_view key, std::string_view defaultValue) {
  return ParseNumber(ReadSetting(key, defaultValue));
}

bool ReadSwitch(std::string_view key, std::string_view defaultValue) {
  return ReadSetting(key, defaultValue) == "1";
}

}  // namespace kestrava::platform
