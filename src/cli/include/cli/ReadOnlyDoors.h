// Doors through which a command reads what the windows read and changes nothing: writes stay in memory, and are read
// back from there, so that loaders which put their file in order and settings that are made by their first read work as
// they always do.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/EventLoop.h"
#include "platform/Files.h"
#include "platform/Settings.h"
#include "platform/SettingsText.h"

namespace kestrava::cli {

/// Files of another door, with all changes kept in memory.
class UnchangedFiles : public platform::Files {
 public:
  using Path = std::filesystem::path;

  /// @param real  outlives this object; only ever read from
  explicit UnchangedFiles(platform::Files& real) : real_(real) {}

  bool Exists(const Path& file) override;
  std::string Read(const Path& file) override;
  void Replace(const Path& file, std::string_view content) override;
  void Append(const Path& file, std::string_view content) override;
  void Remove(const Path& file) override;
  void Rename(const Path& from, const Path& to) override;
  void Copy(const Path& from, const Path& to) override;
  std::uintmax_t Size(const Path& file) override;
  platform::SerialDate ModifiedLocal(const Path& file) override;
  void SetModifiedUtc(const Path& file, platform::SerialDate utc) override;
  std::vector<std::string> List(const Path& folder) override;
  bool FolderExists(const Path& folder) override;
  bool FolderIsEmpty(const Path& folder) override;
  void MakeFolder(const Path& folder) override;
  std::vector<Path> RemovableMedia() override { return {}; }

 private:
  struct Change {
    Path file;
    std::optional<std::string> content;  ///< none: removed
  };
  const Change* ChangeOf(const Path& file) const;
  void Note(const Path& file, std::optional<std::string> content);

  platform::Files& real_;
  std::map<std::string, Change> changes_;  ///< by the path in capitals, as names are matched without regard to case
  std::set<std::string> folders_;          ///< made, by the path in capitals
};

/// Settings read once; what is set stays in memory.
class UnchangedSettings : public platform::SettingsStore {
 public:
  explicit UnchangedSettings(platform::SettingsMap settings) : settings_(std::move(settings)) {}

  std::string Get(std::string_view key) override;
  void Set(std::string_view key, std::string_view value) override;

 private:
  platform::SettingsMap settings_;
};

/// A program without windows has no events: a yield passes, a timer never ticks, and later never comes.
class NoEvents : public platform::EventLoop {
 public:
  void ProcessEvents() override {}
  std::unique_ptr<platform::Timer> MakeTimer(int intervalMs, std::function<void()> tick) override;
  void Later(std::function<void()> work) override;
  void Quit(int exitCode) override;
};

}  // namespace kestrava::cli
