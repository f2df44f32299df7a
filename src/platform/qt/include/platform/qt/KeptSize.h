// A window opens in the size that the user gave it last. Asked by the base of all windows; a window whose place stands
// in the settings has no use for it.
#pragma once

class QWidget;

namespace kestrava::platform::qt {

/// Set by windows whose place stands in settings of their own.
inline constexpr const char* kPlaceInSettingsProperty = "placeInSettings";

/// Before a window is shown for the first time: the size kept for it, within the screen. Later calls do nothing.
void TakeKeptSize(QWidget& window);

/// At the window's end: keeps its size if the user has changed it.
void KeepChangedSize(const QWidget& window);

}  // namespace kestrava::platform::qt
