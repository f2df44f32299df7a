#include "MergeRows.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>
#include <vector>

namespace kestrava::store {

namespace {

struct Row {
  std::string key;  // with its count behind it, as a list may name one thing twice
  std::string text;
};

class RowList {
 public:
  RowList(const Lines& lines, RowKey key) {
    std::map<std::string, int> seen;
    for (const std::string& line : lines) {
      std::string own = key(line);
      own += '\n' + std::to_string(++seen[own]);
      byKey_[own] = rows_.size();
      rows_.push_back({std::move(own), line});
    }
  }
  const std::vector<Row>& Rows() const { return rows_; }
  const Row* Find(const std::string& key) const {
    const auto found = byKey_.find(key);
    return found == byKey_.end() ? nullptr : &rows_[found->second];
  }

 private:
  std::vector<Row> rows_;
  std::map<std::string, std::size_t> byKey_;
};

/// Whether the rows that both know stand in another order.
bool IsReordered(const RowList& base, const RowList& changed) {
  std::vector<std::string> before, after;
  for (const Row& row : base.Rows()) {
    if (changed.Find(row.key)) before.push_back(row.key);
  }
  for (const Row& row : changed.Rows()) {
    if (base.Find(row.key)) after.push_back(row.key);
  }
  return before != after;
}

bool IsUnchanged(const RowList& base, const Row& row) {
  const Row* before = base.Find(row.key);
  return before && before->text == row.text;
}

/// What a row of the leading side comes to: nothing, itself, the other side's, or both.
void AddLeading(const Row& row, const RowList& base, const RowList& other, std::vector<Row>& result) {
  const Row* there = other.Find(row.key);
  if (!there) {
    if (!IsUnchanged(base, row)) result.push_back(row);
    return;
  }
  if (there->text == row.text || IsUnchanged(base, *there)) {
    result.push_back(row);
  } else if (IsUnchanged(base, row)) {
    result.push_back(*there);
  } else {
    result.push_back(row);
    result.push_back(*there);
  }
}

/// Behind the row with this key; in front of all for none.
void InsertBehind(const std::string& before, const Row& row, std::vector<Row>& result) {
  const auto found = std::find_if(result.rbegin(), result.rend(), [&](const Row& r) { return r.key == before; });
  result.insert(found.base(), row);
}

/// Puts in what only the other side has: what it added at its end at the end, the rest each behind the row that stands
/// before it there.
void AddOthers(const RowList& base, const RowList& leading, const RowList& other, std::vector<Row>& result) {
  const auto& rows = other.Rows();
  const auto lastOld = std::find_if(rows.rbegin(), rows.rend(), [&](const Row& row) { return base.Find(row.key); });
  const auto added = lastOld.base();
  std::string before;
  for (auto row = rows.begin(); row != rows.end(); ++row) {
    const bool isNew = !leading.Find(row->key) && !IsUnchanged(base, *row);
    if (isNew && row >= added) result.push_back(*row);
    if (isNew && row < added) InsertBehind(before, *row, result);
    if (isNew || leading.Find(row->key)) before = row->key;
  }
}

}  // namespace

Lines MergeRows(const Lines& base, const Lines& mine, const Lines& theirs, RowKey key) {
  if (theirs == base) return mine;
  if (mine == base) return theirs;
  const RowList before(base, key), here(mine, key), there(theirs, key);
  const bool mineLeads = IsReordered(before, here);
  const RowList& leading = mineLeads ? here : there;
  const RowList& other = mineLeads ? there : here;
  std::vector<Row> merged;
  for (const Row& row : leading.Rows()) AddLeading(row, before, other, merged);
  AddOthers(before, leading, other, merged);
  Lines lines;
  for (const Row& row : merged) lines.push_back(row.text);
  return lines;
}

Lines CutTo(Lines& rows, int most) {
  if (rows.size() <= static_cast<std::size_t>(most)) return {};
  Lines rest(rows.begin() + most, rows.end());
  rows.resize(static_cast<std::size_t>(most));
  return rest;
}

platform::Fault NoRoomFor(const Lines& rows) {
  return {9, "another copy of Kestrava has filled the list, which has no room for " + NamesOf(rows)};
}

}  // namespace kestrava::store
