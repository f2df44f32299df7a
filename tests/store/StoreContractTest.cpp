#include <string>

#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "store/ElementFiles.h"
#include "store/Favourites.h"
#include "store/Groups.h"
#include "store/Locations.h"
#include "store/SatelliteData.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

using platform::Fault;

class StoreContract : public testing::House {
 protected:
  orbit::Tables tables;

  static std::string Repeated(int count, const std::string& line) {
    std::string lines;
    for (int i = 0; i < count; ++i) lines += line;
    return lines;
  }
  /// What a load throws, as its text; empty for none.
  template <class Load>
  static std::string FaultOf(Load&& load) {
    try {
      load();
      return "";
    } catch (const Fault& fault) {
      return fault.what();
    }
  }
  static std::string LineOne(const std::string& epoch) { return "1 25544U 98067A   " + epoch + "  .00016717\n"; }
};

TEST_F(StoreContract, TheFavouriteTestReadsTheWholeListAsOneText) {
  Put("faves.dat", "1\",\"AO\nO-40\nZARYA)\"\n");
  LoadFaves(tables, "\"ISS 1\",\"AO-40\",\"ISS (ZARYA)\"");
  EXPECT_EQ(tables.FaveCount, 3);
  EXPECT_EQ(tables.FaveList[1].Name, "1\",\"AO");
  EXPECT_EQ(tables.FaveList[2].Name, "O-40");
  EXPECT_EQ(tables.FaveList[3].Name, "ZARYA)\"");
}

TEST_F(StoreContract, AnEmptyFileOfFavouritesLoadsNone) {
  tables.FaveCount = 7;
  tables.FaveList[1].Name = "OLD";
  Put("faves.dat", "");
  LoadFaves(tables, "\"ISS\"");
  EXPECT_EQ(tables.FaveCount, 0);
  EXPECT_EQ(tables.FaveList[1].Name, "");
  EXPECT_EQ(Content("faves.dat"), "");
}

TEST_F(StoreContract, FavouritesWithNulBytesAreLinesThatTheEngineDoesNotKnow) {
  using namespace std::string_literals;
  Put("faves.dat", "\0\0\0\nISS\n\0AO-40\n"s);
  LoadFaves(tables, "\"ISS\",\"AO-40\"");
  EXPECT_EQ(tables.FaveCount, 1);
  EXPECT_EQ(Content("faves.dat"), "ISS\n");
  EXPECT_EQ(TakeFaults().size(), 1U);  // the lines that were left out
}

TEST_F(StoreContract, TheFavouritesOfRowFiveHundredAreReadButOneMoreIsABoundsFault) {
  tables.FaveCount = 3;
  Put("faves.dat", Repeated(501, "ISS\n"));
  EXPECT_EQ(FaultOf([&] { LoadFaves(tables, "\"ISS\""); }), "Subscript out of range");
  EXPECT_EQ(tables.FaveCount, 3);
  EXPECT_EQ(tables.FaveList[500].Name, "ISS");
}

TEST_F(StoreContract, ALineThatIsNotKnownBehindRowFiveHundredIsNoFault) {
  Put("faves.dat", Repeated(500, "ISS\n") + "\nUNKNOWN\n");
  LoadFaves(tables, "\"ISS\"");
  EXPECT_EQ(tables.FaveCount, 499);  // as the save that ends the load counts
  TakeFaults();
}

TEST_F(StoreContract, GroupNamesKeepTheirBlanksAndAddressesMayBeEmpty) {
  Put("groups.dat", " Amateur ,a.txt,0\nNone,,1\n,b.txt,0\n");
  LoadGroups(tables);
  EXPECT_EQ(tables.GroupCount, 3);
  EXPECT_EQ(tables.GroupList[1].Name, " Amateur ");
  EXPECT_EQ(tables.GroupList[2].Address, "");
  EXPECT_EQ(tables.GroupList[3].Name, ",b.txt,0");  // an empty first word gives the whole line
  EXPECT_EQ(tables.GroupList[3].Address, "b.txt");
}

TEST_F(StoreContract, ABlankLineBehindRowFortyEndsTheGroupsBeforeTheBound) {
  Put("groups.dat", Repeated(40, "G,g.txt,0\n") + "   \nG,more.txt,0\n");
  LoadGroups(tables);
  EXPECT_EQ(tables.GroupCount, 40);
}

TEST_F(StoreContract, GroupsAreWrittenUpToTheCountWithoutANameOfBlanks) {
  tables.GroupList[1] = {"A", "a.txt", "0"};
  tables.GroupList[2] = {"   ", "b.txt", "0"};
  tables.GroupList[3] = {"C", "c.txt", "1"};
  tables.GroupList[4] = {"D", "d.txt", "1"};
  tables.GroupCount = 3;
  SaveGroups(tables);
  EXPECT_EQ(Content("groups.dat"), "A,a.txt,0\nC,c.txt,1\n");
  EXPECT_EQ(tables.GroupCount, 3);
}

TEST_F(StoreContract, TheNumbersOfALocationAreReadBeforeItsRowIsLookedFor) {
  const std::string full = Repeated(100, "1P;1;2;3\n");
  Put("Locations.dat", full + "1P;east;2;3\n");
  EXPECT_EQ(FaultOf([&] { LoadLocations(tables); }), "Type mismatch");
  Put("Locations.dat", full + "1P;1;2;40000\n");
  EXPECT_EQ(FaultOf([&] { LoadLocations(tables); }), "Overflow");
  Put("Locations.dat", full + "1P;1;2;3\n");
  EXPECT_EQ(FaultOf([&] { LoadLocations(tables); }), "Subscript out of range");
  EXPECT_EQ(tables.LocationList[100].Name, "P");
}

TEST_F(StoreContract, HeightsAreRoundedToWholeMetresOfSixteenBits) {
  Put("Locations.dat", "0A;1;2;30.5\n0B;1;2;31.5\n0C;1;2;-32768\n0D;1;2;32767\n0E;1;2; 12 \n");
  LoadLocations(tables);
  EXPECT_EQ(tables.LocationList[1].HASL, 30);
  EXPECT_EQ(tables.LocationList[2].HASL, 32);
  EXPECT_EQ(tables.LocationList[3].HASL, -32768);
  EXPECT_EQ(tables.LocationList[4].HASL, 32767);
  EXPECT_EQ(tables.LocationList[5].HASL, 12);
  Put("Locations.dat", "0A;1;2;-32769\n");
  EXPECT_EQ(FaultOf([&] { LoadLocations(tables); }), "Overflow");
}

TEST_F(StoreContract, LocationsStandAsTheTextsOfTheirNumbers) {
  Put("Locations.dat", "1Home;001.50;+51.250;30\n");
  LoadLocations(tables);
  EXPECT_EQ(tables.LocationList[1].Longitude, "1.5");
  EXPECT_EQ(tables.LocationList[1].Latitude, "51.25");
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), "1Home;1.5;51.25;30\n");
}

TEST_F(StoreContract, OnACommaMachineEitherSignIsReadAndTheCommaIsWritten) {
  locale.UseComma();
  Put("Locations.dat", "1A;1.5;51.25;30\n0B;1,5;51,25;30\n");
  LoadLocations(tables);
  EXPECT_EQ(tables.LocationList[1].Longitude, "1,5");
  EXPECT_EQ(tables.LocationList[2].Latitude, "51,25");
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), "1A;1,5;51,25;30\n0B;1,5;51,25;30\n");
}

TEST_F(StoreContract, LocationsAreWrittenUpToTheFirstNameOfBlanks) {
  for (const int row : {1, 2, 4}) tables.LocationList.at(row) = {"P" + std::to_string(row), "2", "1", 3, "0"};
  tables.LocationList[3] = {"  ", "2", "1", 3, "1"};
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), "0P1;1;2;3\n0P2;1;2;3\n");
}

TEST_F(StoreContract, AllHundredLocationsAreWritten) {
  for (int row = 1; row <= 100; ++row) tables.LocationList.at(row) = {"P", "2", "1", 3, "0"};
  SaveLocations(tables);
  EXPECT_EQ(Content("Locations.dat"), Repeated(100, "0P;1;2;3\n"));
}

TEST_F(StoreContract, EmptyFilesOfGroupsAndLocationsLoadNone) {
  tables.GroupCount = 4;
  tables.LocationList[1].Name = "OLD";
  Put("groups.dat", "");
  Put("Locations.dat", "");
  LoadGroups(tables);
  LoadLocations(tables);
  EXPECT_EQ(tables.GroupCount, 0);
  EXPECT_EQ(tables.LocationList[1].Name, "");
}

TEST_F(StoreContract, AHeaderLineWithoutANumberInTheEpochsPlaceIsNoSet) {
  Put("a.txt", "1 this line is a header of many words\nhello\nNAME\n" + LineOne("24153.50000000") + "2 x\n");
  EXPECT_EQ(FindFirstKepLine("a.txt"), 1);
}

TEST_F(StoreContract, ASetWithAnEpochOfZeroIsNotTheFirst) {
  Put("a.txt", "NULL\n" + LineOne("00000.00000000") + "2 x\nNAME\n" + LineOne("24153.50000000") + "2 x\n");
  EXPECT_EQ(FindFirstKepLine("a.txt"), 2);
}

TEST_F(StoreContract, TheLineOfAFaultInTheSearchHoldsTheFile) {
  Put("a.txt", "NAME\n");
  files.BreakFile("/house/a.txt", Fault::DeviceError());
  EXPECT_EQ(FindFirstKepLine("a.txt"), 0);
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Device I/O error CAT:a.txt - Global FindFirstKepLine"});
}

TEST_F(StoreContract, TheHeadingOfTheFactsIsTheNameAsItWasAsked) {
  Put("satellite.dat", "AO 40\r\nNAME   Oscar 40 \r\n***\r\n");
  EXPECT_EQ(SatelliteDataFunc("AO-40"), "Data for AO-40\r\n(Oscar 40)\r\nNotes: ");
  EXPECT_EQ(SatelliteDataFunc(" AO-40 "), "Data for  AO-40 \r\n(Oscar 40)\r\nNotes: ");
}

TEST_F(StoreContract, BlanksBehindAShortFormBelongToIt) {
  Put("satellite.dat", "ISS \n***\n");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "");
  EXPECT_EQ(SatelliteDataFunc("ISS (ZARYA)"), "Data for ISS (ZARYA)\r\nNotes: ");
}

TEST_F(StoreContract, AMissingDatabaseIsSaidInItsOwnWords) {
  messages.ExpectMessage("Satellite.dat file is missing !!");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "");
  EXPECT_EQ(messages.Texts().at(0), "Satellite.dat file is missing !!");
}

}  // namespace
}  // namespace kestrava::store
