#include "ShellWindows.h"

#include <QBuffer>

namespace kestrava::shell::ui {

void ShellWindows::PutPicture(const std::string& name) {
  QImage picture(140, 60, QImage::Format_RGB32);
  picture.fill(Qt::darkCyan);
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  picture.save(&buffer, "PNG");
  Put(name, bytes.toStdString());
}

}  // namespace kestrava::shell::ui
