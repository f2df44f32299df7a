// The version numbers of the build.
#pragma once

#include <string>

namespace kestrava::platform {

inline constexpr int kVersionMajor = 2;
inline constexpr int kVersionMinor = 0;
inline constexpr int kVersionRevision = 2;

/// "2.02": no point between minor and revision, as captions and error.log have it.
std::string ShortVersion();
/// "2.0.2": as the splash and About have it.
std::string LongVersion();

}  // namespace kestrava::platform
