#include "store/Cities.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <unordered_map>
#include <utility>

#include "platform/Fault.h"
#include "platform/Text.h"

#include "Folding.h"

namespace kestrava::store {

namespace {

// name;country;region;latitude;longitude east;height;population;other names, parted by "|"
constexpr std::size_t kHeight = 5;
constexpr std::size_t kPopulation = 6;
constexpr std::size_t kOtherNames = 7;
constexpr std::size_t kFields = 8;  // all of them: a line cut off inside a number must not move its city

/// A whole field as a number with a decimal point, on every machine. @return false if it is none
template <class Number>
bool ReadNumber(std::string_view field, Number& number) {
  field = platform::Trim(field);
  const auto [end, error] = std::from_chars(field.data(), field.data() + field.size(), number);
  return error == std::errc{} && end == field.data() + field.size();
}

/// An angle within +-limit; what is not finite fails the comparison.
bool ReadAngle(std::string_view field, double limitDeg, double& angleDeg) {
  return ReadNumber(field, angleDeg) && std::abs(angleDeg) <= limitDeg;
}

/// Adds a text to a key as a line of its own, unless nothing of it can be typed.
void AddToKey(std::string& key, std::string_view text) {
  const std::string folded = FoldForSearch(text);
  if (folded.empty()) return;
  if (!key.empty()) key += '\n';
  key += folded;
}

bool ReadCity(std::string_view line, City& city) {
  const std::vector<std::string> fields = platform::SplitAt(line, ';');
  if (fields.size() != kFields) return false;
  city.name = platform::Trim(fields[0]);
  city.country = platform::Trim(fields[1]);
  city.region = platform::Trim(fields[2]);
  if (!ReadAngle(fields[3], 90, city.latitudeDeg) || !ReadAngle(fields[4], 180, city.longitudeEastDeg)) return false;
  int heightM = 0;
  if (!platform::Trim(fields[kHeight]).empty()) {
    if (!ReadNumber(fields[kHeight], heightM)) return false;
    city.heightM = heightM;
  }
  if (!platform::Trim(fields[kPopulation]).empty() && !ReadNumber(fields[kPopulation], city.population)) return false;
  AddToKey(city.nameKey, city.name);
  if (city.nameKey.empty()) return false;
  for (const auto& name : platform::SplitAt(fields[kOtherNames], '|')) AddToKey(city.nameKey, name);
  AddToKey(city.placeKey, city.region);
  AddToKey(city.placeKey, city.country);
  return true;
}

void MarkSharedNames(std::vector<City>& cities) {
  std::unordered_map<std::string, City*> firstOfText;
  for (auto& city : cities) {
    const std::string ownName = city.nameKey.substr(0, city.nameKey.find('\n'));
    const auto [first, isNew] = firstOfText.emplace(ownName + "\n" + city.country, &city);
    if (!isNew) first->second->sharesItsName = city.sharesItsName = true;
  }
}

/// One way to understand what was typed: a name, and parts of region or country that must all fit.
struct Reading {
  std::string name;
  std::vector<std::string> places;
  int handicap = 0;  // of its ranks against those of better readings
};

constexpr int kNoMatch = 1000;
constexpr int kInside = 4;
constexpr int kGuessedParting = 10;  // no comma told where the name ends
constexpr int kPlaceAlone = 20;
constexpr std::size_t kMostPartings = 6;
constexpr std::size_t kLongestText = 200;  // no city of the list has half of it

/// Short forms that people write for the countries of the list.
std::string CountryOf(const std::string& folded) {
  if (folded == "usa" || folded == "us") return "united states of america";
  if (folded == "uk") return "united kingdom";
  if (folded == "uae") return "united arab emirates";
  return folded;
}

/// The name before the first comma, or before a later one: "Washington, D.C., United States" has one inside.
void AddPartedAtCommas(std::vector<Reading>& readings, const std::vector<std::string>& parts) {
  std::string name;
  const std::size_t partings = std::min(parts.size() - 1, kMostPartings);
  for (std::size_t i = 0; i < partings; ++i) {
    name += parts[i] + ",";
    Reading reading{FoldForSearch(name), {}, 0};
    if (reading.name.empty()) reading.handicap = kPlaceAlone;
    for (std::size_t k = i + 1; k < parts.size(); ++k) {
      const std::string folded = FoldForSearch(parts[k]);
      if (!folded.empty()) reading.places.push_back(CountryOf(folded));
    }
    readings.push_back(std::move(reading));
  }
}

std::vector<Reading> ReadingsOf(std::string_view text) {
  std::vector<Reading> readings;
  const std::string whole = FoldForSearch(text);
  if (whole.empty() || whole.size() > kLongestText) return readings;
  readings.push_back({whole, {}, 0});
  const std::vector<std::string> parts = platform::SplitAt(text, ',');
  if (parts.size() > 1) {
    AddPartedAtCommas(readings, parts);
    return readings;
  }
  std::size_t blank = whole.rfind(' ');
  for (std::size_t i = 0; i < kMostPartings && blank != std::string::npos; ++i, blank = whole.rfind(' ', blank - 1)) {
    readings.push_back({whole.substr(0, blank), {CountryOf(whole.substr(blank + 1))}, kGuessedParting});
  }
  readings.push_back({{}, {CountryOf(whole)}, kPlaceAlone});
  return readings;
}

/// 0 for the whole first line of a key, 1 for a whole later one (another name of the city), 2 for the beginning of one,
/// 3 for that of a word, 4 inside, kNoMatch.
int KeyRank(std::string_view key, std::string_view typed) {
  if (typed.empty()) return 0;
  int best = kNoMatch;
  for (std::size_t at = key.find(typed); at != std::string_view::npos; at = key.find(typed, at + 1)) {
    const std::size_t end = at + typed.size();
    const bool beginsLine = at == 0 || key[at - 1] == '\n';
    const bool isWhole = beginsLine && (end == key.size() || key[end] == '\n');
    best = std::min(best, isWhole ? (at == 0 ? 0 : 1) : beginsLine ? 2 : key[at - 1] == ' ' ? 3 : kInside);
  }
  return best;
}

int RankOf(const City& city, const Reading& reading) {
  const int rank = KeyRank(city.nameKey, reading.name);
  if (rank == kNoMatch) return kNoMatch;
  const bool fits = std::all_of(reading.places.begin(), reading.places.end(),
                                [&](const std::string& place) { return KeyRank(city.placeKey, place) < kInside; });
  return fits ? rank + reading.handicap : kNoMatch;
}

int RankOf(const City& city, const std::vector<Reading>& readings) {
  int best = kNoMatch;
  for (const auto& reading : readings) best = std::min(best, RankOf(city, reading));
  return best;
}

struct Hit {
  int rank;
  const City* city;
};

bool ComesBefore(const Hit& a, const Hit& b) {
  if (a.rank != b.rank) return a.rank < b.rank;
  if (a.city->population != b.city->population) return a.city->population > b.city->population;
  return a.city < b.city;
}

}  // namespace

std::vector<City> ReadCities(std::string_view text) {
  std::vector<City> cities;
  int badLines = 0;
  std::size_t firstBad = 0;
  // Not by the common line reader: to it one damaged byte turns a whole text into Latin-1, here it costs its line
  // alone.
  const std::vector<std::string> lines = platform::SplitAt(text, '\n');
  cities.reserve(lines.size());
  for (std::size_t i = 0; i < lines.size(); ++i) {
    bool isDamaged = false;
    const std::string line = platform::ToUtf8(lines[i], &isDamaged);
    if (platform::Trim(line).empty() || line.front() == '#') continue;
    City city;
    if (!isDamaged && ReadCity(line, city)) {
      cities.push_back(std::move(city));
    } else if (badLines++ == 0) {
      firstBad = i + 1;
    }
  }
  if (badLines > 0) {
    platform::ErrorTrap(
        "Type mismatch: lines left out " + std::to_string(badLines) + ", the first is line " + std::to_string(firstBad),
        "Cities ReadCities");
  }
  MarkSharedNames(cities);
  return cities;
}

std::vector<const City*> FindCities(const std::vector<City>& cities, std::string_view text, int most) {
  const std::vector<Reading> readings = ReadingsOf(text);
  if (readings.empty() || most <= 0) return {};
  std::vector<Hit> hits;
  for (const auto& city : cities) {
    const int rank = RankOf(city, readings);
    if (rank < kNoMatch) hits.push_back({rank, &city});
  }
  const auto wanted = static_cast<std::ptrdiff_t>(std::min(hits.size(), static_cast<std::size_t>(most)));
  std::partial_sort(hits.begin(), hits.begin() + wanted, hits.end(), ComesBefore);
  hits.resize(static_cast<std::size_t>(wanted));
  std::vector<const City*> found;
  std::transform(hits.begin(), hits.end(), std::back_inserter(found), [](const Hit& hit) { return hit.city; });
  return found;
}

std::string CityText(const City& city) {
  std::string text = city.name;
  if (city.sharesItsName && !city.region.empty()) text += ", " + city.region;
  if (!city.country.empty()) text += ", " + city.country;
  return text;
}

}  // namespace kestrava::store
