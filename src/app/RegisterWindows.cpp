#include "RegisterWindows.h"

#include "panels/GroupsPanel.h"
#include "panels/LocationsPanel.h"
#include "panels/MainSettingsPanel.h"
#include "panels/Settings2DPanel.h"
#include "panels/ui/PanelWindows.h"
#include "platform/qt/TextViewer.h"
#include "predict/PassPrediction.h"
#include "predict/PassWizard.h"
#include "predict/ui/PassWindows.h"
#include "shell/Shutdown.h"
#include "shell/ui/AboutWindow.h"
#include "shell/ui/LauncherWindow.h"
#include "shell/ui/MenuWindow.h"
#include "shell/ui/SplashWindow.h"
#include "views2d/ui/HorizonView.h"
#include "views2d/ui/TableView.h"
#include "views2d/ui/WorldView.h"

namespace kestrava::app {

namespace {

template <class Made>
platform::Windows::Factory Makes() {
  return [] { return std::make_unique<Made>(); };
}

}  // namespace

std::vector<std::string> RegisterWindows(platform::Windows& windows, const shell::LauncherSetup& launcher,
                                         const shell::ui::InformationSources& sources) {
  using namespace shell::ui;
  const std::vector<std::pair<std::string_view, platform::Windows::Factory>> all{
      {kSplashName, Makes<SplashWindow>()},
      {shell::kLauncherName, [launcher] { return std::make_unique<LauncherWindow>(launcher); }},
      {kMenuName, Makes<MenuWindow>()},
      {views2d::ui::kWorldViewName, views2d::ui::MakeWorldView},
      {views2d::ui::kHorizonName, views2d::ui::MakeHorizonView},
      {views2d::ui::kTableViewName, views2d::ui::MakeTableView},
      {predict::kPassWindow, predict::ui::MakePassPredictionWindow},
      {predict::kWizardWindow, predict::ui::MakePassWizardWindow},
      {panels::kGroupsWindow, panels::ui::MakeGroupsWindow},
      {panels::kLocationsWindow, panels::ui::MakeLocationsWindow},
      {panels::kMainSettingsWindow, panels::ui::MakeMainSettingsWindow},
      {panels::kSettings2DWindow, panels::ui::MakeSettings2DWindow},
      {kAboutName, Makes<AboutWindow>()},
      {kSystemInformationName, [sources] { return std::make_unique<SystemInformationWindow>(sources); }},
      {platform::qt::TextViewer::kName, Makes<platform::qt::TextViewer>()},
  };
  std::vector<std::string> names;
  for (const auto& [name, factory] : all) {
    windows.Register(name, factory);
    names.emplace_back(name);
  }
  return names;
}

}  // namespace kestrava::app
