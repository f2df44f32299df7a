// The map window's menus as tables: one row an entry, with its object name, its text, its key and what it does.
#pragma once

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <array>
#include <span>
#include <string>
#include <vector>

#include "views2d/MapWindow.h"

namespace kestrava::views2d::ui {

struct MapMenuRow {
  const char* objectName;  ///< null: a separator
  const char* text;
  const char* key;
  void (MapWindow::*action)();  ///< null: the entry changes the map to `region`
  const char* region;
  int mark;                 ///< the MapMark it shows, or -1
  const char* needsWindow;  ///< disabled while the registry does not know this window
};

/// The rows of M2 "&Options" and of M3 "&Controls".
std::span<const MapMenuRow> OptionRows();
std::span<const MapMenuRow> ControlRows();

/// Builds the bar of M1, M2 and M3 and keeps its entries.
class MapMenus {
 public:
  MapMenus(QMenuBar& bar, MapWindow& window);

  QMenu& SatelliteMenu() { return *satellites_; }
  QAction& Marked(MapMark mark) { return *marked_[static_cast<std::size_t>(mark)]; }
  /// @throws platform::Fault if MFaveList(index) exists
  void CreateFavouriteEntry(int index);
  void SetFavouriteCaption(int index, const std::string& caption);

 private:
  void AddRows(QMenu& menu, std::span<const MapMenuRow> rows);
  void AddEntry(QMenu& menu, const MapMenuRow& row);

  MapWindow& window_;
  QMenu* satellites_;
  std::vector<QAction*> favourites_;
  std::array<QAction*, 4> marked_{};
};

}  // namespace kestrava::views2d::ui
