#include "CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

namespace kestrava::app {

namespace {

struct Options {
  QCommandLineParser parser;
  QCommandLineOption data{"data", "Keep the station's files in <folder>.", "folder"};
  QCommandLineOption tour{"tour", "Open every window, save a picture of each into <folder>, and end.", "folder"};

  Options() {
    parser.addOption(data);
    parser.addOption(tour);
  }
};

}  // namespace

std::optional<CommandLine> ReadCommandLine(const QCoreApplication& application) {
  Options options;
  if (!options.parser.parse(application.arguments()) || !options.parser.positionalArguments().isEmpty()) {
    const QString error = options.parser.errorText();
    const QString why = error.isEmpty() ? "Files are not opened by name." : error;
    std::fputs(("kestrava: " + why + " kestrava --help tells what there is.\n").toLocal8Bit().constData(), stderr);
    return std::nullopt;
  }
  return CommandLine{options.parser.value(options.data).toStdString(),
                     options.parser.value(options.tour).toStdString()};
}

}  // namespace kestrava::app
