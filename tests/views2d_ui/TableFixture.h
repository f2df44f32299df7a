// The table window with its real controls, over the same station as the map's.
#pragma once

#include <QAbstractItemModel>
#include <QString>
#include <QTableView>

#include "views2d/ui/TableView.h"

#include "MapFixture.h"

namespace kestrava::views2d::ui {

/// Columns as they stand beside each other.
enum Column { kName, kAz, kEl, kRange, kHeight, kLat, kLon, kDirection };

class TableFixture : public MapFixture {
 protected:
  TableFixture();

  /// Shows the table through the registry, activated; no tick has run yet.
  QWidget& OpenTable();
  static QTableView& List(QWidget& table) { return Child<QTableView>(table, "TabList"); }
  /// The text of a cell in a row of the view.
  static QString Cell(QWidget& table, int row, int column);
  static QColor ColourOf(QWidget& table, int row);
  /// The row of the view in which a satellite stands; -1 if it has none.
  static int RowOf(QWidget& table, const QString& satellite);
  static QString LabelText(QWidget& table, const char* name);
  void ClickHead(QWidget& table, int column);
  void ClickRow(QWidget& table, int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
  static QStringList Names(QWidget& table);
  /// The favourites are so many of the shipped satellites that stay up for some days.
  void FillFavourites(int count);
};

}  // namespace kestrava::views2d::ui
