// Everything that the station says in an evening, word for word and at its moment: against the rules, and against the
// transcript that was read when it was made.
#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <map>
#include <sstream>

#include "evening/EveningRules.h"

namespace kestrava::evening {
namespace {

using platform::SpeechKind;
using What = VoiceEvent::What;

constexpr int kEveningS = 9000;
constexpr int kSilentEveningS = 1200;
constexpr const char* kGolden = KESTRAVA_TEST_DATA "golden/evening/evening.txt";

const EveningRecord& TheEvening() {
  static const EveningRecord evening = LiveThrough(kEveningS, "1");
  return evening;
}

bool IsAlarm(const std::string& text) {
  return text.find(" will be in range in ") != std::string::npos;
}
bool IsRise(const std::string& text) {
  return text.find(" is now in range at heading ") != std::string::npos;
}
bool IsSelection(const std::string& text) {
  return text.starts_with("Selected Satellite ");
}
bool IsReport(const std::string& text) {
  return text.starts_with("Heading ");
}
bool IsOfTheMap(const std::string& text) {
  return text.find(", Azimuth ") != std::string::npos;
}
bool IsAnnouncement(const std::string& text) {
  return text.find(" Azimuth ") != std::string::npos;
}
bool IsWelcome(const std::string& text) {
  return text.starts_with("Welcome ");
}

Lines Said(const std::function<bool(const std::string&)>& wanted) {
  Lines lines;
  for (const VoiceEvent& event : TheEvening().voice.events)
    if (event.what == What::kSaid && wanted(event.text)) lines.push_back(ClockOf(event.atS) + " " + event.text);
  return lines;
}

/// Shows the first difference only: the rest of an evening follows from it.
void ExpectSame(const Lines& said, const Lines& expected) {
  EXPECT_FALSE(expected.empty()) << "the evening does not show it";
  const auto [first, second] = std::mismatch(said.begin(), said.end(), expected.begin(), expected.end());
  if (first == said.end() && second == expected.end()) return;
  ADD_FAILURE() << "after " << first - said.begin() << " lines\n"
                << "  said:     " << (first == said.end() ? "nothing more" : *first) << "\n"
                << "  expected: " << (second == expected.end() ? "nothing more" : *second);
}

std::string Golden() {
  std::ostringstream text;
  text << std::ifstream(kGolden, std::ios::binary).rdbuf();
  return text.str();
}

Lines LinesOf(const std::string& text) {
  Lines lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

TEST_F(EveningRules, WholeTranscriptIsAsItWas) {
  const std::string transcript = Transcript(TheEvening());
  if (std::getenv("KESTRAVA_WRITE_GOLDEN")) std::ofstream(kGolden, std::ios::binary) << transcript;
  ExpectSame(LinesOf(transcript), LinesOf(Golden()));
}

TEST_F(EveningRules, NothingGoesWrongInTheEvening) {
  EXPECT_EQ(TheEvening().faults, Lines());
  EXPECT_EQ(TheEvening().messages, Lines());
}

TEST_F(EveningRules, StartIsWelcomedOnceWithTheVersion) {
  ExpectSame(Said(IsWelcome), {"18:00:00 Welcome to Kes Trava. version 2 point 0 2"});
}

TEST_F(EveningRules, SpeedAndVoiceAreSetBeforeTheFirstWord) {
  const auto& events = TheEvening().voice.events;
  ASSERT_GE(events.size(), 3U);
  EXPECT_EQ(events[0].what, What::kSpeed);
  EXPECT_EQ(events[0].text, "180");
  EXPECT_EQ(events[1].what, What::kVoice);
  EXPECT_EQ(events[1].text, "1");
  EXPECT_TRUE(IsWelcome(events[2].text));
}

TEST_F(EveningRules, EveryRiseIsToldOnceAndWhoIsUpAtEachOpeningOfTheTable) {
  ExpectSame(Said(IsRise), Rises(kEveningS));
}

TEST_F(EveningRules, SelectionIsToldWhetherByItselfOrByAClick) {
  ExpectSame(Said(IsSelection), Selections(TheEvening()));
}

TEST_F(EveningRules, PositionIsReportedFirstAtEightSecondsThenEveryNineAndAMinuteAfterAnAnnouncement) {
  ExpectSame(Said(IsReport), Reports(TheEvening()));
}

TEST_F(EveningRules, AnnouncementsTellAllInTheMapAndThoseUpInTheHorizon) {
  ExpectSame(Said(IsAnnouncement), Announcements(kEveningS));
}

TEST_F(EveningRules, AlarmsComeAtEveryEvenMinuteOfTheLastTen) {
  ExpectSame(Said(IsAlarm), Alarms(TheEvening()));
}

TEST_F(EveningRules, NothingElseIsSaidAndEachTextIsOfItsKind) {
  for (const VoiceEvent& event : TheEvening().voice.events) {
    if (event.what != What::kSaid) continue;
    const std::string& text = event.text;
    const int sorts =
        IsWelcome(text) + IsRise(text) + IsSelection(text) + IsReport(text) + IsAnnouncement(text) + IsAlarm(text);
    EXPECT_EQ(sorts, 1) << text;
    const SpeechKind kind = IsReport(text)         ? SpeechKind::kPositionReport
                            : IsAnnouncement(text) ? SpeechKind::kAnnouncement
                            : IsSelection(text)    ? SpeechKind::kSelection
                            : IsAlarm(text)        ? SpeechKind::kAlarm
                                                   : SpeechKind::kSentence;
    EXPECT_EQ(event.kind, kind) << text;
  }
}

/// What the listener heard begin in a stretch of the evening.
Lines HeardBetween(double fromS, double untilS, const std::function<bool(const std::string&)>& wanted) {
  Lines lines;
  for (const HeardText& heard : TheEvening().voice.heard)
    if (heard.fromS >= fromS && heard.fromS < untilS && wanted(heard.text)) lines.push_back(heard.text);
  return lines;
}

TEST_F(EveningRules, NewAnnouncementEmptiesWhatIsLeftOfTheEarlierOneAndNothingElse) {
  const int mapS = TimesOf(Deed::kAnnounceInMap).front();
  const int horizonS = TimesOf(Deed::kAnnounceInHorizon).front();
  const int nextS = TimesOf(Deed::kAnnounceInMap).at(1);
  const std::size_t heardBefore = HeardBetween(mapS, horizonS, IsOfTheMap).size();
  EXPECT_GT(heardBefore, 0U);
  EXPECT_LT(heardBefore, 12U);
  EXPECT_EQ(HeardBetween(horizonS, nextS, IsOfTheMap), Lines());
  const auto ofHorizon = [](const std::string& text) { return IsAnnouncement(text) && !IsOfTheMap(text); };
  Lines said;
  for (const VoiceEvent& event : TheEvening().voice.events)
    if (event.what == What::kSaid && event.atS == horizonS && ofHorizon(event.text)) said.push_back(event.text);
  EXPECT_FALSE(said.empty());
  EXPECT_EQ(HeardBetween(horizonS, nextS, ofHorizon), said);
}

TEST_F(EveningRules, EscapeBreaksOffTheSentenceAndEmptiesTheRest) {
  const auto& events = TheEvening().voice.events;
  for (const Deed deed : {Deed::kEscapeInHorizon, Deed::kEscapeInTable}) {
    const double atS = TimesOf(deed).front();
    const auto stop = std::find_if(events.begin(), events.end(),
                                   [&](const auto& event) { return event.what == What::kStopped && event.atS == atS; });
    ASSERT_NE(stop, events.end()) << WordsOf(deed);
    const auto next = std::find_if(stop, events.end(), [](const auto& event) { return event.what == What::kSaid; });
    ASSERT_NE(next, events.end());
    EXPECT_EQ(HeardBetween(atS, next->atS, [](const auto&) { return true; }), Lines()) << WordsOf(deed);
    const auto& heard = TheEvening().voice.heard;
    const auto after = std::find_if(heard.begin(), heard.end(), [&](const auto& each) { return each.fromS >= atS; });
    ASSERT_NE(after, heard.begin());
    EXPECT_FALSE(std::prev(after)->whole) << WordsOf(deed);
  }
}

TEST_F(EveningRules, ListenerNeverHearsAReportThatHasASuccessor) {
  const auto& events = TheEvening().voice.events;
  int heardLate = 0;
  for (const HeardText& heard : TheEvening().voice.heard) {
    if (!IsReport(heard.text)) continue;
    const VoiceEvent* newest = nullptr;
    for (const VoiceEvent& event : events)
      if (event.what == What::kSaid && IsReport(event.text) && event.atS < heard.fromS) newest = &event;
    const bool spokenAtOnce = std::any_of(events.begin(), events.end(), [&](const VoiceEvent& event) {
      return event.atS == heard.fromS && event.text == heard.text;
    });
    if (spokenAtOnce) continue;
    ++heardLate;
    ASSERT_NE(newest, nullptr) << heard.text;
    EXPECT_EQ(heard.text, newest->text) << ClockOf(heard.fromS);
  }
  EXPECT_GT(heardLate, 0) << "no report ever had to wait";
}

TEST_F(EveningRules, NoSentenceIsLostBeforeTheUserAsksForQuiet) {
  const double quietS = TimesOf(Deed::kEscapeInHorizon).front() - 60;  // a queue is shorter than this
  const auto isSentence = [](const std::string& text) { return IsWelcome(text) || IsRise(text); };
  Lines said;
  for (const VoiceEvent& event : TheEvening().voice.events)
    if (event.what == What::kSaid && isSentence(event.text) && event.atS < quietS) said.push_back(event.text);
  Lines heard = HeardBetween(0, quietS + 30, isSentence);
  ASSERT_GE(heard.size(), said.size());
  heard.resize(said.size());
  EXPECT_EQ(heard, said);
}

TEST_F(EveningRules, ListenerHearsOneSelectionAtTheEndOfAPassThatIsSelectedAnewAtEveryTick) {
  const auto& events = TheEvening().voice.events;
  std::map<std::string, int> timesInTheMinute;
  int most = 0;
  for (const VoiceEvent& event : events)
    if (IsSelection(event.text))
      most = std::max(most, ++timesInTheMinute[ClockOf(event.atS).substr(0, 5) + event.text]);
  EXPECT_GE(most, 9) << "the evening does not show it";
  std::map<std::string, double> heardAtS;
  for (const HeardText& heard : TheEvening().voice.heard) {
    if (!IsSelection(heard.text)) continue;
    const auto earlier = heardAtS.find(heard.text);
    EXPECT_TRUE(earlier == heardAtS.end() || heard.fromS - earlier->second >= 60) << ClockOf(heard.fromS);
    heardAtS[heard.text] = heard.fromS;
  }
}

TEST_F(EveningRules, ListenerNeverHearsAnAlarmOlderThanHalfAMinute) {
  const auto& events = TheEvening().voice.events;
  int heardAlarms = 0;
  for (const HeardText& heard : TheEvening().voice.heard) {
    if (!IsAlarm(heard.text)) continue;
    ++heardAlarms;
    EXPECT_TRUE(std::any_of(events.begin(), events.end(),
                            [&](const VoiceEvent& event) {
                              return event.text == heard.text && event.atS <= heard.fromS &&
                                     heard.fromS - event.atS <= 30;
                            }))
        << ClockOf(heard.fromS) << " " << heard.text;
  }
  EXPECT_GT(heardAlarms, 0);
}

TEST(SilentEvening, WithSpeechpackAtZeroTheVoiceIsNeverEvenTouched) {
  const EveningRecord evening = LiveThrough(kSilentEveningS, "0");
  EXPECT_EQ(evening.voice.touches, 0);
  for (const VoiceEvent& event : evening.voice.events) EXPECT_EQ(event.what, What::kDeed) << event.text;
  EXPECT_EQ(evening.faults, Lines());
  EXPECT_EQ(evening.messages, Lines());
}

}  // namespace
}  // namespace kestrava::evening
