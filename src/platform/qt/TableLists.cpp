#include "platform/qt/TableLists.h"

#include <QAction>
#include <QHeaderView>

#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {

void ShapeRows(QTableView& list, int rowMarginPx) {
  list.setAlternatingRowColors(true);
  list.setShowGrid(false);
  list.setWordWrap(false);
  list.setCornerButtonEnabled(false);
  list.setSelectionBehavior(QTableView::SelectRows);
  list.setSelectionMode(QTableView::ExtendedSelection);
  list.setEditTriggers(QTableView::NoEditTriggers);
  list.setTabKeyNavigation(false);
  list.setHorizontalScrollMode(QTableView::ScrollPerPixel);
  list.verticalHeader()->hide();
  list.verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  list.verticalHeader()->setDefaultSectionSize(list.fontMetrics().height() + rowMarginPx);
}

QMenu* AddCopyMenu(QTableView& list, const QString& menuName, const QString& accessibleName,
                   const std::function<void(bool withHeads)>& copy) {
  QMenu* menu = Named(new QMenu(&list), menuName, accessibleName);
  const auto add = [&](const char* name, const QString& text, const QKeySequence& key, auto deed) {
    QAction* entry = menu->addAction(text, &list, deed);
    entry->setObjectName(name);
    entry->setShortcut(key);
    entry->setShortcutContext(Qt::WidgetShortcut);
    list.addAction(entry);
  };
  add("mnuCopy", QMenu::tr("&Copy"), QKeySequence::Copy, [copy] { copy(false); });
  add("mnuCopyHeads", QMenu::tr("Copy with &Heads"), Qt::CTRL | Qt::SHIFT | Qt::Key_C, [copy] { copy(true); });
  menu->addSeparator();
  add("mnuSelectAll", QMenu::tr("Select &All"), QKeySequence::SelectAll, [&list] { list.selectAll(); });
  list.setContextMenuPolicy(Qt::CustomContextMenu);
  QObject::connect(&list, &QWidget::customContextMenuRequested, menu,
                   [&list, menu](QPoint at) { menu->popup(list.viewport()->mapToGlobal(at)); });
  return menu;
}

}  // namespace kestrava::platform::qt
