// SystemInformation: what a report of a fault needs to know, page by page, with a button that copies all of it.
#pragma once

#include <string>

#include "platform/qt/StationWindow.h"
#include "shell/SystemReport.h"

class QTabWidget;

namespace kestrava::shell::ui {

/// Where the program keeps what, for the page of folders.
struct InformationSources {
  std::string settingsFile;
  std::string shippedFolder;
};

class SystemInformationWindow : public platform::qt::StationWindow {
 public:
  explicit SystemInformationWindow(InformationSources sources);

  /// The tag is the page to show: "graphics".
  void SetTag(std::string_view tag) override;
  void Show() override;

 private:
  void BuildUi();
  void Refresh();
  void CopyAll();

  InformationSources sources_;
  SystemReport report_;
  QTabWidget* pages_ = nullptr;
};

}  // namespace kestrava::shell::ui
