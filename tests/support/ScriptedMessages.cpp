#include "support/ScriptedMessages.h"

#include <utility>

#include <gtest/gtest.h>

#include "platform/Text.h"

namespace kestrava::testing {

void ScriptedMessages::Show(std::string_view text, std::string_view title, platform::MessageIcon icon) {
  icons_.push_back(icon);
  Answer(text, title, false);
}

bool ScriptedMessages::AskYesNo(std::string_view text, std::string_view title) {
  return Answer(text, title, true);
}

platform::Unstored ScriptedMessages::AskUnstored(std::string_view text, std::string_view title) {
  unstored_ = platform::Unstored::kStay;
  Answer(text, title, true);
  return unstored_;
}

void ScriptedMessages::ExpectUnstored(std::string_view part, platform::Unstored answer) {
  script_.push_back({std::string(part), true, false, {}, answer});
}

void ScriptedMessages::ExpectMessage(std::string_view part, std::function<void()> meanwhile) {
  script_.push_back({std::string(part), false, false, std::move(meanwhile), platform::Unstored::kStay});
}

void ScriptedMessages::ExpectQuestion(std::string_view part, bool answer, std::function<void()> meanwhile) {
  script_.push_back({std::string(part), true, answer, std::move(meanwhile), platform::Unstored::kStay});
}

void ScriptedMessages::CheckAllAsked() {
  for (const Scripted& scripted : script_) ADD_FAILURE() << "never shown: \"" << scripted.part << "\"";
  script_.clear();
}

bool ScriptedMessages::Answer(std::string_view text, std::string_view title, bool isQuestion) {
  texts_.emplace_back(text);
  titles_.emplace_back(title);
  const char* kind = isQuestion ? "question" : "message";
  if (script_.empty()) {
    ADD_FAILURE() << "unexpected " << kind << ": \"" << text << "\"";
    return false;
  }
  const Scripted scripted = std::exchange(script_.front(), {});
  script_.pop_front();
  if (scripted.isQuestion != isQuestion || !platform::Contains(text, scripted.part)) {
    ADD_FAILURE() << "expected a " << (scripted.isQuestion ? "question" : "message") << " with \"" << scripted.part
                  << "\" but got the " << kind << " \"" << text << "\"";
  }
  unstored_ = scripted.unstored;
  if (scripted.meanwhile) scripted.meanwhile();
  return scripted.answer;
}

}  // namespace kestrava::testing
