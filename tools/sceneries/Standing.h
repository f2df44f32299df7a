#pragma once
// Ground near the viewer, and the place where something stands on it.
#include <QPointF>
#include <vector>

#include "Land.h"

namespace kestrava::tools {

class Standing {
 public:
  Standing(const Canvas& canvas, const RidgeForm& form) : canvas_(canvas), ridge_(Ridge(canvas, form)) {}

  /// Where the foot is of what is seen at an azimuth; slightly sunk, so that nothing hangs in the air.
  QPointF Foot(double azimuthDeg) const {
    const float x = canvas_.ColumnOf(static_cast<float>(azimuthDeg));
    const int column = (static_cast<int>(x) % canvas_.Width() + canvas_.Width()) % canvas_.Width();
    return {x, canvas_.RowOf(ridge_[static_cast<std::size_t>(column)]) + 2};
  }
  const std::vector<float>& Line() const { return ridge_; }

 private:
  const Canvas& canvas_;
  std::vector<float> ridge_;
};

}  // namespace kestrava::tools
