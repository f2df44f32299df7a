#include "ReferenceData.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "orbit/ElementReader.h"

namespace kestrava::orbit::reference {
namespace {

std::vector<std::string> Split(std::string_view line, char separator) {
  std::vector<std::string> fields;
  for (std::size_t start = 0; start <= line.size();) {
    const std::size_t end = std::min(line.find(separator, start), line.size());
    fields.emplace_back(line.substr(start, end - start));
    start = end + 1;
  }
  return fields;
}

double NumberOf(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{} || end != text.data() + text.size()) {
    throw std::runtime_error("no number: '" + std::string(text) + "'");
  }
  return value;
}

}  // namespace

std::string FileBytes(std::string_view name) {
  std::ifstream in(KESTRAVA_TEST_DATA + std::string(name), std::ios::binary);
  if (!in) throw std::runtime_error("no test data: " + std::string(name));
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

Row::Row(const std::vector<std::string>* columns, std::vector<std::string> fields)
    : columns_(columns), fields_(std::move(fields)) {
  if (fields_.size() != columns_->size()) throw std::runtime_error("row with a wrong number of fields");
}

const std::string& Row::Text(std::string_view column) const {
  const auto found = std::find(columns_->begin(), columns_->end(), column);
  if (found == columns_->end()) throw std::runtime_error("no column " + std::string(column));
  return fields_[static_cast<std::size_t>(found - columns_->begin())];
}

double Row::Number(std::string_view column) const {
  return NumberOf(Text(column));
}

Table::Table(std::string_view name) {
  const std::string bytes = FileBytes(name);
  for (const std::string& line : Split(bytes, '\n')) {
    if (line.empty()) continue;
    if (columns_.empty()) {
      columns_ = Split(line, ',');
    } else {
      rows_.emplace_back(&columns_, Split(line, ','));
    }
  }
}

const std::map<int, ElementSet>& Sets() {
  static const std::map<int, ElementSet> sets = [] {
    std::map<int, ElementSet> byNumber;
    for (const ElementSet& set : ReadElementSets(FileBytes("reference/elements.txt")).sets) {
      byNumber.emplace(set.catalogueNumber, set);
    }
    return byNumber;
  }();
  return sets;
}

std::vector<double> Numbers(std::string_view line) {
  std::vector<double> numbers;
  for (const std::string& field : Split(line, ' ')) {
    if (field.empty() || field == "\r") continue;
    double value = 0;
    const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), value);
    if (error != std::errc{} || (*end != '\0' && *end != '\r')) break;
    numbers.push_back(value);
  }
  return numbers;
}

}  // namespace kestrava::orbit::reference
