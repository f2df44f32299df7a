// The whole station in this process, over the real doors: what a click on "World" takes until a painted map stands on
// the screen.
#pragma once

#include <filesystem>
#include <memory>

#include "platform/Doors.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/SystemClock.h"
#include "platform/linux/XdgSettings.h"
#include "platform/qt/QtDoors.h"
#include "platform/qt/QtEventLoop.h"

namespace kestrava::bench {

class FirstMap {
 public:
  /// Brings the launcher up, in a filled folder of its own. The application object exists.
  FirstMap();
  ~FirstMap();
  FirstMap(const FirstMap&) = delete;
  FirstMap& operator=(const FirstMap&) = delete;

  /// Fills the table of favourites from the shipped sets, in the order of their files.
  void TakeFavourites(int count);
  /// Clicks on "World", waits until the map has been painted on the screen, and closes it again. @return seconds, with
  /// the second that the window's timer gives
  double SecondsToMap();

 private:
  platform::Doors AllDoors();

  std::filesystem::path folder_;
  platform::SystemClock clock_;
  platform::SystemStopwatch stopwatch_;
  platform::SystemRandom random_;
  platform::PosixFiles files_;
  platform::SilentSpeech silence_;
  platform::XdgSettings settings_;
  platform::qt::QtEventLoop eventLoop_;
  platform::qt::QtMessages messages_;
  platform::qt::QtOpener opener_;
  platform::qt::QtLocale locale_;
  std::unique_ptr<platform::Windows> windows_ = platform::MakeWindows();
  platform::ScopedDoors doors_;
};

}  // namespace kestrava::bench
