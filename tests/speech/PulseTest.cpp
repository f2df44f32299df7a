#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include <gtest/gtest.h>
#include <sys/resource.h>

#include "platform/Fault.h"
#include "platform/linux/StationVoice.h"
#include "platform/linux/SystemClock.h"

#include "speech/PulseServer.h"
#include "speech/ScriptedVoice.h"

namespace kestrava::speech {
namespace {

using platform::SpeechKind;
using platform::StationVoice;

constexpr const char* kSentence = "The International Space station will be in range in 10 minutes";
constexpr double kEndMs = 500;
constexpr double kStallMs = 20;

/// The client's library looks for its things in the user's folders: here in one that goes with the program.
class OwnFolders : public ::testing::Environment {
 public:
  void SetUp() override {
    for (const char* variable : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR"})
      ::setenv(variable, folder_.Path().c_str(), 1);
    ::unsetenv("PULSE_SERVER");
    ::unsetenv("DISPLAY");
  }

 private:
  testing::TempFolder folder_;
};
const auto* const kOwnFolders = ::testing::AddGlobalTestEnvironment(std::make_unique<OwnFolders>().release());

/// The real sink, with what a test has to wait for counted in the script.
class WatchedSink : public platform::SpeechSink {
 public:
  WatchedSink(std::shared_ptr<VoiceScript> script, std::unique_ptr<SpeechSink> real)
      : script_(std::move(script)), real_(std::move(real)) {}
  Stage Now() const override { return real_->Now(); }
  std::string WhyLost() const override { return real_->WhyLost(); }
  void Open(int rateHz) override {
    real_->Open(rateHz);
    script_->Tell([](VoiceScript& s) { ++s.opened; });
  }
  std::size_t Write(std::span<const std::int16_t> samples) override {
    const std::size_t count = real_->Write(samples);
    script_->Tell([&](VoiceScript& s) { s.samplesTaken += count; });
    return count;
  }
  void Finish() override {
    real_->Finish();
    script_->Tell([](VoiceScript& s) { ++s.finished; });
  }
  void Close() override {
    const bool lost = Now() == Stage::kLost;
    real_->Close();
    if (lost) script_->Tell([](VoiceScript& s) { ++s.closed; });
  }
  void Wait() override { real_->Wait(); }
  void Wake() override { real_->Wake(); }

 private:
  std::shared_ptr<VoiceScript> script_;
  std::unique_ptr<SpeechSink> real_;
};

/// The longest call of the station's thread. A call that was late without having waited for anything was only kept from
/// the processor by others, and does not count.
class StallWatch {
 public:
  template <class Call>
  void operator()(const Call& call) {
    const long waitsBefore = Waits();
    platform::SystemStopwatch watch;
    call();
    const double ms = watch.ElapsedMs();
    longestMs_ = std::max(longestMs_, ms);
    if (Waits() != waitsBefore) longestWaitMs_ = std::max(longestWaitMs_, ms);
  }
  double LongestMs() const { return longestMs_; }
  double LongestWaitMs() const { return longestWaitMs_; }

 private:
  static long Waits() {
    rusage usage{};
    ::getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nvcsw;
  }
  double longestMs_ = 0;
  double longestWaitMs_ = 0;
};

class Pulse : public ::testing::Test {
 protected:
  void SetUp() override {
    if (!PulseServer::IsInstalled()) GTEST_SKIP() << "pulseaudio is not installed: scripts/install test";
    server = std::make_unique<PulseServer>();
    ASSERT_TRUE(server->Started());
    voice = MakeVoice();
  }
  std::unique_ptr<StationVoice> MakeVoice() {
    const platform::PulseOptions options{server->Address(), std::chrono::milliseconds(700)};
    return std::make_unique<StationVoice>(platform::VoiceParts{platform::MakeEspeak, [this, options] {
                                                                 return std::make_unique<WatchedSink>(
                                                                     script, platform::MakePulseSink(options));
                                                               }});
  }
  void Say(const std::string& text = kSentence) { voice->Speak(text, SpeechKind::kSentence); }
  bool UntilLost(int times = 1) {
    return script->Until([&](VoiceScript& s) { return s.closed >= times; });
  }
  bool UntilWriting() {
    return script->Until([&](VoiceScript& s) { return s.samplesTaken > 0; });
  }
  /// Every call that windows make, over and over.
  void CallEverything(StallWatch& watch, int rounds) {
    for (int i = 0; i < rounds; ++i) {
      watch([&] { voice->Speak(kSentence, SpeechKind::kSentence); });
      watch([&] { voice->Speak("Heading 10, Elevation 20", SpeechKind::kPositionReport); });
      watch([&] { voice->BeginAnnouncement(); });
      watch([&] { voice->SetSpeed(100 + i); });
      watch([&] { voice->SelectVoice(1 + i % 3); });
      watch([&] { voice->Voices(); });
      watch([&] { voice->State(); });
      if (i % 10 == 9) watch([&] { voice->Stop(); });
    }
  }
  /// @return how long the end took, in milliseconds
  double End() {
    platform::SystemStopwatch watch;
    voice.reset();
    return watch.ElapsedMs();
  }

  std::shared_ptr<VoiceScript> script = std::make_shared<VoiceScript>();
  std::unique_ptr<PulseServer> server;
  std::unique_ptr<StationVoice> voice;
};

TEST_F(Pulse, ASentenceIsHeardWholeAtTheSoundServer) {
  Ear ear(*server);
  ASSERT_TRUE(ear.Listening());
  Say();
  const Ear::Heard heard = ear.Sentence();
  RecordProperty("heard_s", std::to_string(heard.soundS));
  RecordProperty("heard_rms", std::to_string(heard.rms));
  const double madeS = static_cast<double>(script->Ask([](VoiceScript& s) { return s.samplesTaken; })) / Ear::kRateHz;
  EXPECT_GT(heard.rms, 500);
  EXPECT_GT(heard.soundS, madeS - 1);
  EXPECT_LT(heard.soundS, madeS + 0.5);
}

TEST_F(Pulse, AStoppedSentenceFallsSilent) {
  Ear ear(*server);
  voice->SetSpeed(80);
  Say(std::string(kSentence) + " and " + kSentence);
  ASSERT_TRUE(ear.Begins());
  voice->Stop();
  EXPECT_LT(ear.Sentence().soundS, 2) << "of some ten seconds";
}

TEST_F(Pulse, AServerThatIsKilledInMidSentenceIsForgottenAndSpeechComesBackWithTheNext) {
  voice->SetSpeed(80);
  auto ear = std::make_unique<Ear>(*server);
  Say();
  ASSERT_TRUE(ear->Begins());
  ear.reset();
  server->Kill();
  ASSERT_TRUE(UntilLost());
  EXPECT_NE(voice->State().find("no sound server ("), std::string::npos) << voice->State();
  Say("Nobody hears this one");
  ASSERT_TRUE(UntilLost(2));
  server->Start();
  ASSERT_TRUE(server->Started());
  ear = std::make_unique<Ear>(*server);
  Say("Back again");
  EXPECT_GT(ear->Sentence().rms, 500);
  EXPECT_EQ(voice->State().find("dropped"), std::string::npos) << voice->State();
}

TEST_F(Pulse, WithoutAServerNothingIsHeardAndNothingWaits) {
  server->Kill();
  platform::SystemStopwatch creation;
  voice->Voices();  // makes the engine, once
  RecordProperty("creation_ms", std::to_string(creation.ElapsedMs()));
  StallWatch watch;
  CallEverything(watch, 50);
  RecordProperty("longest_call_ms", std::to_string(watch.LongestMs()));
  EXPECT_LT(watch.LongestWaitMs(), kStallMs);
  EXPECT_LT(End(), kEndMs);
}

TEST_F(Pulse, AServerThatHangsStallsNobodyAndSpeechComesBackWhenItGoesOn) {
  Ear ear(*server);
  voice->SetSpeed(80);
  Say();
  ASSERT_TRUE(ear.Begins());
  server->Freeze();
  StallWatch watch;
  CallEverything(watch, 50);
  Say();
  ASSERT_TRUE(UntilLost());
  EXPECT_NE(voice->State().find("dropped"), std::string::npos) << voice->State();
  CallEverything(watch, 50);
  RecordProperty("longest_call_ms", std::to_string(watch.LongestMs()));
  RecordProperty("longest_waiting_call_ms", std::to_string(watch.LongestWaitMs()));
  EXPECT_LT(watch.LongestWaitMs(), kStallMs);
  const int lostSoFar = script->Ask([](VoiceScript& s) { return s.closed; });
  Say();
  ASSERT_TRUE(UntilLost(lostSoFar + 1)) << "what was said meanwhile is given up";
  server->Thaw();
  Ear second(*server);
  ASSERT_TRUE(second.Listening());
  voice->SetSpeed(180);
  Say("Back again");
  EXPECT_GT(second.Sentence().rms, 500);
}

TEST_F(Pulse, TheEndInMidSentenceWaitsForNothing) {
  Say();
  ASSERT_TRUE(UntilWriting());
  const double endMs = End();
  RecordProperty("end_ms", std::to_string(endMs));
  EXPECT_LT(endMs, kEndMs);
}

TEST_F(Pulse, TheEndWithAServerThatHangsInMidSentenceWaitsForNothing) {
  Say();
  ASSERT_TRUE(UntilWriting());
  server->Freeze();
  const double endMs = End();
  RecordProperty("end_ms", std::to_string(endMs));
  EXPECT_LT(endMs, kEndMs);
}

TEST_F(Pulse, TheEndOnTheWayToAServerThatHangsWaitsForNothing) {
  server->Freeze();
  Say();
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.opened == 1; }));
  const double endMs = End();
  RecordProperty("end_ms", std::to_string(endMs));
  EXPECT_LT(endMs, kEndMs);
}

}  // namespace
}  // namespace kestrava::speech
