// Answers as records: rows of typed values under keys that name their units, written as aligned text, CSV or JSON.
// Texts follow the machine's locale as the windows do; CSV and JSON never do.
#pragma once

#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "orbit/Observer.h"
#include "platform/SerialDate.h"

namespace kestrava::cli {

struct Moment {
  platform::SerialDate utc = 0;
};

/// Nothing where there is no value.
using Value = std::variant<std::monostate, bool, int, double, std::string, Moment>;

struct Column {
  std::string_view key;      ///< in CSV and JSON
  std::string_view head;     ///< in text; empty: not shown there
  std::string_view pattern;  ///< of numbers in text
};

struct Records {
  std::vector<Column> columns;
  std::vector<std::vector<Value>> rows;
};

/// Where the answer holds.
struct Place {
  std::string name;  ///< empty if the place was given on the command line
  orbit::Observer observer;
};

/// What stands around the records in JSON.
struct Frame {
  std::optional<Place> observer;
  std::vector<std::pair<std::string, Value>> facts;
  std::string rowsKey;
};

void WriteText(std::ostream& out, const Records& records);
void WriteCsv(std::ostream& out, const Records& records);
void WriteJson(std::ostream& out, const Frame& frame, const Records& records);

/// Degrees east, -180 (not included) to 180, of any longitude.
double EastDeg(double longitudeDeg);

}  // namespace kestrava::cli
