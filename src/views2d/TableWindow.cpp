#include "views2d/TableWindow.h"

#include <algorithm>

#include "orbit/Angles.h"
#include "orbit/OrbitEngine.h"
#include "orbit/TextHelpers.h"
#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Messages.h"
#include "platform/Settings.h"
#include "platform/Speech.h"
#include "platform/Text.h"
#include "views2d/MapState.h"

namespace kestrava::views2d {

namespace {

constexpr int kTickMs = 1000;

void FillCells(TableRow& row, const orbit::ResultBlock& result) {
  const std::array<double, 6> values{result.SatAz,     result.SatEl,  result.SatRange,
                                     result.SatHeight, result.SatLat, result.SatLon};
  for (std::size_t i = 0; i < values.size(); ++i) {
    row.cells[i + 1] = platform::Format(values[i], kTableColumns[i + 1].pattern);
    row.numbers[i + 1] = values[i];
  }
  row.cells.back() = result.SatDescending != 0 ? "Decending" : "Accending";
}

void FillWithDashes(TableRow& row) {
  for (std::size_t i = 1; i < row.cells.size(); ++i) {
    row.cells[i] = kNoValue;
    row.numbers[i].reset();
  }
}

std::string JoinedByTabs(std::span<const std::string> cells) {
  std::string line;
  for (const std::string& cell : cells) {
    if (&cell != &cells.front()) line += '\t';
    line += cell;
  }
  return line;
}

}  // namespace

bool IsInRange(double elDeg) {
  return elDeg > 0;
}

std::string RowsAsText(std::span<const TableRow> rows, std::span<const int> which, bool withHeads) {
  std::vector<std::string> lines;
  if (withHeads) {
    std::vector<std::string> heads;
    for (const TableColumn& column : kTableColumns) heads.emplace_back(column.caption);
    lines.push_back(JoinedByTabs(heads));
  }
  for (const int index : which) lines.push_back(JoinedByTabs(platform::At(rows, index).cells));
  std::string text;
  for (const std::string& line : lines) text += (text.empty() ? "" : "\n") + line;
  return text;
}

TableWindow::TableWindow(const orbit::Sky& sky, TableWindowView& view)
    : sky_(sky), view_(view), timer1_(platform::TheEventLoop().MakeTimer(kTickMs, [this] {
        platform::RunUntrapped(
            "The update of the table", [this] { MainLoop(); }, platform::Untrapped::kTick);
      })) {}

TableWindow::~TableWindow() = default;

void TableWindow::Load() {
  view_.ApplySkin();
  RefreshTable();
  timer1_->SetEnabled(true);
}

void TableWindow::Unload() {
  timer1_->SetEnabled(false);
}

bool TableWindow::SatOnMap(std::string_view name) const {
  return std::any_of(rows_.begin(), rows_.end(), [&](const TableRow& row) { return row.cells[0] == name; });
}

void TableWindow::RefreshTable() {
  rows_.clear();
  for (int i = 1; i <= sky_.tables.FaveCount; ++i) {
    const std::string& name = platform::At(sky_.tables.FaveList, i).Name;
    if (SatOnMap(name)) continue;
    TableRow row;
    row.cells[0] = platform::Trim(name);
    rows_.push_back(std::move(row));
  }
  view_.ShowNewRows();
}

void TableWindow::MainLoop() {
  try {
    FillLabels(UpdateRows());
  } catch (...) {
    view_.ShowChangedRows();  // what the tick has done to the rows is shown also where a fault ends it
    throw;
  }
  view_.ShowChangedRows();
}

int TableWindow::UpdateRows() {
  const platform::DateParts now = orbit::NowLocalParts();
  int inRange = 0;
  for (TableRow& row : rows_) {
    // A favourite no longer: the row stays as it is, in its colour, and does not count.
    if (!orbit::IsFavourite(sky_.tables, platform::Trim(row.cells[0]))) continue;
    UpdateRow(row, now);
    if (row.colour == kInRange) ++inRange;
  }
  return inRange;
}

void TableWindow::UpdateRow(TableRow& row, const platform::DateParts& now) {
  const std::string name(platform::Trim(row.cells[0]));
  if (!orbit::Satcalc(sky_, name, now, false)) {  // it is nowhere, and so out of range
    FillWithDashes(row);
    row.colour = kOutOfRange;
    return;
  }
  const orbit::ResultBlock& result = sky_.tables.result;
  const double azimuthDeg = result.SatAz;
  const bool up = IsInRange(result.SatEl);
  FillCells(row, result);
  if (up && row.colour == kOutOfRange) {
    // No blank before "degrees.": it is said so.
    platform::SayText(orbit::SpokenName(name) + " is now in range at heading " + platform::FloorText(azimuthDeg) +
                      "degrees.");
  }
  row.colour = up ? kInRange : kOutOfRange;
}

void TableWindow::FillLabels(int inRange) {
  const orbit::OrbitEngine& engine = sky_.engine;
  const platform::SerialDate now = orbit::NowLocal();
  const platform::DateParts utc = platform::SplitSerial(orbit::LocalToUTC(now));
  const auto field = [](int value) { return static_cast<std::int16_t>(value); };
  view_.SetLabel(TableLabel::kLat, platform::Format(engine.ObserverLatitude(), "000.000"));
  view_.SetLabel(TableLabel::kLong, orbit::LonText(360 - engine.ObserverLongitude()));
  view_.SetLabel(TableLabel::kLocation, sky_.tables.LocationName);
  view_.SetLabel(TableLabel::kHeight, platform::ReadSetting("HASL", "0") + " mtrs ");
  view_.SetLabel(TableLabel::kLocalTime, platform::TheLocale().TimeText(now));
  view_.SetLabel(TableLabel::kGmt,
                 orbit::ClockText(field(utc.hour), field(utc.minute), field(platform::SecondOf(now))));
  view_.SetLabel(TableLabel::kStatus,
                 std::to_string(inRange) + " out of " + std::to_string(rows_.size()) + " Satellites in range");
}

void TableWindow::ExitClicked() {
  timer1_->SetEnabled(false);
  view_.CloseSelf();
}

}  // namespace kestrava::views2d
