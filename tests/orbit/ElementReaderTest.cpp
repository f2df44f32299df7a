// The reader of element files: every form that it is met in, and every reason to leave a set out.

#include <algorithm>
#include <chrono>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/ElementReader.h"
#include "orbit/Sgp4.h"
#include "platform/SerialDate.h"

#include "ReferenceData.h"

namespace kestrava::orbit {
namespace {

const std::string kName = "ISS (ZARYA)             ";
const std::string kLine1 = "1 25544U 98067A   26318.89808844  .00002078  00000-0  38550-4 0  9991";
const std::string kLine2 = "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614";

std::string WithChecksum(std::string line) {
  int sum = 0;
  for (const char c : line.substr(0, 68)) sum += c >= '0' && c <= '9' ? c - '0' : c == '-' ? 1 : 0;
  line[68] = static_cast<char>('0' + sum % 10);
  return line;
}

/// A line with another text from a column on (columns counted from 1), its checksum renewed.
std::string Changed(std::string line, std::size_t column, const std::string& text) {
  return WithChecksum(line.replace(column - 1, text.size(), text));
}

std::string SetOf(const std::string& name, const std::string& line1, const std::string& line2) {
  return name + "\r\n" + line1 + "\r\n" + line2 + "\r\n";
}

std::string Good(const std::string& name = kName) {
  return SetOf(name, kLine1, kLine2);
}

std::string Joined(const std::string& lineEnd) {
  return kName + lineEnd + kLine1 + lineEnd + kLine2;
}

/// The bad set is left out with this reason, and its neighbours load.
void ExpectRefused(const std::string& line1, const std::string& line2, const std::string& reason) {
  const ElementFile file = ReadElementSets(Good("BEFORE") + SetOf("BAD ONE", line1, line2) + Good("AFTER"));
  ASSERT_EQ(file.refused.size(), 1U) << line1 << '\n' << line2;
  EXPECT_EQ(file.refused[0].name, "BAD ONE");
  EXPECT_EQ(file.refused[0].reason, reason) << line1 << '\n' << line2;
  ASSERT_EQ(file.sets.size(), 2U);
  EXPECT_EQ(file.sets[0].name, "BEFORE");
  EXPECT_EQ(file.sets[1].name, "AFTER");
}

TEST(ElementReader, ReadsEachFieldOfASet) {
  const ElementFile file = ReadElementSets(Good());
  ASSERT_EQ(file.sets.size(), 1U);
  EXPECT_TRUE(file.refused.empty());
  const ElementSet& set = file.sets[0];
  EXPECT_EQ(set.name, "ISS (ZARYA)");
  EXPECT_EQ(set.catalogueNumber, 25544);
  EXPECT_EQ(set.epoch.wholeDays, 46340);
  EXPECT_EQ(set.epoch.dayFraction, 0.89808844);
  EXPECT_EQ(set.meanMotionDotRevPerDay2, 0.00002078);
  EXPECT_EQ(set.meanMotionDotDotRevPerDay3, 0);
  EXPECT_DOUBLE_EQ(set.dragTermPerEarthRadius, 0.38550e-4);
  EXPECT_EQ(set.elementNumber, 999);
  EXPECT_EQ(set.inclinationDeg, 51.6424);
  EXPECT_EQ(set.ascendingNodeDeg, 32.9776);
  EXPECT_EQ(set.eccentricity, 0.0003646);
  EXPECT_EQ(set.argumentOfPerigeeDeg, 28.7227);
  EXPECT_EQ(set.meanAnomalyDeg, 39.5332);
  EXPECT_EQ(set.meanMotionRevPerDay, 15.54190080);
  EXPECT_EQ(set.revolutionNumber, 9561);
}

TEST(ElementReader, TakesEveryKindOfLineEnd) {
  for (const std::string end : {"\r\n", "\n", "\r", "\r\r\n", "\n\n"}) {
    const ElementFile file = ReadElementSets(Joined(end) + end + Joined(end) + end);
    EXPECT_EQ(file.sets.size(), 2U) << "line end of " << end.size() << " characters, first " << int{end[0]};
    EXPECT_TRUE(file.refused.empty());
  }
}

TEST(ElementReader, DoesWithoutTheLastLineEnd) {
  EXPECT_EQ(ReadElementSets(Joined("\n")).sets.size(), 1U);
  EXPECT_EQ(ReadElementSets(Joined("\r\n")).sets.size(), 1U);
}

TEST(ElementReader, IgnoresTrailingBlanksAndTabs) {
  const ElementFile file = ReadElementSets(SetOf(kName + "\t ", kLine1 + "   \t", kLine2 + " "));
  ASSERT_EQ(file.sets.size(), 1U);
  EXPECT_EQ(file.sets[0].name, "ISS (ZARYA)");
}

TEST(ElementReader, TakesATabForABlank) {
  std::string line1 = kLine1, line2 = kLine2;
  line1[1] = '\t';
  line2[1] = line2[25] = '\t';
  EXPECT_EQ(ReadElementSets(SetOf("TABBED\t1", line1, line2)).sets.size(), 1U);
}

TEST(ElementReader, SkipsAByteOrderMark) {
  const ElementFile file = ReadElementSets("\xEF\xBB\xBF" + Good());
  ASSERT_EQ(file.sets.size(), 1U);
  EXPECT_EQ(file.sets[0].name, "ISS (ZARYA)");
}

TEST(ElementReader, PassesOverAHeader) {
  const std::string header = "SB KEPS\r\nORBITAL ELEMENTS, 2026\r\n\r\n1 of 2 files\r\n\r\n";
  const ElementFile file = ReadElementSets(header + Good() + Good("NEXT"));
  ASSERT_EQ(file.sets.size(), 2U);
  EXPECT_EQ(file.sets[0].name, "ISS (ZARYA)");
  EXPECT_TRUE(file.refused.empty());
}

TEST(ElementReader, TakesTheZeroOffANameLine) {
  EXPECT_EQ(ReadElementSets(Good("0 ISS (ZARYA)")).sets.at(0).name, "ISS (ZARYA)");
}

TEST(ElementReader, TakesANameThatBeginsWithANumber) {
  EXPECT_EQ(ReadElementSets(Good("1 KUNS")).sets.at(0).name, "1 KUNS");
  EXPECT_EQ(ReadElementSets(Good() + Good("2 CUBE")).sets.at(1).name, "2 CUBE");
}

TEST(ElementReader, CutsANameAtFifteenCharactersNotBytes) {
  EXPECT_EQ(ReadElementSets(Good("ABCDEFGHIJKLMNOPQR")).sets.at(0).name, "ABCDEFGHIJKLMNO");
  EXPECT_EQ(ReadElementSets(Good("\xC3\x9C"
                                 "BCDEFGHIJKLMNOPQ"))
                .sets.at(0)
                .name,
            "\xC3\x9C"
            "BCDEFGHIJKLMNO");
  EXPECT_EQ(ReadElementSets(Good("\xDC"
                                 "BCDEFGHIJKLMNOPQ"))
                .sets.at(0)
                .name,
            "\xC3\x9C"
            "BCDEFGHIJKLMNO");
}

TEST(ElementReader, KeepsCommaAndQuoteOutOfNames) {
  EXPECT_EQ(ReadElementSets(Good("A,B\"C")).sets.at(0).name, "A B C");
}

TEST(ElementReader, NamesASetWithoutANameLineByItsNumber) {
  const ElementFile file = ReadElementSets(kLine1 + "\n" + kLine2 + "\n" + kLine1 + "\n" + kLine2 + "\n");
  ASSERT_EQ(file.sets.size(), 2U);
  EXPECT_EQ(file.sets[0].name, "25544");
  EXPECT_EQ(file.sets[1].name, "25544");
}

TEST(ElementReader, DoesNotTakeARemarkForAName) {
  EXPECT_EQ(ReadElementSets(Good("# made today")).sets.at(0).name, "25544");
}

TEST(ElementReader, ReadsLettersInCatalogueNumbers) {
  EXPECT_EQ(CatalogueNumberFrom("A0000"), 100000);
  EXPECT_EQ(CatalogueNumberFrom("H9999"), 179999);
  EXPECT_EQ(CatalogueNumberFrom("J2931"), 182931);
  EXPECT_EQ(CatalogueNumberFrom("N0001"), 220001);
  EXPECT_EQ(CatalogueNumberFrom("P4018"), 234018);
  EXPECT_EQ(CatalogueNumberFrom("Z9999"), 339999);
  EXPECT_EQ(CatalogueNumberFrom("    5"), 5);
  const std::string line1 = Changed(kLine1, 3, "B1234"), line2 = Changed(kLine2, 3, "B1234");
  EXPECT_EQ(ReadElementSets(SetOf("X", line1, line2)).sets.at(0).catalogueNumber, 111234);
}

TEST(ElementReader, RefusesOtherLettersInCatalogueNumbers) {
  for (const char* bad : {"I0000", "O0000", "a0000", "1A000", "A 000", "     ", "-1234", "A000",
                          "\xC3\x84"
                          "000"}) {
    EXPECT_EQ(CatalogueNumberFrom(bad), -1) << bad;
  }
  ExpectRefused(Changed(kLine1, 3, "I5544"), Changed(kLine2, 3, "I5544"), "catalogue number");
  ExpectRefused(Changed(kLine1, 3, "b5544"), Changed(kLine2, 3, "b5544"), "catalogue number");
}

TEST(ElementReader, RefusesLinesOfTwoSatellites) {
  ExpectRefused(kLine1, Changed(kLine2, 3, "25545"), "catalogue number");
}

TEST(ElementReader, TakesTheYears57To99ForTheLastCentury) {
  const auto serialOf = [](const std::string& year) {
    const auto file = ReadElementSets(SetOf("X", Changed(kLine1, 19, year + "001.50000000"), kLine2));
    return file.sets.at(0).epoch.Serial();
  };
  EXPECT_EQ(serialOf("57"), platform::MakeSerial({1957, 1, 1, 12, 0, 0}));
  EXPECT_EQ(serialOf("99"), platform::MakeSerial({1999, 1, 1, 12, 0, 0}));
  EXPECT_EQ(serialOf("00"), platform::MakeSerial({2000, 1, 1, 12, 0, 0}));
  EXPECT_EQ(serialOf("01"), platform::MakeSerial({2001, 1, 1, 12, 0, 0}));
  EXPECT_EQ(serialOf("56"), platform::MakeSerial({2056, 1, 1, 12, 0, 0}));
}

TEST(ElementReader, LeavesOutASetWithoutAnEpoch) {
  ExpectRefused(Changed(kLine1, 19, "00000.00000000"), kLine2, "no epoch");
  ExpectRefused(Changed(kLine1, 19, "26367.00000000"), kLine2, "no epoch");
  ExpectRefused(Changed(kLine1, 19, "26999999999999"), kLine2, "no epoch");
}

TEST(ElementReader, LeavesOutASetWithAWrongChecksum) {
  std::string wrong = kLine1;
  wrong[68] = '2';
  ExpectRefused(wrong, kLine2, "wrong checksum");
  wrong = kLine2;
  wrong[68] = ' ';
  ExpectRefused(kLine1, wrong.substr(0, 68) + "X", "wrong checksum");
}

TEST(ElementReader, LeavesOutASetOfWrongLength) {
  ExpectRefused(kLine1.substr(0, 68), kLine2, "wrong length");
  ExpectRefused(kLine1, kLine2 + "0", "wrong length");
  ExpectRefused("1 25544U", "2 255", "wrong length");
}

TEST(ElementReader, LeavesOutASetWithLettersForNumbers) {
  const std::string reason = "no number where one belongs";
  ExpectRefused(kLine1, Changed(kLine2, 9, " 51.6A24"), reason);
  ExpectRefused(kLine1, Changed(kLine2, 9, " 5 1.642"), reason);
  ExpectRefused(kLine1, Changed(kLine2, 27, "00036O6"), reason);
  ExpectRefused(kLine1, Changed(kLine2, 53, "1.5e1190080"), reason);
  ExpectRefused(kLine1, Changed(kLine2, 44, "     nan"), reason);
  ExpectRefused(kLine1, Changed(kLine2, 44, "     inf"), reason);
  ExpectRefused(kLine1, Changed(kLine2, 9, "51,64240"), reason);
  ExpectRefused(Changed(kLine1, 54, " 3855O-4"), kLine2, reason);
  ExpectRefused(Changed(kLine1, 54, " 38550-x"), kLine2, reason);
  ExpectRefused(Changed(kLine1, 19, "2x"), kLine2, reason);
  ExpectRefused(kLine1, Changed(kLine2, 64, " 95x1"), reason);
  ExpectRefused(kLine1, Changed(kLine2, 9, "        "), reason);
}

TEST(ElementReader, LeavesOutAnEccentricityOfOneOrMore) {
  ExpectRefused(kLine1, Changed(kLine2, 27, "1.00000"), "eccentricity of 1 or more");
  ExpectRefused(kLine1, Changed(kLine2, 27, "2.50000"), "eccentricity of 1 or more");
}

TEST(ElementReader, LeavesOutAMeanMotionOfZero) {
  ExpectRefused(kLine1, Changed(kLine2, 53, " 0.00000000"), "no mean motion");
  ExpectRefused(kLine1, Changed(kLine2, 53, "-1.00000000"), "no mean motion");
}

TEST(ElementReader, LeavesOutAnglesThatAreNone) {
  ExpectRefused(kLine1, Changed(kLine2, 9, "180.0001"), "angle out of range");
  ExpectRefused(kLine1, Changed(kLine2, 18, "360.0001"), "angle out of range");
  ExpectRefused(kLine1, Changed(kLine2, 35, " -1.0000"), "angle out of range");
}

TEST(ElementReader, NamesHalfASet) {
  const ElementFile noSecond = ReadElementSets(Good() + "CUT\n" + kLine1 + "\n");
  ASSERT_EQ(noSecond.refused.size(), 1U);
  EXPECT_EQ(noSecond.refused[0].name, "CUT");
  const ElementFile noFirst = ReadElementSets("CUT\n" + kLine2 + "\n" + Good());
  ASSERT_EQ(noFirst.refused.size(), 1U);
  EXPECT_EQ(noFirst.refused[0].name, "CUT");
  EXPECT_EQ(noFirst.sets.size(), 1U);
}

TEST(ElementReader, IsAsStrictAsItIsToldToBe) {
  const std::string published = reference::FileBytes("reference/sgp4-verification/SGP4-VER.TLE");
  EXPECT_EQ(ReadElementSets(published, {false, false}).sets.size(), 33U);
  EXPECT_TRUE(ReadElementSets(published, {false, false}).refused.empty());
  EXPECT_TRUE(ReadElementSets(published).sets.empty());  // figures stand behind column 69 of all of them
  const ElementFile checked = ReadElementSets(published, {true, false});
  EXPECT_EQ(checked.sets.size(), 30U);  // 33333, 33334 and 33335 have wrong checksums
  EXPECT_EQ(checked.refused.size(), 3U);
}

TEST(ElementReader, ReadsExponentFormsOfTheDragTerm) {
  const auto dragOf = [](const std::string& field) {
    return ReadElementSets(SetOf("X", Changed(kLine1, 54, field), kLine2)).sets.at(0).dragTermPerEarthRadius;
  };
  EXPECT_DOUBLE_EQ(dragOf("-11606-4"), -0.11606e-4);
  EXPECT_DOUBLE_EQ(dragOf("+12345-3"), 0.12345e-3);
  EXPECT_DOUBLE_EQ(dragOf(" 00000+0"), 0);
  EXPECT_DOUBLE_EQ(dragOf(" 12345+1"), 1.2345);
  EXPECT_DOUBLE_EQ(dragOf("        "), 0);
}

TEST(ElementReader, LoadsTheReferenceSetsWhole) {
  const ElementFile file = ReadElementSets(reference::FileBytes("reference/elements.txt"));
  EXPECT_EQ(file.sets.size(), 44U);
  EXPECT_TRUE(file.refused.empty());
}

TEST(ElementReader, SurvivesAnyCutOfAFile) {
  const std::string whole = Good() + Good("NEXT");
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    EXPECT_LE(ReadElementSets(whole.substr(0, size)).sets.size(), 2U);
  }
}

TEST(ElementReader, SurvivesAnyChangedByteAndItsSetsPropagate) {
  constexpr unsigned kSeed = 31337;
  std::mt19937 random(kSeed);
  SCOPED_TRACE("seed " + std::to_string(kSeed));
  const std::string whole =
      Good() + SetOf("GEO", "1 28912U 05049B   26318.61440741  .00000010  00000-0  00000+0 0  9999",
                     "2 28912   1.2345  32.9776 0003646  28.7227  39.5332  1.00270080 95614");
  for (int i = 0; i < 20000; ++i) {
    std::string text = whole;
    for (int k = 0; k < 3; ++k) text[random() % text.size()] = static_cast<char>(random() % 256);
    for (const ElementSet& set : ReadElementSets(text, {false, false}).sets) {
      const Sgp4 model(set);
      const Sgp4State state = model.Propagate(1000);
      EXPECT_TRUE(state.error != ModelError::kNone || std::isfinite(state.positionKm.x)) << text;
    }
  }
}

TEST(ElementReader, EndsOnTenMegabytesOfAnything) {
  constexpr std::size_t kBytes = 10'000'000;
  const auto repeated = [](const std::string& piece) {
    std::string text;
    text.reserve(kBytes + piece.size());
    while (text.size() < kBytes) text += piece;
    return text;
  };
  constexpr unsigned kSeed = 5;
  std::mt19937 random(kSeed);
  std::string noise(kBytes, '\0');
  std::generate(noise.begin(), noise.end(), [&] { return static_cast<char>(random()); });
  for (const std::string& text : {noise, repeated("\r"), repeated("\n"), repeated("1 "), repeated("1 x\n2 x\n"),
                                  repeated("\xE9\n1 x\n2 x\n"), repeated("\xFF"), repeated("1 \r"),
                                  repeated(std::string(1, '\0')), repeated(kLine1 + "\n"), repeated(Good())}) {
    const ElementFile file = ReadElementSets(text);
    EXPECT_LE(file.sets.size() + file.refused.size(), kBytes / 3);
  }
}

}  // namespace
}  // namespace kestrava::orbit
