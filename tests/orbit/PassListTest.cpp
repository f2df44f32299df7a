// The text of a pass list: the form of its fields, and what stands in it for the satellites of the reference.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/Frames.h"
#include "orbit/PassList.h"
#include "platform/SerialDate.h"
#include "platform/Text.h"

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
  const std::vector<std::string> entries = platform::SplitAt(ListOf(28912), ',');
  ASSERT_EQ(entries.size(), 3U);
  for (std::size_t i = 0; i < 3; ++i) {
    const std::string day = std::to_string(20261115 + i);
    const std::string& entry = entries[i];
    EXPECT_TRUE(entry.starts_with("\"" + day + "060000 " + day + "180000 " + day)) << entry;
    EXPECT_TRUE(entry.ends_with(" 43200\"")) << entry;
    const std::vector<std::string> fields = platform::SplitAt(entry, ' ');
    ASSERT_EQ(fields.size(), 5U) << entry;
    EXPECT_EQ(fields[2].size(), 14U) << entry;
    EXPECT_EQ(reference::Numbers(fields[3]).size(), 1U) << entry;
  }
}

TEST(PassList, TheFirstPassOfTheReferenceReadsAsPublished) {
  const std::string text = ListOf(42725);
  EXPECT_EQ(text.substr(0, text.find(',')), "\"20261115004041 20261115005048 20261115004543 46.0682 607\"");
}

}  // namespace kestrava::orbit
