#pragma once
// Chance that is the same at every run: hashed numbers, smooth noise in space, and a small generator for placing
// things.
#include <cstdint>
#include <random>

namespace kestrava::tools {

struct Vec3 {
  float x = 0;
  float y = 0;
  float z = 0;
};

/// A number from 0 to below 1 that belongs to the four.
float Hashed(std::uint32_t x, std::uint32_t y, std::uint32_t z, std::uint32_t seed);

/// Smooth gradient noise (Perlin 2002), about -1 to 1, mean 0.
float Noise(const Vec3& at, std::uint32_t seed);

/// Noise at several scales, each half as large and half as strong as the last; about -1 to 1.
float Layered(Vec3 at, int octaves, std::uint32_t seed);

class Chance {
 public:
  explicit Chance(std::uint32_t seed) : engine_(seed) {}
  /// 0 to below 1; made from the engine's own bits, as the library's distributions may differ between libraries.
  double Share() { return static_cast<double>(engine_()) / 4294967296.0; }
  double Between(double low, double high) { return low + (high - low) * Share(); }

 private:
  std::mt19937 engine_;
};

}  // namespace kestrava::tools
