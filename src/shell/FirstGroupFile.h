// What the station cannot do without: a first group whose file holds elements. A file of which nothing can be used is
// met as a missing one is.
#pragma once

#include <optional>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "shell/FatalFault.h"

namespace kestrava::shell {

struct FirstGroupCheck {
  FatalReport report;                    ///< for the fault, and for a later one about the same file
  std::optional<platform::Fault> fault;  ///< none where all is well
};

FirstGroupCheck CheckFirstGroup(const orbit::Tables& tables);

}  // namespace kestrava::shell
