// The windows of the pass predictions: the predictions themselves, and the wizard in which a job is made. Registered by
// name (kPassWindow, kWizardWindow) and known to each other only through predict/JobWindows.h.
#pragma once

#include <memory>

#include "platform/Windows.h"

namespace kestrava::predict::ui {

std::unique_ptr<platform::Window> MakePassPredictionWindow();
std::unique_ptr<platform::Window> MakePassWizardWindow();

}  // namespace kestrava::predict::ui
