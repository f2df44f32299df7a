#include "shell/Shutdown.h"

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/Doors.h"
#include "platform/Fault.h"
#include "station/Devices.h"

namespace kestrava::shell {

namespace {

constexpr std::string_view kGaveUp =
    "Problem Shutting down Kestrava, so 'non-graceful' method will be used (which may cause a windows error, which you "
    "can ignore)";

/// Faults on the way out are of no use to anybody: the next statement runs.
template <class Statement>
void Ignoring(Statement&& statement) {
  try {
    statement();
  } catch (const platform::Fault&) {
    return;
  }
}

bool IsStillLoaded(platform::Windows& windows, const platform::Window* window) {
  for (const auto& [name, loaded] : windows.Loaded()) {
    if (loaded == window) return true;
  }
  return false;
}

/// One pass over the windows that were loaded when it began; some may go while it yields.
void UnloadOthersOnce(platform::Windows& windows, bool yieldAfterEach) {
  for (const auto& [name, window] : windows.Loaded()) {
    if (name == kLauncherName || !IsStillLoaded(windows, window)) continue;
    Ignoring([&, victim = window] { windows.Unload(*victim); });
    if (yieldAfterEach) Ignoring([] { platform::YieldOnce(); });
  }
}

/// Nobody finds the engine from now on, but a tick that is under way may still hold it: it goes when that has returned.
void ReleaseEngine(std::unique_ptr<orbit::OrbitEngine>& engine) {
  const std::shared_ptr<orbit::OrbitEngine> last = std::move(engine);
  if (last) Ignoring([&] { platform::TheEventLoop().Later([last] {}); });
}

}  // namespace

bool CloseOtherWindows(platform::Windows& windows) {
  int passes = 0;
  while (windows.Loaded().size() > 1) {
    UnloadOthersOnce(windows, true);
    if (++passes > kClosePasses) {
      Ignoring([] { platform::TheMessages().Show(kGaveUp); });
      return false;
    }
  }
  return true;
}

void ReleaseAll(platform::Windows& windows, std::unique_ptr<orbit::OrbitEngine>& ownEngine) {
  Ignoring([] { station::TheRecorder().CloseAll(); });
  UnloadOthersOnce(windows, false);
  ReleaseEngine(orbit::Engine);
  ReleaseEngine(ownEngine);
  station::UseRecorder(nullptr);
}

}  // namespace kestrava::shell
