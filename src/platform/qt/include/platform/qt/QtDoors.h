// The doors that the toolkit gives: message boxes, the save dialog, opening of documents and programs, the machine's
// locale.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/FileChooser.h"
#include "platform/MachineLocale.h"
#include "platform/Messages.h"
#include "platform/Opener.h"

namespace kestrava::platform::qt {

class QtMessages : public Messages {
 public:
  void Show(std::string_view text, std::string_view title = kProgramTitle,
            MessageIcon icon = MessageIcon::kInformation) override;
  bool AskYesNo(std::string_view text, std::string_view title = kProgramTitle) override;
  Unstored AskUnstored(std::string_view text, std::string_view title = kProgramTitle) override;
  /// From now on a message goes to the error stream, and a question is answered with No or Stay: the run is ending, and
  /// no box is to hold it up.
  void GoSilent() { silent_ = true; }

 private:
  bool silent_ = false;
};

class QtFileChooser : public FileChooser {
 public:
  std::optional<std::filesystem::path> ChooseSaveFile(std::string_view title,
                                                      const std::filesystem::path& suggested) override;
  std::filesystem::path DocumentsFolder() override;
};

class QtOpener : public Opener {
 public:
  /// Asks the desktop's own tools whether there is a handler, for two seconds at most.
  bool Open(std::string_view target) override;
  bool Run(const std::string& program, const std::vector<std::string>& arguments) override;
};

class QtLocale : public MachineLocale {
 public:
  std::string DecimalSign() const override;
  std::string GroupSign() const override;
  std::string DateText(SerialDate local) const override;
  std::string TimeText(SerialDate local) const override;
};

}  // namespace kestrava::platform::qt
