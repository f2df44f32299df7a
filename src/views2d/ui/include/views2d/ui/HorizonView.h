// The horizon window. Made by the window registry under the name Horizon.
#pragma once

#include <memory>

#include "platform/Windows.h"

namespace kestrava::views2d::ui {

inline constexpr const char* kHorizonName = "Horizon";

/// A horizon over the tables and the engine of the run, not yet shown.
/// @throws platform::Fault "Object variable not set" while there is no engine
std::unique_ptr<platform::Window> MakeHorizonView();

}  // namespace kestrava::views2d::ui
