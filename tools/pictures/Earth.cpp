#include "Earth.h"

#include <QPainter>
#include <QtGlobal>
#include <algorithm>
#include <functional>

#include <shapefil.h>

namespace kestrava::tools {
namespace {

using Ring = std::vector<QPointF>;

bool OnFrame(const QPointF& p) {
  return p.x() < -179.98 || p.x() > 179.98 || p.y() < -89.9;
}

// A ring's line as drawn, broken where two neighbours lie on the frame of the map.
void AddLine(QPainterPath& path, const Ring& ring, const std::function<QPointF(const QPointF&)>& toMap) {
  for (size_t i = 0; i < ring.size(); ++i) {
    const bool broken = i == 0 || (OnFrame(ring[i - 1]) && OnFrame(ring[i]));
    if (broken) {
      path.moveTo(toMap(ring[i]));
    } else {
      path.lineTo(toMap(ring[i]));
    }
  }
}

void AddArea(QPainterPath& path, const Ring& ring, const std::function<QPointF(const QPointF&)>& toMap) {
  QPolygonF polygon;
  for (const QPointF& p : ring) polygon << toMap(p);
  path.addPolygon(polygon);
  path.closeSubpath();
}

Plane Coverage(const QPainterPath& land, int width, int height, double scaleX, double scaleY) {
  QImage image(width, height, QImage::Format_Grayscale8);
  image.fill(0);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(scaleX, scaleY);
  painter.fillPath(land, Qt::white);
  painter.end();
  Plane out(width, height);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) out.At(x, y) = static_cast<float>(image.constScanLine(y)[x]) / 255.0F;
  }
  return out;
}

Plane Channel(const QImage& image, const std::function<double(const QColor&)>& value) {
  Plane out(image.width(), image.height());
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) out.At(x, y) = static_cast<float>(value(image.pixelColor(x, y)));
  }
  return out;
}

Plane Where(const Plane& plane, const std::function<bool(float)>& test) {
  Plane out(plane.Width(), plane.Height());
  for (int y = 0; y < out.Height(); ++y) {
    for (int x = 0; x < out.Width(); ++x) out.At(x, y) = test(plane.At(x, y)) ? 1.0F : 0.0F;
  }
  return out;
}

double Latitude(const QImage& image, int y) {
  return 90 - 180 * (y + 0.5) / image.height();
}

// White in the relief: 0 on coloured ground, 1 on ice. Greenland's shaded flanks count from a darker grey on.
float Whiteness(const QColor& c, double lightFrom) {
  const double light = 0.30 * c.redF() + 0.59 * c.greenF() + 0.11 * c.blueF();
  const double spread = (std::max({c.red(), c.green(), c.blue()}) - std::min({c.red(), c.green(), c.blue()})) / 255.0;
  const double bright = std::clamp((light - lightFrom) / 0.08, 0.0, 1.0);
  return static_cast<float>(bright * std::clamp((0.10 - spread) / 0.06, 0.0, 1.0));
}

float IceAt(const QImage& image, int x, int y) {
  const double latitude = Latitude(image, y);
  const double longitude = 360 * (x + 0.5) / image.width() - 180;
  if (latitude < -60) return 1;
  if (latitude < 58) return 0;
  const bool greenland = longitude > (latitude > 76 ? -68 : -56) && longitude < -18 && latitude < 83.7;
  return Whiteness(image.pixelColor(x, y), greenland ? 0.68 : 0.86);
}

Plane IcePlane(const QImage& image, const std::function<float(int, int)>& value) {
  Plane out(image.width(), image.height());
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) out.At(x, y) = value(x, y);
  }
  return out;
}

void LoadRelief(const QString& file, Earth& earth) {
  const QImage image(file);
  if (image.isNull()) qFatal("cannot open %s", qPrintable(file));
  const Plane coverage =
      Coverage(earth.land, image.width(), image.height(), static_cast<double>(image.width()) / earth.width,
               static_cast<double>(image.height()) / earth.height);
  const Plane isLand = Where(coverage, [](float c) { return c > 0.995F; });
  Plane isSea = Where(coverage, [](float c) { return c < 0.005F; });
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width();
         ++x) {  // lakes and floating ice are printed pale and say nothing about the depth
      if (image.pixelColor(x, y).blueF() - image.pixelColor(x, y).redF() < 0.2) isSea.At(x, y) = 0;
    }
  }
  const auto spread = [&](const Plane& plane, const Plane& weight) {
    return Resample(FillHoles(plane, weight), earth.width, earth.height);
  };
  earth.landColour = {spread(Channel(image, [](const QColor& c) { return c.redF(); }), isLand),
                      spread(Channel(image, [](const QColor& c) { return c.greenF(); }), isLand),
                      spread(Channel(image, [](const QColor& c) { return c.blueF(); }), isLand)};
  earth.seaLight = spread(Channel(image, [](const QColor& c) { return c.redF(); }), isSea);
  earth.ice = spread(IcePlane(image, [&](int x, int y) { return IceAt(image, x, y); }), isLand);
  const auto floating = [&](int x, int y) {
    return Latitude(image, y) < -60 ? Whiteness(image.pixelColor(x, y), 0.80) : 0.0F;
  };
  earth.shelfIce = Resample(IcePlane(image, floating), earth.width, earth.height);
}

}  // namespace

void ForEachRing(const QString& file, const std::function<void(const Ring&)>& use) {
  const SHPHandle handle = SHPOpen(file.toUtf8().constData(), "rb");
  if (handle == nullptr) qFatal("cannot open %s", qPrintable(file));
  int count = 0;
  SHPGetInfo(handle, &count, nullptr, nullptr, nullptr);
  for (int i = 0; i < count; ++i) {
    SHPObject* shape = SHPReadObject(handle, i);
    for (int part = 0; part < shape->nParts; ++part) {
      const int end = part + 1 < shape->nParts ? shape->panPartStart[part + 1] : shape->nVertices;
      Ring ring;
      for (int v = shape->panPartStart[part]; v < end; ++v) ring.emplace_back(shape->padfX[v], shape->padfY[v]);
      use(ring);
    }
    SHPDestroyObject(shape);
  }
  SHPClose(handle);
}

Earth LoadEarth(const QString& folder, int width, int height) {
  const Plane empty(1, 1);
  Earth earth{width, height, {}, {}, {}, {}, empty, {empty, empty, empty}, empty, empty, empty};
  const auto toMap = [=](const QPointF& p) {
    return QPointF((p.x() + 180) / 360 * width, (90 - p.y()) / 180 * height);
  };
  earth.land.setFillRule(Qt::OddEvenFill);
  ForEachRing(folder + "/ne_50m_land.shp", [&](const Ring& ring) {
    AddArea(earth.land, ring, toMap);
    AddLine(earth.coast, ring, toMap);
  });
  ForEachRing(folder + "/ne_50m_admin_0_boundary_lines_land.shp",
              [&](const Ring& ring) { AddLine(earth.borders, ring, toMap); });
  ForEachRing(folder + "/ne_50m_rivers_lake_centerlines.shp",
              [&](const Ring& ring) { AddLine(earth.rivers, ring, toMap); });
  earth.coverage = Coverage(earth.land, width, height, 1, 1);
  LoadRelief(folder + "/natural-earth-1-720.png", earth);
  return earth;
}

}  // namespace kestrava::tools
