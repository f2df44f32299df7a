// Speech: the engine door, and the one gate through which everything is said.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kestrava::platform {

/// How long a text is worth saying. Whatever has begun is said to its end, except where Stop is called.
enum class SpeechKind {
  kSentence,        ///< waits its turn, and none is lost
  kPositionReport,  ///< of no use once it is old: its successor takes its place while it waits
  kAnnouncement,    ///< one sentence of a full announcement: the next announcement empties what is left of this one
  kSelection,       ///< takes the place of one that still waits; the one said last is not said again within a minute
  kAlarm,           ///< of a rise to come, by minutes: wrong after half a minute of waiting, and then left out
};

/// Whether what is said would be heard, as far as that is known by now.
struct SpeechCondition {
  enum class Stage {
    kNotUsed,   ///< nobody has needed the engine yet
    kStarting,  ///< it is being made
    kNoEngine,  ///< it could not be made
    kUntried,   ///< it is there; whether anybody hears it shows when a sound server has answered
    kNoSound,   ///< no sound server takes what it says
    kHeard,
  };
  Stage stage = Stage::kHeard;
  std::string why;  ///< of kNoEngine and kNoSound
};

class SpeechEngine {
 public:
  virtual ~SpeechEngine() = default;
  /// Queues a text and returns at once.
  virtual void Speak(std::string_view text, SpeechKind kind) = 0;
  /// A full announcement begins: what still waits of an earlier one is dropped.
  virtual void BeginAnnouncement() = 0;
  /// Falls silent at once and empties the queue.
  virtual void Stop() = 0;
  /// @param wordsPerMinute  beyond what the engine can, its nearest
  virtual void SetSpeed(double wordsPerMinute) = 0;
  /// Names of the voices, English ones first.
  virtual std::vector<std::string> Voices() const = 0;
  /// @param index  1-based. @throws Fault if there is no such voice
  virtual void SelectVoice(int index) = 0;
  /// One short line for System information: what engine there is, and whether it is heard.
  virtual std::string State() const = 0;
  /// Begins to make the engine, anew where that had failed, and to look for a sound server, without a word. Returns at
  /// once: Condition tells what came of it.
  virtual void Prepare() {}
  virtual SpeechCondition Condition() const { return {}; }
};

/// The engine of a station without a voice.
class SilentSpeech : public SpeechEngine {
 public:
  void Speak(std::string_view, SpeechKind) override {}
  void BeginAnnouncement() override {}
  void Stop() override {}
  void SetSpeed(double) override {}
  std::vector<std::string> Voices() const override { return {}; }
  void SelectVoice(int) override {}
  std::string State() const override { return "none"; }
  SpeechCondition Condition() const override {
    return {SpeechCondition::Stage::kNoEngine, "this station has no speech engine"};
  }
};

/// Says a text if the setting Speechpack is not "0". A fault of the engine is dropped without a word.
/// @param wait  has no effect; callers give what they always gave
void SayText(std::string_view text, bool wait = true, SpeechKind kind = SpeechKind::kSentence);

/// Before the first sentence of a full announcement; under the same gate as SayText.
void BeginAnnouncement();

/// The user's "be quiet": under the same gate, so that a station without speech never touches the engine.
void StopSpeaking();

}  // namespace kestrava::platform
