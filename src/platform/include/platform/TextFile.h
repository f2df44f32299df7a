// The one line reader for all text files: CR LF, LF, CR, a byte-order mark, a missing last line end; valid UTF-8 is
// read as such, else Latin-1. And the classic way of reading a file line by line, with its faults.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace kestrava::platform {

/// The line end of written text files on this platform.
inline constexpr std::string_view kLineEnd = "\n";

std::vector<std::string> SplitLines(std::string_view bytes, bool* wasLatin1 = nullptr);

/// A text file read whole when opened and handed out line by line.
class TextReader {
 public:
  /// @throws Fault "File not found", "Path/File access error", "Device I/O error"
  explicit TextReader(const std::filesystem::path& file);

  bool AtEnd() const { return next_ >= lines_.size(); }
  /// @throws Fault "Input past end of file"
  const std::string& ReadLine();
  bool WasLatin1() const { return wasLatin1_; }

 private:
  std::vector<std::string> lines_;
  std::size_t next_ = 0;
  bool wasLatin1_ = false;
};

/// Lines to be written as one file: the old file is replaced in one step when all of it stands on the disk.
class TextWriter {
 public:
  explicit TextWriter(bool asLatin1 = false) : asLatin1_(asLatin1) {}
  void WriteLine(std::string_view line);
  /// @throws Fault; the old file is then whole
  void ReplaceFile(const std::filesystem::path& file) const;

 private:
  std::string content_;
  bool asLatin1_;
};

}  // namespace kestrava::platform
