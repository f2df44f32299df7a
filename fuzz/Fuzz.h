// What every fuzz target needs: the input as a text, and a check that stops the fuzzer where a promise is broken.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

namespace kestrava::fuzz {

inline std::string_view TextOf(const std::uint8_t* data, std::size_t size) {
  return {reinterpret_cast<const char*>(data), size};
}

inline void Check(bool holds, const char* promise) {
  if (holds) return;
  std::fputs(promise, stderr);
  std::fputc('\n', stderr);
  std::abort();
}

}  // namespace kestrava::fuzz
