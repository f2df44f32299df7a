// Draws every picture of Kestrava from public-domain map data:
//   make_pictures NATURAL-EARTH-FOLDER DATA-FOLDER
// DATA-FOLDER gets pictures/ (compiled into the program) and sample/ (copied to a user's folder at the first start).
#include <QDir>
#include <QGuiApplication>
#include <QImageWriter>

#include "Earth.h"
#include "Maps.h"
#include "Scenes.h"
#include "Sprites.h"

namespace {

using namespace kestrava::tools;

void SaveJpeg(const QImage& image, const QString& file, int quality) {
  QImageWriter writer(file, "jpg");
  writer.setQuality(quality);
  writer.setOptimizedWrite(true);
  if (!writer.write(image)) qFatal("cannot write %s", qPrintable(file));
}

}  // namespace

int main(int argc, char** argv) {
  const QGuiApplication application(argc, argv);
  if (argc != 3) qFatal("usage: make_pictures NATURAL-EARTH-FOLDER DATA-FOLDER");
  const QString data = QString::fromLocal8Bit(argv[2]);
  const QString sample = data + "/sample/";
  QDir().mkpath(sample);
  const QString pictures = data + "/pictures/";
  QDir().mkpath(pictures);
  SaveSprites(pictures);
  const QString naturalEarth = QString::fromLocal8Bit(argv[1]);
  SaveSkinFrame(pictures);
  SaveIcon(naturalEarth + "/ne_50m_land.shp", pictures);
  SaveJpeg(EveningSky(), sample + "cust1.dat", 93);
  const Earth earth = LoadEarth(naturalEarth, 1400, 704);
  constexpr int kMapQuality = 91;
  SaveJpeg(DefaultMap(earth), sample + "Default.jpg", kMapQuality);
  SaveJpeg(NightMap(earth), sample + "Night.jpg", kMapQuality);
  SaveJpeg(ReliefMap(earth), sample + "Relief.jpg", kMapQuality);
  SaveJpeg(ChartMap(earth), sample + "Chart.jpg", kMapQuality);
  const QImage large = DefaultMap(LoadEarth(naturalEarth, 2800, 1408));
  SaveJpeg(large, sample + "Large.jpg", kMapQuality);
  SaveSplash(large, pictures);
  return 0;
}
