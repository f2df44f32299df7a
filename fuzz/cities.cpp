// The list of cities, and what is typed to find one: any bytes are read without a fault, all angles are on the Earth,
// and a city that is found is found again by the text that is shown for it.
#include "store/Cities.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

#include "platform/Text.h"

#include "DataFile.h"
#include "Fuzz.h"

using kestrava::fuzz::Check;
using kestrava::store::City;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view input = kestrava::fuzz::TextOf(data, size);
  const std::size_t end = std::min(input.find('\n'), input.size());  // the first line is typed, the rest is the list
  const kestrava::fuzz::DataFile machine("none", "");
  const auto cities = kestrava::store::ReadCities(input.substr(std::min(end + 1, size)));
  for (const City& city : cities) {
    Check(std::abs(city.latitudeDeg) <= 90 && std::abs(city.longitudeEastDeg) <= 180, "the city is on the Earth");
    Check(!city.name.empty() && kestrava::platform::IsUtf8(city.name), "the city has a name in letters");
    Check(!city.nameKey.empty(), "the city can be looked for");
  }
  const auto found = kestrava::store::FindCities(cities, input.substr(0, end), 10);
  Check(found.size() <= std::min<std::size_t>(10, cities.size()), "no more than asked for");
  for (const City* city : found) {
    Check(city >= cities.data() && city < cities.data() + cities.size(), "what is found stands in the list");
    const auto again = kestrava::store::FindCities(cities, city->name, static_cast<int>(cities.size()));
    Check(std::find(again.begin(), again.end(), city) != again.end(), "a city is found by its name");
  }
  return 0;
}
