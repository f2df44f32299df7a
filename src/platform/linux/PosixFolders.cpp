#include "platform/linux/PosixFolders.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include "AtomicFile.h"

namespace kestrava::platform {

namespace fs = std::filesystem;

namespace {

class LockedFolder : public FolderHold {
 public:
  explicit LockedFolder(Descriptor folder) : folder_(std::move(folder)) {}

 private:
  Descriptor folder_;  // the lock goes with it
};

/// @return false if another holds it and `operation` does not wait
bool Lock(const Descriptor& folder, int operation) {
  while (::flock(folder.Get(), operation) != 0) {
    if (errno == EWOULDBLOCK) return false;
    if (errno != EINTR) throw FaultOfError(errno);
  }
  return true;
}

/// It may have been renamed or removed between the opening and the lock.
bool StillStandsAt(const Descriptor& folder, const fs::path& path) {
  struct stat held {};
  struct stat there {};
  return ::fstat(folder.Get(), &held) == 0 && ::lstat(path.c_str(), &there) == 0 && held.st_dev == there.st_dev &&
         held.st_ino == there.st_ino;
}

}  // namespace

std::vector<std::string> PosixFolders::List(const Path& parent) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(parent.empty() ? "." : parent, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code unknown;
    if (fs::is_directory(entry->symlink_status(unknown))) names.push_back(entry->path().filename().string());
  }
  std::sort(names.begin(), names.end());
  return names;
}

bool PosixFolders::Make(const Path& folder) {
  if (::mkdir(folder.c_str(), 0777) == 0) return true;
  if (errno == EEXIST) return false;
  throw FaultOfError(errno);
}

void PosixFolders::Remove(const Path& folder) {
  std::vector<Path> plain;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    std::error_code unknown;
    if (fs::is_regular_file(entry->symlink_status(unknown))) plain.push_back(entry->path());
  }
  for (const Path& file : plain) ::unlink(file.c_str());
  if (::rmdir(folder.c_str()) != 0) throw FaultOfError(errno);
}

std::unique_ptr<FolderHold> PosixFolders::TryHold(const Path& folder) {
  Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
  if (!opened.IsOpen() && errno == ENOENT) return nullptr;
  if (!opened.IsOpen()) throw FaultOfError(errno);
  if (!Lock(opened, LOCK_EX | LOCK_NB) || !StillStandsAt(opened, folder)) return nullptr;
  return std::make_unique<LockedFolder>(std::move(opened));
}

std::unique_ptr<FolderHold> PosixFolders::Hold(const Path& folder) {
  Descriptor opened = OpenFile(folder, O_RDONLY | O_DIRECTORY);
  Lock(opened, LOCK_EX);
  return std::make_unique<LockedFolder>(std::move(opened));
}

}  // namespace kestrava::platform
