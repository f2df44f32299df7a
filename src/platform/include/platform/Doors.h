// All doors of one run. The program fills them in main, a test with scripted ones; nothing else makes a door.
#pragma once

#include "platform/Clock.h"
#include "platform/EventLoop.h"
#include "platform/FileChooser.h"
#include "platform/Files.h"
#include "platform/MachineLocale.h"
#include "platform/Messages.h"
#include "platform/Opener.h"
#include "platform/Printing.h"
#include "platform/Random.h"
#include "platform/Settings.h"
#include "platform/Speech.h"
#include "platform/Windows.h"

namespace kestrava::platform {

struct Doors {
  Clock* clock = nullptr;
  Stopwatch* stopwatch = nullptr;
  MachineLocale* locale = nullptr;
  SettingsStore* settings = nullptr;
  Files* files = nullptr;
  EventLoop* eventLoop = nullptr;
  Messages* messages = nullptr;
  Opener* opener = nullptr;
  Random* random = nullptr;
  SpeechEngine* speech = nullptr;
  Windows* windows = nullptr;
  FileChooser* fileChooser = nullptr;
  Printing* printing = nullptr;
};

/// The doors in use. @throws std::logic_error from the accessors below if a door that is asked for was never put in
Doors& TheDoors();

Clock& TheClock();
Stopwatch& TheStopwatch();
MachineLocale& TheLocale();
SettingsStore& TheSettings();
Files& TheFiles();
EventLoop& TheEventLoop();
Messages& TheMessages();
Opener& TheOpener();
Random& TheRandom();
SpeechEngine& TheSpeech();
Windows& TheWindows();
FileChooser& TheFileChooser();
Printing& ThePrinting();

/// Puts doors in for as long as it lives, then puts the earlier ones back.
class ScopedDoors {
 public:
  explicit ScopedDoors(const Doors& doors);
  ~ScopedDoors();
  ScopedDoors(const ScopedDoors&) = delete;
  ScopedDoors& operator=(const ScopedDoors&) = delete;

 private:
  Doors earlier_;
};

}  // namespace kestrava::platform
