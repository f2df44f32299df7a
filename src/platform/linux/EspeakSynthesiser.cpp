#include <cstdlib>
#include <utility>

#include <espeak-ng/speak_lib.h>

#include "platform/Fault.h"
#include "platform/VoiceOrder.h"
#include "platform/linux/Synthesiser.h"

namespace kestrava::platform {

namespace {

constexpr const char* kWhy = "no speech engine could be made";

/// The name of the locale in which the machine speaks to its user.
std::string MessageLocale() {
  for (const char* variable : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const char* value = std::getenv(variable);
    if (value && *value) return value;
  }
  return {};
}

/// The list is the library's own, with an empty pointer behind the last. A language begins behind a byte of priority.
std::vector<VoiceFact> ListVoices() {
  std::vector<VoiceFact> voices;
  for (const espeak_VOICE** voice = espeak_ListVoices(nullptr); voice && *voice; ++voice) {
    const char* languages = (*voice)->languages;
    if (!languages || !*languages || !(*voice)->name || !(*voice)->identifier) continue;
    voices.push_back({(*voice)->name, languages + 1, (*voice)->identifier, languages[0]});
  }
  return InListOrder(std::move(voices), RegionOfLocale(MessageLocale()));
}

struct Listener {
  const Synthesiser::Taker& take;
  bool enough = false;
};

/// Called for every some dozen milliseconds of sound, and once with none at the end. @return 0 to go on, 1 to end
int OnSamples(short* samples, int count, espeak_EVENT* events) {
  auto* listener = static_cast<Listener*>(events->user_data);
  if (!listener || !samples || count <= 0 || listener->enough) return listener && listener->enough ? 1 : 0;
  listener->enough = !listener->take({samples, static_cast<std::size_t>(count)});
  return listener->enough ? 1 : 0;
}

/// Brings the library up once for the whole run and never takes it down: after a second start its end waits for ever
/// for a thread of its own. A start that failed is tried again, the data may have been installed since.
/// @return samples a second, not above 0 if it does not come up
int StartLibrary() {
  static int rateHz = 0;
  // Without the option the library ends the process where its data is missing.
  if (rateHz <= 0) rateHz = espeak_Initialize(AUDIO_OUTPUT_SYNCHRONOUS, 0, nullptr, espeakINITIALIZE_DONT_EXIT);
  return rateHz;
}

class EspeakSynthesiser : public Synthesiser {
 public:
  EspeakSynthesiser() : rateHz_(StartLibrary()) {
    if (rateHz_ <= 0) throw Fault::Automation(kWhy);
    espeak_SetSynthCallback(OnSamples);
    voices_ = ListVoices();
    if (voices_.empty()) throw Fault::Automation(kWhy);
    SelectVoice(0);
  }

  std::string Name() const override {
    const char* dataFolder = nullptr;
    return std::string("eSpeak NG ") + espeak_Info(&dataFolder);
  }
  int RateHz() const override { return rateHz_; }
  std::vector<std::string> Voices() const override {
    std::vector<std::string> names;
    for (const VoiceFact& voice : voices_) names.push_back(voice.name);
    return names;
  }
  void SetSpeed(int wordsPerMinute) override {
    speed_ = wordsPerMinute;
    espeak_SetParameter(espeakRATE, speed_, 0);
  }
  /// A voice may bring a speed of its own.
  void SelectVoice(std::size_t index) override {
    espeak_SetVoiceByName(At(voices_, index).identifier.c_str());
    SetSpeed(speed_);
  }
  void Say(const std::string& text, const Taker& take) override {
    Listener listener{take};
    espeak_Synth(text.c_str(), text.size() + 1, 0, POS_CHARACTER, 0, espeakCHARS_UTF8, nullptr, &listener);
  }

 private:
  int rateHz_ = 0;
  int speed_ = kUsualSpeech;
  std::vector<VoiceFact> voices_;
};

}  // namespace

std::unique_ptr<Synthesiser> MakeEspeak() {
  return std::make_unique<EspeakSynthesiser>();
}

}  // namespace kestrava::platform
