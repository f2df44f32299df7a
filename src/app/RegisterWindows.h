// The one place that knows every window.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Windows.h"
#include "shell/Launcher.h"
#include "shell/ui/SystemInformationWindow.h"

namespace kestrava::app {

/// Registers all windows by name. @return their names, in the order in which a tour visits them
std::vector<std::string> RegisterWindows(platform::Windows& windows, const shell::LauncherSetup& launcher,
                                         const shell::ui::InformationSources& sources);

}  // namespace kestrava::app
