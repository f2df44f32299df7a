#include "predict/PassTable.h"

#include <utility>

namespace kestrava::predict {

std::string_view YesNoCell(bool yes) {
  return yes ? "Yes" : "No ";
}

void PassTable::Add(PassRow row) {
  rows_.push_back(std::move(row));
  ++revision_;
}

void PassTable::Clear() {
  rows_.clear();
  ++revision_;
}

void PassTable::Reorder(const std::vector<std::size_t>& order) {
  std::vector<PassRow> reordered;
  reordered.reserve(order.size());
  for (const std::size_t from : order) reordered.push_back(std::move(rows_[from]));
  rows_ = std::move(reordered);
  ++revision_;
}

}  // namespace kestrava::predict
