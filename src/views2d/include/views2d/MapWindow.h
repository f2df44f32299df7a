// The map window's behaviour: its two timers, the warp clock, the selection, the menus and the info pane. Knows no
// toolkit: the window (views2d/ui) is a MapWindowView that shows what is decided here and hands every event on.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "orbit/Satcalc.h"
#include "platform/Controls.h"
#include "platform/EventLoop.h"
#include "platform/Surface.h"
#include "views2d/DataText.h"
#include "views2d/MapPainter.h"
#include "views2d/MapState.h"
#include "views2d/WindowPlace.h"

namespace kestrava::views2d {

inline constexpr int kPaneWidthPx = 200;   ///< of the open info pane, BUTexpand included
inline constexpr int kExpandWidthPx = 14;  ///< of BUTexpand: what stays in view of a closed pane
inline constexpr int kTextTopPx = 320;     ///< what IPtext and lstQuickETA leave free of the inner height

/// Where things stand in the window, pixels.
struct MapLayout {
  int finalWidth = 0;
  int finalHeight = 0;
  int expandLeft = 0;   ///< of BUTexpand, which is as high as the window
  int contentLeft = 0;  ///< of all that is in the pane
  int textHeight = 0;   ///< of IPtext and lstQuickETA
};

/// The layout for an inner size. Narrower than the pane, the map gets the absolute value of a negative width.
MapLayout LayOutMap(int innerWidthPx, int innerHeightPx, bool paneOpen);

/// The menu entries with a check mark.
enum class MapMark { kRecordPrimary, kRecordWeather, kSpeech, kAutoSelect };

/// Pairs of buttons of which one is lit.
enum class MapButtons { kTime, kInfoMode };

inline constexpr platform::Colour kLitButton = 0xFFFFC0;
inline constexpr platform::Colour kDarkButton = 0xC0C000;

/// What the behaviour asks of the window and its controls.
class MapWindowView : public MapHost, public PaintHost {
 public:
  virtual int InnerWidthPx() const = 0;
  virtual int InnerHeightPx() const = 0;
  /// The size of the map that stands there now; a new one comes with the next paint.
  virtual int FinalWidthPx() const = 0;
  virtual int FinalHeightPx() const = 0;
  virtual bool IsMinimised() const = 0;
  virtual bool IsShown() const = 0;
  virtual void ApplySkin() = 0;
  virtual void ApplyPlace(const WindowPlace& place) = 0;
  /// Where a further map belongs that would stand at a place: offset from the map that was opened last. Nothing if this
  /// is the only one.
  virtual std::optional<WindowPlace> PlaceBesideLatestMap(const WindowPlace& place) const = 0;
  virtual bool AnotherMapIsOpen() const = 0;
  /// The mode or the title is another one.
  virtual void ShowMode() = 0;
  virtual void ApplyLayout(const MapLayout& layout) = 0;
  /// Loads the whole-world picture. @throws platform::Fault
  virtual void LoadWorldPicture(const std::string& file) = 0;
  /// Shows what RemoteStatChanged and ShowWarpTime have told since the last time, in one go: the tick itself, which
  /// tells them, takes no memory for the toolkit.
  virtual void ShowInfoLines() = 0;
  /// Paints the map into its back picture and shows it.
  virtual void RepaintMap() = 0;
  virtual void SetDataText(std::string_view text) = 0;
  virtual platform::LedClock& Clock() = 0;
  virtual platform::ListControl& QuickEtaList() = 0;
  virtual bool QuickEtaVisible() const = 0;
  virtual void ShowQuickEta(bool visible) = 0;
  virtual int WarpSliderValue() const = 0;
  virtual void LightButton(MapButtons pair, int index, platform::Colour colour) = 0;
  virtual bool IsMarked(MapMark mark) const = 0;
  virtual void SetMarked(MapMark mark, bool on) = 0;
  virtual bool IsMarkEnabled(MapMark mark) const = 0;
  virtual void SetMarkEnabled(MapMark mark, bool enabled) = 0;
  /// Creates MFaveList(index). @throws platform::Fault if it exists
  virtual void CreateFavouriteEntry(int index) = 0;
  virtual void SetFavouriteCaption(int index, const std::string& caption) = 0;
  virtual void PopUpSatelliteMenu() = 0;
};

class MapWindow {
 public:
  /// @param view  outlives this object
  MapWindow(const orbit::Sky& sky, MapWindowView& view);
  ~MapWindow();

  MapState& State() { return state_; }
  const MapState& State() const { return state_; }

  void Load();
  void Activate();
  void Resize();
  /// The window's end: timers off, the map's share of the tables cleared.
  void Unload();
  bool IsOpen() const { return open_; }

  void RedrawinfoPane();
  void ExpandClicked();
  void TimeButtonClicked(int index);
  void WarpSliderChanged(int value);
  void InfoModeClicked(int index);

  /// The selection handler of MFaveList: the one way of changing the selected satellite.
  void FavouriteClicked(int index);
  void NextSatellite();
  void PreviousSatellite();
  void FinalMousedown(bool rightButton, double x, double y);
  /// @param satellite  text of the clicked row's second column
  void QuickEtaItemClicked(std::string_view satellite);

  /// Of the second map and all further ones it tells the region.
  std::string Title() const;
  void ChangeToWorld();
  void ChangeToRegion(std::string_view mapMode);
  void ToggleAutoSelect();
  void ToggleRecordWeather();
  void ToggleRecordPrimary();
  void ToggleSpeech();
  void MakeAnnouncement();
  void ShowControlPanel();

  /// Highest index of MFaveList; 0 is the heading.
  int HighestFavouriteEntry() const { return static_cast<int>(captions_.size()) - 1; }
  const platform::Timer& FastTimer() const { return *timer1_; }

 private:
  void Timer1Tick();
  void Timer2Tick();
  void ShowClockBySetting();
  void RecalculateInWarp();
  void RecalculateSunAndMoon();
  void StartWarp();
  void StopWarp();
  void FillDataText();
  void LoadPicture();
  void FillFavouriteMenu();
  void AddMissingEntries();
  void SetCaption(int index);
  void FollowNames();
  void FollowSelection();
  void FollowDataText();

  orbit::Sky sky_;
  MapWindowView& view_;
  MapState state_;
  std::vector<std::string> captions_;
  int menuFilledFor_ = 0;  ///< the number of favourites at the latest activation that filled the menu
  std::unique_ptr<platform::Timer> timer1_;
  std::unique_ptr<platform::Timer> timer2_;
  bool open_ = true;
  bool furtherMap_ = false;  ///< it was not the only map when it was opened
  DataText dataText_;
  std::string dataTextOf_;  ///< the satellite of which the data text tells
};

}  // namespace kestrava::views2d
