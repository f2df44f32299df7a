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

void ScriptedMessages::ExpectMessage(std::string_view part, std::function<void()> meanwhile) {
  script_.push_back({std::string(part), false, false, std::move(meanwhile)});
}

void ScriptedMessages::ExpectQuestion(std::string_view part, bool answer, std::function<void()> meanwhile) {
  script_.push_back({std::string(part), true, answer, std::move(meanwhile)});
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
  if (scripted.meanwhile) scripted.meanwhile();
  return scripted.answer;
}

}  // namespace kestrava::testing
