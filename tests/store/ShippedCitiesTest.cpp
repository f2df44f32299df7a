// The shipped list of world cities, as it lies in the source tree.
#include <cmath>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "store/Cities.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

class ShippedCities : public testing::House {
 protected:
  const std::vector<City>& All() {
    static const std::vector<City> cities = Read();
    return cities;
  }
  std::string First(std::string_view text) {
    const auto found = FindCities(All(), text, 1);
    return found.empty() ? "none" : CityText(*found.front());
  }

 private:
  static std::vector<City> Read() {
    std::ifstream file(KESTRAVA_SOURCE_DIR "data/places/cities.txt", std::ios::binary);
    EXPECT_TRUE(file.is_open());
    return ReadCities(std::string{std::istreambuf_iterator<char>(file), {}});
  }
};

/// ISO 6709 angles as the source writes them: degrees and minutes.
struct Known {
  const char* typed;
  int latitudeDegMin;
  int longitudeEastDegMin;
};

double Degrees(int degMin) {
  return degMin / 100 + degMin % 100 / 60.0;  // both parts carry the sign
}

// Places of the IANA time zone database, zone.tab of release 2026f (public domain), given there to the minute.
constexpr Known kKnown[] = {
    {"London", 5130, -7},          {"Sydney", -3352, 15113},       {"Guayaquil", -210, -7950},
    {"Zurich", 4723, 832},         {"Buenos Aires", -3436, -5827}, {"Ushuaia", -5448, -6818},
    {"Hobart", -4253, 14719},      {"Sao Paulo", -2332, -4637},    {"Vancouver", 4916, -12307},
    {"Shanghai", 3114, 12128},     {"Bogota", 436, -7405},         {"Havana", 2308, -8222},
    {"Berlin", 5230, 1322},        {"Algiers", 3647, 303},         {"Libreville", 23, 927},
    {"Accra", 533, -13},           {"Kolkata", 2232, 8822},        {"Reykjavik", 6409, -2151},
    {"Tokyo", 3539, 13944},        {"Nairobi", -117, 3649},        {"Mexico City", 1924, -9909},
    {"Auckland", -3652, 17446},    {"Lima", -1203, -7703},         {"Lisbon", 3843, -908},
    {"Moscow", 5545, 3737},        {"Singapore", 117, 10351},      {"New York", 4042, -7400},
    {"Los Angeles", 3403, -11814}, {"Anchorage", 6113, -14954},    {"Honolulu", 2118, -15751},
    {"Apia", -1350, -17144},       {"Johannesburg", -2615, 2800},
};

TEST_F(ShippedCities, KnownOnesLieWhereAnIndependentTableHasThem) {
  for (const Known& known : kKnown) {
    const auto found = FindCities(All(), known.typed, 1);
    ASSERT_EQ(found.size(), 1U) << known.typed;
    EXPECT_NEAR(found[0]->latitudeDeg, Degrees(known.latitudeDegMin), 0.1) << known.typed;
    EXPECT_NEAR(found[0]->longitudeEastDeg, Degrees(known.longitudeEastDegMin), 0.1) << known.typed;
  }
}

TEST_F(ShippedCities, EveryLineIsReadWithoutAWordInTheLog) {
  EXPECT_EQ(All().size(), 7321U);
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(ShippedCities, EachHasACountryAndANameThatAPlaceMayHave) {
  for (const City& city : All()) {
    EXPECT_FALSE(city.country.empty()) << city.name;
    EXPECT_EQ(CityText(city).find_first_of(";?\t"), std::string::npos) << city.name;
  }
}

TEST_F(ShippedCities, NoTwoAreShownAlike) {
  std::set<std::string> texts;
  for (const City& city : All()) EXPECT_TRUE(texts.insert(CityText(city)).second) << CityText(city);
}

TEST_F(ShippedCities, EachIsTheFirstForItsOwnText) {
  for (const City& city : All()) EXPECT_EQ(First(CityText(city)), CityText(city));
}

TEST_F(ShippedCities, NoneLiesWhereAMissingPointWouldLie) {
  for (const City& city : All()) {
    EXPECT_GT(std::abs(city.latitudeDeg) + std::abs(city.longitudeEastDeg), 1.0) << CityText(city);
  }
}

TEST_F(ShippedCities, NoHeightIsToldBecauseTheTableHasNone) {
  for (const City& city : All()) EXPECT_FALSE(city.heightM.has_value()) << CityText(city);
}

TEST_F(ShippedCities, PeopleFindThemAsTheyWriteThem) {
  EXPECT_EQ(First("zurich"), "Zürich, Switzerland");
  EXPECT_EQ(First("sao paulo"), "São Paulo, Brazil");
  EXPECT_EQ(First("munchen"), "Munich, Germany");
  EXPECT_EQ(First("münchen"), "Munich, Germany");
  EXPECT_EQ(First("koln"), "Cologne, Germany");
  EXPECT_EQ(First("copenhagen"), "København, Denmark");
  EXPECT_EQ(First("bombay"), "Mumbai, India");
  EXPECT_EQ(First("london, united states"), "London, United States of America");
  EXPECT_EQ(First("washington dc"), "Washington, D.C., United States of America");
  EXPECT_EQ(First("Washington, D.C."), "Washington, D.C., United States of America");
  EXPECT_EQ(First("portland, oregon"), "Portland, Oregon, United States of America");
  EXPECT_EQ(First("london, ontario"), "London, Canada");
  EXPECT_EQ(First("st petersburg"), "St. Petersburg, Russia");
  EXPECT_EQ(First("plzeň"), "Plzen, Czech Republic");
  EXPECT_EQ(First("reykjavik"), "Reykjavík, Iceland");
}

TEST_F(ShippedCities, ACapitalIsFoundBeforeItsNameIsWhole) {
  EXPECT_EQ(First("lond"), "London, United Kingdom");
  EXPECT_EQ(First("quit"), "Quito, Ecuador");
  EXPECT_EQ(First("toky"), "Tokyo, Japan");
}

TEST_F(ShippedCities, ATextThatIsNoCityFindsNone) {
  EXPECT_EQ(First("qqqq"), "none");
  EXPECT_EQ(First(""), "none");
}

}  // namespace
}  // namespace kestrava::store
