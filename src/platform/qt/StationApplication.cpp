#include "platform/qt/StationApplication.h"

#include <QIcon>

#include "platform/Messages.h"
#include "platform/Version.h"
#include "platform/qt/Fonts.h"
#include "platform/qt/Widgets.h"

#include "ScreenReader.h"

namespace kestrava::platform::qt {

StationApplication::StationApplication(int& argc, char** argv) : QApplication(argc, argv) {
  setApplicationName("kestrava");
  setApplicationVersion(ToQt(LongVersion()));
  setDesktopFileName("kestrava");
  setWindowIcon(QIcon(":/pictures/kestrava.svg"));
  setFont(InterfaceFont());
  DescribeToScreenReaders();
}

bool StationApplication::notify(QObject* receiver, QEvent* event) {
  bool handled = true;
  const QString name = receiver == nullptr ? QString() : receiver->objectName();
  RunUntrapped(name.isEmpty() ? std::string("What you asked for") : "The work of " + FromQt(name),
               [&] { handled = QApplication::notify(receiver, event); });
  return handled;
}

}  // namespace kestrava::platform::qt
