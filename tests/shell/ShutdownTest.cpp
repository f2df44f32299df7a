#include <gtest/gtest.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/Fault.h"
#include "shell/Shutdown.h"
#include "station/Devices.h"

#include "LauncherRig.h"

namespace kestrava::shell {
namespace {

using Strings = std::vector<std::string>;

/// Writes down what happens to it; may fail at its end.
class Witness : public platform::Window {
 public:
  Witness(Strings& diary, std::string name, bool failing = false)
      : diary_(diary), name_(std::move(name)), failing_(failing) {}
  void Show() override { shown_ = true; }
  void Hide() override { shown_ = false; }
  bool IsVisible() const override { return shown_; }
  void OnUnload() override {
    diary_.push_back("unload " + name_);
    if (failing_) throw platform::Fault::DeviceError();
  }

 private:
  Strings& diary_;
  std::string name_;
  bool failing_;
  bool shown_ = false;
};

/// A registry whose windows refuse to go, so often.
class Stubborn : public platform::Windows {
 public:
  Stubborn(int refusals, platform::Window& window) : refusals_(refusals), window_(window) {}
  void Register(std::string_view, Factory) override {}
  bool Knows(std::string_view) const override { return true; }
  void Show(std::string_view, std::string_view) override {}
  void ShowNew(std::string_view, std::string_view) override {}
  bool IsVisible(std::string_view) override { return true; }
  platform::Window* Find(std::string_view) override { return &window_; }
  void Unload(platform::Window&) override { ++asked; }
  std::vector<std::pair<std::string, platform::Window*>> Loaded() const override {
    if (asked >= refusals_) return {{"frmLAUNCHER", &window_}};
    return {{"frmLAUNCHER", &window_}, {"Busy", &window_}};
  }
  int VisibleCount() const override { return 2; }

  int asked = 0;

 private:
  int refusals_;
  platform::Window& window_;
};

class Shutdown : public LauncherRig {
 protected:
  void Load(const std::string& name, bool failing = false) {
    windows->Register(name, [this, name, failing] { return std::make_unique<Witness>(diary, name, failing); });
    eventLoop.RunEvent([&] { windows->Show(name); });
  }
  Strings diary;
};

TEST_F(Shutdown, UnloadsEveryWindowButTheLauncher) {
  Load("frmLAUNCHER");
  Load("WorldView");
  Load("About");
  EXPECT_TRUE(CloseOtherWindows(*windows));
  ASSERT_EQ(windows->Loaded().size(), 1U);
  EXPECT_EQ(windows->Loaded()[0].first, "frmLAUNCHER");
  EXPECT_EQ(Strings(diary.begin(), diary.begin() + 1), Strings{"unload WorldView"});
}

TEST_F(Shutdown, YieldsOnceAfterEachWindow) {
  Load("frmLAUNCHER");
  Load("WorldView");
  Load("About");
  const int before = eventLoop.YieldCount();
  CloseOtherWindows(*windows);
  EXPECT_EQ(eventLoop.YieldCount() - before, 2);
}

TEST_F(Shutdown, AFaultOfAClosingWindowIsPassedOver) {
  Load("frmLAUNCHER");
  Load("WorldView", true);
  Load("About");
  EXPECT_TRUE(CloseOtherWindows(*windows));
  EXPECT_EQ(windows->Loaded().size(), 1U);
  EXPECT_TRUE(ErrorLog().empty());
}

TEST_F(Shutdown, AWindowOpenedWhileItYieldsIsUnloadedToo) {
  Load("frmLAUNCHER");
  Load("WorldView");
  windows->Register("Late", [this] { return std::make_unique<Witness>(diary, "Late"); });
  eventLoop.AtYield(1, [this] { windows->Show("Late"); });
  EXPECT_TRUE(CloseOtherWindows(*windows));
  EXPECT_EQ(windows->Loaded().size(), 1U);
}

TEST_F(Shutdown, GivesUpWithAMessageAfterTheLastPass) {
  Witness window(diary, "Busy");
  Stubborn stubborn(1'000'000, window);
  messages.ExpectMessage(
      "Problem Shutting down Kestrava, so 'non-graceful' method will be used (which may cause a windows error, which "
      "you can ignore)");
  EXPECT_FALSE(CloseOtherWindows(stubborn));
  EXPECT_EQ(stubborn.asked, 32001);
}

TEST_F(Shutdown, AWindowThatGoesInTheLastPassIsInTime) {
  Witness window(diary, "Busy");
  Stubborn stubborn(32000, window);
  EXPECT_TRUE(CloseOtherWindows(stubborn));
}

TEST_F(Shutdown, TheProcessEndsAtOnceWhenTheLoopGivesUp) {
  Witness window(diary, "Busy");
  Stubborn stubborn(1'000'000, window);
  platform::Doors doors = platform::TheDoors();
  doors.windows = &stubborn;
  const platform::ScopedDoors scoped(doors);
  messages.ExpectMessage("Problem Shutting down Kestrava");
  Launcher launcher(view, tables, NewSetup());
  launcher.QueryUnload();
  EXPECT_EQ(processEnds, 1);
}

class RecorderStub : public station::Recorder {
 public:
  void CloseAll() override {
    closedWithEngine = orbit::Engine != nullptr;
    ++closed;
  }
  int closed = 0;
  bool closedWithEngine = false;
};

TEST_F(Shutdown, ClosesRecordingsBeforeTheEnginesGoAndLetsTheRecorderGoLast) {
  RecorderStub recorder;
  station::UseRecorder(&recorder);
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  launcher.Unload();
  EXPECT_EQ(recorder.closed, 1);
  EXPECT_TRUE(recorder.closedWithEngine);
  EXPECT_EQ(orbit::Engine, nullptr);
  EXPECT_NE(&station::TheRecorder(), &recorder);
}

TEST_F(Shutdown, AnEngineInUseByATickLivesUntilTheTickHasReturned) {
  Launcher launcher(view, tables, NewSetup());
  launcher.Load();
  eventLoop.RunEvent([&] {
    const orbit::OrbitEngine& held = *orbit::Engine;
    launcher.Unload();
    EXPECT_EQ(orbit::Engine, nullptr);
    EXPECT_EQ(held.DataFolder(), "/house/");  // the sanitizer build tells if it is gone
  });
}

}  // namespace
}  // namespace kestrava::shell
