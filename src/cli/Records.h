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

#include "platform/SerialDate.h"

#include "Places.h"

namespace kestrava::cli {

struct Moment {
  platform::SerialDate utc = 0;
};

/// Nothing where there is no value.
using Value = std::variant<std::monostate, bool, int, double, std::string, Moment, std::vector<std::string>>;

inline constexpr int kAsIs = -1;

/// The digits that mean something: elements give a place to some hundred metres at best, and a moment of a pass to
/// tenths of a second. One or two more stand here, so that differences can be worked with.
inline constexpr int kDegreeDecimals = 4;
inline constexpr int kKmDecimals = 3;
inline constexpr int kSpeedDecimals = 6;  ///< of km/s: Doppler shifts of microwaves are worked out from it

struct Column {
  std::string_view key;      ///< in CSV and JSON
  std::string_view head;     ///< in text; empty: not shown there
  std::string_view pattern;  ///< of numbers in text
  int decimals = kAsIs;      ///< of numbers in CSV and JSON
};

struct Records {
  std::vector<Column> columns;
  std::vector<std::vector<Value>> rows;
};

/// What stands around the records: in JSON before them, in text the place in a line above them, in CSV the place in
/// columns behind theirs.
struct Frame {
  std::optional<Place> observer;
  std::vector<std::pair<std::string, Value>> facts;
  std::string rowsKey;
};

void WriteText(std::ostream& out, const Records& records);
void WriteCsv(std::ostream& out, const Records& records);
void WriteJson(std::ostream& out, const Frame& frame, const Records& records);

/// The line above a table of text.
void WritePlaceLine(std::ostream& out, const Place& place);

/// A number with so many decimals; negative: as it is.
double WithDecimals(double value, int decimals);

}  // namespace kestrava::cli
