#include "orbit/ElementReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

#include "platform/Text.h"

#include "ElementFields.h"

namespace kestrava::orbit {
namespace {

constexpr std::size_t kLineLength = 69;
/// What a line must have at least for its elements to be there, where its length is not insisted on.
constexpr std::size_t kShortestLine1 = 61, kShortestLine2 = 63;
/// A line 1 or 2 that stands alone is the rest of a set from this length on; shorter ones are names or remarks.
constexpr std::size_t kClearlyElements = 60;

/// Hands out the lines of a text that are not blank, without blanks at their ends.
class Lines {
 public:
  explicit Lines(std::string_view text) : rest_(text) {}

  /// @return false at the end
  bool Next(std::string_view& line) {
    while (!rest_.empty()) {
      const std::size_t end = std::min(Find('\n', nextLf_), Find('\r', nextCr_)) - consumed_;
      line = rest_.substr(0, end);
      const std::size_t step = std::min(end + 1, rest_.size());
      rest_.remove_prefix(step);
      consumed_ += step;
      while (!line.empty() && (line.back() == ' ' || line.back() == '\t')) line.remove_suffix(1);
      if (!line.empty()) return true;
    }
    return false;
  }

 private:
  /// Place of the next such character in the whole text, looked for only when the last one is behind: a text without
  /// any must not be searched to its end for each line.
  std::size_t Find(char wanted, std::size_t& next) {
    if (next < consumed_ || next == kUnknown) {
      const void* found = std::memchr(rest_.data(), wanted, rest_.size());
      next = found == nullptr ? consumed_ + rest_.size()
                              : consumed_ + static_cast<std::size_t>(static_cast<const char*>(found) - rest_.data());
    }
    return next;
  }

  static constexpr std::size_t kUnknown = static_cast<std::size_t>(-1);
  std::string_view rest_;
  std::size_t consumed_ = 0, nextLf_ = kUnknown, nextCr_ = kUnknown;
};

bool IsElementLine(std::string_view line, char number) {
  return line.size() > 1 && line[0] == number && (line[1] == ' ' || line[1] == '\t');
}

bool ChecksumIsRight(const std::array<char, kLineLength>& line) {
  int sum = 0;
  for (std::size_t i = 0; i + 1 < kLineLength; ++i) {
    const char c = line[i];
    if (c >= '0' && c <= '9') sum += c - '0';
    if (c == '-') ++sum;
  }
  return line[kLineLength - 1] == '0' + sum % 10;
}

/// Serial day of 1 January, for the years that two digits can tell (1957 to 2056).
double SerialOfNewYear(int year) {
  const int leapDays = (year - 1901) / 4;
  return 2 + 365 * (year - 1900) + leapDays;
}

/// Reads one set; what is wrong with it, if anything, stands in `fault` afterwards.
class SetReader {
 public:
  SetReader(std::string_view line1, std::string_view line2, const ReaderRules& rules) {
    const std::array<std::string_view, 2> lines = {line1, line2};
    if (rules.insistOnLength ? line1.size() != kLineLength || line2.size() != kLineLength
                             : line1.size() < kShortestLine1 || line2.size() < kShortestLine2) {
      fault = "wrong length";
      return;
    }
    for (std::size_t i = 0; i < 2; ++i) {
      std::array<char, kLineLength>& padded = padded_[i];
      padded.fill(' ');
      std::memcpy(padded.data(), lines[i].data(), std::min(lines[i].size(), kLineLength));
      std::replace(padded.begin(), padded.end(), '\t', ' ');
    }
    if (rules.insistOnChecksums && !(ChecksumIsRight(padded_[0]) && ChecksumIsRight(padded_[1]))) {
      fault = "wrong checksum";
      return;
    }
    ReadLine1();
    ReadLine2();
    if (fault.empty()) Judge();
  }

  ElementSet set;
  std::string_view fault;

 private:
  /// Columns counted from 1, as the format's own descriptions count them.
  std::string_view Field(std::size_t line, std::size_t first, std::size_t last) const {
    return {&padded_[line - 1][first - 1], last - first + 1};
  }
  template <class T>
  T Need(const std::optional<T>& value) {
    if (!value) fault = "no number where one belongs";
    return value.value_or(T{});
  }
  double Optional(std::string_view field) { return TrimBlanks(field).empty() ? 0 : Need(DecimalField(field)); }

  void ReadLine1() {
    set.catalogueNumber = CatalogueNumberFrom(Field(1, 3, 7));
    if (set.catalogueNumber < 0 || CatalogueNumberFrom(Field(2, 3, 7)) != set.catalogueNumber) {
      fault = "catalogue number";
    }
    const int shortYear = Need(CountField(Field(1, 19, 20)));
    double day = Need(DecimalField(Field(1, 21, 32)));
    if (!(day >= 1 && day < 367)) {
      fault = "no epoch";
      day = 1;
    }
    constexpr int kFirstOfLastCentury = 57;
    const int year = shortYear >= kFirstOfLastCentury ? 1900 + shortYear : 2000 + shortYear;
    const std::string_view dayText = Field(1, 21, 32);
    const std::size_t point = dayText.find('.');
    const double wholeDay = std::floor(day);
    set.epoch.wholeDays = SerialOfNewYear(year) + wholeDay - 1;
    set.epoch.dayFraction = point == std::string_view::npos ? 0 : Optional(dayText.substr(point));
    set.meanMotionDotRevPerDay2 = Optional(Field(1, 34, 43));
    set.meanMotionDotDotRevPerDay3 = Need(PowerField(Field(1, 45, 52)));
    set.dragTermPerEarthRadius = Need(PowerField(Field(1, 54, 61)));
    set.elementNumber = Need(CountField(Field(1, 65, 68)));
  }

  void ReadLine2() {
    set.inclinationDeg = Need(DecimalField(Field(2, 9, 16)));
    set.ascendingNodeDeg = Need(DecimalField(Field(2, 18, 25)));
    set.eccentricity = Need(FractionField(Field(2, 27, 33)));
    set.argumentOfPerigeeDeg = Need(DecimalField(Field(2, 35, 42)));
    set.meanAnomalyDeg = Need(DecimalField(Field(2, 44, 51)));
    set.meanMotionRevPerDay = Need(DecimalField(Field(2, 53, 63)));
    set.revolutionNumber = Need(CountField(Field(2, 64, 68)));
  }

  void Judge() {
    const auto isAngle = [](double degrees) { return degrees >= 0 && degrees <= 360; };
    if (!(set.inclinationDeg >= 0 && set.inclinationDeg <= 180) || !isAngle(set.ascendingNodeDeg) ||
        !isAngle(set.argumentOfPerigeeDeg) || !isAngle(set.meanAnomalyDeg)) {
      fault = "angle out of range";
    }
    if (!(set.eccentricity < 1)) fault = "eccentricity of 1 or more";
    if (!(set.meanMotionRevPerDay > 0)) fault = "no mean motion";
  }

  std::array<std::array<char, kLineLength>, 2> padded_;
};

bool HasHighBytes(std::string_view text) {
  std::size_t i = 0;
  for (; i + sizeof(std::uint64_t) <= text.size(); i += sizeof(std::uint64_t)) {
    std::uint64_t word = 0;
    std::memcpy(&word, text.data() + i, sizeof word);
    if ((word & 0x8080808080808080U) != 0) return true;
  }
  return std::any_of(text.begin() + static_cast<std::ptrdiff_t>(i), text.end(), [](char c) { return (c & 0x80) != 0; });
}

/// The line in front of a set names it, unless it is a remark or belongs to the set before.
std::string NameOf(std::string_view lineBefore, std::string_view line1) {
  std::string name;
  if (!lineBefore.empty() && lineBefore.front() != '#') name = platform::SatelliteName(lineBefore);
  if (name.empty() && line1.size() >= 7) name = platform::SatelliteName(TrimBlanks(line1.substr(2, 5)));
  return name;
}

void ReadSet(std::string_view lineBefore, std::string_view line1, std::string_view line2, const ReaderRules& rules,
             ElementFile& file) {
  SetReader reader(line1, line2, rules);
  std::string name = NameOf(lineBefore, line1);
  if (!reader.fault.empty()) {
    file.refused.push_back({std::move(name), std::string(reader.fault)});
    return;
  }
  reader.set.name = std::move(name);
  file.sets.push_back(std::move(reader.set));
}

bool IsOrphan(std::string_view line) {
  return line.size() >= kClearlyElements && (IsElementLine(line, '1') || IsElementLine(line, '2'));
}

ElementFile ReadLines(std::string_view text, const ReaderRules& rules) {
  ElementFile file;
  constexpr std::size_t kBytesOfOneSet = 160;
  file.sets.reserve(text.size() / kBytesOfOneSet);
  Lines lines(text);
  std::string_view before, current, next;
  bool more = lines.Next(current);
  while (more) {
    bool hasNext = lines.Next(next);
    if (hasNext && IsElementLine(current, '1') && IsElementLine(next, '2')) {
      ReadSet(before, current, next, rules, file);
      before = {};
      more = lines.Next(current);
      continue;
    }
    if (IsOrphan(current)) {
      file.refused.push_back({NameOf(before, current), "half a set"});
      before = {};
    } else {
      before = current;
    }
    current = next;
    more = hasNext;
  }
  return file;
}

}  // namespace

int CatalogueNumberFrom(std::string_view field) {
  if (field.size() != 5) return -1;
  int first = 0;
  if (const char letter = field.front(); letter >= 'A' && letter <= 'Z') {
    if (letter == 'I' || letter == 'O') return -1;
    first = 10 + (letter - 'A') - (letter > 'I' ? 1 : 0) - (letter > 'O' ? 1 : 0);
    field.remove_prefix(1);
    if (field.find(' ') != std::string_view::npos) return -1;
  }
  const std::optional<int> digits = CountField(field);
  if (!digits || TrimBlanks(field).empty()) return -1;
  return first * 10000 + *digits;
}

ElementFile ReadElementSets(std::string_view text, const ReaderRules& rules) {
  // almost all files are plain ASCII and need no second copy
  return HasHighBytes(text) ? ReadLines(platform::ToUtf8(text), rules) : ReadLines(text, rules);
}

}  // namespace kestrava::orbit
