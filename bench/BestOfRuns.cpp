#include "BestOfRuns.h"

#include <algorithm>
#include <cstdio>

namespace kestrava::bench {

void BestOfRuns::ReportRuns(const std::vector<Run>& runs) {
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration || run.error_occurred || run.iterations == 0) continue;
    const std::string& name = run.run_name.function_name;
    const double timeS = run.cpu_accumulated_time / static_cast<double>(run.iterations);
    const auto [known, isNew] = bestTimeS_.emplace(name, timeS);
    if (!isNew) known->second = std::min(known->second, timeS);
    if (const auto rate = run.counters.find("items_per_second"); rate != run.counters.end()) {
      bestRatePerS_[name] = std::max(bestRatePerS_[name], double{rate->second});
    }
  }
}

bool BestOfRuns::PrintSummary() const {
  bool allReached = true;
  std::printf("\n%-34s %16s %16s %8s\n", "best of the repetitions", "measured", "asked", "ratio");
  for (const Asked& asked : asked_) {
    const auto time = bestTimeS_.find(asked.name);
    if (time == bestTimeS_.end()) continue;
    const auto rate = bestRatePerS_.find(asked.name);
    const bool isRate = rate != bestRatePerS_.end();
    std::printf("%-34s ", asked.name.c_str());
    if (isRate) {
      std::printf("%14.0f/s", rate->second);
      asked.ratePerS > 0 ? std::printf(" %14.0f/s", asked.ratePerS) : std::printf(" %16s", "");
      allReached = allReached && rate->second >= asked.ratePerS;
    } else {
      std::printf("%13.3f ms", time->second * 1e3);
      asked.timeS > 0 ? std::printf(" %13.3f ms", asked.timeS * 1e3) : std::printf(" %16s", "");
      allReached = allReached && (asked.timeS == 0 || time->second <= asked.timeS);
    }
    if (const auto yardstick = bestRatePerS_.find(asked.yardstick); isRate && yardstick != bestRatePerS_.end()) {
      std::printf(" %7.2fx", rate->second / yardstick->second);
    }
    if (const auto yardstick = bestTimeS_.find(asked.yardstick); !isRate && yardstick != bestTimeS_.end()) {
      std::printf(" %7.1fx", yardstick->second / time->second);
    }
    std::printf("\n");
  }
  return allReached;
}

}  // namespace kestrava::bench
