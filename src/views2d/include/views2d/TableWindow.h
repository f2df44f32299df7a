// The table window's behaviour: one row for each favourite, calculated anew every second; a row's colour tells whether
// its satellite is in range, and the voice says who has newly come up. Knows no toolkit: the window (views2d/ui) is a
// TableWindowView that shows the rows and hands every event on.
#pragma once

#include <array>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/Satcalc.h"
#include "platform/EventLoop.h"
#include "platform/Surface.h"

namespace kestrava::views2d {

inline constexpr platform::Colour kOutOfRange = 0xFFFFFF;
inline constexpr platform::Colour kInRange = 0x0030FF;

/// Exactly 0 is out of range.
bool IsInRange(double elDeg);

inline constexpr int kTableColumnCount = 8;

/// A column of TabList.
struct TableColumn {
  std::string_view caption;
  std::string_view pattern;  ///< of its number; empty: the column holds text
  std::string_view widest;   ///< a text as wide as its usual ones get
  std::string_view sense;    ///< a sentence: what stands in it
};

// Two captions are meant as they stand: "Logitude", and "Orbit Number" over the direction of flight.
inline constexpr std::array<TableColumn, kTableColumnCount> kTableColumns{
    {{"Satellite", "", "MMMMMMMMMM", "The favourite's name."},
     {"Azimuth (deg)", "###0.00", "000.00", "Where it stands: degrees from north (0) through east (90)."},
     {"Elevation (deg)", "###0.00", "-00.00", "Degrees above the horizon, without refraction; negative below it."},
     {"Range (km)", "######0.00", "00000.00", "Its distance from you."},
     {"Height (km)", "######0.00", "00000.00", "Its height above the ground below it."},
     {"Latitude (deg)", "###,0.00", "-00.00", "Latitude of the point below it: north positive, south negative."},
     {"Logitude (deg)", "###,0.00", "000.00",
      "Longitude of the point below it, counted to the west from 0 to 360: 10.00 is 10 west, 350.00 is 10 east."},
     {"Orbit Number", "", "Decending",
      "The direction of flight, no number: Decending while it moves south, Accending while it moves north."}}};

/// A row of TabList. Its text is the satellite's name.
struct TableRow {
  std::array<std::string, kTableColumnCount> cells;  ///< as they are shown; the first is the row's text
  /// The same as numbers, for sorting; none where the cell is no number, or empty still.
  std::array<std::optional<double>, kTableColumnCount> numbers;
  /// The row's state, and all that the voice knows of what was in range before.
  platform::Colour colour = kOutOfRange;
};

enum class TableLabel { kLocation, kLat, kLong, kHeight, kLocalTime, kGmt, kStatus };

/// What the behaviour asks of the window and its controls.
class TableWindowView {
 public:
  virtual ~TableWindowView() = default;
  virtual void ApplySkin() = 0;
  /// TabList has other rows than before.
  virtual void ShowNewRows() = 0;
  /// Cells and colours of any of the rows have changed.
  virtual void ShowChangedRows() = 0;
  virtual void SetLabel(TableLabel label, const std::string& text) = 0;
  virtual void Minimise() = 0;
  /// Ends the window.
  virtual void CloseSelf() = 0;
};

/// Rows as text, one a line, tabs between the cells.
/// @param which  indexes of rows, in the order of the text. @throws platform::Fault "Subscript out of range"
std::string RowsAsText(std::span<const TableRow> rows, std::span<const int> which, bool withHeads);

class TableWindow {
 public:
  /// @param view  outlives this object
  TableWindow(const orbit::Sky& sky, TableWindowView& view);
  ~TableWindow();

  /// Rows that are all white: whoever is up already is announced with the first tick.
  void Load();
  void Unload();

  /// True at the first row whose text equals the name.
  bool SatOnMap(std::string_view name) const;
  /// Rebuilds the rows from the favourites. Runs at load only: later changes wait for the next opening.
  void RefreshTable();
  /// One update of rows and labels. Has no trap: a fault ends it, with the rows as they then are.
  void MainLoop();

  void MinimiseClicked() { view_.Minimise(); }
  void ExitClicked();

  const std::vector<TableRow>& Rows() const { return rows_; }
  const platform::Timer& Timer1() const { return *timer1_; }

 private:
  /// @return how many satellites are in range
  int UpdateRows();
  void UpdateRow(TableRow& row, const platform::DateParts& now);
  void FillLabels(int inRange);

  orbit::Sky sky_;
  TableWindowView& view_;
  std::vector<TableRow> rows_;
  std::unique_ptr<platform::Timer> timer1_;
};

}  // namespace kestrava::views2d
