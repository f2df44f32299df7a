#include "support_qt/Shots.h"

#include <QApplication>
#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <QWidget>

namespace kestrava::testing {

void HandleEvents() {
  constexpr int kAnswerMs = 250;
  constexpr int kRounds = 5;
  bool waiting = QGuiApplication::platformName() != "offscreen";
  if (waiting) QTimer::singleShot(kAnswerMs, qApp, [&] { waiting = false; });
  while (waiting) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  for (int i = 0; i < kRounds; ++i) QCoreApplication::processEvents();
}

QImage Grab(QWidget& widget) {
  return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

void SaveShot(const QImage& picture, const char* name) {
  const QString folder = qEnvironmentVariable("KESTRAVA_SHOTS");
  if (folder.isEmpty() || !QDir().mkpath(folder)) return;
  picture.save(folder + '/' + name + ".png");
}

void SaveShot(QWidget& widget, const char* name) {
  SaveShot(Grab(widget), name);
}

}  // namespace kestrava::testing
