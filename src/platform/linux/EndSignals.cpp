#include "platform/linux/EndSignals.h"

#include <array>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include "AtomicFile.h"

namespace kestrava::platform {

namespace {

constexpr std::array kEndSignals{SIGTERM, SIGINT, SIGHUP};

// All that a handler may touch.
volatile std::sig_atomic_t wakeDescriptor = -1;
volatile std::sig_atomic_t ignoredBits = 0;

void UseUsualEffects() {
  for (std::size_t i = 0; i < kEndSignals.size(); ++i) {
    if ((ignoredBits >> i & 1) == 0) std::signal(kEndSignals[i], SIG_DFL);
  }
}

void OnEndSignal(int) {
  const int error = errno;
  UseUsualEffects();
  const char wake = 1;
  if (::write(wakeDescriptor, &wake, 1) < 0) {  // cannot be: the pipe is empty and its other end open
    ::_exit(1);
  }
  errno = error;
}

}  // namespace

EndSignals::EndSignals() {
  std::array<int, 2> ends{};
  if (::pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) throw FaultOfError(errno);
  readEnd_ = ends[0];
  writeEnd_ = ends[1];
  wakeDescriptor = writeEnd_;
  ignoredBits = 0;
  struct sigaction wanted {};
  wanted.sa_handler = OnEndSignal;
  wanted.sa_flags = SA_RESTART;
  for (const int signal : kEndSignals) sigaddset(&wanted.sa_mask, signal);  // one at a time
  for (std::size_t i = 0; i < kEndSignals.size(); ++i) {
    struct sigaction earlier {};
    ::sigaction(kEndSignals[i], nullptr, &earlier);
    if (earlier.sa_handler == SIG_IGN) {
      ignoredBits = ignoredBits | 1 << i;
    } else {
      ::sigaction(kEndSignals[i], &wanted, nullptr);
    }
  }
}

bool EndSignals::End() {
  UseUsualEffects();
  pollfd wanted{readEnd_, POLLIN, 0};
  return ::poll(&wanted, 1, 0) == 1;
}

EndSignals::~EndSignals() {
  UseUsualEffects();
  wakeDescriptor = -1;
  ::close(readEnd_);
  ::close(writeEnd_);
}

}  // namespace kestrava::platform
