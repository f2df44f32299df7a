// The text of a pass list: the form of its fields, and what stands in it for the satellites of the reference.

#include <regex>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/Frames.h"
#include "orbit/PassList.h"
#include "platform/SerialDate.h"

#include "ReferenceData.h"

namespace kestrava::orbit {
namespace {

const Observer kObserver{47.4, 8.5, 450};
constexpr double kStartSerial = 46341;  // 2026-11-15

std::string ListOf(int number) {
  const Sgp4 satellite(reference::Sets().at(number));
  return PassListText(Passes(satellite, kObserver, kStartSerial, 3));
}

double Serial(int day, int hour, int minute, int second) {
  return platform::MakeSerial({2026, 11, day, hour, minute, second});
}

}  // namespace

TEST(PassList, NoPassIsAnEmptyText) {
  EXPECT_EQ(PassListText({}), "");
  EXPECT_EQ(ListOf(40931), "");  // equatorial: never rises here
}

TEST(PassList, AnEntryHoldsStartEndHighestMomentElevationAndDuration) {
  const std::vector<Pass> passes = {
      {Serial(15, 0, 40, 41), Serial(15, 0, 50, 48), Serial(15, 0, 45, 43), 46.06818 * kRadPerDeg}};
  EXPECT_EQ(PassListText(passes), "\"20261115004041 20261115005048 20261115004543 46.0682 607\"");
}

TEST(PassList, EntriesAreSplitByCommas) {
  const std::vector<Pass> passes = {{Serial(15, 0, 0, 0), Serial(15, 0, 10, 0), Serial(15, 0, 5, 0), 0.5 * kRadPerDeg},
                                    {Serial(16, 23, 55, 0), Serial(17, 0, 5, 0), Serial(17, 0, 0, 0), 90 * kRadPerDeg}};
  EXPECT_EQ(PassListText(passes),
            "\"20261115000000 20261115001000 20261115000500 0.5 600\","
            "\"20261116235500 20261117000500 20261117000000 90 600\"");
}

TEST(PassList, MomentsAreTheNearestSecond) {
  const std::vector<Pass> passes = {
      {Serial(15, 23, 59, 59) + 0.6 / 86400, Serial(16, 0, 10, 0) + 0.4 / 86400, Serial(16, 0, 5, 0), 0.1}};
  EXPECT_EQ(PassListText(passes).substr(1, 29), "20261116000000 20261116001000");
}

TEST(PassList, StartAndDurationGiveTheWrittenEnd) {
  const std::vector<Pass> passes = {
      {Serial(15, 0, 0, 0) + 0.6 / 86400, Serial(15, 0, 10, 0) + 0.4 / 86400, Serial(15, 0, 5, 0), kRadPerDeg}};
  EXPECT_EQ(PassListText(passes), "\"20261115000001 20261115001000 20261115000500 1 599\"");
}

TEST(PassList, AnObjectThatDoesNotSetHasOneEntryADay) {
  const std::string text = ListOf(28912);
  const std::regex form(
      "\"20261115060000 20261115180000 2026111[0-9]{7} [0-9.]+ 43200\","
      "\"20261116060000 20261116180000 2026111[0-9]{7} [0-9.]+ 43200\","
      "\"20261117060000 20261117180000 2026111[0-9]{7} [0-9.]+ 43200\"");
  EXPECT_TRUE(std::regex_match(text, form)) << text;
}

TEST(PassList, TheFirstPassOfTheReferenceReadsAsPublished) {
  const std::string text = ListOf(42725);
  EXPECT_EQ(text.substr(0, text.find(',')), "\"20261115004041 20261115005048 20261115004543 46.0682 607\"");
}

}  // namespace kestrava::orbit
