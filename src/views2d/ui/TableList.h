// TabList: the list of the table window. Its ground is dark in every look, because the two colours of its rows are
// given: white, and a red that reads on nothing lighter.
#pragma once

#include <QMenu>
#include <QTableView>
#include <array>
#include <string_view>
#include <vector>

#include "views2d/TableWindow.h"

#include "TableModel.h"

namespace kestrava::views2d::ui {

class TableList : public QTableView {
 public:
  /// @param rows  outlives this object
  explicit TableList(const std::vector<TableRow>& rows, QWidget* parent = nullptr);
  ~TableList() override;

  void ShowNewRows();
  void ShowChangedRows();

  /// The selected rows, in the order in which they are seen, onto the clipboard. Nothing selected: it is left alone.
  void CopySelection(bool withHeads);
  /// The width that shows all columns.
  int WholeWidth() const;
  QMenu& Menu() { return *menu_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildLooks();
  void BuildHeads();
  void AddOrders();
  void FitColumns();
  void WidenColumns();
  void FillWithLastColumn();
  int WidthFor(std::string_view text) const;
  std::vector<int> SelectedRows() const;

  const std::vector<TableRow>& rows_;
  TableModel model_;
  TableOrder order_;
  QMenu* menu_ = nullptr;
  /// Lengths of the longest texts that the columns were made for: columns grow with their content and never shrink, so
  /// that nothing moves from tick to tick.
  std::array<std::size_t, kTableColumnCount> longest_{};
  int lastColumnPx_ = 0;  ///< what the last column needs; it takes what is left as well
  bool fitting_ = false;
};

}  // namespace kestrava::views2d::ui
