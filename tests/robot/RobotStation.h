// A whole station for the robot: every window of the program over scripted doors, the files of the tests' station in
// memory, and a simulated clock. Messages are answered at random and remembered; faults are remembered.
#pragma once

#include <functional>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileChooser.h"
#include "platform/Messages.h"
#include "platform/Printing.h"
#include "platform/Speech.h"

#include "support/House.h"

namespace kestrava::robot {

/// The simulated loop, which lets the toolkit's own events through at each yield.
class PumpingLoop : public testing::SimulatedEventLoop {
 public:
  using testing::SimulatedEventLoop::SimulatedEventLoop;
  void ProcessEvents() override;
};

/// Answers every question and remembers every text.
class AnsweringMessages : public platform::Messages {
 public:
  void Show(std::string_view text, std::string_view title, platform::MessageIcon icon) override;
  bool AskYesNo(std::string_view text, std::string_view title) override;
  platform::Unstored AskUnstored(std::string_view text, std::string_view title) override;
  std::vector<std::string> texts;

 private:
  int unstoredAsked_ = 0;
  std::mt19937 random_{7};
};

/// Cancels every second save dialog, and saves in the others.
class AnsweringFileChooser : public platform::FileChooser {
 public:
  std::optional<std::filesystem::path> ChooseSaveFile(std::string_view title,
                                                      const std::filesystem::path& suggested) override;
  std::filesystem::path DocumentsFolder() override { return "/documents"; }

 private:
  int asked_ = 0;
};

/// Has a printer at every second try.
class AnsweringPrinting : public platform::Printing {
 public:
  bool OpenDialog(const std::string&) override { return true; }
  bool Print(const platform::PrintDocument&) override { return ++asked_ % 2 == 0; }

 private:
  int asked_ = 0;
};

class RobotStation {
 public:
  using SpeechMaker = std::function<std::unique_ptr<platform::SpeechEngine>()>;

  /// @param makeSpeech  the launcher's voice; none: a silent one
  explicit RobotStation(SpeechMaker makeSpeech = {});
  ~RobotStation();

  /// Shows the splash and lets the launcher come up.
  void Start();
  /// Closes the launcher; everything else goes with it.
  void Close();

  PumpingLoop& Loop() { return loop_; }
  testing::ScriptedHouse& House() { return house_; }
  platform::Windows& Windows() { return *house_.windows; }
  const std::vector<std::string>& Messages() const { return messages_.texts; }
  std::vector<std::string> TakeFaults() { return house_.TakeFaults(); }

 private:
  testing::ScriptedHouse house_;
  PumpingLoop loop_{house_.clock};
  AnsweringMessages messages_;
  AnsweringFileChooser fileChooser_;
  AnsweringPrinting printing_;
};

}  // namespace kestrava::robot
