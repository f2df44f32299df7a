// What a user may have meant by a name that nobody has.
#include <algorithm>
#include <cstddef>
#include <numeric>
#include <utility>

#include "platform/Text.h"

#include "Station.h"

namespace kestrava::cli {

namespace {

constexpr std::size_t kMostSuggestions = 5;
constexpr std::size_t kOneLetter = 1;

/// How many letters must be changed, put in, taken out or swapped with their neighbour to make one text the other
/// (Damerau, 1964; no letter is touched twice).
std::size_t LettersApart(std::string_view a, std::string_view b) {
  std::vector<std::size_t> beforeLast;
  std::vector<std::size_t> last;
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= a.size(); ++i) {
    beforeLast = std::exchange(last, row);
    row[0] = i;
    for (std::size_t j = 1; j <= b.size(); ++j) {
      row[j] = std::min({last[j] + 1, row[j - 1] + 1, last[j - 1] + (a[i - 1] == b[j - 1] ? 0 : 1)});
      const bool swapped = i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1];
      if (swapped) row[j] = std::min(row[j], beforeLast[j - 2] + 1);
    }
  }
  return row[b.size()];
}

/// Letters and digits in capitals: what is left of a name when it is typed from memory.
std::string Bare(std::string_view name) {
  std::string bare;
  for (const char c : platform::ToCapitals(name)) {
    if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || (c & 0x80) != 0) bare += c;
  }
  return bare;
}

/// The smaller the nearer; nothing above the bound is near. A name that contains the other comes before all that
/// differ.
std::size_t DistanceBetween(const std::string& asked, const std::string& name, std::size_t far) {
  if (asked.empty() || name.empty()) return far;
  if (platform::Contains(name, asked)) return 0;
  if (name.size() > 2 && platform::Contains(asked, name)) return 1;
  const std::size_t apart = LettersApart(asked, name);
  return apart <= std::max(kOneLetter, asked.size() / 3) && apart < asked.size() ? apart + 1 : far;
}

}  // namespace

std::vector<std::string> NearNames(std::string_view asked, const std::vector<std::string>& names) {
  constexpr std::size_t kFar = 1000;
  constexpr std::size_t kLongestAsked = 64;
  const std::string bare = Bare(asked.substr(0, kLongestAsked));
  std::vector<std::pair<std::size_t, const std::string*>> near;
  for (const std::string& name : names) {
    const std::size_t distance = DistanceBetween(bare, Bare(name), kFar);
    if (distance < kFar) near.emplace_back(distance, &name);
  }
  std::stable_sort(near.begin(), near.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> best;
  for (const auto& [distance, name] : near) {
    if (best.size() < kMostSuggestions) best.push_back(*name);
  }
  return best;
}

std::string DidYouMean(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (i > 0) text += i + 1 == names.size() ? " or " : ", ";
    text += "'" + names[i] + "'";
  }
  return text.empty() ? text : " Did you mean " + text + "?";
}

}  // namespace kestrava::cli
