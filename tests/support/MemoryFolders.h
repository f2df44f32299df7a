// Whole folders in memory, beside MemoryFiles. What is held is held until its object goes, also across a rename.
#pragma once

#include <functional>
#include <set>

#include "platform/Fault.h"
#include "platform/Folders.h"

#include "support/MemoryFiles.h"

namespace kestrava::testing {

class MemoryFolders : public platform::Folders {
 public:
  using Path = std::filesystem::path;

  explicit MemoryFolders(MemoryFiles& files) : files_(files) {}

  std::vector<std::string> List(const Path& parent) override {
    Step();
    std::vector<std::string> names;
    for (const Path& folder : made_) {
      if (folder.parent_path() == parent && files_.FolderExists(folder)) names.push_back(folder.filename().string());
    }
    return names;
  }
  bool Make(const Path& folder) override {
    Step();
    if (files_.FolderExists(folder)) return false;
    files_.MakeFolder(folder);
    made_.insert(folder);
    return true;
  }
  void Remove(const Path& folder) override {
    Step();
    if (!files_.FolderExists(folder)) throw platform::Fault::FileNotFound();
    files_.RemoveFolder(folder);
  }
  std::unique_ptr<platform::FolderHold> TryHold(const Path& folder) override {
    Step();
    if (knowsNoHolds) throw platform::Fault::DeviceError();
    if (!files_.FolderExists(folder) || !held_.insert(folder).second) return nullptr;
    return std::make_unique<Held>(held_, folder);
  }
  std::unique_ptr<platform::FolderHold> Hold(const Path& folder) override {
    if (!files_.FolderExists(folder)) throw platform::Fault::FileNotFound();
    while (true) {
      if (auto hold = TryHold(folder)) return hold;
    }
  }

  std::function<void()> beforeEach = [] {};  // called before each step
  bool knowsNoHolds = false;                 // as some media

 private:
  class Held : public platform::FolderHold {
   public:
    Held(std::set<Path>& all, Path folder) : all_(all), folder_(std::move(folder)) {}
    ~Held() override { all_.erase(folder_); }

   private:
    std::set<Path>& all_;
    Path folder_;
  };

  void Step() { beforeEach(); }

  MemoryFiles& files_;
  std::set<Path> made_;
  std::set<Path> held_;
};

}  // namespace kestrava::testing
