#include <QFile>
#include <QPainter>
#include <QSvgRenderer>
#include <QTextStream>
#include <cmath>
#include <numbers>

#include "Earth.h"
#include "Scenes.h"

namespace kestrava::tools {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kRadius = 84;  // of the globe, in a drawing 256 wide
constexpr double kViewLatDeg = 22, kViewLonDeg = 12;

// Where a place stands on the globe seen from outside; what lies behind is moved to the rim.
QPointF OnGlobe(double lonDeg, double latDeg) {
  const double lon = (lonDeg - kViewLonDeg) * kPi / 180, lat = latDeg * kPi / 180, tilt = kViewLatDeg * kPi / 180;
  const double x = std::cos(lat) * std::sin(lon);
  const double y = std::sin(lat) * std::cos(tilt) - std::cos(lat) * std::cos(lon) * std::sin(tilt);
  const double z = std::sin(lat) * std::sin(tilt) + std::cos(lat) * std::cos(lon) * std::cos(tilt);
  const double rim = z < 0 ? 1 / std::max(1e-6, std::hypot(x, y)) : 1;
  return {x * rim * kRadius, -y * rim * kRadius};
}

bool InFront(double lonDeg, double latDeg) {
  return std::hypot(OnGlobe(lonDeg, latDeg).x(), OnGlobe(lonDeg, latDeg).y()) < kRadius - 0.01;
}

// One land area as path data with a point every few units, or nothing when it is behind or too small to matter.
QString LandPath(const QPolygonF& ring) {
  constexpr double kStep = 2.6, kSmallest = 9;
  QPolygonF out;
  bool seen = false;
  for (const QPointF& place : ring) {
    const QPointF p = OnGlobe(place.x(), place.y());
    seen = seen || InFront(place.x(), place.y());
    if (out.isEmpty() || std::hypot(p.x() - out.last().x(), p.y() - out.last().y()) > kStep) out << p;
  }
  const QRectF box = out.boundingRect();
  if (!seen || out.size() < 3 || std::max(box.width(), box.height()) < kSmallest) return {};
  QString data;
  for (qsizetype i = 0; i < out.size(); ++i) {
    data += QString("%1%2 %3").arg(i == 0 ? "M" : "L").arg(out[i].x(), 0, 'f', 1).arg(out[i].y(), 0, 'f', 1);
  }
  return data + "Z";
}

QString Land(const QString& file) {
  QString data;
  ForEachRing(file, [&](const std::vector<QPointF>& ring) { data += LandPath(QPolygonF(ring.begin(), ring.end())); });
  return data;
}

const char* const kHead = R"svg(<?xml version="1.0" encoding="UTF-8"?>
<svg xmlns="http://www.w3.org/2000/svg" width="256" height="256" viewBox="0 0 256 256">
  <title>Kestrava</title>
  <defs>
    <radialGradient id="sea" cx="0.34" cy="0.28" r="0.85">
      <stop offset="0" stop-color="#5db8ee"/><stop offset="0.45" stop-color="#2273b8"/><stop offset="1" stop-color="#0a2a55"/>
    </radialGradient>
    <radialGradient id="shade" cx="0.34" cy="0.28" r="0.85">
      <stop offset="0" stop-color="#ffffff" stop-opacity="0.18"/><stop offset="0.5" stop-color="#04102a" stop-opacity="0"/>
      <stop offset="1" stop-color="#04102a" stop-opacity="0.62"/>
    </radialGradient>
    <linearGradient id="panel" x1="0" y1="0" x2="0" y2="1">
      <stop offset="0" stop-color="#ffe08a"/><stop offset="1" stop-color="#d8922a"/>
    </linearGradient>
    <linearGradient id="body" x1="0" y1="0" x2="0" y2="1">
      <stop offset="0" stop-color="#ffffff"/><stop offset="1" stop-color="#a9b4c4"/>
    </linearGradient>
  </defs>
  <g transform="translate(116 144)">
    <path d="M-110 0A110 36 0 0 1 110 0" transform="rotate(-32)" fill="none" stroke="#b9791c" stroke-width="7"/>
    <circle r="86" fill="#081a33"/>
    <circle r="84" fill="url(#sea)"/>
    <path fill="#8fc06a" d=")svg";

const char* const kTail = R"svg("/>
    <circle r="84" fill="url(#shade)"/>
    <path d="M110 0A110 36 0 0 1 -110 0" transform="rotate(-32)" fill="none" stroke="#2a1a04" stroke-opacity="0.55" stroke-width="11"/>
    <path d="M110 0A110 36 0 0 1 -110 0" transform="rotate(-32)" fill="none" stroke="#ffc24a" stroke-width="7"/>
  </g>
  <g transform="translate(205 74) rotate(38)">
    <g fill="#10151f">
      <rect x="-52" y="-20" width="104" height="40" rx="5"/><rect x="-19" y="-28" width="38" height="58" rx="6"/>
    </g>
    <rect x="-48" y="-16" width="27" height="32" rx="2" fill="url(#panel)"/>
    <rect x="21" y="-16" width="27" height="32" rx="2" fill="url(#panel)"/>
    <path d="M-34.500 -16V16M34.500 -16V16M-48 0H-21M21 0H48" stroke="#8a5410" stroke-width="2.500"/>
    <rect x="-15" y="-24" width="30" height="50" rx="4" fill="url(#body)"/>
    <rect x="-15" y="-6" width="30" height="14" fill="#e7b04e"/>
  </g>
</svg>
)svg";

}  // namespace

void SaveIcon(const QString& land, const QString& folder) {
  const QString file = folder + "kestrava.svg";
  QFile svg(file);
  if (!svg.open(QIODevice::WriteOnly)) qFatal("cannot write %s", qPrintable(file));
  QTextStream(&svg) << kHead << Land(land) << kTail;
  svg.close();
  QSvgRenderer renderer(file);
  for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
    constexpr int kOversample = 4;
    QImage image(size * kOversample, size * kOversample, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter);
    painter.end();
    const QImage sized = image.scaled(size, size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (!sized.save(folder + QString("kestrava-%1.png").arg(size))) qFatal("cannot write the icon");
  }
}

}  // namespace kestrava::tools
