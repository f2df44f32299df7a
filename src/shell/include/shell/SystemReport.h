// What a report of a fault needs to know about the machine, as pages of labelled lines. The window shows them and its
// copy button puts them on the clipboard as text.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kestrava::shell {

struct ReportPage {
  std::string name;   ///< tag by which the page is asked for: "graphics"
  std::string title;  ///< as the user reads it
  std::vector<std::pair<std::string, std::string>> lines;
};

struct SystemReport {
  std::vector<ReportPage> pages;
};

/// The whole report as plain text, one line per fact, a blank line between pages.
std::string ReportText(const SystemReport& report);

/// Index of the page of that name; 0 if there is none.
int PageIndex(const SystemReport& report, std::string_view name);

/// The page of folders and files. @param shippedFolder  where the files that came with the program lie
ReportPage FoldersPage(std::string_view settingsFile, std::string_view shippedFolder);

/// The page of sound and speech.
ReportPage SoundPage();

}  // namespace kestrava::shell
