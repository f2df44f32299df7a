#include "platform/Format.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string>
#include <utility>

#include "platform/Doors.h"

#include "Decimal.h"

namespace kestrava::platform {

namespace {

bool IsPlace(char c) {
  return c == '0' || c == '#';
}

/// What a number pattern asks for, found in one walk over it.
struct NumberPattern {
  std::size_t point = std::string_view::npos;
  int wholePlaces = 0;
  int fractionPlaces = 0;
  int lastForcedFraction = 0;  // places behind the point up to the last '0'
  std::size_t firstPlace = std::string_view::npos;
  std::size_t lastWholePlace = 0;
  bool grouped = false;
};

NumberPattern ReadPattern(std::string_view pattern) {
  NumberPattern found;
  bool commaPending = false;
  for (std::size_t i = 0; i < pattern.size(); ++i) {
    const char c = pattern[i];
    if (c == '.' && found.point == std::string_view::npos) {
      found.point = i;
    } else if (IsPlace(c) && found.point == std::string_view::npos) {
      if (found.wholePlaces == 0) found.firstPlace = i;
      found.grouped = found.grouped || commaPending;
      found.lastWholePlace = i;
      ++found.wholePlaces;
    } else if (IsPlace(c)) {
      ++found.fractionPlaces;
      if (c == '0') found.lastForcedFraction = found.fractionPlaces;
    } else if (c == ',' && found.wholePlaces > 0 && found.point == std::string_view::npos) {
      commaPending = true;
    }
  }
  return found;
}

/// Writes one number into its pattern, from left to right.
class NumberWriter {
 public:
  NumberWriter(const NumberPattern& pattern, const Decimal& number)
      : pattern_(pattern),
        number_(number),
        wholeDigits_(number.digits.empty() ? 0 : number.exponent + 1),
        decimalSign_(TheLocale().DecimalSign()),
        groupSign_(pattern.grouped ? TheLocale().GroupSign() : std::string()) {}

  std::string Write(std::string_view text) {
    if (number_.negative) out_ += '-';
    for (std::size_t i = 0; i < text.size(); ++i) {
      const char c = text[i];
      if (i == pattern_.point) {
        WritePoint();
      } else if (IsPlace(c) && i < pattern_.point) {
        WriteWholePlace(c);
      } else if (IsPlace(c)) {
        WriteFractionPlace();
      } else if (c != ',' || i < pattern_.firstPlace || i > pattern_.lastWholePlace) {
        out_ += c;
      }
    }
    return std::move(out_);
  }

 private:
  /// The digit `place` places left of the point (0: the ones; negative: behind the point).
  char DigitAt(int place) const {
    const int i = number_.exponent - place;
    return i >= 0 && i < static_cast<int>(number_.digits.size()) ? number_.digits[static_cast<std::size_t>(i)] : '0';
  }

  void WriteWholeDigit(int place) {
    out_ += DigitAt(place);
    if (place > 0 && place % 3 == 0) out_ += groupSign_;
  }

  /// The leftmost place takes all digits that have no place of their own.
  void WriteDigitsWithoutPlace() {
    for (int place = wholeDigits_ - 1; place >= pattern_.wholePlaces; --place) WriteWholeDigit(place);
  }

  void WriteWholePlace(char c) {
    if (wholeDone_ == 0) WriteDigitsWithoutPlace();
    const int place = pattern_.wholePlaces - 1 - wholeDone_++;
    forced_ = forced_ || c == '0';
    if (place < wholeDigits_ || forced_) WriteWholeDigit(place);
  }

  void WritePoint() {
    if (pattern_.wholePlaces == 0) WriteDigitsWithoutPlace();
    out_ += decimalSign_;
  }

  void WriteFractionPlace() {
    ++fractionDone_;
    const int digitsBehindPoint = static_cast<int>(number_.digits.size()) - 1 - number_.exponent;
    if (fractionDone_ <= pattern_.lastForcedFraction || fractionDone_ <= digitsBehindPoint) {
      out_ += DigitAt(-fractionDone_);
    }
  }

  const NumberPattern& pattern_;
  const Decimal& number_;
  int wholeDigits_;
  std::string decimalSign_;
  std::string groupSign_;
  int wholeDone_ = 0;
  int fractionDone_ = 0;
  bool forced_ = false;
  std::string out_;
};

/// The number of zeros that a text consists of; none if it holds anything else.
std::optional<std::size_t> CountZeros(std::string_view text) {
  if (text.find_first_not_of('0') != std::string_view::npos) return {};
  return text.size();
}

void AppendDigits(std::string& out, long number, std::size_t width) {
  const std::string digits = std::to_string(number);
  if (digits.size() < width) out.append(width - digits.size(), '0');
  out += digits;
}

/// The short way for patterns of zeros and a point ("000.00") and numbers of ordinary size, which every tick of the map
/// takes many times. Left to the long way: whatever is so near a half that only its digits tell how it rounds.
std::optional<std::string> FormatZeros(double value, std::string_view pattern) {
  constexpr std::array<double, 4> kScales{1, 10, 100, 1000};
  constexpr double kLargest = 1e8;
  const std::size_t point = std::min(pattern.find('.'), pattern.size());
  const auto wholePlaces = CountZeros(pattern.substr(0, point));
  const auto fractionPlaces = CountZeros(pattern.substr(std::min(point + 1, pattern.size())));
  if (!wholePlaces || !fractionPlaces || *wholePlaces == 0 || *fractionPlaces >= kScales.size()) return {};
  const double scale = kScales[*fractionPlaces];
  const double scaled = value * scale;
  if (!(value >= 0 && scaled < kLargest) || std::abs(scaled - std::floor(scaled) - 0.5) < 1e-6) return {};
  const auto rounded = static_cast<long>(scaled + 0.5);
  const auto scaleWhole = static_cast<long>(scale);
  std::string text;
  AppendDigits(text, rounded / scaleWhole, *wholePlaces);
  if (point == pattern.size()) return text;
  text += TheLocale().DecimalSign();
  if (*fractionPlaces > 0) AppendDigits(text, rounded % scaleWhole, *fractionPlaces);
  return text;
}

std::string FormatNumber(double value, std::string_view pattern) {
  if (auto text = FormatZeros(value, pattern)) return std::move(*text);
  const NumberPattern places = ReadPattern(pattern);
  Decimal number = ToDecimal(value);
  RoundToPlaces(number, places.fractionPlaces);
  return NumberWriter(places, number).Write(pattern);
}

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// The part of a date that a run of one pattern letter stands for.
int PartFor(char letter, bool minutes, const DateParts& parts) {
  switch (letter) {
    case 'h':
      return parts.hour;
    case 'm':
      return minutes ? parts.minute : parts.month;
    case 'n':
      return parts.minute;
    case 's':
      return parts.second;
    case 'd':
      return parts.day;
    default:
      return parts.year;
  }
}

std::string FormatTime(SerialDate value, std::string_view pattern) {
  const DateParts parts = SplitSerial(value);
  std::string out;
  char before = 0;  // the last letter of a date part; "mm" behind "hh" are minutes
  for (std::size_t i = 0; i < pattern.size();) {
    const char letter = Lower(pattern[i]);
    if (std::string_view("hmnsdy").find(letter) == std::string_view::npos) {
      out += pattern[i++];
      continue;
    }
    std::size_t run = i;
    while (run < pattern.size() && Lower(pattern[run]) == letter) ++run;
    const int part = PartFor(letter, before == 'h', parts);
    AppendDigits(out, letter == 'y' && run - i <= 2 ? part % 100 : part, run - i);
    before = letter;
    i = run;
  }
  return out;
}

}  // namespace

std::string Format(double value, std::string_view pattern) {
  if (pattern.find_first_of("0#") != std::string_view::npos) return FormatNumber(value, pattern);
  if (pattern.find_first_of("hmsdyHMSDY") != std::string_view::npos) return FormatTime(value, pattern);
  return NumberText(value);
}

bool UsesDecimalComma() {
  return Format(1.2, "0.0") == "1,2";
}

std::string ApplyCommaRule(std::string_view stored) {
  std::string text(stored);
  if (!UsesDecimalComma()) return text;
  for (char& c : text) {
    if (c == '.') c = ',';
  }
  return text;
}

}  // namespace kestrava::platform
