// A large job in the window, with the toolkit's own events let through at each yield as in the program. The time is
// told, not judged.
#include <QElapsedTimer>
#include <QTableView>
#include <algorithm>
#include <iostream>

#include <gtest/gtest.h>

#include "platform/Doors.h"
#include "predict/PassPrediction.h"

#include "PassFixture.h"

namespace kestrava::predict::ui {
namespace {

constexpr int kSatellites = 50;
constexpr int kDays = 30;

/// The simulated loop, which lets the toolkit's events through at each yield; the stopwatch follows the real one, but
/// stands still at no yield: on a fast machine one takes less than the millisecond that is counted.
class PumpingLoop : public testing::SimulatedEventLoop {
 public:
  explicit PumpingLoop(testing::ScriptedClock& clock) : SimulatedEventLoop(clock), clock_(clock) { watch_.start(); }
  void ProcessEvents() override {
    clock_.AdvanceMs(std::max(1.0, static_cast<double>(watch_.restart())));
    SimulatedEventLoop::ProcessEvents();
    QCoreApplication::processEvents();
    if (atYield) atYield();
  }
  std::function<void()> atYield;

 private:
  testing::ScriptedClock& clock_;
  QElapsedTimer watch_;
};

class PassSoak : public PassFixture {
 protected:
  PassSoak() { platform::TheDoors().eventLoop = &pumping; }
  ~PassSoak() override {
    pumping.atYield = nullptr;
    while (!windows->Loaded().empty()) windows->Unload(*windows->Loaded().back().second);
    pumping.RunEvent([] {});  // the windows go while the loop of their timers is still there
    platform::TheDoors().eventLoop = &eventLoop;
  }

  /// A job of as many satellites as it can hold.
  static std::string LargeJob(QWidget& window) {
    std::string job = "Large\r\n";
    auto& names = Child<QComboBox>(window, "SatelliteName");
    for (int i = 0; i < kSatellites; ++i) job += names.itemText(i % names.count()).toStdString() + ";\r\n";
    return job + std::to_string(kDays) + "\r\n0\r\n0\r\n";
  }

  PumpingLoop pumping{clock};
};

TEST_F(PassSoak, ALargeJobFillsTheWindowAndCanBeSorted) {
  Choose(Open(), "Groupname", "Amateur Radio");
  Put("pass.dat", LargeJob(Open()));
  CloseByUser(Open());
  QWidget& window = Open();
  Select(window, "ListPresets", 0);
  int updates = 0;
  int yields = 0;
  int lastRows = 0;
  pumping.atYield = [&] {
    ++yields;
    if (Rows(window) != lastRows) ++updates;
    lastRows = Rows(window);
  };
  QElapsedTimer watch;
  watch.start();
  Click(window, "PresetGo");
  const double jobMs = static_cast<double>(watch.restart());
  EXPECT_EQ(yields, kSatellites * kDays);
  EXPECT_GT(Rows(window), 5000);
  EXPECT_GT(updates, 2) << "rows come in while it runs";
  Click(window, "BUTsortChron");
  const double sortMs = static_cast<double>(watch.restart());
  Child<QTableView>(window, "LISTpasses").scrollToBottom();
  HandleEvents();
  std::cout << "[ soak     ] " << Rows(window) << " rows: job " << jobMs << " ms with " << updates
            << " updates of the list, sort " << sortMs << " ms, scroll " << watch.elapsed() << " ms\n";
}

}  // namespace
}  // namespace kestrava::predict::ui
