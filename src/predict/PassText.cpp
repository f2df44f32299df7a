#include "predict/PassText.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "orbit/TimeHelpers.h"
#include "platform/Fault.h"
#include "platform/Text.h"

namespace kestrava::predict {

using platform::Fault;
using platform::SerialDate;

namespace {

constexpr std::string_view kCrLf = "\r\n";
constexpr int kNameWidth = 16;
constexpr int kMonths = 12;

/// Blanks behind each cell.
constexpr std::array<std::size_t, kPassCells> kBlanksBehind{4, 4, 4, 5, 4, 4, 9, 5, 0};

/// A number of so many digits and nothing else.
int DigitsOf(std::string_view text, std::size_t fewest, std::size_t most) {
  if (text.size() < fewest || text.size() > most) throw Fault::TypeMismatch();
  int value = 0;
  for (const char c : text) {
    if (c < '0' || c > '9') throw Fault::TypeMismatch();
    value = value * 10 + (c - '0');
  }
  return value;
}

/// 1 to 12. The names are those of the date cells themselves.
int MonthOf(std::string_view abbreviation) {
  for (std::int16_t month = 1; month <= kMonths; ++month) {
    const std::string date = orbit::DateText(1, month, 2000);
    if (platform::EqualsIgnoringCase(platform::Mid(date, 4, 3), abbreviation)) return month;
  }
  throw Fault::TypeMismatch();
}

}  // namespace

std::string PadToWidth(std::string_view text, int width) {
  std::string padded = platform::Left(text, width);
  padded.append(static_cast<std::size_t>(width - platform::LengthInCharacters(padded)), ' ');
  return padded;
}

std::string RowText(const PassRow& row) {
  std::string text;
  for (std::size_t cell = 0; cell < kPassCells; ++cell) {
    text += cell == kSatelliteCell ? PadToWidth(row[cell], kNameWidth) : row[cell];
    text.append(kBlanksBehind[cell], ' ');
  }
  return text;
}

SerialDate ParseDateCell(std::string_view text) {
  const std::vector<std::string> words = platform::SplitAt(platform::Trim(text), ' ');
  if (words.size() != 3) throw Fault::TypeMismatch();
  const platform::DateParts parts{DigitsOf(words[2], 3, 4), MonthOf(words[1]), DigitsOf(words[0], 1, 2), 0, 0, 0};
  if (parts.year < 100) throw Fault::TypeMismatch();
  const SerialDate date = platform::MakeSerial(parts);
  if (!(platform::SplitSerial(date) == parts)) throw Fault::TypeMismatch();  // 30 FEB rolls over
  return date;
}

SerialDate ParseTimeCell(std::string_view text) {
  const std::vector<std::string> words = platform::SplitAt(platform::Trim(text), ':');
  if (words.size() != 3) throw Fault::TypeMismatch();
  const int hour = DigitsOf(words[0], 1, 2);
  const int minute = DigitsOf(words[1], 1, 2);
  const int second = DigitsOf(words[2], 1, 2);
  if (hour > 23 || minute > 59 || second > 59) throw Fault::TypeMismatch();
  return (hour * 3600 + minute * 60 + second) / platform::kSecondsPerDay;
}

void PrintedText::AddPrintedText(std::string_view text, bool bold, platform::Colour colour) {
  pieces_.push_back({std::string(text), bold, colour});
}

std::string PrintedText::PlainText() const {
  std::string text;
  for (const PrintedPiece& piece : pieces_) text += piece.text;
  return text;
}

std::vector<PrintedPiece> PrintedText::Lines() const {
  std::vector<PrintedPiece> lines;
  bool lineOpen = false;
  for (const PrintedPiece& piece : pieces_) {
    std::string_view rest = piece.text;
    while (!rest.empty()) {
      const std::size_t end = rest.find(kCrLf);
      if (!lineOpen) lines.push_back({"", piece.bold, piece.colour});
      lines.back().text += rest.substr(0, end);
      lineOpen = end == std::string_view::npos;
      if (lineOpen) break;
      rest.remove_prefix(end + kCrLf.size());
    }
  }
  return lines;
}

int PrintedText::WidestLine() const {
  int widest = 0;
  for (const PrintedPiece& line : Lines()) widest = std::max(widest, platform::LengthInCharacters(line.text));
  return widest;
}

void AssemblePasses(PrintedText& printed, std::string_view credit, const PassTable& table) {
  const std::string lineEnd(kCrLf);
  printed.Clear();
  printed.AddPrintedText(std::string(credit) + lineEnd + lineEnd, false, platform::kBlack);
  printed.AddPrintedText(std::string(kPassHeading) + lineEnd, false, kHeadingColour);
  for (const PassRow& row : table.Rows()) printed.AddPrintedText(RowText(row) + lineEnd, false, platform::kBlack);
}

}  // namespace kestrava::predict
