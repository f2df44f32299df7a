// About: what the program is, and the way to the system information.
#pragma once

#include "platform/qt/StationWindow.h"

class QVBoxLayout;

namespace kestrava::shell::ui {

class AboutWindow : public platform::qt::StationWindow {
 public:
  AboutWindow();

 private:
  void BuildUi();
  void BuildTexts(QVBoxLayout& column);
  void BuildButtons(QVBoxLayout& column);
  /// Shows the system information, or says that there is none.
  void StartSysInfo();
};

}  // namespace kestrava::shell::ui
