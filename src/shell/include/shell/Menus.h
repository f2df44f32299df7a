// The launcher's column of buttons and its three pop-up menus as tables: one row per button or entry, with its text and
// what it does. Which of them can be used follows from the windows that are registered.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/Windows.h"

namespace kestrava::shell {

/// What a menu entry does.
enum class EntryAction {
  kShow,            ///< shows the single window
  kShowWorld,       ///< the same, its tag by the setting Altworld
  kShowNew,         ///< shows a new window beside the open ones
  kBuiltInHelp,     ///< faq.html of the user's folder
  kOnlineHelp,      ///< the maker's page
  kHistory,         ///< history.txt of the user's folder
  kGraphicsReport,  ///< the system information window at its graphics page
};

struct MenuEntry {
  std::string_view menu;        ///< object name of the menu that it stands in
  std::string_view objectName;  ///< mnuAbout
  std::string_view caption;
  EntryAction action;
  std::string_view window = {};  ///< registered name of the target window
  std::string_view tag = {};     ///< mode tag that the window is given
};

struct Menu {
  std::string_view objectName;  ///< mnu1
  std::string_view title;
  int raiseTwips;  ///< it pops up this far above the launcher's inner lower edge, at its inner right edge
};

/// What a button of the launcher does.
enum class ButtonAction { kPopUp, kShow, kShowNew, kFloppyTransfer };

struct LauncherButton {
  int index;  ///< of BUTmenu; 1 to 4 and 7 do not exist
  std::string_view caption;
  ButtonAction action;
  std::string_view target = {};  ///< registered name of a window, or object name of a menu
};

std::span<const Menu> Menus();
std::span<const MenuEntry> MenuEntries();
std::span<const LauncherButton> LauncherButtons();

/// The place of button number `row` of the column, in twips.
struct ButtonPlace {
  int left, top, width, height;
};
ButtonPlace PlaceOfButton(int row);

/// Can it be used: is its window registered? A menu can always be popped up, its entries tell for themselves.
bool IsUsable(const MenuEntry& entry, const platform::Windows& windows);
bool IsUsable(const LauncherButton& button, const platform::Windows& windows);
/// Its target is a window, not a menu.
bool OpensWindow(const LauncherButton& button);

/// Does what an entry says. A help text goes to the machine's program for it, or else to a viewer of our own.
/// @throws platform::Fault if its window is not registered or cannot be made
void RunMenuEntry(const MenuEntry& entry);

/// The help page on the Internet; the shipped one while there is none. What could not be opened is said.
void OpenOnlineHelp(std::string_view address);

/// The mode tag of the world map that the menu opens.
std::string_view WorldTag();

}  // namespace kestrava::shell
