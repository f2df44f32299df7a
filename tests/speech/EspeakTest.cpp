#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/linux/StationVoice.h"
#include "platform/linux/SystemClock.h"

#include "speech/ScriptedVoice.h"

namespace kestrava::speech {
namespace {

using platform::MakeEspeak;
using platform::Synthesiser;
using Samples = std::vector<std::int16_t>;

constexpr const char* kSentence = "The International Space station will be in range in 10 minutes";

Samples Spoken(Synthesiser& voice, const std::string& text, std::size_t atMost = SIZE_MAX) {
  Samples all;
  voice.Say(text, [&](std::span<const std::int16_t> some) {
    all.insert(all.end(), some.begin(), some.end());
    return all.size() < atMost;
  });
  return all;
}

double Rms(const Samples& samples) {
  double sum = 0;
  for (const std::int16_t sample : samples) sum += static_cast<double>(sample) * sample;
  return samples.empty() ? 0 : std::sqrt(sum / static_cast<double>(samples.size()));
}

/// A variable of the process, as it was before when the test is over.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    ::setenv(name, value, 1);
  }
  ~ScopedVariable() { old_.empty() ? ::unsetenv(name_) : ::setenv(name_, old_.c_str(), 1); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  const char* name_;
  std::string old_;
};

TEST(Espeak, ASentenceBecomesAudibleSamples) {
  const auto voice = MakeEspeak();
  platform::SystemStopwatch watch;
  const Samples samples = Spoken(*voice, kSentence);
  RecordProperty("synthesis_ms", std::to_string(watch.ElapsedMs()));
  const double lengthS = static_cast<double>(samples.size()) / voice->RateHz();
  RecordProperty("length_s", std::to_string(lengthS));
  EXPECT_GT(lengthS, 2);
  EXPECT_LT(lengthS, 8);
  EXPECT_GT(Rms(samples), 500);
}

TEST(Espeak, SpeedReallyActsOverItsWholeReach) {
  const auto voice = MakeEspeak();
  std::vector<std::size_t> lengths;
  for (const int wordsPerMinute : {80, 120, 180, 250, 350, 450}) {
    voice->SetSpeed(wordsPerMinute);
    lengths.push_back(Spoken(*voice, kSentence).size());
  }
  for (std::size_t i = 1; i < lengths.size(); ++i) EXPECT_LT(lengths[i], lengths[i - 1]) << i;
  EXPECT_GT(lengths[0], 2 * lengths[3]) << "80 against 250 words per minute";
}

TEST(Espeak, AnotherVoiceKeepsTheSpeed) {
  const auto voice = MakeEspeak();
  voice->SetSpeed(80);
  const std::size_t slow = Spoken(*voice, kSentence).size();
  voice->SelectVoice(0);
  const std::size_t again = Spoken(*voice, kSentence).size();
  EXPECT_NEAR(static_cast<double>(again), static_cast<double>(slow), 0.02 * static_cast<double>(slow));
}

TEST(Espeak, IsSilentAsSoonAsItIsNotWantedAnyMore) {
  const auto voice = MakeEspeak();
  const std::size_t whole = Spoken(*voice, kSentence).size();
  const std::size_t cut = Spoken(*voice, kSentence, 1).size();
  EXPECT_GT(cut, 0u);
  EXPECT_LT(cut, whole / 4);
  EXPECT_NEAR(static_cast<double>(Spoken(*voice, kSentence).size()), static_cast<double>(whole),
              0.02 * static_cast<double>(whole))
      << "the next sentence is whole again";
}

TEST(Espeak, AnEmptyTextAndForeignBytesAreHarmless) {
  const auto voice = MakeEspeak();
  EXPECT_LT(Rms(Spoken(*voice, "")), 50);
  Spoken(*voice, "\xff\xfe broken \xc3");
  EXPECT_GT(Rms(Spoken(*voice, "M\xc3\xbcnchen")), 500);
}

TEST(Espeak, TheRegionsEnglishStandsFirst) {
  for (const auto& [locale, first] : {std::pair{"en_US.UTF-8", "English (America)"},
                                      {"en_GB.UTF-8", "English (Great Britain)"},
                                      {"de_DE.UTF-8", "English (Great Britain)"},
                                      {"C", "English (Great Britain)"}}) {
    const ScopedVariable variable("LC_ALL", locale);
    EXPECT_EQ(MakeEspeak()->Voices().front(), first) << locale;
  }
}

TEST(Espeak, EnglishVoicesComeBeforeAllOthersAndNoneIsOfAnAddOn) {
  const auto voices = MakeEspeak()->Voices();
  EXPECT_GT(voices.size(), 50u);
  const auto isEnglish = [](const std::string& name) { return name.starts_with("English"); };
  EXPECT_GE(std::count_if(voices.begin(), voices.end(), isEnglish), 5);
  EXPECT_TRUE(std::is_partitioned(voices.begin(), voices.end(), isEnglish));
  for (const std::string& name : voices) EXPECT_FALSE(name.starts_with("mb-")) << name;
}

TEST(Espeak, EveryVoiceOfTheListCanSpeak) {
  const auto voice = MakeEspeak();
  const std::size_t count = voice->Voices().size();
  for (std::size_t i = 0; i < count; ++i) {
    voice->SelectVoice(i);
    EXPECT_GT(Rms(Spoken(*voice, kSentence)), 100) << voice->Voices()[i];
  }
}

TEST(Espeak, SpeaksThroughTheEngineOfTheStation) {
  const auto script = std::make_shared<VoiceScript>();
  platform::StationVoice voice({MakeEspeak, [script] { return std::make_unique<ScriptedSink>(script); }});
  platform::SystemStopwatch watch;
  voice.SetSpeed(250);
  RecordProperty("first_call_ms", std::to_string(watch.ElapsedMs()));
  voice.Speak(kSentence, platform::SpeechKind::kSentence);
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.finished == 1; }));
  const std::size_t quick = script->samplesTaken;
  voice.SetSpeed(80);
  voice.Speak(kSentence, platform::SpeechKind::kSentence);
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.finished == 2; }));
  EXPECT_GT(script->samplesTaken - quick, 2 * quick);
  EXPECT_EQ(voice.State().rfind("eSpeak NG ", 0), 0u) << voice.State();
}

}  // namespace
}  // namespace kestrava::speech
