// The looks of the 2D settings panel: builds its sections, hands every event to Settings2DPanel and shows what that
// decides.
#pragma once

#include <array>

#include "panels/Settings2DPanel.h"
#include "platform/qt/ChoiceWidgets.h"
#include "platform/qt/StationWindow.h"

#include "PanelWidgets.h"

class QGridLayout;
class QGroupBox;

namespace kestrava::panels::ui {

class Settings2DWindow : public platform::qt::StationWindow, public Settings2DView {
  Q_OBJECT

 public:
  Settings2DWindow();

 private:
  void BuildUi();
  QGroupBox* BuildMap(QWidget* page);
  QGroupBox* BuildPictures(QWidget* page);
  void AddCheck(QGridLayout& grid, MapCheck check, std::string_view mnemonicAt);
  void AddSlider(QGridLayout& grid, MapSlider slider, std::string_view mnemonicAt);
  void AddPicture(QGridLayout& grid, MapPicture picture, std::string_view mnemonicAt);
  void ConnectSignals();

  // Settings2DView
  void ApplySkin() override { StationWindow::ApplySkin(); }
  CheckControl& Check(MapCheck check) override { return *checks_.at(static_cast<std::size_t>(check)); }
  SliderControl& Slider(MapSlider slider) override { return *sliders_.at(static_cast<std::size_t>(slider)); }
  platform::ComboControl& Picture(MapPicture picture) override {
    return *pictures_.at(static_cast<std::size_t>(picture));
  }

  Settings2DPanel behaviour_{*this};
  std::array<TickBox*, 4> checks_{};
  std::array<ValueSlider*, 2> sliders_{};
  std::array<platform::qt::ComboList*, 2> pictures_{};
};

}  // namespace kestrava::panels::ui
