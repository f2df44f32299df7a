#include "CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>
#include <string_view>

namespace kestrava::app {

namespace {

struct Options {
  QCommandLineParser parser;
  QCommandLineOption help = parser.addHelpOption();
  QCommandLineOption version = parser.addVersionOption();
  QCommandLineOption data{"data", "Keep the station's files in <folder>.", "folder"};
  QCommandLineOption tour{"tour", "Open every window, save a picture of each into <folder>, and end.", "folder"};

  Options() {
    parser.setApplicationDescription("Desktop satellite tracking station");
    parser.addOption(data);
    parser.addOption(tour);
  }
};

bool IsQuestion(std::string_view argument) {
  return argument == "--help" || argument == "-h" || argument == "-?" || argument == "--help-all" ||
         argument == "--version" || argument == "-v";
}

}  // namespace

std::optional<int> AnswerWithoutWindows(int argc, char** argv) {
  bool asked = false;
  for (int i = 1; i < argc; ++i) asked = asked || IsQuestion(argv[i]);
  if (!asked) return std::nullopt;
  const QCoreApplication application(argc, argv);
  Options options;
  options.parser.parse(QCoreApplication::arguments());
  const bool version = options.parser.isSet(options.version);
  const QString answer =
      version ? "Kestrava " + QCoreApplication::applicationVersion() + "\n" : options.parser.helpText();
  std::fputs(answer.toLocal8Bit().constData(), stdout);
  return 0;
}

std::optional<CommandLine> ReadCommandLine(const QCoreApplication& application) {
  Options options;
  if (!options.parser.parse(application.arguments()) || !options.parser.positionalArguments().isEmpty()) {
    const QString error = options.parser.errorText();
    const QString why = error.isEmpty() ? "Files are not opened by name." : error;
    std::fputs((why + "\n\n" + options.parser.helpText()).toLocal8Bit().constData(), stderr);
    return std::nullopt;
  }
  return CommandLine{options.parser.value(options.data).toStdString(),
                     options.parser.value(options.tour).toStdString()};
}

}  // namespace kestrava::app
