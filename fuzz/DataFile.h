// The doors of a target whose parser reads a file of the user: one data file in memory, its backups and logs, a clock
// that stands still, a machine that writes points or commas.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "platform/Doors.h"
#include "platform/Fault.h"

namespace kestrava::fuzz {

class MapFiles : public platform::Files {
 public:
  using Path = std::filesystem::path;

  bool Exists(const Path& file) override { return contents.contains(file.string()); }
  std::string Read(const Path& file) override {
    if (!Exists(file)) throw platform::Fault::FileNotFound();
    return contents[file.string()];
  }
  void Replace(const Path& file, std::string_view content) override { contents[file.string()] = content; }
  void Append(const Path& file, std::string_view content) override { contents[file.string()] += content; }
  void Remove(const Path& file) override { contents.erase(file.string()); }
  void Rename(const Path& from, const Path& to) override {
    contents[to.string()] = contents.extract(from.string()).mapped();
  }
  void Copy(const Path& from, const Path& to) override { contents[to.string()] = Read(from); }
  std::uintmax_t Size(const Path& file) override { return contents[file.string()].size(); }
  platform::SerialDate ModifiedLocal(const Path&) override { return 45000; }
  void SetModifiedUtc(const Path&, platform::SerialDate) override {}
  std::vector<std::string> List(const Path&) override { return {}; }
  bool FolderExists(const Path&) override { return true; }
  void MakeFolder(const Path&) override {}
  std::vector<Path> RemovableMedia() override { return {}; }

  std::map<std::string, std::string> contents;
};

class StillClock : public platform::Clock {
 public:
  platform::ClockReading Read() override { return {45000, 45000}; }
};

class ChosenLocale : public platform::MachineLocale {
 public:
  std::string DecimalSign() const override { return comma ? "," : "."; }
  std::string GroupSign() const override { return comma ? "." : ","; }
  std::string DateText(platform::SerialDate) const override { return {}; }
  std::string TimeText(platform::SerialDate) const override { return {}; }
  bool comma = false;
};

/// A machine with one data file.
class DataFile {
 public:
  DataFile(std::string name, std::string_view content) : path_("/data/" + std::move(name)) {
    platform::AppDir = "/data/";
    platform::Doors doors;
    doors.files = &files;
    doors.clock = &clock_;
    doors.locale = &locale;
    scope_ = std::make_unique<platform::ScopedDoors>(doors);
    files.contents[path_] = content;
  }
  const std::string& Content() { return files.contents[path_]; }

  MapFiles files;
  ChosenLocale locale;

 private:
  std::string path_;
  StillClock clock_;
  std::unique_ptr<platform::ScopedDoors> scope_;
};

/// Runs what may throw a fault and nothing else. @return false if it did
template <class Work>
bool Survives(Work&& work) {
  try {
    work();
    return true;
  } catch (const platform::Fault&) {
    return false;
  }
}

}  // namespace kestrava::fuzz
