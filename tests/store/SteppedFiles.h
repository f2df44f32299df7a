// Files whose every operation is a step at which a test may let something else happen: another start, or a kill.
#pragma once

#include <functional>

#include "support/MemoryFiles.h"

namespace kestrava::store {

class SteppedFiles : public platform::Files {
 public:
  using Path = std::filesystem::path;

  explicit SteppedFiles(platform::Files& files) : files_(files) {}

  bool Exists(const Path& file) override { return Stepped().Exists(file); }
  std::string Read(const Path& file) override { return Stepped().Read(file); }
  void Replace(const Path& file, std::string_view content) override { Stepped().Replace(file, content); }
  void Append(const Path& file, std::string_view content) override { Stepped().Append(file, content); }
  void Remove(const Path& file) override { Stepped().Remove(file); }
  void Rename(const Path& from, const Path& to) override { Stepped().Rename(from, to); }
  void Copy(const Path& from, const Path& to) override { Stepped().Copy(from, to); }
  std::uintmax_t Size(const Path& file) override { return Stepped().Size(file); }
  platform::SerialDate ModifiedLocal(const Path& file) override { return Stepped().ModifiedLocal(file); }
  void SetModifiedUtc(const Path& file, platform::SerialDate utc) override { Stepped().SetModifiedUtc(file, utc); }
  std::vector<std::string> List(const Path& folder) override { return Stepped().List(folder); }
  bool FolderExists(const Path& folder) override { return Stepped().FolderExists(folder); }
  bool FolderIsEmpty(const Path& folder) override { return Stepped().FolderIsEmpty(folder); }
  void MakeFolder(const Path& folder) override { Stepped().MakeFolder(folder); }
  std::vector<Path> RemovableMedia() override { return Stepped().RemovableMedia(); }

  std::function<void()> beforeEach = [] {};

 private:
  platform::Files& Stepped() {
    beforeEach();
    return files_;
  }

  platform::Files& files_;
};

}  // namespace kestrava::store
