#include "platform/linux/OwnStart.h"

#include <cerrno>
#include <cstdio>
#include <system_error>

#include <unistd.h>

#include "AtomicFile.h"

namespace kestrava::platform {

namespace {

constexpr const char* kRunningProgram = "/proc/self/exe";

/// Handlers need no care: a new program has none.
bool IsIgnored(int signal) {
  struct sigaction now {};
  return ::sigaction(signal, nullptr, &now) == 0 && now.sa_handler == SIG_IGN;
}

}  // namespace

OwnStart::OwnStart(int argc, char** argv) : arguments_(argv, argv + argc) {
  std::error_code unknown;
  program_ = std::filesystem::read_symlink(kRunningProgram, unknown);
  for (int signal = 1; signal < NSIG; ++signal) {
    if (IsIgnored(signal)) ignored_.insert(signal);
  }
  ::pthread_sigmask(SIG_SETMASK, nullptr, &heldBack_);
}

void OwnStart::Again() {
  std::vector<char*> argv;
  for (std::string& argument : arguments_) argv.push_back(argument.data());
  argv.push_back(nullptr);
  for (int signal = 1; signal < NSIG; ++signal) {
    if (IsIgnored(signal) != ignored_.contains(signal))
      std::signal(signal, ignored_.contains(signal) ? SIG_IGN : SIG_DFL);
  }
  std::fflush(nullptr);
  ::pthread_sigmask(SIG_SETMASK, &heldBack_, nullptr);
  ::execv(program_.c_str(), argv.data());
  ::execv(kRunningProgram, argv.data());  // its file was moved or removed: the program itself is still there
  throw FaultOfError(errno);
}

}  // namespace kestrava::platform
