// The selection of a satellite: the menu of the favourites, the clicks, and what follows when another window selects.
#include <algorithm>
#include <cmath>

#include "platform/Fault.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "station/Devices.h"
#include "views2d/MapGeometry.h"
#include "views2d/MapWindow.h"
#include "views2d/SatellitePlot.h"

#include "InfoPane.h"

namespace kestrava::views2d {

using platform::FaultTrap;
using platform::ReadSetting;
using platform::ReadSwitch;

namespace {

/// Of the selected satellite; empty where none is selected, whatever stands in row 0, which a change of the primary
/// favourite uses for its swap.
const std::string& NameOfSelected(const orbit::Tables& tables) {
  static const std::string none;
  return tables.SelSat == 0 ? none : platform::At(tables.FaveList, tables.SelSat).Name;
}

}  // namespace

void MapWindow::FillFavouriteMenu() {
  const FaultTrap trap{"map - Form_activate"};
  for (int i = 1; i <= sky_.tables.FaveCount; ++i) {
    trap([&] {  // an entry that exists already is logged and passed over; its caption is set all the same
      view_.CreateFavouriteEntry(i);
      captions_.emplace_back();
    });
    trap([&] { SetCaption(i); });
  }
  menuFilledFor_ = sky_.tables.FaveCount;
}

void MapWindow::SetCaption(int index) {
  std::string& caption = platform::At(captions_, index);
  caption = platform::At(sky_.tables.FaveList, index).Name;
  view_.SetFavouriteCaption(index, caption);
}

void MapWindow::AddMissingEntries() {
  for (int i = HighestFavouriteEntry() + 1; i <= sky_.tables.FaveCount; ++i) {
    view_.CreateFavouriteEntry(i);
    captions_.emplace_back();
    SetCaption(i);
  }
}

// Favourites may have changed places, or one have come for another: their number tells nothing of it.
void MapWindow::FollowNames() {
  const int last = std::min<int>(HighestFavouriteEntry(), sky_.tables.FaveCount);
  for (int i = 1; i <= last; ++i) {
    if (captions_[static_cast<std::size_t>(i)] != platform::At(sky_.tables.FaveList, i).Name) SetCaption(i);
  }
}

void MapWindow::FavouriteClicked(int index) {
  const FaultTrap trap{"map - menu favelist_Click"};
  if (index == 0) return;  // the heading
  // Selected before the window's first activation, or on the map, where a favourite stands that the menu lacks still.
  trap([&] {
    if (index > HighestFavouriteEntry()) AddMissingEntries();
    FollowNames();
  });
  trap([&] { sky_.tables.SelSat = platform::ToInt16(index); });
  trap([&] { sky_.tables.SelSatName = platform::At(captions_, index); });  // no such entry: the old name stays
  trap([&] {
    station::TrackingWindow& tracker = station::TheTrackingWindow();
    if (!tracker.IsVisible()) return;
    tracker.SelectSatellite(sky_.tables.SelSatName);
    tracker.UpdateCombos();
  });
  trap([&] {
    if (ReadSetting("ShowGroundtrack", "1") == "1") CalcGroundTrack(sky_, state_);
  });
  trap([&] {
    if (state_.InfoPaneShown) FillDataText();
  });
}

void MapWindow::NextSatellite() {
  const int next = sky_.tables.SelSat + 1;
  FavouriteClicked(next > sky_.tables.FaveCount ? 1 : next);
}

void MapWindow::PreviousSatellite() {
  const int previous = sky_.tables.SelSat - 1;
  FavouriteClicked(previous < 1 ? sky_.tables.FaveCount : previous);
}

void MapWindow::FinalMousedown(bool rightButton, double x, double y) {
  if (rightButton) {
    view_.PopUpSatelliteMenu();
    return;
  }
  double best = 32700;
  int pick = 0;
  for (int i = 1; i <= sky_.tables.FaveCount; ++i) {
    const orbit::FaveRec& row = state_.work.rows.Row(sky_.tables, i);
    if (row.hasNoPosition) continue;  // what nobody sees is near to nothing
    const double distance = std::abs(x - LonToX(row.Lon, view_.FinalWidthPx(), state_.MapMode)) +
                            std::abs(y - LatToY(row.Lat, view_.FinalHeightPx(), state_.MapMode));
    if (!(distance < best)) continue;  // a row without a place is no nearer than any
    pick = i;
    best = platform::RoundHalfEven(distance);
  }
  sky_.tables.SelSat = platform::ToInt16(pick);
  FavouriteClicked(pick);
}

void MapWindow::QuickEtaItemClicked(std::string_view satellite) {
  const std::string_view wanted = platform::Trim(satellite);
  for (int i = 0; i <= HighestFavouriteEntry(); ++i) {
    if (captions_[static_cast<std::size_t>(i)] != wanted) continue;
    FavouriteClicked(i);
    return;
  }
}

void MapWindow::FillDataText() {
  dataTextOf_ = sky_.tables.SelSatName;
  if (const auto text = dataText_.Of(dataTextOf_)) view_.SetDataText(*text);
}

// The horizon may have selected another satellite or none, and a panel may have put another one into the selected row.
// What is selected is a row and the name in it: other windows use the selected name for work of their own.
void MapWindow::FollowSelection() {
  const orbit::Tables& tables = sky_.tables;
  const std::string& name = NameOfSelected(tables);
  state_.work.nothingSelected = name.empty();
  if (name.empty()) {
    state_.work.trackOf = {};
    ShowNoPosition("none selected", state_, view_);
    return;
  }
  const Selection& shown = state_.work.trackOf;
  if (shown.row == tables.SelSat && shown.name == name) return;
  if (ReadSwitch("ShowGroundtrack", "1")) CalcGroundTrack(sky_, state_);
}

void MapWindow::FollowDataText() {
  const std::string& name = NameOfSelected(sky_.tables);
  if (!state_.InfoPaneShown || dataTextOf_ == name) return;
  dataTextOf_ = name;
  if (name.empty()) {
    view_.SetDataText(kNoInformation);
  } else if (const auto text = dataText_.Of(name)) {
    view_.SetDataText(*text);
  }
}

}  // namespace kestrava::views2d
