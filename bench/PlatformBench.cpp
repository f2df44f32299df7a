#include "PlatformBench.h"

#include <array>
#include <filesystem>
#include <map>
#include <string>
#include <system_error>

#include <benchmark/benchmark.h>
#include <stdlib.h>

#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/XdgSettings.h"

namespace kestrava::bench {
namespace {

constexpr int kRepetitions = 5;
constexpr int kKeys = 60;  // about as many as the station has

/// A store with as many settings as a station in use, in a folder of its own.
class SampleStore {
 public:
  SampleStore() {
    std::string name = (std::filesystem::temp_directory_path() / "kestrava-bench-XXXXXX").string();
    if (!::mkdtemp(name.data())) throw platform::Fault::PathFileAccess();
    folder_ = name;
    store_ = std::make_unique<platform::XdgSettings>(folder_, clock_);
    for (int i = 0; i < kKeys; ++i) store_->Set("Some Setting " + std::to_string(i), std::to_string(i));
  }
  ~SampleStore() {
    store_.reset();
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }
  SampleStore(const SampleStore&) = delete;
  SampleStore& operator=(const SampleStore&) = delete;

  platform::XdgSettings& Store() { return *store_; }

 private:
  platform::SystemClock clock_;
  std::filesystem::path folder_;
  std::unique_ptr<platform::XdgSettings> store_;
};

void SettingsRead(benchmark::State& state) {
  SampleStore sample;
  for (auto _ : state) benchmark::DoNotOptimize(sample.Store().Get("some setting 37"));
  state.SetItemsProcessed(state.iterations());
}

/// A map in memory that regards case: what a read can cost at all.
void SettingsReadYardstick(benchmark::State& state) {
  std::map<std::string, std::string, std::less<>> settings;
  for (int i = 0; i < kKeys; ++i) settings["Some Setting " + std::to_string(i)] = std::to_string(i);
  const std::string_view key = "Some Setting 37";
  for (auto _ : state) benchmark::DoNotOptimize(std::string(settings.find(key)->second));
  state.SetItemsProcessed(state.iterations());
}

void SettingsWriteThatStands(benchmark::State& state) {
  SampleStore sample;
  for (auto _ : state) sample.Store().Set("some setting 37", "37");
  state.SetItemsProcessed(state.iterations());
}

void SettingsWriteDurable(benchmark::State& state) {
  SampleStore sample;
  int value = 0;
  for (auto _ : state) sample.Store().Set("some setting 37", std::to_string(++value));
  state.SetItemsProcessed(state.iterations());
}

class PointLocale : public platform::MachineLocale {
 public:
  std::string DecimalSign() const override { return "."; }
  std::string GroupSign() const override { return ","; }
  std::string DateText(platform::SerialDate) const override { return {}; }
  std::string TimeText(platform::SerialDate) const override { return {}; }
};

void FormatOfANumber(benchmark::State& state) {
  PointLocale locale;
  platform::Doors doors;
  doors.locale = &locale;
  const platform::ScopedDoors scoped(doors);
  double value = 0;
  for (auto _ : state) benchmark::DoNotOptimize(platform::Format(value += 1.2345, "000.00"));
  state.SetItemsProcessed(state.iterations());
}

void FormatOfATime(benchmark::State& state) {
  double value = 45000;
  for (auto _ : state) benchmark::DoNotOptimize(platform::Format(value += 0.012345, "hh:mm:ss"));
  state.SetItemsProcessed(state.iterations());
}

}  // namespace

std::vector<Asked> RegisterPlatformBenchmarks() {
  const auto add = [](const char* name, void (*function)(benchmark::State&)) {
    benchmark::RegisterBenchmark(name, function)->Repetitions(kRepetitions)->Unit(benchmark::kMicrosecond);
  };
  add("SettingsRead", SettingsRead);
  add("SettingsReadYardstick", SettingsReadYardstick);
  add("SettingsWriteThatStands", SettingsWriteThatStands);
  add("SettingsWriteDurable", SettingsWriteDurable);
  add("FormatOfANumber", FormatOfANumber);
  add("FormatOfATime", FormatOfATime);
  return {{"SettingsRead", 100e3, 0, "SettingsReadYardstick"},
          {"SettingsReadYardstick", 0, 0, ""},
          {"SettingsWriteThatStands", 0, 0, ""},
          {"SettingsWriteDurable", 0, 0, ""},
          {"FormatOfANumber", 0, 0, ""},
          {"FormatOfATime", 0, 0, ""}};
}

}  // namespace kestrava::bench
