#include "panels/MainSettingsPanel.h"

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "platform/Doors.h"
#include "platform/EventLoop.h"
#include "platform/Fault.h"
#include "platform/Format.h"
#include "platform/Text.h"

namespace kestrava::panels {

using platform::Fault;
using platform::FaultTrap;
using platform::ReadSetting;
using platform::TheMessages;
using platform::WriteSetting;
using SpeechStage = platform::SpeechCondition::Stage;

namespace {

constexpr std::string_view kLoadTrap = "mainCON - FormLoad";
constexpr std::string_view kUnloadTrap = "mainCON - Unload";
constexpr std::string_view kSpeechTrap = "mainCON - CHspeechpack";
constexpr int kMostMinutes = 60;
constexpr int kSpeechTickMs = 200;

constexpr std::array<CheckRow, 7> kChecks{
    {{"CHdde", "Rotor/Radio Tracking DDE Auto Start up", "DDEstartup", "0", kTrackingWindow},
     {"CHautoSelect", "Auto Select Satellite in Range", "AutoSelect", "0"},
     {"CHmiles", "Display Miles instead of Kilometres", "Miles", "0"},
     {"CHskin", "Kestrava \"Skinning\" Effect", "Skin", "1"},
     {"CHrecwxsat", "Record Weather Satellite Passes", "RecWxsat", "0", kRecordingWindow},
     {"CHrecPrimary", "Record Primary Satellite Passes", "RecPrimary", "0", kRecordingWindow},
     {"CHspeechpack", "Speech On", "Speechpack", "0"}}};

constexpr std::array<SliderRow, 2> kSliders{
    {{"SLspeechspeed", "LAspeechspeed", "Speed of Speech (in words per minute)", "SpeechSpeed", "180", 80, 250, 1, 10,
      10, "WPM"},
     {"SLminEl", "LAminEl", "Minimum Elevation for Recording", "WxEL", "0", 0, 40, 1, 5, 0, "Degrees"}}};

/// What opens the sound settings, the first that is there: the volume control of the sound server, then the desktops'.
struct SoundPanel {
  const char* program;
  std::vector<std::string> arguments;
};
std::vector<SoundPanel> SoundPanels() {
  return {{"pavucontrol", {}},
          {"gnome-control-center", {"sound"}},
          {"systemsettings", {"kcm_pulseaudio"}},
          {"systemsettings5", {"kcm_pulseaudio"}},
          {"pavucontrol-qt", {}},
          {"cinnamon-settings", {"sound"}},
          {"mate-volume-control", {}}};
}

const CheckRow& RowOf(MainCheck check) {
  return platform::At(kChecks, static_cast<int>(check));
}

const SliderRow& RowOf(MainSlider slider) {
  return platform::At(kSliders, static_cast<int>(slider));
}

void FillMinutes(platform::ComboControl& box) {
  for (int minutes = 1; minutes <= kMostMinutes; ++minutes) box.Add(std::to_string(minutes));
}

/// The leading number of what was typed as a plain number, 0 if there is none.
std::string PlainMinutes(const platform::ComboControl& box) {
  return platform::NumberText(platform::Val(box.Text()));
}

/// The place of the stored voice in the list; none is taken for the first.
int StoredVoice() {
  const int voice = platform::ToInt16(platform::ReadNumberSetting("Voice", "1"));
  return voice == 0 ? 0 : voice - 1;
}

/// Whether anything is heard, in one line.
std::string SpeechText(const platform::SpeechCondition& condition) {
  switch (condition.stage) {
    case SpeechStage::kNotUsed:
      break;
    case SpeechStage::kStarting:
      return "The voice is being made ready.";
    case SpeechStage::kNoEngine:
      return "No voice: " + condition.why + ".";
    case SpeechStage::kUntried:
      return "Looking for a sound server.";
    case SpeechStage::kNoSound:
      return "Silent: " + condition.why + ".";
    case SpeechStage::kHeard:
      return "The voice is ready.";
  }
  return {};
}

/// Tries to write in a folder. @throws Fault
void CheckFolder(const std::string& folder) {
  const std::filesystem::path probe = std::filesystem::path(folder) / ".kestrava-can-write";
  platform::TheFiles().Replace(probe, "");
  platform::TheFiles().Remove(probe);
}

}  // namespace

std::span<const CheckRow> MainChecks() {
  return kChecks;
}

std::span<const SliderRow> MainSliders() {
  return kSliders;
}

void MainSettingsPanel::Load() {
  const FaultTrap trap{kLoadTrap};
  loading_ = true;
  trap([&] { view_.ApplySkin(); });
  FillMinutes(view_.CBOstart());
  FillMinutes(view_.CBOevery());
  for (std::size_t i = 0; i < kChecks.size(); ++i) ShowSetting(kChecks[i], view_.Check(static_cast<MainCheck>(i)));
  trap([&] { view_.SetClocks(platform::ToInt16(platform::ReadNumberSetting("LEDclocks", "1"))); });
  view_.CBOstart().SetText(ReadSetting("SpeechStart", "15"));
  view_.CBOevery().SetText(ReadSetting("SpeechEvery", "2"));
  for (std::size_t i = 0; i < kSliders.size(); ++i) {
    ShowSetting(kSliders[i], view_.Slider(static_cast<MainSlider>(i)), kLoadTrap);
  }
  view_.SetWavFolder(ReadSetting("WxWavDir", platform::AppDir));
  trap([&] { speechTimer_ = platform::TheEventLoop().MakeTimer(kSpeechTickMs, [this] { FollowSpeech(); }); });
  if (view_.Check(MainCheck::kSpeech).IsChecked()) trap([&] { AskEngine(Wanted::kVoices); });
  loading_ = false;
}

void MainSettingsPanel::Unload() {
  open_ = false;
  if (speechTimer_) speechTimer_->SetEnabled(false);
  const FaultTrap trap{kUnloadTrap};
  trap([&] { WriteSetting("WxWavDir", view_.WavFolder()); });
  if (wanted_ == Wanted::kNothing) {  // else the voices were not yet there to be chosen from
    trap([&] { WriteSetting("Voice", std::to_string(view_.VoiceSelect().Index() + 1)); });
  }
  trap([&] { WriteSetting("SpeechStart", PlainMinutes(view_.CBOstart())); });
  trap([&] { WriteSetting("SpeechEvery", PlainMinutes(view_.CBOevery())); });
  trap([&] { WriteSetting("AutoSelect", view_.Check(MainCheck::kAutoSelect).IsChecked() ? "1" : "0"); });
  trap([&] { view_.RefreshLauncher(); });
}

/// Offers the voices of the machine and chooses the stored one. @return false if there is none, which is said, or if
/// the window was closed in the meantime
bool MainSettingsPanel::FillVoices() {
  // One that could not be made would be tried anew, and waited for.
  const bool hasEngine = platform::TheSpeech().Condition().stage != SpeechStage::kNoEngine;
  const std::vector<std::string> voices = hasEngine ? platform::TheSpeech().Voices() : std::vector<std::string>{};
  view_.VoiceSelect().Clear();
  if (voices.empty()) {
    TheMessages().Show("No Speech Engines Found");
    return false;
  }
  for (const std::string& voice : voices) view_.VoiceSelect().Add(voice);
  platform::YieldOnce();
  if (open_) view_.VoiceSelect().SetIndex(StoredVoice());
  return open_;
}

/// The running engine may never have been told: the launcher does so only where speech is on at its load.
void MainSettingsPanel::GiveOrders() {
  const FaultTrap trap{kSpeechTrap};
  const int voice = view_.VoiceSelect().Index() + 1;
  if (voice > 0) trap([&] { platform::TheSpeech().SelectVoice(voice); });
  trap([&] { platform::TheSpeech().SetSpeed(view_.Slider(MainSlider::kSpeechSpeed).Value()); });
}

/// The engine comes up in its own time, and no click waits for it.
void MainSettingsPanel::AskEngine(Wanted wanted) {
  wanted_ = wanted;
  FaultTrap{kSpeechTrap}([] { platform::TheSpeech().Prepare(); });
  if (speechTimer_) speechTimer_->SetEnabled(true);
  FollowSpeech();
}

void MainSettingsPanel::FollowSpeech() {
  ShowSpeechLine();
  if (wanted_ == Wanted::kNothing || platform::TheSpeech().Condition().stage == SpeechStage::kStarting) return;
  const Wanted wanted = std::exchange(wanted_, Wanted::kNothing);
  bool offered = true;
  FaultTrap{wanted == Wanted::kVoices ? kLoadTrap : kSpeechTrap}([&] {
    offered = FillVoices();  // a stored voice that is not here leaves none chosen
  });
  if (offered && wanted == Wanted::kVoicesAndOrders) GiveOrders();
}

void MainSettingsPanel::ShowSpeechLine() {
  const platform::SpeechCondition condition = platform::TheSpeech().Condition();
  view_.ShowSpeech(SpeechText(condition),
                   condition.stage == SpeechStage::kNoEngine || condition.stage == SpeechStage::kNoSound);
}

void MainSettingsPanel::TestClicked() {
  if (ReadSetting("Speechpack", "0") == "0") {
    view_.ShowSpeech("Speech is off: tick \"Speech On\" first.", true);
    return;
  }
  const bool hadNoEngine = platform::TheSpeech().Condition().stage == SpeechStage::kNoEngine;
  AskEngine(hadNoEngine ? Wanted::kVoicesAndOrders : wanted_);
  platform::SayText("This is the voice of Kestrava.");
}

void MainSettingsPanel::CheckClicked(MainCheck check) {
  if (loading_) return;
  StoreSetting(RowOf(check), view_.Check(check));
  if (check == MainCheck::kSkin) view_.ApplySkinToAll();
  if (check != MainCheck::kSpeech) return;
  if (view_.Check(check).IsChecked()) return AskEngine(Wanted::kVoicesAndOrders);
  if (speechTimer_) speechTimer_->SetEnabled(false);
  wanted_ = Wanted::kNothing;
  view_.ShowSpeech({}, false);
}

void MainSettingsPanel::ClocksClicked(int index) {
  if (!loading_) StoreByClick("LEDclocks", std::to_string(index));
}

void MainSettingsPanel::SliderMoved(MainSlider slider) {
  if (!loading_) ShowValue(RowOf(slider), view_.Slider(slider));
}

void MainSettingsPanel::SliderChanged(MainSlider slider) {
  if (loading_) return;
  SliderControl& control = view_.Slider(slider);
  StoreSetting(RowOf(slider), control);
  ShowValue(RowOf(slider), control);
  if (slider == MainSlider::kSpeechSpeed && platform::ReadSetting("Speechpack", "0") != "0") {
    FaultTrap{"mainCON - SLspeechspeed"}([&] { platform::TheSpeech().SetSpeed(control.Value()); });
  }
}

void MainSettingsPanel::VoiceClicked() {
  if (loading_) return;
  try {
    platform::TheSpeech().SelectVoice(view_.VoiceSelect().Index() + 1);
    platform::SayText("Changed Voice to " + view_.VoiceSelect().Text());
  } catch (const Fault&) {
    TheMessages().Show("Error changing voice, select another voice or re-install speech");
  }
}

void MainSettingsPanel::WavDirClicked() {
  // A dialog that was cancelled keeps the name with which it was opened.
  const std::string fileName = view_.ChooseSaveFile(kFolderPrompt).value_or(std::string(kFolderPrompt));
  if (!open_) return;
  try {
    TakeFolder(fileName);
  } catch (const Fault&) {
    TheMessages().Show("There was a problem, the filename was '" + fileName + "'");
  }
}

void MainSettingsPanel::TakeFolder(const std::string& fileName) {
  const char separator = static_cast<char>(std::filesystem::path::preferred_separator);
  if (fileName == kFolderPrompt || fileName.find(separator) == std::string::npos) {
    TheMessages().Show("Invalid Folder name, try again");
    return;
  }
  const std::size_t mark = fileName.find(separator + std::string("Select a Folder"));
  if (mark == std::string::npos) throw Fault::InvalidCall();
  const std::string folder = fileName.substr(0, mark) + separator;
  try {
    CheckFolder(folder);
  } catch (const Fault& fault) {
    TheMessages().Show("Recordings cannot be saved in the folder " + folder + ": " + fault.what() +
                       ". The folder stays as it was, choose another one.");
    return;
  }
  view_.SetWavFolder(folder);
}

void MainSettingsPanel::EditMixerClicked() {
  for (const SoundPanel& panel : SoundPanels()) {
    if (platform::TheOpener().Run(panel.program, panel.arguments)) return;
  }
  TheMessages().Show(
      "No sound settings were found on this machine. Install the program pavucontrol (PulseAudio Volume Control), then "
      "click this button again.");
}

}  // namespace kestrava::panels
