// The small scripted doors: opener, random numbers, speech, locale.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/Fault.h"
#include "platform/MachineLocale.h"
#include "platform/Opener.h"
#include "platform/Random.h"
#include "platform/Speech.h"

namespace kestrava::testing {

/// Remembers what was opened and run. A machine without handlers answers false.
class RecordingOpener : public platform::Opener {
 public:
  bool Open(std::string_view target) override {
    opened.emplace_back(target);
    return canOpen;
  }
  bool Run(const std::string& program, const std::vector<std::string>& arguments) override {
    std::string line = program;
    for (const std::string& argument : arguments) line += " " + argument;
    run.push_back(line);
    return canRun;
  }

  std::vector<std::string> opened;
  std::vector<std::string> run;  // program and arguments with blanks between
  bool canOpen = true;
  bool canRun = true;
};

/// Gives the same numbers over and over: 0.5, unless told otherwise.
class FixedRandom : public platform::Random {
 public:
  double Next() override { return numbers_[next_++ % numbers_.size()]; }
  void Set(std::vector<double> numbers) {
    numbers_ = std::move(numbers);
    next_ = 0;
  }

 private:
  std::vector<double> numbers_{0.5};
  std::size_t next_ = 0;
};

class RecordingSpeech : public platform::SpeechEngine {
 public:
  void Speak(std::string_view text, platform::SpeechKind kind) override {
    Check();
    said.emplace_back(text);
    kinds.push_back(kind);
  }
  void BeginAnnouncement() override {
    Check();
    ++announcements;
  }
  void Stop() override {
    Check();
    ++stops;
  }
  void SetSpeed(double wordsPerMinute) override {
    Check();
    speed = wordsPerMinute;
  }
  std::vector<std::string> Voices() const override {
    ++voiceQuestions;
    return voices;
  }
  void SelectVoice(int index) override {
    Check();
    if (index < 1 || index > static_cast<int>(voices.size())) throw platform::Fault::SubscriptOutOfRange();
    voice = index;
  }

  std::string State() const override { return "recording"; }
  void Prepare() override {
    Check();
    ++preparations;
  }
  platform::SpeechCondition Condition() const override { return condition; }

  platform::SpeechCondition condition;
  int preparations = 0;
  std::vector<std::string> said;
  std::vector<platform::SpeechKind> kinds;  // one for each text said
  int announcements = 0;
  int stops = 0;
  double speed = 0;
  int voice = 0;
  mutable int voiceQuestions = 0;
  std::vector<std::string> voices{"English", "Scottish"};
  std::optional<platform::Fault> broken;  // every call fails with it

 private:
  void Check() const {
    if (broken) throw *broken;
  }
};

/// A machine's way of writing that a test chooses: a point machine unless told otherwise.
class FixedLocale : public platform::MachineLocale {
 public:
  std::string DecimalSign() const override { return decimalSign; }
  std::string GroupSign() const override { return groupSign; }
  std::string DateText(platform::SerialDate local) const override;
  std::string TimeText(platform::SerialDate local) const override;

  void UsePoint() { decimalSign = ".", groupSign = ","; }
  void UseComma() { decimalSign = ",", groupSign = "."; }

  std::string decimalSign = ".";
  std::string groupSign = ",";
};

}  // namespace kestrava::testing
