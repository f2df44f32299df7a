#include <QMessageBox>
#include <csignal>
#include <cstdio>
#include <exception>
#include <memory>

#include "platform/linux/OwnStart.h"
#include "platform/qt/StationApplication.h"
#include "shell/FatalFault.h"
#include "shell/Shutdown.h"

#include "Display.h"
#include "Run.h"
#include "Terminal.h"

namespace {

/// The last word of a run that broke off: its doors are gone, so it is said with the toolkit alone.
int TellFailure(const char* what) {
  const QString text = QString("Kestrava met a fault that it cannot go on from, and ends now: ") +
                       QString::fromLocal8Bit(what) +
                       ".\n\nYour files and settings are as they were. Start Kestrava again; if this happens again, "
                       "please report this message.";
  std::fputs(qPrintable(text + "\n"), stderr);
  QMessageBox::critical(nullptr, "Kestrava cannot go on", text);
  return kestrava::shell::kFatalExitCode;
}

/// One run with windows. No object of the toolkit is left behind it.
int RunWindows(int argc, char** argv) {
  auto displayCheck = std::make_unique<kestrava::app::DisplayCheck>();
  const kestrava::platform::qt::StationApplication application(argc, argv);
  displayCheck.reset();
  const auto commandLine = kestrava::app::ReadCommandLine(application);
  if (!commandLine) return 2;
  try {
    return kestrava::app::Run(*commandLine);
  } catch (const std::exception& failure) {
    return TellFailure(failure.what());
  }
}

int StartAnew(kestrava::platform::OwnStart& ownStart) {
  try {
    ownStart.Again();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "kestrava: everything is stored, but the program could not be started anew: %s\n",
                 failure.what());
  }
  return kestrava::shell::kFatalExitCode;
}

}  // namespace

int main(int argc, char** argv) {
  kestrava::platform::OwnStart ownStart(argc, argv);
  std::signal(SIGXFSZ, SIG_IGN);  // a file beyond the user's limit is a disk that is full, not the end of the process
  if (const auto answered = kestrava::app::AnswerInTerminal(argc, argv)) return *answered;
  const int exitCode = RunWindows(argc, argv);
  return exitCode == kestrava::shell::kStartAnewCode ? StartAnew(ownStart) : exitCode;
}
