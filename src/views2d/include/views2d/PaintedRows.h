// The favourites as one view has worked them out. Every view writes the rows of the shared table, each for its own
// moment, and a map in time warp for one that may be hours away: what a view paints, and what its clicks, tips and
// spoken positions mean, is what it has worked out itself.
#pragma once

#include <array>

#include "orbit/Tables.h"

namespace kestrava::views2d {

class PaintedRows {
 public:
  /// Keeps a row as it stands in the table now. @throws platform::Fault "Subscript out of range"
  void Keep(const orbit::Tables& tables, int index);
  /// The row as this view has kept it; the table's own as long as the satellite that stands in it now is not the one
  /// that was kept. @throws platform::Fault "Subscript out of range"
  const orbit::FaveRec& Row(const orbit::Tables& tables, int index) const;

 private:
  std::array<orbit::FaveRec, orbit::kFaveRows + 1> rows_;
};

}  // namespace kestrava::views2d
