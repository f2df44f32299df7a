// The door of random numbers, so that tests repeat.
#pragma once

namespace kestrava::platform {

class Random {
 public:
  virtual ~Random() = default;
  /// Uniform in [0, 1).
  virtual double Next() = 0;
};

}  // namespace kestrava::platform
