// The behaviour of the map window over the real engine in a scripted house, driven through a window that only
// remembers.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "orbit/OrbitEngine.h"
#include "platform/Fault.h"
#include "station/Devices.h"
#include "views2d/MapWindow.h"

#include "RememberingTracker.h"
#include "support/House.h"

namespace kestrava::views2d {

inline constexpr const char* kElements =
    "ISS (ZARYA)             \r\n"
    "1 25544U 98067A   26318.89808844  .00002078  00000-0  38550-4 0  9991\r\n"
    "2 25544  51.6424  32.9776 0003646  28.7227  39.5332 15.54190080 95614\r\n"
    "TIANGONG-2              \r\n"
    "1 41765U 16057A   26318.80803297  .00003596  00000-0  47554-4 0  9991\r\n"
    "2 41765  42.7825 141.2003 0004428 302.7739 193.5450 15.60156123 76957\r\n";

class ListOfRows : public platform::ListControl {
 public:
  void Clear() override { rows.clear(); }
  void AddRow(const std::vector<std::string>& subItems) override { rows.push_back(subItems); }
  int RowCount() const override { return static_cast<int>(rows.size()); }
  std::vector<std::vector<std::string>> rows;
};

class RememberingClock : public platform::LedClock {
 public:
  void SetValue(platform::SerialDate time) override { value = time; }
  void ShowGivenTime(bool on) override { given = on; }
  void ShowUniversalTime(bool on) override { utc = on; }
  void SetClockVisible(bool on) override { visible = on; }
  bool IsClockVisible() const override { return visible; }
  platform::SerialDate value = 0;
  bool given = false;
  bool utc = false;
  bool visible = true;
};

class RememberingView : public MapWindowView {
 public:
  MapWindow* window = nullptr;
  int innerWidth = 1000;
  int innerHeight = 600;
  bool minimised = false;
  bool shown = true;
  int skins = 0;
  std::vector<int> place;
  std::optional<WindowPlace> besideLatestMap;  ///< empty: no other map is open
  std::vector<std::string> titles;
  MapLayout layout;
  std::string picture;
  int paints = 0;
  std::vector<std::string> order;  ///< lines "changed", shown ("lines"), map painted ("paint")
  std::function<void()> duringPaint;
  std::string dataText;
  int dataTexts = 0;
  RememberingClock clock;
  ListOfRows eta;
  bool etaVisible = false;
  int slider = 2;
  std::map<std::pair<MapButtons, int>, platform::Colour> lit;
  std::map<MapMark, bool> marks;
  std::set<MapMark> disabled;
  std::map<int, std::string> captions;
  int popUps = 0;

  void RemoteStatChanged(int) override {
    if (order.empty() || order.back() != "changed") order.emplace_back("changed");
  }
  void ShowWarpTime(platform::SerialDate time) override { clock.SetValue(time); }
  void SelectFavourite(int index) override { window->FavouriteClicked(index); }
  bool IsOpen() const override { return window->IsOpen(); }
  MapWindowPlace PlaceToStore() const override { return {}; }
  int InnerWidthPx() const override { return innerWidth; }
  int InnerHeightPx() const override { return innerHeight; }
  int FinalWidthPx() const override { return layout.finalWidth; }
  int FinalHeightPx() const override { return layout.finalHeight; }
  bool IsMinimised() const override { return minimised; }
  bool IsShown() const override { return shown; }
  void ApplySkin() override { ++skins; }
  void ApplyPlace(const WindowPlace& at) override {
    place = {at.leftTwips, at.topTwips, at.widthTwips, at.heightTwips};
  }
  std::optional<WindowPlace> PlaceBesideLatestMap(const WindowPlace&) const override { return besideLatestMap; }
  bool AnotherMapIsOpen() const override { return besideLatestMap.has_value(); }
  void ShowMode() override { titles.push_back(window->Title()); }
  void ApplyLayout(const MapLayout& l) override { layout = l; }
  void LoadWorldPicture(const std::string& file) override { picture = file; }
  void ShowInfoLines() override { order.emplace_back("lines"); }
  void RepaintMap() override {
    order.emplace_back("paint");
    ++paints;
    if (duringPaint) duringPaint();
  }
  void SetDataText(std::string_view text) override {
    dataText = text;
    ++dataTexts;
  }
  platform::LedClock& Clock() override { return clock; }
  platform::ListControl& QuickEtaList() override { return eta; }
  bool QuickEtaVisible() const override { return etaVisible; }
  void ShowQuickEta(bool on) override { etaVisible = on; }
  int WarpSliderValue() const override { return slider; }
  void LightButton(MapButtons pair, int index, platform::Colour colour) override { lit[{pair, index}] = colour; }
  bool IsMarked(MapMark mark) const override { return marks.count(mark) > 0 && marks.at(mark); }
  void SetMarked(MapMark mark, bool on) override { marks[mark] = on; }
  bool IsMarkEnabled(MapMark mark) const override { return disabled.count(mark) == 0; }
  void SetMarkEnabled(MapMark mark, bool on) override { on ? void(disabled.erase(mark)) : void(disabled.insert(mark)); }
  void CreateFavouriteEntry(int index) override {
    if (captions.count(index)) throw platform::Fault::ControlAlreadyLoaded();
    captions[index];
  }
  void SetFavouriteCaption(int index, const std::string& caption) override { captions[index] = caption; }
  void PopUpSatelliteMenu() override { ++popUps; }
};

class MapWindowTest : public testing::House {
 protected:
  MapWindowTest() {
    clock.SetUtc({2026, 11, 15, 12, 0, 0});
    Put("stations.txt", kElements);
    Put("satellite.dat", "ISS\r\nNAME   International Space Station\r\nNOTES  Manned\r\n***\r\n");
    engine.SetDataFolder(platform::AppDir);
    SetFavourites({"ISS (ZARYA)", "TIANGONG-2"});
  }

  void SetFavourites(const std::vector<std::string>& names) {
    tables.FaveCount = static_cast<std::int16_t>(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) tables.FaveList[i + 1].Name = names[i];
  }

  /// A window that is loaded, laid out and activated.
  MapWindow& Open() {
    window = std::make_unique<MapWindow>(orbit::Sky{tables, engine}, view);
    view.window = window.get();
    window->Load();
    window->Resize();
    window->Activate();
    return *window;
  }

  /// Marks the track so that a new calculation shows.
  void StainTrack() { tables.GroundTrack[0].lat = 99; }
  bool TrackIsFresh() const { return tables.GroundTrack[0].lat != 99; }
  void StainSun() { tables.SunLat = 99; }
  bool SunIsFresh() const { return tables.SunLat != 99; }

  orbit::Tables tables;
  orbit::OrbitEngine engine;
  RememberingView view;
  std::unique_ptr<MapWindow> window;
};

}  // namespace kestrava::views2d
