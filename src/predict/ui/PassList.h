// LISTpasses: the list of passes. Shows rows that belong to the window's behaviour, many thousands of them.
#pragma once

#include <QMenu>
#include <QTableView>
#include <array>
#include <string>

#include "predict/PassTable.h"

#include "PassListModel.h"

namespace kestrava::predict::ui {

class PassList : public QTableView {
 public:
  /// @param table  outlives this object
  explicit PassList(const PassTable& table, QWidget* parent = nullptr);
  ~PassList() override;

  /// Shows the rows as they are now.
  void ShowRows();
  int ShownRows() const { return model_.ShownRows(); }
  /// Shows the rows as they are now, this one on top where enough follow.
  void ShowAtTop(int row);

  /// The selected rows, in their order, onto the clipboard: cells with tabs between them. Nothing selected: it is left
  /// alone.
  void CopySelection(bool withHeads);
  QMenu& Menu() { return *menu_; }

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void BuildLooks();
  void FitHeads();
  void WidenColumns();
  int WidthFor(const std::string& text) const;

  const PassTable& table_;
  PassListModel model_;
  QMenu* menu_ = nullptr;
  int measuredRows_ = 0;
  std::array<std::string, kPassCells> measured_;  ///< the last text measured in each column: most rows repeat it
};

}  // namespace kestrava::predict::ui
