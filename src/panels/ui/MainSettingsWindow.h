// The looks of the main settings panel: builds its sections, hands every event to MainSettingsPanel and shows what that
// decides.
#pragma once

#include <QButtonGroup>
#include <array>

#include "panels/MainSettingsPanel.h"
#include "platform/qt/ChoiceWidgets.h"
#include "platform/qt/SkinButton.h"
#include "platform/qt/StationWindow.h"

#include "PanelWidgets.h"
#include "PathField.h"

class QGridLayout;
class QGroupBox;

namespace kestrava::panels::ui {

class MainSettingsWindow : public platform::qt::StationWindow, public MainSettingsView {
  Q_OBJECT

 public:
  MainSettingsWindow();
  void Show() override;
  void OnUnload() override;

 protected:
  void changeEvent(QEvent* event) override;

 private:
  void BuildUi();
  QGroupBox* BuildSpeech(QWidget* page);
  void AddSpeechLine(QGridLayout& grid);
  QGroupBox* BuildDisplay(QWidget* page);
  QGroupBox* BuildRecording(QWidget* page);
  QGroupBox* BuildTracking(QWidget* page);
  QWidget* BuildClocks(QWidget* parent);
  void AddCheck(QGridLayout& grid, MainCheck check, std::string_view mnemonicAt);
  void AddSlider(QGridLayout& grid, MainSlider slider, std::string_view mnemonicAt);
  platform::qt::ComboList* MakeMinutes(const char* name, QWidget* parent);
  void ConnectSignals();

  // MainSettingsView
  void ApplySkin() override { StationWindow::ApplySkin(); }
  CheckControl& Check(MainCheck check) override { return *checks_.at(static_cast<std::size_t>(check)); }
  SliderControl& Slider(MainSlider slider) override { return *sliders_.at(static_cast<std::size_t>(slider)); }
  void SetClocks(int index) override;
  platform::ComboControl& VoiceSelect() override { return *voice_; }
  platform::ComboControl& CBOstart() override { return *start_; }
  platform::ComboControl& CBOevery() override { return *every_; }
  void ShowSpeech(std::string_view text, bool trouble) override;
  std::string WavFolder() const override;
  void SetWavFolder(std::string_view folder) override;
  std::optional<std::string> ChooseSaveFile(std::string_view fileName) override;
  void ApplySkinToAll() override;
  void RefreshLauncher() override;

  MainSettingsPanel behaviour_{*this};
  bool loaded_ = false;
  std::array<TickBox*, 7> checks_{};
  std::array<ValueSlider*, 2> sliders_{};
  QButtonGroup* clocks_ = nullptr;
  platform::qt::SkinButton* test_ = nullptr;
  QLabel* speech_ = nullptr;
  bool speechTrouble_ = false;
  platform::qt::ComboList* voice_ = nullptr;
  platform::qt::ComboList* start_ = nullptr;
  platform::qt::ComboList* every_ = nullptr;
  platform::qt::SkinButton* editMixer_ = nullptr;
  PathField* wavFolder_ = nullptr;
  platform::qt::SkinButton* browse_ = nullptr;
};

}  // namespace kestrava::panels::ui
