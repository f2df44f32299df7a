#include "Scenes.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <random>
#include <utility>

namespace kestrava::tools {
namespace {

constexpr int kSkyWidth = 140, kSkyHeight = 60;

void DrawHills(QPainter& p) {
  QPainterPath hills(QPointF(0, kSkyHeight));
  for (int x = 0; x <= kSkyWidth; ++x) {
    const double t = x / static_cast<double>(kSkyWidth);
    hills.lineTo(x, 52 - 4 * std::sin(3.1 * t + 0.4) - 2.2 * std::sin(9 * t + 1) - 0.8 * std::sin(23 * t));
  }
  hills.lineTo(kSkyWidth, kSkyHeight);
  hills.closeSubpath();
  p.fillPath(hills, QColor(7, 11, 18));
}

// A dish on its mount, looking up at the pass.
void DrawAntenna(QPainter& p) {
  p.setPen(QPen(QColor(7, 11, 18), 1.6, Qt::SolidLine, Qt::RoundCap));
  p.drawLine(QPointF(112, 53), QPointF(112, 40));
  p.save();
  p.translate(112, 39);
  p.rotate(-38);
  QPainterPath dish(QPointF(-8, -3));
  dish.quadTo(0, 6.5, 8, -3);
  dish.quadTo(0, 0.5, -8, -3);
  p.fillPath(dish, QColor(9, 14, 22));
  p.setPen(QPen(QColor(9, 14, 22), 0.9));
  p.drawLine(QPointF(0, 1), QPointF(0, -6.5));
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(9, 14, 22));
  p.drawEllipse(QPointF(0, -6.8), 1.1, 1.1);
  p.restore();
}

void DrawPass(QPainter& p) {
  const auto at = [](double t) { return QPointF(8 + 92 * t, 40 - 62 * t * (1.25 - t)); };
  for (double t = 0.02; t < 0.8; t += 0.01) {
    p.setPen(
        QPen(QColor(255, 224, 150, static_cast<int>(235 * std::pow(t / 0.8, 1.6))), 1.1, Qt::SolidLine, Qt::FlatCap));
    p.drawLine(at(t), at(t + 0.012));
  }
  p.setPen(Qt::NoPen);
  p.setBrush(QColor(255, 236, 180, 70));
  p.drawEllipse(at(0.81), 3.6, 3.6);
  p.setBrush(QColor(255, 252, 240));
  p.drawEllipse(at(0.81), 1.5, 1.5);
}

void DrawSky(QPainter& p) {
  QLinearGradient dusk(0, 0, 0, kSkyHeight);
  dusk.setColorAt(0, QColor(8, 14, 32));
  dusk.setColorAt(0.42, QColor(26, 54, 92));
  dusk.setColorAt(0.62, QColor(92, 112, 136));
  dusk.setColorAt(0.80, QColor(226, 154, 98));
  p.fillRect(QRectF(0, 0, kSkyWidth, kSkyHeight), dusk);
  std::mt19937 random(11);
  std::uniform_real_distribution<double> share(0, 1);
  p.setPen(Qt::NoPen);
  for (int i = 0; i < 70; ++i) {
    const double height = std::pow(share(random), 1.6);
    p.setBrush(QColor(255, 255, 255, static_cast<int>((60 + 180 * share(random)) * (1 - height))));
    const double size = 0.3 + 0.5 * std::pow(share(random), 3);
    p.drawEllipse(QPointF(share(random) * kSkyWidth, height * 38), size, size);
  }
}

constexpr double kFrameWidth = 371, kFrameHeight = 241, kCornerWidth = 142, kCornerHeight = 90;

// Even along both middles, so that stretching them shows no seam.
void DrawFrameGround(QPainter& p) {
  QLinearGradient ground(0, 0, 0, kFrameHeight);
  ground.setColorAt(0, QColor(33, 41, 52));
  ground.setColorAt(kCornerHeight / kFrameHeight, QColor(25, 31, 40));
  ground.setColorAt(1 - kCornerHeight / kFrameHeight, QColor(25, 31, 40));
  ground.setColorAt(1, QColor(19, 24, 31));
  p.fillRect(QRectF(0, 0, kFrameWidth, kFrameHeight), ground);
  p.setBrush(Qt::NoBrush);
  p.setPen(QPen(QColor(9, 12, 17), 1));
  p.drawRect(QRectF(0.5, 0.5, kFrameWidth - 1, kFrameHeight - 1));
  p.setPen(QPen(QColor(58, 70, 86), 1));
  p.drawRect(QRectF(1.5, 1.5, kFrameWidth - 3, kFrameHeight - 3));
}

// A fine angle in each corner, 23 by 18, running out along the edges.
void DrawFrameCorner(QPainter& p) {
  QLinearGradient across(0, 0, kCornerWidth * 0.6, 0);
  across.setColorAt(0, QColor(0, 190, 198, 220));
  across.setColorAt(23 / (kCornerWidth * 0.6), QColor(0, 160, 170, 120));
  across.setColorAt(1, QColor(0, 160, 170, 0));
  p.fillRect(QRectF(1, 1, kCornerWidth * 0.6, 1), across);
  QLinearGradient down(0, 0, 0, kCornerHeight * 0.6);
  down.setColorAt(0, QColor(0, 190, 198, 220));
  down.setColorAt(18 / (kCornerHeight * 0.6), QColor(0, 160, 170, 120));
  down.setColorAt(1, QColor(0, 160, 170, 0));
  p.fillRect(QRectF(1, 1, 1, kCornerHeight * 0.6), down);
}

QImage SkinFrame(double scale) {
  QImage image(static_cast<int>(std::lround(kFrameWidth * scale)), static_cast<int>(std::lround(kFrameHeight * scale)),
               QImage::Format_RGB32);
  QPainter p(&image);
  p.scale(image.width() / kFrameWidth, image.height() / kFrameHeight);
  DrawFrameGround(p);
  for (int corner = 0; corner < 4; ++corner) {
    p.save();
    p.translate(corner % 2 != 0 ? kFrameWidth : 0, corner / 2 != 0 ? kFrameHeight : 0);
    p.scale(corner % 2 != 0 ? -1 : 1, corner / 2 != 0 ? -1 : 1);
    DrawFrameCorner(p);
    p.restore();
  }
  return image;
}

}  // namespace

QImage EveningSky() {
  constexpr int kOversample = 4;
  QImage large(kSkyWidth * kOversample, kSkyHeight * kOversample, QImage::Format_RGB32);
  QPainter p(&large);
  p.setRenderHint(QPainter::Antialiasing);
  p.scale(kOversample, kOversample);
  DrawSky(p);
  DrawHills(p);
  DrawAntenna(p);
  DrawPass(p);
  p.end();
  return large.scaled(kSkyWidth, kSkyHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

void SaveSkinFrame(const QString& folder) {
  for (const auto& [scale, suffix] : {std::pair{1.0, ""}, std::pair{1.5, "@15"}, std::pair{2.0, "@2"}}) {
    if (!SkinFrame(scale).save(folder + "skin-frame" + suffix + ".png")) qFatal("cannot write the skin's frame");
  }
}

}  // namespace kestrava::tools
