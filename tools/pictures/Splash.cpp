#include <QFont>
#include <QFontMetricsF>
#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>
#include <utility>

#include "Scenes.h"
#include "Sprites.h"

namespace kestrava::tools {
namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kScale = 2;  // drawn at 200 %, brought down for the others
constexpr double kGlobeX = 332, kGlobeY = 352, kGlobeRadius = 268;
constexpr double kViewLatDeg = 2, kViewLonDeg = 24;

const QRectF kTitleArea(22, 26, 248, 100);  // free of stars; the version is printed at its foot

struct Direction {
  double x, y, z;
};

QColor MapColour(const QImage& map, double latitude, double longitude) {
  const double u = (longitude / (2 * kPi) + 0.5) * map.width() - 0.5;
  const double v = (0.5 - latitude / kPi) * map.height() - 0.5;
  const int x = static_cast<int>(std::floor(u)), y = static_cast<int>(std::floor(v));
  double r = 0, g = 0, b = 0;
  for (int k = 0; k < 4; ++k) {
    const int sx = ((x + k % 2) % map.width() + map.width()) % map.width();
    const int sy = std::clamp(y + k / 2, 0, map.height() - 1);
    const double w = (k % 2 != 0 ? u - x : 1 - u + x) * (k / 2 != 0 ? v - y : 1 - v + y);
    const QRgb p = map.pixel(sx, sy);
    r += w * qRed(p), g += w * qGreen(p), b += w * qBlue(p);
  }
  return QColor::fromRgbF(static_cast<float>(r / 255), static_cast<float>(g / 255), static_cast<float>(b / 255));
}

// The colour of the globe where the eye meets it in `d` (x right, y up, z to the eye), lit from the upper left.
QColor GlobeColour(const QImage& map, const Direction& d) {
  const double tilt = kViewLatDeg * kPi / 180;
  const double up = d.y * std::cos(tilt) + d.z * std::sin(tilt);
  const double out = d.z * std::cos(tilt) - d.y * std::sin(tilt);
  const QColor ground = MapColour(map, std::asin(std::clamp(up, -1.0, 1.0)),
                                  std::remainder(std::atan2(d.x, out) + kViewLonDeg * kPi / 180, 2 * kPi));
  const double sun = -0.62 * d.x + 0.60 * d.y + 0.50 * d.z;
  const double light = 0.05 + 1.05 * std::clamp((sun + 0.06) / 0.75, 0.0, 1.0);
  const double haze = std::pow(1 - d.z, 3) * 0.75 * std::clamp((sun + 0.25) / 0.6, 0.0, 1.0);
  const auto mixed = [&](double c, double air) {
    return static_cast<float>(std::min(1.0, c * light * (1 - haze) + air * haze));
  };
  return QColor::fromRgbF(mixed(ground.redF(), 0.42), mixed(ground.greenF(), 0.70), mixed(ground.blueF(), 0.98));
}

void DrawGlobe(QImage& image, const QImage& map) {
  const double cx = kGlobeX * kScale, cy = kGlobeY * kScale, radius = kGlobeRadius * kScale;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      const double dx = (x + 0.5 - cx) / radius, dy = (cy - y - 0.5) / radius;
      const double r = std::hypot(dx, dy);
      const double inside = std::clamp((1 - r) * radius + 0.5, 0.0, 1.0);
      const double sunny = std::clamp((-0.62 * dx + 0.60 * dy) / std::max(r, 1e-9) * 0.9 + 0.25, 0.0, 1.0);
      QColor colour = image.pixelColor(x, y);
      const auto mix = [&](const QColor& over, double a) {
        colour = QColor::fromRgbF(static_cast<float>(colour.redF() + (over.redF() - colour.redF()) * a),
                                  static_cast<float>(colour.greenF() + (over.greenF() - colour.greenF()) * a),
                                  static_cast<float>(colour.blueF() + (over.blueF() - colour.blueF()) * a));
      };
      if (inside < 1) mix(QColor(92, 170, 250), 0.75 * sunny * std::exp(-std::max(0.0, r - 1) * 38));
      if (inside > 0) {
        const double z = std::sqrt(std::max(0.0, 1 - r * r));
        mix(GlobeColour(map, {dx, dy, z}), inside);
      }
      image.setPixelColor(x, y, colour);
    }
  }
}

void DrawStars(QPainter& p, const QRectF& area, int count) {
  std::mt19937 random(7);  // a fixed sky: the picture is the same at every run
  std::uniform_real_distribution<double> share(0, 1);
  p.setPen(Qt::NoPen);
  for (int i = 0; i < count; ++i) {
    const double bright = std::pow(share(random), 4);
    const double size = 0.35 + 0.75 * bright;
    QColor colour =
        QColor::fromHsvF(share(random) < 0.5 ? 0.60F : 0.11F, static_cast<float>(0.25 * share(random)), 1.0F);
    colour.setAlphaF(static_cast<float>(0.25 + 0.75 * bright));
    const QPointF at(area.left() + share(random) * area.width(), area.top() + share(random) * area.height());
    if (kTitleArea.contains(at)) continue;
    p.setBrush(colour);
    p.drawEllipse(at, size, size);
  }
}

// The orbit's arc over the limb, fading behind the satellite.
QPointF OnOrbit(double degrees) {
  const double a = degrees * kPi / 180;
  return {kGlobeX + 318 * std::cos(a), kGlobeY - 40 - 262 * std::sin(a)};
}

void DrawOrbit(QPainter& p) {
  constexpr double kSatelliteAt = 83, kFadedAt = 40;
  for (double a = kSatelliteAt; a > kFadedAt; a -= 0.5) {
    const double fade = std::pow((a - kFadedAt) / (kSatelliteAt - kFadedAt), 1.2);
    p.setPen(QPen(QColor(255, 214, 120, static_cast<int>(230 * fade)), 1.3, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(OnOrbit(a), OnOrbit(a - 0.55));
  }
  p.save();
  p.translate(OnOrbit(kSatelliteAt));
  p.rotate(-4);
  p.scale(2.2, 2.2);
  p.translate(-14, -14.5);
  DrawSatellite(p, 1);
  p.restore();
}

void DrawTitle(QPainter& p) {
  QFont title("DejaVu Sans");
  title.setWeight(QFont::ExtraLight);
  title.setPixelSize(50);
  title.setLetterSpacing(QFont::AbsoluteSpacing, 2.5);
  p.setFont(title);
  p.setPen(QColor(246, 249, 253));
  p.drawText(QPointF(28, 72), "Kestrava");
  QFont line("DejaVu Sans");
  line.setPixelSize(12);
  line.setLetterSpacing(QFont::AbsoluteSpacing, 1.2);
  p.setFont(line);
  p.setPen(QColor(158, 196, 224));
  p.drawText(QPointF(32, 96), "satellite tracking station");
}

}  // namespace

void SaveSplash(const QImage& map, const QString& folder) {
  QImage image(static_cast<int>(480 * kScale), static_cast<int>(300 * kScale), QImage::Format_RGB32);
  QPainter sky(&image);
  sky.setRenderHint(QPainter::Antialiasing);
  sky.scale(kScale, kScale);
  QLinearGradient dusk(0, 0, 200, 300);
  dusk.setColorAt(0, QColor(5, 9, 18));
  dusk.setColorAt(1, QColor(11, 22, 42));
  sky.fillRect(QRectF(0, 0, 480, 300), dusk);
  DrawStars(sky, {0, 0, 480, 300}, 240);
  sky.end();
  DrawGlobe(image, map);
  QPainter p(&image);
  p.setRenderHint(QPainter::Antialiasing);
  p.scale(kScale, kScale);
  DrawOrbit(p);
  DrawTitle(p);
  p.setPen(QPen(QColor(70, 96, 124), 1));
  p.setBrush(Qt::NoBrush);
  p.drawRect(QRectF(0.5, 0.5, 479, 299));
  p.end();
  for (const auto& [scale, suffix] : {std::pair{1.0, ""}, std::pair{1.5, "@15"}, std::pair{2.0, "@2"}}) {
    const QSize size(static_cast<int>(480 * scale), static_cast<int>(300 * scale));
    const QImage sized = image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    if (!sized.save(folder + "splash" + suffix + ".jpg", "jpg", 92)) qFatal("cannot write the splash");
  }
}

}  // namespace kestrava::tools
