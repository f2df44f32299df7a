// Files by descriptor, with the kernel's errors as faults. Private to the doors of this folder.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include <sys/types.h>

#include "platform/Fault.h"

namespace kestrava::platform {

/// Names of files that are being written begin so; none of them is ever listed.
inline constexpr std::string_view kUnfinishedPrefix = ".kestrava-unfinished-";

/// The fault that an error number stands for.
Fault FaultOfError(int error);

/// A file descriptor that is closed when it goes.
class Descriptor {
 public:
  explicit Descriptor(int fd = -1) : fd_(fd) {}
  ~Descriptor() { Close(); }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&& other) noexcept : fd_(other.Release()) {}
  Descriptor& operator=(Descriptor&& other) noexcept;

  int Get() const { return fd_; }
  bool IsOpen() const { return fd_ >= 0; }
  int Release();
  /// @return false if the kernel reports a failed write only now
  bool Close();

 private:
  int fd_;
};

/// A plain file or a folder; anything else that stands there is refused and never waited for. @throws Fault
Descriptor OpenFile(const std::filesystem::path& file, int flags, mode_t mode = 0666);
std::string ReadAll(int fd);
void WriteAll(int fd, std::string_view content);

/// Makes a rename in a folder durable. A folder that cannot be flushed (some media) is let be.
void FlushFolder(const std::filesystem::path& folder);

/// Writes beside the file, flushes, renames over, flushes the folder: a kill at any moment leaves the old or the new
/// file whole. An old file's permissions are kept; what is no plain file is not
/// replaced. @throws Fault; the old file is then whole
/// @param mode  permissions of a new file
void ReplaceAtomically(const std::filesystem::path& file, std::string_view content, mode_t mode = 0666);

}  // namespace kestrava::platform
