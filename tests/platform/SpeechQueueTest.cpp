#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/SpeechQueue.h"

namespace kestrava::platform {
namespace {

using Lines = std::vector<std::string>;

Lines TakeAll(SpeechQueue& queue) {
  Lines texts;
  while (auto text = queue.Take()) texts.push_back(*text);
  return texts;
}

TEST(SpeechQueue, SentencesComeInTheOrderInWhichTheyWereSaid) {
  SpeechQueue queue;
  queue.Add("one", SpeechKind::kSentence);
  queue.Add("two", SpeechKind::kAnnouncement);
  queue.Add("one", SpeechKind::kSentence);
  EXPECT_EQ(TakeAll(queue), (Lines{"one", "two", "one"}));
  EXPECT_TRUE(queue.IsEmpty());
}

TEST(SpeechQueue, FiveHundredSentencesAreQueuedWhole) {
  SpeechQueue queue;
  for (int i = 1; i <= 500; ++i) queue.Add(std::to_string(i), SpeechKind::kSentence);
  EXPECT_EQ(queue.Size(), 500u);
  const Lines texts = TakeAll(queue);
  EXPECT_EQ(texts.front(), "1");
  EXPECT_EQ(texts.back(), "500");
}

TEST(SpeechQueue, AWaitingPositionReportIsReplacedByItsSuccessorInItsPlace) {
  SpeechQueue queue;
  queue.Add("before", SpeechKind::kSentence);
  queue.Add("Heading 10, Elevation 5", SpeechKind::kPositionReport);
  queue.Add("behind", SpeechKind::kSentence);
  queue.Add("Heading 11, Elevation 6", SpeechKind::kPositionReport);
  queue.Add("Heading 12, Elevation 7", SpeechKind::kPositionReport);
  EXPECT_EQ(TakeAll(queue), (Lines{"before", "Heading 12, Elevation 7", "behind"}));
}

TEST(SpeechQueue, APositionReportThatWasTakenIsNotReplaced) {
  SpeechQueue queue;
  queue.Add("Heading 10, Elevation 5", SpeechKind::kPositionReport);
  EXPECT_EQ(queue.Take(), "Heading 10, Elevation 5");
  queue.Add("Heading 11, Elevation 6", SpeechKind::kPositionReport);
  EXPECT_EQ(TakeAll(queue), (Lines{"Heading 11, Elevation 6"}));
}

TEST(SpeechQueue, ANewAnnouncementDropsWhatIsLeftOfTheOldOneOnly) {
  SpeechQueue queue;
  queue.Add("old 1", SpeechKind::kAnnouncement);
  queue.Add("alarm", SpeechKind::kSentence);
  queue.Add("old 2", SpeechKind::kAnnouncement);
  queue.Add("report", SpeechKind::kPositionReport);
  queue.BeginAnnouncement();
  queue.Add("new 1", SpeechKind::kAnnouncement);
  EXPECT_EQ(TakeAll(queue), (Lines{"alarm", "report", "new 1"}));
}

TEST(SpeechQueue, ClearEmptiesAllKinds) {
  SpeechQueue queue;
  queue.Add("a", SpeechKind::kAnnouncement);
  queue.Add("b", SpeechKind::kSentence);
  queue.Add("c", SpeechKind::kPositionReport);
  queue.Clear();
  EXPECT_TRUE(queue.IsEmpty());
  EXPECT_EQ(queue.Take(), std::nullopt);
}

}  // namespace
}  // namespace kestrava::platform
