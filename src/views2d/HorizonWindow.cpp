#include "views2d/HorizonWindow.h"

#include <cmath>

#include "orbit/TextHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "station/Announcements.h"
#include "station/Devices.h"

#include "Sprites.h"

namespace kestrava::views2d {

using platform::FaultTrap;
using platform::FloorText;
using platform::ReadSetting;

namespace {

constexpr FaultTrap loadTrap{"Horizon - FormLoad"};
constexpr FaultTrap clickTrap{"Horizon - FinalMousedown"};
constexpr FaultTrap reportTrap{"Horizon - Timer5sec"};

constexpr int kPaintEveryMs = 1000;
constexpr int kFirstReportMs = 8000;
constexpr int kReportEveryMs = 9000;
constexpr int kPauseMs = 60000;
constexpr const char* kDefaultScenery = "hdefault";

std::string LineOf(std::string_view name, double azDeg, double elDeg) {
  return std::string(name) + ": azimuth " + FloorText(azDeg) + "\u00b0, elevation " + FloorText(elDeg) + "\u00b0\n";
}

bool Within(double x, double left, double width) {
  return x >= left && x < left + width;
}

}  // namespace

HorizonLayout LayOutHorizon(int innerWidthPx, int innerHeightPx, int textWidthPx, int expandWidthPx, bool textShown) {
  HorizonLayout layout;
  layout.finalWidth = innerWidthPx;
  layout.finalHeight = innerHeightPx;
  layout.textLeft = textShown ? innerWidthPx - textWidthPx : innerWidthPx;
  layout.expandLeft = layout.textLeft - expandWidthPx;
  return layout;
}

HorizonWindow::HorizonWindow(const orbit::Sky& sky, HorizonWindowView& view)
    : sky_(sky),
      view_(view),
      timer1Sec_(platform::TheEventLoop().MakeTimer(kPaintEveryMs, [this] { Timer1SecTick(); })),
      timer5sec_(platform::TheEventLoop().MakeTimer(kFirstReportMs, [this] { Timer5secTick(); })) {}

HorizonWindow::~HorizonWindow() = default;

void HorizonWindow::Load() {
  loadTrap([&] { view_.ApplySkin(); });
  loadTrap([&] { ownEngine_ = std::make_unique<orbit::OrbitEngine>(); });
  PrimeOwnEngine();
  loadTrap([&] { view_.ApplyPlace(ReadStoredPlace(loadTrap)); });
  loadTrap([&] { LoadScenery(); });
  timer1Sec_->SetEnabled(true);
  timer5sec_->SetEnabled(true);
}

// Primed and never asked: all positions come from the one engine of the run.
void HorizonWindow::PrimeOwnEngine() {
  if (!ownEngine_) return;
  loadTrap([&] { ownEngine_->SetDataFolder(platform::AppDir); });
  ownEngine_->SetObserverLatitude(sky_.engine.ObserverLatitude());
  ownEngine_->SetObserverLongitude(sky_.engine.ObserverLongitude());
  ownEngine_->SetObserverHeight(sky_.engine.ObserverHeight());
}

// Two spellings of one key, as they have always been: keys compare without regard to case.
void HorizonWindow::LoadScenery() {
  if (!platform::FileExists(platform::InAppDir(ReadSetting("HorizonFile", kDefaultScenery) + ".jpg"))) return;
  view_.LoadBackDrop(platform::InAppDir(ReadSetting("HorizonFIle", kDefaultScenery) + ".jpg").string());
}

void HorizonWindow::Resize() {
  view_.ApplyLayout(LayOutHorizon(view_.InnerWidthPx(), view_.InnerHeightPx(), view_.TextWidthPx(),
                                  view_.ExpandWidthPx(), state_.SatInfoShown));
}

void HorizonWindow::ExpandClicked() {
  state_.SatInfoShown = !state_.SatInfoShown;
  Resize();
}

void HorizonWindow::Timer1SecTick() {
  if (open_) view_.RepaintHorizon();
}

void HorizonWindow::Timer5secTick() {
  if (!open_) return;
  timer5sec_->SetIntervalMs(kReportEveryMs);
  reportTrap([&] {
    if (sky_.tables.SelSat == 0 || !view_.IsMarked(HorizonMark::kAnnouncePosition)) return;
    const orbit::FaveRec& row = state_.rows.Row(sky_.tables, sky_.tables.SelSat);
    if (row.hasNoPosition) return;
    platform::SayText("Heading " + FloorText(row.Az) + ", Elevation " + FloorText(row.El), true,
                      platform::SpeechKind::kPositionReport);
  });
}

void HorizonWindow::SatelliteTaken(int index) {
  constexpr FaultTrap paintTrap{"Horizon - PaintScreen"};
  paintTrap([&] { TellSelection(index); });
  paintTrap([&] {
    if (const auto text = dataText_.Of(platform::At(sky_.tables.FaveList, index).Name)) view_.SetDataText(*text);
  });
}

void HorizonWindow::TellSelection(int index) {
  platform::SayText("Selected Satellite " + orbit::SpokenName(platform::At(sky_.tables.FaveList, index).Name), true,
                    platform::SpeechKind::kSelection);
}

double HorizonWindow::DistanceTo(const orbit::FaveRec& row, double x, double y) const {
  return std::abs(x - AzToX(row.Az, view_.FinalWidthPx(), state_.CentreNorth)) +
         std::abs(y - ElToY(row.El, view_.FinalHeightPx()));
}

void HorizonWindow::FinalMousedown(double x, double y) {
  orbit::Tables& tables = sky_.tables;
  double best = 32700;
  int pick = 0;
  for (int i = 1; i <= tables.FaveCount; ++i) {
    clickTrap([&] {
      const orbit::FaveRec& row = state_.rows.Row(tables, i);
      if (row.hasNoPosition) return;
      const double distance = DistanceTo(row, x, y);
      if (!(distance < best)) return;  // a row without a place is no nearer than any
      pick = i;
      best = platform::RoundHalfEven(distance);
    });
  }
  clickTrap([&] { tables.SelSat = platform::ToInt16(pick); });
  clickTrap([&] { TellSelection(pick); });
  const std::string name = platform::At(tables.FaveList, pick).Name;
  clickTrap([&] {
    station::TrackingWindow& tracker = station::TheTrackingWindow();
    if (tracker.IsVisible()) tracker.SelectSatellite(name);
  });
  clickTrap([&] {
    if (const auto text = dataText_.Of(name)) view_.SetDataText(*text);
  });
}

void HorizonWindow::NorthClicked() {
  state_.CentreNorth = true;
  FlipDirectionMarks();
}

void HorizonWindow::SouthClicked() {
  state_.CentreNorth = false;
  FlipDirectionMarks();
}

// Both, even when the view does not change: after repeated clicks on one entry the marks disagree with the view. They
// are meant so.
void HorizonWindow::FlipDirectionMarks() {
  for (const HorizonMark mark : {HorizonMark::kSouth, HorizonMark::kNorth})
    view_.SetMarked(mark, !view_.IsMarked(mark));
}

void HorizonWindow::TogglePositionAnnouncer() {
  view_.SetMarked(HorizonMark::kAnnouncePosition, !view_.IsMarked(HorizonMark::kAnnouncePosition));
}

void HorizonWindow::MakeAnnouncement() {
  timer5sec_->SetEnabled(false);
  platform::YieldOnce();
  if (!open_) return;
  SayPainted();
  platform::YieldOnce();
  if (!open_) return;
  timer5sec_->SetIntervalMs(kPauseMs);
  timer5sec_->SetEnabled(true);
}

// A map in time warp may have written the rows since: they become again those that this view shows.
void HorizonWindow::SayPainted() {
  orbit::Tables& tables = sky_.tables;
  for (int i = 1; i <= tables.FaveCount; ++i) {
    const orbit::FaveRec& painted = state_.rows.Row(tables, i);
    orbit::FaveRec& row = platform::At(tables.FaveList, i);
    row.Az = painted.Az;
    row.El = painted.El;
    row.hasNoPosition = painted.hasNoPosition;
  }
  station::AnnouncePositions(tables, true);
}

std::string HorizonWindow::WhatLiesAt(double x, double y) const {
  std::string lines;
  if (LiesOn(state_.sun, x, y)) lines += LineOf("Sun", state_.sun.azDeg, state_.sun.elDeg);
  if (LiesOn(state_.moon, x, y)) lines += LineOf("Moon", state_.moon.azDeg, state_.moon.elDeg);
  for (int i = 1; i <= sky_.tables.FaveCount; ++i) {
    const orbit::FaveRec& row = state_.rows.Row(sky_.tables, i);
    if (LiesOn(row, x, y)) lines += LineOf(row.Name, row.Az, row.El);
  }
  if (!lines.empty()) lines.pop_back();
  return lines;
}

bool HorizonWindow::LiesOn(const BodyInSky& body, double x, double y) const {
  if (!body.drawn) return false;
  return Within(x, AzToX(body.azDeg, view_.FinalWidthPx(), state_.CentreNorth), kSunSizePx) &&
         Within(y, ElToY(body.elDeg, view_.FinalHeightPx()), kSunSizePx);
}

// On its sprite or on its name.
bool HorizonWindow::LiesOn(const orbit::FaveRec& row, double x, double y) const {
  if (!IsSatelliteShown(row)) return false;
  const double column = AzToX(row.Az, view_.FinalWidthPx(), state_.CentreNorth);
  const double top = ElToY(row.El, view_.FinalHeightPx()) - kSatRisePx;
  if (Within(x, column - kSatSizePx / 2.0, kSatSizePx) && Within(y, top, kSatSizePx)) return true;
  const double labelLeft = column - LookOnHorizon(row.Name).labelRisePx;
  if (x < labelLeft || y < top) return false;  // most rows are done with here, without measuring their text
  const TextSize label = view_.LabelSize(row.Name);
  return Within(x, labelLeft, label.widthPx) && Within(y, top, label.heightPx);
}

void HorizonWindow::Unload() {
  if (!open_) return;
  open_ = false;
  timer1Sec_->SetEnabled(false);
  timer5sec_->SetEnabled(false);
  ownEngine_.reset();
  platform::YieldOnce();
}

}  // namespace kestrava::views2d
