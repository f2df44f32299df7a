// Save dialogs and printers that are worked by a script. A dialog that the script does not hold fails the test, and so
// does a scripted one that nobody opened.
#pragma once

#include <deque>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/FileChooser.h"
#include "platform/Printing.h"

namespace kestrava::testing {

class ScriptedFileChooser : public platform::FileChooser {
 public:
  std::optional<std::filesystem::path> ChooseSaveFile(std::string_view title,
                                                      const std::filesystem::path& suggested) override;
  std::filesystem::path DocumentsFolder() override { return "/documents"; }

  /// The next save dialog gives this file, or is cancelled by nothing. @param meanwhile  runs while it stands
  void ExpectSave(std::optional<std::filesystem::path> file, std::function<void()> meanwhile = {});
  void CheckAllAsked();

  std::vector<std::string> titles;                 // of all dialogs so far
  std::vector<std::filesystem::path> suggestions;  // where they stood at first

 private:
  struct Scripted {
    std::optional<std::filesystem::path> file;
    std::function<void()> meanwhile;
  };
  std::deque<Scripted> script_;
};

/// A printer that keeps what it is given.
class ScriptedPrinting : public platform::Printing {
 public:
  bool OpenDialog(const std::string& title) override;
  bool Print(const platform::PrintDocument& document) override;

  /// The printer dialog is going to be opened. @param meanwhile  runs while it stands
  void ExpectDialog(std::function<void()> meanwhile = {});
  void CheckAllAsked();

  std::vector<platform::PrintDocument> printed;
  bool hasPrinter = true;
  bool isChosen = true;  ///< false: the dialogs are cancelled

 private:
  std::deque<std::function<void()>> script_;
};

}  // namespace kestrava::testing
