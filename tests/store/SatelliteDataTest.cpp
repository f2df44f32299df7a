#include <string>

#include <gtest/gtest.h>

#include "store/SatelliteData.h"

#include "support/House.h"

namespace kestrava::store {
namespace {

using SatelliteData = testing::House;

constexpr std::string_view kDatabase =
    "AO-7\nNAME   Oscar 7\nBEACON 29.502\nBEACON 145.975\nUPLINK 145.850-145.950\nDNLINK 29.400-29.500\n"
    "NOTES  first note\nNOTES  last note\nMODE   B\n***\nISS\nNAME   International Space Station\n***\n";

TEST_F(SatelliteData, TellsAllTagsInFileOrderAndTheLastNote) {
  Put("satellite.dat", kDatabase);
  EXPECT_EQ(SatelliteDataFunc("OSCAR AO-7"),
            "Data for OSCAR AO-7\r\n(Oscar 7)\r\nBeacon: 29.502\r\nBeacon: 145.975\r\nUplink: 145.850-145.950\r\n"
            "Downlink: 29.400-29.500\r\nNotes: last note");
}

TEST_F(SatelliteData, FindsALaterBlock) {
  Put("satellite.dat", kDatabase);
  EXPECT_EQ(SatelliteDataFunc("ISS (ZARYA)"), "Data for ISS (ZARYA)\r\n(International Space Station)\r\nNotes: ");
}

TEST_F(SatelliteData, HyphensAndBlanksCountAsTheSame) {
  Put("satellite.dat", "METEOR M-2\n***\n");
  EXPECT_EQ(SatelliteDataFunc("METEOR-M 2"), "Data for METEOR-M 2\r\nNotes: ");
}

TEST_F(SatelliteData, ANameWithoutABlockGivesNothing) {
  Put("satellite.dat", kDatabase);
  EXPECT_EQ(SatelliteDataFunc("NOAA 19"), "");
}

TEST_F(SatelliteData, TheNameMustContainTheWholeFirstLine) {
  Put("satellite.dat", "ISS (ZARYA) STATION\n***\n");
  EXPECT_EQ(SatelliteDataFunc("ISS (ZARYA)"), "");
}

TEST_F(SatelliteData, CaseCounts) {
  Put("satellite.dat", "iss\n***\n");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "");
}

TEST_F(SatelliteData, ABlankFirstLineFitsEveryName) {
  Put("satellite.dat", "\nNOTES  any\n***\n");
  EXPECT_EQ(SatelliteDataFunc("NOAA 19"), "Data for NOAA 19\r\nNotes: any");
}

TEST_F(SatelliteData, ABlockWithoutLinesHasItsHeadingAndAnEmptyNote) {
  Put("satellite.dat", "ISS\n***\n");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "Data for ISS\r\nNotes: ");
}

TEST_F(SatelliteData, TheTagIsSixCharactersExactlyAndTheSeventhIsNotRead) {
  Put("satellite.dat", "ISS\nNAMEX  no\nname   no\nNAME  :yes\nNOTES:no\nNOTES X note  \n***\n");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "Data for ISS\r\n(yes)\r\nNotes: note");
}

TEST_F(SatelliteData, AStrayEndMarkDoesNoHarm) {
  Put("satellite.dat", "***\n***\nISS\n***\n");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "Data for ISS\r\nNotes: ");
}

TEST_F(SatelliteData, AMissingFileIsSaid) {
  messages.ExpectMessage("Satellite.dat file is missing !!");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "");
}

TEST_F(SatelliteData, ABlockWithoutItsEndMarkIsToldAsFarAsItGoesAndLoggedOnce) {
  Put("satellite.dat", "ISS\nNAME   Station\nNOTES  crewed\n");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "Data for ISS\r\n(Station)\r\nNotes: crewed");
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Input past end of file - Global SatelliteDataFunc"});
}

TEST_F(SatelliteData, AnotherBlockWithoutItsEndMarkEndsTheSearchAndIsLoggedOnce) {
  Put("satellite.dat", "AO-7\nNAME   Oscar\n");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "");
  EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Input past end of file - Global SatelliteDataFunc"});
}

TEST_F(SatelliteData, AnEmptyFileGivesNothing) {
  Put("satellite.dat", "");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "");
}

TEST_F(SatelliteData, AFileThatCannotBeReadIsLoggedWhereverItBreaks) {
  for (std::size_t bytes = 0; bytes < kDatabase.size(); bytes += 7) {
    Put("satellite.dat", kDatabase);
    files.BreakReadAfter(bytes);
    EXPECT_EQ(SatelliteDataFunc("ISS"), "") << bytes;
    EXPECT_EQ(TakeFaults(), std::vector<std::string>{"Device I/O error - Global SatelliteDataFunc"});
    files.Mend();
    EXPECT_EQ(Content("satellite.dat"), kDatabase);
  }
}

TEST_F(SatelliteData, ALatin1FileIsTold) {
  Put("satellite.dat", "ISS\r\nNOTES  45\xb0 tilt\r\n***\r\n");
  EXPECT_EQ(SatelliteDataFunc("ISS"), "Data for ISS\r\nNotes: 45\u00b0 tilt");
}

}  // namespace
}  // namespace kestrava::store
