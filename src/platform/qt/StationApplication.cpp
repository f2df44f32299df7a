#include "platform/qt/StationApplication.h"

#include "platform/Messages.h"
#include "platform/qt/Widgets.h"

namespace kestrava::platform::qt {

StationApplication::StationApplication(int& argc, char** argv) : QApplication(argc, argv) {
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
