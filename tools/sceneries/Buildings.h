#pragma once
// What people have put up: houses, a church, the mast of a station, a lighthouse, a boat; silhouettes with a few dim
// lamps.
#include <QColor>
#include <QPainter>

#include "Noise.h"

namespace kestrava::tools {

struct Paint {
  QColor wall;    ///< silhouette
  QColor roof;    ///< a shade of sky lies on it
  QColor window;  ///< dim: text over it must stay readable
};

/// `lamps` is the share of windows that are lit.
void DrawHouse(QPainter& painter, QPointF foot, double width, double lamps, const Paint& paint, Chance& chance);
void DrawChurch(QPainter& painter, QPointF foot, double height, const Paint& paint);
/// A lattice mast with two crossed-element antennas that look up to the right.
void DrawMast(QPainter& painter, QPointF foot, double height, const Paint& paint);
void DrawDish(QPainter& painter, QPointF foot, double height, const Paint& paint);
void DrawLighthouse(QPainter& painter, QPointF foot, double height, const Paint& paint);
void DrawSailingBoat(QPainter& painter, QPointF foot, double height, const Paint& paint);

}  // namespace kestrava::tools
