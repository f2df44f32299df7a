#include "views2d/WindowPlace.h"

#include <string>

#include "platform/Settings.h"

namespace kestrava::views2d {

WindowPlace ReadStoredPlace(const platform::FaultTrap& trap) {
  WindowPlace place;
  const auto read = [&](std::string_view key, int& twips) {
    trap([&] { twips = platform::ToInt32(platform::ReadNumberSetting(key, std::to_string(twips))); });
  };
  read("WinPosX", place.leftTwips);
  read("WinPosY", place.topTwips);
  read("WinPosW", place.widthTwips);
  read("WinPosH", place.heightTwips);
  return place;
}

}  // namespace kestrava::views2d
