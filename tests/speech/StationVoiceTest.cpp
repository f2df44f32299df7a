#include <cmath>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Fault.h"
#include "platform/linux/StationVoice.h"
#include "platform/linux/SystemClock.h"

#include "speech/ScriptedVoice.h"

namespace kestrava::speech {
namespace {

using platform::Fault;
using platform::SpeechKind;
using platform::StationVoice;
using Stage = platform::SpeechCondition::Stage;
using Lines = std::vector<std::string>;

class StationVoiceTests : public ::testing::Test {
 protected:
  Lines Said() {
    return script->Ask([](VoiceScript& s) { return s.said; });
  }
  bool UntilSaid(const Lines& texts) {
    return script->Until([&](VoiceScript& s) { return s.said == texts; });
  }
  bool UntilHeardOut(int times = 1) {
    return script->Until([&](VoiceScript& s) { return s.finished == times; });
  }
  /// Says a sentence that then lies half in the sink.
  void BeginLongSentence() {
    script->Tell([](VoiceScript& s) { s.room = 5; });
    voice->Speak("long", SpeechKind::kSentence);
    ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.samplesTaken == 5; }));
  }
  platform::SpeechCondition::Stage StageNow() const { return voice->Condition().stage; }
  void Tell(Server server) {
    script->Tell([&](VoiceScript& s) { s.server = server; });
  }

  std::shared_ptr<VoiceScript> script = std::make_shared<VoiceScript>();
  std::unique_ptr<StationVoice> voice = std::make_unique<StationVoice>(ScriptedParts(script));
};

TEST_F(StationVoiceTests, NothingIsMadeBeforeSomebodyNeedsIt) {
  voice->Stop();
  voice->BeginAnnouncement();
  EXPECT_EQ(voice->State(), "not used yet");
  voice.reset();
  EXPECT_EQ(script->synthesisersMade, 0);
}

TEST_F(StationVoiceTests, TheEngineIsMadeInItsOwnThreadAndNoCallWaitsForIt) {
  script->Tell([](VoiceScript& s) { s.makingIsStuck = true; });
  voice->SetSpeed(200);
  voice->SelectVoice(2);
  voice->Prepare();
  voice->Speak("first", SpeechKind::kSentence);
  voice->Stop();
  voice->Speak("second", SpeechKind::kSentence);
  EXPECT_EQ(StageNow(), Stage::kStarting);
  EXPECT_EQ(voice->State(), "being made");
  script->Tell([](VoiceScript& s) { s.makingIsStuck = false; });
  ASSERT_TRUE(UntilSaid({"second"}));
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.speeds; }), std::vector<int>{200});
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.voices; }), std::vector<std::size_t>{1});
  EXPECT_NE(script->Ask([](VoiceScript& s) { return s.madeBy; }), std::this_thread::get_id());
}

TEST_F(StationVoiceTests, TheVoicesAreToldWhenTheEngineHasBeenMade) {
  EXPECT_EQ(voice->Voices(), (Lines{"English", "Scottish", "Swedish"}));
  EXPECT_EQ(StageNow(), Stage::kUntried) << "no server has been asked";
}

TEST_F(StationVoiceTests, AVoiceChosenBeforeTheEngineIsThereThatItHasNotIsLeftOut) {
  script->Tell([](VoiceScript& s) { s.makingIsStuck = true; });
  voice->SelectVoice(4);
  voice->Speak("all the same", SpeechKind::kSentence);
  script->Tell([](VoiceScript& s) { s.makingIsStuck = false; });
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), Lines{"all the same"});
  EXPECT_TRUE(script->Ask([](VoiceScript& s) { return s.voices; }).empty());
}

TEST_F(StationVoiceTests, AnEngineThatCannotBeMadeIsTheAutomationError) {
  StationVoice mute({[]() -> std::unique_ptr<platform::Synthesiser> { throw Fault::Automation("no data"); },
                     [this] { return std::make_unique<ScriptedSink>(script); }});
  EXPECT_TRUE(mute.Voices().empty());
  EXPECT_EQ(mute.State(), "no speech engine could be made");
  EXPECT_EQ(mute.Condition().stage, Stage::kNoEngine);
  EXPECT_EQ(mute.Condition().why, "no speech engine could be made");
  try {
    mute.Speak("hello", SpeechKind::kSentence);
    FAIL() << "there was no fault";
  } catch (const Fault& fault) {
    EXPECT_STREQ(fault.what(), "Automation error: no speech engine could be made");
  }
}

TEST_F(StationVoiceTests, AnEngineThatCouldNotBeMadeIsNotTriedAgainForEverySentence) {
  int tries = 0;
  StationVoice mute({[&]() -> std::unique_ptr<platform::Synthesiser> {
                       ++tries;
                       throw Fault::Automation("no data");
                     },
                     [this] { return std::make_unique<ScriptedSink>(script); }});
  EXPECT_TRUE(mute.Voices().empty());
  EXPECT_THROW(mute.Speak("hello", SpeechKind::kSentence), Fault);
  EXPECT_THROW(mute.Speak("hello again", SpeechKind::kSentence), Fault);
  EXPECT_EQ(tries, 1);
  mute.Prepare();
  EXPECT_TRUE(mute.Voices().empty());
  EXPECT_GE(tries, 2) << "who sets it up anew tries again";
}

TEST_F(StationVoiceTests, AMachineWithoutDescriptorsForTheSinkHasNoEngineEither) {
  StationVoice mute({[this] { return std::make_unique<ScriptedSynthesiser>(script); },
                     []() -> std::unique_ptr<platform::SpeechSink> { throw Fault::DeviceError(); }});
  EXPECT_TRUE(mute.Voices().empty());
  EXPECT_EQ(mute.Condition().stage, Stage::kNoEngine);
  EXPECT_EQ(script->gone, 1) << "the synthesiser is given back";
}

TEST_F(StationVoiceTests, ThatASoundServerAnswersIsFoundOutWithoutAWord) {
  EXPECT_EQ(StageNow(), Stage::kNotUsed);
  voice->Prepare();
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(StageNow(), Stage::kHeard);
  EXPECT_TRUE(Said().empty());
}

TEST_F(StationVoiceTests, ThatNoSoundServerIsThereIsFoundOutWithoutAWord) {
  Tell(Server::kMissing);
  voice->Prepare();
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.closed == 1; }));
  EXPECT_EQ(StageNow(), Stage::kNoSound);
  EXPECT_EQ(voice->Condition().why, "no scripted server");
}

TEST_F(StationVoiceTests, AnAlarmThatWaitedTooLongBehindASentenceIsNotSaid) {
  BeginLongSentence();
  voice->Speak("HST will be in range in 2 minutes", SpeechKind::kAlarm);
  script->Tell([](VoiceScript& s) { s.nowMs = 30001; });
  voice->Speak("NOAA 15 will be in range in 2 minutes", SpeechKind::kAlarm);
  script->Tell([](VoiceScript& s) { s.room = SIZE_MAX; });
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"long", "NOAA 15 will be in range in 2 minutes"}));
}

TEST_F(StationVoiceTests, ASelectionThatIsMadeAnewEachSecondIsSaidOnce) {
  for (int second = 0; second < 9; ++second) {
    script->Tell([&](VoiceScript& s) { s.nowMs = 1000.0 * second; });
    voice->Speak("Selected Satellite HST", SpeechKind::kSelection);
    if (second > 0) continue;
    ASSERT_TRUE(UntilHeardOut());
  }
  voice->Speak("end", SpeechKind::kSentence);
  ASSERT_TRUE(UntilHeardOut(2));
  EXPECT_EQ(Said(), (Lines{"Selected Satellite HST", "end"}));
}

TEST_F(StationVoiceTests, SaysSentencesInOrderAndFallsIdle) {
  script->Tell([](VoiceScript& s) { s.room = 0; });
  for (const char* text : {"one", "two", "three"}) voice->Speak(text, SpeechKind::kSentence);
  script->Tell([](VoiceScript& s) { s.room = SIZE_MAX; });
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"one", "two", "three"}));
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.samplesTaken; }), 110u);
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.opened; }), 1);
  EXPECT_EQ(voice->State(), "Scripted voice: ready, heard by the sound server");
}

TEST_F(StationVoiceTests, ASentenceWithoutSoundDoesNotHoldUpTheNext) {
  BeginLongSentence();
  voice->Speak("", SpeechKind::kSentence);
  voice->Speak("heard", SpeechKind::kSentence);
  script->Tell([](VoiceScript& s) { s.room = SIZE_MAX; });
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"long", "", "heard"}));
}

TEST_F(StationVoiceTests, OnlyTheLastPositionReportIsSaidWhileASentenceLasts) {
  BeginLongSentence();
  voice->Speak("Heading 1, Elevation 1", SpeechKind::kPositionReport);
  voice->Speak("Heading 2, Elevation 2", SpeechKind::kPositionReport);
  voice->Speak("behind", SpeechKind::kSentence);
  voice->Speak("Heading 3, Elevation 3", SpeechKind::kPositionReport);
  script->Tell([](VoiceScript& s) { s.room = SIZE_MAX; });
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"long", "Heading 3, Elevation 3", "behind"}));
}

TEST_F(StationVoiceTests, AnAnnouncementEndsTheOldOneBehindTheSentenceThatHasBegun) {
  BeginLongSentence();
  voice->Speak("old 1", SpeechKind::kAnnouncement);
  voice->Speak("old 2", SpeechKind::kAnnouncement);
  voice->BeginAnnouncement();
  voice->Speak("new 1", SpeechKind::kAnnouncement);
  script->Tell([](VoiceScript& s) { s.room = SIZE_MAX; });
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"long", "new 1"}));
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.samplesTaken; }), 90u) << "what had begun is said whole";
}

TEST_F(StationVoiceTests, StopFallsSilentInMidSentenceAndEmptiesTheQueue) {
  BeginLongSentence();
  voice->Speak("never", SpeechKind::kSentence);
  voice->Stop();
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.closed == 1; }));
  script->Tell([](VoiceScript& s) { s.room = SIZE_MAX; });
  voice->Speak("after", SpeechKind::kSentence);
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"long", "after"}));
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.samplesTaken; }), 55u) << "the rest of the first is never heard";
}

TEST_F(StationVoiceTests, StopEndsTheSynthesisToo) {
  script->Tell([](VoiceScript& s) { s.synthesiserRefuses = true; });
  voice->Speak("endless", SpeechKind::kSentence);
  ASSERT_TRUE(UntilSaid({"endless"}));
  voice->Stop();
  EXPECT_TRUE(script->Until([](VoiceScript& s) { return s.closed == 1; }));
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.samplesTaken; }), 0u);
}

TEST_F(StationVoiceTests, ASentenceRightBehindTheStopIsSaid) {
  BeginLongSentence();
  voice->Stop();
  voice->Speak("at once", SpeechKind::kSentence);
  script->Tell([](VoiceScript& s) { s.room = SIZE_MAX; });
  EXPECT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"long", "at once"}));
}

TEST_F(StationVoiceTests, WithoutASoundServerSentencesAreDroppedAndNotEvenMadeToSamples) {
  Tell(Server::kMissing);
  voice->Speak("nobody", SpeechKind::kSentence);
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.closed == 1; }));
  EXPECT_EQ(voice->State(), "Scripted voice: no scripted server, sentences are dropped");
  EXPECT_TRUE(Said().empty());
}

TEST_F(StationVoiceTests, TheWishForSilenceDoesNotForgetThatThereIsNoServer) {
  Tell(Server::kMissing);
  voice->Speak("nobody", SpeechKind::kSentence);
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.closed == 1; }));
  for (int i = 0; i < 2; ++i) {  // what woke the thread first is obeyed when it has been woken again
    voice->Stop();
    ASSERT_TRUE(script->Until([](VoiceScript& s) { return !s.woken; }));
  }
  EXPECT_EQ(voice->State(), "Scripted voice: no scripted server, sentences are dropped");
}

TEST_F(StationVoiceTests, SpeechComesBackByItselfWithTheServerButNotWhatWasDropped) {
  Tell(Server::kMissing);
  voice->Speak("nobody", SpeechKind::kSentence);
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.closed == 1; }));
  Tell(Server::kUp);
  voice->Speak("somebody", SpeechKind::kSentence);
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"somebody"}));
  EXPECT_EQ(voice->State(), "Scripted voice: ready, heard by the sound server");
}

TEST_F(StationVoiceTests, AServerThatDiesInMidWordTakesWhatWaitsWithIt) {
  BeginLongSentence();
  voice->Speak("waiting", SpeechKind::kSentence);
  Tell(Server::kMissing);
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.closed == 1; }));
  script->Tell([](VoiceScript& s) {
    s.server = Server::kUp;
    s.room = SIZE_MAX;
  });
  voice->Speak("back", SpeechKind::kSentence);
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"long", "back"}));
}

TEST_F(StationVoiceTests, WhatWasSaidToAHangingServerIsDroppedWhenItIsGivenUp) {
  Tell(Server::kHanging);
  for (int i = 0; i < 100; ++i) voice->Speak("unheard", SpeechKind::kSentence);
  script->Tell([](VoiceScript& s) { s.noPatienceLeft = true; });
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.closed == 1; }));
  Tell(Server::kUp);
  voice->Speak("heard", SpeechKind::kSentence);
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(Said(), (Lines{"heard"}));
}

TEST_F(StationVoiceTests, TheSpeedStaysWithinWhatTheEngineCan) {
  int sentences = 0;
  for (const double wanted : {20.0, 1000.0, std::nan(""), 179.6, -1e300}) {
    voice->SetSpeed(wanted);
    voice->Speak("x", SpeechKind::kSentence);
    ASSERT_TRUE(UntilHeardOut(++sentences));
  }
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.speeds; }), (std::vector<int>{80, 450, 80, 180, 80}));
}

TEST_F(StationVoiceTests, AChosenVoiceSpeaksTheNextSentence) {
  voice->SelectVoice(2);
  voice->Speak("Changed Voice to Scottish", SpeechKind::kSentence);
  ASSERT_TRUE(UntilHeardOut());
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.voices; }), std::vector<std::size_t>{1});
}

TEST_F(StationVoiceTests, AVoiceThatIsNotThereIsAFault) {
  EXPECT_EQ(voice->Voices(), (Lines{"English", "Scottish", "Swedish"}));
  for (const int index : {-32768, -1, 0, 4}) EXPECT_THROW(voice->SelectVoice(index), Fault) << index;
}

TEST_F(StationVoiceTests, TheEndComesInMidSentence) {
  BeginLongSentence();
  voice->Speak("never", SpeechKind::kSentence);
  voice.reset();
  EXPECT_EQ(script->closed, 1);
  EXPECT_EQ(script->gone, 2) << "synthesiser and sink";
  EXPECT_EQ(Said(), (Lines{"long"}));
}

TEST_F(StationVoiceTests, TheEndDoesNotWaitForAHangingServer) {
  Tell(Server::kHanging);
  voice->Speak("unheard", SpeechKind::kSentence);
  ASSERT_TRUE(script->Until([](VoiceScript& s) { return s.opened == 1; }));
  voice.reset();
  EXPECT_EQ(script->gone, 2);
}

TEST_F(StationVoiceTests, TheEndLeavesAThreadThatIsStuckToItself) {
  script->Tell([](VoiceScript& s) { s.synthesiserIsStuck = true; });
  voice->Speak("stuck", SpeechKind::kSentence);
  ASSERT_TRUE(UntilSaid({"stuck"}));
  platform::SystemStopwatch watch;
  voice.reset();
  const double endMs = watch.ElapsedMs();
  EXPECT_GE(endMs, StationVoice::kEndPatienceMs) << "it was given its time";
  EXPECT_EQ(script->Ask([](VoiceScript& s) { return s.gone; }), 0);
  RecordProperty("end_ms", std::to_string(endMs));
  script->Tell([](VoiceScript& s) { s.synthesiserIsStuck = false; });
  EXPECT_TRUE(script->Until([](VoiceScript& s) { return s.gone == 2; })) << "it ends when it can";
}

}  // namespace
}  // namespace kestrava::speech
