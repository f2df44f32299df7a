// Passes and next rises against values of other tools. Origin: tests/data/reference/README.md.
#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "cli/Terminal.h"
#include "orbit/ReferenceData.h"
#include "platform/Format.h"

namespace kestrava::cli {
namespace {

using orbit::reference::Row;
using orbit::reference::Table;

class Reference : public Terminal {
 protected:
  Reference() { files.Put("/reference/elements.txt", orbit::reference::FileBytes("reference/elements.txt")); }

  static std::string PlaceOf(const Row& row) {
    return row.Text("obs_lat_deg") + "," + row.Text("obs_lon_deg") + "," + row.Text("obs_h_m");
  }
  /// The serial date of "2026-11-15T00:40:40.721+00:00" or "...Z".
  static double SerialOf(const std::string& iso) {
    const auto number = [&](std::size_t at, std::size_t count) {
      return static_cast<int>(platform::Val(iso.substr(at, count)));
    };
    const double day =
        platform::MakeSerial({number(0, 4), number(5, 2), number(8, 2), number(11, 2), number(14, 2), 0});
    return day + platform::Val(iso.substr(17, 6)) / 86400;
  }
  static double Apart(double a, double b) { return std::abs(std::remainder(a - b, 360)); }
  static double LimitS(const Row& row, const char* rate) { return std::max(0.1, 0.001 / std::abs(row.Number(rate))); }

  Json PassesOf(const Row& row) {
    return Run({"passes", row.Text("satnum"), "--data", "/reference", "--from", "2026-11-15", "--days", "3", "--at",
                PlaceOf(row), "--min-elevation", "-90", "--format", "json"})
        .OutAsJson()["passes"];
  }
};

TEST_F(Reference, PassesAgreeWithinATenthOfASecond) {
  std::map<std::string, Json> known;
  int compared = 0;
  const Table reference("reference/passes.csv");
  for (const Row& row : reference.Rows()) {
    if (row.Text("status") != "pass") continue;
    const std::string key = row.Text("satnum") + " at " + PlaceOf(row);
    if (!known.contains(key)) known[key] = PassesOf(row);
    const double middle = (row.Number("aos_serial") + row.Number("los_serial")) / 2;
    const auto match = std::find_if(known[key].begin(), known[key].end(), [&](const Json& pass) {
      return SerialOf(pass["start_time"]) < middle && SerialOf(pass["end_time"]) > middle;
    });
    ASSERT_NE(match, known[key].end()) << key << " " << row.Text("aos_utc");
    const Json& pass = *match;
    const auto apartS = [&](const char* ours, const char* theirs) {
      return (SerialOf(pass[ours]) - row.Number(theirs)) * 86400;
    };
    EXPECT_NEAR(apartS("start_time", "aos_serial"), 0, LimitS(row, "el_rate_aos_deg_s")) << key;
    EXPECT_NEAR(apartS("end_time", "los_serial"), 0, LimitS(row, "el_rate_los_deg_s")) << key;
    EXPECT_NEAR(pass["max_elevation_deg"], row.Number("max_el_deg"), 0.005) << key;
    EXPECT_LT(Apart(pass["start_azimuth_deg"], row.Number("az_aos_deg")), 0.01) << key;
    EXPECT_LT(Apart(pass["end_azimuth_deg"], row.Number("az_los_deg")), 0.01) << key;
    ++compared;
  }
  EXPECT_EQ(compared, 302);
}

TEST_F(Reference, NearMissesAreNoPasses) {
  const Table reference("reference/near_misses.csv");
  EXPECT_EQ(reference.Rows().size(), 6u);
  for (const Row& row : reference.Rows()) {
    for (const Json& pass : PassesOf(row)) {
      const bool covers =
          SerialOf(pass["start_time"]) < row.Number("serial") && SerialOf(pass["end_time"]) > row.Number("serial");
      EXPECT_FALSE(covers) << row.Text("name") << " " << row.Text("utc");
    }
  }
}

TEST_F(Reference, NextRisesAndSetsAgreeWithinATenthOfASecond) {
  const Table reference("reference/next.csv");
  EXPECT_EQ(reference.Rows().size(), 115u);
  for (const Row& row : reference.Rows()) {
    const Json next = Run({"next", row.Text("satnum"), "--data", "/reference", "--at", PlaceOf(row), "--at-time",
                           row.Text("query_utc"), "--format", "json"})
                          .OutAsJson()["next"][0];
    const std::string what = row.Text("name") + " " + row.Text("query_utc") + " " + next.dump();
    EXPECT_EQ(next["in_view"].get<bool>(), row.Whole("in_view") == 1) << what;
    const auto check = [&](const char* key, const char* serial, const char* rate) {
      if (row.IsEmpty(serial) || row.Number(serial) < 0) return;  // none in the reference's days
      ASSERT_TRUE(next[key].is_string()) << what;
      EXPECT_NEAR((SerialOf(next[key]) - row.Number(serial)) * 86400, 0, LimitS(row, rate)) << what;
    };
    check("next_rise", "next_aos_serial", "el_rate_aos_deg_s");
    check("next_set", "next_los_serial", "el_rate_los_deg_s");
  }
}

}  // namespace
}  // namespace kestrava::cli
