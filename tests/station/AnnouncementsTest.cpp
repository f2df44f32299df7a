#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "station/Announcements.h"

#include "support/House.h"

namespace kestrava::station {
namespace {

class Announcements : public testing::House {
 protected:
  Announcements() { settings.Set("Speechpack", "1"); }
  void Add(const char* name, double azimuthDeg, double elevationDeg) {
    orbit::FaveRec& row = tables.FaveList.at(static_cast<std::size_t>(++tables.FaveCount));
    row.Name = name;
    row.Az = azimuthDeg;
    row.El = elevationDeg;
  }
  orbit::Tables tables;
};

TEST_F(Announcements, OfThoseThatAreUpHaveNoComma) {
  Add("ISS (ZARYA)", 123.9, 45.9);
  Add("AO-40", 10, -5);
  AnnouncePositions(tables, true);
  EXPECT_EQ(speech.said, std::vector<std::string>{"The International Space station Azimuth 123 Elevation 45. "});
}

TEST_F(Announcements, OfAllHaveAComma) {
  Add("ISS (ZARYA)", 123.9, 45.9);
  Add("AO-40", 10, -5.2);
  AnnouncePositions(tables, false);
  EXPECT_EQ(speech.said, (std::vector<std::string>{"The International Space station, Azimuth 123 Elevation 45. ",
                                                   "AO 40, Azimuth 10 Elevation -6. "}));
}

TEST_F(Announcements, OnTheHorizonIsNotUp) {
  Add("AO-40", 10, 0);
  AnnouncePositions(tables, true);
  EXPECT_TRUE(speech.said.empty());
}

TEST_F(Announcements, WhoseElementsGiveNoPositionIsLeftOut) {
  Add("ISS (ZARYA)", 123.9, 45.9);
  Add("OSNSAT", 0, 45);
  tables.FaveList[2].hasNoPosition = true;
  AnnouncePositions(tables, true);
  AnnouncePositions(tables, false);
  EXPECT_EQ(speech.said, (std::vector<std::string>{"The International Space station Azimuth 123 Elevation 45. ",
                                                   "The International Space station, Azimuth 123 Elevation 45. "}));
}

TEST_F(Announcements, WithoutOneAboveTheHorizonNothingIsSaid) {
  Add("AO-40", 10, -1);
  Add("AO-13", 10, -80);
  AnnouncePositions(tables, true);
  EXPECT_TRUE(speech.said.empty());
}

TEST_F(Announcements, WithoutTheSpeechPackTheEngineIsNotTouched) {
  settings.Set("Speechpack", "0");
  Add("ISS (ZARYA)", 1, 1);
  AnnouncePositions(tables, false);
  EXPECT_TRUE(speech.said.empty());
}

TEST_F(Announcements, ABrokenEngineIsDroppedWithoutAWord) {
  speech.broken = platform::Fault::Automation("gone");
  Add("ISS (ZARYA)", 1, 1);
  AnnouncePositions(tables, false);
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(Announcements, RowsAboveFiveHundredAreAFaultOfTheCaller) {
  tables.FaveCount = 501;
  EXPECT_THROW(AnnouncePositions(tables, true), platform::Fault);
}

}  // namespace
}  // namespace kestrava::station
