// frmMenu: a window that is never shown and carries the launcher's three pop-up menus.
#pragma once

#include <QMenu>
#include <QPointer>
#include <map>
#include <string>
#include <string_view>

#include "platform/qt/StationWindow.h"
#include "shell/Menus.h"

class QPoint;

namespace kestrava::shell::ui {

class MenuWindow : public platform::qt::StationWindow {
 public:
  MenuWindow();

  /// The one of the run, made on first use; null where none is registered.
  static MenuWindow* Get();

  /// Nothing: it is never shown.
  void Show() override {}
  /// Pops a menu up without waiting for the choice.
  /// @param over  the window that it belongs to from now on, for the desktop and for screen readers @param place  on
  /// the desktop
  void PopUp(std::string_view menu, QWidget& over, const QPoint& place);

 private:
  QMenu* MakeMenu(const Menu& row);
  void RefreshEntries(QMenu& menu);

  std::map<std::string, QPointer<QMenu>, std::less<>> menus_;  ///< by object name
};

}  // namespace kestrava::shell::ui
