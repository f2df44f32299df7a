// The behaviour of the main settings panel ("Kestrava Main Settings"): speech, clocks, units, the skin, recording. A
// tick is stored at once, some fields when the window closes. Knows no toolkit: the window is a MainSettingsView.
#pragma once

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "panels/PanelControls.h"
#include "panels/SettingRows.h"
#include "platform/ChoiceControls.h"
#include "platform/EventLoop.h"

namespace kestrava::panels {

inline constexpr std::string_view kMainSettingsWindow = "frmCONmain";  ///< its name in the registry
inline constexpr std::string_view kMainSettingsCaption = "Kestrava Main Settings";
/// The windows that settings of this panel act through.
inline constexpr std::string_view kTrackingWindow = "frmTracker";
inline constexpr std::string_view kRecordingWindow = "Record";
inline constexpr std::string_view kFolderPrompt = "Select a Folder then Click SAVE >>>>";

/// Rows of MainChecks and MainSliders, in their order.
enum class MainCheck { kDde, kAutoSelect, kMiles, kSkin, kRecWxsat, kRecPrimary, kSpeech };
enum class MainSlider { kSpeechSpeed, kMinEl };
std::span<const CheckRow> MainChecks();
std::span<const SliderRow> MainSliders();

class MainSettingsView {
 public:
  virtual ~MainSettingsView() = default;
  virtual void ApplySkin() = 0;
  virtual CheckControl& Check(MainCheck check) = 0;
  virtual SliderControl& Slider(MainSlider slider) = 0;
  /// Chooses one of OPclocks: 0 off, 1 local, 2 universal. That is no click.
  virtual void SetClocks(int index) = 0;
  virtual platform::ComboControl& VoiceSelect() = 0;
  virtual platform::ComboControl& CBOstart() = 0;
  virtual platform::ComboControl& CBOevery() = 0;
  /// The line beside the tick "Speech On". @param trouble  nothing is heard
  virtual void ShowSpeech(std::string_view text, bool trouble) = 0;
  virtual std::string WavFolder() const = 0;  ///< LAWxWavDir
  virtual void SetWavFolder(std::string_view folder) = 0;
  /// Opens the file dialog to save. @return the whole name; nothing if it was cancelled
  virtual std::optional<std::string> ChooseSaveFile(std::string_view fileName) = 0;
  /// The skin was turned on or off: all open windows take the new look.
  virtual void ApplySkinToAll() = 0;
  /// Lets the launcher show the new state.
  virtual void RefreshLauncher() = 0;
};

class MainSettingsPanel {
 public:
  /// @param view  outlives this object
  explicit MainSettingsPanel(MainSettingsView& view) : view_(view) {}

  void Load();
  void Unload();

  void CheckClicked(MainCheck check);
  void ClocksClicked(int index);
  /// While it is moved, and once at the end of a change.
  void SliderMoved(MainSlider slider);
  void SliderChanged(MainSlider slider);
  void VoiceClicked();
  /// Says a sentence; the line beside the tick tells why nothing is heard.
  void TestClicked();
  void WavDirClicked();
  void EditMixerClicked();

 private:
  /// What the engine is asked for when it has come up.
  enum class Wanted { kNothing, kVoices, kVoicesAndOrders };

  void AskEngine(Wanted wanted);
  void FollowSpeech();
  void ShowSpeechLine();
  bool FillVoices();
  void GiveOrders();
  void TakeFolder(const std::string& fileName);

  MainSettingsView& view_;
  std::unique_ptr<platform::Timer> speechTimer_;
  Wanted wanted_ = Wanted::kNothing;
  bool loading_ = false;
  bool open_ = true;
};

}  // namespace kestrava::panels
