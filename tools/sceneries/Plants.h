#pragma once
// Trees and smaller plants as silhouettes; each grows a little differently. `foot` is where it leaves the ground.
#include <QPainter>

#include "Noise.h"

namespace kestrava::tools {

void DrawSpruce(QPainter& painter, QPointF foot, double height, Chance& chance);
void DrawBroadleaf(QPainter& painter, QPointF foot, double height, Chance& chance);
void DrawPoplar(QPainter& painter, QPointF foot, double height, Chance& chance);
void DrawBareTree(QPainter& painter, QPointF foot, double height, Chance& chance);
void DrawPine(QPainter& painter, QPointF foot, double height, Chance& chance);  ///< bent by the wind, flat crown
void DrawBush(QPainter& painter, QPointF foot, double height, Chance& chance);
void DrawGrass(QPainter& painter, QPointF foot, double height, Chance& chance);

}  // namespace kestrava::tools
