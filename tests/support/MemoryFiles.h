// Files in memory, on a device that can break after any number of bytes. Names are matched as the real door matches
// them: the exact one first, else without regard to case.
#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "platform/Clock.h"
#include "platform/Fault.h"
#include "platform/Files.h"

namespace kestrava::testing {

class MemoryFiles : public platform::Files {
 public:
  using Path = std::filesystem::path;

  /// Changes are dated by this clock.
  explicit MemoryFiles(platform::Clock& clock) : clock_(clock) {}

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
  std::vector<Path> RemovableMedia() override { return media_; }

  /// Puts a file there, and its folder, whatever is broken.
  void Put(const Path& file, std::string_view content);
  /// The content of a file whatever is broken; empty if there is none.
  std::string Content(const Path& file);
  void RemoveFolder(const Path& folder);
  void SetRemovableMedia(std::vector<Path> media) { media_ = std::move(media); }

  /// The device breaks when so many more bytes have been read, or written. What was replaced stays whole.
  void BreakReadAfter(std::size_t bytes, const platform::Fault& fault = platform::Fault::DeviceError());
  void BreakWriteAfter(std::size_t bytes, const platform::Fault& fault = platform::Fault::DiskFull());
  /// Every access to one file fails from now on.
  void BreakFile(const Path& file, const platform::Fault& fault);
  void Mend();

  /// How often a file was changed in any way (written, removed, renamed).
  int ChangeCount() const { return changes_; }

 private:
  struct Entry {
    std::string content;
    platform::SerialDate modifiedUtc = 0;
  };
  struct Break {
    std::size_t bytesLeft = 0;
    platform::Fault fault;
  };

  std::map<std::string, Entry>::iterator Find(const Path& file);
  Entry& Existing(const Path& file);
  void CheckTarget(const Path& file);
  void CheckFile(const Path& file) const;
  /// How many of so many bytes pass before the device breaks.
  static std::size_t Pass(std::optional<Break>& device, std::size_t bytes);
  void Store(const Path& file, std::string content);
  void RenameFolder(const std::string& from, const std::string& to);

  platform::Clock& clock_;
  std::map<std::string, Entry> files_;
  std::set<std::string> folders_;
  std::map<std::string, platform::Fault> brokenFiles_;
  std::vector<Path> media_;
  std::optional<Break> reading_;
  std::optional<Break> writing_;
  int changes_ = 0;
};

}  // namespace kestrava::testing
