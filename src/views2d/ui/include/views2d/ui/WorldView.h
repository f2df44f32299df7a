// The map window. Made by the window registry under the name WorldView: one for the world, and one more for each
// quadrant that is asked for.
#pragma once

#include <memory>

#include "platform/Windows.h"

namespace kestrava::views2d::ui {

inline constexpr const char* kWorldViewName = "WorldView";

/// A map window over the tables and the engine of the run, not yet shown; its tag is the map's mode.
/// @throws platform::Fault "Object variable not set" while there is no engine
std::unique_ptr<platform::Window> MakeWorldView();

}  // namespace kestrava::views2d::ui
