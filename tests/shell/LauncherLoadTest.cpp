#include "LauncherRig.h"

namespace kestrava::shell {
namespace {

using platform::Fault;
using LauncherLoad = LauncherRig;
using LauncherLoadAllSettings = LauncherRig;
using Strings = std::vector<std::string>;

TEST_F(LauncherLoad, ShowsVersionWithoutAPointBeforeTheRevision) {
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(Label(LauncherLabel::kVersion), "Version 2.02 Pro");
  EXPECT_EQ(view.caption, "Kestrava v2.02");
  EXPECT_EQ(view.unloads, 0);
}

TEST_F(LauncherLoad, CreditsTheMakersWithThePresentYear) {
  clock.SetUtc({2031, 3, 4, 5, 6, 7});
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(Label(LauncherLabel::kCredit), "\u00a9 2031 The Kestrava Makers");
}

TEST_F(LauncherLoad, StartsTheClockOnLocalTime) {
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_FALSE(view.clock.utc);
}

TEST_F(LauncherLoad, PointsBothEnginesAtTheFolder) {
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  ASSERT_EQ(engines.size(), 2U);
  EXPECT_EQ(engines[0]->DataFolder(), "/house/");
  EXPECT_EQ(engines[1]->DataFolder(), "/house/");
  EXPECT_EQ(orbit::Engine.get(), engines[1]);
}

TEST_F(LauncherLoad, AFolderAtTheRootHasOneSeparatorAtItsEnd) {
  files.Put("/groups.dat", "G, amateur.txt,1\n");
  files.Put("/amateur.txt", kOneSet);
  LauncherSetup setup = NewSetup();
  setup.dataFolder = "/";
  Launcher launcher(view, tables, setup);
  launcher.Load();
  EXPECT_EQ(platform::AppDir, "/");
  TakeFaults();  // the other files are not there
}

TEST_F(LauncherLoad, AFolderGivenWithItsSeparatorKeepsOne) {
  LauncherSetup setup = NewSetup();
  setup.dataFolder = "/house/";
  Launcher launcher(view, tables, setup);
  launcher.Load();
  EXPECT_EQ(platform::AppDir, "/house/");
}

TEST_F(LauncherLoad, AMissingGroupsFileIsToldAndUnloadsTheWindowAndTheLoadGoesOn) {
  files.Remove("/house/groups.dat");
  messages.ExpectMessage("Problem finding 'groups.dat' (a file used by kestrava) in the folder: /house/");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(view.unloads, 1);
  EXPECT_EQ(TakeFaults(), Strings{"File not found - LauncherLoadAllSettings"});
  EXPECT_EQ(view.hint, "Our club");
}

TEST_F(LauncherLoad, FillsTheTables) {
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(tables.FaveCount, 1);
  EXPECT_EQ(tables.FaveList[1].Name, "ISS (ZARYA)");
  EXPECT_EQ(tables.GroupCount, 1);
  EXPECT_EQ(tables.LocationList[1].Name, "Home");
}

TEST_F(LauncherLoad, TheLinkIsTrimmedAndOpenedByAClick) {
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(view.picture, "/house/cust1.dat");
  EXPECT_EQ(view.hint, "Our club");
  launcher.CustomiseClick();
  EXPECT_EQ(opener.opened, Strings{"https://club.example/"});
}

TEST_F(LauncherLoad, ALinkThatIsNoAddressAndNoFileOfTheFolderIsNotOpenedAndThatIsSaid) {
  Put("cust2.dat", "Our club\nfile:///usr/bin/thing.desktop\n");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  messages.ExpectMessage("The link \"file:///usr/bin/thing.desktop\" was not opened");
  launcher.CustomiseClick();
  EXPECT_TRUE(opener.opened.empty());
}

TEST_F(LauncherLoad, ALinkThatCouldNotBeOpenedIsSaid) {
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  opener.canOpen = false;
  messages.ExpectMessage("The link \"https://club.example/\" could not be opened");
  launcher.CustomiseClick();
}

TEST_F(LauncherLoad, MissingPictureAndLinkAreLoggedAndDoNotStopTheLoad) {
  files.Remove("/house/cust1.dat");
  files.Remove("/house/cust2.dat");
  settings.Set("Speechpack", "1");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(TakeFaults(), (Strings{"File not found - Main Form Load", "File not found - Main Form Load"}));
  EXPECT_EQ(made->said, Strings{"Welcome to Kes Trava. version 2 point 0 2"});
}

TEST_F(LauncherLoad, ALinkFileOfOneLineGivesTheHintAndLogsTheMissingTarget) {
  Put("cust2.dat", "Only a hint");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(view.hint, "Only a hint");
  EXPECT_EQ(TakeFaults(), Strings{"Input past end of file - Main Form Load"});
}

TEST_F(LauncherLoad, SpeechOffAsksForNoSpeedAndSaysNothing) {
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_FALSE(settings.Has("SpeechSpeed"));
  EXPECT_TRUE(made->said.empty());
  EXPECT_EQ(settings.Get("Speechpack"), "0");
}

TEST_F(LauncherLoad, SpeechOnSetsItsSpeed) {
  settings.Set("Speechpack", "1");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(made->speed, 180);
  EXPECT_EQ(settings.Get("SpeechSpeed"), "180");
}

TEST_F(LauncherLoad, AVoiceThatCannotBeMadeTurnsSpeechOffWithTheAutomationMessage) {
  settings.Set("Speechpack", "1");
  LauncherSetup setup = NewSetup();
  setup.makeSpeech = []() -> std::unique_ptr<platform::SpeechEngine> { throw Fault::Automation("no voice data"); };
  messages.ExpectMessage(
      "There was an 'automation error', this is normally a problem with the speech engine not being installed "
      "properly, but if you havn't installed the speech, then it may be a problem with either DirectX or your Display "
      "Driver - Automation error: no voice data");
  Launcher launcher(view, tables, setup);
  launcher.Load();
  EXPECT_EQ(settings.Get("Speechpack"), "0");
  EXPECT_EQ(TakeFaults(), Strings{"Automation error: no voice data - Main Form Load"});
  EXPECT_TRUE(speech.said.empty());
  EXPECT_EQ(Label(LauncherLabel::kVersion), "Version 2.02 Pro");
}

TEST_F(LauncherLoad, AVoiceThatFailsWhenItIsFirstTouchedIsTurnedOffOnce) {
  settings.Set("Speechpack", "1");
  LauncherSetup setup = NewSetup();
  setup.makeSpeech = [] {
    auto voice = std::make_unique<testing::RecordingSpeech>();
    voice->broken = Fault::Automation("no speech engine could be made");
    return voice;
  };
  messages.ExpectMessage(
      "There was an 'automation error', this is normally a problem with the speech engine not being installed "
      "properly, but if you havn't installed the speech, then it may be a problem with either DirectX or your Display "
      "Driver - Automation error: no speech engine could be made");
  Launcher launcher(view, tables, setup);
  launcher.Load();
  EXPECT_EQ(settings.Get("Speechpack"), "0");
  EXPECT_EQ(TakeFaults(), Strings{"Automation error: no speech engine could be made - Main Form Load"})
      << "neither the choice of the voice nor the welcome touches it again";
}

/// An engine that still comes up when the load is over.
testing::RecordingSpeech& UseSlowVoice(LauncherSetup& setup) {
  auto voice = std::make_unique<testing::RecordingSpeech>();
  testing::RecordingSpeech& engine = *voice;
  engine.condition = {platform::SpeechCondition::Stage::kStarting, {}};
  setup.makeSpeech = [made = std::make_shared<std::unique_ptr<testing::RecordingSpeech>>(std::move(voice))] {
    return std::move(*made);
  };
  return engine;
}

TEST_F(LauncherLoad, AVoiceThatFailsInItsThreadAfterTheLoadIsTurnedOffOnce) {
  settings.Set("Speechpack", "1");
  LauncherSetup setup = NewSetup();
  testing::RecordingSpeech& voice = UseSlowVoice(setup);
  Launcher launcher(view, tables, setup);
  launcher.Load();
  launcher.Timer1Tick();
  EXPECT_EQ(settings.Get("Speechpack"), "1") << "it may still come up";
  voice.condition = {platform::SpeechCondition::Stage::kNoEngine, "no speech engine could be made"};
  messages.ExpectMessage(
      "There was an 'automation error', this is normally a problem with the speech engine not being installed "
      "properly, but if you havn't installed the speech, then it may be a problem with either DirectX or your Display "
      "Driver - Automation error: no speech engine could be made");
  launcher.Timer1Tick();
  launcher.Timer1Tick();
  EXPECT_EQ(settings.Get("Speechpack"), "0");
  EXPECT_EQ(TakeFaults(), Strings{"Automation error: no speech engine could be made - Main Form Load"});
}

TEST_F(LauncherLoad, AVoiceThatIsNotThereIsLoggedWhenTheEngineHasComeUp) {
  settings.Set("Speechpack", "1");
  settings.Set("Voice", "2");
  LauncherSetup setup = NewSetup();
  testing::RecordingSpeech& voice = UseSlowVoice(setup);
  Launcher launcher(view, tables, setup);
  launcher.Load();
  EXPECT_EQ(TakeFaults(), Strings());
  voice.voices = {"English"};
  voice.condition = {platform::SpeechCondition::Stage::kUntried, {}};
  launcher.Timer1Tick();
  launcher.Timer1Tick();
  EXPECT_EQ(TakeFaults(), Strings{"Subscript out of range - LauncherLoadAllSettings"});
}

TEST_F(LauncherLoad, AnEngineThatCannotBeMadeIsLoggedAndTheActivationUnloadsTheWindow) {
  LauncherSetup setup = NewSetup();
  setup.makeEngine = []() -> std::unique_ptr<orbit::OrbitEngine> { throw Fault(429, "Cannot create object"); };
  Launcher launcher(view, tables, setup);
  launcher.Load();
  const Strings faults = TakeFaults();
  ASSERT_GE(faults.size(), 2U);
  EXPECT_EQ(faults[0], "Cannot create object - Main Form Load");
  EXPECT_EQ(faults[1], "Cannot create object - Main Form Load");
  EXPECT_EQ(view.hint, "Our club");
  launcher.Activate();
  EXPECT_EQ(view.unloads, 1);
}

TEST_F(LauncherLoad, AnEngineThatFailsByAutomationIsToldForEachOfTheTwo) {
  LauncherSetup setup = NewSetup();
  setup.makeEngine = []() -> std::unique_ptr<orbit::OrbitEngine> { throw Fault::Automation("class not registered"); };
  messages.ExpectMessage("automation error");
  messages.ExpectMessage("class not registered");
  Launcher launcher(view, tables, setup);
  launcher.Load();
  TakeFaults();
  EXPECT_EQ(settings.Get("Speechpack"), "0");
}

TEST_F(LauncherLoad, FaultsStandInTheErrorLogWithTheNameOfTheLoad) {
  files.Remove("/house/cust1.dat");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  TakeFaults();
  const Strings log = ErrorLog();
  ASSERT_EQ(log.size(), 1U);
  EXPECT_TRUE(log[0].starts_with("2.02 ")) << log[0];
  EXPECT_TRUE(log[0].ends_with(" - File not found - Main Form Load")) << log[0];
}

class TrackerStub : public platform::Window {
 public:
  void Show() override { shown_ = true; }
  void Hide() override { shown_ = false; }
  bool IsVisible() const override { return shown_; }

 private:
  bool shown_ = false;
};

TEST_F(LauncherLoad, ShowsTheTrackingWindowIfItIsToStartAlong) {
  windows->Register("frmTracker", [] { return std::make_unique<TrackerStub>(); });
  settings.Set("DDEstartup", "1");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_TRUE(windows->IsVisible("frmTracker"));
}

TEST_F(LauncherLoad, LeavesTheTrackingWindowAloneByDefault) {
  windows->Register("frmTracker", [] { return std::make_unique<TrackerStub>(); });
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(windows->Find("frmTracker"), nullptr);
  EXPECT_EQ(settings.Get("DDEstartup"), "0");
}

TEST_F(LauncherLoad, ATrackingWindowThatDoesNotExistIsNoFault) {
  settings.Set("DDEstartup", "1");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_TRUE(TakeFaults().empty());
}

TEST_F(LauncherLoadAllSettings, ReadsThePlaceIntoTheWindowsOwnEngineOnly) {
  settings.Set("Latitude", "51.5");
  settings.Set("Longitude", "0.25");
  settings.Set("HASL", "120");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(engines[0]->ObserverLatitude(), 51.5);
  EXPECT_EQ(engines[0]->ObserverLongitude(), 359.75);
  EXPECT_EQ(engines[0]->ObserverHeight(), 120);
  EXPECT_EQ(engines[1]->ObserverLatitude(), 0);
}

TEST_F(LauncherLoadAllSettings, APlaceWrittenOnAnotherMachineIsRead) {
  locale.UseComma();
  settings.Set("Latitude", "51.5");
  settings.Set("Longitude", "0,25");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(engines[0]->ObserverLatitude(), 51.5);
  EXPECT_EQ(engines[0]->ObserverLongitude(), 359.75);
}

TEST_F(LauncherLoadAllSettings, NamesTheLocation) {
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(tables.LocationName, "Default");
  settings.Set("Location Name", "Home");
  launcher.LauncherLoadAllSettings();
  EXPECT_EQ(tables.LocationName, "Home");
}

TEST_F(LauncherLoadAllSettings, VoiceZeroBecomesOne) {
  settings.Set("Speechpack", "1");
  settings.Set("Voice", "0");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(made->voice, 1);
}

TEST_F(LauncherLoadAllSettings, SelectsTheVoiceOfTheSettings) {
  settings.Set("Speechpack", "1");
  settings.Set("Voice", "2");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(made->voice, 2);
}

TEST_F(LauncherLoadAllSettings, SpeechOffSelectsNoVoice) {
  settings.Set("Voice", "2");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(made->voice, 0);
}

TEST_F(LauncherLoadAllSettings, AVoiceThatIsNotThereIsLogged) {
  settings.Set("Speechpack", "1");
  settings.Set("Voice", "9");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(TakeFaults(), Strings{"Subscript out of range - LauncherLoadAllSettings"});
}

TEST_F(LauncherLoadAllSettings, APlaceThatIsNoNumberIsLoggedAndStandsAsZero) {
  settings.Set("Latitude", "north");
  settings.Set("Longitude", "10");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(TakeFaults(), Strings{"Type mismatch - LauncherLoadAllSettings"});
  EXPECT_EQ(engines[0]->ObserverLatitude(), 0);
  EXPECT_EQ(engines[0]->ObserverLongitude(), 350);
}

TEST_F(LauncherLoadAllSettings, AMissingFileOfFavouritesLogsOneLineAndTheOtherTablesLoad) {
  files.Remove("/house/faves.dat");
  files.Remove("/house/Locations.dat");
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  EXPECT_EQ(TakeFaults(),
            (Strings{"File not found - LauncherLoadAllSettings", "File not found - LauncherLoadAllSettings"}));
  EXPECT_EQ(tables.FaveCount, 0);
  EXPECT_EQ(tables.GroupCount, 1);
}

}  // namespace
}  // namespace kestrava::shell
