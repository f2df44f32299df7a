// Message boxes that are answered by a script. A message or question that the script does not hold fails the test, and
// so does a scripted one that nobody asked for.
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Messages.h"

namespace kestrava::testing {

class ScriptedMessages : public platform::Messages {
 public:
  void Show(std::string_view text, std::string_view title, platform::MessageIcon icon) override;
  bool AskYesNo(std::string_view text, std::string_view title) override;
  platform::Unstored AskUnstored(std::string_view text, std::string_view title) override;

  /// The next message holds this text. @param meanwhile  runs while the message stands
  void ExpectMessage(std::string_view part, std::function<void()> meanwhile = {});
  /// The next message is a question that holds this text, and gets this answer. @param meanwhile  runs while it stands
  void ExpectQuestion(std::string_view part, bool answer, std::function<void()> meanwhile = {});

  /// The next message is a question for what was typed and not stored, and gets this answer.
  void ExpectUnstored(std::string_view part, platform::Unstored answer);

  /// Texts of all messages and questions so far, whole.
  const std::vector<std::string>& Texts() const { return texts_; }
  const std::vector<std::string>& Titles() const { return titles_; }
  /// Signs of all messages so far; a question has none.
  const std::vector<platform::MessageIcon>& Icons() const { return icons_; }

  /// Fails the test for scripted answers that nobody asked for. The house calls it at its end.
  void CheckAllAsked();

 private:
  struct Scripted {
    std::string part;
    bool isQuestion = false;
    bool answer = false;
    std::function<void()> meanwhile;
    platform::Unstored unstored = platform::Unstored::kStay;
  };

  bool Answer(std::string_view text, std::string_view title, bool isQuestion);

  std::deque<Scripted> script_;
  platform::Unstored unstored_ = platform::Unstored::kStay;  ///< the answer given last
  std::vector<std::string> texts_;
  std::vector<std::string> titles_;
  std::vector<platform::MessageIcon> icons_;
};

}  // namespace kestrava::testing
