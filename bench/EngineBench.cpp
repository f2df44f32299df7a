// The figures of the engine. Every benchmark of the model has its yardstick beside it, over the same sets and moments.

#include <cstdio>

#include <benchmark/benchmark.h>

#include "orbit/ElementReader.h"
#include "orbit/PassSearch.h"
#include "orbit/Satcalc.h"
#include "orbit/Tables.h"

#include "CitiesBench.h"
#include "DaylightBench.h"
#include "PassBench.h"
#include "PlatformBench.h"
#include "SampleSky.h"
#include "SearchYardstick.h"
#include "runs/BestOfRuns.h"

namespace kestrava::bench {
namespace {

constexpr int kRepetitions = 5;

/// Moments within three days of the epochs, a fresh one for each set and round.
class Moments {
 public:
  double Next() {
    constexpr double kStepMinutes = 617.31, kSpanMinutes = 8640;
    minutes_ += kStepMinutes;
    if (minutes_ > kSpanMinutes / 2) minutes_ -= kSpanMinutes;
    return minutes_;
  }

 private:
  double minutes_ = 0;
};

void RunModel(benchmark::State& state, const std::vector<orbit::ElementSet>& sets) {
  std::vector<orbit::Sgp4> models;
  for (const orbit::ElementSet& set : sets) models.emplace_back(set);
  Moments moments;
  for (auto _ : state) {
    for (const orbit::Sgp4& model : models) benchmark::DoNotOptimize(model.Propagate(moments.Next()));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(sets.size()));
}

void RunYardstick(benchmark::State& state, const std::vector<orbit::ElementSet>& sets) {
  std::vector<Yardstick> models;
  for (const orbit::ElementSet& set : sets) models.emplace_back(ForYardstick(set));
  Moments moments;
  for (auto _ : state) {
    for (Yardstick& model : models) benchmark::DoNotOptimize(model.Propagate(moments.Next()));
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(sets.size()));
}

void StateNearEarth(benchmark::State& state) {
  RunModel(state, NearEarthSets());
}
void StateNearEarthYardstick(benchmark::State& state) {
  RunYardstick(state, NearEarthSets());
}
void StateDeepSpace(benchmark::State& state) {
  RunModel(state, DeepSpaceSets());
}
void StateDeepSpaceYardstick(benchmark::State& state) {
  RunYardstick(state, DeepSpaceSets());
}

/// All that CalcPosition gives: look angle, sub-point, range rate, revolution; all satellites at one moment, as a tick
/// of the map asks for them.
void PositionOfEngine(benchmark::State& state) {
  orbit::OrbitEngine& engine = SampleEngine();
  double serial = kStartSerial;
  int16_t descending = 0, unused = 0;
  double az = 0, el = 0, lon = 0, lat = 0, range = 0, rate = 0, height = 0, phase = 0;
  std::vector<std::string> names;
  for (const orbit::ElementSet& set : NearEarthSets()) {
    if (engine.Propagate(set.name, serial).error == orbit::ModelError::kNone) names.push_back(set.name);
  }
  for (auto _ : state) {
    serial += 1e-6;  // the shipped sets must not grow old in a long run
    for (const std::string& name : names) {
      engine.CalcPosition(name, engine.EngineTime(serial), 0, 0, descending, az, el, lon, lat, range, rate, height,
                          phase, unused);
      benchmark::DoNotOptimize(az);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(names.size()));
}

/// The one door of the windows, without the extended block: conversions and texts on top of the position.
void WholeSatcalc(benchmark::State& state) {
  orbit::Tables tables;
  const orbit::Sky sky{tables, SampleEngine()};
  std::vector<std::string> names;
  for (const orbit::ElementSet& set : NearEarthSets()) {
    if (sky.engine.Propagate(set.name, kStartSerial).error == orbit::ModelError::kNone) names.push_back(set.name);
  }
  platform::DateParts moment{2026, 11, 15, 12, 0, 0};
  for (auto _ : state) {
    moment.second = (moment.second + 1) % 60;
    for (const std::string& name : names) orbit::Satcalc(sky, name, moment, false);
    benchmark::DoNotOptimize(tables.result.SatAz);
  }
  state.SetItemsProcessed(state.iterations() * static_cast<int64_t>(names.size()));
}

void PositionOfSun(benchmark::State& state) {
  double serial = kStartSerial;
  for (auto _ : state) benchmark::DoNotOptimize(SampleEngine().PlaceOf("sun", serial += 1e-5));
  state.SetItemsProcessed(state.iterations());
}

void ElementFileOf2000Sets(benchmark::State& state) {
  const std::string text = ElementFileOf(2000);
  for (auto _ : state) {
    std::vector<orbit::Sgp4> models;
    const orbit::ElementFile file = orbit::ReadElementSets(text);
    models.reserve(file.sets.size());
    for (const orbit::ElementSet& set : file.sets) models.emplace_back(set);
    if (models.size() != 2000) state.SkipWithError("sets were left out");
    benchmark::DoNotOptimize(models.data());
  }
}

void NextRiseOf500NearEarth(benchmark::State& state) {
  std::vector<orbit::Sgp4> models;
  const std::vector<orbit::ElementSet> sets = NearEarthSets();
  for (int i = 0; i < 500; ++i) models.emplace_back(sets[static_cast<std::size_t>(i) % sets.size()]);
  const orbit::Observer observer = SampleEngine().CurrentObserver();
  int round = 0;
  for (auto _ : state) {
    const double start = kStartSerial + 0.01 * (round++ % 50);
    for (const orbit::Sgp4& model : models) benchmark::DoNotOptimize(orbit::NextRise(model, observer, start));
  }
}

void PassListOfThreeDays(benchmark::State& state) {
  orbit::OrbitEngine& engine = SampleEngine();
  for (auto _ : state) benchmark::DoNotOptimize(engine.CalcPassList("ISS (ZARYA)", kStartSerial, 1, 3, 0, 0));
}

void Register(const char* name, void (*function)(benchmark::State&)) {
  benchmark::RegisterBenchmark(name, function)->Repetitions(kRepetitions)->Unit(benchmark::kMicrosecond);
}

}  // namespace
}  // namespace kestrava::bench

int main(int argc, char** argv) {
  using namespace kestrava::bench;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  RequireAgreement();
  Register("StateNearEarth", StateNearEarth);
  Register("StateNearEarthYardstick", StateNearEarthYardstick);
  Register("StateDeepSpace", StateDeepSpace);
  Register("StateDeepSpaceYardstick", StateDeepSpaceYardstick);
  Register("PositionOfEngine", PositionOfEngine);
  Register("WholeSatcalc", WholeSatcalc);
  Register("PositionOfSun", PositionOfSun);
  Register("ElementFileOf2000Sets", ElementFileOf2000Sets);
  Register("NextRiseOf500NearEarth", NextRiseOf500NearEarth);
  Register("NextRiseOf500Yardstick", NextRiseOf500Yardstick);
  Register("PassListOfThreeDays", PassListOfThreeDays);
  Register("PassListYardstick", PassListYardstick);
  std::vector<Asked> asked({{"StateNearEarth", 3.5e6, 0, "StateNearEarthYardstick"},
                            {"StateNearEarthYardstick", 0, 0, ""},
                            {"StateDeepSpace", 0, 0, "StateDeepSpaceYardstick"},
                            {"StateDeepSpaceYardstick", 0, 0, ""},
                            {"PositionOfEngine", 0, 0, ""},
                            {"WholeSatcalc", 600e3, 0, ""},
                            {"PositionOfSun", 0, 0, ""},
                            {"ElementFileOf2000Sets", 0, 4e-3, ""},
                            {"NextRiseOf500NearEarth", 0, 15e-3, "NextRiseOf500Yardstick"},
                            {"NextRiseOf500Yardstick", 0, 0, ""},
                            {"PassListOfThreeDays", 0, 0.6e-3, "PassListYardstick"},
                            {"PassListYardstick", 0, 0, ""}});
  for (const Asked& row : RegisterDaylightBenchmarks()) asked.push_back(row);
  for (const Asked& row : RegisterPassBenchmarks()) asked.push_back(row);
  for (const Asked& row : RegisterPlatformBenchmarks()) asked.push_back(row);
  for (const Asked& row : RegisterCitiesBenchmarks()) asked.push_back(row);
  return RunAndJudge(asked, Time::kProcessor);
}
