// The launcher's logic: its load, its activation, its clock rule and its end. The window forwards its events to it and
// shows what it says; the window is the hub of the run, and its end is the end of the run.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>

#include "orbit/Tables.h"
#include "platform/Fault.h"
#include "platform/Speech.h"
#include "shell/FatalFault.h"
#include "shell/LauncherView.h"

namespace kestrava::orbit {
class OrbitEngine;
}

namespace kestrava::shell {

/// What main hands to the launcher: where things are, and how they are made.
struct LauncherSetup {
  std::string dataFolder;    ///< the user's folder, absolute
  std::string settingsFile;  ///< for messages
  std::function<std::unique_ptr<orbit::OrbitEngine>()> makeEngine;
  std::function<std::unique_ptr<platform::SpeechEngine>()> makeSpeech;
  std::function<void()> endProcess;  ///< at once, when the windows refuse to close
  ShippedFiles* shipped = nullptr;
  bool firstStart = false;  ///< this run has filled a new folder
};

class Launcher {
 public:
  Launcher(LauncherView& view, orbit::Tables& tables, LauncherSetup setup);
  ~Launcher();

  /// The window's load: fifteen steps, each trapped for itself with "Main Form Load". A missing groups.dat unloads the
  /// window, but the load goes on to its end all the same.
  void Load();

  /// Tables, voice and observer. Faults are logged with "LauncherLoadAllSettings".
  void LauncherLoadAllSettings();

  /// Every activation of the window: age of the elements, observer, sunrise and sunset, GPS names, splash, clock.
  /// @throws platform::Fault untrapped: that is the end of the run, see ReportFatal
  void Activate();

  /// The clock as LEDclocks wants it: the last step of the activation.
  void ShowClockMode();

  /// Every second: the launcher's clock shows only while the launcher is alone. A speech engine that still came up when
  /// the load was over is followed until it is there.
  void Timer1Tick();

  /// Opens the link of cust2.dat, or says that it could not be opened.
  void CustomiseClick();

  /// Takes all other windows along, or ends the process at once where they refuse.
  void QueryUnload();

  /// Recordings, engines, recorder: the last that happens.
  void Unload();

  /// Puts a fault of the activation into words, with the file or the value that it was about.
  FatalReport DescribeFault(const platform::Fault& fault) const;

  /// The load drops favourites that the engine does not know. Where the run ends because an element file is missing,
  /// they are only unknown until it is back: faves.dat and the file beside it become again what they were at the
  /// start.
  void BringFavouritesBack();

 private:
  void RememberFavourites();
  void TellNews();
  void MakeSpeech();
  void FollowSpeech();
  void FindAppDir();
  void LoadCustomFiles();
  void Greet();
  void OnLoadFault(const platform::Fault& fault);
  template <class Statement>
  void OnLoad(Statement&& statement);
  void ShowElementAge();
  void ShowDemonstration();
  void SetObserver();
  void ShowSunTimes();
  /// One message in the run tells of a place that is none.
  double ReadAngle(std::string_view key);

  LauncherView& view_;
  orbit::Tables& tables_;
  LauncherSetup setup_;
  std::string edition_;
  std::unique_ptr<orbit::OrbitEngine> ownEngine_;
  std::unique_ptr<platform::SpeechEngine> speech_;
  platform::SpeechEngine* earlierSpeech_ = nullptr;
  bool speechComesUp_ = false;
  std::string customTarget_;
  std::set<std::string> toldPlaces_;            ///< complaints about the stored place
  std::map<std::string, std::string> atStart_;  ///< all bytes of the favourites' files before the load
  bool newsTold_ = false;
  FatalReport atWork_;  ///< what the activation is about at this moment, for a fault
};

}  // namespace kestrava::shell
