// Linked to the program's own sources: says how each of its starts finds the process, and once, when the launcher has
// come up for the first time, asks it to start anew.
#include <QApplication>
#include <QEvent>
#include <QObject>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include <unistd.h>

#include "platform/Doors.h"
#include "station/Hub.h"

namespace kestrava::app {
namespace {

namespace fs = std::filesystem;

std::string Content(const char* file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

/// The numbers of all open files, but for the one of the question itself.
std::string OpenFiles() {
  std::vector<std::string> numbers;
  for (const auto& entry : fs::directory_iterator("/proc/self/fd")) numbers.push_back(entry.path().filename());
  std::sort(numbers.begin(), numbers.end());
  std::string all;
  for (const std::string& number : numbers) all += number + " ";
  return all;
}

std::string SignalLine(const std::string& key) {
  std::istringstream status(Content("/proc/self/status"));
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(key)) return line.substr(key.size());
  }
  return {};
}

/// Before main: as the system hands the process over.
const bool said = [] {
  std::string arguments = Content("/proc/self/cmdline");
  std::replace(arguments.begin(), arguments.end(), '\0', ' ');
  const char* home = std::getenv("XDG_CONFIG_HOME");
  std::printf(
      "start: process %d, program %s, arguments %s, folder %s, settings %s, ignores %s, holds back %s, open %s\n",
      ::getpid(), Content("/proc/self/comm").substr(0, 15).c_str(), arguments.c_str(), fs::current_path().c_str(),
      home ? home : "", SignalLine("SigIgn:\t").c_str(), SignalLine("SigBlk:\t").c_str(), OpenFiles().c_str());
  return std::fflush(stdout) == 0;
}();

class OnceAsker : public QObject {
 public:
  using QObject::QObject;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() == QEvent::WindowActivate && watched->objectName() == "frmLAUNCHER") LauncherHasCome();
    return false;
  }

 private:
  /// Its work waits until the activation is over.
  static void LauncherHasCome() {
    const fs::path asked = fs::path(std::getenv("XDG_RUNTIME_DIR")) / "asked";
    if (fs::exists(asked)) {
      std::puts("the launcher stands again");
      std::fflush(stdout);
    } else {
      std::ofstream(asked) << "once";
      platform::TheEventLoop().Later([] { station::TheHub().StartAnew(); });
    }
  }
};

void WatchForTheLauncher() {
  qApp->installEventFilter(new OnceAsker(qApp));
}
Q_COREAPP_STARTUP_FUNCTION(WatchForTheLauncher)

}  // namespace
}  // namespace kestrava::app
