#include <map>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "panels/MainSettingsPanel.h"
#include "platform/Settings.h"

#include "PanelDoubles.h"
#include "support/House.h"

namespace kestrava::panels {
namespace {

class View : public MainSettingsView {
 public:
  void ApplySkin() override { ++skins; }
  CheckControl& Check(MainCheck check) override { return checks[check]; }
  SliderControl& Slider(MainSlider slider) override { return sliders[slider]; }
  void SetClocks(int index) override {
    if (index < 0 || index > 2) throw platform::Fault::SubscriptOutOfRange();
    clocks = index;
  }
  platform::ComboControl& VoiceSelect() override { return voices; }
  platform::ComboControl& CBOstart() override { return start; }
  platform::ComboControl& CBOevery() override { return every; }
  void ShowSpeech(std::string_view text, bool trouble) override {
    speechLine = (trouble ? "! " : "") + std::string(text);
  }
  std::string WavFolder() const override { return wavFolder; }
  void SetWavFolder(std::string_view folder) override { wavFolder = folder; }
  std::optional<std::string> ChooseSaveFile(std::string_view fileName) override {
    dialogs.emplace_back(fileName);
    return chosen;
  }
  void ApplySkinToAll() override { looks.push_back(platform::ReadSetting("Skin", "1")); }
  void RefreshLauncher() override { ++refreshes; }

  std::map<MainCheck, RecordingCheck> checks;
  std::map<MainSlider, RecordingSlider> sliders;
  RecordingCombo voices, start, every;
  std::string speechLine;
  std::string wavFolder;
  std::optional<std::string> chosen;
  std::vector<std::string> dialogs;
  std::vector<std::string> looks;  // the setting, each time that all windows took it
  int clocks = -1;
  int skins = 0;
  int refreshes = 0;
};

using Texts = std::vector<std::string>;

class MainSettingsPanelTest : public testing::House {
 protected:
  void Tick(MainCheck check, bool ticked) {
    view.checks[check].SetChecked(ticked);
    panel.CheckClicked(check);
  }
  void Choose(int voice) {
    view.voices.SetIndex(voice);
    panel.VoiceClicked();
  }
  void Move(MainSlider slider, int value) {
    view.sliders[slider].SetValue(value);
    panel.SliderMoved(slider);
  }
  void Browse(std::optional<std::string> chosen) {
    view.chosen = std::move(chosen);
    panel.WavDirClicked();
  }

  View view;
  MainSettingsPanel panel{view};
};

TEST_F(MainSettingsPanelTest, ANewStationShowsTheDefaults) {
  panel.Load();
  EXPECT_EQ(view.skins, 1);
  EXPECT_EQ(view.clocks, 1);
  EXPECT_TRUE(view.checks[MainCheck::kSkin].checked);
  for (const MainCheck check : {MainCheck::kDde, MainCheck::kAutoSelect, MainCheck::kMiles, MainCheck::kRecWxsat,
                                MainCheck::kRecPrimary, MainCheck::kSpeech}) {
    EXPECT_FALSE(view.checks[check].checked) << static_cast<int>(check);
  }
  EXPECT_EQ(view.start.text, "15");
  EXPECT_EQ(view.every.text, "2");
  ASSERT_EQ(view.start.entries.size(), 60u);
  EXPECT_EQ(view.start.entries.front(), "1");
  EXPECT_EQ(view.every.entries.back(), "60");
  EXPECT_EQ(view.sliders[MainSlider::kSpeechSpeed].label, "180 WPM");
  EXPECT_EQ(view.sliders[MainSlider::kMinEl].label, "0 Degrees");
  EXPECT_EQ(view.wavFolder, "/house/");
  EXPECT_TRUE(view.voices.entries.empty()) << "speech is off";
}

TEST_F(MainSettingsPanelTest, AStartThatTheQuickListHasReadFirstIsTen) {
  platform::ReadSetting("SpeechStart", "10");
  panel.Load();
  EXPECT_EQ(view.start.text, "10");
}

TEST_F(MainSettingsPanelTest, LoadingWritesNothingBackThoughControlsTellOfEveryChange) {
  for (auto& check : {MainCheck::kSkin, MainCheck::kSpeech, MainCheck::kMiles}) {
    view.checks[check].onChange = [this, check] { panel.CheckClicked(check); };
  }
  for (auto& slider : {MainSlider::kSpeechSpeed, MainSlider::kMinEl}) {
    view.sliders[slider].onChange = [this, slider] { panel.SliderChanged(slider); };
  }
  panel.Load();
  platform::WriteSetting("SpeechSpeed", "400");
  platform::WriteSetting("Speechpack", "1");
  platform::WriteSetting("Voice", "2");
  settings.ForgetAccesses();
  panel.Load();
  EXPECT_TRUE(settings.Writes().empty());
  EXPECT_EQ(speech.speed, 0);
  EXPECT_TRUE(speech.said.empty());
  TakeFaults();
}

using SpeechStage = platform::SpeechCondition::Stage;

TEST_F(MainSettingsPanelTest, BesideTheTickItIsSaidWhetherAnythingIsHeard) {
  settings.Set("Speechpack", "1");
  speech.condition = {SpeechStage::kUntried, {}};
  panel.Load();
  EXPECT_EQ(view.speechLine, "Looking for a sound server.");
  EXPECT_EQ(speech.preparations, 1) << "it is looked for before anything is to be said";
  speech.condition = {SpeechStage::kNoSound, "no sound server (Connection refused)"};
  eventLoop.Advance(1);
  EXPECT_EQ(view.speechLine, "! Silent: no sound server (Connection refused).");
  speech.condition = {SpeechStage::kHeard, {}};
  eventLoop.Advance(1);
  EXPECT_EQ(view.speechLine, "The voice is ready.");
  Tick(MainCheck::kSpeech, false);
  eventLoop.Advance(1);
  EXPECT_EQ(view.speechLine, "");
}

TEST_F(MainSettingsPanelTest, WithSpeechOffTheEngineIsLeftAlone) {
  panel.Load();
  eventLoop.Advance(5);
  EXPECT_EQ(speech.preparations, 0);
  EXPECT_EQ(speech.voiceQuestions, 0);
  EXPECT_EQ(view.speechLine, "");
}

TEST_F(MainSettingsPanelTest, AnEngineThatStillComesUpOffersItsVoicesWhenItIsThere) {
  settings.Set("Voice", "2");
  panel.Load();
  speech.condition = {SpeechStage::kStarting, {}};
  Tick(MainCheck::kSpeech, true);
  EXPECT_EQ(view.speechLine, "The voice is being made ready.");
  EXPECT_TRUE(view.voices.entries.empty()) << "no click waits for it";
  speech.condition = {SpeechStage::kHeard, {}};
  eventLoop.Advance(1);
  EXPECT_EQ(view.voices.entries.size(), 2u);
  EXPECT_EQ(speech.voice, 2);
  EXPECT_EQ(speech.speed, 180);
}

TEST_F(MainSettingsPanelTest, ClosedBeforeTheVoicesAreThereTheChosenOneStays) {
  settings.Set("Speechpack", "1");
  settings.Set("Voice", "2");
  speech.condition = {SpeechStage::kStarting, {}};
  panel.Load();
  panel.Unload();
  EXPECT_EQ(settings.Get("Voice"), "2");
}

TEST_F(MainSettingsPanelTest, TheTestSpeaks) {
  settings.Set("Speechpack", "1");
  panel.Load();
  panel.TestClicked();
  EXPECT_EQ(speech.said, Texts{"This is the voice of Kestrava."});
  EXPECT_EQ(view.speechLine, "The voice is ready.");
}

TEST_F(MainSettingsPanelTest, TheTestSaysThatSpeechIsOff) {
  panel.Load();
  panel.TestClicked();
  EXPECT_TRUE(speech.said.empty());
  EXPECT_EQ(view.speechLine, "! Speech is off: tick \"Speech On\" first.");
  EXPECT_EQ(speech.preparations, 0);
}

TEST_F(MainSettingsPanelTest, TheTestTriesAnEngineAnewThatCouldNotBeMade) {
  settings.Set("Speechpack", "1");
  speech.condition = {SpeechStage::kNoEngine, "no speech engine could be made"};
  speech.voices.clear();
  messages.ExpectMessage("No Speech Engines Found");
  panel.Load();
  EXPECT_EQ(view.speechLine, "! No voice: no speech engine could be made.");
  messages.ExpectMessage("No Speech Engines Found");
  panel.TestClicked();
  EXPECT_EQ(speech.preparations, 2);
}

TEST_F(MainSettingsPanelTest, EveryTickIsStoredAtOnce) {
  panel.Load();
  const std::pair<MainCheck, const char*> keys[] = {
      {MainCheck::kDde, "DDEstartup"},   {MainCheck::kAutoSelect, "AutoSelect"}, {MainCheck::kMiles, "Miles"},
      {MainCheck::kSkin, "Skin"},        {MainCheck::kRecWxsat, "RecWxsat"},     {MainCheck::kRecPrimary, "RecPrimary"},
      {MainCheck::kSpeech, "Speechpack"}};
  for (const auto& [check, key] : keys) {
    Tick(check, true);
    EXPECT_EQ(settings.Get(key), "1") << key;
    Tick(check, false);
    EXPECT_EQ(settings.Get(key), "0") << key;
  }
}

TEST_F(MainSettingsPanelTest, TheSkinShowsAtOnceInAllWindowsAndNoOtherTickTouchesThem) {
  panel.Load();
  EXPECT_TRUE(view.looks.empty());
  Tick(MainCheck::kSkin, false);
  Tick(MainCheck::kMiles, true);
  Tick(MainCheck::kSkin, true);
  EXPECT_EQ(view.looks, (Texts{"0", "1"}));
}

TEST_F(MainSettingsPanelTest, TheClocksAreStoredByTheirIndex) {
  panel.Load();
  for (const int index : {0, 2, 1}) {
    panel.ClocksClicked(index);
    EXPECT_EQ(settings.Get("LEDclocks"), std::to_string(index));
  }
}

TEST_F(MainSettingsPanelTest, AStoredClockThatIsNoneIsLoggedAndTheLoadGoesOn) {
  platform::WriteSetting("LEDclocks", "7");
  panel.Load();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - mainCON - FormLoad"});
  EXPECT_EQ(view.every.text, "2");
}

TEST_F(MainSettingsPanelTest, AMovedSliderTellsItsValueAndStoresItAtTheEnd) {
  panel.Load();
  Move(MainSlider::kMinEl, 40);
  EXPECT_EQ(view.sliders[MainSlider::kMinEl].label, "40 Degrees");
  EXPECT_EQ(settings.Get("WxEL"), "0");
  panel.SliderChanged(MainSlider::kMinEl);
  EXPECT_EQ(settings.Get("WxEL"), "40");
}

TEST_F(MainSettingsPanelTest, TheSpeedOfASilentStationIsStoredAlone) {
  panel.Load();
  Move(MainSlider::kSpeechSpeed, 220);
  speech.broken = platform::Fault::Automation("no sound");
  panel.SliderChanged(MainSlider::kSpeechSpeed);
  EXPECT_EQ(settings.Get("SpeechSpeed"), "220");
  EXPECT_TRUE(TakeFaults().empty()) << "the engine is not touched while speech is off";
}

TEST_F(MainSettingsPanelTest, TheSpeedIsHeardAtOnce) {
  platform::WriteSetting("Speechpack", "1");
  panel.Load();
  Move(MainSlider::kSpeechSpeed, 220);
  panel.SliderChanged(MainSlider::kSpeechSpeed);
  EXPECT_EQ(settings.Get("SpeechSpeed"), "220");
  EXPECT_EQ(speech.speed, 220);
}

TEST_F(MainSettingsPanelTest, AnEngineThatTakesNoSpeedIsLogged) {
  platform::WriteSetting("Speechpack", "1");
  panel.Load();
  speech.broken = platform::Fault::Automation("no sound");
  panel.SliderChanged(MainSlider::kSpeechSpeed);
  EXPECT_EQ(TakeFaults(), Texts{"Automation error: no sound - mainCON - SLspeechspeed"});
}

TEST_F(MainSettingsPanelTest, AValueBeyondASlidersRangeIsLoggedShownClampedAndKept) {
  platform::WriteSetting("WxEL", "55");
  platform::WriteSetting("SpeechSpeed", "60");
  panel.Load();
  EXPECT_EQ(TakeFaults(), (Texts{"Invalid property value: SpeechSpeed 60 - mainCON - FormLoad",
                                 "Invalid property value: WxEL 55 - mainCON - FormLoad"}));
  EXPECT_EQ(view.sliders[MainSlider::kMinEl].label, "40 Degrees");
  EXPECT_EQ(view.sliders[MainSlider::kSpeechSpeed].label, "80 WPM");
  panel.Unload();
  EXPECT_EQ(settings.Get("WxEL"), "55");
  EXPECT_EQ(settings.Get("SpeechSpeed"), "60");
}

TEST_F(MainSettingsPanelTest, WithSpeechOnTheVoicesAreOfferedAndTheStoredOneIsChosenWithoutAWord) {
  platform::WriteSetting("Speechpack", "1");
  platform::WriteSetting("Voice", "2");
  panel.Load();
  EXPECT_EQ(view.voices.entries, (Texts{"English", "Scottish"}));
  EXPECT_EQ(view.voices.index, 1);
  EXPECT_TRUE(speech.said.empty());
}

TEST_F(MainSettingsPanelTest, SpeechTurnedOnOffersTheVoicesAnewAndTheEngineTakesVoiceAndSpeed) {
  platform::WriteSetting("Voice", "2");
  panel.Load();
  Tick(MainCheck::kSpeech, true);
  Tick(MainCheck::kSpeech, false);
  Tick(MainCheck::kSpeech, true);
  EXPECT_EQ(view.voices.entries, (Texts{"English", "Scottish"})) << "emptied before it is filled";
  EXPECT_EQ(view.voices.index, 1);
  EXPECT_EQ(speech.voice, 2);
  EXPECT_EQ(speech.speed, 180);
  EXPECT_TRUE(speech.said.empty()) << "nothing was chosen by the user";
}

TEST_F(MainSettingsPanelTest, SpeechTurnedOnWithoutVoicesIsSaidAndStaysStoredAsOn) {
  panel.Load();
  speech.voices.clear();
  messages.ExpectMessage("No Speech Engines Found");
  Tick(MainCheck::kSpeech, true);
  EXPECT_EQ(settings.Get("Speechpack"), "1");
  EXPECT_TRUE(view.voices.entries.empty());
}

TEST_F(MainSettingsPanelTest, AStoredVoiceThatThisMachineDoesNotHaveIsLogged) {
  platform::WriteSetting("Speechpack", "1");
  platform::WriteSetting("Voice", "9");
  panel.Load();
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - mainCON - FormLoad"});
  EXPECT_EQ(view.voices.entries.size(), 2u);
}

TEST_F(MainSettingsPanelTest, SpeechTurnedOnWithAVoiceThatIsNotHereStillTakesTheSpeed) {
  platform::WriteSetting("Voice", "9");
  platform::WriteSetting("SpeechSpeed", "120");
  panel.Load();
  Tick(MainCheck::kSpeech, true);
  EXPECT_EQ(TakeFaults(), Texts{"Subscript out of range - mainCON - CHspeechpack"});
  EXPECT_EQ(speech.voice, 0) << "none is taken in its place";
  EXPECT_EQ(speech.speed, 120);
}

TEST_F(MainSettingsPanelTest, AWindowThatClosesWhileVoicesAreOfferedIsLeftAlone) {
  panel.Load();
  eventLoop.AtYield(1, [&] { panel.Unload(); });
  Tick(MainCheck::kSpeech, true);
  EXPECT_EQ(speech.voice, 0);
}

TEST_F(MainSettingsPanelTest, AChosenVoiceIsTakenAndSaysSo) {
  platform::WriteSetting("Speechpack", "1");
  panel.Load();
  Choose(1);
  EXPECT_EQ(speech.voice, 2);
  EXPECT_EQ(speech.said, Texts{"Changed Voice to Scottish"});
}

TEST_F(MainSettingsPanelTest, AVoiceThatCannotBeTakenIsSaid) {
  platform::WriteSetting("Speechpack", "1");
  panel.Load();
  speech.broken = platform::Fault::Automation("gone");
  messages.ExpectMessage("Error changing voice, select another voice or re-install speech");
  Choose(0);
}

TEST_F(MainSettingsPanelTest, AtItsEndStoresItsFieldsAndRefreshesTheLauncher) {
  platform::WriteSetting("Speechpack", "1");
  panel.Load();
  view.voices.SetIndex(1);
  view.wavFolder = "/sounds/";
  view.start.text = "7";
  view.every.text = "3";
  view.checks[MainCheck::kAutoSelect].checked = true;
  panel.Unload();
  EXPECT_EQ(settings.Get("WxWavDir"), "/sounds/");
  EXPECT_EQ(settings.Get("Voice"), "2");
  EXPECT_EQ(settings.Get("SpeechStart"), "7");
  EXPECT_EQ(settings.Get("SpeechEvery"), "3");
  EXPECT_EQ(settings.Get("AutoSelect"), "1");
  EXPECT_EQ(view.refreshes, 1);
}

TEST_F(MainSettingsPanelTest, WithSpeechOffTheVoiceNoughtIsStoredAndTakenForTheFirstLater) {
  panel.Load();
  panel.Unload();
  EXPECT_EQ(settings.Get("Voice"), "0");
  View next;
  platform::WriteSetting("Speechpack", "1");
  MainSettingsPanel(next).Load();
  EXPECT_EQ(next.voices.index, 0);
}

TEST_F(MainSettingsPanelTest, TypedMinutesAreTheirLeadingNumber) {
  const std::pair<const char*, const char*> typed[] = {
      {"12 minutes", "12"}, {" 5", "5"}, {"often", "0"}, {"", "0"}, {"007", "7"}};
  for (const auto& [text, stored] : typed) {
    View fresh;
    MainSettingsPanel shown(fresh);
    shown.Load();
    fresh.every.text = text;
    shown.Unload();
    EXPECT_EQ(settings.Get("SpeechEvery"), stored) << text;
  }
}

TEST_F(MainSettingsPanelTest, AtItsEndAStoreThatTakesNothingIsLoggedAndTheRestGoesOn) {
  panel.Load();
  view.wavFolder = "/sounds/";
  settings.FailWrites(platform::Fault::DiskFull());
  panel.Unload();
  const Texts faults = TakeFaults();
  ASSERT_FALSE(faults.empty());
  EXPECT_EQ(faults.front(), "Disk full - mainCON - Unload");
  EXPECT_EQ(view.refreshes, 1);
  settings.Mend();
}

TEST_F(MainSettingsPanelTest, TheFolderIsWhatStandsInFrontOfTheDialogsName) {
  files.MakeFolder("/sounds");
  panel.Load();
  Browse("/sounds/Select a Folder then Click SAVE >>>>");
  EXPECT_EQ(view.dialogs, Texts{"Select a Folder then Click SAVE >>>>"});
  EXPECT_EQ(view.wavFolder, "/sounds/");
  EXPECT_TRUE(files.List("/sounds").empty()) << "nothing stays of the trial";
  EXPECT_NE(settings.Get("WxWavDir"), "/sounds/") << "stored at the end";
}

TEST_F(MainSettingsPanelTest, TheBareNameCancelAndANameWithoutAFolderAreNoFolder) {
  panel.Load();
  for (const std::optional<std::string>& chosen : {std::optional<std::string>("Select a Folder then Click SAVE >>>>"),
                                                   std::optional<std::string>(), std::optional<std::string>("music")}) {
    messages.ExpectMessage("Invalid Folder name, try again");
    Browse(chosen);
    EXPECT_EQ(view.wavFolder, "/house/");
  }
}

TEST_F(MainSettingsPanelTest, AnotherNameIsAProblemThatNamesIt) {
  panel.Load();
  messages.ExpectMessage("There was a problem, the filename was '/sounds/my.wav");
  Browse("/sounds/my.wav");
  EXPECT_EQ(view.wavFolder, "/house/");
}

TEST_F(MainSettingsPanelTest, AFolderThatCannotBeWrittenIsSaidAtOnceAndNotTaken) {
  files.MakeFolder("/sounds");
  panel.Load();
  files.BreakWriteAfter(0, platform::Fault::PermissionDenied());
  messages.ExpectMessage("Recordings cannot be saved in the folder /sounds/: ");
  Browse("/sounds/Select a Folder then Click SAVE >>>>");
  EXPECT_EQ(view.wavFolder, "/house/");
  files.Mend();
}

TEST_F(MainSettingsPanelTest, TheSoundSettingsOfTheDesktopAreOpened) {
  panel.EditMixerClicked();
  EXPECT_EQ(opener.run, Texts{"pavucontrol"});
}

TEST_F(MainSettingsPanelTest, WithoutSoundSettingsItIsSaidWhatToInstall) {
  opener.canRun = false;
  messages.ExpectMessage("pavucontrol");
  panel.EditMixerClicked();
  EXPECT_GT(opener.run.size(), 1u) << "the desktops' own were tried";
}

}  // namespace
}  // namespace kestrava::panels
