#include "PassBench.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>

#include "orbit/Satcalc.h"
#include "orbit/Tables.h"
#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "predict/PassCalc.h"
#include "predict/PassSort.h"
#include "predict/PassText.h"

#include "SampleSky.h"

namespace kestrava::bench {
namespace {

/// What the rows need besides the sample sky: settings in memory, and a loop with nothing to do.
class PlainSettings : public platform::SettingsStore {
 public:
  std::string Get(std::string_view key) override { return values_[std::string(key)]; }
  void Set(std::string_view key, std::string_view value) override { values_[std::string(key)] = value; }

 private:
  std::map<std::string, std::string> values_;
};

class IdleLoop : public platform::EventLoop {
 public:
  void ProcessEvents() override {}
  std::unique_ptr<platform::Timer> MakeTimer(int, std::function<void()>) override { return nullptr; }
  void Later(std::function<void()>) override {}
  void Quit(int) override {}
};

struct Station {
  orbit::Tables tables;
  orbit::Sky sky{tables, SampleEngine()};
  PlainSettings settings;
  IdleLoop loop;
  platform::ScopedDoors doors{Doors()};

  platform::Doors Doors() {
    platform::Doors all = platform::TheDoors();
    all.settings = &settings;
    all.eventLoop = &loop;
    return all;
  }
  void Day(predict::PassTable& table, const std::string& name, int day) {
    const platform::DateParts parts = platform::SplitSerial(kStartSerial + day);
    predict::CalcResults(sky, table, name, static_cast<std::int16_t>(parts.day), static_cast<std::int16_t>(parts.month),
                         static_cast<std::int16_t>(parts.year), false);
  }
};

void PassRowsOfADay(benchmark::State& state) {
  Station station;
  predict::PassTable table;
  for (auto _ : state) {
    table.Clear();
    station.Day(table, "ISS (ZARYA)", 1);
    benchmark::DoNotOptimize(table.RowCount());
  }
}

/// 50 satellites for 30 days, without what a window adds: the same work as for the command line.
void PassJobOf50x30(benchmark::State& state) {
  Station station;
  std::vector<std::string> names;
  for (const orbit::ElementSet& set : NearEarthSets()) {
    if (names.size() < 50) names.push_back(set.name);
  }
  for (std::size_t i = 0; names.size() < 50; ++i) names.push_back(names[i]);
  int rows = 0;
  for (auto _ : state) {
    predict::PassTable table;
    for (int day = 0; day < 30; ++day) {
      for (const std::string& name : names) station.Day(table, name, day);
    }
    rows = table.RowCount();
  }
  state.counters["rows"] = rows;
}

void PassFactsOfThreeDays(benchmark::State& state) {
  orbit::OrbitEngine& engine = SampleEngine();
  for (auto _ : state) benchmark::DoNotOptimize(predict::FindPasses(engine, "ISS (ZARYA)", kStartSerial, 3, 0));
}

std::vector<predict::PassRow> ShuffledRows(int count) {
  std::vector<predict::PassRow> rows;
  std::mt19937 draws(1);
  for (int i = 0; i < count; ++i) {
    const platform::DateParts at =
        platform::SplitSerial(kStartSerial + draws() % (30 * 86400) / platform::kSecondsPerDay);
    const auto field = [](int part) { return static_cast<std::int16_t>(part); };
    rows.push_back({"ISS (ZARYA)", orbit::DateText(field(at.day), field(at.month), field(at.year)),
                    orbit::ClockText(field(at.hour), field(at.minute), field(at.second)), "231", "47 (AZ 142)",
                    "00:10:01", "067", "Yes", "No "});
  }
  return rows;
}

void SortOf20000Rows(benchmark::State& state) {
  Station station;
  const std::vector<predict::PassRow> rows = ShuffledRows(20000);
  for (auto _ : state) {
    predict::PassTable table;
    for (const predict::PassRow& row : rows) table.Add(row);
    predict::SortChron(table, {[](int, int) {}, [] { return false; }});
    benchmark::DoNotOptimize(table.RowCount());
  }
}

/// The loop over neighbours on fewer rows, keys parsed anew each time: what the sort is measured against.
void ExchangeOf500Rows(benchmark::State& state) {
  Station station;
  const std::vector<predict::PassRow> rows = ShuffledRows(500);
  const auto key = [](const predict::PassRow& row) {
    return predict::ParseDateCell(row[predict::kDateCell]) + predict::ParseTimeCell(row[predict::kTimeCell]);
  };
  for (auto _ : state) {
    std::vector<predict::PassRow> sorted = rows;
    for (std::size_t i = 0; i < sorted.size(); ++i) {
      for (std::size_t j = 1; j < sorted.size(); ++j) {
        if (key(sorted[j]) < key(sorted[j - 1])) std::swap(sorted[j], sorted[j - 1]);
      }
    }
    benchmark::DoNotOptimize(sorted.front());
  }
}

}  // namespace

std::vector<Asked> RegisterPassBenchmarks() {
  const auto add = [](const char* name, void (*function)(benchmark::State&), int repetitions) {
    benchmark::RegisterBenchmark(name, function)->Repetitions(repetitions)->Unit(benchmark::kMicrosecond);
  };
  add("PassRowsOfADay", PassRowsOfADay, 5);
  add("PassJobOf50x30", PassJobOf50x30, 3);
  add("PassFactsOfThreeDays", PassFactsOfThreeDays, 5);
  add("SortOf20000Rows", SortOf20000Rows, 5);
  add("ExchangeOf500Rows", ExchangeOf500Rows, 3);
  return {{"PassRowsOfADay", 0, 0, ""},
          {"PassJobOf50x30", 0, 2, ""},
          {"PassFactsOfThreeDays", 0, 0, ""},
          {"SortOf20000Rows", 0, 1, "ExchangeOf500Rows"},
          {"ExchangeOf500Rows", 0, 0, ""}};
}

}  // namespace kestrava::bench
