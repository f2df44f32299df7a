// What every program of figures does: it prints the best of the repetitions of each figure, what is asked of it, and
// the ratio to the yardstick of the same run, and ends with 1 where something asked is not reached. The ratios are what
// counts: a figure is for a quiet machine.
#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

namespace kestrava::bench {

/// What is asked: a rate (items a second) or a time (seconds an iteration); 0 for a figure that is only shown.
struct Asked {
  std::string name;
  double ratePerS = 0;
  double timeS = 0;
  std::string yardstick;  ///< the benchmark to divide by; may be empty
};

/// What a time is: the processor's, for work that can be counted; the wall's, for what a user waits for.
enum class Time { kProcessor, kWall };

class BestOfRuns : public benchmark::ConsoleReporter {
 public:
  BestOfRuns(std::vector<Asked> asked, Time time) : asked_(std::move(asked)), time_(time) {}
  void ReportRuns(const std::vector<Run>& repetitions) override;
  /// Prints the table. @return false if something asked is not reached
  bool PrintSummary() const;

 private:
  bool PrintRow(const Asked& asked) const;

  std::vector<Asked> asked_;
  Time time_;
  std::map<std::string, double> bestTimeS_, bestProcessorS_, bestRatePerS_;
  std::map<std::string, std::string> failed_;  ///< and why
};

/// Registers a figure of five repetitions, in milliseconds. @param work  takes the benchmark's state
template <class Work>
benchmark::internal::Benchmark* AddFiveRuns(const char* name, Work work) {
  return benchmark::RegisterBenchmark(name, work)->Unit(benchmark::kMillisecond)->Repetitions(5);
}

/// Runs what is registered, and prints. @return the program's exit code: 1 if something asked is not reached
int RunAndJudge(std::vector<Asked> asked, Time time);

}  // namespace kestrava::bench
