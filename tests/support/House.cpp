#include "support/House.h"

#include <utility>

#include "orbit/Tables.h"
#include "platform/FaultLog.h"
#include "platform/SharedFiles.h"
#include "platform/TextFile.h"

namespace kestrava::testing {

platform::Doors ScriptedHouse::AllDoors() {
  platform::Doors doors;
  doors.clock = &clock;
  doors.stopwatch = &clock;
  doors.locale = &locale;
  doors.settings = &settings;
  doors.files = &files;
  doors.eventLoop = &eventLoop;
  doors.messages = &messages;
  doors.opener = &opener;
  doors.random = &random;
  doors.speech = &speech;
  doors.windows = windows.get();
  doors.fileChooser = &fileChooser;
  doors.printing = &printing;
  return doors;
}

ScriptedHouse::ScriptedHouse() : earlierAppDir_(std::exchange(platform::AppDir, "/house/")) {
  static const orbit::Tables fresh;
  orbit::TheTables() = fresh;
  platform::EndFaultLog();
  platform::FlushHeldFaults();  // an earlier test's: into a folder that is not there yet
  files.MakeFolder("/house");
  platform::ForgetToldFaults();
  platform::ForgetSharedFiles();
  platform::ObserveFaults([this](std::string_view message, std::string_view trapName) {
    faults_.push_back(std::string(message) + " - " + std::string(trapName));
  });
}

ScriptedHouse::~ScriptedHouse() {
  windows.reset();
  eventLoop.RunEvent([] {});  // objects that waited for the end of their event
  messages.CheckAllAsked();
  fileChooser.CheckAllAsked();
  printing.CheckAllAsked();
  for (const std::string& fault : faults_) ADD_FAILURE() << "a fault was trapped: " << fault;
  platform::ObserveFaults({});
  platform::AppDir = earlierAppDir_;
}

std::vector<std::string> ScriptedHouse::TakeFaults() {
  return std::exchange(faults_, {});
}

std::vector<std::string> ScriptedHouse::ErrorLog() {
  return platform::SplitLines(files.Content(platform::InAppDir("error.log")));
}

void ScriptedHouse::Put(std::string_view name, std::string_view content) {
  files.Put(platform::InAppDir(name), content);
}

std::string ScriptedHouse::Content(std::string_view name) {
  return files.Content(platform::InAppDir(name));
}

}  // namespace kestrava::testing
