// Passes against values of other tools: the rows of the window to a second and a degree, the facts of the command line
// to 0.1 s. Origin: tests/data/reference/README.md.

#include <algorithm>
#include <cmath>
#include <map>
#include <string>

#include <gtest/gtest.h>

#include "orbit/ReferenceData.h"
#include "platform/Text.h"
#include "predict/PassCalc.h"
#include "predict/PassText.h"

#include "support/SkyHouse.h"

namespace kestrava::predict {
namespace {

using orbit::reference::Row;
using orbit::reference::Table;

class PassReference : public testing::SkyHouse {
 protected:
  PassReference() {
    for (const auto* name : {"amateur.txt", "stations.txt", "geo.txt", "weather.txt"})
      files.Remove("/house/" + std::string(name));
    Put("reference.txt", orbit::reference::FileBytes("reference/elements.txt"));
    engine.SetDataFolder("");
    engine.SetDataFolder(platform::AppDir);
  }
  void ObserveFrom(const Row& row) {
    engine.SetObserver(
        {row.Number("obs_lat_deg"), std::fmod(row.Number("obs_lon_deg") + 360, 360), row.Number("obs_h_m")});
  }
  static double Apart(double a, double b) { return std::abs(std::remainder(a - b, 360)); }
  /// The limit of the reference: 0.1 s, or 0.001 degrees at the rate with which the horizon is crossed.
  static double LimitS(const Row& row, const char* rate) { return std::max(0.1, 0.001 / std::abs(row.Number(rate))); }
};

TEST_F(PassReference, FactsAgreeWithinATenthOfASecond) {
  std::map<std::string, std::vector<PassFacts>> known;
  int compared = 0;
  const Table reference("reference/passes.csv");
  for (const Row& row : reference.Rows()) {
    if (row.Text("status") != "pass") continue;
    ObserveFrom(row);
    const std::string key = row.Text("name") + row.Text("obs_lat_deg");
    if (!known.contains(key)) known[key] = FindPasses(engine, row.Text("name"), 46341, 3, -1);
    const double highest = row.Number("aos_serial") / 2 + row.Number("los_serial") / 2;
    const PassFacts* match = nullptr;
    for (const PassFacts& pass : known[key]) {
      if (pass.riseUtc < highest && pass.setUtc > highest) match = &pass;
    }
    ASSERT_NE(match, nullptr) << key << " " << row.Text("aos_utc");
    EXPECT_NEAR((match->riseUtc - row.Number("aos_serial")) * 86400, 0, LimitS(row, "el_rate_aos_deg_s")) << key;
    EXPECT_NEAR((match->setUtc - row.Number("los_serial")) * 86400, 0, LimitS(row, "el_rate_los_deg_s")) << key;
    EXPECT_NEAR(match->highestElevationDeg, row.Number("max_el_deg"), 0.005) << key;
    EXPECT_LT(Apart(match->riseAzimuthDeg, row.Number("az_aos_deg")), 0.01) << key;
    EXPECT_LT(Apart(match->setAzimuthDeg, row.Number("az_los_deg")), 0.01) << key;
    EXPECT_EQ(match->catalogueNumber, row.Whole("satnum"));
    ++compared;
  }
  EXPECT_EQ(compared, 302);
}

TEST_F(PassReference, NoNearMissBecomesAPass) {
  const Table reference("reference/near_misses.csv");
  for (const Row& row : reference.Rows()) {
    ObserveFrom(row);
    for (const PassFacts& pass : FindPasses(engine, row.Text("name"), 46341, 3, -1)) {
      EXPECT_FALSE(pass.riseUtc <= row.Number("serial") && pass.setUtc >= row.Number("serial")) << row.Text("utc");
    }
  }
}

TEST_F(PassReference, RowsAgreeWithinASecondAndADegree) {
  int compared = 0;
  const Table reference("reference/passes.csv");
  for (const Row& row : reference.Rows()) {
    if (row.Text("status") != "pass") continue;
    const platform::DateParts end = platform::SplitSerial(row.Number("los_serial"));
    if (end.day > 17) continue;
    ObserveFrom(row);
    PassTable table;
    CalcResults(sky, table, row.Text("name"), static_cast<std::int16_t>(end.day), 11, 2026, false);
    if (row.Number("duration_s") >= 11 * 3600) continue;  // a row that hides its times
    const PassRow* match = nullptr;
    for (const PassRow& cells : table.Rows()) {
      if (cells[kDurationCell] == "24 Hours") continue;
      const double start = ParseDateCell(cells[kDateCell]) + ParseTimeCell(cells[kTimeCell]);
      if (std::abs(start - row.Number("aos_serial")) * 86400 <= 1) match = &cells;
    }
    ASSERT_NE(match, nullptr) << row.Text("name") << " " << row.Text("aos_utc");
    EXPECT_NEAR(ParseTimeCell((*match)[kDurationCell]) * 86400, row.Number("duration_s"), 1.01);
    EXPECT_LT(Apart(std::stod((*match)[kStartAzimuthCell]), row.Number("az_aos_deg")), 1);
    EXPECT_LT(Apart(std::stod((*match)[kEndAzimuthCell]), row.Number("az_los_deg")), 1);
    EXPECT_NEAR(std::stod((*match)[kMaxElevationCell].substr(0, 2)), std::floor(row.Number("max_el_deg")), 0);
    const double middle = (row.Number("aos_serial") + row.Number("los_serial")) / 2;
    const double shownDeg = std::stod((*match)[kMaxElevationCell].substr(7, 3));
    double nearestDeg = 360;  // the direction at which it stands within a second of the middle
    for (int tenth = -10; tenth <= 10; ++tenth) {
      const double azimuthRad = engine.LookAngle(row.Text("name"), middle + tenth / 864000.0).azimuthRad;
      nearestDeg = std::min(nearestDeg, Apart(shownDeg, azimuthRad * 180 / 3.14159265358979));
    }
    EXPECT_LT(nearestDeg, 1) << row.Text("aos_utc");
    ++compared;
  }
  EXPECT_GT(compared, 280);
}

}  // namespace
}  // namespace kestrava::predict
