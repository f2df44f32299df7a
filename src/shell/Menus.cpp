#include "shell/Menus.h"

#include <array>

#include "platform/Doors.h"
#include "platform/Endpoints.h"
#include "platform/Files.h"
#include "platform/Links.h"

namespace kestrava::shell {

namespace {

constexpr std::array kMenus{
    Menu{"mnu1", "Settings", 450},
    Menu{"mnu2", "2DViews", 408},
    Menu{"mnu3", "help", 252},
};

constexpr std::string_view kViewerName = "frmViewer";
constexpr std::string_view kHelpFile = "faq.html";

using enum EntryAction;

constexpr std::array kEntries{
    MenuEntry{"mnu1", "mnuMainSettings", "Main Settings", kShow, "frmCONmain"},
    MenuEntry{"mnu1", "mnuGroupsFaves", "Groups and Favourites", kShow, "frmCONGroups"},
    MenuEntry{"mnu1", "mnuLocations", "Locations", kShow, "frmCONlocations"},
    MenuEntry{"mnu1", "mnu2Dsettings", "2D Settings", kShow, "frmCON2D"},
    MenuEntry{"mnu1", "mnu3Dsettings", "3D Settings", kShow, "frmCON3D"},
    MenuEntry{"mnu1", "mnuUpdate", "Internet Update", kShow, "frmCONUpdates"},
    MenuEntry{"mnu2", "mnu2Dworld", "World", kShowWorld, "WorldView"},
    MenuEntry{"mnu2", "mnu2DNWQ", "North West (USA+Canada)", kShowNew, "WorldView", "NWQ"},
    MenuEntry{"mnu2", "mnu2DNCQ", "North Central (Europe)", kShowNew, "WorldView", "NCQ"},
    MenuEntry{"mnu2", "mnu2DNEQ", "North East (Asia)", kShowNew, "WorldView", "NEQ"},
    MenuEntry{"mnu2", "mnu2DSWQ", "South West (South America)", kShowNew, "WorldView", "SWQ"},
    MenuEntry{"mnu2", "mnu2DSCQ", "South Central (South Africa)", kShowNew, "WorldView", "SCQ"},
    MenuEntry{"mnu2", "mnu2DSEQ", "South East (Australia)", kShowNew, "WorldView", "SEQ"},
    MenuEntry{"mnu3", "mnuAbout", "Information About Kestrava", kShow, "About"},
    MenuEntry{"mnu3", "mnuHelp", "View Help (Built-in)", kBuiltInHelp},
    MenuEntry{"mnu3", "mnuFAQ", "View Help and FAQ (online)", kOnlineHelp},
    MenuEntry{"mnu3", "mnuHistory", "View History", kHistory},
    MenuEntry{"mnu3", "mnuDX", "DirectX Diagnostic", kGraphicsReport, "SystemInformation", "graphics"},
};

constexpr std::array kButtons{
    LauncherButton{0, "Settings", ButtonAction::kPopUp, "mnu1"},
    LauncherButton{5, "3D View", ButtonAction::kShowNew, "Orrery3D"},
    LauncherButton{6, "2D View", ButtonAction::kPopUp, "mnu2"},
    LauncherButton{8, "Horizon View", ButtonAction::kShow, "Horizon"},
    LauncherButton{9, "Tabular Data View", ButtonAction::kShow, "Tabular"},
    LauncherButton{10, "Pass Predictions", ButtonAction::kShow, "PassPrediction"},
    LauncherButton{11, "Iridium Flares", ButtonAction::kShow, "IridiumFlares"},
    LauncherButton{12, "Rotor/Radio Control", ButtonAction::kShow, "frmTracker"},
    LauncherButton{13, "Save Elements to Disk", ButtonAction::kFloppyTransfer},
    LauncherButton{14, "Help", ButtonAction::kPopUp, "mnu3"},
};

/// A document of the user's folder with the machine's program for it, or else in a window of our own.
void OpenDocument(std::string_view fileName) {
  const std::string file = platform::InAppDir(fileName).string();
  if (!platform::TheOpener().Open(file)) platform::TheWindows().Show(kViewerName, file);
}

}  // namespace

std::span<const Menu> Menus() {
  return kMenus;
}
std::span<const MenuEntry> MenuEntries() {
  return kEntries;
}
std::span<const LauncherButton> LauncherButtons() {
  return kButtons;
}

ButtonPlace PlaceOfButton(int row) {
  return {60, 1380 + 330 * row, 2295, 300};
}

bool IsUsable(const MenuEntry& entry, const platform::Windows& windows) {
  return entry.window.empty() || windows.Knows(entry.window);
}

bool OpensWindow(const LauncherButton& button) {
  return button.action == ButtonAction::kShow || button.action == ButtonAction::kShowNew;
}

bool IsUsable(const LauncherButton& button, const platform::Windows& windows) {
  return !OpensWindow(button) || windows.Knows(button.target);
}

void OpenOnlineHelp(std::string_view address) {
  if (address.empty()) {
    OpenDocument(kHelpFile);
  } else {
    platform::OpenLink(address);
  }
}

std::string_view WorldTag() {
  return platform::ReadSwitch("Altworld", "0") ? "worldalt" : "worldnormal";
}

void RunMenuEntry(const MenuEntry& entry) {
  platform::Windows& windows = platform::TheWindows();
  switch (entry.action) {
    case kShow:
    case kGraphicsReport:
      windows.Show(entry.window, entry.tag);
      break;
    case kShowWorld:
      windows.Show(entry.window, WorldTag());
      break;
    case kShowNew:
      windows.ShowNew(entry.window, entry.tag);
      break;
    case kBuiltInHelp:
      OpenDocument(kHelpFile);
      break;
    case kOnlineHelp:
      OpenOnlineHelp(platform::endpoints::HelpAddress());
      break;
    case kHistory:
      OpenDocument("history.txt");
      break;
  }
}

}  // namespace kestrava::shell
