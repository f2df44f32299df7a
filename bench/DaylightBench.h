#pragma once

// The figure of the search for today's sunrise and sunset at a polar place, where it has to go on for weeks.

#include <vector>

#include "runs/BestOfRuns.h"

namespace kestrava::bench {

/// Registers the benchmark. @return what is asked of it
std::vector<Asked> RegisterDaylightBenchmarks();

}  // namespace kestrava::bench
