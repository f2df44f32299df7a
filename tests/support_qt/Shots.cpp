#include "support_qt/Shots.h"

#include <QDir>
#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace kestrava::testing {

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
