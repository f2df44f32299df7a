#pragma once

// The searches in the plainest form, over the plain model: the elevation every ten seconds, and bisection to a
// millisecond where its sign changes. Short passes between two steps are missed, which the real searches may not do.

#include <benchmark/benchmark.h>

namespace kestrava::bench {

/// The same satellites, place and moments as NextRiseOf500NearEarth.
void NextRiseOf500Yardstick(benchmark::State& state);
/// The same satellite, place and moment as PassListOfThreeDays; passes are counted, no text is made.
void PassListYardstick(benchmark::State& state);

}  // namespace kestrava::bench
