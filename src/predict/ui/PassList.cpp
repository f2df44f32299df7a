#include "PassList.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <algorithm>

#include "platform/qt/ChoiceWidgets.h"
#include "platform/qt/TableLists.h"
#include "platform/qt/Widgets.h"

namespace kestrava::predict::ui {

namespace {

constexpr int kRowMarginPx = 8;
constexpr int kCellMarginPx = 16;
constexpr int kHeadMarginPx = 10;

constexpr const char* kEmpty = "The passes of a satellite stand here when they have been worked out.";

QString TextOf(const PassRow& row) {
  QStringList cells;
  for (const std::string& cell : row) cells << platform::qt::ToQt(cell).trimmed();
  return cells.join('\t');
}

QString TextOfHeads() {
  QStringList cells;
  for (const PassHead& head : kPassHeads) cells << platform::qt::ToQt(head.text);
  return cells.join('\t');
}

}  // namespace

PassList::PassList(const PassTable& table, QWidget* parent) : QTableView(parent), table_(table), model_(table) {
  BuildLooks();
  setModel(&model_);
  menu_ =
      platform::qt::AddCopyMenu(*this, "mnuPasses", tr("Passes"), [this](bool withHeads) { CopySelection(withHeads); });
  FitHeads();
}

PassList::~PassList() {
  setModel(nullptr);  // the view would ask it for its rows once more at its own end
}

void PassList::BuildLooks() {
  verticalHeader()->setMinimumSectionSize(1);
  platform::qt::ShapeRows(*this, kRowMarginPx);
  horizontalHeader()->setHighlightSections(false);
  horizontalHeader()->setStretchLastSection(true);
  QSizePolicy keepsItsPlace(QSizePolicy::Expanding, QSizePolicy::Expanding);
  keepsItsPlace.setRetainSizeWhenHidden(true);  // it is hidden while it is sorted
  setSizePolicy(keepsItsPlace);
}

/// Columns that show their heads and an ordinary row, before there is any.
void PassList::FitHeads() {
  static const PassRow ordinary{"ISS (ZARYA)", "00 NOV 0000", "00:00:00", "000", "00 (AZ 000)",
                                "00:00:00",    "000",         "Yes",      "Yes"};
  measuredRows_ = 0;
  measured_ = {};
  for (int column = 0; column < model_.columnCount(); ++column) {
    const int head = horizontalHeader()->sectionSizeHint(column) + kHeadMarginPx;
    setColumnWidth(column, std::max(head, WidthFor(ordinary[static_cast<std::size_t>(column)])));
  }
}

void PassList::ShowRows() {
  model_.TellRows();
  viewport()->update();
  if (model_.ShownRows() == 0) {
    FitHeads();
  } else {
    WidenColumns();
  }
}

void PassList::ShowAtTop(int row) {
  ShowRows();
  updateGeometries();  // else the scroll bar ends where it ended before the new rows
  scrollTo(model_.index(row, 0), PositionAtTop);
}

/// Columns grow with what comes in and never shrink while there are rows, so that nothing jumps under the eye.
void PassList::WidenColumns() {
  const std::vector<PassRow>& rows = table_.Rows();
  if (measuredRows_ > model_.ShownRows()) measuredRows_ = 0;
  for (; measuredRows_ < model_.ShownRows(); ++measuredRows_) {
    const PassRow& row = rows[static_cast<std::size_t>(measuredRows_)];
    // All other cells are as wide as the ordinary row's, to the digit.
    for (const std::size_t cell : {kSatelliteCell, kMaxElevationCell, kDurationCell}) {
      if (row[cell] == measured_[cell]) continue;
      measured_[cell] = row[cell];
      const int column = static_cast<int>(cell);
      const int needed = WidthFor(row[cell]);
      if (needed > columnWidth(column)) setColumnWidth(column, needed);
    }
  }
}

int PassList::WidthFor(const std::string& text) const {
  return fontMetrics().horizontalAdvance(platform::qt::ToQt(text)) + kCellMarginPx;
}

void PassList::CopySelection(bool withHeads) {
  std::vector<int> which;
  for (const QModelIndex& index : selectionModel()->selectedRows()) which.push_back(index.row());
  std::sort(which.begin(), which.end());
  QStringList lines;
  for (const int row : which) {
    if (row < table_.RowCount()) lines << TextOf(table_.Rows()[static_cast<std::size_t>(row)]);
  }
  if (lines.isEmpty()) return;
  if (withHeads) lines.prepend(TextOfHeads());
  QGuiApplication::clipboard()->setText(lines.join('\n') + '\n');
}

/// The toolkit's own copy would take one cell. Keys of the window pass through.
void PassList::keyPressEvent(QKeyEvent* event) {
  if (event->matches(QKeySequence::Copy)) return CopySelection(false);
  switch (event->key()) {
    case Qt::Key_Escape:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return event->ignore();
    default:
      QTableView::keyPressEvent(event);
  }
}

void PassList::paintEvent(QPaintEvent* event) {
  QTableView::paintEvent(event);
  if (model_.ShownRows() == 0) platform::qt::PaintHint(*viewport(), tr(kEmpty));
}

}  // namespace kestrava::predict::ui
