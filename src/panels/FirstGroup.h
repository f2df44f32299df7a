// What the station cannot do without: a first group whose element file is in the data folder. The launcher looks for
// that file at each activation and ends the run where it is missing, at the next start too. So the groups panel tells
// of it while the user can still mend it by a few clicks.
#pragma once

#include <string>

#include "orbit/Tables.h"

namespace kestrava::panels {

/// The question to a user who closes the panel: what is missing, what will happen, what helps, and whether he stays to
/// do that. @return empty where nothing is missing
std::string FirstGroupTrouble(const orbit::Tables& tables);

}  // namespace kestrava::panels
