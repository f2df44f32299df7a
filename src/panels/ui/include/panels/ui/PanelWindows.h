// The windows of the settings panels, each made by the window registry under the name that its behaviour tells.
#pragma once

#include <memory>

#include "platform/Windows.h"

namespace kestrava::panels::ui {

std::unique_ptr<platform::Window> MakeMainSettingsWindow();
std::unique_ptr<platform::Window> MakeGroupsWindow();
std::unique_ptr<platform::Window> MakeLocationsWindow();
std::unique_ptr<platform::Window> MakeSettings2DWindow();

}  // namespace kestrava::panels::ui
