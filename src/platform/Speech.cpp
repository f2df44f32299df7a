#include "platform/Speech.h"

#include <exception>

#include "platform/Doors.h"
#include "platform/Settings.h"

namespace kestrava::platform {

void SayText(std::string_view text, bool) {
  if (ReadSetting("Speechpack", "0") == "0") return;
  try {
    // Speech lives on the launcher: the question makes it exist.
    if (TheDoors().windows) TheWindows().IsVisible("frmLAUNCHER");
  } catch (const std::exception&) {
  }
  try {
    TheSpeech().Speak(text);
  } catch (const std::exception&) {
  }
}

}  // namespace kestrava::platform
