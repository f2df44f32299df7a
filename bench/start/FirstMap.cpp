#include "FirstMap.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <chrono>
#include <stdexcept>
#include <string>

#include <unistd.h>

#include "orbit/OrbitEngine.h"
#include "orbit/Satcalc.h"
#include "platform/Text.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/Theme.h"
#include "shell/Shutdown.h"
#include "shell/ui/LauncherWindow.h"
#include "shell/ui/MenuWindow.h"
#include "shell/ui/SplashWindow.h"
#include "views2d/ui/WorldView.h"

#include "RegisterWindows.h"

namespace kestrava::bench {

namespace {

/// Sees the first paint of a surface that has something to show.
class PaintWatch : public QObject {
 public:
  explicit PaintWatch(platform::qt::SurfaceWidget& surface) : surface_(surface) { surface.installEventFilter(this); }
  bool Seen() const { return seen_; }

 protected:
  bool eventFilter(QObject*, QEvent* event) override {
    seen_ = seen_ || (event->type() == QEvent::Paint && surface_.HasPresented());
    return false;
  }

 private:
  platform::qt::SurfaceWidget& surface_;
  bool seen_ = false;
};

template <class Condition>
void PumpUntil(const Condition& condition) {
  while (!condition()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

shell::LauncherSetup SetupIn(const std::filesystem::path& data) {
  shell::LauncherSetup setup;
  setup.dataFolder = data.string();
  setup.makeEngine = [] { return std::make_unique<orbit::OrbitEngine>(); };
  setup.makeSpeech = [] { return std::make_unique<platform::SilentSpeech>(); };
  setup.endProcess = [] { throw std::logic_error("the windows refused to close"); };
  return setup;
}

QAction& WorldEntry() {
  auto* entry = shell::ui::MenuWindow::Get()->findChild<QAction*>("mnu2Dworld");
  if (!entry) throw std::runtime_error("no menu entry for the world");
  return *entry;
}

platform::qt::SurfaceWidget& MapSurface() {
  auto* window = dynamic_cast<QWidget*>(platform::TheWindows().Find(views2d::ui::kWorldViewName));
  auto* surface = window ? window->findChild<platform::qt::SurfaceWidget*>("Final") : nullptr;
  if (!surface) throw std::runtime_error("no map window");
  return *surface;
}

}  // namespace

FirstMap::FirstMap()
    : folder_(std::filesystem::temp_directory_path() / ("kestrava-first-map-bench-" + std::to_string(getpid()))),
      settings_(folder_ / "config", clock_),
      doors_(AllDoors()) {
  std::filesystem::create_directories(folder_);
  std::filesystem::copy(KESTRAVA_DATA "sample", folder_ / "data");
  settings_.Set("Latitude", "47.4");
  settings_.Set("Longitude", "351.5");
  settings_.Set("WinPosW", "24000");  // 1600 x 900
  settings_.Set("WinPosH", "13500");
  platform::qt::ApplyThemeFromSettings();
  app::RegisterWindows(*windows_, SetupIn(folder_ / "data"), {});
  windows_->Show(shell::ui::kSplashName);
  PumpUntil([&] { return windows_->Find(shell::kLauncherName) && !windows_->Find(shell::ui::kSplashName); });
}

FirstMap::~FirstMap() {
  if (platform::Window* launcher = windows_->Find(shell::kLauncherName)) windows_->Unload(*launcher);
  eventLoop_.DrainLater();
  windows_.reset();
  std::error_code ignored;
  std::filesystem::remove_all(folder_, ignored);
}

platform::Doors FirstMap::AllDoors() {
  return {&clock_,    &stopwatch_, &locale_, &settings_, &files_,       &eventLoop_,
          &messages_, &opener_,    &random_, &silence_,  windows_.get()};
}

void FirstMap::TakeFavourites(int count) {
  orbit::Tables& tables = orbit::TheTables();
  tables.FaveCount = 0;
  for (const std::string& quoted : platform::SplitAt(orbit::Engine->SatelliteNames(), ',')) {
    if (tables.FaveCount == count) return;
    tables.FaveList[static_cast<std::size_t>(++tables.FaveCount)].Name = quoted.substr(1, quoted.size() - 2);
  }
  if (tables.FaveCount < count) throw std::runtime_error("not enough satellites");
}

double FirstMap::SecondsToMap() {
  QAction& world = WorldEntry();
  const auto start = std::chrono::steady_clock::now();
  world.trigger();
  const PaintWatch watch(MapSurface());
  PumpUntil([&] { return watch.Seen(); });
  const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - start;
  windows_->Unload(*windows_->Find(views2d::ui::kWorldViewName));
  eventLoop_.DrainLater();
  return elapsed.count();
}

}  // namespace kestrava::bench
