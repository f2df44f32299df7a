// Makes the list of world cities that the program carries in itself:
//   make_cities PLACES-SHAPEFILE-WITHOUT-ENDING data/places/cities.txt
#include <algorithm>
#include <array>
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>
#include <vector>

#include "Folding.h"
#include "PlacesTable.h"

namespace {

using kestrava::store::FoldForSearch;
using kestrava::tools::PlacesRow;

/// Slips of the table that a reader would stumble over; the right names of the cities stand in its other columns.
constexpr std::array<std::pair<std::string_view, std::string_view>, 8> kSlips{{
    {"Ad Damman", "Ad Dammam"},
    {"Oostanay", "Kostanay"},
    {"Pizen", "Plzen"},
    {"Poitier", "Poitiers"},
    {"Shenyeng", "Shenyang"},
    {"Shijianzhuang", "Shijiazhuang"},
    {"Vatican (Holy Sea)", "Vatican City"},
    {"Ãstfold", "Østfold"},
}};

struct Entry {
  std::string name;
  std::string country;
  std::string region;
  double latitudeDeg = 0;
  double longitudeEastDeg = 0;
  int population = 0;
  std::vector<std::string> otherNames;
};

std::string Mended(const std::string& text) {
  for (const auto& [slip, right] : kSlips) {
    if (text == slip) return std::string(right);
  }
  return text;
}

bool HasMarkedLetters(std::string_view text) {
  return std::any_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

/// Takes another name of the city in, unless the list of names would not find more by it. One that only adds accents
/// is how the city is written: "Sao Paulo" becomes "São Paulo".
void AddName(Entry& entry, const std::string& name) {
  const std::string folded = FoldForSearch(name);
  if (folded.empty()) return;
  if (folded == FoldForSearch(entry.name)) {
    if (HasMarkedLetters(name) && !HasMarkedLetters(entry.name)) entry.name = name;
    return;
  }
  const auto isKnown = [&](const std::string& known) { return FoldForSearch(known) == folded; };
  if (std::none_of(entry.otherNames.begin(), entry.otherNames.end(), isKnown)) entry.otherNames.push_back(name);
}

Entry EntryOf(const PlacesRow& row) {
  Entry entry{Mended(row.name),
              Mended(row.country),
              Mended(row.region),
              row.latitudeDeg,
              row.longitudeEastDeg,
              std::max(row.population, 0),
              {}};                                                        // -99 stands for a number that nobody knows
  if (entry.region.find('?') != std::string::npos) entry.region.clear();  // letters that the table's encoding lost
  if (row.country == "Antarctica") {
    entry.region = row.inParentheses;
  } else {
    AddName(entry, row.inParentheses);
  }
  for (std::size_t start = 0; start <= row.alternatives.size();) {
    const std::size_t end = std::min(row.alternatives.find('|', start), row.alternatives.size());
    AddName(entry, row.alternatives.substr(start, end - start));
    start = end + 1;
  }
  AddName(entry, row.urbanAreaName);
  return entry;
}

/// By country, name and region, the larger first.
bool StandsBefore(const Entry& a, const Entry& b) {
  return std::tie(a.country, a.name, a.region, b.population) < std::tie(b.country, b.name, b.region, a.population);
}

bool IsTheSame(const Entry& a, const Entry& b) {
  return std::tie(a.country, a.name, a.region) == std::tie(b.country, b.name, b.region);
}

std::string Line(const Entry& entry) {
  std::array<char, 64> angles{};
  std::snprintf(angles.data(), angles.size(), "%.4f;%.4f", entry.latitudeDeg, entry.longitudeEastDeg);
  std::string names;
  for (const auto& name : entry.otherNames) names += (names.empty() ? "" : "|") + name;
  const std::string kNoHeight;  // the table has no column of heights
  for (const auto& text : {entry.name, entry.country, entry.region, names}) {
    if (text.find_first_of(";\r\n") != std::string::npos) throw std::runtime_error("a separator inside " + text);
  }
  return entry.name + ";" + entry.country + ";" + entry.region + ";" + angles.data() + ";" + kNoHeight + ";" +
         (entry.population > 0 ? std::to_string(entry.population) : "") + ";" + names + "\n";
}

void MakeCities(const std::string& shapefile, const std::string& list) {
  std::vector<Entry> entries;
  for (const PlacesRow& row : kestrava::tools::ReadPlacesTable(shapefile)) entries.push_back(EntryOf(row));
  std::sort(entries.begin(), entries.end(), StandsBefore);
  entries.erase(std::unique(entries.begin(), entries.end(), IsTheSame), entries.end());
  std::ofstream file(list, std::ios::binary);
  file << "# Made with Natural Earth (public domain) by tools/cities; do not edit.\n"
          "# name;country;region;latitude;longitude east;height in m;population;other names\n";
  for (const Entry& entry : entries) file << Line(entry);
  if (!file.flush()) throw std::runtime_error("cannot write " + list);
  std::printf("%zu cities\n", entries.size());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fputs("usage: make_cities PLACES-SHAPEFILE-WITHOUT-ENDING LIST\n", stderr);
    return 2;
  }
  try {
    MakeCities(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make_cities: %s\n", error.what());
    return 1;
  }
}
