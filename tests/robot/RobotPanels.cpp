// What the robot does in the windows of settings: ticks, nonsense in fields, searches, the map of places, keys.
#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QRadioButton>
#include <QSlider>
#include <QTest>

#include "robot/Robot.h"

namespace kestrava::robot {

namespace {

constexpr int kBoxFromLeftPx = 10;

bool IsPanel(const QWidget& window) {
  return window.objectName().startsWith("frmCON");
}

/// Lists of a window that have rows with tick boxes in sight.
std::vector<QListWidget*> TickLists(const QWidget* window) {
  auto lists = UsableIn<QListWidget>(window);
  std::erase_if(lists, [](const QListWidget* list) {
    return list->count() == 0 || !list->item(0)->data(Qt::CheckStateRole).isValid();
  });
  return lists;
}

std::vector<QListWidgetItem*> RowsInSight(const QListWidget& list) {
  std::vector<QListWidgetItem*> rows;
  for (int row = 0; row < list.count(); ++row) {
    QListWidgetItem* item = list.item(row);
    if (!item->isHidden() && list.viewport()->rect().contains(list.visualItemRect(item).center())) rows.push_back(item);
  }
  return rows;
}

}  // namespace

bool DeletesTheFirstGroup(const QWidget& control) {
  if (control.objectName() != "BUTdeletegroup") return false;
  const auto* groups = control.window()->findChild<QListWidget*>("GroupList");
  return groups && groups->currentRow() <= 0;
}

/// One of the windows of settings that are open; where none is, one is opened.
QWidget* Robot::SomePanel() {
  std::vector<QWidget*> panels;
  for (const auto& [name, window] : station_.Windows().Loaded()) {
    auto* widget = dynamic_cast<QWidget*>(window);
    if (widget && widget->isVisible() && IsPanel(*widget)) panels.push_back(widget);
  }
  if (!panels.empty()) return ComeTo(OneOf(panels));
  static const std::vector<const char*> names{"frmCONmain", "frmCONGroups", "frmCONlocations", "frmCON2D"};
  const char* name = OneOf(names);
  Do(std::string("opens ") + name, [=, this] { station_.Windows().Show(name); });
  return dynamic_cast<QWidget*>(station_.Windows().Find(name));
}

/// By a click on its box or somewhere on the row, or by the space bar.
void Robot::TickARow() {
  const auto lists = TickLists(SomePanel());
  if (lists.empty()) return;
  QListWidget* list = OneOf(lists);
  const auto rows = RowsInSight(*list);
  if (rows.empty()) return;
  QListWidgetItem* item = OneOf(rows);
  const std::string deed = " a row of " + list->objectName().toStdString();
  if (Below(3) == 0) {
    Do("presses space on" + deed, [=] {
      list->setFocus();
      list->setCurrentItem(item);
      QTest::keyClick(list, Qt::Key_Space);
    });
    return;
  }
  const QRect place = list->visualItemRect(item);
  const int x = Below(3) > 0 ? kBoxFromLeftPx : Below(place.width());
  Do("clicks" + deed,
     [=] { QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, QPoint(place.left() + x, place.center().y())); });
}

/// Over what a field holds: numbers beyond all bounds, of other machines, none at all.
void Robot::TypeNonsense() {
  static const std::vector<const char*> texts{
      "",         "-",     "51,5", "51.5",  "51.5.5", "1.000,5", "1e9", "-0", "999999999999",  "  ",
      "nonsense", "a;b,c", "91",   "-33.5", "0x1F",   "12abc",   "+7",  "60", "359.999999999", "\\\"'%s"};
  auto fields = UsableIn<QLineEdit>(SomePanel());
  std::erase_if(fields, [](const QLineEdit* field) { return field->isReadOnly(); });
  if (fields.empty()) return;
  QLineEdit* field = OneOf(fields);
  const QString text = OneOf(texts);
  Do("types \"" + text.toStdString() + "\" into " + field->objectName().toStdString(), [=] {
    field->setFocus();
    field->selectAll();
    if (text.isEmpty()) QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
  });
}

/// In the box of cities or in the one above the satellites; then he takes what was found, looks at it, or leaves it.
void Robot::SearchSomething() {
  static const std::vector<const char*> texts{"san", "london", "o", "noaa", "iss", "zzzz", "new york", "st. j", "4"};
  static const std::vector<Qt::Key> ends{Qt::Key_Return, Qt::Key_Down, Qt::Key_Escape, Qt::Key_Tab, Qt::Key_Backspace};
  const QWidget* panel = SomePanel();
  if (!panel) return;
  auto* field = panel->findChild<QLineEdit*>("Tcity");
  if (!field) field = panel->findChild<QLineEdit*>("FilterBox");
  if (!field || !field->isVisible()) return;
  const QString text = OneOf(texts);
  const Qt::Key end = OneOf(ends);
  const int downs = Below(4);
  Do("searches \"" + text.toStdString() + "\" in " + field->objectName().toStdString(), [=] {
    field->setFocus();
    field->selectAll();
    QTest::keyClicks(field, text);
    for (int i = 0; i < downs; ++i) {
      QWidget* popUp = QApplication::activePopupWidget();
      QTest::keyClick(popUp ? popUp : field, Qt::Key_Down);
    }
    QWidget* popUp = QApplication::activePopupWidget();
    QTest::keyClick(popUp ? popUp : field, end);
  });
}

void Robot::ClickThePlaceMap() {
  static const std::vector<Qt::Key> keys{Qt::Key_Left, Qt::Key_Right, Qt::Key_Up, Qt::Key_Down};
  static const std::vector<Qt::KeyboardModifier> modifiers{Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier};
  const QWidget* panel = SomePanel();
  auto* map = panel ? panel->findChild<QWidget*>("PlaceMap") : nullptr;
  if (!map || !map->isVisible() || map->width() < 2 || map->height() < 2) return;
  if (Below(2) == 0) {
    const QPoint at(Below(map->width()), Below(map->height()));
    Do("clicks the map of places", [=] { QTest::mouseClick(map, Qt::LeftButton, {}, at); });
    return;
  }
  const Qt::Key key = OneOf(keys);
  const Qt::KeyboardModifier modifier = OneOf(modifiers);
  const int times = 1 + Below(20);
  Do("moves the mark on the map of places", [=] {
    map->setFocus();
    for (int i = 0; i < times; ++i) QTest::keyClick(map, key, modifier);
  });
}

/// Any control, as Tab would have led to it: the next keys go there.
void Robot::GoToAControl() {
  auto controls = UsableIn<QWidget>(SomePanel());
  std::erase_if(controls, [](const QWidget* control) { return !(control->focusPolicy() & Qt::TabFocus); });
  if (controls.empty()) return;
  QWidget* control = OneOf(controls);
  Do("goes to " + control->objectName().toStdString(), [=] { control->setFocus(Qt::TabFocusReason); });
}

/// Sliders, combo lists and groups of choices by the keys that they know.
void Robot::MoveByKeys() {
  static const std::vector<Qt::Key> keys{Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,       Qt::Key_Down,
                                         Qt::Key_Home, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_End};
  const QWidget* panel = SomePanel();
  std::vector<QWidget*> controls;
  for (QWidget* slider : UsableIn<QSlider>(panel)) controls.push_back(slider);
  for (QWidget* combo : UsableIn<QComboBox>(panel)) controls.push_back(combo);
  for (QWidget* choice : UsableIn<QRadioButton>(panel)) controls.push_back(choice);
  if (controls.empty()) return;
  QWidget* control = OneOf(controls);
  const Qt::Key key = OneOf(keys);
  const int times = 1 + Below(5);
  Do("presses keys in " + control->objectName().toStdString(), [=] {
    control->setFocus();
    for (int i = 0; i < times; ++i) {
      QWidget* target = control->window()->focusWidget() ? control->window()->focusWidget() : control;
      QTest::keyClick(target, key);
    }
  });
}

}  // namespace kestrava::robot
