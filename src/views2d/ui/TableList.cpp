#include "TableList.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <algorithm>

#include "platform/qt/Fonts.h"
#include "platform/qt/ImageSurface.h"
#include "platform/qt/TableLists.h"
#include "platform/qt/Widgets.h"

#include "TableLooks.h"

namespace kestrava::views2d::ui {

namespace {

constexpr QColor kHint{0xa8, 0xb0, 0xba};

constexpr int kFontPx = 13;
constexpr int kRowMarginPx = 9;
constexpr int kCellMarginPx = 2 * kCellPaddingPx + 2;
constexpr int kLastColumn = kTableColumnCount - 1;

constexpr const char* kNoFavourites =
    "There are no favourites yet.\n\nChoose some in \"Groups and Favourites\"; they stand here when this window is "
    "opened anew.";

}  // namespace

TableList::TableList(const std::vector<TableRow>& rows, QWidget* parent)
    : QTableView(parent), rows_(rows), model_(rows), order_(model_) {
  BuildLooks();
  setModel(&order_);
  BuildHeads();
  menu_ =
      platform::qt::AddCopyMenu(*this, "mnuTable", tr("Table"), [this](bool withHeads) { CopySelection(withHeads); });
  AddOrders();
  FitColumns();
}

TableList::~TableList() {
  setModel(nullptr);  // the view would ask it for its rows once more at its own end
}

void TableList::BuildLooks() {
  QPalette dark = palette();
  dark.setColor(QPalette::Base, kGround);
  dark.setColor(QPalette::AlternateBase, kGroundOfEverySecond);
  dark.setColor(QPalette::Text, QColor::fromRgb(platform::qt::ToRgb(kOutOfRange)));
  dark.setColor(QPalette::Highlight, kGroundOfSelected);
  dark.setColor(QPalette::HighlightedText, dark.color(QPalette::Text));
  setPalette(dark);
  QFont readable = platform::qt::InterfaceFont();
  readable.setPixelSize(kFontPx);
  setFont(readable);
  setItemDelegate(new TableCells(this));
  platform::qt::ShapeRows(*this, kRowMarginPx);
}

void TableList::BuildHeads() {
  auto* heads = new TableHeads(this);
  setHorizontalHeader(heads);
  setSortingEnabled(true);
  connect(heads, &QHeaderView::sectionResized, this, [this](int column) {
    if (!fitting_ && column != kLastColumn) FillWithLastColumn();
  });
}

/// What a click on a head does, for who has no mouse.
void TableList::AddOrders() {
  menu_->addSection(tr("Sort by"));
  for (int column = 0; column < kTableColumnCount; ++column) {
    QString head = order_.headerData(column, Qt::Horizontal, Qt::DisplayRole).toString();
    QAction* entry = menu_->addAction(head.replace("&", "&&"), this, [this, column] {
      const bool again = horizontalHeader()->sortIndicatorSection() == column &&
                         horizontalHeader()->sortIndicatorOrder() == Qt::AscendingOrder;
      sortByColumn(column, again ? Qt::DescendingOrder : Qt::AscendingOrder);
    });
    entry->setObjectName(platform::qt::ArrayName("mnuSort", column));
  }
  QAction* none =
      menu_->addAction(tr("Order of the Favourites"), this, [this] { sortByColumn(-1, Qt::AscendingOrder); });
  none->setObjectName("mnuSortNone");
}

void TableList::ShowNewRows() {
  model_.TellNewRows();
  FitColumns();
}

void TableList::ShowChangedRows() {
  model_.TellChangedRows();
  WidenColumns();
}

/// Columns for heads, usual texts and the names, before anything is known of the rest.
void TableList::FitColumns() {
  longest_ = {};
  fitting_ = true;
  for (int column = 0; column < kTableColumnCount; ++column) {
    const int needed = std::max(horizontalHeader()->sectionSizeHint(column),
                                WidthFor(kTableColumns[static_cast<std::size_t>(column)].widest));
    setColumnWidth(column, needed);
    if (column == kLastColumn) lastColumnPx_ = needed;
  }
  for (const TableRow& row : rows_) setColumnWidth(0, std::max(columnWidth(0), WidthFor(row.cells[0])));
  fitting_ = false;
  WidenColumns();
  FillWithLastColumn();
}

/// Digits are all equally wide, so only a text that is longer than any before can be wider; names never change.
void TableList::WidenColumns() {
  for (int column = 1; column < kLastColumn; ++column) {
    std::size_t& longest = longest_[static_cast<std::size_t>(column)];
    for (const TableRow& row : rows_) {
      const std::string& text = row.cells[static_cast<std::size_t>(column)];
      if (text.size() <= longest) continue;
      longest = text.size();
      setColumnWidth(column, std::max(columnWidth(column), WidthFor(text)));
    }
  }
}

int TableList::WidthFor(std::string_view text) const {
  return fontMetrics().horizontalAdvance(platform::qt::ToQt(text)) + kCellMarginPx;
}

/// No empty strip beside the last column in a wide window.
void TableList::FillWithLastColumn() {
  int others = 0;
  for (int column = 0; column < kLastColumn; ++column) others += columnWidth(column);
  setColumnWidth(kLastColumn, std::max(lastColumnPx_, viewport()->width() - others));
}

int TableList::WholeWidth() const {
  int width = lastColumnPx_ + 2 * frameWidth() + style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, this);
  for (int column = 0; column < kLastColumn; ++column) width += columnWidth(column);
  return width;
}

std::vector<int> TableList::SelectedRows() const {
  std::vector<int> shown;
  for (const QModelIndex& index : selectionModel()->selectedRows()) shown.push_back(index.row());
  std::sort(shown.begin(), shown.end());
  for (int& row : shown) row = order_.RowOf(row);
  return shown;
}

void TableList::CopySelection(bool withHeads) {
  const std::vector<int> which = SelectedRows();
  if (which.empty()) return;
  QGuiApplication::clipboard()->setText(platform::qt::ToQt(RowsAsText(rows_, which, withHeads)));
}

/// The toolkit's own copy would take one cell.
void TableList::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return CopySelection(false);
  if (event->key() == Qt::Key_Escape) return event->ignore();  // the window's
  QTableView::keyPressEvent(event);
}

void TableList::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (model_.rowCount() > 0) return;
  QPainter painter(viewport());
  painter.setPen(kHint);
  painter.drawText(viewport()->rect().adjusted(kCellMarginPx, 0, -kCellMarginPx, 0), Qt::AlignCenter | Qt::TextWordWrap,
                   tr(kNoFavourites));
}

void TableList::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  FillWithLastColumn();
}

}  // namespace kestrava::views2d::ui
