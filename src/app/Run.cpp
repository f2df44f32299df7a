#include "Run.h"

#include <QCoreApplication>
#include <QSocketNotifier>
#include <QWidget>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>

#include "orbit/OrbitEngine.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "platform/FaultLog.h"
#include "platform/SharedFiles.h"
#include "platform/linux/EndSignals.h"
#include "platform/linux/MachinePlaces.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/PosixFolders.h"
#include "platform/linux/StationVoice.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/XdgSettings.h"
#include "platform/qt/QtDoors.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtPrinting.h"
#include "platform/qt/Theme.h"
#include "predict/PassWizard.h"
#include "shell/FatalFault.h"
#include "shell/Shutdown.h"
#include "shell/ui/LauncherWindow.h"
#include "store/DataFolder.h"
#include "store/FirstStart.h"

#include "RegisterWindows.h"
#include "Shipped.h"
#include "Tour.h"

namespace kestrava::app {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSettingsFolder = "kestrava";
constexpr std::string_view kSettingsFile = "settings.conf";

/// A damaged settings file is said once, when the windows stand.
void TellDamagedSettings(const fs::path& setAside) {
  platform::TheEventLoop().Later([setAside] {
    platform::TheMessages().Show("The settings could not be read. They have been set aside as " + setAside.string() +
                                 ", and Kestrava goes on with its first settings.");
  });
}

/// What the user has written into the settings by hand and nobody understands: told where he looks for faults.
void TellOddSetting(const std::string& oddity) {
  platform::ErrorTrap(std::string(kSettingsFile) + ": " + oddity, "Settings");
}

/// Everything of the machine that a run works with. Made once; the windows are gone before it is.
struct Machine {
  fs::path settingsFolder = platform::ConfigHome() / kSettingsFolder;
  platform::SystemClock clock;
  platform::SystemStopwatch stopwatch;
  platform::SystemRandom random;
  platform::PosixFiles files;
  platform::PosixFolders folders;
  platform::SilentSpeech silence;
  platform::XdgSettings settings{settingsFolder, clock, TellDamagedSettings, TellOddSetting};
  platform::qt::QtEventLoop eventLoop;
  platform::qt::QtMessages messages;
  platform::qt::QtOpener opener;
  platform::qt::QtLocale locale;
  platform::qt::QtFileChooser fileChooser;
  platform::qt::QtPrinting printing;
  std::unique_ptr<platform::Windows> windows = platform::MakeWindows();
  platform::ScopedDoors doors{Doors()};

  platform::Doors Doors() {
    return {&clock,  &stopwatch, &locale,  &settings,     &files,       &eventLoop, &messages,
            &opener, &random,    &silence, windows.get(), &fileChooser, &printing};
  }
  Machine() { platform::UseFolderLocks(&folders); }
  ~Machine() {
    windows.reset();
    platform::UseFolderLocks(nullptr);
    platform::EndFaultLog();
  }
};

fs::path ProgramFolder() {
  return QCoreApplication::applicationDirPath().toStdString();
}

std::string FindDataFolder(const CommandLine& commandLine) {
  std::error_code gone;  // a working folder that was removed: only a relative --data misses it
  const fs::path workingFolder = fs::current_path(gone);
  return store::ChooseDataFolder({commandLine.dataFolder, workingFolder, ProgramFolder(), platform::DataHome()});
}

std::optional<store::ZonePlace> PlaceOfTheMachine() {
  const auto place = platform::MachinePlace();
  if (!place) return std::nullopt;
  return store::ZonePlace{place->zone, place->latitudeDeg, place->longitudeEastDeg};
}

/// Fills a new folder. @return true if it was new, nothing if it could not be filled, which has been said
std::optional<bool> PrepareFolder(const fs::path& shipped, const std::string& folder, platform::PosixFolders& folders) {
  try {
    return store::PrepareFirstStart(shipped, folder, PlaceOfTheMachine(), folders);
  } catch (const platform::Fault& fault) {
    shell::ReportFatal(
        {fault.what(), "The data folder could not be filled: " + folder,
         "See that it can be written and that the disk has room, or name another folder with --data.", ""},
        nullptr);
    return std::nullopt;
  }
}

shell::LauncherSetup SetupOf(const Machine& machine, const std::string& folder, ShippedData& shipped) {
  return {folder,
          (machine.settingsFolder / kSettingsFile).string(),
          [] { return std::make_unique<orbit::OrbitEngine>(); },
          [] { return std::make_unique<platform::StationVoice>(); },
          [] { std::_Exit(shell::kFatalExitCode); },
          &shipped};
}

/// What the user gets by closing the launcher. The loop is told first: the run ends with 0 even if the launcher had not
/// come to work yet. No message box holds up an end that the system wants, nor does a job in the wizard, which would
/// ask to be kept.
void EndInOrder(Machine& machine) {
  machine.messages.GoSilent();
  platform::TheEventLoop().Quit(0);
  if (auto* wizard = platform::TheWindows().Find(predict::kWizardWindow)) platform::TheWindows().Unload(*wizard);
  if (auto* launcher = dynamic_cast<QWidget*>(platform::TheWindows().Find(shell::kLauncherName))) launcher->close();
}

}  // namespace

int Run(const CommandLine& commandLine) {
  Machine machine;
  platform::EndSignals endSignals;
  QSocketNotifier endWanted(endSignals.Descriptor(), QSocketNotifier::Read);
  QObject::connect(&endWanted, &QSocketNotifier::activated, &endWanted, [&] {
    endWanted.setEnabled(false);
    EndInOrder(machine);
  });
  platform::qt::ApplyThemeFromSettings();
  ShippedData shipped(FindShippedData(ProgramFolder()));
  const std::string folder = FindDataFolder(commandLine);
  platform::RemoveUnfinished(machine.settingsFolder);
  platform::RemoveUnfinished(folder);
  const std::optional<bool> firstStart = PrepareFolder(shipped.Folder(), folder, machine.folders);
  if (!firstStart) return shell::kFatalExitCode;
  shell::LauncherSetup setup = SetupOf(machine, folder, shipped);
  setup.firstStart = *firstStart;
  const auto names = RegisterWindows(*machine.windows, setup, {setup.settingsFile, shipped.Folder().string()});
  std::unique_ptr<Tour> tour;
  if (!commandLine.tourFolder.empty()) tour = std::make_unique<Tour>(commandLine.tourFolder, names);
  machine.windows->Show(shell::ui::kSplashName);
  int exitCode = machine.eventLoop.Run();
  // A tour ends once and for all, and an end that the system wants goes before a new start.
  if (exitCode == shell::kStartAnewCode && (tour || endSignals.End())) exitCode = 0;
  return tour && !tour->Complete() ? shell::kFatalExitCode : exitCode;
}

}  // namespace kestrava::app
