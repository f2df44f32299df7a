#include "TableModel.h"

#include <QColor>
#include <cmath>
#include <limits>

#include "platform/qt/ImageSurface.h"
#include "platform/qt/Widgets.h"

namespace kestrava::views2d::ui {

namespace {

constexpr const char* kSortHint = "A click sorts by this column, a third one brings the order of the favourites back.";

const TableColumn& ColumnAt(int column) {
  return kTableColumns[static_cast<std::size_t>(column)];
}

bool IsNumber(int column) {
  return !ColumnAt(column).pattern.empty();
}

int AlignmentOf(int column) {
  return static_cast<int>((IsNumber(column) ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

/// The number as far as it is shown: what looks the same keeps its order instead of changing places unseen. A cell that
/// is empty still comes first.
double ShownNumber(const TableRow& row, int column) {
  const auto number = row.numbers[static_cast<std::size_t>(column)];
  return number ? std::round(*number * 100) : -std::numeric_limits<double>::infinity();
}

QString CellText(const TableRow& row, int column) {
  return platform::qt::ToQt(row.cells[static_cast<std::size_t>(column)]);
}

}  // namespace

TableModel::TableModel(const std::vector<TableRow>& rows) : rows_(rows), rowCount_(static_cast<int>(rows.size())) {}

void TableModel::TellNewRows() {
  beginResetModel();
  rowCount_ = static_cast<int>(rows_.size());
  endResetModel();
}

void TableModel::TellChangedRows() {
  if (rowCount_ > 0) emit dataChanged(index(0, 0), index(rowCount_ - 1, kTableColumnCount - 1));
}

int TableModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : rowCount_;
}

int TableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : kTableColumnCount;
}

QVariant TableModel::data(const QModelIndex& index, int role) const {
  if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
  const TableRow& row = Row(index.row());
  switch (role) {
    case Qt::DisplayRole:
      return CellText(row, index.column());
    case Qt::TextAlignmentRole:
      return AlignmentOf(index.column());
    case Qt::ForegroundRole:
      return QColor::fromRgb(platform::qt::ToRgb(row.colour));
    case Qt::AccessibleDescriptionRole:  // what sighted people have from the colour
      return row.colour == kInRange ? QStringLiteral("in range") : QString();
    default:
      return {};
  }
}

QVariant TableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= kTableColumnCount) return {};
  if (role == Qt::DisplayRole) return platform::qt::ToQt(ColumnAt(section).caption);
  if (role == Qt::TextAlignmentRole) return AlignmentOf(section);
  if (role == Qt::ToolTipRole) return platform::qt::ToQt(ColumnAt(section).sense) + '\n' + QString(kSortHint);
  return {};
}

TableOrder::TableOrder(TableModel& model) : model_(model) {
  names_.setNumericMode(true);  // NOAA 9 before NOAA 15
  names_.setCaseSensitivity(Qt::CaseInsensitive);
  setSourceModel(&model);
}

bool TableOrder::lessThan(const QModelIndex& left, const QModelIndex& right) const {
  const int column = left.column();
  const TableRow& a = model_.Row(left.row());
  const TableRow& b = model_.Row(right.row());
  if (IsNumber(column)) return ShownNumber(a, column) < ShownNumber(b, column);
  return names_.compare(CellText(a, column), CellText(b, column)) < 0;
}

}  // namespace kestrava::views2d::ui
