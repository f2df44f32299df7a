// The rows of a pass table as the toolkit's views ask for them.
#pragma once

#include <QAbstractTableModel>
#include <cstdint>

#include "predict/PassTable.h"

namespace kestrava::predict::ui {

class PassListModel : public QAbstractTableModel {
 public:
  /// @param table  outlives this object; it may change at any time, what is shown of it only when that is told
  explicit PassListModel(const PassTable& table) : table_(table) {}

  /// Tells the views of the rows as they are now. Rows that came in at the end leave selection and place as they are.
  void TellRows();
  int ShownRows() const { return shownRows_; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const PassTable& table_;
  int shownRows_ = 0;
  std::uint64_t shownRevision_ = 0;
  PassRow lastShown_;  ///< the last row as it was told: rows that only grew still have it there
};

}  // namespace kestrava::predict::ui
