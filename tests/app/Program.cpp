#include "Program.h"

#include <array>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

#include <fcntl.h>
#include <poll.h>
#include <sys/inotify.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrava::app {

namespace {

constexpr int kPatienceMs = 60000;

[[noreturn]] void Become(const std::filesystem::path& home, const std::vector<std::string>& words, int output) {
  ::dup2(output, STDOUT_FILENO);
  ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
  ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
  ::setenv("XDG_CONFIG_HOME", (home / "config").c_str(), 1);
  ::setenv("XDG_DATA_HOME", (home / "share").c_str(), 1);
  ::setenv("XDG_RUNTIME_DIR", (home / "runtime").c_str(), 1);
  ::setenv("TZ", "UTC", 1);  // a zone that tells no place: a first start takes all favourites
  // In a build with the address sanitizer its search for leaks has been seen to crash, by its own tracer, in a child
  // that ends by a signal. Leaks are searched for where the robot user drives all windows in one process.
  ::setenv("ASAN_OPTIONS", "detect_leaks=0", 0);
  std::vector<char*> argv;
  for (const std::string& word : words) argv.push_back(const_cast<char*>(word.c_str()));
  argv.push_back(nullptr);
  ::execv(argv[0], argv.data());
  ::_exit(127);
}

}  // namespace

FolderWatch::FolderWatch(const std::filesystem::path& folder, FileEvent awaited)
    : descriptor_(::inotify_init1(IN_CLOEXEC)) {
  const std::uint32_t mask = awaited == FileEvent::kOpened ? IN_OPEN : IN_DELETE;
  if (::inotify_add_watch(descriptor_, folder.c_str(), mask) < 0) throw std::runtime_error("no watch of a folder");
}

FolderWatch::~FolderWatch() {
  ::close(descriptor_);
}

std::vector<std::string> FolderWatch::Next() {
  pollfd wanted{descriptor_, POLLIN, 0};
  if (::poll(&wanted, 1, kPatienceMs) <= 0) return {};
  alignas(inotify_event) std::array<char, 16384> block;
  const ssize_t got = ::read(descriptor_, block.data(), block.size());
  std::vector<std::string> names;
  for (ssize_t at = 0; at < got;) {
    const auto* event = reinterpret_cast<const inotify_event*>(block.data() + at);
    names.emplace_back(event->len > 0 ? event->name : "");
    at += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
  }
  return names;
}

bool FolderWatch::WaitFor(const std::string& name) {
  while (true) {
    const std::vector<std::string> names = Next();
    if (names.empty()) return false;
    for (const std::string& seen : names) {
      if (seen == name) return true;
    }
  }
}

bool FolderWatch::WaitForMany(int count) {
  while (count > 0) {
    const std::vector<std::string> names = Next();
    if (names.empty()) return false;
    count -= static_cast<int>(names.size());
  }
  return true;
}

Program::Program(const std::filesystem::path& home, const std::vector<std::string>& arguments,
                 const std::string& program) {
  std::vector<std::string> words{program};
  words.insert(words.end(), arguments.begin(), arguments.end());
  std::filesystem::create_directories(home / "runtime");
  std::filesystem::permissions(home / "runtime", std::filesystem::perms::owner_all);
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  pid_ = ::fork();
  if (pid_ == 0) Become(home, words, ends[1]);
  ::close(ends[1]);
  output_ = ends[0];
}

Program::~Program() {
  if (pid_ > 0) {
    Send(SIGKILL);
    End();
  }
  ::close(output_);
}

void Program::Send(int signal) const {
  ::kill(pid_, signal);
}

std::optional<std::string> Program::NextLine() {
  std::string line;
  char c = 0;
  while (::read(output_, &c, 1) == 1) {
    if (c == '\n') return line;
    line += c;
  }
  return std::nullopt;
}

bool Program::WaitForLineEndingIn(const std::string& text) {
  while (const auto line = NextLine()) {
    if (line->ends_with(text)) return true;
  }
  return false;
}

std::string Program::LineBeginningWith(const std::string& text) {
  while (auto line = NextLine()) {
    if (line->starts_with(text)) return *line;
  }
  return {};
}

void Program::Pause() {
  Send(SIGSTOP);
  ::waitpid(pid_, nullptr, WUNTRACED);
}

void Program::GoOn() const {
  Send(SIGCONT);
}

std::string Program::End() {
  int status = 0;
  ::waitpid(pid_, &status, 0);
  pid_ = -1;
  if (WIFSIGNALED(status)) return "signal " + std::to_string(WTERMSIG(status));
  return "code " + std::to_string(WEXITSTATUS(status));
}

}  // namespace kestrava::app
