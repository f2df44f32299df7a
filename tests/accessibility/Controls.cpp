#include "Controls.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QCalendarWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTextEdit>
#include <QToolButton>

#include "platform/qt/SurfaceWidget.h"

namespace kestrava::accessibility {

namespace {

template <class... Kinds>
bool IsOne(const QWidget* widget) {
  return ((qobject_cast<const Kinds*>(widget) != nullptr) || ...);
}

/// The list of a calendar's months, and what a narrow menu bar has no room for.
bool IsPartMenu(const QMenu& menu) {
  const auto* bar = qobject_cast<const QMenuBar*>(menu.parentWidget());
  if (bar) return !bar->actions().contains(menu.menuAction());
  return IsOne<QToolButton, QCalendarWidget>(menu.parentWidget());
}

/// A label that does something when it is clicked shows it by the pointer, or has links.
bool IsClickable(const QWidget& widget) {
  const auto* label = qobject_cast<const QLabel*>(&widget);
  const bool linked =
      label && (label->textInteractionFlags() & Qt::LinksAccessibleByMouse) && label->text().contains("<a ");
  return linked || (widget.testAttribute(Qt::WA_SetCursor) && widget.cursor().shape() == Qt::PointingHandCursor);
}

bool IsControl(const QWidget& widget) {
  const auto* box = qobject_cast<const QGroupBox*>(&widget);
  if (box) return box->isCheckable();
  if (IsOne<QAbstractButton, QLineEdit, QComboBox, QAbstractSpinBox, QAbstractSlider, QAbstractItemView, QTabBar,
            QCalendarWidget, QPlainTextEdit, QTextEdit, QMenuBar, platform::qt::SurfaceWidget>(&widget))
    return true;
  const bool takesKeys = (widget.focusPolicy() & Qt::TabFocus) && !widget.focusProxy();
  return takesKeys || IsClickable(widget);
}

}  // namespace

bool IsPart(const QWidget& widget) {
  if (const auto* menu = qobject_cast<const QMenu*>(&widget)) return IsPartMenu(*menu);
  if (IsOne<QScrollBar, QHeaderView>(&widget) || widget.objectName().startsWith("qt_")) return true;
  for (const QWidget* parent = widget.parentWidget(); parent; parent = parent->parentWidget()) {
    if (IsOne<QComboBox, QAbstractSpinBox, QCalendarWidget, QLineEdit, QTabBar, QMenuBar, QAbstractItemView>(parent))
      return true;
    if (parent->isWindow()) break;
  }
  return false;
}

std::vector<QWidget*> ControlsOf(const QWidget& window) {
  std::vector<QWidget*> controls;
  for (QWidget* widget : Visible<QWidget>(window))
    if (IsControl(*widget) && !IsPart(*widget)) controls.push_back(widget);
  return controls;
}

QRect BringIntoView(QWidget& control) {
  for (QWidget* parent = control.parentWidget(); parent && !parent->isWindow(); parent = parent->parentWidget()) {
    auto* area = qobject_cast<QScrollArea*>(parent);
    if (area && area->widget() && area->widget()->isAncestorOf(&control)) area->ensureWidgetVisible(&control);
  }
  return SeenPart(control).translated(control.mapTo(control.window(), QPoint()));
}

QRect SeenPart(const QWidget& widget) {
  QRect seen = widget.rect();
  for (const QWidget* within = &widget; !within->isWindow(); within = within->parentWidget())
    seen &= within->parentWidget()->rect().translated(-widget.mapTo(within->parentWidget(), QPoint()));
  return seen;
}

}  // namespace kestrava::accessibility
