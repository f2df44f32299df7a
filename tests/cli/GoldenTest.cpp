// Frozen answers of every command in every format: fixed clock, place and elements. KESTRAVA_WRITE_GOLDEN=1 writes them
// anew; what changes then needs a sentence in the commit.
#include <cstdlib>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "cli/Terminal.h"

namespace kestrava::cli {
namespace {

/// With six places behind each point: the last digits depend on the machine's mathematical library.
std::string SixPlaces(const std::string& text) {
  std::string cut;
  int places = -1;  // behind a point, or none
  for (const char c : text) {
    const bool isDigit = c >= '0' && c <= '9';
    places = c == '.' ? 0 : isDigit && places >= 0 ? places + 1 : -1;
    if (places <= 6) cut += c;
  }
  return cut;
}

class Golden : public Terminal {
 protected:
  Golden() {
    Put("pass.dat", "Morning\r\nISS (ZARYA);\r\nNOAA 15;\r\n1\r\n0\r\n0\r\n");
    clock.SetOffsetHours(1);
  }

  void Compare(const std::vector<std::string>& arguments, const std::string& name) {
    const Answer answer = Run(arguments);
    EXPECT_EQ(answer.code, 0) << name << ": " << answer.err;
    const std::string path = KESTRAVA_TEST_DATA "golden/cli/" + name;
    if (std::getenv("KESTRAVA_WRITE_GOLDEN")) std::ofstream(path, std::ios::binary) << answer.out;
    std::ostringstream golden;
    golden << std::ifstream(path, std::ios::binary).rdbuf();
    EXPECT_EQ(SixPlaces(answer.out), SixPlaces(golden.str())) << name;
  }
  void CompareAll(std::vector<std::string> arguments, const std::string& name,
                  const std::vector<std::string>& formats) {
    arguments.insert(arguments.end(), {"--format", ""});
    for (const std::string& format : formats) {
      arguments.back() = format;
      Compare(arguments, name + "." + (format == "text" ? "txt" : format == "ical" ? "ics" : format));
    }
  }
};

TEST_F(Golden, EveryCommandInEveryFormatIsAsItWas) {
  const std::vector<std::string> data{"text", "csv", "json"};
  const std::vector<std::string> all{"text", "csv", "json", "ical"};
  CompareAll({"passes", "ISS (ZARYA)", "NOAA 15", "38552"}, "passes", all);
  CompareAll({"job", "Morning"}, "job", all);
  CompareAll({"jobs"}, "jobs", data);
  CompareAll({"next"}, "next", data);
  CompareAll({"where", "ISS (ZARYA)", "38552", "--at", "-33.9,151.2,20"}, "where", data);
  CompareAll({"list", "groups"}, "groups", data);
  CompareAll({"list", "favourites"}, "favourites", data);
  CompareAll({"list"}, "satellites", data);
}

TEST_F(Golden, OptionsThatChooseAndPlaceAreAsTheyWere) {
  CompareAll({"passes", "ISS (ZARYA)", "OSCAR 7 (AO-7)", "--days", "3", "--visible", "--min-elevation", "20"},
             "passes-visible", {"text", "csv", "json", "ical"});
  CompareAll({"job", "Morning", "--from", "2026-11-17", "--min-elevation", "30"}, "job-from",
             {"text", "csv", "json", "ical"});
  CompareAll({"next", "ISS (ZARYA)", "NOAA 15", "38552", "--at", "-33.9,151.2,20", "--at-time", "2026-11-16T06:00Z"},
             "next-named", {"text", "csv", "json"});
}

}  // namespace
}  // namespace kestrava::cli
