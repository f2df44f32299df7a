#pragma once

// The figures of the search for a city: reading the shipped list once, and the answer to each key typed.

#include <vector>

#include "runs/BestOfRuns.h"

namespace kestrava::bench {

/// Registers the benchmarks. @return what is asked of them
std::vector<Asked> RegisterCitiesBenchmarks();

}  // namespace kestrava::bench
