// A house whose data folder lies on the real disk and is shared with other copies of the station, which run in
// processes of their own.
#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "orbit/Tables.h"
#include "platform/Files.h"
#include "platform/SharedFiles.h"
#include "platform/linux/PosixFiles.h"
#include "platform/linux/PosixFolders.h"

#include "support/House.h"
#include "support/TempFolder.h"

namespace kestrava::testing {

class SharedFolder : public House {
 protected:
  SharedFolder() : earlier_(std::exchange(platform::AppDir, temp_.Path().string() + "/")), doors_(Doors()) {
    platform::UseFolderLocks(&folders_);
  }
  ~SharedFolder() override { platform::AppDir = earlier_; }

  void Write(const std::string& file, const std::string& content) {
    std::ofstream(temp_ / file, std::ios::binary) << content;
  }
  std::string Read(const std::string& file) const {
    std::ifstream stream(temp_ / file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  bool IsThere(const std::string& file) const { return std::filesystem::exists(temp_ / file); }
  std::set<std::string> Names() const {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(temp_.Path())) {
      names.insert(entry.path().filename().string());
    }
    return names;
  }
  static std::string Lines(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) text += line + "\n";
    return text;
  }

  /// Another copy of the station, which knows nothing of what this one has read. @return its process
  static pid_t Start(const std::function<void()>& work) {
    const pid_t process = ::fork();
    if (process != 0) return process;
    int result = 1;
    try {
      work();
      result = 0;
    } catch (const std::exception&) {
    }
    ::_exit(result);
  }
  static bool EndsWell(pid_t process) {
    int status = 0;
    return ::waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
  }
  static bool InAnotherCopy(const std::function<void()>& work) { return EndsWell(Start(work)); }

  orbit::Tables tables;

 private:
  platform::Doors Doors() {
    platform::Doors doors = platform::TheDoors();
    doors.files = &disk_;
    return doors;
  }

  TempFolder temp_;
  platform::PosixFiles disk_;
  platform::PosixFolders folders_;
  std::string earlier_;
  platform::ScopedDoors doors_;
};

}  // namespace kestrava::testing
