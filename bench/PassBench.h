#pragma once

// The figures of the pass window: the list of a day, a job of many satellites and days, and the sort.

#include <vector>

#include "runs/BestOfRuns.h"

namespace kestrava::bench {

/// Registers the benchmarks. @return what is asked of them
std::vector<Asked> RegisterPassBenchmarks();

}  // namespace kestrava::bench
