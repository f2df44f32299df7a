// Work that is killed, as by `kill -9`: in a process of its own, at any of its system calls, so that a test can go
// through all of them one by one.
#pragma once

#include <functional>

namespace kestrava::testing {

enum class WorkEnd {
  kKilled,
  kDone,     ///< it makes fewer system calls
  kRefused,  ///< this machine lets nobody trace a process
};

/// Runs `work` in a copy of this process and kills that when it is about to make its n-th system call, counted from 1.
/// What the work changes in memory is lost.
/// @throws std::runtime_error if the work throws, or the process ends by itself before
WorkEnd RunKilledAt(int systemCall, const std::function<void()>& work);

/// Runs `work` to its end in a copy of this process.
void RunApart(const std::function<void()>& work);

}  // namespace kestrava::testing
