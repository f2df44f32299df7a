// The file door. Names are matched without regard to case where the exact name is not there, so that a folder carried
// over from another machine works. Replacing is atomic: a kill at any moment leaves the old or the new file whole.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/SerialDate.h"

namespace kestrava::platform {

class Files {
 public:
  virtual ~Files() = default;
  virtual bool Exists(const std::filesystem::path& file) = 0;
  /// All bytes. @throws Fault "File not found", "Path/File access error", "Device I/O error"
  virtual std::string Read(const std::filesystem::path& file) = 0;
  /// Writes beside the file, flushes, renames over. @throws Fault; the old file is then whole
  virtual void Replace(const std::filesystem::path& file, std::string_view content) = 0;
  virtual void Append(const std::filesystem::path& file, std::string_view content) = 0;
  virtual void Remove(const std::filesystem::path& file) = 0;
  /// Also renames a folder, onto an empty one too.
  virtual void Rename(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// Replaces `to`; keeps the date where the medium takes it. @throws Fault "Disk not ready" where the target medium is
  /// gone, "Disk full", ...
  virtual void Copy(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  virtual std::uintmax_t Size(const std::filesystem::path& file) = 0;
  /// Date of the last change, local time, whole seconds.
  virtual SerialDate ModifiedLocal(const std::filesystem::path& file) = 0;
  virtual void SetModifiedUtc(const std::filesystem::path& file, SerialDate utc) = 0;
  /// Names (not paths) of the plain files in a folder, sorted; empty if there is no such folder.
  virtual std::vector<std::string> List(const std::filesystem::path& folder) = 0;
  virtual bool FolderExists(const std::filesystem::path& folder) = 0;
  /// True if there is no such folder, or nothing in it.
  virtual bool FolderIsEmpty(const std::filesystem::path& folder) {
    return !FolderExists(folder) || List(folder).empty();
  }
  virtual void MakeFolder(const std::filesystem::path& folder) = 0;
  /// Mount points of removable media that are mounted now and can be written.
  virtual std::vector<std::filesystem::path> RemovableMedia() = 0;
};

/// The user's folder with a trailing separator, in which all data files lie. Empty until the start-up has found it.
extern std::string AppDir;

/// AppDir + name.
std::filesystem::path InAppDir(std::string_view name);

/// True if the file exists (without regard to case).
bool FileExists(const std::filesystem::path& file);

/// The text behind the last "/" of a group's address, or all of it: the name of its element file.
std::string FileNameOfAddress(std::string_view address);

}  // namespace kestrava::platform
