// A small window that shows a page or a text file, for machines without a program for it.
#pragma once

#include <filesystem>
#include <string_view>

#include "platform/qt/StationWindow.h"

class QTextBrowser;

namespace kestrava::platform::qt {

class TextViewer : public StationWindow {
  Q_OBJECT

 public:
  static constexpr std::string_view kName = "frmViewer";

  TextViewer();
  /// The tag is the path of the file to show.
  void SetTag(std::string_view tag) override;
  /// @return false if the file could not be read; the window then says so
  bool ShowFile(const std::filesystem::path& file);

 private:
  QTextBrowser* text_;
};

}  // namespace kestrava::platform::qt
