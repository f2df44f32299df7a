#include "shell/SystemReport.h"

#include "platform/Doors.h"
#include "platform/Files.h"

namespace kestrava::shell {

std::string ReportText(const SystemReport& report) {
  std::string text;
  for (const ReportPage& page : report.pages) {
    if (!text.empty()) text += "\n";
    text += page.title + "\n";
    for (const auto& [label, value] : page.lines) text += "  " + label + ": " + value + "\n";
  }
  return text;
}

int PageIndex(const SystemReport& report, std::string_view name) {
  for (std::size_t i = 0; i < report.pages.size(); ++i) {
    if (report.pages[i].name == name) return static_cast<int>(i);
  }
  return 0;
}

ReportPage FoldersPage(std::string_view settingsFile, std::string_view shippedFolder) {
  return {"folders",
          "Folders",
          {{"Data folder", platform::AppDir},
           {"Settings", std::string(settingsFile)},
           {"Error log", platform::InAppDir("error.log").string()},
           {"Shipped files", std::string(shippedFolder)}}};
}

ReportPage SoundPage() {
  const bool wanted = platform::ReadSetting("Speechpack", "0") != "0";
  const platform::SpeechEngine& speech = platform::TheSpeech();
  // To count the voices makes the engine: not while nobody wants it.
  const std::string voices = wanted ? std::to_string(speech.Voices().size()) : "not counted while speech is off";
  return {"sound", "Sound", {{"Speech", wanted ? "on" : "off"}, {"Voices", voices}, {"Speech engine", speech.State()}}};
}

}  // namespace kestrava::shell
