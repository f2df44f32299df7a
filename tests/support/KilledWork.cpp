#include "support/KilledWork.h"

#include <cerrno>
#include <csignal>
#include <limits>
#include <stdexcept>
#include <string>

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kestrava::testing {

namespace {

constexpr int kThrown = 3;
constexpr int kNotTraced = 4;
constexpr int kCallStop = SIGTRAP | 0x80;  // by PTRACE_O_TRACESYSGOOD

[[noreturn]] void WorkTraced(const std::function<void()>& work) {
  if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) ::_exit(kNotTraced);
  ::raise(SIGSTOP);
  try {
    work();
  } catch (...) {
    ::_exit(kThrown);
  }
  ::_exit(0);
}

int WaitFor(pid_t process) {
  int status = 0;
  while (::waitpid(process, &status, 0) < 0) {
    if (errno != EINTR) throw std::runtime_error("a process is lost");
  }
  return status;
}

WorkEnd EndOf(int status) {
  if (WIFEXITED(status) && WEXITSTATUS(status) == 0) return WorkEnd::kDone;
  if (WIFEXITED(status) && WEXITSTATUS(status) == kNotTraced) return WorkEnd::kRefused;
  throw std::runtime_error("the work did not come to its end, status " + std::to_string(status));
}

}  // namespace

WorkEnd RunKilledAt(int systemCall, const std::function<void()>& work) {
  const pid_t process = ::fork();
  if (process < 0) throw std::runtime_error("no process");
  if (process == 0) WorkTraced(work);
  int status = WaitFor(process);
  if (!WIFSTOPPED(status)) return EndOf(status);
  ::ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
  bool inside = false;
  for (int calls = 0; calls < systemCall;) {
    const int signal = WSTOPSIG(status) == kCallStop || WSTOPSIG(status) == SIGSTOP ? 0 : WSTOPSIG(status);
    ::ptrace(PTRACE_SYSCALL, process, nullptr, signal);
    status = WaitFor(process);
    if (!WIFSTOPPED(status)) return EndOf(status);
    if (WSTOPSIG(status) != kCallStop) continue;
    inside = !inside;  // it stops before a call and behind it
    if (inside) ++calls;
  }
  ::kill(process, SIGKILL);
  WaitFor(process);
  return WorkEnd::kKilled;
}

void RunApart(const std::function<void()>& work) {
  RunKilledAt(std::numeric_limits<int>::max(), work);
}

}  // namespace kestrava::testing
