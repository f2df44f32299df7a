// The rows of the table as the toolkit's views ask for them, and the order in which the user wants to see them.
#pragma once

#include <QAbstractTableModel>
#include <QCollator>
#include <QSortFilterProxyModel>
#include <vector>

#include "views2d/TableWindow.h"

namespace kestrava::views2d::ui {

/// Shows rows that belong to the window's behaviour.
class TableModel : public QAbstractTableModel {
 public:
  /// @param rows  outlives this object
  explicit TableModel(const std::vector<TableRow>& rows);

  const TableRow& Row(int row) const { return rows_[static_cast<std::size_t>(row)]; }
  /// There are other rows than before.
  void TellNewRows();
  /// One signal for all that a tick has changed.
  void TellChangedRows();

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const std::vector<TableRow>& rows_;
  int rowCount_ = 0;  ///< as it was last told
};

/// The order that the user has asked for with a click on a head: numbers by their size, names as people sort them.
/// Without one, and among equals, it is that of the favourites. The rows themselves never move.
class TableOrder : public QSortFilterProxyModel {
 public:
  /// @param model  outlives this object
  explicit TableOrder(TableModel& model);

  /// The row of the table that stands in a row of the view.
  int RowOf(int shownRow) const { return mapToSource(index(shownRow, 0)).row(); }

 protected:
  bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

 private:
  const TableModel& model_;
  QCollator names_;
};

}  // namespace kestrava::views2d::ui
