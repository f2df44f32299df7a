#include <QApplication>
#include <QIcon>

#include "platform/Version.h"

#include "Run.h"

namespace {

void NameTheProgram() {
  QCoreApplication::setApplicationName("kestrava");
  QCoreApplication::setApplicationVersion(QString::fromStdString(kestrava::platform::LongVersion()));
  QGuiApplication::setApplicationDisplayName("Kestrava");
  QGuiApplication::setDesktopFileName("kestrava");
}

}  // namespace

int main(int argc, char** argv) {
  NameTheProgram();
  if (const auto answered = kestrava::app::AnswerWithoutWindows(argc, argv)) return *answered;
  kestrava::app::Application application(argc, argv);
  const auto commandLine = kestrava::app::ReadCommandLine(application);
  if (!commandLine) return 2;
  QGuiApplication::setWindowIcon(QIcon(":/pictures/kestrava.svg"));
  return kestrava::app::Run(*commandLine);
}
