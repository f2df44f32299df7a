// One run of the station: its doors, its folder, its windows, its end.
#pragma once

#include <QApplication>

#include "CommandLine.h"

namespace kestrava::app {

/// The toolkit's application, with a net below every event: what falls out of a click or a tick is told once, and the
/// window stays as it was.
class Application : public QApplication {
 public:
  using QApplication::QApplication;
  bool notify(QObject* receiver, QEvent* event) override;
};

/// @return the process's exit code, or shell::kStartAnewCode: the program is to be started again
int Run(const CommandLine& commandLine);

}  // namespace kestrava::app
