#pragma once

// Reads the reference values of tests/data/reference for the tests of the engine.

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/ElementSet.h"

namespace kestrava::orbit::reference {

/// All bytes of a file below tests/data; an exception ends the test where there is none.
std::string FileBytes(std::string_view name);

/// One row of a table, by the names of its columns.
class Row {
 public:
  Row(const std::vector<std::string>* columns, std::vector<std::string> fields);
  const std::string& Text(std::string_view column) const;
  double Number(std::string_view column) const;
  int Whole(std::string_view column) const { return static_cast<int>(Number(column)); }
  bool IsEmpty(std::string_view column) const { return Text(column).empty(); }

 private:
  const std::vector<std::string>* columns_;
  std::vector<std::string> fields_;
};

/// A comma-separated table with a header line.
class Table {
 public:
  explicit Table(std::string_view name);
  const std::vector<Row>& Rows() const { return rows_; }

 private:
  std::vector<std::string> columns_;
  std::vector<Row> rows_;
};

/// The sets of reference/elements.txt by catalogue number.
const std::map<int, ElementSet>& Sets();

/// Numbers of a line, split at blanks; reading stops at the first field that is none.
std::vector<double> Numbers(std::string_view line);

}  // namespace kestrava::orbit::reference
