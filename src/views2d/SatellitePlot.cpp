#include "views2d/SatellitePlot.h"

#include <cmath>

#include "orbit/Angles.h"
#include "platform/EventLoop.h"
#include "platform/Fault.h"
#include "platform/Settings.h"
#include "platform/Text.h"
#include "station/Devices.h"

#include "InfoPane.h"
#include "SmallCircle.h"

namespace kestrava::views2d {

namespace {

using orbit::FaveRec;
using platform::At;
using platform::FaultTrap;
using platform::ToInt16;

constexpr FaultTrap trap{"Mapview Gsatroutine"};
constexpr FaultTrap trackTrap{"Mapview CalcGroundTrack"};

/// At this elevation or above the selected satellite keeps the selection, however high another one stands.
constexpr double kKeepsSelectionDeg = 3.0;
constexpr int kTrackStepS = 30;
constexpr int kTrackStepsPerMinute = 60 / kTrackStepS;

struct BestOfAll {
  double elevationDeg = -90;
  int index = 1;
};

/// One carry of each field is enough for a speed of up to 60. The day never rolls into the month: a long warp asks for
/// day 32 and beyond, and serial dates roll that over.
void AdvanceWarpClock(WarpClock& warp, MapHost& host) {
  if (warp.WarpSpeed <= 0) return;
  trap([&] { warp.WarpSecond = ToInt16(warp.WarpSecond + warp.WarpSpeed); });
  if (warp.WarpSecond >= 60) {
    trap([&] { warp.WarpMinute = ToInt16(warp.WarpMinute + 1); });
    trap([&] { warp.WarpSecond = ToInt16(warp.WarpSecond - 60); });
  }
  if (warp.WarpMinute >= 60) {
    trap([&] { warp.WarpHour = ToInt16(warp.WarpHour + 1); });
    trap([&] { warp.WarpMinute = ToInt16(warp.WarpMinute - 60); });
  }
  if (warp.WarpHour > 23) {
    trap([&] { warp.WarpDay = ToInt16(warp.WarpDay + 1); });
    trap([&] { warp.WarpHour = ToInt16(warp.WarpHour - 24); });
  }
  trap([&] { host.ShowWarpTime(platform::MakeSerial(warp.Parts())); });
}

bool IsWeatherSatellite(std::string_view name) {
  for (const std::string_view series : {"NOAA", "METEOR", "RESURS", "FENGYUN"}) {
    if (platform::Contains(name, series)) return true;
  }
  return false;
}

void StartRecording(orbit::Tables& tables, std::string_view name) {
  tables.RecordActive = -1;
  trap([&] { station::TheRecorder().Show(); });
  trap([&] { station::TheRecorder().Start(name); });
}

/// Starts and stops automatic recordings at the threshold of "WxEL", for the whole degrees of the elevation. In warp
/// nothing is recorded: the pass is not there to be heard.
void TriggerRecorder(orbit::Tables& tables, const WarpClock& warp, std::string_view name) {
  if (warp.WarpSpeed != 0) return;
  bool weather = false;
  bool primary = false;
  trap([&] { weather = platform::ReadSwitch("RecWxsat", "0"); });
  trap([&] { primary = platform::ReadSwitch("RecPrimary", "0"); });
  if (!weather && !primary) return;
  const double wholeDeg = std::floor(tables.result.SatEl);
  double thresholdDeg = 0;
  if (!trap([&] { thresholdDeg = platform::ReadNumberSetting("WxEL", "0"); })) return;
  if (thresholdDeg <= wholeDeg && tables.RecordActive == 0) {
    // Both in turn: a weather satellite that is also the primary favourite starts the recorder twice.
    trap([&] {
      if (weather && IsWeatherSatellite(name)) StartRecording(tables, name);
    });
    trap([&] {
      if (primary && platform::Contains(name, tables.FaveList[1].Name)) StartRecording(tables, name);
    });
  }
  trap([&] {
    if (name != tables.RecordSatName || tables.RecordActive == 0 || thresholdDeg <= wholeDeg) return;
    station::TheRecorder().Stop();
  });
}

void CopyPlace(const orbit::ResultBlock& result, FaveRec& row) {
  row.Lon = result.SatLon;
  row.Lat = result.SatLat;
  row.El = result.SatEl;
  row.Az = result.SatAz;
}

void PlotFavourite(const orbit::Sky& sky, MapState& map, MapHost& host, int index, BestOfAll& best) {
  orbit::Tables& tables = sky.tables;
  FaveRec& row = At(tables.FaveList, index);
  row.hasNoPosition = true;
  trap([&] { row.hasNoPosition = !orbit::Satcalc(sky, row.Name, ShownMoment(map.warp), true); });
  TriggerRecorder(tables, map.warp, row.Name);
  CopyPlace(tables.result, row);
  map.work.rows.Keep(tables, index);
  trap([&] {
    const bool higher = !row.hasNoPosition && row.El > best.elevationDeg;
    if (platform::ReadSwitch("AutoSelect", "0") && higher) best = {row.El, index};
  });
  if (index != tables.SelSat) return;
  if (row.hasNoPosition) return ShowNoPosition(row.Name, map, host);
  CalcFootprint(tables, map, tables.result.SatHeight, tables.result.SatLat, tables.result.SatLon);
  FillInfoPane(tables, row.Name, map, host);
}

void SelectBest(orbit::Tables& tables, MapHost& host, const BestOfAll& best) {
  trap([&] {
    if (!platform::ReadSwitch("AutoSelect", "0") || best.index == tables.SelSat) return;
    if (At(tables.FaveList, best.index).hasNoPosition) return;  // none has one
    const FaveRec& selected = At(tables.FaveList, tables.SelSat);
    if (!selected.hasNoPosition && selected.El >= kKeepsSelectionDeg) return;
    tables.SelSat = ToInt16(best.index);
    host.SelectFavourite(best.index);
  });
}

/// 30 seconds by hand; like the warp clock it leaves month and year alone.
void StepForward(platform::DateParts& moment) {
  moment.second += kTrackStepS;
  if (moment.second > 59) {
    moment.second -= 60;
    ++moment.minute;
  }
  if (moment.minute > 59) {
    moment.minute -= 60;
    ++moment.hour;
  }
  if (moment.hour > 23) {
    moment.hour -= 24;
    ++moment.day;
  }
}

/// The selected row; null beyond the table.
const FaveRec* SelectedRow(const orbit::Tables& tables) {
  const auto rows = static_cast<int>(tables.FaveList.size());
  return tables.SelSat >= 0 && tables.SelSat < rows ? &At(tables.FaveList, tables.SelSat) : nullptr;
}

void FillTrack(const orbit::Sky& sky, MapState& map) {
  orbit::Tables& tables = sky.tables;
  platform::DateParts moment;
  trackTrap([&] { moment = ShownMoment(map.warp); });
  int lastStep = -1;
  trackTrap([&] {
    lastStep = platform::ToInt16(kTrackStepsPerMinute * platform::ReadNumberSetting("GroundTrackLen", "90"));
  });
  for (int step = 0; step <= lastStep; ++step) {
    bool found = false;
    trackTrap([&] { found = orbit::Satcalc(sky, At(tables.FaveList, tables.SelSat).Name, moment, false); });
    const bool stored = trackTrap([&] {
      orbit::TrackRec& row = At(map.work.GroundTrack, step);
      row.lat = tables.result.SatLat;
      row.lon = tables.result.SatLon;
      row.colour = tables.result.SatEl <= 0 ? 0x0000FF : 0xFFFFFF;  // red below the horizon, white above
      row.hasNoPosition = !found;
    });
    if (!stored) return;  // beyond the table, as all further steps would be
    StepForward(moment);
  }
}

}  // namespace

void Gsatroutine(const orbit::Sky& sky, MapState& map, MapHost& host) {
  orbit::Tables& tables = sky.tables;
  AdvanceWarpClock(map.warp, host);
  BestOfAll best;
  trap([&] {
    const std::string& name = At(tables.FaveList, tables.SelSat).Name;
    if (tables.SelSatName != name) tables.SelSatName = name;
  });
  for (int i = 1; i <= tables.FaveCount; ++i) {
    trap([&] { PlotFavourite(sky, map, host, i, best); });
    platform::YieldOnce();
    if (!host.IsOpen()) return;
  }
  SelectBest(tables, host, best);
  ShowNoradTime(map, host);
}

void CalcRows(const orbit::Sky& sky, const MapState& map) {
  orbit::Tables& tables = sky.tables;
  for (int i = 1; i <= tables.FaveCount; ++i) {
    trap([&] {
      FaveRec& row = At(tables.FaveList, i);
      row.hasNoPosition = true;
      row.hasNoPosition = !orbit::Satcalc(sky, row.Name, ShownMoment(map.warp), false);
      CopyPlace(tables.result, row);
    });
  }
}

void CalcGroundTrack(const orbit::Sky& sky, MapState& map) {
  orbit::Tables& tables = sky.tables;
  const FaveRec* selected = SelectedRow(tables);
  // The horizon has dropped a satellite that has set, and no other one is up; or it was the last favourite and is none
  // any more.
  if (tables.SelSat == 0 || (selected && selected->Name.empty())) return;
  if (selected) map.work.trackOf = {tables.SelSat, selected->Name};
  FillTrack(sky, map);
  tables.GroundTrack = map.work.GroundTrack;
}

void CalcFootprint(orbit::Tables& tables, MapState& map, double heightKm, double latDeg, double lonDeg) {
  constexpr FaultTrap circleTrap{"MapView CalcFootprint"};
  double halfAngleRad = 0;  // a height of 0 leaves it so: all rows hold the sub-point
  circleTrap([&] { halfAngleRad = HorizonHalfAngle(orbit::kEarthRadiusKm + heightKm); });
  const SmallCircle circle{latDeg, lonDeg, halfAngleRad};
  auto& rows = map.work.FootPrint;
  for (int i = 0; i <= 360; i += 2) {
    orbit::PointRec& row = rows[static_cast<std::size_t>(i)];
    StorePoint(circleTrap, circle.PointAt(2 * orbit::kPi * i / 360), row);
    rows[static_cast<std::size_t>(i) + 1] = row;
  }
  tables.FootPrint = rows;
}

}  // namespace kestrava::views2d
