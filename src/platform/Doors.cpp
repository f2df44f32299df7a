#include "platform/Doors.h"

#include <stdexcept>

namespace kestrava::platform {

namespace {

template <class Door>
Door& Given(Door* door, const char* name) {
  if (!door) throw std::logic_error(std::string("the door was never put in: ") + name);
  return *door;
}

}  // namespace

Doors& TheDoors() {
  static Doors doors;
  return doors;
}

Clock& TheClock() {
  return Given(TheDoors().clock, "clock");
}
Stopwatch& TheStopwatch() {
  return Given(TheDoors().stopwatch, "stopwatch");
}
MachineLocale& TheLocale() {
  return Given(TheDoors().locale, "locale");
}
SettingsStore& TheSettings() {
  return Given(TheDoors().settings, "settings");
}
Files& TheFiles() {
  return Given(TheDoors().files, "files");
}
EventLoop& TheEventLoop() {
  return Given(TheDoors().eventLoop, "event loop");
}
Messages& TheMessages() {
  return Given(TheDoors().messages, "messages");
}
Opener& TheOpener() {
  return Given(TheDoors().opener, "opener");
}
Random& TheRandom() {
  return Given(TheDoors().random, "random");
}
SpeechEngine& TheSpeech() {
  return Given(TheDoors().speech, "speech");
}
Windows& TheWindows() {
  return Given(TheDoors().windows, "windows");
}
FileChooser& TheFileChooser() {
  return Given(TheDoors().fileChooser, "file chooser");
}
Printing& ThePrinting() {
  return Given(TheDoors().printing, "printing");
}

ScopedDoors::ScopedDoors(const Doors& doors) : earlier_(TheDoors()) {
  TheDoors() = doors;
}

ScopedDoors::~ScopedDoors() {
  TheDoors() = earlier_;
}

}  // namespace kestrava::platform
