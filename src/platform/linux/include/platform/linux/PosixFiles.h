// The file door on Linux. Made once in main; tests use it on folders of their own.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Files.h"

namespace kestrava::platform {

class PosixFiles : public Files {
 public:
  using Path = std::filesystem::path;

  /// @param mountTable  where the kernel lists what is mounted; @param blockDevices  and where its disks
  explicit PosixFiles(Path mountTable = "/proc/self/mounts", Path blockDevices = "/sys/class/block")
      : mountTable_(std::move(mountTable)), blockDevices_(std::move(blockDevices)) {}

  bool Exists(const Path& file) override;
  std::string Read(const Path& file) override;
  void Replace(const Path& file, std::string_view content) override;
  void Append(const Path& file, std::string_view content) override;
  void Remove(const Path& file) override;
  void Rename(const Path& from, const Path& to) override;
  void Copy(const Path& from, const Path& to) override;
  std::uintmax_t Size(const Path& file) override;
  SerialDate ModifiedLocal(const Path& file) override;
  void SetModifiedUtc(const Path& file, SerialDate utc) override;
  std::vector<std::string> List(const Path& folder) override;
  bool FolderExists(const Path& folder) override;
  bool FolderIsEmpty(const Path& folder) override;
  void MakeFolder(const Path& folder) override;
  std::vector<Path> RemovableMedia() override;

 private:
  Path mountTable_;
  Path blockDevices_;
};

/// Removes what killed runs have left in a folder: copies of files that they were writing. Those of living processes
/// stay, and so does what cannot be removed. Called at the start of a run.
void RemoveUnfinished(const std::filesystem::path& folder);

/// The path under which a name is really there: as given if that exists, else each component matched without regard
/// to case (ASCII letters); components that match nothing stay as given.
std::filesystem::path ResolveIgnoringCase(const std::filesystem::path& path);

/// True for a device that can be taken out: the kernel calls its disk removable, or it hangs on USB or in a card slot.
bool CanBeTaken(const std::filesystem::path& blockDevices, const std::string& device);

/// Mount points of media that are not read-only, from the text of the kernel's mount table: devices mounted below
/// /media and /run/media, and those on or below /mnt that can be taken out.
std::vector<std::filesystem::path> RemovableMounts(std::string_view mountTable,
                                                   const std::function<bool(const std::string& device)>& canBeTaken);

}  // namespace kestrava::platform
