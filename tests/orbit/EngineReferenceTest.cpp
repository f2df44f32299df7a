// The engine's own answers about passes against values of other tools (label validation): the next rise, the next set,
// and the text of the pass list. Origin: tests/data/reference/README.md.

#include <algorithm>
#include <cmath>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "platform/SerialDate.h"
#include "platform/Text.h"

#include "ReferenceData.h"
#include "support/House.h"

namespace kestrava::orbit {
namespace {

constexpr double kStartSerial = 46341;  // 2026-11-15, from which the reference lists passes for three days

class EngineReference : public testing::House {
 protected:
  /// An entry of the pass list as a reader of the text knows it.
  struct Entry {
    double startSerial = 0;
    double highestDeg = 0;
    double durationS = 0;
    double EndSerial() const { return startSerial + durationS / 86400; }
  };

  EngineReference() {
    Put("reference.txt", reference::FileBytes("reference/elements.txt"));
    engine_.SetDataFolder(platform::AppDir);
  }
  void ObserveFrom(const reference::Row& row) {
    engine_.SetObserver(
        {row.Number("obs_lat_deg"), std::fmod(row.Number("obs_lon_deg") + 360, 360), row.Number("obs_h_m")});
  }
  /// The reference's limit: 0.1 s, or 0.001 degrees at the rate with which the horizon is crossed.
  static double LimitS(const reference::Row& row, const char* rate) {
    return std::max(0.1, 0.001 / std::abs(row.Number(rate)));
  }
  static void ExpectMoment(double serial, const reference::Row& row, const char* moment, const char* rate) {
    if (row.IsEmpty(moment) || row.Number(moment) < 0) {
      EXPECT_EQ(serial, -1.0) << moment;
    } else {
      EXPECT_NEAR((serial - row.Number(moment)) * 86400, 0, LimitS(row, rate)) << moment;
    }
  }

  std::vector<Entry> ListOf(const std::string& name) {
    std::vector<Entry> entries;
    const std::string text = platform::ReplaceAll(engine_.CalcPassList(name, kStartSerial, 1, 3, 0, 0), "\"", "");
    if (text.empty()) return entries;
    for (const std::string& entry : platform::SplitAt(text, ',')) {
      const std::vector<std::string> fields = platform::SplitAt(entry, ' ');
      const auto number = [&](std::size_t at, std::size_t count) { return std::stoi(fields.at(0).substr(at, count)); };
      const double start =
          platform::MakeSerial({number(0, 4), number(4, 2), number(6, 2), number(8, 2), number(10, 2), number(12, 2)});
      entries.push_back({start, std::stod(fields.at(3)), std::stod(fields.at(4))});
    }
    return entries;
  }

  OrbitEngine engine_;
};

TEST_F(EngineReference, NextAOSTimeAndNextLOSTimeAgree) {
  const reference::Table table("reference/next.csv");
  ASSERT_EQ(table.Rows().size(), 115U);
  int never = 0;
  for (const reference::Row& row : table.Rows()) {
    SCOPED_TRACE(row.Text("name") + " after " + row.Text("query_utc"));
    ObserveFrom(row);
    const double rise = engine_.NextAOSTime(row.Text("name"), row.Number("query_serial"));
    const double set = engine_.NextLOSTime(row.Text("name"), row.Number("query_serial"));
    ExpectMoment(rise, row, "next_aos_serial", "el_rate_aos_deg_s");
    ExpectMoment(set, row, "next_los_serial", "el_rate_los_deg_s");
    never += rise < 0;
  }
  EXPECT_GT(never, 0) << "some of the table never rise";
}

TEST_F(EngineReference, EveryPassStandsInTheListToTheSecond) {
  std::map<std::string, std::vector<Entry>> known;
  int compared = 0;
  const reference::Table table("reference/passes.csv");
  for (const reference::Row& row : table.Rows()) {
    if (row.Text("status") != "pass") continue;
    ObserveFrom(row);
    const std::string key = row.Text("name") + " at " + row.Text("obs_lat_deg");
    if (!known.contains(key)) known[key] = ListOf(row.Text("name"));
    const double middle = (row.Number("aos_serial") + row.Number("los_serial")) / 2;
    const auto match = std::find_if(known[key].begin(), known[key].end(), [&](const Entry& entry) {
      return entry.startSerial < middle && entry.EndSerial() > middle;
    });
    ASSERT_NE(match, known[key].end()) << key << " " << row.Text("aos_utc");
    EXPECT_NEAR((match->startSerial - row.Number("aos_serial")) * 86400, 0, 1) << key;
    EXPECT_NEAR((match->EndSerial() - row.Number("los_serial")) * 86400, 0, 1) << key;
    EXPECT_NEAR(match->highestDeg, row.Number("max_el_deg"), 0.005) << key;
    ++compared;
  }
  EXPECT_EQ(compared, 302);
}

TEST_F(EngineReference, NoNearMissStandsInTheList) {
  const reference::Table table("reference/near_misses.csv");
  ASSERT_EQ(table.Rows().size(), 6U);
  for (const reference::Row& row : table.Rows()) {
    ObserveFrom(row);
    for (const Entry& entry : ListOf(row.Text("name"))) {
      EXPECT_TRUE(entry.EndSerial() < row.Number("serial") || entry.startSerial > row.Number("serial"))
          << row.Text("name") << " " << row.Text("utc");
    }
  }
}

}  // namespace
}  // namespace kestrava::orbit
