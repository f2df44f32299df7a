#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/SpeechQueue.h"

namespace kestrava::platform {
namespace {

using Lines = std::vector<std::string>;

Lines TakeAll(SpeechQueue& queue, double nowMs = 0) {
  Lines texts;
  while (auto text = queue.Take(nowMs)) texts.push_back(*text);
  return texts;
}

TEST(SpeechQueue, SentencesComeInTheOrderInWhichTheyWereSaid) {
  SpeechQueue queue;
  queue.Add("one", SpeechKind::kSentence, 0);
  queue.Add("two", SpeechKind::kAnnouncement, 0);
  queue.Add("one", SpeechKind::kSentence, 0);
  EXPECT_EQ(TakeAll(queue), (Lines{"one", "two", "one"}));
  EXPECT_TRUE(queue.IsEmpty());
}

TEST(SpeechQueue, FiveHundredSentencesAreQueuedWhole) {
  SpeechQueue queue;
  for (int i = 1; i <= 500; ++i) queue.Add(std::to_string(i), SpeechKind::kSentence, 0);
  EXPECT_EQ(queue.Size(), 500u);
  const Lines texts = TakeAll(queue);
  EXPECT_EQ(texts.front(), "1");
  EXPECT_EQ(texts.back(), "500");
}

TEST(SpeechQueue, AWaitingPositionReportIsReplacedByItsSuccessorInItsPlace) {
  SpeechQueue queue;
  queue.Add("before", SpeechKind::kSentence, 0);
  queue.Add("Heading 10, Elevation 5", SpeechKind::kPositionReport, 0);
  queue.Add("behind", SpeechKind::kSentence, 0);
  queue.Add("Heading 11, Elevation 6", SpeechKind::kPositionReport, 0);
  queue.Add("Heading 12, Elevation 7", SpeechKind::kPositionReport, 0);
  EXPECT_EQ(TakeAll(queue), (Lines{"before", "Heading 12, Elevation 7", "behind"}));
}

TEST(SpeechQueue, APositionReportThatWasTakenIsNotReplaced) {
  SpeechQueue queue;
  queue.Add("Heading 10, Elevation 5", SpeechKind::kPositionReport, 0);
  EXPECT_EQ(queue.Take(0), "Heading 10, Elevation 5");
  queue.Add("Heading 11, Elevation 6", SpeechKind::kPositionReport, 0);
  EXPECT_EQ(TakeAll(queue), (Lines{"Heading 11, Elevation 6"}));
}

TEST(SpeechQueue, ANewAnnouncementDropsWhatIsLeftOfTheOldOneOnly) {
  SpeechQueue queue;
  queue.Add("old 1", SpeechKind::kAnnouncement, 0);
  queue.Add("alarm", SpeechKind::kSentence, 0);
  queue.Add("old 2", SpeechKind::kAnnouncement, 0);
  queue.Add("report", SpeechKind::kPositionReport, 0);
  queue.BeginAnnouncement();
  queue.Add("new 1", SpeechKind::kAnnouncement, 0);
  EXPECT_EQ(TakeAll(queue), (Lines{"alarm", "report", "new 1"}));
}

TEST(SpeechQueue, AWaitingSelectionIsReplacedByItsSuccessorInItsPlace) {
  SpeechQueue queue;
  queue.Add("before", SpeechKind::kSentence, 0);
  queue.Add("Selected Satellite A", SpeechKind::kSelection, 0);
  queue.Add("behind", SpeechKind::kSentence, 0);
  queue.Add("Selected Satellite B", SpeechKind::kSelection, 0);
  EXPECT_EQ(TakeAll(queue), (Lines{"before", "Selected Satellite B", "behind"}));
}

TEST(SpeechQueue, TheSameSelectionIsNotSaidAgainWithinAMinute) {
  SpeechQueue queue;
  queue.Add("Selected Satellite A", SpeechKind::kSelection, 0);
  EXPECT_EQ(TakeAll(queue, 5000), (Lines{"Selected Satellite A"}));
  for (const double nowMs : {6000.0, 30000.0, 64999.0}) {
    queue.Add("Selected Satellite A", SpeechKind::kSelection, nowMs);
    EXPECT_TRUE(queue.IsEmpty()) << nowMs;
  }
  queue.Add("Selected Satellite A", SpeechKind::kSelection, 65000);
  EXPECT_EQ(TakeAll(queue, 65000), (Lines{"Selected Satellite A"})) << "a minute after it was said, not after it came";
}

TEST(SpeechQueue, ASelectionIsSaidAgainWhereAnotherWasSaidSince) {
  SpeechQueue queue;
  for (const char* text : {"Selected Satellite A", "Selected Satellite B", "Selected Satellite A"}) {
    queue.Add(text, SpeechKind::kSelection, 0);
    EXPECT_EQ(TakeAll(queue), (Lines{text}));
  }
}

TEST(SpeechQueue, WhoGoesBackToTheSelectionThatWasSaidHearsNoneOfTheOneInBetween) {
  SpeechQueue queue;
  queue.Add("Selected Satellite A", SpeechKind::kSelection, 0);
  EXPECT_EQ(TakeAll(queue), (Lines{"Selected Satellite A"}));
  queue.Add("Selected Satellite B", SpeechKind::kSelection, 1000);
  queue.Add("Selected Satellite A", SpeechKind::kSelection, 2000);
  EXPECT_EQ(TakeAll(queue, 3000), Lines());
}

TEST(SpeechQueue, AnAlarmThatHasWaitedForMoreThanHalfAMinuteIsLeftOut) {
  SpeechQueue queue;
  queue.Add("HST will be in range in 2 minutes", SpeechKind::kAlarm, 1000);
  queue.Add("sentence", SpeechKind::kSentence, 1000);
  queue.Add("NOAA 15 will be in range in 2 minutes", SpeechKind::kAlarm, 2000);
  EXPECT_EQ(TakeAll(queue, 31500), (Lines{"sentence", "NOAA 15 will be in range in 2 minutes"}));
  queue.Add("HST will be in range in 2 minutes", SpeechKind::kAlarm, 1000);
  EXPECT_EQ(TakeAll(queue, 31000), (Lines{"HST will be in range in 2 minutes"})) << "half a minute is not more";
}

TEST(SpeechQueue, AlarmsOfSeveralSatellitesAllWait) {
  SpeechQueue queue;
  for (const char* text : {"one", "two", "one"}) queue.Add(text, SpeechKind::kAlarm, 0);
  EXPECT_EQ(TakeAll(queue), (Lines{"one", "two", "one"}));
}

TEST(SpeechQueue, ClearEmptiesAllKinds) {
  SpeechQueue queue;
  queue.Add("a", SpeechKind::kAnnouncement, 0);
  queue.Add("b", SpeechKind::kSentence, 0);
  queue.Add("c", SpeechKind::kPositionReport, 0);
  queue.Clear();
  EXPECT_TRUE(queue.IsEmpty());
  EXPECT_EQ(queue.Take(0), std::nullopt);
}

}  // namespace
}  // namespace kestrava::platform
