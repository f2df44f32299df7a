#include "platform/SharedFiles.h"

#include <map>
#include <utility>

#include "platform/Fault.h"
#include "platform/Files.h"

namespace kestrava::platform {

namespace {

Folders*& Locks() {
  static Folders* locks = nullptr;
  return locks;
}

std::map<std::string, KnownFile>& KnownFiles() {
  static std::map<std::string, KnownFile> files;
  return files;
}

}  // namespace

void UseFolderLocks(Folders* locks) {
  Locks() = locks;
}

std::unique_ptr<FolderHold> HoldAppDir() {
  if (!Locks()) return nullptr;
  try {
    return Locks()->Hold(AppDir);
  } catch (const Fault&) {
    return nullptr;  // there the last writer wins, by a few milliseconds
  }
}

std::optional<KnownFile> LastKnown(std::string_view fileName) {
  const auto found = KnownFiles().find(InAppDir(fileName).string());
  if (found == KnownFiles().end()) return std::nullopt;
  return found->second;
}

void RememberKnown(std::string_view fileName, KnownFile known) {
  KnownFiles().insert_or_assign(InAppDir(fileName).string(), std::move(known));
}

void ForgetSharedFiles() {
  KnownFiles().clear();
  UseFolderLocks(nullptr);
}

}  // namespace kestrava::platform
