#include "TableLooks.h"

#include <QAbstractItemView>
#include <QPainter>
#include <QPainterPath>

#include "platform/qt/Theme.h"

namespace kestrava::views2d::ui {

using platform::qt::Tones;

namespace {

constexpr int kStylesMarginPx = 3;  // what a style leaves free beside a text by itself
constexpr int kFocusBarPx = 3;
constexpr int kHeadMarginPx = 6;  // above and below a caption
constexpr int kArrowWidthPx = 8;
constexpr int kArrowHeightPx = 5;
constexpr int kArrowGapPx = 4;

bool IsSelected(const QStyleOptionViewItem& option, const QModelIndex& index) {
  const auto* view = qobject_cast<const QAbstractItemView*>(option.widget);
  return view && index.isValid() && view->selectionModel()->isSelected(index);
}

QPainterPath Arrow(const QRectF& box, bool upwards) {
  QPainterPath path(upwards ? box.bottomLeft() : box.topLeft());
  path.lineTo(upwards ? box.bottomRight() : box.topRight());
  path.lineTo(box.center().x(), upwards ? box.top() : box.bottom());
  path.closeSubpath();
  return path;
}

}  // namespace

void TableCells::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QRect& cell = option.rect;
  const QColor& accent = Tones().accent;
  const bool selected = option.state & QStyle::State_Selected;
  if (selected) painter->fillRect(cell, kGroundOfSelected);
  QStyleOptionViewItem inner = option;
  inner.rect = cell.adjusted(kCellPaddingPx - kStylesMarginPx, 0, kStylesMarginPx - kCellPaddingPx, 0);
  inner.state &= ~QStyle::State_HasFocus;
  QStyledItemDelegate::paint(painter, inner, index);
  const bool first = !IsSelected(option, index.siblingAtRow(index.row() - 1));
  if (selected && first) painter->fillRect(cell.left(), cell.top(), cell.width(), 1, accent);
  if (selected) painter->fillRect(cell.left(), cell.bottom(), cell.width(), 1, accent);
  const bool focus = option.state & QStyle::State_HasFocus;
  if (focus) painter->fillRect(cell.left(), cell.top(), kFocusBarPx, cell.height(), accent);
}

void TableCells::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  option->palette.setBrush(QPalette::HighlightedText, option->palette.brush(QPalette::Text));
}

TableHeads::TableHeads(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {
  setHighlightSections(false);
  setSectionsClickable(true);
  setSortIndicatorClearable(true);  // a third click: the order of the favourites again
  setSortIndicator(-1, Qt::AscendingOrder);
  setAccessibleName(tr("Heads of the columns"));
}

QString TableHeads::Caption(int column) const {
  return model()->headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
}

bool TableHeads::IsOnTheRight(int column) const {
  return model()->headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt() & Qt::AlignRight;
}

QSize TableHeads::sectionSizeFromContents(int column) const {
  return {fontMetrics().horizontalAdvance(Caption(column)) + 2 * kCellPaddingPx + kArrowWidthPx + kArrowGapPx,
          fontMetrics().height() + 2 * kHeadMarginPx};
}

void TableHeads::paintEvent(QPaintEvent* event) {
  QPainter(viewport()).fillRect(viewport()->rect(), Tones().raised);
  QHeaderView::paintEvent(event);
}

void TableHeads::paintSection(QPainter* painter, const QRect& box, int column) const {
  painter->save();
  painter->setClipRect(box);
  painter->fillRect(box, Tones().raised);
  painter->fillRect(box.left(), box.bottom(), box.width(), 1, Tones().edge);
  const QRect inner = box.adjusted(kCellPaddingPx, 0, -kCellPaddingPx, -1);
  const bool right = IsOnTheRight(column);
  painter->setPen(Tones().text);
  painter->drawText(inner, (right ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter, Caption(column));
  if (sortIndicatorSection() == column) {
    const int captionPx = fontMetrics().horizontalAdvance(Caption(column));
    const int left =
        right ? inner.right() - captionPx - kArrowGapPx - kArrowWidthPx : inner.left() + captionPx + kArrowGapPx;
    const int top = inner.center().y() - kArrowHeightPx / 2;  // on whole pixels, its middle row on the head's
    const QRectF place(left, top, kArrowWidthPx, kArrowHeightPx);
    painter->setRenderHint(QPainter::Antialiasing);
    painter->fillPath(Arrow(place, sortIndicatorOrder() == Qt::AscendingOrder), Tones().accent);
  }
  painter->restore();
}

}  // namespace kestrava::views2d::ui
