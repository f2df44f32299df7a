// Where the first map of a new user opens: on a good part of the screen beside the launcher, not on top of it.
#pragma once

namespace kestrava::shell {

/// In twips, 1/1440 inch.
struct TwipsArea {
  int left = 0;
  int top = 0;
  int width = 0;
  int height = 0;
  friend bool operator==(const TwipsArea&, const TwipsArea&) = default;
};

/// The client area of the map: as wide as the larger room beside the launcher lets it be, as high as the map's shape
/// wants, as far as the screen has it.
/// @param screen  what of it is free of panels
/// @param launcher  with its frame
/// @param titleTwips  height of a window's title bar
TwipsArea FirstMapPlace(const TwipsArea& screen, const TwipsArea& launcher, int titleTwips);

/// Stores it as "WinPosX", "WinPosY", "WinPosW", "WinPosH", unless one of them is there: the defaults of those who
/// read them stay as they are.
void StoreFirstMapPlace(const TwipsArea& place);

}  // namespace kestrava::shell
