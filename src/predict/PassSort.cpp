#include "predict/PassSort.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <numeric>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/EventLoop.h"
#include "platform/Fault.h"
#include "predict/PassText.h"

namespace kestrava::predict {

namespace {

constexpr std::string_view kTrapName = "PassPred-SortChron";

using Order = std::vector<std::size_t>;

enum class Outcome { kSorted, kStopped, kRowsChanged };

/// The start of each row; nothing where its date or its time does not parse.
struct Keys {
  std::vector<std::optional<platform::SerialDate>> starts;
  bool complete = true;
};

/// @param logged  bad cells have been told already
Keys ParseKeys(const PassTable& table, bool logged) {
  const auto parse = [&](const auto& statement) {
    try {
      statement();
      return true;
    } catch (const platform::Fault& fault) {
      if (!logged) platform::ErrorTrap(fault.what(), kTrapName);
      return false;
    }
  };
  Keys keys;
  keys.starts.reserve(table.Rows().size());
  for (const PassRow& row : table.Rows()) {
    platform::SerialDate date = 0;
    platform::SerialDate time = 0;
    const bool dateParses = parse([&] { date = ParseDateCell(row[kDateCell]); });
    const bool timeParses = parse([&] { time = ParseTimeCell(row[kTimeCell]); });
    const bool good = dateParses && timeParses;
    keys.starts.push_back(good ? std::optional(date + time) : std::nullopt);
    keys.complete = keys.complete && good;
  }
  return keys;
}

/// What a yield on the way has left.
Outcome Yield(const PassTable& table, std::uint64_t revision, const SortWatch& watch) {
  platform::YieldOnce();
  if (watch.stopped()) return Outcome::kStopped;
  return table.Revision() == revision ? Outcome::kSorted : Outcome::kRowsChanged;
}

/// One round of the exchange loop over all neighbours. A row without a key compares by the key before it.
struct Exchange {
  platform::SerialDate former = 0;
  platform::SerialDate latter = 0;

  void Round(const Keys& keys, Order& order) {
    for (std::size_t j = 1; j < order.size(); ++j) {
      former = keys.starts[order[j - 1]].value_or(former);
      latter = keys.starts[order[j]].value_or(latter);
      if (latter < former) std::swap(order[j - 1], order[j]);
    }
  }
};

Outcome SortOnce(PassTable& table, const SortWatch& watch, bool logged) {
  const Keys keys = ParseKeys(table, logged);
  const int rows = table.RowCount();
  Order order(table.Rows().size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  if (keys.complete) {
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return *keys.starts[a] < *keys.starts[b]; });
  } else {
    Exchange exchange;
    for (int i = 1; i <= rows; ++i) {
      exchange.Round(keys, order);
      watch.progress(i, rows);
      const Outcome outcome = Yield(table, table.Revision(), watch);
      if (outcome != Outcome::kSorted) return outcome;
    }
  }
  table.Reorder(order);
  watch.progress(rows, rows);
  return Yield(table, table.Revision(), watch) == Outcome::kStopped ? Outcome::kStopped : Outcome::kSorted;
}

}  // namespace

bool SortChron(PassTable& table, const SortWatch& watch) {
  bool logged = false;
  Outcome outcome = Outcome::kRowsChanged;
  while (outcome == Outcome::kRowsChanged) {
    outcome = SortOnce(table, watch, logged);
    logged = true;
  }
  return outcome == Outcome::kSorted;
}

}  // namespace kestrava::predict
