#include "platform/Speech.h"

#include <exception>

#include "platform/Doors.h"
#include "platform/Settings.h"

namespace kestrava::platform {

namespace {

/// The one gate of speech: nothing passes with Speechpack at "0", and no fault of the engine comes back.
template <class Deed>
void ThroughTheGate(const Deed& deed) {
  if (ReadSetting("Speechpack", "0") == "0") return;
  try {
    // Speech lives on the launcher: the question makes it exist.
    if (TheDoors().windows) TheWindows().IsVisible("frmLAUNCHER");
  } catch (const std::exception&) {
  }
  try {
    deed(TheSpeech());
  } catch (const std::exception&) {
  }
}

}  // namespace

void SayText(std::string_view text, bool, SpeechKind kind) {
  ThroughTheGate([&](SpeechEngine& speech) { speech.Speak(text, kind); });
}

void BeginAnnouncement() {
  ThroughTheGate([](SpeechEngine& speech) { speech.BeginAnnouncement(); });
}

void StopSpeaking() {
  ThroughTheGate([](SpeechEngine& speech) { speech.Stop(); });
}

}  // namespace kestrava::platform
