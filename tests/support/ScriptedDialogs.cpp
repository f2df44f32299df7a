#include "support/ScriptedDialogs.h"

#include <utility>

#include <gtest/gtest.h>

namespace kestrava::testing {

std::optional<std::filesystem::path> ScriptedFileChooser::ChooseSaveFile(std::string_view title,
                                                                         const std::filesystem::path& suggested) {
  titles.emplace_back(title);
  suggestions.push_back(suggested);
  if (script_.empty()) {
    ADD_FAILURE() << "unexpected save dialog: \"" << title << "\"";
    return std::nullopt;
  }
  const Scripted scripted = std::exchange(script_.front(), {});
  script_.pop_front();
  if (scripted.meanwhile) scripted.meanwhile();
  return scripted.file;
}

void ScriptedFileChooser::ExpectSave(std::optional<std::filesystem::path> file, std::function<void()> meanwhile) {
  script_.push_back({std::move(file), std::move(meanwhile)});
}

void ScriptedFileChooser::CheckAllAsked() {
  for (const Scripted& scripted : script_) {
    ADD_FAILURE() << "no save dialog was opened for \"" << scripted.file.value_or("(cancelled)").string() << "\"";
  }
  script_.clear();
}

bool ScriptedPrinting::OpenDialog(const std::string& title) {
  if (script_.empty()) {
    ADD_FAILURE() << "unexpected printer dialog for \"" << title << "\"";
    return isChosen;
  }
  const std::function<void()> meanwhile = std::exchange(script_.front(), {});
  script_.pop_front();
  if (meanwhile) meanwhile();
  return isChosen;
}

bool ScriptedPrinting::Print(const platform::PrintDocument& document) {
  if (hasPrinter) printed.push_back(document);
  return hasPrinter;
}

void ScriptedPrinting::ExpectDialog(std::function<void()> meanwhile) {
  script_.push_back(std::move(meanwhile));
}

void ScriptedPrinting::CheckAllAsked() {
  for (std::size_t i = 0; i < script_.size(); ++i) ADD_FAILURE() << "no printer dialog was opened";
  script_.clear();
}

}  // namespace kestrava::testing
