// The horizon window's behaviour: its two timers, the selection, the menus and the information box. Knows no toolkit:
// the window (views2d/ui) is a HorizonWindowView that shows what is decided here and hands every event on.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/EventLoop.h"
#include "views2d/DataText.h"
#include "views2d/HorizonPainter.h"
#include "views2d/WindowPlace.h"

namespace kestrava::views2d {

/// Where things stand in the window, pixels.
struct HorizonLayout {
  int finalWidth = 0;
  int finalHeight = 0;
  int textLeft = 0;    ///< of txtSatInfo
  int expandLeft = 0;  ///< of BUTexpand, to its left
};

/// The layout for an inner size. Out of view the box stands just past the right edge, its button just inside.
HorizonLayout LayOutHorizon(int innerWidthPx, int innerHeightPx, int textWidthPx, int expandWidthPx, bool textShown);

/// The menu entries with a check mark.
enum class HorizonMark { kAnnouncePosition, kSouth, kNorth };

/// A size in pixels of the picture.
struct TextSize {
  double widthPx = 0;
  double heightPx = 0;
};

/// What the behaviour asks of the window and its controls.
class HorizonWindowView {
 public:
  virtual ~HorizonWindowView() = default;
  virtual int InnerWidthPx() const = 0;
  virtual int InnerHeightPx() const = 0;
  virtual int TextWidthPx() const = 0;    ///< of txtSatInfo
  virtual int ExpandWidthPx() const = 0;  ///< of BUTexpand
  /// The size of the picture that stands there now; a new one comes with the next paint.
  virtual int FinalWidthPx() const = 0;
  virtual int FinalHeightPx() const = 0;
  /// The size of a text on the picture.
  virtual TextSize LabelSize(std::string_view text) const = 0;
  virtual void ApplySkin() = 0;
  virtual void ApplyPlace(const WindowPlace& place) = 0;
  virtual void ApplyLayout(const HorizonLayout& layout) = 0;
  /// Loads the scenery. @throws platform::Fault
  virtual void LoadBackDrop(const std::string& file) = 0;
  /// Paints the horizon into its back picture and shows it.
  virtual void RepaintHorizon() = 0;
  virtual void SetDataText(std::string_view text) = 0;
  virtual bool IsMarked(HorizonMark mark) const = 0;
  virtual void SetMarked(HorizonMark mark, bool on) = 0;
};

class HorizonWindow : public HorizonHost {
 public:
  /// @param view  outlives this object
  HorizonWindow(const orbit::Sky& sky, HorizonWindowView& view);
  ~HorizonWindow() override;

  HorizonState& State() { return state_; }
  const HorizonState& State() const { return state_; }

  void Load();
  void Resize();
  /// The window's end: timers off, its own engine released.
  void Unload();
  bool IsOpen() const override { return open_; }
  void SatelliteTaken(int index) override;

  void ExpandClicked();
  /// Any button selects the nearest favourite, those below the horizon too; there is no greatest distance.
  void FinalMousedown(double x, double y);
  void NorthClicked();
  void SouthClicked();
  void TogglePositionAnnouncer();
  /// Says where everything stands that is up. The position report then pauses for a minute.
  void MakeAnnouncement();

  /// Names and look angles of all that is drawn at a point of the picture, one a line; empty if nothing is.
  std::string WhatLiesAt(double x, double y) const;

  /// This window's own engine, primed and idle; null before the load and after the end.
  const orbit::OrbitEngine* OwnEngine() const { return ownEngine_.get(); }
  const platform::Timer& ReportTimer() const { return *timer5sec_; }

 private:
  void Timer1SecTick();
  void Timer5secTick();
  void PrimeOwnEngine();
  void LoadScenery();
  void TellSelection(int index);
  void SayPainted();
  void FlipDirectionMarks();
  double DistanceTo(const orbit::FaveRec& row, double x, double y) const;
  bool LiesOn(const orbit::FaveRec& row, double x, double y) const;
  bool LiesOn(const BodyInSky& body, double x, double y) const;

  orbit::Sky sky_;
  HorizonWindowView& view_;
  HorizonState state_;
  DataText dataText_;
  std::unique_ptr<orbit::OrbitEngine> ownEngine_;
  std::unique_ptr<platform::Timer> timer1Sec_;
  std::unique_ptr<platform::Timer> timer5sec_;
  bool open_ = true;
};

}  // namespace kestrava::views2d
