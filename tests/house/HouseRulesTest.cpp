#if defined(__GNUC__) && !defined(__clang__) && defined(__SANITIZE_ADDRESS__)
// Under the sanitizers gcc 12 takes a state of <regex> for uninitialised that is not.
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif

// The rules of the house that a compiler does not know. A failure says what to do.
#include <algorithm>
#include <regex>
#include <set>

#include <gtest/gtest.h>

#include "house/SourceTree.h"

namespace kestrava::house {
namespace {

/// Lists every line of code that matches, unless its file or folder is one of those that may.
void ExpectNowhere(const std::vector<std::string>& folders, const std::string& pattern,
                   const std::vector<std::string>& allowed, const std::string& advice) {
  const std::regex forbidden{pattern};
  for (const SourceFile& file : ReadSources(folders)) {
    if (std::any_of(allowed.begin(), allowed.end(), [&](auto& start) { return file.path.starts_with(start); }))
      continue;
    for (std::size_t i = 0; i < file.lines.size(); ++i)
      EXPECT_FALSE(std::regex_search(CodeOf(file.lines[i]), forbidden))
          << file.path << ":" << i + 1 << ": " << file.lines[i] << "\n  " << advice;
  }
}

/// The same, on the line as it stands: for includes, whose names are quoted.
void ExpectNoInclude(const std::string& pattern, const std::string& advice) {
  const std::regex forbidden{R"(^\s*#\s*include\s*[<"][^>"]*)" + pattern};
  for (const SourceFile& file : ReadSources({"src", "bench", "fuzz"}))
    for (std::size_t i = 0; i < file.lines.size(); ++i)
      EXPECT_FALSE(std::regex_search(file.lines[i], forbidden)) << file.path << ":" << i + 1 << ": " << advice;
}

bool IsPublicHeader(const std::string& path) {
  return path.find("/include/") != std::string::npos;
}

TEST(Floors, NoIncludeClimbsOutOfItsFolder) {
  ExpectNoInclude(R"(\.\./)", "name the floor's public header instead of climbing to a private one");
}

TEST(Floors, NoIncludeReachesTheToolkitThroughTheSystemFolder) {
  ExpectNoInclude(R"(qt6/)", "write <QWidget>, and only on a floor whose row in cmake/Floors.cmake names the toolkit");
}

TEST(Doors, NoClockButTheClockDoor) {
  ExpectNowhere(
      {"src"},
      R"(system_clock|steady_clock|high_resolution_clock|gettimeofday|clock_gettime|localtime|gmtime|\btime\(|currentDateTime|currentTime|currentMSecs|QElapsedTimer)",
      {"src/platform/linux/"}, "ask platform::TheClock(), so that tests can set the time");
}

TEST(Doors, NothingSleeps) {
  ExpectNowhere({"src", "tests"}, R"(\bsleep\(|usleep|nanosleep|sleep_for|sleep_until|msleep|qWait\(|qSleep)", {},
                "wait for an event or advance the simulated clock");
}

TEST(Doors, NumbersBecomeTextInOnePlace) {
  ExpectNowhere({"src"}, R"(\bsto[dfil]\(|strto[df]|\bato[fi]\(|sscanf|setlocale|\bs?n?printf\()",
                {"src/platform/Format.cpp", "src/platform/linux/StationVoice.cpp"},
                "use platform/Format.h: these functions follow the machine's locale");
}

TEST(Doors, NoRandomNumbersButTheDoor) {
  ExpectNowhere({"src"}, R"(\brand\(|random_device|mt19937|QRandomGenerator)", {"src/platform/linux/"},
                "ask platform::TheRandom(), so that tests repeat");
}

TEST(Style, NoNakedNew) {
  // The toolkit's own objects belong to their parents and are made with new.
  for (const SourceFile& file : ReadSources({"src"})) {
    if (file.path.find("/ui/") != std::string::npos || file.path.find("platform/qt/") != std::string::npos) continue;
    for (std::size_t i = 0; i < file.lines.size(); ++i)
      EXPECT_FALSE(std::regex_search(CodeOf(file.lines[i]), std::regex{R"(\bnew [A-Za-z])"}))
          << file.path << ":" << i + 1 << ": use a value or std::make_unique";
  }
}

TEST(Style, EveryHeaderSaysPragmaOnceAndWhatLivesThere) {
  for (const SourceFile& file : ReadSources({"src"})) {
    if (!file.path.ends_with(".h")) continue;
    ASSERT_GT(file.lines.size(), 3u) << file.path;
    EXPECT_TRUE(std::any_of(file.lines.begin(), file.lines.end(), [](auto& l) { return l == "#pragma once"; }))
        << file.path;
    if (!IsPublicHeader(file.path)) continue;
    EXPECT_TRUE(std::any_of(file.lines.begin(), file.lines.begin() + 3, [](auto& l) { return l.starts_with("//"); }))
        << file.path << ": begin with a paragraph: what lives here, who calls it";
  }
}

TEST(Sizes, NoFileIsLongerThanSixHundredLines) {
  for (const SourceFile& file : ReadSources({"src"}))
    EXPECT_LE(file.lines.size(), 600u) << file.path << " has stopped being one thing: split it";
}

TEST(Sizes, NoPublicHeaderIsLongerThanTwoHundredLines) {
  for (const SourceFile& file : ReadSources({"src"})) {
    if (!IsPublicHeader(file.path)) continue;
    EXPECT_LE(file.lines.size(), 200u) << file.path;
  }
}

TEST(Sizes, NineFilesInTenStayBelowFourHundredLines) {
  const auto files = ReadSources({"src"});
  const auto large = std::count_if(files.begin(), files.end(), [](const auto& f) { return f.lines.size() > 400; });
  EXPECT_LE(large * 10, static_cast<long>(files.size()));
}

TEST(Sizes, NoFunctionIsLongerThanSixtyLines) {
  // The published orbit model is long everywhere; its steps share too many intermediate values to be cut apart.
  const std::set<std::string> kernel{"src/orbit/Sgp4.cpp", "src/orbit/Sgp4Init.cpp", "src/orbit/Sgp4Propagate.cpp",
                                     "src/orbit/DeepSpace.cpp", "src/orbit/Sdp4.cpp"};
  for (const SourceFile& file : ReadSources({"src"})) {
    if (kernel.count(file.path)) continue;
    for (const FunctionSpan& f : FunctionsOf(file))
      EXPECT_LE(f.lineCount, 60) << file.path << ":" << f.firstLine << ": " << f.head << "\n  does more than one thing";
  }
}

TEST(Sizes, NineFunctionsInTenFitThirtyLines) {
  int all = 0;
  int longer = 0;
  for (const SourceFile& file : ReadSources({"src"})) {
    for (const FunctionSpan& f : FunctionsOf(file)) {
      ++all;
      if (f.lineCount > 30) ++longer;
    }
  }
  EXPECT_GT(all, 100) << "the scan finds no functions any more";
  EXPECT_LE(longer * 10, all);
}

TEST(Style, ADoubleInAPublicHeaderCarriesItsUnit) {
  // Names that the system itself gives, pure numbers and pixel positions.
  const std::set<std::string> unitless{"x",
                                       "y",
                                       "z",
                                       "a",
                                       "b",
                                       "value",
                                       "index",
                                       "date",
                                       "rounded",
                                       "radius",
                                       "degrees",
                                       "radians",
                                       "wordsPerMinute",
                                       "Lat",
                                       "Lon",
                                       "Height",
                                       "Az",
                                       "El",
                                       "SatLat",
                                       "SatLon",
                                       "SatAz",
                                       "SatEl",
                                       "SatRange",
                                       "SatRangeRate",
                                       "SatHeight",
                                       "SatPhase",
                                       "SatPhaseMA",
                                       "SatX",
                                       "SatY",
                                       "SatZ",
                                       "SunLat",
                                       "SunLon",
                                       "MoonLat",
                                       "MoonLon",
                                       "lat",
                                       "lon",
                                       "scale",
                                       "eccentricity",
                                       "bstar",
                                       "fraction",
                                       "phaseFraction",
                                       "revolutions",
                                       "orbits",
                                       "ratio",
                                       "weight",
                                       "engineTime",
                                       "midnight",
                                       "sine",
                                       "degreesEast",
                                       "metres",
                                       "vx",
                                       "vy",
                                       "vz",
                                       "posq",
                                       "sfour",
                                       "tsi",
                                       "factor",
                                       "divisor",
                                       "logical",
                                       "cosine",
                                       "time",
                                       "days",
                                       "serial",
                                       "utcSerial",
                                       "utc",
                                       "start",
                                       "end"};
  const std::regex naked{R"(\bdouble&? (\w+))"};
  const std::regex unit{
      R"((^minutes|^seconds|Fraction|PerDay[23]|PerEarthRadius|Deg|Rad|Km|Kms|KmS|Min|Minutes|S|Sec|Seconds|Ms|M|Px|Days|Serial|Pt|Utc|PerMinute|PerDay|PerMin|PerS|DegPerS|EarthRadii|Au|DegWest|Jd|Twips)$)"};
  for (const SourceFile& file : ReadSources({"src"})) {
    if (!IsPublicHeader(file.path)) continue;
    for (std::size_t i = 0; i < file.lines.size(); ++i) {
      const std::string code = CodeOf(file.lines[i]);
      for (std::sregex_iterator it(code.begin(), code.end(), naked), none; it != none; ++it) {
        const std::string name = (*it)[1];
        if (name.ends_with('_') || unitless.count(name) || std::isupper(static_cast<unsigned char>(name[0])) ||
            name[0] == 'k')
          continue;
        EXPECT_TRUE(std::regex_search(name, unit))
            << file.path << ":" << i + 1 << ": 'double " << name << "' needs its unit in its name";
      }
    }
  }
}

}  // namespace
}  // namespace kestrava::house
