#include "PassListModel.h"

#include <QColor>
#include <QFont>

#include "platform/qt/Theme.h"
#include "platform/qt/Widgets.h"

namespace kestrava::predict::ui {

using platform::qt::ToQt;

namespace {

/// Cells of a column are all equally wide, so their digits stand below each other; only names differ. The last column
/// takes what is left of a wide window: its texts stay beside the others.
int AlignmentOf(int column) {
  const bool left = column == kSatelliteCell || column == kVisibleCell;
  return static_cast<int>((left ? Qt::AlignLeft : Qt::AlignHCenter) | Qt::AlignVCenter);
}

/// A pass that can be seen by eye catches it.
bool StandsOut(const PassRow& row, int column) {
  return column == kVisibleCell && row[kVisibleCell] == YesNoCell(true);
}

QFont Bold() {
  QFont font;
  font.setBold(true);
  return font;
}

}  // namespace

void PassListModel::TellRows() {
  if (shownRevision_ == table_.Revision()) return;
  shownRevision_ = table_.Revision();
  const std::vector<PassRow>& rows = table_.Rows();
  const int now = table_.RowCount();
  const bool grew = shownRows_ > 0 && now >= shownRows_ && rows[static_cast<std::size_t>(shownRows_) - 1] == lastShown_;
  if (grew && now > shownRows_) {
    beginInsertRows({}, shownRows_, now - 1);
    shownRows_ = now;
    endInsertRows();
  } else {
    beginResetModel();
    shownRows_ = now;
    endResetModel();
  }
  lastShown_ = now > 0 ? rows.back() : PassRow();
}

int PassListModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : shownRows_;
}

int PassListModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(kPassCells);
}

QVariant PassListModel::data(const QModelIndex& index, int role) const {
  // The table may have fewer rows by now than was told.
  if (!index.isValid() || index.row() >= table_.RowCount()) return {};
  const PassRow& row = table_.Rows()[static_cast<std::size_t>(index.row())];
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(row[static_cast<std::size_t>(index.column())]);
    case Qt::TextAlignmentRole:
      return AlignmentOf(index.column());
    case Qt::ForegroundRole:
      if (StandsOut(row, index.column()) && platform::qt::SkinIsOn()) return platform::qt::Tones().accent;
      return {};
    case Qt::FontRole:
      return StandsOut(row, index.column()) ? QVariant(Bold()) : QVariant();
    default:
      return {};
  }
}

QVariant PassListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const PassHead& head = kPassHeads[static_cast<std::size_t>(section)];
  switch (role) {
    case Qt::DisplayRole:
      return ToQt(head.text);
    case Qt::TextAlignmentRole:
      return AlignmentOf(section);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
      return ToQt(head.explanation);
    default:
      return {};
  }
}

}  // namespace kestrava::predict::ui
