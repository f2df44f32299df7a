// The application object, of the program and of every test with windows: its name, its faces, what screen readers are
// told of its windows. The last net under all handlers: a fault that leaves one is told like any
// other, and never ends the process. Slots trap their own (RunUntrapped): the toolkit is not made for being unwound and
// may leave a little memory behind.
#pragma once

#include <QApplication>

namespace kestrava::platform::qt {

class StationApplication : public QApplication {
  Q_OBJECT

 public:
  StationApplication(int& argc, char** argv);
  bool notify(QObject* receiver, QEvent* event) override;
};

}  // namespace kestrava::platform::qt
