#include "CitiesBench.h"

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#include "store/Cities.h"

namespace kestrava::bench {
namespace {

constexpr int kRepetitions = 5;
constexpr int kMostShown = 20;

const std::string& List() {
  static const std::string list = [] {
    std::ifstream file(KESTRAVA_PLACES "cities.txt", std::ios::binary);
    return std::string{std::istreambuf_iterator<char>(file), {}};
  }();
  return list;
}

void CitiesRead(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(store::ReadCities(List()));
}

/// One key after the other of a text, from the first letter on. The time is that of all keys.
void TypeAll(benchmark::State& state, std::string_view text) {
  const auto cities = store::ReadCities(List());
  for (auto _ : state) {
    for (std::size_t n = 1; n <= text.size(); ++n) {
      benchmark::DoNotOptimize(store::FindCities(cities, text.substr(0, n), kMostShown));
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void CityKeyOfOneWord(benchmark::State& state) {
  TypeAll(state, "reykjavik");
}

void CityKeyOfManyWords(benchmark::State& state) {
  TypeAll(state, "san jose de los santos of united states of america");
}

/// The same text looked for in each name as it stands, without ranks: what a key costs at least.
void CityKeyYardstick(benchmark::State& state) {
  const auto cities = store::ReadCities(List());
  const std::string_view text = "reykjavik";
  for (auto _ : state) {
    for (std::size_t n = 1; n <= text.size(); ++n) {
      int count = 0;
      for (const auto& city : cities) count += city.name.find(text.substr(0, n)) != std::string::npos ? 1 : 0;
      benchmark::DoNotOptimize(count);
    }
  }
  state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

}  // namespace

std::vector<Asked> RegisterCitiesBenchmarks() {
  const auto add = [](const char* name, void (*function)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, function)->Repetitions(kRepetitions)->Unit(benchmark::kMicrosecond);
  };
  add("CitiesRead", CitiesRead);
  add("CityKeyOfOneWord", CityKeyOfOneWord);
  add("CityKeyOfManyWords", CityKeyOfManyWords);
  add("CityKeyYardstick", CityKeyYardstick);
  constexpr double kKeysPerS = 200;  // 5 ms a key
  return {{"CitiesRead", 0, 0, ""},
          {"CityKeyOfOneWord", kKeysPerS, 0, "CityKeyYardstick"},
          {"CityKeyOfManyWords", kKeysPerS, 0, "CityKeyYardstick"},
          {"CityKeyYardstick", 0, 0, ""}};
}

}  // namespace kestrava::bench
