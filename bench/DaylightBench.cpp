#include "DaylightBench.h"

#include <benchmark/benchmark.h>

#include "orbit/Satcalc.h"
#include "orbit/Tables.h"
#include "platform/Doors.h"

#include "SampleSky.h"

namespace kestrava::bench {
namespace {

/// A clock that stands in the midsummer of another year at each reading of a new round.
class MidsummerClock : public platform::Clock {
 public:
  platform::ClockReading Read() override { return {now_, now_}; }
  void NextYear() {
    year_ = year_ < 2090 ? year_ + 1 : 1990;
    now_ = platform::MakeSerial({year_, 6, 21, 9, 30, 0});
  }

 private:
  int year_ = 2026;
  platform::SerialDate now_ = platform::MakeSerial({2026, 6, 21, 9, 30, 0});
};

/// One activation's work for a place at 69.6 north: each round in a year of its own, so that nothing is in a cache.
void PolarSunriseAndSunset(benchmark::State& state) {
  orbit::Tables tables;
  orbit::OrbitEngine& engine = SampleEngine();
  const orbit::Sky sky{tables, engine};
  const orbit::Observer usual = engine.CurrentObserver();
  engine.SetObserver({69.6, 18.9, 100});
  MidsummerClock midsummer;
  platform::Doors doors = platform::TheDoors();
  doors.clock = &midsummer;
  const platform::ScopedDoors scope(doors);
  for (auto _ : state) {
    midsummer.NextYear();
    benchmark::DoNotOptimize(orbit::TodaySunrise(sky));
    benchmark::DoNotOptimize(orbit::TodaySunset(sky));
  }
  engine.SetObserver(usual);
}

}  // namespace

std::vector<Asked> RegisterDaylightBenchmarks() {
  constexpr int kRepetitions = 5;
  benchmark::RegisterBenchmark("PolarSunriseAndSunset", PolarSunriseAndSunset)
      ->Repetitions(kRepetitions)
      ->Unit(benchmark::kMicrosecond);
  return {{"PolarSunriseAndSunset", 0, 20e-3, ""}};
}

}  // namespace kestrava::bench
