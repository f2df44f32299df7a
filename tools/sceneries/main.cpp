// Draws the sceneries of the horizon view:
//   make_sceneries FOLDER
// The same build writes the same bytes at every run: all chance is seeded. Other compiler options (the root's are not
// those of tools/ alone) or another release of Qt or of its JPEG library may turn single pixels by a shade.
#include <QDir>
#include <QGuiApplication>
#include <QImageWriter>

#include "Sceneries.h"

namespace {

void SaveJpeg(const QImage& image, const QString& file) {
  constexpr int kQuality = 94;
  QImageWriter writer(file, "jpg");
  writer.setQuality(kQuality);
  writer.setOptimizedWrite(true);
  writer.setText("Sky", "night");  // the program may light it: a user's own picture stays as it is
  if (!writer.write(image)) qFatal("cannot write %s", qPrintable(file));
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc != 2) qFatal("usage: make_sceneries FOLDER");
  const QString folder = QString::fromLocal8Bit(argv[1]) + "/";
  QDir().mkpath(folder);
  SaveJpeg(kestrava::tools::VillageScenery(), folder + "hdefault.jpg");
  SaveJpeg(kestrava::tools::MoonlitScenery(), folder + "hmoonlit.jpg");
  SaveJpeg(kestrava::tools::SeaScenery(), folder + "hsea.jpg");
  return 0;
}
