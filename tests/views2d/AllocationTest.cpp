// A tick over the favourites takes no memory but in its yields: it runs every second or two for weeks.
#include <cstdlib>
#include <new>

#include "PlotFixture.h"

namespace {
thread_local bool counting = false;
thread_local int allocations = 0;
}  // namespace

// Not inlined: gcc takes an inlined free() for the end of a block that the library's own operator new made.
[[gnu::noinline]] void* operator new(std::size_t size) {
  if (counting) ++allocations;
  if (void* memory = std::malloc(size == 0 ? 1 : size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
  std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

namespace kestrava::views2d {
namespace {

/// Doors that take no memory of their own, so that what is counted is the tick's.
struct ConstantSettings : platform::SettingsStore {
  std::string Get(std::string_view key) override { return key == "WxEL" ? "95" : key == "Miles" ? "0" : "1"; }
  void Set(std::string_view, std::string_view) override {}
};

struct SilentHost : MapHost {
  void RemoteStatChanged(int) override {}
  void ShowWarpTime(platform::SerialDate) override {}
  void SelectFavourite(int) override {}
  bool IsOpen() const override { return true; }
};

class QuietEventLoop : public testing::SimulatedEventLoop {
 public:
  using SimulatedEventLoop::SimulatedEventLoop;
  void ProcessEvents() override {}
};

class MemoryOfATick : public PlotFixture {};

TEST_F(MemoryOfATick, IsTakenInItsYieldsOnly) {
  ConstantSettings constantSettings;
  QuietEventLoop quiet{clock};
  platform::Doors doors = platform::TheDoors();
  doors.settings = &constantSettings;
  doors.eventLoop = &quiet;
  const platform::ScopedDoors scoped{doors};
  SilentHost silent;
  SetFavourites({kIss, kNoaa, kMeteor, kOscar});
  for (int i = 0; i < 3; ++i) {  // lines and tables grow to their size
    Gsatroutine(sky, map, silent);
    clock.AdvanceMs(60000);
  }
  allocations = 0;
  for (int i = 0; i < 100; ++i) {
    clock.AdvanceMs(1000);
    counting = true;
    Gsatroutine(sky, map, silent);
    counting = false;
  }
  EXPECT_EQ(allocations, 0);
}

}  // namespace
}  // namespace kestrava::views2d
