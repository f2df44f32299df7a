// What the toolkit knows of the machine: the pages of the system information that need it.
#pragma once

#include "shell/SystemReport.h"

namespace kestrava::shell::ui {

ReportPage ProgramPage();
ReportPage SystemPage();
ReportPage GraphicsPage();

}  // namespace kestrava::shell::ui
