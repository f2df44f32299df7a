#pragma once

// Prints the best of the repetitions of each figure (processor time), what is asked of it, and the ratio to the
// yardstick of the same run. The ratios are what counts: a figure is for a quiet machine.

#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace kestrava::bench {

/// What is asked: a rate (items a second) or a time (seconds an iteration).
struct Asked {
  std::string name;
  double ratePerS = 0;
  double timeS = 0;
  std::string yardstick;  ///< the benchmark to divide by; may be empty
};

class BestOfRuns : public benchmark::ConsoleReporter {
 public:
  explicit BestOfRuns(std::vector<Asked> asked) : asked_(std::move(asked)) {}
  void ReportRuns(const std::vector<Run>& runs) override;
  /// Prints the table. @return false if something asked is not reached
  bool PrintSummary() const;

 private:
  std::vector<Asked> asked_;
  std::map<std::string, double> bestTimeS_, bestRatePerS_;
};

}  // namespace kestrava::bench
