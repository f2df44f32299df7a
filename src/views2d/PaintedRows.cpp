#include "views2d/PaintedRows.h"

#include "platform/Fault.h"

namespace kestrava::views2d {

void PaintedRows::Keep(const orbit::Tables& tables, int index) {
  platform::At(rows_, index) = platform::At(tables.FaveList, index);
}

const orbit::FaveRec& PaintedRows::Row(const orbit::Tables& tables, int index) const {
  const orbit::FaveRec& shared = platform::At(tables.FaveList, index);
  const orbit::FaveRec& own = platform::At(rows_, index);
  return own.Name == shared.Name ? own : shared;
}

}  // namespace kestrava::views2d
