#include "AtomicFile.h"

#include <array>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace kestrava::platform {

Fault FaultOfError(int error) {
  switch (error) {
    case ENOENT:
      return Fault::FileNotFound();
    case ENOTDIR:
      return Fault::PathNotFound();
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:
    case ENOTEMPTY:
    case EEXIST:
      return Fault::PathFileAccess();
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
      return Fault::DiskFull();
    case ENODEV:
    case ENXIO:
    case ENOMEDIUM:
      return Fault::DiskNotReady();
    default:
      return Fault::DeviceError();
  }
}

Descriptor& Descriptor::operator=(Descriptor&& other) noexcept {
  if (this != &other) {
    Close();
    fd_ = other.Release();
  }
  return *this;
}

int Descriptor::Release() {
  return std::exchange(fd_, -1);
}

bool Descriptor::Close() {
  const int fd = Release();
  return fd < 0 || ::close(fd) == 0;
}

namespace {

/// A pipe would be waited for until somebody takes its other end, and a device may do anything.
void RefuseWhatIsNoFile(const std::filesystem::path& file) {
  struct stat there {};
  if (::stat(file.c_str(), &there) != 0) return;
  if (!S_ISREG(there.st_mode) && !S_ISDIR(there.st_mode)) throw Fault::PathFileAccess();
}

}  // namespace

Descriptor OpenFile(const std::filesystem::path& file, int flags, mode_t mode) {
  RefuseWhatIsNoFile(file);
  int fd = -1;
  do {
    fd = ::open(file.c_str(), flags | O_CLOEXEC, mode);
  } while (fd < 0 && errno == EINTR);
  if (fd >= 0) return Descriptor(fd);
  const int error = errno;
  std::error_code ignored;
  const auto folder = file.parent_path();
  if (error == ENOENT && !folder.empty() && !std::filesystem::is_directory(folder, ignored))
    throw Fault::PathNotFound();
  throw FaultOfError(error);
}

std::string ReadAll(int fd) {
  struct stat status {};
  if (::fstat(fd, &status) != 0) throw FaultOfError(errno);
  if (S_ISDIR(status.st_mode)) throw Fault::PathFileAccess();
  std::string content;
  if (status.st_size > 0) content.reserve(static_cast<std::size_t>(status.st_size));
  std::array<char, 65536> block;
  while (true) {
    const ssize_t got = ::read(fd, block.data(), block.size());
    if (got == 0) return content;
    if (got > 0) {
      content.append(block.data(), static_cast<std::size_t>(got));
    } else if (errno != EINTR) {
      throw FaultOfError(errno);
    }
  }
}

void WriteAll(int fd, std::string_view content) {
  while (!content.empty()) {
    const ssize_t written = ::write(fd, content.data(), content.size());
    if (written >= 0) {
      content.remove_prefix(static_cast<std::size_t>(written));
    } else if (errno != EINTR) {
      throw FaultOfError(errno);
    }
  }
}

void FlushFolder(const std::filesystem::path& folder) {
  const Descriptor fd(::open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (fd.IsOpen()) ::fsync(fd.Get());
}

namespace {

/// Gives the new file the old one's permissions. They are set only where they differ: some media have the same ones for
/// all files and refuse every change.
void KeepPermissions(int fd, mode_t wanted) {
  constexpr mode_t kPermissionBits = 07777;
  struct stat now {};
  if (::fstat(fd, &now) == 0 && (now.st_mode & kPermissionBits) == (wanted & kPermissionBits)) return;
  if (::fchmod(fd, wanted & kPermissionBits) != 0) throw FaultOfError(errno);
}

}  // namespace

void ReplaceAtomically(const std::filesystem::path& file, std::string_view content, mode_t mode) {
  const auto folder = file.parent_path();
  const auto unfinished =
      folder / (std::string(kUnfinishedPrefix) + std::to_string(::getpid()) + "-" + file.filename().string());
  Descriptor fd = OpenFile(unfinished, O_WRONLY | O_CREAT | O_TRUNC, mode);
  try {
    struct stat old {};
    if (::stat(file.c_str(), &old) == 0) {
      if (!S_ISREG(old.st_mode)) throw Fault::PathFileAccess();
      KeepPermissions(fd.Get(), old.st_mode);
    }
    WriteAll(fd.Get(), content);
    if (::fsync(fd.Get()) != 0 || !fd.Close()) throw FaultOfError(errno);
    if (::rename(unfinished.c_str(), file.c_str()) != 0) throw FaultOfError(errno);
  } catch (const Fault&) {
    ::unlink(unfinished.c_str());
    throw;
  }
  FlushFolder(folder);
}

}  // namespace kestrava::platform
