#include "shell/ui/MenuWindow.h"

#include <QAction>
#include <QMenu>

#include "platform/Doors.h"
#include "platform/Messages.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/LaterWindows.h"
#include "platform/qt/Widgets.h"
#include "shell/Menus.h"
#include "shell/ui/LauncherWindow.h"

namespace kestrava::shell::ui {

using platform::qt::ToQt;

MenuWindow::MenuWindow() : StationWindow(kMenuName) {
  for (const Menu& row : Menus()) menus_[std::string(row.objectName)] = MakeMenu(row);
}

MenuWindow* MenuWindow::Get() {
  platform::Windows& windows = platform::TheWindows();
  windows.IsVisible(kMenuName);  // the question makes it
  return dynamic_cast<MenuWindow*>(windows.Find(kMenuName));
}

QMenu* MenuWindow::MakeMenu(const Menu& row) {
  auto* menu = new QMenu(ToQt(row.title), this);
  menu->setObjectName(ToQt(row.objectName));
  menu->setAccessibleName(ToQt(row.title));
  for (const MenuEntry& entry : MenuEntries()) {
    if (entry.menu != row.objectName) continue;
    QAction* action = menu->addAction(ToQt(entry.caption));
    action->setObjectName(ToQt(entry.objectName));
    connect(action, &QAction::triggered, this,
            [&entry] { platform::RunUntrapped(entry.caption, [&entry] { RunMenuEntry(entry); }); });
  }
  RefreshEntries(*menu);
  connect(menu, &QMenu::aboutToShow, this, [this, menu] { RefreshEntries(*menu); });
  return menu;
}

/// An entry whose window is not there yet stands in the menu all the same, but cannot be chosen.
void MenuWindow::RefreshEntries(QMenu& menu) {
  for (const MenuEntry& entry : MenuEntries()) {
    if (auto* action = menu.findChild<QAction*>(ToQt(entry.objectName))) {
      if (!entry.window.empty()) platform::qt::EnableByWindow(*action, entry.window);
    }
  }
}

void MenuWindow::PopUp(std::string_view menu, QWidget& over, const QPoint& place) {
  const auto entry = menus_.find(menu);
  if (entry == menus_.end() || !entry->second) return;
  QMenu& chosen = *entry->second;
  if (chosen.parentWidget() != &over) chosen.setParent(&over, chosen.windowFlags());
  chosen.popup(place);
}

}  // namespace kestrava::shell::ui
