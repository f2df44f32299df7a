// The end of a run: the launcher takes every other window with it.
#pragma once

#include <functional>
#include <memory>
#include <string_view>

#include "platform/Windows.h"

namespace kestrava::orbit {
class OrbitEngine;
}

namespace kestrava::shell {

inline constexpr std::string_view kLauncherName = "frmLAUNCHER";
inline constexpr int kClosePasses = 32000;
/// The event loop is left with this code where the run is to begin anew. No process ends with it.
inline constexpr int kStartAnewCode = -1;

/// Unloads every window but the launcher, again and again with a yield after each, until no other is loaded. Gives up
/// with a message after kClosePasses passes. No fault leaves it.
/// @return false if it gave up: the process is to end at once
bool CloseOtherWindows(platform::Windows& windows);

/// The launcher's last acts: recordings closed, what is still loaded unloaded, the engines released, first the global
/// one, then the window's own, and the recorder let go. No fault leaves it.
void ReleaseAll(platform::Windows& windows, std::unique_ptr<orbit::OrbitEngine>& ownEngine);

}  // namespace kestrava::shell
