#include "CommandLine.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>
#include <filesystem>

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

void Say(const QString& why) {
  std::fputs(("kestrava: " + why + ". kestrava --help tells what there is.\n").toLocal8Bit().constData(), stderr);
}

/// A folder that is not there yet is made; something else of that name is not touched.
bool IsNoFolder(const QString& path) {
  std::error_code unknown;
  const auto status = std::filesystem::status(path.toStdString(), unknown);
  return !path.isEmpty() && std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

}  // namespace

std::optional<CommandLine> ReadCommandLine(const QCoreApplication& application) {
  Options options;
  if (!options.parser.parse(application.arguments()) || !options.parser.positionalArguments().isEmpty()) {
    const QString error = options.parser.errorText();
    Say(error.isEmpty() ? "files are not opened by name" : error);
    return std::nullopt;
  }
  for (const QCommandLineOption& option : {options.data, options.tour}) {
    const QString path = options.parser.value(option);
    if (!IsNoFolder(path)) continue;
    Say("--" + option.names().first() + " needs a folder, and " + path + " is a file");
    return std::nullopt;
  }
  return CommandLine{options.parser.value(options.data).toStdString(),
                     options.parser.value(options.tour).toStdString()};
}

}  // namespace kestrava::app
