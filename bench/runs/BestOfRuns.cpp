#include "BestOfRuns.h"

#include <algorithm>
#include <cstdio>

namespace kestrava::bench {

namespace {

void Lower(std::map<std::string, double>& best, const std::string& name, double timeS) {
  const auto [known, isNew] = best.emplace(name, timeS);
  if (!isNew) known->second = std::min(known->second, timeS);
}

}  // namespace

void BestOfRuns::ReportRuns(const std::vector<Run>& repetitions) {
  for (const Run& run : repetitions) {
    const std::string& name = run.run_name.function_name;
    if (run.error_occurred) failed_[name] = run.error_message;
    if (run.run_type != Run::RT_Iteration || run.error_occurred || run.iterations == 0) continue;
    const auto runs = static_cast<double>(run.iterations);
    const bool wall = time_ == Time::kWall;
    Lower(bestTimeS_, name, (wall ? run.real_accumulated_time : run.cpu_accumulated_time) / runs);
    if (wall && run.run_name.time_type.empty()) Lower(bestProcessorS_, name, run.cpu_accumulated_time / runs);
    if (const auto rate = run.counters.find("items_per_second"); rate != run.counters.end()) {
      bestRatePerS_[name] = std::max(bestRatePerS_[name], double{rate->second});
    }
  }
}

bool BestOfRuns::PrintSummary() const {
  bool allReached = true;
  std::printf("\n%-40s %16s %16s %8s\n", "best of the repetitions", "measured", "asked", "ratio");
  for (const Asked& asked : asked_) allReached = PrintRow(asked) && allReached;
  if (!allReached) std::puts("\nnot everything asked was reached on this machine at this time");
  return allReached;
}

/// @return false if it is not reached; one that was not to be run is passed over
bool BestOfRuns::PrintRow(const Asked& asked) const {
  const char* name = asked.name.c_str();
  if (const auto failed = failed_.find(asked.name); failed != failed_.end()) {
    std::printf("%-40s failed: %s\n", name, failed->second.c_str());
    return false;
  }
  const auto time = bestTimeS_.find(asked.name);
  if (time == bestTimeS_.end()) return true;
  const auto rate = bestRatePerS_.find(asked.name);
  const bool isRate = rate != bestRatePerS_.end();
  bool reached = true;
  if (isRate) {
    std::printf("%-40s %14.0f/s", name, rate->second);
    asked.ratePerS > 0 ? std::printf(" %14.0f/s", asked.ratePerS) : std::printf(" %16s", "");
    reached = rate->second >= asked.ratePerS;
  } else {
    std::printf("%-40s %13.3f ms", name, time->second * 1e3);
    asked.timeS > 0 ? std::printf(" %13.3f ms", asked.timeS * 1e3) : std::printf(" %16s", "");
    reached = asked.timeS == 0 || time->second <= asked.timeS;
  }
  if (const auto yardstick = bestRatePerS_.find(asked.yardstick); isRate && yardstick != bestRatePerS_.end()) {
    std::printf(" %7.2fx", rate->second / yardstick->second);
  }
  if (const auto yardstick = bestTimeS_.find(asked.yardstick); !isRate && yardstick != bestTimeS_.end()) {
    std::printf(" %7.1fx", yardstick->second / time->second);
  }
  if (const auto processor = bestProcessorS_.find(asked.name); processor != bestProcessorS_.end()) {
    std::printf("   processor %.3f ms", processor->second * 1e3);
  }
  std::puts(reached ? "" : "   NOT REACHED");
  return reached;
}

int RunAndJudge(std::vector<Asked> asked, Time time) {
  BestOfRuns reporter(std::move(asked), time);
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return reporter.PrintSummary() ? 0 : 1;
}

}  // namespace kestrava::bench
