#include "shell/Launcher.h"

#include <array>
#include <utility>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "orbit/TimeHelpers.h"
#include "platform/Doors.h"
#include "platform/FaultLog.h"
#include "platform/Files.h"
#include "platform/Format.h"
#include "platform/Links.h"
#include "platform/Quote.h"
#include "platform/SharedFiles.h"
#include "platform/Text.h"
#include "platform/TextFile.h"
#include "platform/Version.h"
#include "shell/GpsNames.h"
#include "shell/KepAge.h"
#include "shell/Shutdown.h"
#include "shell/StoredPlace.h"
#include "store/Backups.h"
#include "store/Favourites.h"
#include "store/Groups.h"
#include "store/Locations.h"
#include "store/WaitingFavourites.h"

#include "FirstGroupFile.h"
#include "StartNews.h"

namespace kestrava::shell {

namespace {

constexpr std::string_view kMaker = "The Kestrava Makers";
constexpr std::string_view kLoadTrap = "Main Form Load";
/// The list first: a kill in between leaves a favourite in both.
constexpr std::array<std::string_view, 2> kFavouriteFiles{"faves.dat", store::kWaitingFile};
constexpr std::string_view kSettingsTrap = "LauncherLoadAllSettings";
constexpr std::string_view kAutomationMark = "utomat";
constexpr std::string_view kAutomationMessage =
    "There was an 'automation error', this is normally a problem with the speech engine not being installed properly, "
    "but if you havn't installed the speech, then it may be a problem with either DirectX or your Display Driver - ";

constexpr char kSeparator = static_cast<char>(std::filesystem::path::preferred_separator);

std::string CreditLine() {
  const int year = platform::SplitSerial(orbit::NowLocal()).year;
  return "\u00a9 " + std::to_string(year) + " " + std::string(kMaker);
}

/// The folder with a separator behind it; the root of a drive has one already.
std::string WithSeparator(const std::string& folder) {
  std::string path = folder + kSeparator;
  if (path.ends_with(std::string(2, kSeparator))) path.pop_back();
  return path;
}

orbit::OrbitEngine& Set(const std::unique_ptr<orbit::OrbitEngine>& engine) {
  if (!engine) throw platform::Fault::ObjectNotSet();
  return *engine;
}

bool SpeechWanted() {
  return platform::ReadSetting("Speechpack", "0") != "0";
}

int StoredVoice() {
  const int voice = platform::ToInt16(platform::ReadNumberSetting("Voice", "1"));
  return voice == 0 ? 1 : voice;
}

}  // namespace

Launcher::Launcher(LauncherView& view, orbit::Tables& tables, LauncherSetup setup)
    : view_(view), tables_(tables), setup_(std::move(setup)) {}

Launcher::~Launcher() {
  if (speech_ && platform::TheDoors().speech == speech_.get()) platform::TheDoors().speech = earlierSpeech_;
}

void Launcher::OnLoadFault(const platform::Fault& fault) {
  if (platform::Contains(fault.what(), kAutomationMark)) {
    const platform::FaultTrap trap{kLoadTrap};
    trap([] { platform::WriteSetting("Speechpack", "0"); });
    platform::TheMessages().Show(std::string(kAutomationMessage) + fault.what());
  }
  platform::ErrorTrap(fault.what(), kLoadTrap);
}

template <class Statement>
void Launcher::OnLoad(Statement&& statement) {
  try {
    statement();
  } catch (const platform::Fault& fault) {
    OnLoadFault(fault);
  }
}

void Launcher::Load() {
  OnLoad([&] { MakeSpeech(); });
  edition_ = "Pro";
  OnLoad([&] { ownEngine_ = setup_.makeEngine(); });
  OnLoad([&] { orbit::Engine = setup_.makeEngine(); });
  view_.Clock().ShowUniversalTime(false);
  view_.SetLabel(LauncherLabel::kVersion, "Version " + platform::ShortVersion() + " " + edition_);
  view_.SetCaption("Kestrava v" + platform::ShortVersion());
  OnLoad([&] { view_.SetLabel(LauncherLabel::kCredit, CreditLine()); });
  OnLoad([&] {
    if (SpeechWanted()) platform::TheSpeech().SetSpeed(platform::ReadNumberSetting("SpeechSpeed", "180"));
  });
  FindAppDir();
  OnLoad([&] { Set(ownEngine_).SetDataFolder(platform::AppDir); });
  OnLoad([&] { Set(orbit::Engine).SetDataFolder(platform::AppDir); });
  LauncherLoadAllSettings();
  LoadCustomFiles();
  OnLoad([&] { Greet(); });
  OnLoad([&] {
    using Stage = platform::SpeechCondition::Stage;
    const Stage stage = platform::TheSpeech().Condition().stage;
    speechComesUp_ = SpeechWanted() && (stage == Stage::kStarting || stage == Stage::kNoEngine);
  });
  FollowSpeech();
  OnLoad([&] {
    platform::Windows& windows = platform::TheWindows();
    if (platform::ReadSwitch("DDEstartup", "0") && windows.Knows("frmTracker")) windows.Show("frmTracker");
  });
}

/// The voice belongs to the launcher: it comes and goes with it.
void Launcher::MakeSpeech() {
  speech_ = setup_.makeSpeech();
  earlierSpeech_ = std::exchange(platform::TheDoors().speech, speech_.get());
}

/// What the load does not wait for: an engine in a thread of its own finds out later that it cannot be made, or that it
/// has no such voice.
void Launcher::FollowSpeech() {
  if (!speechComesUp_) return;
  const platform::SpeechCondition condition = platform::TheSpeech().Condition();
  if (condition.stage == platform::SpeechCondition::Stage::kStarting) return;
  speechComesUp_ = false;
  if (condition.stage == platform::SpeechCondition::Stage::kNoEngine) {
    OnLoadFault(platform::Fault::Automation(condition.why));
  } else {
    platform::FaultTrap{kSettingsTrap}([] { platform::TheSpeech().SelectVoice(StoredVoice()); });
  }
}

void Launcher::FindAppDir() {
  platform::AppDir = WithSeparator(setup_.dataFolder);
  OnLoad([&] {
    if (platform::FileExists(platform::InAppDir("groups.dat"))) return;
    platform::TheMessages().Show("Problem finding 'groups.dat' (a file used by kestrava) in the folder: " +
                                 platform::AppDir);
    if (const auto backup = store::FullestBackup("groups.dat")) OfferBackup("", "groups.dat", *backup);
    view_.UnloadSelf();
  });
  platform::FlushHeldFaults();
}

void Launcher::LauncherLoadAllSettings() {
  const platform::FaultTrap trap{kSettingsTrap};
  RememberFavourites();
  trap([&] { store::LoadFaves(tables_, Set(orbit::Engine)); });
  trap([&] { store::LoadGroups(tables_); });
  trap([&] { store::LoadLocations(tables_); });
  trap([&] { tables_.LocationName = platform::ReadSetting("Location Name", "Default"); });
  int voice = 1;
  trap([&] { voice = StoredVoice(); });
  trap([&] {
    if (platform::ReadNumberSetting("Speechpack", "0") > 0) platform::TheSpeech().SelectVoice(voice);
  });
  double latitudeDeg = 0;
  double longitudeWestDeg = 0;
  trap([&] { latitudeDeg = ReadStoredAngle("Latitude").degrees; });
  trap([&] { longitudeWestDeg = ReadStoredAngle("Longitude").degrees; });
  trap([&] { Set(ownEngine_).SetObserverLatitude(latitudeDeg); });
  trap([&] { Set(ownEngine_).SetObserverLongitude(360 - longitudeWestDeg); });
  trap([&] { Set(ownEngine_).SetObserverHeight(platform::ReadNumberSetting("HASL", "0")); });
}

double Launcher::ReadAngle(std::string_view key) {
  const StoredAngle angle = ReadStoredAngle(key);
  if (!angle.complaint.empty() && toldPlaces_.insert(angle.complaint).second) {
    platform::ErrorTrap(angle.complaint, kSettingsTrap);
    platform::TheEventLoop().Later([complaint = angle.complaint] {
      platform::TheMessages().Show(complaint + ".\n\nStore your place in Settings, Locations.");
    });
  }
  return angle.degrees;
}

void Launcher::LoadCustomFiles() {
  OnLoad([&] { view_.ShowPicture(platform::InAppDir("cust1.dat").string()); });
  std::unique_ptr<platform::TextReader> link;
  OnLoad([&] { link = std::make_unique<platform::TextReader>(platform::InAppDir("cust2.dat")); });
  if (!link) return;
  OnLoad([&] { view_.SetPictureHint(platform::Trim(link->ReadLine())); });
  OnLoad([&] { customTarget_ = platform::Trim(link->ReadLine()); });
}

void Launcher::Greet() {
  using std::to_string;
  platform::SayText("Welcome to Kes Trava. version " + to_string(platform::kVersionMajor) + " point " +
                    to_string(platform::kVersionMinor) + " " + to_string(platform::kVersionRevision));
}

void Launcher::Activate() {
  ShowElementAge();
  ShowDemonstration();
  if (!ownEngine_) {
    view_.UnloadSelf();
    return;
  }
  SetObserver();
  tables_.LocationName = platform::ReadSetting("Location Name", "Default");
  ShowSunTimes();
  MAIN_FIXGPSKEPS();
  platform::Windows& windows = platform::TheWindows();
  if (platform::Window* splash = windows.Find("frmSplash")) windows.Unload(*splash);
  ShowClockMode();
  if (!std::exchange(newsTold_, true)) TellNews();
}

/// When the window stands: a message would keep it back.
void Launcher::TellNews() {
  const std::string news = StartNews(tables_, Set(orbit::Engine).SatelliteNames());
  if (news.empty()) return;
  platform::TheEventLoop().Later([news] {
    platform::TheMessages().Show(news);
    platform::FaultTrap{kSettingsTrap}([] { store::MarkWaitingTold(); });
  });
}

void Launcher::ShowElementAge() {
  const FirstGroupCheck first = CheckFirstGroup(tables_);
  atWork_ = first.report;
  if (first.fault) throw *first.fault;
  const auto file = platform::InAppDir(platform::FileNameOfAddress(tables_.GroupList[1].Address));
  const platform::SerialDate date = platform::TheFiles().ModifiedLocal(file);
  if (const auto text = KepAgeText(ElementAgeDays(orbit::NowLocal(), date))) {
    view_.SetLabel(LauncherLabel::kKepAge, *text);
  }
}

/// As long as nothing has come in their place. A file that cannot be read is told of by others.
void Launcher::ShowDemonstration() {
  bool shown = false;
  try {
    shown = setup_.shipped &&
            setup_.shipped->AreElements(std::string(platform::FileNameOfAddress(tables_.GroupList[1].Address)));
  } catch (const platform::Fault&) {
    shown = false;
  }
  view_.ShowDemonstration(shown);
}

/// The observer goes to the window's own engine first and is read back from it: the one road by which a change of place
/// reaches the global engine.
void Launcher::SetObserver() {
  const auto number = [&](std::string_view key, auto&& read) {
    const std::string stored = platform::ReadSetting(key, "0");
    atWork_ = {"",
               "The setting " + std::string(key) + " holds \"" + platform::QuoteOf(stored) + "\", which is no number.",
               "Correct it in " + setup_.settingsFile + ", then start Kestrava again.", ""};
    return read();
  };
  const auto sixPlaces = [&](std::string_view key) {
    return number(key, [&] { return platform::ParseNumber(platform::Format(ReadAngle(key), "0.000000")); });
  };
  const double latitudeDeg = sixPlaces("Latitude");
  const double longitudeWestDeg = sixPlaces("Longitude");
  ownEngine_->SetObserverLatitude(latitudeDeg);
  ownEngine_->SetObserverLongitude(360 - longitudeWestDeg);
  ownEngine_->SetObserverHeight(number("HASL", [] { return platform::ReadNumberSetting("HASL", "0"); }));
  orbit::OrbitEngine& engine = Set(orbit::Engine);
  engine.SetObserverLatitude(ownEngine_->ObserverLatitude());
  engine.SetObserverLongitude(ownEngine_->ObserverLongitude());
  engine.SetObserverHeight(ownEngine_->ObserverHeight());
}

void Launcher::ShowSunTimes() {
  atWork_ = {"", "Today's sunrise and sunset could not be worked out.",
             "Check the place and the clock of this machine, then start Kestrava again.", ""};
  const orbit::Sky sky{tables_, Set(orbit::Engine)};
  const platform::SerialDate rise = orbit::TodaySunrise(sky);
  const platform::SerialDate set = orbit::TodaySunset(sky);
  view_.SetLabel(LauncherLabel::kSunrise,
                 "Sunrise/Set : " + platform::Format(rise, "hh:mm") + " / " + platform::Format(set, "hh:mm"));
  const platform::SerialDate length = set - rise;
  view_.SetLabel(LauncherLabel::kSunshine, "Sunshine : " + std::to_string(platform::HourOf(length)) +
                                               "h:" + std::to_string(platform::MinuteOf(length)) + "m");
}

void Launcher::ShowClockMode() {
  const std::string mode = platform::ReadSetting("LEDclocks", "1");
  platform::LedClock& clock = view_.Clock();
  if (mode == "0") {
    clock.SetClockVisible(false);
    view_.SetLabel(LauncherLabel::kClock, "Clocks Off");
  } else if (mode == "1" || mode == "2") {
    clock.SetClockVisible(true);
    clock.ShowUniversalTime(mode == "2");
    view_.SetLabel(LauncherLabel::kClock, mode == "2" ? "UTC Time" : "Local Time");
  }
}

void Launcher::RememberFavourites() {
  for (const std::string_view name : kFavouriteFiles) {
    const auto file = platform::InAppDir(name);
    platform::FaultTrap{kSettingsTrap}([&] {
      if (platform::FileExists(file)) atStart_[std::string(name)] = platform::TheFiles().Read(file);
    });
  }
}

void Launcher::BringFavouritesBack() {
  const auto hold = platform::HoldAppDir();
  for (const std::string_view name : kFavouriteFiles) {
    const auto file = platform::InAppDir(name);
    const auto before = atStart_.find(std::string(name));
    platform::FaultTrap{kSettingsTrap}([&] {
      if (before == atStart_.end()) {
        if (name == store::kWaitingFile && platform::FileExists(file)) platform::TheFiles().Remove(file);
      } else if (!platform::FileExists(file) || platform::TheFiles().Read(file) != before->second) {
        platform::TheFiles().Replace(file, before->second);
      }
    });
  }
}

FatalReport Launcher::DescribeFault(const platform::Fault& fault) const {
  FatalReport report = atWork_;
  report.fault = fault.what();
  return report;
}

void Launcher::Timer1Tick() {
  const bool alone = platform::TheWindows().VisibleCount() < 2;
  platform::LedClock& clock = view_.Clock();
  if (clock.IsClockVisible() != alone) clock.SetClockVisible(alone);
  FollowSpeech();
}

void Launcher::CustomiseClick() {
  if (!customTarget_.empty()) platform::OpenLink(customTarget_);
}

void Launcher::QueryUnload() {
  if (!CloseOtherWindows(platform::TheWindows())) setup_.endProcess();
}

void Launcher::Unload() {
  ReleaseAll(platform::TheWindows(), ownEngine_);
}

}  // namespace kestrava::shell
