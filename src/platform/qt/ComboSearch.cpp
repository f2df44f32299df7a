#include "ComboSearch.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QListView>
#include <QSignalBlocker>

namespace kestrava::platform::qt {

ComboSearch::ComboSearch(QComboBox& combo)
    : QLineEdit(combo.view()->parentWidget()), combo_(combo), list_(static_cast<QListView&>(*combo.view())) {
  setObjectName("ComboSearch");
  setAccessibleName(tr("Search in the list"));
  setPlaceholderText(tr("Part of a name"));
  if (auto* column = qobject_cast<QBoxLayout*>(parentWidget()->layout())) column->insertWidget(0, this);
  connect(this, &QLineEdit::textChanged, this, [this] { Narrow(); });
}

int ComboSearch::ShowMatches() {
  const QString wanted = text().trimmed();
  int first = -1;
  for (int row = 0; row < combo_.count(); ++row) {
    const bool shown = combo_.itemText(row).contains(wanted, Qt::CaseInsensitive);
    if (list_.isRowHidden(row) == shown) list_.setRowHidden(row, !shown);
    if (shown && first < 0) first = row;
  }
  return first;
}

/// Return takes the entry that is marked: always one that can be seen, or none.
void ComboSearch::Narrow() {
  const int first = ShowMatches();
  const QModelIndex marked = list_.currentIndex();
  if (marked.isValid() && !list_.isRowHidden(marked.row())) return list_.scrollTo(marked);
  list_.setCurrentIndex(first < 0 ? QModelIndex() : list_.model()->index(first, combo_.modelColumn()));
}

void ComboSearch::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Escape:
      if (text().isEmpty()) return combo_.hidePopup();
      return clear();
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
    case Qt::Key_Return:
    case Qt::Key_Enter:
      QCoreApplication::sendEvent(&list_, event);
      return;
    default:
      QLineEdit::keyPressEvent(event);
  }
}

void ComboSearch::hideEvent(QHideEvent* event) {
  QLineEdit::hideEvent(event);
  const QSignalBlocker quiet(this);
  clear();
  ShowMatches();
}

}  // namespace kestrava::platform::qt
