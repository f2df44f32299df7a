// The map window's looks: builds the controls, hands every event to MapWindow and shows what that decides.
#pragma once

#include <QMenuBar>
#include <bitset>
#include <memory>
#include <optional>
#include <string>

#include "platform/qt/LedClockWidget.h"
#include "platform/qt/StationWindow.h"
#include "views2d/MapWindow.h"

#include "InfoPane.h"
#include "MapMenus.h"
#include "MapPictures.h"
#include "ViewCanvas.h"

namespace kestrava::views2d::ui {

class WorldView : public platform::qt::StationWindow, public MapWindowView {
 public:
  explicit WorldView(const orbit::Sky& sky);
  ~WorldView() override;

  void SetTag(std::string_view mapMode) override;
  void OnUnload() override;

 protected:
  void OnActivated() override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void BuildUi();
  void ConnectSignals();
  void ConnectButtons();
  const WorldView* LatestOtherMap() const;

  // MapHost and PaintHost
  void RemoteStatChanged(int index) override { changedLines_.set(static_cast<std::size_t>(index)); }
  void ShowWarpTime(platform::SerialDate time) override { warpTime_ = time; }
  void SelectFavourite(int index) override { behaviour_->FavouriteClicked(index); }
  bool IsOpen() const override { return behaviour_->IsOpen(); }
  MapWindowPlace PlaceToStore() const override;

  // MapWindowView
  int InnerWidthPx() const override { return body_->width(); }
  int InnerHeightPx() const override { return body_->height(); }
  int FinalWidthPx() const override { return canvas_->Back().Width(); }
  int FinalHeightPx() const override { return canvas_->Back().Height(); }
  bool IsMinimised() const override { return StationWindow::IsMinimised(); }
  bool IsShown() const override { return isVisible(); }
  void ApplySkin() override { StationWindow::ApplySkin(); }
  void ApplyPlace(const WindowPlace& place) override;
  std::optional<WindowPlace> PlaceBesideLatestMap(const WindowPlace& place) const override;
  bool AnotherMapIsOpen() const override { return LatestOtherMap() != nullptr; }
  void ShowMode() override;
  void ApplyLayout(const MapLayout& layout) override;
  void LoadWorldPicture(const std::string& file) override;
  void ShowInfoLines() override;
  void RepaintMap() override;
  void SetDataText(std::string_view text) override;
  platform::LedClock& Clock() override { return *ledClock_; }
  platform::ListControl& QuickEtaList() override { return pane_->QuickEta(); }
  bool QuickEtaVisible() const override { return !pane_->QuickEta().isHidden(); }
  void ShowQuickEta(bool visible) override { pane_->QuickEta().setVisible(visible); }
  int WarpSliderValue() const override { return pane_->SliderWarp().value(); }
  void LightButton(MapButtons pair, int index, platform::Colour colour) override;
  bool IsMarked(MapMark mark) const override { return menus_->Marked(mark).isChecked(); }
  void SetMarked(MapMark mark, bool on) override { menus_->Marked(mark).setChecked(on); }
  bool IsMarkEnabled(MapMark mark) const override { return menus_->Marked(mark).isEnabled(); }
  void SetMarkEnabled(MapMark mark, bool enabled) override { menus_->Marked(mark).setEnabled(enabled); }
  void CreateFavouriteEntry(int index) override { menus_->CreateFavouriteEntry(index); }
  void SetFavouriteCaption(int index, const std::string& caption) override {
    menus_->SetFavouriteCaption(index, caption);
  }
  void PopUpSatelliteMenu() override;

  orbit::Sky sky_;
  std::unique_ptr<MapWindow> behaviour_;
  std::unique_ptr<MapPictures> pictures_;
  std::unique_ptr<MapPainter> painter_;
  std::unique_ptr<MapMenus> menus_;
  std::bitset<kRemoteStatCount> changedLines_;
  std::optional<platform::SerialDate> warpTime_;
  bool painting_ = false;
  bool paintAsked_ = false;
  QWidget* body_ = nullptr;
  ViewCanvas* canvas_ = nullptr;
  platform::qt::SkinButton* expand_ = nullptr;
  platform::qt::LedClockWidget* ledClock_ = nullptr;
  InfoPane* pane_ = nullptr;
};

}  // namespace kestrava::views2d::ui
