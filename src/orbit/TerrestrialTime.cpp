#include "orbit/TerrestrialTime.h"

#include <algorithm>
#include <array>

namespace kestrava::orbit {
namespace {

constexpr double kTerrestrialMinusAtomicS = 32.184;
constexpr double kAtomicMinusUniversalAtFirstS = 10;

// Serial dates of the days at whose start one more leap second has passed.
constexpr std::array<double, 27> kLeapDays = {
    26481,                                            // 1972-07-01
    26665, 27030, 27395, 27760, 28126, 28491, 28856,  // the first day of each year 1973 to 1979
    29221,                                            // 1980-01-01
    29768, 30133, 30498,                              // 1 July 1981, 1982, 1983
    31229,                                            // 1985-07-01
    32143,                                            // 1988-01-01
    32874, 33239,                                     // 1990-01-01, 1991-01-01
    33786, 34151, 34516,                              // 1 July 1992, 1993, 1994
    35065,                                            // 1996-01-01
    35612,                                            // 1997-07-01
    36161,                                            // 1999-01-01
    38718,                                            // 2006-01-01
    39814,                                            // 2009-01-01
    41091,                                            // 2012-07-01
    42186,                                            // 2015-07-01
    42736,                                            // 2017-01-01
};

}  // namespace

double TerrestrialMinusUniversalS(double utcSerial) {
  const auto passed = std::upper_bound(kLeapDays.begin(), kLeapDays.end(), utcSerial) - kLeapDays.begin();
  return kTerrestrialMinusAtomicS + kAtomicMinusUniversalAtFirstS + static_cast<double>(passed);
}

}  // namespace kestrava::orbit
