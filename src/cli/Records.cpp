#include "Records.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "platform/Format.h"
#include "platform/Text.h"

#include "Moments.h"

namespace kestrava::cli {

namespace {

constexpr std::size_t kBlanksBetween = 2;

std::string Joined(const std::vector<std::string>& names, std::string_view between) {
  std::string all;
  for (const std::string& name : names) all.append(all.empty() ? "" : between).append(name);
  return all;
}

/// A value in a cell of the text form.
class CellText {
 public:
  explicit CellText(std::string_view pattern) : pattern_(pattern) {}
  std::string operator()(std::monostate) const { return "-"; }
  std::string operator()(bool value) const { return value ? "Yes" : "No"; }
  std::string operator()(int value) const { return std::to_string(value); }
  std::string operator()(double value) const { return platform::Format(value, pattern_); }
  std::string operator()(const std::string& value) const { return value; }
  std::string operator()(const std::vector<std::string>& names) const { return Joined(names, ", "); }
  std::string operator()(const Moment& moment) const {
    const platform::SerialDate local = platform::TheClock().LocalAt(moment.utc);
    const platform::DateParts parts = platform::SplitSerial(local);
    return orbit::DateText(static_cast<std::int16_t>(parts.day), static_cast<std::int16_t>(parts.month),
                           static_cast<std::int16_t>(parts.year)) +
           " " + platform::Format(local, "hh:mm:ss");
  }

 private:
  std::string_view pattern_;
};

/// A value in a field of CSV.
struct FieldText {
  int decimals = kAsIs;
  std::string operator()(std::monostate) const { return {}; }
  std::string operator()(bool value) const { return value ? "true" : "false"; }
  std::string operator()(int value) const { return std::to_string(value); }
  std::string operator()(double value) const { return platform::PointText(WithDecimals(value, decimals)); }
  std::string operator()(const std::string& value) const { return value; }
  std::string operator()(const Moment& moment) const { return IsoText(moment.utc); }
  std::string operator()(const std::vector<std::string>& names) const { return Joined(names, ";"); }
};

bool IsNumber(const Value& value) {
  return std::holds_alternative<int>(value) || std::holds_alternative<double>(value);
}

/// A column of the text form: its cells, of equal width in the end.
struct TextColumn {
  std::vector<std::string> cells;  ///< the head first
  bool toTheRight = false;
  std::size_t width = 0;
};

std::size_t WidthOf(std::string_view text) {
  return static_cast<std::size_t>(platform::LengthInCharacters(text));
}

std::vector<TextColumn> TextColumnsOf(const Records& records) {
  std::vector<TextColumn> columns;
  for (std::size_t i = 0; i < records.columns.size(); ++i) {
    const Column& column = records.columns[i];
    if (column.head.empty()) continue;
    TextColumn text;
    text.cells.emplace_back(column.head);
    for (const auto& row : records.rows) {
      text.cells.push_back(std::visit(CellText(column.pattern), row[i]));
      text.toTheRight = text.toTheRight || IsNumber(row[i]);
    }
    for (const std::string& cell : text.cells) text.width = std::max(text.width, WidthOf(cell));
    columns.push_back(std::move(text));
  }
  return columns;
}

/// RFC 4180: what holds a separator, a quote or a line end stands in quotes.
std::string CsvField(const std::string& text) {
  if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
  return "\"" + platform::ReplaceAll(text, "\"", "\"\"") + "\"";
}

}  // namespace

void WriteText(std::ostream& out, const Records& records) {
  const std::vector<TextColumn> columns = TextColumnsOf(records);
  for (std::size_t row = 0; row <= records.rows.size(); ++row) {
    std::string line;
    for (const TextColumn& column : columns) {
      const std::string& cell = column.cells[row];
      const std::string blanks(column.width - WidthOf(cell), ' ');
      if (!line.empty()) line.append(kBlanksBetween, ' ');
      line += column.toTheRight ? blanks + cell : cell + blanks;
    }
    line.erase(line.find_last_not_of(' ') + 1);
    out << line << '\n';
  }
}

void WriteCsv(std::ostream& out, const Records& records) {
  std::string line;
  for (const Column& column : records.columns) line.append(line.empty() ? "" : ",").append(column.key);
  out << line << '\n';
  for (const auto& row : records.rows) {
    for (std::size_t i = 0; i < row.size(); ++i) {
      out << (i == 0 ? "" : ",") << CsvField(std::visit(FieldText{records.columns[i].decimals}, row[i]));
    }
    out << '\n';
  }
}

void WritePlaceLine(std::ostream& out, const Place& place) {
  out << "Place: " << PlaceText(place) << '\n';
}

double WithDecimals(double value, int decimals) {
  if (decimals < 0) return value;
  const double steps = std::pow(10, decimals);
  return std::round(value * steps) / steps + 0.0;  // no "-0"
}

}  // namespace kestrava::cli
