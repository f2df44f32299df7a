#include "views2d/MapWindow.h"

#include <cstdlib>

#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/Text.h"
#include "predict/QuickEta.h"
#include "station/Announcements.h"
#include "station/Devices.h"
#include "views2d/SatellitePlot.h"

#include "MapModes.h"

namespace kestrava::views2d {

using platform::FaultTrap;
using platform::ReadNumberSetting;
using platform::ReadSetting;
using platform::ReadSwitch;
using platform::WriteSetting;

namespace {

constexpr int kFastTickAtDesignMs = 2000;
constexpr int kFirstTickMs = 1000;
constexpr int kSlowTickMs = 60000;
constexpr int kClearedTrackRows = 1440;
constexpr int kClearedFootprintRows = 360;

const char* WorldMode() {
  return ReadSwitch("Altworld", "0") ? "worldalt" : "worldnormal";
}

void SaveSwitch(std::string_view key, bool on) {
  WriteSetting(key, on ? "1" : "0");
}

}  // namespace

MapLayout LayOutMap(int innerWidthPx, int innerHeightPx, bool paneOpen) {
  MapLayout layout;
  layout.expandLeft = innerWidthPx - (paneOpen ? kPaneWidthPx : kExpandWidthPx);
  layout.finalWidth = paneOpen ? std::abs(innerWidthPx - kPaneWidthPx) : innerWidthPx - kExpandWidthPx;
  layout.finalHeight = innerHeightPx;
  layout.contentLeft = layout.expandLeft + kExpandWidthPx;
  layout.textHeight = std::abs(innerHeightPx - kTextTopPx);
  return layout;
}

MapWindow::MapWindow(const orbit::Sky& sky, MapWindowView& view)
    : sky_(sky),
      view_(view),
      captions_{"-Select a Satellite-"},
      timer1_(platform::TheEventLoop().MakeTimer(kFastTickAtDesignMs, [this] { Timer1Tick(); })),
      timer2_(platform::TheEventLoop().MakeTimer(kSlowTickMs, [this] { Timer2Tick(); })) {
  state_.RemoteStat[0] = "Please Wait.....";
}

MapWindow::~MapWindow() = default;

void MapWindow::Load() {
  const FaultTrap trap{"map - Form_load"};
  trap([&] { view_.ApplySkin(); });
  trap([&] { state_.InfoPaneShown = ReadSwitch("ShowInfoPane", "1"); });
  trap([&] {
    const std::string clocks = ReadSetting("LEDclocks", "1");
    if (clocks == "0") view_.Clock().SetClockVisible(false);
    if (clocks == "1") view_.Clock().ShowUniversalTime(false);
    if (clocks == "2") view_.Clock().ShowUniversalTime(true);
  });
  view_.SetMarked(MapMark::kSpeech, true);
  trap([&] {
    if (ReadSetting("Speechpack", "0") != "0") return;
    view_.SetMarked(MapMark::kSpeech, false);
    view_.SetMarkEnabled(MapMark::kSpeech, false);
  });
  // One check mark stands for both recordings until either entry is clicked.
  trap([&] {
    const bool weather = ReadSwitch("RecWxsat", "0");
    const bool primary = ReadSwitch("RecPrimary", "0");
    view_.SetMarked(MapMark::kRecordWeather, weather || primary);
  });
  trap([&] { view_.SetMarked(MapMark::kAutoSelect, ReadSwitch("AutoSelect", "0")); });
  trap([&] { LoadPicture(); });
  trap([&] {
    const WindowPlace stored = ReadStoredPlace(trap);
    const auto beside = view_.PlaceBesideLatestMap(stored);
    furtherMap_ = beside.has_value();
    view_.ApplyPlace(beside.value_or(stored));
  });
  sky_.tables.SelSat = 1;
  sky_.tables.SelSatName = sky_.tables.FaveList[1].Name;
  trap([&] {
    if (state_.InfoPaneShown) FillDataText();
  });
  timer1_->SetEnabled(true);
  timer2_->SetEnabled(true);
}

void MapWindow::LoadPicture() {
  const std::string file = ReadSetting("MapFile", "Default") + ".jpg";
  if (platform::FileExists(platform::InAppDir(file))) view_.LoadWorldPicture(platform::InAppDir(file).string());
}

void MapWindow::Activate() {
  const FaultTrap trap{"map - Form_activate"};
  trap([&] {
    if (ReadSwitch("ShowGroundtrack", "1")) CalcGroundTrack(sky_, state_);
  });
  trap([&] { RecalculateSunAndMoon(); });
  if (HighestFavouriteEntry() != sky_.tables.FaveCount && menuFilledFor_ != sky_.tables.FaveCount) FillFavouriteMenu();
  trap([&] { FollowNames(); });
  if (view_.IsShown()) {
    timer1_->SetIntervalMs(kFirstTickMs);  // the first paint comes a second after activation
    timer1_->SetEnabled(true);
  }
}

void MapWindow::Resize() {
  const FaultTrap trap{"map  - Form_resize"};
  if (view_.IsMinimised()) return;
  trap([&] { RedrawinfoPane(); });
}

void MapWindow::RedrawinfoPane() {
  view_.ApplyLayout(LayOutMap(view_.InnerWidthPx(), view_.InnerHeightPx(), state_.InfoPaneShown));
  if (state_.InfoPaneShown) FillDataText();
}

void MapWindow::ExpandClicked() {
  state_.InfoPaneShown = !state_.InfoPaneShown;
  RedrawinfoPane();
  view_.RepaintMap();
}

void MapWindow::Timer1Tick() {
  const FaultTrap trap{"map - Timer1"};
  if (!open_) return;
  trap([&] { Gsatroutine(sky_, state_, view_); });
  if (!open_) return;  // closed while the loop yielded
  trap([&] { FollowNames(); });
  trap([&] { FollowSelection(); });
  trap([&] { view_.ShowInfoLines(); });
  trap([&] { view_.RepaintMap(); });
  if (!open_) return;
  trap([&] { FollowDataText(); });
  if (!open_) return;
  trap([&] { ShowClockBySetting(); });
  trap([&] {
    station::TrackingWindow& tracker = station::TheTrackingWindow();
    if (!tracker.IsVisible()) return;
    tracker.SetTag(sky_.tables.SelSatName);
    tracker.UpdateCombos();
  });
  trap([&] {
    if (view_.QuickEtaVisible() && view_.QuickEtaList().RowCount() == 0)
      predict::UpdateQuickETA(sky_, view_.QuickEtaList(), view_.IsMarked(MapMark::kSpeech));
  });
  if (!open_) return;
  trap([&] { timer1_->SetIntervalMs(platform::ToInt32(ReadNumberSetting("MapUpdate", "2") * 1000)); });
  RecalculateInWarp();
}

void MapWindow::ShowClockBySetting() {
  const std::string clocks = ReadSetting("LEDclocks", "1");
  if (clocks >= "1" && !view_.Clock().IsClockVisible()) view_.Clock().SetClockVisible(true);
  if (clocks == "2") view_.Clock().ShowUniversalTime(true);
}

// In warp the track and the Sun and Moon follow on this fast schedule; the test is on the system clock's second, not on
// the warp clock's, and slow ticks miss some multiples.
void MapWindow::RecalculateInWarp() {
  const FaultTrap trap{"map - Timer1"};
  if (state_.warp.WarpSpeed <= 0) return;
  const int second = platform::SecondOf(orbit::NowLocal());
  trap([&] {
    if (second % 3 == 0) CalcGroundTrack(sky_, state_);
  });
  trap([&] {
    if (second % 5 == 0) RecalculateSunAndMoon();
  });
}

void MapWindow::RecalculateSunAndMoon() {
  CalcSunMoon(sky_, state_, view_);
  view_.ShowInfoLines();
}

void MapWindow::Timer2Tick() {
  const FaultTrap trap{"mapview - Timer2"};
  if (!open_) return;
  // Unlike the fast tick this one speaks by whether the entry can be used at all, not by its check mark.
  trap([&] { predict::UpdateQuickETA(sky_, view_.QuickEtaList(), view_.IsMarkEnabled(MapMark::kSpeech)); });
  if (!open_) return;
  trap([&] {
    if (state_.SlowTick == 2 && ReadSetting("ShowGroundtrack", "1") == "1") CalcGroundTrack(sky_, state_);
  });
  trap([&] {
    if (state_.SlowTick == 6) RecalculateSunAndMoon();
  });
  state_.SlowTick = static_cast<std::int16_t>(state_.SlowTick + 1);
  if (state_.SlowTick == 7) state_.SlowTick = 0;
}

void MapWindow::TimeButtonClicked(int index) {
  view_.LightButton(MapButtons::kTime, index, kLitButton);
  view_.LightButton(MapButtons::kTime, 1 - index, kDarkButton);
  if (index == 1) {
    StartWarp();
  } else {
    StopWarp();
  }
}

void MapWindow::StartWarp() {
  const platform::SerialDate now = orbit::NowLocal();
  const platform::DateParts parts = platform::SplitSerial(now);
  WarpClock& warp = state_.warp;
  warp.WarpSpeed = platform::ToInt16(view_.WarpSliderValue());
  warp.WarpYear = platform::ToInt16(parts.year);
  warp.WarpMonth = platform::ToInt16(parts.month);
  warp.WarpDay = platform::ToInt16(parts.day);
  warp.WarpHour = platform::ToInt16(parts.hour);
  warp.WarpMinute = platform::ToInt16(parts.minute);
  warp.WarpSecond = platform::ToInt16(parts.second);
  timer1_->SetIntervalMs(kFirstTickMs);
  view_.Clock().SetValue(now);
  view_.Clock().ShowGivenTime(true);
}

void MapWindow::StopWarp() {
  state_.warp.WarpSpeed = 0;
  CalcGroundTrack(sky_, state_);
  RecalculateSunAndMoon();
  view_.Clock().ShowGivenTime(false);
  view_.Clock().ShowUniversalTime(false);  // the next tick sets it on again if the setting says so
}

void MapWindow::WarpSliderChanged(int value) {
  if (state_.warp.WarpSpeed != 0) state_.warp.WarpSpeed = platform::ToInt16(value);
}

void MapWindow::InfoModeClicked(int index) {
  view_.LightButton(MapButtons::kInfoMode, index, kLitButton);
  view_.LightButton(MapButtons::kInfoMode, 1 - index, kDarkButton);
  view_.ShowQuickEta(index == 1);
}

void MapWindow::ChangeToWorld() {
  ChangeToRegion(WorldMode());
}

void MapWindow::ChangeToRegion(std::string_view mapMode) {
  state_.MapMode = mapMode;
  view_.ShowMode();
}

std::string MapWindow::Title() const {
  constexpr const char* kTitle = "Kestrava - Map View";
  if (!furtherMap_) return kTitle;
  const RegionalMode* mode = FindRegionalMode(state_.MapMode);
  return std::string(kTitle) + " - " + std::string(mode ? mode->title : "World");
}

void MapWindow::ToggleAutoSelect() {
  view_.SetMarked(MapMark::kAutoSelect, !view_.IsMarked(MapMark::kAutoSelect));
  SaveSwitch("AutoSelect", view_.IsMarked(MapMark::kAutoSelect));
}

void MapWindow::ToggleRecordWeather() {
  view_.SetMarked(MapMark::kRecordWeather, !view_.IsMarked(MapMark::kRecordWeather));
  SaveSwitch("RecWxsat", view_.IsMarked(MapMark::kRecordWeather));
}

void MapWindow::ToggleRecordPrimary() {
  view_.SetMarked(MapMark::kRecordPrimary, !view_.IsMarked(MapMark::kRecordPrimary));
  SaveSwitch("RecPrimary", view_.IsMarked(MapMark::kRecordPrimary));
}

// Written and never read: what is said at start-up and later follows Speechpack alone.
void MapWindow::ToggleSpeech() {
  view_.SetMarked(MapMark::kSpeech, !view_.IsMarked(MapMark::kSpeech));
  const bool on = view_.IsMarked(MapMark::kSpeech);
  sky_.tables.SpeechOn = on ? -1 : 0;
  SaveSwitch("Speech", on);
}

// The rows may be of another view's moment, and this view's own of a tick some time ago: they are worked out anew for
// the moment that this map shows.
void MapWindow::MakeAnnouncement() {
  CalcRows(sky_, state_);
  station::AnnouncePositions(sky_.tables, false);
}

void MapWindow::ShowControlPanel() {
  platform::TheWindows().Show("frmCON2D");
}

void MapWindow::Unload() {
  const FaultTrap trap{"map - Form_Unload"};
  if (!open_) return;
  open_ = false;
  timer1_->SetEnabled(false);
  timer2_->SetEnabled(false);
  predict::ForgetQuickEta(view_.QuickEtaList());
  trap([&] { platform::YieldOnce(); });
  if (view_.AnotherMapIsOpen()) return;  // the tables are its now, and the last one clears them
  for (int i = 0; i <= kClearedTrackRows; ++i) sky_.tables.GroundTrack[static_cast<std::size_t>(i)].lat = 0;
  for (int i = 0; i <= kClearedFootprintRows; ++i) sky_.tables.FootPrint[static_cast<std::size_t>(i)].lat = 0;
}

}  // namespace kestrava::views2d
