#include "ScreenReader.h"

#include <QAccessibleWidget>
#include <QList>
#include <QMenu>

#include "platform/qt/LedClockWidget.h"
#include "platform/qt/StationWindow.h"
#include "platform/qt/SurfaceWidget.h"

namespace kestrava::platform::qt {

namespace {

/// A window of ours. A menu that has popped up over it stands in no menu bar, where the toolkit would look for it: it
/// is the window's last child.
class WindowDescription : public QAccessibleWidget {
 public:
  explicit WindowDescription(QWidget* window) : QAccessibleWidget(window, QAccessible::Window) {}

  int childCount() const override { return QAccessibleWidget::childCount() + static_cast<int>(OpenMenus().size()); }

  QAccessibleInterface* child(int index) const override {
    const int own = QAccessibleWidget::childCount();
    const QList<QMenu*> menus = OpenMenus();
    if (index < own || index >= own + menus.size()) return QAccessibleWidget::child(index);
    return QAccessible::queryAccessibleInterface(menus[index - own]);
  }

  int indexOfChild(const QAccessibleInterface* wanted) const override {
    const QList<QMenu*> menus = OpenMenus();
    for (int i = 0; wanted && i < menus.size(); ++i)
      if (menus[i] == wanted->object()) return QAccessibleWidget::childCount() + i;
    return QAccessibleWidget::indexOfChild(wanted);
  }

 private:
  QList<QMenu*> OpenMenus() const {
    QList<QMenu*> menus = widget()->findChildren<QMenu*>(QString(), Qt::FindDirectChildrenOnly);
    menus.removeIf([](const QMenu* menu) { return !menu->isVisible(); });
    return menus;
  }
};

QAccessibleInterface* Describe(const QString& className, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (!widget) return nullptr;
  if (className == StationWindow::staticMetaObject.className()) return new WindowDescription(widget);
  if (className == SurfaceWidget::staticMetaObject.className())
    return new QAccessibleWidget(widget, QAccessible::Graphic);
  if (className == LedClockWidget::staticMetaObject.className())
    return new QAccessibleWidget(widget, QAccessible::Clock);
  return nullptr;
}

}  // namespace

void DescribeToScreenReaders() {
  QAccessible::installFactory(Describe);
}

}  // namespace kestrava::platform::qt
