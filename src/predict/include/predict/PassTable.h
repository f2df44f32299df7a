// The rows of LISTpasses: what is left of a pass once it has been worked out. All cells are text; sorting, saving and
// printing read them back as text. The pass window shows them (a model over Rows()), the command line prints them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace kestrava::predict {

/// The cells of a row: the item text, then the sub-items 1 to 8.
enum PassColumn : std::size_t {
  kSatelliteCell,
  kDateCell,
  kTimeCell,
  kStartAzimuthCell,
  kMaxElevationCell,
  kDurationCell,
  kEndAzimuthCell,
  kSunlitCell,
  kVisibleCell,
  kPassCells
};

using PassRow = std::array<std::string, kPassCells>;

/// A head of the list; where its word does not say enough, a tooltip explains it.
struct PassHead {
  std::string_view text;
  std::string_view explanation;
};

inline constexpr std::array<PassHead, kPassCells> kPassHeads{
    {{"Satellite", ""},
     {"Date", "The day on which the pass starts, local time"},
     {"Time", "When the pass starts, local time"},
     {"Start AZ", "Where it rises, degrees from north through east"},
     {"Max Elevation", "How high it climbs, whole degrees, and in which direction it then stands"},
     {"Duration", ""},
     {"End Az", "Where it sets, degrees from north through east"},
     {"Sunlit",
      "Yes: the satellite is in sunlight at the start or at the end of the pass. The middle of the pass is not looked "
      "at."},
     {"Visible",
      "Yes: the satellite is sunlit, and at the start of the pass the Sun stands 6 to 18 degrees below your horizon: "
      "dark enough to see it by eye, if the sky is clear."}}};

/// "Yes", or "No " with its trailing blank.
std::string_view YesNoCell(bool yes);

class PassTable {
 public:
  const std::vector<PassRow>& Rows() const { return rows_; }
  int RowCount() const { return static_cast<int>(rows_.size()); }

  void Add(PassRow row);
  void Clear();
  /// Puts the rows into another order. @param order  every row once: order[i] is the row that comes to stand at i
  void Reorder(const std::vector<std::size_t>& order);

  /// Grows with every change: who yields while working on the rows sees by it that they are no longer the same.
  std::uint64_t Revision() const { return revision_; }

 private:
  std::vector<PassRow> rows_;
  std::uint64_t revision_ = 0;
};

}  // namespace kestrava::predict
