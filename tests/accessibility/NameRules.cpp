#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QCalendarWidget>
#include <QGroupBox>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QScrollArea>
#include <QTabBar>
#include <QTableView>
#include <algorithm>
#include <map>

#include "Controls.h"
#include "Rules.h"

namespace kestrava::accessibility {

namespace {

constexpr int kRowsLookedAt = 50;

/// A screen reader gets it from here and from nowhere else.
QString NameOf(QObject& object) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&object);
  return spoken ? spoken->text(QAccessible::Name).trimmed() : QString();
}

bool SaysWhatItIs(const QWidget& control) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&control));
  if (!spoken) return false;
  const QAccessible::Role role = spoken->role();
  return role != QAccessible::NoRole && role != QAccessible::Client && role != QAccessible::Window &&
         role != QAccessible::Pane;
}

void CheckName(const Visit& visit, QWidget& control, Findings& findings) {
  const QString name = NameOf(control);
  if (name.isEmpty()) {
    findings.Add(visit, control, "no accessible name");
  } else if (name == control.objectName()) {
    findings.Add(visit, control, "only its object name as accessible name");
  }
}

void CheckTabs(const Visit& visit, const QTabBar& bar, Findings& findings) {
  for (int tab = 0; tab < bar.count(); ++tab)
    if (bar.tabText(tab).trimmed().isEmpty() && bar.accessibleTabName(tab).isEmpty())
      findings.Add(visit, bar, "tab " + QString::number(tab) + " without a name");
}

QString EntryOf(const QMenu& menu, const QAction& entry) {
  return "entry " + entry.objectName() + " of the menu " + menu.objectName();
}

int CheckEntries(const Visit& visit, QMenu& menu, Findings& findings) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&menu);
  int place = 0;
  for (QAction* entry : menu.actions()) {
    QAccessibleInterface* one = spoken ? spoken->child(place++) : nullptr;
    if (entry->isSeparator() || !entry->isVisible()) continue;
    const QString name = one ? one->text(QAccessible::Name).trimmed() : QString();
    if (name.isEmpty() || name == entry->objectName()) findings.Add(visit, EntryOf(menu, *entry), "no accessible name");
    if (one && one->role() != QAccessible::MenuItem && one->role() != QAccessible::CheckBox)
      findings.Add(visit, EntryOf(menu, *entry), "no role of a menu entry");
  }
  return place;
}

/// A screen reader hears what stands in a cell.
int CheckCells(const Visit& visit, QAbstractItemView& view, Findings& findings) {
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(&view);
  QAccessibleTableInterface* table = spoken ? spoken->tableInterface() : nullptr;
  if (!table || !view.model()) {
    findings.Add(visit, view, "no rows for a screen reader");
    return 0;
  }
  const int rows = std::min(view.model()->rowCount(), kRowsLookedAt);
  for (int row = 0; row < rows; ++row) {
    bool heard = false;
    for (int column = 0; column < table->columnCount(); ++column) {
      QAccessibleInterface* cell = table->cellAt(row, column);
      const QString shown = view.model()->index(row, column).data(Qt::DisplayRole).toString();
      const QString said = cell ? cell->text(QAccessible::Name) : QString();
      heard = heard || !said.trimmed().isEmpty();
      if (!shown.isEmpty() && said.isEmpty()) findings.Add(visit, view, "the cell \"" + shown + "\" cannot be read");
    }
    if (!heard) findings.Add(visit, view, "row " + QString::number(row) + " cannot be read");
  }
  return rows;
}

/// Heads sort by a click; the keys find the same in a menu of the list.
void CheckHeads(const Visit& visit, const QTableView& view, Findings& findings) {
  if (!view.isSortingEnabled()) return;
  QStringList entries;
  for (const QMenu* menu : view.findChildren<QMenu*>())
    for (const QAction* entry : menu->actions()) entries << QString(entry->text()).remove('&');
  for (int column = 0; column < view.model()->columnCount(); ++column) {
    const QString head = view.model()->headerData(column, Qt::Horizontal).toString();
    if (!entries.contains(head)) findings.Add(visit, view, "no way by keyboard to sort by \"" + head + '"');
  }
}

class Letters {
 public:
  Letters(const Visit& visit, Findings& findings) : visit_(visit), findings_(findings) {}

  void Add(const QString& text, const QString& owner) {
    const QKeySequence letter = QKeySequence::mnemonic(text);
    if (letter.isEmpty()) return;
    const auto [place, fresh] = owners_.emplace(letter.toString(), owner);
    if (!fresh) findings_.Add(visit_, owner, letter.toString() + " stands for " + place->second + " too");
  }
  Count Number() const { return static_cast<Count>(owners_.size()); }

 private:
  const Visit& visit_;
  Findings& findings_;
  std::map<QString, QString> owners_;
};

void CheckLabel(const Visit& visit, const QLabel& label, Letters& letters, Findings& findings) {
  const QWidget* buddy = label.buddy();
  if (!buddy) {
    if (!QKeySequence::mnemonic(label.text()).isEmpty() && label.textFormat() != Qt::PlainText)
      findings.Add(visit, label, "a letter that leads to no control");
    return;
  }
  if (buddy->window() != label.window()) return findings.Add(visit, label, "its buddy stands in another window");
  if (buddy->isEnabled()) letters.Add(label.text(), Described(label));
}

}  // namespace

Count CheckNames(const Visit& visit, Findings& findings) {
  Count looked = 0;
  for (QWidget* control : ControlsOf(visit.root)) {
    ++looked;
    // An area that scrolls is no control by itself, but is told by its name when the keyboard comes to it.
    if (!qobject_cast<QScrollArea*>(control) && !SaysWhatItIs(*control)) findings.Add(visit, *control, "no role");
    if (const auto* tabs = qobject_cast<const QTabBar*>(control)) {
      CheckTabs(visit, *tabs, findings);
    } else if (!qobject_cast<const QMenuBar*>(control)) {
      CheckName(visit, *control, findings);
    }
  }
  for (const auto* calendar : Visible<QCalendarWidget>(visit.root))
    for (auto* button : calendar->findChildren<QAbstractButton*>())
      if (button->isVisible() && NameOf(*button).isEmpty()) findings.Add(visit, *button, "no accessible name");
  return looked;
}

Count CheckMenus(const Visit& visit, Findings& findings) {
  Count looked = 0;
  for (QMenu* menu : visit.root.findChildren<QMenu*>()) {
    if (menu->actions().isEmpty() || IsPart(*menu)) continue;
    if (NameOf(*menu).isEmpty()) findings.Add(visit, *menu, "no accessible name");
    looked += CheckEntries(visit, *menu, findings);
  }
  for (const auto* bar : Visible<QMenuBar>(visit.root))
    for (const QAction* menu : bar->actions())
      if (QKeySequence::mnemonic(menu->text()).isEmpty())
        findings.Add(visit, *bar, "no letter for the menu \"" + menu->text() + '"');
  return looked;
}

Count CheckRows(const Visit& visit, Findings& findings) {
  Count looked = 0;
  for (auto* view : Visible<QAbstractItemView>(visit.root)) {
    if (IsPart(*view)) continue;
    looked += CheckCells(visit, *view, findings);
    if (const auto* table = qobject_cast<const QTableView*>(view)) CheckHeads(visit, *table, findings);
  }
  return looked;
}

Count CheckMnemonics(const Visit& visit, Findings& findings) {
  Letters letters(visit, findings);
  for (const auto* label : Visible<QLabel>(visit.root)) CheckLabel(visit, *label, letters, findings);
  for (const auto* button : Visible<QAbstractButton>(visit.root))
    if (button->isEnabled() && !IsPart(*button)) letters.Add(button->text(), Described(*button));
  for (const auto* box : Visible<QGroupBox>(visit.root))
    if (box->isEnabled()) letters.Add(box->title(), Described(*box));
  for (const auto* bar : Visible<QTabBar>(visit.root))
    for (int tab = 0; tab < bar->count(); ++tab) letters.Add(bar->tabText(tab), "tab \"" + bar->tabText(tab) + '"');
  for (const auto* bar : Visible<QMenuBar>(visit.root))
    for (const QAction* menu : bar->actions()) letters.Add(menu->text(), "menu \"" + menu->text() + '"');
  return letters.Number();
}

}  // namespace kestrava::accessibility
