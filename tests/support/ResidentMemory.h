// How much memory this process holds, for tests of long runs.
#pragma once

#include <fstream>

#include <unistd.h>

namespace kestrava::testing {

// A sanitizer keeps freed memory back, so its figures say nothing of the program; the ticks run all the same.
#if defined(__SANITIZE_ADDRESS__)
inline constexpr bool kMemoryTells = false;
#elif defined(__has_feature)
inline constexpr bool kMemoryTells = !__has_feature(address_sanitizer);
#else
inline constexpr bool kMemoryTells = true;
#endif

inline double ResidentMb() {
  long pages = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1e6;
}

}  // namespace kestrava::testing
