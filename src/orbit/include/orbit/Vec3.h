#pragma once

// Three numbers of one unit in one frame: positions in km, velocities in km/s. Unit and frame stand in the name of
// the variable or of the member that holds them. Used by everything that does geometry.

#include <cmath>

namespace kestrava::orbit {

struct Vec3 {
  double x = 0;
  double y = 0;
  double z = 0;

  friend bool operator==(const Vec3&, const Vec3&) = default;
};

constexpr Vec3 operator+(const Vec3& a, const Vec3& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Vec3 operator-(const Vec3& a, const Vec3& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Vec3 operator*(double factor, const Vec3& a) {
  return {factor * a.x, factor * a.y, factor * a.z};
}
constexpr Vec3 operator/(const Vec3& a, double divisor) {
  return {a.x / divisor, a.y / divisor, a.z / divisor};
}
constexpr double Dot(const Vec3& a, const Vec3& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr Vec3 Cross(const Vec3& a, const Vec3& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline double Length(const Vec3& a) {
  return std::sqrt(Dot(a, a));
}

}  // namespace kestrava::orbit
