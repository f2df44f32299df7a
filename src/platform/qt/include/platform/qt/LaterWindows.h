// Controls whose window this version may not have: greyed by the registry's own knowledge, and they say why. Once such
// a window is registered they work by that alone.
#pragma once

#include <QAction>
#include <QWidget>
#include <string_view>

namespace kestrava::platform::qt {

inline constexpr const char* kComesLater = "comes with a later version";

/// Enables a control or an entry if the window behind it is registered. A greyed one has kComesLater for its tool tip
/// and for assistive programs.
void EnableByWindow(QWidget& control, std::string_view window);
/// The menu shows tool tips from then on.
void EnableByWindow(QAction& entry, std::string_view window);

}  // namespace kestrava::platform::qt
