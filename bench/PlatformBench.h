#pragma once

// The figures of the platform floor: the settings store and the texts of numbers.

#include <vector>

#include "runs/BestOfRuns.h"

namespace kestrava::bench {

/// Registers the benchmarks. @return what is asked of them
std::vector<Asked> RegisterPlatformBenchmarks();

}  // namespace kestrava::bench
