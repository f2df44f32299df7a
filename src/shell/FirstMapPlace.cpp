#include "shell/FirstMapPlace.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "platform/Doors.h"
#include "platform/Text.h"

namespace kestrava::shell {

namespace {

constexpr int kGapTwips = 150;
constexpr int kPaneTwips = 3000;         // the info pane at the map's right
constexpr int kLeastHeightTwips = 7920;  // below that the pane's box gets small
constexpr int kMenuTwips = 360;          // its menu bar
constexpr int kLeastWidthTwips = 6000;   // of a room that is worth to be kept to
constexpr std::array<std::string_view, 4> kKeys{"WinPosX", "WinPosY", "WinPosW", "WinPosH"};

}  // namespace

TwipsArea FirstMapPlace(const TwipsArea& screen, const TwipsArea& launcher, int titleTwips) {
  const int right = screen.left + screen.width - launcher.left - launcher.width;
  const int left = launcher.left - screen.left;
  int from = right >= left ? launcher.left + launcher.width : screen.left;
  int room = std::max(right, left);
  if (room < kLeastWidthTwips) {  // a very small screen
    from = screen.left;
    room = screen.width;
  }
  TwipsArea place;
  place.left = from + kGapTwips;
  place.top = screen.top + titleTwips + kGapTwips;
  place.width = room - 2 * kGapTwips;
  const int free = screen.height - titleTwips - 2 * kGapTwips;
  const int shaped = (place.width - kPaneTwips) / 2 + kMenuTwips;  // the world is twice as wide as high
  place.height = std::min(std::max(shaped, kLeastHeightTwips), free);
  return place;
}

void StoreFirstMapPlace(const TwipsArea& place) {
  const auto isThere = [](std::string_view key) { return !platform::Trim(platform::TheSettings().Get(key)).empty(); };
  if (std::any_of(kKeys.begin(), kKeys.end(), isThere)) return;
  const std::array<int, 4> values{place.left, place.top, place.width, place.height};
  for (std::size_t i = 0; i < kKeys.size(); ++i) platform::WriteSetting(kKeys[i], std::to_string(values[i]));
}

}  // namespace kestrava::shell
