#include "Display.h"

#include <QString>
#include <QtGlobal>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include "platform/Quote.h"
#include "shell/FatalFault.h"

namespace kestrava::app {

namespace {

struct Heard {
  QtMsgType type;
  QString text;
};

std::vector<Heard>& HeardSoFar() {
  static std::vector<Heard> heard;
  return heard;
}

/// The first that speaks of a display or a plugin names the reason; what follows is advice.
QString Reason(const std::vector<Heard>& heard) {
  const auto names = [](const Heard& said) { return said.text.contains("display") || said.text.contains("plugin"); };
  const auto found = std::find_if(heard.begin(), heard.end(), names);
  return (found == heard.end() ? heard.back() : *found).text;
}

void Hear(QtMsgType type, const QMessageLogContext& /*context*/, const QString& text) {
  std::vector<Heard>& heard = HeardSoFar();
  heard.push_back({type, text});
  if (type != QtFatalMsg) return;
  const std::string reason = platform::QuoteOf(Reason(heard).toStdString());
  std::fprintf(stderr, "kestrava: there is no display for its windows (%s). kestrava --help names what needs none\n",
               reason.c_str());
  std::_Exit(shell::kFatalExitCode);
}

}  // namespace

DisplayCheck::DisplayCheck() {
  qInstallMessageHandler(Hear);
}

DisplayCheck::~DisplayCheck() {
  qInstallMessageHandler(nullptr);
  for (const Heard& said : std::exchange(HeardSoFar(), {})) {
    std::fputs(qPrintable(said.text + "\n"), stderr);
  }
}

}  // namespace kestrava::app
