#include <string>

#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "platform/Settings.h"
#include "store/Locations.h"
#include "store/Places.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

class Places : public testing::House {
 protected:
  orbit::Tables tables;
  const Place cape{"Cape Town", -33.5, 341.58, -2};

  orbit::LocationRec& Row(int row) { return tables.LocationList.at(row); }
  void Fill(int count) {
    for (int i = 1; i <= count; ++i) Row(i) = {"P" + std::to_string(i), "51.25", "1.5", 30, "0"};
  }
  std::string FileOfTable() {
    SaveLocations(tables);
    return Content("Locations.dat");
  }
  template <class Body>
  std::string FaultOf(Body&& body) {
    try {
      body();
    } catch (const platform::Fault& fault) {
      return fault.what();
    }
    return "none";
  }
};

TEST_F(Places, ANewOneTakesTheFirstRowWithoutANameAndIsOnTheMap) {
  Fill(2);
  EXPECT_EQ(AddPlace(tables, cape), 3);
  EXPECT_EQ(PlaceCount(tables), 3);
  EXPECT_EQ(FileOfTable(), "0P1;1.5;51.25;30\n0P2;1.5;51.25;30\n1Cape Town;341.58;-33.5;-2\n");
}

TEST_F(Places, NumbersOfANewOneAreWrittenAsTheMachineWritesThem) {
  locale.UseComma();
  AddPlace(tables, cape);
  EXPECT_EQ(FileOfTable(), "1Cape Town;341,58;-33,5;-2\n");
}

TEST_F(Places, TheHundredthStillFits) {
  Fill(99);
  EXPECT_EQ(AddPlace(tables, cape), 100);
  EXPECT_EQ(PlaceCount(tables), 100);
}

TEST_F(Places, TheHundredAndFirstIsTheBoundsError) {
  Fill(100);
  const std::string before = FileOfTable();
  EXPECT_EQ(FaultOf([&] { AddPlace(tables, cape); }), "Subscript out of range");
  EXPECT_EQ(FileOfTable(), before);
}

TEST_F(Places, AnOverwrittenOneComesOnTheMap) {
  Fill(2);
  OverwritePlace(tables, 2, cape);
  EXPECT_EQ(FileOfTable(), "0P1;1.5;51.25;30\n1Cape Town;341.58;-33.5;-2\n");
}

TEST_F(Places, RowNoughtIsNoPlace) {
  for (const int row : {0, -1, 101}) {
    EXPECT_EQ(FaultOf([&] { OverwritePlace(tables, row, cape); }), "Subscript out of range") << row;
    EXPECT_EQ(FaultOf([&] { RemovePlace(tables, row); }), "Subscript out of range") << row;
    EXPECT_EQ(FaultOf([&] { SetPlaceOnMap(tables, row, true); }), "Subscript out of range") << row;
    EXPECT_EQ(FaultOf([&] { SwapWithPrimary(tables, row, cape); }), "Subscript out of range") << row;
  }
  EXPECT_EQ(Row(0).Name, "");
  EXPECT_TRUE(settings.Writes().empty());
}

TEST_F(Places, ARemovedOneLeavesNoGap) {
  Fill(4);
  RemovePlace(tables, 2);
  EXPECT_EQ(FileOfTable(), "0P1;1.5;51.25;30\n0P3;1.5;51.25;30\n0P4;1.5;51.25;30\n");
  EXPECT_EQ(Row(4).Name, "");
}

TEST_F(Places, OfAFullTableOneCanBeRemoved) {
  Fill(100);
  RemovePlace(tables, 1);
  EXPECT_EQ(PlaceCount(tables), 99);
  EXPECT_EQ(Row(1).Name, "P2");
  EXPECT_EQ(Row(99).Name, "P100");
  EXPECT_EQ(Row(100).Name, "");
  RemovePlace(tables, 99);
  EXPECT_EQ(PlaceCount(tables), 98);
}

TEST_F(Places, ATickIsTheFlagOfItsRow) {
  Fill(2);
  SetPlaceOnMap(tables, 2, true);
  EXPECT_EQ(Row(1).OnMap, "0");
  EXPECT_EQ(Row(2).OnMap, "1");
  SetPlaceOnMap(tables, 2, false);
  EXPECT_EQ(Row(2).OnMap, "0");
}

TEST_F(Places, ThePrimaryOneIsReadWithTheDefaultsOfTheStore) {
  const PrimaryPlace place = ReadPrimaryPlace();
  EXPECT_EQ(place.name, "Default");
  EXPECT_EQ(place.latitude, "0");
  EXPECT_EQ(place.longitude, "0");
  EXPECT_EQ(place.heightM, "0");
}

TEST_F(Places, ThePrimaryOneIsWrittenToItsFourSettings) {
  WritePrimaryPlace(AsPrimary(cape));
  EXPECT_EQ(settings.Get("Location Name"), "Cape Town");
  EXPECT_EQ(settings.Get("Latitude"), "-33.5");
  EXPECT_EQ(settings.Get("Longitude"), "341.58");
  EXPECT_EQ(settings.Get("HASL"), "-2");
}

TEST_F(Places, MadePrimaryAPlaceChangesRolesWithTheOldOne) {
  WritePrimaryPlace({"Home", "51.25", "1.5", "30"});
  Fill(2);
  SwapWithPrimary(tables, 2, cape);
  EXPECT_EQ(FileOfTable(), "0P1;1.5;51.25;30\n0Home;1.5;51.25;30\n");
  EXPECT_EQ(ReadPrimaryPlace().name, "Cape Town");
  EXPECT_EQ(ReadPrimaryPlace().latitude, "-33.5");
  EXPECT_EQ(ReadPrimaryPlace().longitude, "341.58");
  EXPECT_EQ(ReadPrimaryPlace().heightM, "-2");
}

TEST_F(Places, AStoredHeightThatIsNoNumberStopsTheChangeOfRolesBeforeAnythingIsTouched) {
  WritePrimaryPlace({"Home", "51.25", "1.5", "high"});
  Fill(1);
  const std::string before = FileOfTable();
  EXPECT_EQ(FaultOf([&] { SwapWithPrimary(tables, 1, cape); }), "Type mismatch");
  EXPECT_EQ(FileOfTable(), before);
  EXPECT_EQ(ReadPrimaryPlace().name, "Home");
}

TEST_F(Places, AStoredHeightBeyondItsFieldStopsTheChangeOfRolesToo) {
  WritePrimaryPlace({"Home", "51.25", "1.5", "40000"});
  Fill(1);
  EXPECT_EQ(FaultOf([&] { SwapWithPrimary(tables, 1, cape); }), "Overflow");
  EXPECT_EQ(ReadPrimaryPlace().name, "Home");
}

TEST_F(Places, ATableThatWasChangedComesBackFromItsFileByteForByte) {
  Fill(3);
  AddPlace(tables, cape);
  RemovePlace(tables, 1);
  const std::string file = FileOfTable();
  orbit::Tables again;
  LoadLocations(again);
  SaveLocations(again);
  EXPECT_EQ(Content("Locations.dat"), file);
}

TEST_F(Places, AKillAtAnyMomentOfASaveLeavesTheOldFileWholeOrTheNewOne) {
  Fill(3);
  const std::string before = FileOfTable();
  AddPlace(tables, cape);
  for (std::size_t bytes = 0; bytes < 60; ++bytes) {
    files.BreakWriteAfter(bytes);
    EXPECT_THROW(SaveLocations(tables), platform::Fault) << bytes;
    EXPECT_EQ(Content("Locations.dat"), before) << bytes;
    files.Mend();
  }
  EXPECT_EQ(FileOfTable(), before + "1Cape Town;341.58;-33.5;-2\n");
}

}  // namespace
}  // namespace kestrava::store
