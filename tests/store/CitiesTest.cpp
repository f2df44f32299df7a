// Reading a list of cities and searching in it, on lists small enough to see why each answer is the right one. The
// shipped list itself is checked in ShippedCitiesTest.cpp.
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "store/Cities.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

constexpr const char* kList =
    "# name;country;region;latitude;longitude east;height;population;other names\n"
    "Zürich;Switzerland;Zürich;47.38;8.55;408;1108000;Turicum\n"
    "São Paulo;Brazil;São Paulo;-23.5587;-46.625;;18845000;\n"
    "Munich;Germany;Bayern;48.13;11.575;;1275000;München\n"
    "Paris;France;Île-de-France;48.8667;2.3333;;9904000;\n"
    "Paris;United States of America;Texas;33.66;-95.5556;;27179;\n"
    "Springfield;United States of America;Illinois;39.82;-89.65;;157482;\n"
    "Springfield;United States of America;Ohio;39.93;-83.81;;84310;\n"
    "St. Petersburg;Russia;City of St. Petersburg;59.939;30.316;;4553000;Saint Petersburg\n"
    "Bo;Sierra Leone;Southern;7.97;-11.74;;306000;\n"
    "Boston;United States of America;Massachusetts;42.33;-71.07;;4467000;\n"
    "Los Bocas;Panama;Colon;9.3;-80.2;;900;\n"
    "Rambo;Gabon;;0.5;11;;5000000;\n"
    "N'Djamena;Chad;Hadjer-Lamis;12.113;15.049;;989000;\n"
    "London;United Kingdom;Westminster;51.5;-0.1167;;8567000;\n";

class Cities : public testing::House {
 protected:
  std::vector<City> cities = ReadCities(kList);

  std::vector<std::string> Found(std::string_view text, int most = 20) const {
    std::vector<std::string> texts;
    for (const City* city : FindCities(cities, text, most)) texts.push_back(CityText(*city));
    return texts;
  }
  using Texts = std::vector<std::string>;
};

TEST_F(Cities, ALineHoldsNamePlaceAnglesHeightAndPopulation) {
  ASSERT_EQ(cities.size(), 14U);
  const City& city = cities.front();
  EXPECT_EQ(city.name, "Zürich");
  EXPECT_EQ(city.country, "Switzerland");
  EXPECT_EQ(city.region, "Zürich");
  EXPECT_DOUBLE_EQ(city.latitudeDeg, 47.38);
  EXPECT_DOUBLE_EQ(city.longitudeEastDeg, 8.55);
  EXPECT_EQ(city.heightM, 408);
  EXPECT_EQ(city.population, 1108000);
}

TEST_F(Cities, AnEmptyHeightIsNoneAndNotTheSea) {
  EXPECT_EQ(cities[1].heightM, std::nullopt);
  EXPECT_EQ(ReadCities("Hoek;Netherlands;;52;4.1;0;100;")[0].heightM, 0);
}

TEST_F(Cities, WestOfGreenwichAndSouthOfTheEquatorAreNegative) {
  EXPECT_DOUBLE_EQ(cities[1].longitudeEastDeg, -46.625);
  EXPECT_DOUBLE_EQ(cities[1].latitudeDeg, -23.5587);
}

TEST_F(Cities, TheyAreReadWithPointsOnACommaMachineToo) {
  locale.UseComma();
  EXPECT_DOUBLE_EQ(ReadCities(kList)[0].latitudeDeg, 47.38);
}

TEST_F(Cities, AnEmptyFileIsAnEmptyListWithoutAWordInTheLog) {
  EXPECT_TRUE(ReadCities("").empty());
  EXPECT_TRUE(ReadCities("\n\n# nothing yet\n").empty());
  EXPECT_TRUE(FindCities({}, "paris", 10).empty());
  EXPECT_EQ(TakeFaults(), Texts{});
}

TEST_F(Cities, BadLinesAreLeftOutAndLoggedOnce) {
  const auto left = ReadCities(
      "Bonn;Germany;;50.73;7.1;;1;\n"
      "no city at all\n"
      "North of north;Nowhere;;90.5;7;;1;\n"
      "East of east;Nowhere;;50;180.5;;1;\n"
      "Letters;Nowhere;;5o;7;;1;\n"
      "Comma;Nowhere;;50,5;7;;1;\n"
      "Not a number;Nowhere;;nan;7;;1;\n"
      "Endless;Nowhere;;50;inf;;1;\n"
      "High;Nowhere;;50;7;tall;1;\n"
      "Many;Nowhere;;50;7;;99999999999;\n"
      ";Nameless;;50;7;;1;\n"
      " - ;Without letters;;50;7;;1;\n"
      "Short;Peru;;-12;-77\n"
      "Long;Peru;;-12;-77;;1;;\n"
      "Lima;Peru;;-12;-77;;;\n");
  ASSERT_EQ(left.size(), 2U);
  EXPECT_EQ(left[0].name, "Bonn");
  EXPECT_EQ(left[1].name, "Lima");
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch: lines left out 13, the first is line 2 - Cities ReadCities"});
}

TEST_F(Cities, ACutFileKeepsTheCitiesBeforeTheCut) {
  const std::string whole = kList;
  for (std::size_t length = 0; length <= whole.size(); ++length) {
    const auto kept = ReadCities(std::string_view(whole).substr(0, length));
    ASSERT_LE(kept.size(), cities.size()) << length;
    for (std::size_t i = 0; i < kept.size(); ++i) {
      EXPECT_EQ(kept[i].name, cities[i].name) << length;
      EXPECT_EQ(kept[i].longitudeEastDeg, cities[i].longitudeEastDeg) << length;
      EXPECT_EQ(kept[i].population, cities[i].population) << length;
    }
    EXPECT_LE(TakeFaults().size(), 1U) << length;
  }
  EXPECT_EQ(ReadCities(whole.substr(0, whole.find("Munich") + 3)).size(), 2U);
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch: lines left out 1, the first is line 4 - Cities ReadCities"});
}

TEST_F(Cities, ADamagedByteCostsItsLineAlone) {
  const auto left = ReadCities("Z\xFCrich;Switzerland;;47.4;8.5;;1;\nGenève;Switzerland;;46.2;6.1;;1;\n");
  ASSERT_EQ(left.size(), 1U);
  EXPECT_EQ(left[0].name, "Genève");
  EXPECT_EQ(TakeFaults(), Texts{"Type mismatch: lines left out 1, the first is line 1 - Cities ReadCities"});
}

TEST_F(Cities, LineEndsAndAByteOrderMarkOfOtherMachinesDoNotMatter) {
  const auto read = ReadCities("\xEF\xBB\xBFQuito;Ecuador;;-0.215;-78.5;;1701000;\r\nLima;Peru;;-12.05;-77.05;;1;");
  ASSERT_EQ(read.size(), 2U);
  EXPECT_EQ(read[0].name, "Quito");
}

TEST_F(Cities, AccentsAndCapitalsDoNotMatter) {
  for (const char* typed : {"zurich", "ZÜRICH", "Zu\xCC\x88rich", "zürich", "zuric"}) {
    EXPECT_EQ(Found(typed), Texts{"Zürich, Switzerland"}) << typed;
  }
  EXPECT_EQ(Found("sao paulo"), Texts{"São Paulo, Brazil"});
  EXPECT_EQ(Found("São Paulo"), Texts{"São Paulo, Brazil"});
}

TEST_F(Cities, TheirOtherNamesAreFoundToo) {
  EXPECT_EQ(Found("munchen"), Texts{"Munich, Germany"});
  EXPECT_EQ(Found("MÜNCHEN"), Texts{"Munich, Germany"});
  EXPECT_EQ(Found("saint petersburg"), Texts{"St. Petersburg, Russia"});
}

TEST_F(Cities, ACitysOwnNameComesBeforeALargerOnesOtherName) {
  cities = ReadCities("Goma;Congo;;-1.7;29.2;;144000;Gisenyi\nGisenyi;Rwanda;;-1.7;29.3;;83000;\n");
  EXPECT_EQ(Found("gisenyi"), (Texts{"Gisenyi, Rwanda", "Goma, Congo"}));
}

TEST_F(Cities, ACommaInsideANamePartsNothing) {
  cities = ReadCities("Washington, D.C.;United States of America;District of Columbia;38.9;-77.01;;4338000;\n");
  for (const char* typed :
       {"washington, d.c.", "Washington, D.C., United States", "washington dc", "washington, usa"}) {
    EXPECT_EQ(Found(typed), Texts{"Washington, D.C., United States of America"}) << typed;
  }
}

TEST_F(Cities, SignsInsideANameMayBeTypedOrNot) {
  EXPECT_EQ(Found("st petersburg"), Texts{"St. Petersburg, Russia"});
  EXPECT_EQ(Found("ndjamena"), Texts{"N'Djamena, Chad"});
  EXPECT_EQ(Found("n\u2019djamena"), Texts{"N'Djamena, Chad"});
}

TEST_F(Cities, AWholeNameComesBeforeABeginningBeforeAWordBeforeTheInside) {
  EXPECT_EQ(Found("bo"),
            (Texts{"Bo, Sierra Leone", "Boston, United States of America", "Los Bocas, Panama", "Rambo, Gabon"}));
}

TEST_F(Cities, OfEqualMatchesTheLargerComesFirst) {
  EXPECT_EQ(Found("paris"), (Texts{"Paris, France", "Paris, United States of America"}));
  EXPECT_EQ(Found("springf")[0], "Springfield, Illinois, United States of America");
}

TEST_F(Cities, BehindACommaStandsACountryOrARegion) {
  EXPECT_EQ(Found("paris, united states"), Texts{"Paris, United States of America"});
  EXPECT_EQ(Found("Paris,Île"), Texts{"Paris, France"});
  EXPECT_EQ(Found("springfield, ohio, united"), Texts{"Springfield, Ohio, United States of America"});
  EXPECT_EQ(Found("paris, germany"), Texts{});
}

TEST_F(Cities, AShownTextFindsItsCityFirst) {
  for (const City& city : cities) {
    EXPECT_EQ(Found(CityText(city), 1), Texts{CityText(city)});
  }
}

TEST_F(Cities, ACommaAlreadyTypedWithNothingBehindItHidesNothing) {
  EXPECT_EQ(Found("paris,").size(), 2U);
  EXPECT_EQ(Found("paris, ").size(), 2U);
}

TEST_F(Cities, ACountryIsFoundWithoutACommaToo) {
  EXPECT_EQ(Found("paris texas"), Texts{"Paris, United States of America"});
  EXPECT_EQ(Found("switzerland"), Texts{"Zürich, Switzerland"});
  EXPECT_EQ(Found(", brazil"), Texts{"São Paulo, Brazil"});
}

TEST_F(Cities, ShortFormsOfCountriesAreUnderstood) {
  EXPECT_EQ(Found("paris, USA"), Texts{"Paris, United States of America"});
  EXPECT_EQ(Found("london uk"), Texts{"London, United Kingdom"});
}

TEST_F(Cities, AnEmptyTextFindsNone) {
  for (const char* typed : {"", " ", ",", " , ", "-", "\xCC\x88"}) EXPECT_EQ(Found(typed), Texts{}) << typed;
}

TEST_F(Cities, NoMoreThanAskedForAreFound) {
  EXPECT_EQ(Found("a", 3).size(), 3U);
  EXPECT_EQ(Found("a", 0).size(), 0U);
  EXPECT_EQ(Found("a", -1).size(), 0U);
}

TEST_F(Cities, ALongTextIsAnsweredWithNone) {
  EXPECT_EQ(Found(std::string(100000, 'a')), Texts{});
  std::string words;
  for (int i = 0; i < 20000; ++i) words += "new york ";
  EXPECT_EQ(Found(words), Texts{});
  EXPECT_EQ(Found("paris" + std::string(100000, ',')).size(), 2U);
}

TEST_F(Cities, OnlyOnesThatLookTheSameAreShownWithTheirRegion) {
  EXPECT_EQ(CityText(cities[5]), "Springfield, Illinois, United States of America");
  EXPECT_EQ(CityText(cities[3]), "Paris, France");
  EXPECT_EQ(CityText(ReadCities("Vaduz;;;47.1;9.5;;1;")[0]), "Vaduz");
}

}  // namespace
}  // namespace kestrava::store
