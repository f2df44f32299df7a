// The table of all favourites. Made by the window registry under the name Tabular.
#pragma once

#include <memory>

#include "platform/Windows.h"

namespace kestrava::views2d::ui {

inline constexpr const char* kTableViewName = "Tabular";

/// The table over the tables and the engine of the run, not yet shown.
/// @throws platform::Fault "Object variable not set" while there is no engine
std::unique_ptr<platform::Window> MakeTableView();

}  // namespace kestrava::views2d::ui
