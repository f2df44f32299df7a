#include "platform/qt/StationApplication.h"

#include <QAccessibleWidget>

#include "platform/Messages.h"
#include "platform/qt/LedClockWidget.h"
#include "platform/qt/SurfaceWidget.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {

namespace {

/// What screen readers are told of the widgets of our own that the toolkit knows nothing about.
QAccessibleInterface* TellOwnWidgets(const QString& className, QObject* object) {
  auto* picture = qobject_cast<SurfaceWidget*>(object);
  if (picture && className == SurfaceWidget::staticMetaObject.className())
    return new QAccessibleWidget(picture, QAccessible::Graphic);
  auto* clock = qobject_cast<LedClockWidget*>(object);
  if (clock && className == LedClockWidget::staticMetaObject.className())
    return new QAccessibleWidget(clock, QAccessible::Clock);
  return nullptr;
}

}  // namespace

StationApplication::StationApplication(int& argc, char** argv) : QApplication(argc, argv) {
  QAccessible::installFactory(TellOwnWidgets);
  setApplicationName(ToQt(kProgramTitle));
  setDesktopFileName("kestrava");
  setQuitOnLastWindowClosed(false);
}

bool StationApplication::notify(QObject* receiver, QEvent* event) {
  bool handled = true;
  const QString name = receiver == nullptr ? QString() : receiver->objectName();
  RunUntrapped(name.isEmpty() ? std::string("What you asked for") : "The work of " + FromQt(name),
               [&] { handled = QApplication::notify(receiver, event); });
  return handled;
}

}  // namespace kestrava::platform::qt
