// The real program, started on a screen that nobody sees with folders of its own, and what can be seen of it from
// outside: which files it opens and removes, what it says, how it ends.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace kestrava::app {

enum class FileEvent { kOpened, kRemoved };

/// Waits for files of one folder to be opened, or removed.
class FolderWatch {
 public:
  explicit FolderWatch(const std::filesystem::path& folder, FileEvent awaited = FileEvent::kOpened);
  ~FolderWatch();
  FolderWatch(const FolderWatch&) = delete;
  FolderWatch& operator=(const FolderWatch&) = delete;

  /// Waits until it happens to a file of that name. @return false if it does not
  bool WaitFor(const std::string& name);
  /// Waits until it has happened so many times from now on. @return false if it does not
  bool WaitForMany(int count);

 private:
  /// Waits for the next files. @return their names; none if nothing happens any more
  std::vector<std::string> Next();

  int descriptor_;
};

/// One run. It is killed with this object if it has not ended.
class Program {
 public:
  /// @param home  where its settings go; @param arguments  behind its name
  Program(const std::filesystem::path& home, const std::vector<std::string>& arguments,
          const std::string& program = KESTRAVA_PROGRAM);
  ~Program();
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  void Send(int signal) const;
  /// Reads what it says until a line ends so. @return false if it ends before
  bool WaitForLineEndingIn(const std::string& text);
  /// Reads what it says until a line begins so. @return that line, empty if it ends before
  std::string LineBeginningWith(const std::string& text);
  /// Stops it, so that signals sent now arrive together when it goes on.
  void Pause();
  void GoOn() const;
  /// Waits for the end. @return "code 0", "signal 15", ...
  std::string End();

 private:
  /// @return its next line, none at its end
  std::optional<std::string> NextLine();

  pid_t pid_ = -1;
  int output_ = -1;
};

}  // namespace kestrava::app
