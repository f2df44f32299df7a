// The files that a first start copies into the user's folder, and the pictures beside them, checked as they lie in the
// source tree: a slip in one of them would meet every new user.
#include <array>
#include <charconv>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"

#include "support/House.h"

namespace kestrava {
namespace {

std::string Bytes(const std::string& name) {
  std::ifstream file(std::string(KESTRAVA_SOURCE_DIR) + "data/" + name, std::ios::binary);
  EXPECT_TRUE(file.is_open()) << name;
  return {std::istreambuf_iterator<char>(file), {}};
}

std::vector<std::string> Lines(const std::string& name) {
  std::vector<std::string> lines;
  std::string line;
  for (const char c : Bytes("sample/" + name)) {
    if (c == '\n') {
      lines.push_back(line);
      line.clear();
    } else if (c != '\r') {
      line += c;
    }
  }
  EXPECT_EQ(line, "") << name << " lacks its last line end";
  return lines;
}

std::vector<std::string> Words(const std::string& line, char sign) {
  std::vector<std::string> words(1);
  for (const char c : line) {
    if (c == sign) {
      words.emplace_back();
    } else {
      words.back() += c;
    }
  }
  return words;
}

std::string FileOfAddress(const std::string& address) {
  return address.substr(address.rfind('/') + 1);
}

std::string ShortName(std::string line) {
  line = line.substr(0, 15);
  line.erase(line.find_last_not_of(' ') + 1);
  return line;
}

std::set<std::string> AllNames() {
  std::set<std::string> names;
  for (const std::string& group : Lines("groups.dat")) {
    const std::vector<std::string> lines = Lines(FileOfAddress(Words(group, ',')[1]));
    for (size_t i = 0; i + 2 < lines.size(); i += 3) names.insert(ShortName(lines[i]));
  }
  return names;
}

std::string Blanked(std::string text) {
  for (char& c : text) {
    if (c == '-') c = ' ';
  }
  return text;
}

std::vector<std::vector<std::string>> Blocks() {
  std::vector<std::vector<std::string>> blocks(1);
  for (const std::string& line : Lines("satellite.dat")) {
    if (line.starts_with("***")) {
      blocks.emplace_back();
    } else {
      blocks.back().push_back(line);
    }
  }
  EXPECT_TRUE(blocks.back().empty()) << "the last block is not closed";
  blocks.pop_back();
  return blocks;
}

// The block that a lookup of the name finds: the first whose short form the name holds.
std::string BlockOf(const std::string& name) {
  static const std::vector<std::vector<std::string>> kBlocks = Blocks();
  for (const std::vector<std::string>& block : kBlocks) {
    if (Blanked(name).find(Blanked(block[0])) != std::string::npos) return block[0];
  }
  return {};
}

/// The lines of the block that a lookup of the name finds.
std::string FactsOf(const std::string& name) {
  std::string facts;
  for (const std::vector<std::string>& block : Blocks()) {
    if (block[0] != BlockOf(name)) continue;
    for (const std::string& line : block) facts += line + "\n";
    break;
  }
  return facts;
}

double Number(const std::string& text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  EXPECT_TRUE(error == std::errc() && end == text.data() + text.size()) << text;
  return value;
}

struct Size {
  int width, height;
  friend bool operator==(const Size&, const Size&) = default;
};

int BigEndian(const std::string& bytes, size_t at, int count) {
  int value = 0;
  for (int i = 0; i < count; ++i) value = value * 256 + static_cast<unsigned char>(bytes.at(at + i));
  return value;
}

// Width and height from the frame header of a JPEG (ISO 10918-1, B.2.2).
Size JpegSize(const std::string& bytes) {
  for (size_t at = 2; at + 9 < bytes.size();) {
    const int marker = BigEndian(bytes, at, 2);
    if (marker == 0xFFC0 || marker == 0xFFC2) return {BigEndian(bytes, at + 7, 2), BigEndian(bytes, at + 5, 2)};
    at += 2 + BigEndian(bytes, at + 2, 2);
  }
  return {0, 0};
}

Size PngSize(const std::string& bytes) {
  return {BigEndian(bytes, 16, 4), BigEndian(bytes, 20, 4)};
}

TEST(SampleGroups, EveryGroupNamesAnElementFileThatIsThere) {
  const std::vector<std::string> groups = Lines("groups.dat");
  EXPECT_EQ(groups.size(), 8U);
  for (const std::string& line : groups) {
    const std::vector<std::string> words = Words(line, ',');
    ASSERT_EQ(words.size(), 3U) << line;
    EXPECT_EQ(words[2], "0") << line;
    EXPECT_EQ(words[1], "celestrak.org/NORAD/elements/" + FileOfAddress(words[1]));
    EXPECT_FALSE(Bytes("sample/" + FileOfAddress(words[1])).empty());
  }
}

TEST(SampleElements, EveryFileIsWholeSetsOfThreeLines) {
  for (const std::string& group : Lines("groups.dat")) {
    const std::string file = FileOfAddress(Words(group, ',')[1]);
    const std::vector<std::string> lines = Lines(file);
    ASSERT_EQ(lines.size() % 3, 0U) << file;
    for (size_t i = 0; i < lines.size(); i += 3) {
      EXPECT_EQ(lines[i + 1].size(), 69U) << file << " " << i;
      EXPECT_EQ(lines[i + 2].size(), 69U) << file << " " << i;
      EXPECT_TRUE(lines[i + 1].starts_with("1 ") && lines[i + 2].starts_with("2 ")) << file << " " << i;
    }
  }
}

class SampleSky : public testing::House {
 protected:
  SampleSky() {
    for (const std::string& group : Lines("groups.dat")) {
      const std::string file = FileOfAddress(Words(group, ',')[1]);
      Put(file, Bytes("sample/" + file));
    }
    engine.SetDataFolder(platform::AppDir);
  }
  orbit::OrbitEngine engine;
};

TEST_F(SampleSky, EverySetGivesAPositionUntilTheEndOfJanuary) {
  const double firstUtc = platform::MakeSerial({2026, 11, 14, 12, 0, 0});
  const double lastUtc = platform::MakeSerial({2027, 1, 31, 12, 0, 0});
  for (const std::string& name : AllNames()) {
    int without = 0;
    for (double utc = firstUtc; utc <= lastUtc; utc += 1) {
      if (engine.Propagate(name, utc).error != orbit::ModelError::kNone) ++without;
    }
    EXPECT_EQ(without, 0) << name << ": so many days without a position";
  }
}

/// What a user can hear (a beacon, a downlink) or see.
TEST(SampleFavourites, EachCanBeHeardOrSeenToday) {
  for (const std::string& name : Lines("faves.dat")) {
    const std::string facts = FactsOf(name);
    const bool heard = facts.find("BEACON ") != std::string::npos || facts.find("DNLINK ") != std::string::npos;
    EXPECT_TRUE(heard || facts.find("naked eye") != std::string::npos) << name;
    for (const char* end :
         {"no longer in the sky", "no pictures any more", "out of service", "silent since", "failed in"})
      EXPECT_EQ(facts.find(end), std::string::npos) << name << ": " << end;
  }
}

TEST(SampleSatelliteFacts, WhatIsSilentOffersNoFrequency) {
  int silent = 0;
  for (const std::vector<std::string>& block : Blocks()) {
    const std::string facts = FactsOf(block[0]);
    bool ended = false;
    for (const char* end : {"no longer in the sky", "no pictures any more", "silent since", "out of service since"})
      ended = ended || facts.find(end) != std::string::npos;
    if (!ended) continue;
    ++silent;
    for (const char* tag : {"BEACON", "UPLINK", "DNLINK"})
      EXPECT_EQ(facts.find(std::string("\n") + tag), std::string::npos) << block[0];
  }
  EXPECT_GE(silent, 12);
  for (const char* name : {"NOAA 15", "NOAA 18", "NOAA 19", "METEOR-M 2"})
    EXPECT_NE(FactsOf(name).find("no pictures any more"), std::string::npos) << name;
}

TEST(SampleFavourites, EveryNameIsInAnElementFile) {
  const std::set<std::string> names = AllNames();
  const std::vector<std::string> favourites = Lines("faves.dat");
  EXPECT_GE(favourites.size(), 10U);
  EXPECT_EQ(favourites.at(0), "ISS (ZARYA)");
  for (const std::string& name : favourites) {
    EXPECT_LE(name.size(), 15U) << name;
    EXPECT_EQ(names.count(name), 1U) << name;
  }
}

TEST(SampleFavourites, EveryNameHasFactsOfItsOwn) {
  for (const std::string& name : Lines("faves.dat")) EXPECT_NE(BlockOf(name), "") << name;
}

TEST(SampleFavourites, NoneStandsTwice) {
  const std::vector<std::string> favourites = Lines("faves.dat");
  EXPECT_EQ(std::set<std::string>(favourites.begin(), favourites.end()).size(), favourites.size());
}

TEST(SampleLocations, EveryLineHasFlagNameLongitudeLatitudeAndHeight) {
  for (const std::string& line : Lines("Locations.dat")) {
    const std::vector<std::string> words = Words(line, ';');
    ASSERT_EQ(words.size(), 4U) << line;
    EXPECT_TRUE(words[0].size() > 1 && (words[0][0] == '0' || words[0][0] == '1')) << line;
    EXPECT_TRUE(Number(words[1]) >= 0 && Number(words[1]) < 360) << line;
    EXPECT_TRUE(Number(words[2]) >= -90 && Number(words[2]) <= 90) << line;
    EXPECT_TRUE(Number(words[3]) >= 0 && Number(words[3]) < 9000) << line;
  }
}

TEST(SampleSatelliteFacts, EveryBlockHasAShortFormANameAndOneNote) {
  static const std::set<std::string> kTags{"NAME  ", "NOTES ", "BEACON", "UPLINK", "DNLINK"};
  for (const std::vector<std::string>& block : Blocks()) {
    ASSERT_GE(block.size(), 3U);
    EXPECT_NE(block[0].find_first_not_of(' '), std::string::npos) << "a blank first line matches every name";
    int names = 0, notes = 0;
    for (size_t i = 1; i < block.size(); ++i) {
      const std::string tag = block[i].substr(0, 6);
      EXPECT_EQ(kTags.count(tag), 1U) << block[i];
      ASSERT_GT(block[i].size(), 7U) << block[i];
      EXPECT_EQ(block[i][6], ' ') << block[i];
      EXPECT_NE(block[i][7], ' ') << block[i];
      names += tag == "NAME  " ? 1 : 0;
      notes += tag == "NOTES " ? 1 : 0;
    }
    EXPECT_EQ(names, 1) << block[0];
    EXPECT_EQ(notes, 1) << block[0];
  }
}

TEST(SampleSatelliteFacts, EveryLineEndsWithCarriageReturnAndLineFeed) {
  const std::string bytes = Bytes("sample/satellite.dat");
  for (size_t i = 0; i < bytes.size(); ++i) {
    if (bytes[i] == '\n') {
      ASSERT_TRUE(i > 0 && bytes[i - 1] == '\r') << i;
    }
  }
}

TEST(SampleSatelliteFacts, NoBlockIsHiddenBehindAnEarlierOne) {
  std::set<std::string> reached;
  for (const std::string& name : AllNames()) reached.insert(BlockOf(name));
  static const std::set<std::string> kForLaterElements{"TERRASAR-X"};  // keeps it from being taken for Terra
  for (const std::vector<std::string>& block : Blocks()) {
    EXPECT_EQ(reached.count(block[0]) + kForLaterElements.count(block[0]), 1U) << block[0];
  }
}

TEST(SampleSatelliteFacts, NamesThatLookAlikeFindTheirOwnBlock) {
  EXPECT_EQ(BlockOf("CUTE-1.7+APD II"), "CUTE-1.7");
  EXPECT_EQ(BlockOf("CUTE-1 (CO-55)"), "CUTE-1");
  EXPECT_EQ(BlockOf("INTERCOSMOS 24"), "INTERCOSMOS");
  EXPECT_EQ(BlockOf("COSMOS 482 DESC"), "COSMOS 482");
  EXPECT_EQ(BlockOf("COSMOS 1500"), "COSMOS");
  EXPECT_EQ(BlockOf("IRIDIUM 33 [-]"), "IRIDIUM 33 [");
  EXPECT_EQ(BlockOf("IRIDIUM 133 [+]"), "IRIDIUM");
  EXPECT_EQ(BlockOf("MOLNIYA 1-S"), "MOLNIYA 1-S");
  EXPECT_EQ(BlockOf("SWISSCUBE"), "SWISSCUBE");
}

TEST(SampleLink, HoverTextAndTargetStandInTwoLines) {
  const std::vector<std::string> lines = Lines("cust2.dat");
  ASSERT_EQ(lines.size(), 2U);
  EXPECT_NE(lines[0], "");
  EXPECT_TRUE(lines[1].starts_with("https://")) << lines[1];
}

TEST(SamplePictures, MapsAndSceneriesHaveTheDesignSize) {
  for (const char* name : {"Default", "Night", "Relief", "Chart"}) {
    EXPECT_EQ(JpegSize(Bytes("sample/" + std::string(name) + ".jpg")), (Size{1400, 704})) << name;
  }
  EXPECT_EQ(JpegSize(Bytes("sample/Large.jpg")), (Size{2800, 1408}));
  for (const char* name : {"hdefault", "hmoonlit", "hsea"}) {
    EXPECT_EQ(JpegSize(Bytes("sample/" + std::string(name) + ".jpg")), (Size{3200, 1360})) << name;
  }
  EXPECT_EQ(JpegSize(Bytes("sample/cust1.dat")), (Size{140, 60}));
}

TEST(SamplePictures, SpritesHaveTheirSizeAtEveryScale) {
  const std::array<std::pair<std::string, int>, 8> sprites{
      {{"sat0", 32}, {"sat1", 32}, {"sat2", 32}, {"sat3", 32}, {"sat4", 32}, {"sat5", 32}, {"sun", 30}, {"moon", 20}}};
  for (const auto& [name, side] : sprites) {
    for (const char* kind : {"-mask", "-image"}) {
      const std::string start = "pictures/" + name + kind;
      EXPECT_EQ(PngSize(Bytes(start + ".png")), (Size{side, side})) << start;
      EXPECT_EQ(PngSize(Bytes(start + "@15.png")), (Size{side * 3 / 2, side * 3 / 2})) << start;
      EXPECT_EQ(PngSize(Bytes(start + "@2.png")), (Size{side * 2, side * 2})) << start;
    }
  }
}

TEST(SamplePictures, EveryPictureOfTheResourceListIsThereAndNotEmpty) {
  const std::string list = Bytes("pictures/pictures.qrc");
  int count = 0;
  for (size_t at = list.find("<file>"); at != std::string::npos; at = list.find("<file>", at + 1)) {
    const std::string name = list.substr(at + 6, list.find("</file>", at) - at - 6);
    EXPECT_FALSE(Bytes("pictures/" + name).empty()) << name;
    ++count;
  }
  EXPECT_EQ(count, 63);
}

TEST(SampleHelp, EveryLinkIntoThePageHasItsPlace) {
  const std::string page = Bytes("sample/faq.html");
  for (size_t at = page.find("href=\"#"); at != std::string::npos; at = page.find("href=\"#", at + 1)) {
    const std::string place = page.substr(at + 7, page.find('"', at + 7) - at - 7);
    EXPECT_NE(page.find("id=\"" + place + "\""), std::string::npos) << place;
  }
}

}  // namespace
}  // namespace kestrava
