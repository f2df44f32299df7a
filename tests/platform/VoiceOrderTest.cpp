#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/VoiceOrder.h"

namespace kestrava::platform {
namespace {

using Lines = std::vector<std::string>;

std::vector<VoiceFact> SomeVoices() {
  return {{"Swedish", "sv", "gmq/sv", 5},
          {"English (Caribbean)", "en-029", "gmw/en-029", 5},
          {"English (Great Britain)", "en-gb", "gmw/en", 2},
          {"Armenian", "hy", "ine/hy", 5},
          {"English (Scotland)", "en-gb-scotland", "gmw/en-GB-scotland", 5},
          {"English (America)", "en-us", "gmw/en-US", 2},
          {"mb-en1", "en-gb", "mb/mb-en1", 1},
          {"us-mbrola-1", "en-us", "mb/mb-us1", 1},
          {"Enets", "enf", "ura/enf", 1}};
}

Lines NamesFor(std::string_view region) {
  Lines names;
  for (const VoiceFact& voice : InListOrder(SomeVoices(), region)) names.push_back(voice.name);
  return names;
}

TEST(VoiceOrder, EnglishVoicesComeFirstByPriorityAndCode) {
  EXPECT_EQ(NamesFor(""), (Lines{"English (Great Britain)", "English (America)", "English (Caribbean)",
                                 "English (Scotland)", "Armenian", "Enets", "Swedish"}));
}

TEST(VoiceOrder, TheMachinesRegionComesFirstAmongThem) {
  EXPECT_EQ(NamesFor("us").front(), "English (America)");
  const Lines british = NamesFor("gb");
  EXPECT_EQ(british[0], "English (Great Britain)");
  EXPECT_EQ(british[1], "English (Scotland)");
  EXPECT_EQ(british[2], "English (America)");
}

TEST(VoiceOrder, ARegionWithoutAnEnglishVoiceChangesNothing) {
  EXPECT_EQ(NamesFor("de"), NamesFor(""));
}

TEST(VoiceOrder, VoicesOfAnAbsentAddOnAreLeftOut) {
  for (const std::string& name : NamesFor("gb")) EXPECT_EQ(name.find("mb"), std::string::npos) << name;
}

TEST(VoiceOrder, TheRegionStandsInTheLocalesName) {
  EXPECT_EQ(RegionOfLocale("en_GB.UTF-8"), "gb");
  EXPECT_EQ(RegionOfLocale("en_US"), "us");
  EXPECT_EQ(RegionOfLocale("de_AT@euro"), "at");
  EXPECT_EQ(RegionOfLocale("C.UTF-8"), "");
  EXPECT_EQ(RegionOfLocale(""), "");
}

}  // namespace
}  // namespace kestrava::platform
