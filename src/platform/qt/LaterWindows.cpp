#include "platform/qt/LaterWindows.h"

#include <QMenu>

#include "platform/Doors.h"

namespace kestrava::platform::qt {

namespace {

/// The tool tip that a control has with its window, or the reason for its grey.
QString HintOf(const QString& hint, bool known) {
  if (!known) return kComesLater;
  return hint == kComesLater ? QString() : hint;
}

}  // namespace

void EnableByWindow(QWidget& control, std::string_view window) {
  const bool known = TheWindows().Knows(window);
  control.setEnabled(known);
  control.setToolTip(HintOf(control.toolTip(), known));
  control.setAccessibleDescription(HintOf(control.accessibleDescription(), known));
}

void EnableByWindow(QAction& entry, std::string_view window) {
  const bool known = TheWindows().Knows(window);
  entry.setEnabled(known);
  entry.setToolTip(known ? QString() : QString(kComesLater));  // without one it is the entry's own text
  for (QObject* where : entry.associatedObjects()) {
    if (auto* menu = qobject_cast<QMenu*>(where)) menu->setToolTipsVisible(!known || menu->toolTipsVisible());
  }
}

}  // namespace kestrava::platform::qt
