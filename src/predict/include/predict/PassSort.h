// Sorting the pass list by start. The rows hold only text, so the keys come from the cells.
#pragma once

#include <functional>

#include "predict/PassTable.h"

namespace kestrava::predict {

/// What a sort tells while it runs, and asks.
struct SortWatch {
  /// How far it is, of the row count. Called before each yield.
  std::function<void(int done, int rows)> progress;
  /// True when the rows or their window have gone: the sort ends at once and leaves the rows as they are.
  std::function<bool()> stopped;
};

/// Sorts rows by start date and time; rows of the same second keep their order. Yields on its way. Where every cell
/// parses that is a stable sort over keys parsed once. Where one does not, each bad cell is logged once under
/// "PassPred-SortChron", its row compares by the key that was there before it, and the rows take the order in which the
/// plain exchange loop leaves them. Rows that change during a yield are sorted as they then are.
/// @return false if it was stopped
bool SortChron(PassTable& table, const SortWatch& watch);

}  // namespace kestrava::predict
