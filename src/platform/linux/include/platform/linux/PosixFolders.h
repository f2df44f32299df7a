// Folders on Linux, held by a lock of the kernel: it ends with the process, whatever ends that, and no number of a
// process that is used again can be taken for it.
#pragma once

#include "platform/Folders.h"

namespace kestrava::platform {

class PosixFolders : public Folders {
 public:
  using Path = std::filesystem::path;

  std::vector<std::string> List(const Path& parent) override;
  bool Make(const Path& folder) override;
  void Remove(const Path& folder) override;
  std::unique_ptr<FolderHold> TryHold(const Path& folder) override;
  std::unique_ptr<FolderHold> Hold(const Path& folder) override;
};

}  // namespace kestrava::platform
