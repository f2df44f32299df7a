#include "Noise.h"

#include <array>
#include <cmath>

namespace kestrava::tools {
namespace {

std::uint32_t Hash(std::uint32_t x, std::uint32_t y, std::uint32_t z, std::uint32_t seed) {
  std::uint32_t h = seed * 0x9E3779B1U ^ x * 0x85EBCA77U ^ y * 0xC2B2AE3DU ^ z * 0x27D4EB2FU;
  h ^= h >> 15;
  h *= 0x2C1B3C6DU;
  h ^= h >> 12;
  h *= 0x297A2D39U;
  return h ^ h >> 15;
}

float Eased(float t) {
  return t * t * t * (t * (t * 6 - 15) + 10);
}

float Between(float a, float b, float t) {
  return a + (b - a) * t;
}

}  // namespace

float Hashed(std::uint32_t x, std::uint32_t y, std::uint32_t z, std::uint32_t seed) {
  return static_cast<float>(Hash(x, y, z, seed) >> 8) / 16777216.0F;
}

float Noise(const Vec3& at, std::uint32_t seed) {
  static constexpr std::array<std::array<float, 3>, 12> kEdges{{{1, 1, 0},
                                                                {-1, 1, 0},
                                                                {1, -1, 0},
                                                                {-1, -1, 0},
                                                                {1, 0, 1},
                                                                {-1, 0, 1},
                                                                {1, 0, -1},
                                                                {-1, 0, -1},
                                                                {0, 1, 1},
                                                                {0, -1, 1},
                                                                {0, 1, -1},
                                                                {0, -1, -1}}};
  const float fx = std::floor(at.x), fy = std::floor(at.y), fz = std::floor(at.z);
  const float u = at.x - fx, v = at.y - fy, w = at.z - fz;
  std::array<float, 8> corner{};
  for (unsigned k = 0; k < 8; ++k) {
    const unsigned i = k & 1U, j = k >> 1U & 1U, l = k >> 2U;
    const auto& edge = kEdges[Hash(static_cast<std::uint32_t>(static_cast<int>(fx)) + i,
                                   static_cast<std::uint32_t>(static_cast<int>(fy)) + j,
                                   static_cast<std::uint32_t>(static_cast<int>(fz)) + l, seed) %
                              12];
    corner[k] = edge[0] * (u - static_cast<float>(i)) + edge[1] * (v - static_cast<float>(j)) +
                edge[2] * (w - static_cast<float>(l));
  }
  const float s = Eased(u), t = Eased(v);
  const float near = Between(Between(corner[0], corner[1], s), Between(corner[2], corner[3], s), t);
  const float far = Between(Between(corner[4], corner[5], s), Between(corner[6], corner[7], s), t);
  return Between(near, far, Eased(w));
}

float Layered(Vec3 at, int octaves, std::uint32_t seed) {
  float sum = 0, weight = 1;
  for (int i = 0; i < octaves; ++i) {
    sum += weight * Noise(at, seed + static_cast<std::uint32_t>(i) * 131);
    // not quite doubled, so that the lattices of the scales do not coincide
    at = {at.x * 2.03F + 1.7F, at.y * 2.03F + 9.2F, at.z * 2.03F + 3.1F};
    weight /= 2;
  }
  return sum;
}

}  // namespace kestrava::tools
