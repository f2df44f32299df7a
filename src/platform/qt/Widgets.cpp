#include "platform/qt/Widgets.h"

#include <QHeaderView>

#include "platform/qt/Theme.h"

namespace kestrava::platform::qt {
namespace {

constexpr int kNarrowColumnPx = 8;
constexpr int kColumnMarginPx = 14;

void MakeHeading(QTreeWidgetItem& item, const QFont& font) {
  QFont bold = font;
  bold.setBold(true);
  for (int column = 0; column < item.columnCount(); ++column) {
    item.setFont(column, bold);
    if (SkinIsOn()) item.setForeground(column, Tones().accent);
  }
}

}  // namespace

QString ArrayName(std::string_view array, int index) {
  return ToQt(array) + '(' + QString::number(index) + ')';
}

QString ToQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::string FromQt(const QString& text) {
  return text.toStdString();
}

ListWidget::ListWidget(const std::vector<std::string>& columns, QWidget* parent) : QTreeWidget(parent) {
  QStringList names;
  for (const std::string& column : columns) names << ToQt(column);
  setHeaderLabels(names);
  setHeaderHidden(true);
  setRootIsDecorated(false);
  setItemsExpandable(false);
  setIndentation(0);
  setUniformRowHeights(true);
  setAllColumnsShowFocus(true);
  setAlternatingRowColors(true);
  setTextElideMode(Qt::ElideRight);
  header()->setMinimumSectionSize(kNarrowColumnPx);
  header()->setStretchLastSection(false);
  for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
    header()->setSectionResizeMode(column, column == 1 ? QHeaderView::Stretch : QHeaderView::Fixed);
    header()->resizeSection(
        column, column == 0 ? kNarrowColumnPx : fontMetrics().horizontalAdvance("00:00M") + kColumnMarginPx);
  }
}

void ListWidget::Clear() {
  clear();
}

void ListWidget::AddRow(const std::vector<std::string>& subItems) {
  auto* item = new QTreeWidgetItem;  // the tree owns it from the next lines on
  int column = 0;
  for (const std::string& text : subItems) item->setText(++column, ToQt(text));
  if (firstRowIsHeading_ && topLevelItemCount() == 0) MakeHeading(*item, font());
  addTopLevelItem(item);
}

int ListWidget::RowCount() const {
  return topLevelItemCount();
}

std::string ListWidget::Text(int row, int column) const {
  const QTreeWidgetItem* item = topLevelItem(row);
  return item == nullptr ? std::string() : FromQt(item->text(column));
}

}  // namespace kestrava::platform::qt
