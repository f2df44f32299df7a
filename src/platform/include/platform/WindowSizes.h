// The sizes of windows as the user left them, in a file of our own in his folder: of those windows that have no
// settings for it. A line a window, "frmCONGroups 900 600" or "frmCONGroups 900 600 maximised".
#pragma once

#include <optional>
#include <string_view>

namespace kestrava::platform {

inline constexpr std::string_view kWindowSizesFile = "windows.txt";

struct WindowSize {
  int widthPx = 0;
  int heightPx = 0;
  bool maximised = false;  ///< the window filled the screen; the numbers are those of its normal state
  bool operator==(const WindowSize&) const = default;
};

/// The size kept for a window; nothing if there is none, or its line cannot be read.
std::optional<WindowSize> KeptWindowSize(std::string_view window);

/// Keeps a size; the lines of other windows stay as they are. What cannot be written is logged.
void KeepWindowSize(std::string_view window, const WindowSize& size);

}  // namespace kestrava::platform
