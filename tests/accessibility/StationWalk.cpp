#include "StationWalk.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QTabWidget>

#include "platform/Files.h"
#include "platform/qt/TextViewer.h"
#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"
#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"
#include "shell/Menus.h"
#include "shell/Shutdown.h"
#include "shell/ui/LauncherWindow.h"
#include "shell/ui/MenuWindow.h"

#include "RegisterWindows.h"

namespace kestrava::accessibility {

namespace {

constexpr double kPaintedAfterS = 3;
constexpr const char* kJobs =
    "Weather tonight\r\nNOAA 19;\r\n1\r\n0\r\n0\r\nStations\r\nISS (ZARYA);\r\n3\r\n0\r\n1\r\n";

std::vector<std::string> RegisteredNames() {
  const auto others = platform::MakeWindows();
  return app::RegisterWindows(*others, {}, {});
}

std::string TagOf(std::string_view name) {
  if (name == platform::qt::TextViewer::kName) return platform::InAppDir("faq.html").string();
  return name == "WorldView" ? std::string(shell::WorldTag()) : "";
}

/// It keeps the menus of the launcher.
bool IsNeverShown(std::string_view name) {
  return name == shell::ui::kMenuName;
}

void Click(QWidget& window, const char* button) {
  if (auto* found = window.findChild<QAbstractButton*>(button)) found->click();
}

void Choose(QWidget& window, const char* combo) {
  auto* found = window.findChild<QComboBox*>(combo);
  if (!found || found->count() == 0) return;
  found->setCurrentIndex(found->count() - 1);
  emit found->activated(found->count() - 1);
}

/// The pane at the side of a view is part of what it shows.
void OpenPane(QWidget& window, const char* pane) {
  const auto* found = window.findChild<QWidget*>(pane);
  if (found && !found->isVisible()) Click(window, "BUTexpand");
}

}  // namespace

StationWalk::StationWalk(bool skinOn) {
  platform::qt::ApplyTheme(skinOn);
  station_.House().settings.Set("Skin", skinOn ? "1" : "0");
  station_.House().Put("pass.dat", kJobs);
  station_.Start();
}

StationWalk::~StationWalk() {
  station_.TakeFaults();
  station_.Close();
}

void StationWalk::LetItPaint() {
  station_.Loop().Advance(kPaintedAfterS);
  station_.Loop().RunEvent([] { QCoreApplication::processEvents(); });
}

void StationWalk::Fill(const std::string& name, QWidget& window) {
  station_.Loop().RunEvent([&] {
    if (name == "WorldView") OpenPane(window, "InfoPane");
    if (name == "Horizon") OpenPane(window, "txtSatInfo");
    if (name == predict::kPassWindow) {
      Choose(window, "FavouriteName");
      Click(window, "BUTcalc");
    }
    if (name == predict::kWizardWindow) {
      Choose(window, "COMgroup");
      Choose(window, "COMsatname");
      Click(window, "BUTadd");
    }
  });
  LetItPaint();
}

QWidget* StationWalk::Open(const std::string& name) {
  platform::Windows& windows = station_.Windows();
  station_.Loop().RunEvent(
      [&] { IsNeverShown(name) ? void(windows.IsVisible(name)) : windows.Show(name, TagOf(name)); });
  auto* window = dynamic_cast<QWidget*>(windows.Find(name));
  if (!window) throw std::runtime_error(name + " does not open");
  if (name == shell::ui::kSplashName) return window;  // it goes by itself
  LetItPaint();
  Fill(name, *window);
  return window;
}

void StationWalk::VisitWindow(const std::string& name, const Look& look) {
  QWidget* window = Open(name);
  const QString title = platform::qt::ToQt(name);
  auto* pages = window->findChild<QTabWidget*>();
  station_.Loop().RunEvent([&] { look({title, *window}); });
  for (int page = 1; pages && page < pages->count(); ++page) {
    station_.Loop().RunEvent([&] { pages->setCurrentIndex(page); });
    LetItPaint();
    station_.Loop().RunEvent([&] { look({title + ", page " + pages->tabText(page), *window}); });
  }
  if (name == shell::kLauncherName || IsNeverShown(name)) return;
  station_.Loop().RunEvent([&] {
    if (platform::Window* shown = station_.Windows().Find(name)) station_.Windows().Unload(*shown);
  });
}

std::vector<std::string> StationWalk::EachWindow(const Look& look) {
  const std::vector<std::string> names = RegisteredNames();
  for (const std::string& name : names) VisitWindow(name, look);
  return names;
}

}  // namespace kestrava::accessibility
