// frmMenu: a window that is never shown and carries the launcher's three pop-up menus.
#pragma once

#include <string_view>

#include "platform/qt/StationWindow.h"

class QMenu;
class QPoint;

namespace kestrava::shell::ui {

class MenuWindow : public platform::qt::StationWindow {
 public:
  MenuWindow();

  /// The one of the run, made on first use; null where none is registered.
  static MenuWindow* Get();

  /// Nothing: it is never shown.
  void Show() override {}
  /// Pops a menu up without waiting for the choice. @param place  on the desktop
  void PopUp(std::string_view menu, const QPoint& place);

 private:
  void BuildMenus();
  void RefreshEntries(QMenu& menu);
};

}  // namespace kestrava::shell::ui
